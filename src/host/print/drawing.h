// Owners of the drawing resources that printing uses.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace telvar::host {

struct FreeDrawingObject {
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};
struct FreeDrawingContext {
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, FreeDrawingObject>;
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, FreeDrawingObject>;
using OwnedContext = std::unique_ptr<std::remove_pointer_t<HDC>, FreeDrawingContext>;

// Puts an object into a device context and the previous one back.
class SelectedObject {
public:
    SelectedObject(HDC context, HGDIOBJ object) noexcept
        : context_(context), previous_(SelectObject(context, object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    SelectedObject(SelectedObject&&) = delete;
    SelectedObject& operator=(SelectedObject&&) = delete;
    ~SelectedObject() {
        if (previous_ != nullptr) {
            SelectObject(context_, previous_);
        }
    }

private:
    HDC context_;
    HGDIOBJ previous_;
};

// Puts every setting of a device context back.
class SavedDrawing {
public:
    explicit SavedDrawing(HDC context) noexcept : context_(context), state_(SaveDC(context)) {}
    SavedDrawing(const SavedDrawing&) = delete;
    SavedDrawing& operator=(const SavedDrawing&) = delete;
    SavedDrawing(SavedDrawing&&) = delete;
    SavedDrawing& operator=(SavedDrawing&&) = delete;
    ~SavedDrawing() { RestoreDC(context_, state_); }

private:
    HDC context_;
    int state_;
};

}  // namespace telvar::host
