// Owners of drawing resources. DeleteObject, DeleteDC, ReleaseDC and SelectObject are called here and nowhere else.
#pragma once

#include <windows.h>

#include <utility>

namespace telvar::win32 {

template <class Handle>
class GdiObject {
public:
    GdiObject() noexcept = default;
    explicit GdiObject(Handle handle) noexcept : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    ~GdiObject() {
        if (handle_ != nullptr) {
            DeleteObject(handle_);
        }
    }

    [[nodiscard]] Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

using Font = GdiObject<HFONT>;
using Brush = GdiObject<HBRUSH>;
using Bitmap = GdiObject<HBITMAP>;
using Region = GdiObject<HRGN>;

// Puts an object into a device context and the previous one back.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) noexcept : dc_(dc), previous_(SelectObject(dc, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    Selected(Selected&&) = delete;
    Selected& operator=(Selected&&) = delete;
    ~Selected() {
        if (previous_ != nullptr) {
            SelectObject(dc_, previous_);
        }
    }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// Puts every setting of a device context back: colours, clipping, mapping, selected objects.
class SavedContext {
public:
    explicit SavedContext(HDC dc) noexcept : dc_(dc), state_(SaveDC(dc)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    SavedContext(SavedContext&&) = delete;
    SavedContext& operator=(SavedContext&&) = delete;
    ~SavedContext() {
        if (state_ != 0) {
            RestoreDC(dc_, state_);
        }
    }

private:
    HDC dc_;
    int state_;
};

// A device context in memory, compatible with the given one or, without one, with the screen.
class MemoryContext {
public:
    explicit MemoryContext(HDC like = nullptr) noexcept : dc_(CreateCompatibleDC(like)) {}
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    MemoryContext(MemoryContext&&) = delete;
    MemoryContext& operator=(MemoryContext&&) = delete;
    ~MemoryContext() {
        if (dc_ != nullptr) {
            DeleteDC(dc_);
        }
    }

    [[nodiscard]] HDC get() const noexcept { return dc_; }

private:
    HDC dc_;
};

// The client area of a window, or the screen without one, outside of painting.
class WindowContext {
public:
    explicit WindowContext(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    WindowContext(WindowContext&&) = delete;
    WindowContext& operator=(WindowContext&&) = delete;
    ~WindowContext() {
        if (dc_ != nullptr) {
            ReleaseDC(window_, dc_);
        }
    }

    [[nodiscard]] HDC get() const noexcept { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

// BeginPaint and EndPaint.
class PaintContext {
public:
    explicit PaintContext(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
    PaintContext(const PaintContext&) = delete;
    PaintContext& operator=(const PaintContext&) = delete;
    PaintContext(PaintContext&&) = delete;
    PaintContext& operator=(PaintContext&&) = delete;
    ~PaintContext() { EndPaint(window_, &paint_); }

    [[nodiscard]] HDC get() const noexcept { return dc_; }
    [[nodiscard]] const RECT& damage() const noexcept { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

// A menu of its own, not attached to a window.
class PopupMenu {
public:
    PopupMenu() noexcept : menu_(CreatePopupMenu()) {}
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;
    PopupMenu(PopupMenu&&) = delete;
    PopupMenu& operator=(PopupMenu&&) = delete;
    ~PopupMenu() {
        if (menu_ != nullptr) {
            DestroyMenu(menu_);
        }
    }

    [[nodiscard]] HMENU get() const noexcept { return menu_; }

private:
    HMENU menu_;
};

}  // namespace telvar::win32
