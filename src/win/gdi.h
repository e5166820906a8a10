// Owners of drawing resources. DeleteObject, DeleteDC, ReleaseDC and SelectObject are called here and nowhere else.
#pragma once

#include <windows.h>

#include "base/pinned.h"
#include "win/handle.h"

namespace telvar::win {

struct DeletesObject {
    static void giveBack(HGDIOBJ object) noexcept { DeleteObject(object); }
};
template <class Kind>
struct DrawingObject : DeletesObject {
    using Value = Kind;
};
using Font = Owned<DrawingObject<HFONT>>;
using Brush = Owned<DrawingObject<HBRUSH>>;
using Bitmap = Owned<DrawingObject<HBITMAP>>;
using Region = Owned<DrawingObject<HRGN>>;

struct DeletesContext {
    using Value = HDC;
    static void giveBack(HDC context) noexcept { DeleteDC(context); }
};
// One that was created, such as a printer's.
using DeviceContext = Owned<DeletesContext>;

// Puts an object into a device context and the previous one back.
class Selected : private base::Pinned {
public:
    Selected(HDC dc, HGDIOBJ object) noexcept : dc_(dc), previous_(SelectObject(dc, object)) {}
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
class SavedContext : private base::Pinned {
public:
    explicit SavedContext(HDC dc) noexcept : dc_(dc), state_(SaveDC(dc)) {}
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
class MemoryContext : public DeviceContext {
public:
    explicit MemoryContext(HDC like = nullptr) noexcept : DeviceContext(CreateCompatibleDC(like)) {}
};

// The client area of a window, or the screen without one, outside of painting.
class WindowContext : private base::Pinned {
public:
    explicit WindowContext(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
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
class PaintContext : private base::Pinned {
public:
    explicit PaintContext(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
    ~PaintContext() { EndPaint(window_, &paint_); }

    [[nodiscard]] HDC get() const noexcept { return dc_; }
    [[nodiscard]] const RECT& damage() const noexcept { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

}  // namespace telvar::win
