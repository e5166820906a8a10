// What an embedded control's site and frame need of the window around it.
#pragma once

#include <windows.h>

#include <string>

#include "base/pinned.h"

namespace telvar::host {

class SiteOwner : private base::Pinned {
public:
    // The window that holds the control; it is frame, document and parent in one.
    [[nodiscard]] virtual HWND siteWindow() const = 0;
    // Where the control lies, in pixels of that window.
    [[nodiscard]] virtual RECT sitePlace() const = 0;
    [[nodiscard]] virtual HACCEL accelerators() const = 0;
    // Those that hold while a form of the control's has the keyboard.
    [[nodiscard]] virtual HACCEL formAccelerators() const { return nullptr; }
    virtual void showStatus(const std::wstring& text) = 0;
    // False while the control shows something modal.
    virtual void enableWindow(bool enabled) = 0;

protected:
    ~SiteOwner() = default;
};

}  // namespace telvar::host
