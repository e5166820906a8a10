// A window of this module's own: ties an object to a handle, holds the object while one of its messages is being
// handled (so it may be destroyed from inside any callback), and lets no exception into the system.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "base/pinned.h"
#include "win/module.h"
#include "win/window_class.h"

namespace telvar::win {

// Must be owned by a shared_ptr. The handle ends with the object, the object may outlive the handle.
class Window : public std::enable_shared_from_this<Window>, private base::Pinned {
public:
    virtual ~Window();

    // Null before creation and after the window is gone, whoever destroyed it.
    [[nodiscard]] HWND handle() const noexcept { return handle_; }
    void destroy() noexcept;
    // The object behind a handle; null for a window that is not one of this module's.
    [[nodiscard]] static Window* of(HWND handle) noexcept;

protected:
    // Throws base::Failure when the system refuses. The class is registered when it is not yet.
    void create(const WindowKind& kind, DWORD style, DWORD extendedStyle, const RECT& at, HWND parent);

    // Handled messages; the rest goes to defaultHandle.
    virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT defaultMessage(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
        return DefWindowProcW(handle_, message, wParam, lParam);
    }

private:
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT dispatch(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    HWND handle_ = nullptr;
    std::optional<Use> use_;
};

}  // namespace telvar::win
