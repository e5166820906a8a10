// OLE on this thread for as long as this lives.
#pragma once

#include <windows.h>

#include <ole2.h>

#include "base/pinned.h"

namespace telvar::host {

class Ole : private base::Pinned {
public:
    Ole() noexcept : started_(SUCCEEDED(OleInitialize(nullptr))) {}
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
