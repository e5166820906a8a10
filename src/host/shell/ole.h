// OLE on this thread for as long as this lives.
#pragma once

#include <windows.h>

#include <ole2.h>

namespace telvar::host {

class Ole {
public:
    Ole() noexcept : started_(SUCCEEDED(OleInitialize(nullptr))) {}
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
    Ole(Ole&&) = delete;
    Ole& operator=(Ole&&) = delete;
    ~Ole() {
        if (started_) {
            CoFreeUnusedLibraries();
            OleUninitialize();
        }
    }

private:
    bool started_;
};

}  // namespace telvar::host
