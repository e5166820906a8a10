// The box that tells which page is being printed and can be cancelled. It stands open while its owner does not answer,
// and gets its messages only when it is asked whether to go on.
#pragma once

#include <windows.h>

#include <string>

#include "base/pinned.h"

namespace telvar::host {

class CancelBox : private base::Pinned {
public:
    explicit CancelBox(HWND owner);
    ~CancelBox();

    void show(const std::wstring& text);
    // Handles what the user did; false from the moment on that he cancelled, or that the program is to end.
    [[nodiscard]] bool goesOn();

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;

    HWND owner_;
    bool ownerEnabled_;
    bool cancelled_ = false;
    HWND window_;  // made last: the dialog's procedure uses the rest
};

}  // namespace telvar::host
