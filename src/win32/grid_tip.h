// The whole text of a cell that has no room for it, in a tooltip while the mouse rests over the cell. When it comes and
// goes is the system's to decide.
#pragma once

#include <windows.h>

#include <string>

#include "base/pinned.h"
#include "win32/controls_context.h"
#include "win32/fonts.h"

namespace telvar::win32 {

class GridTip : private base::Pinned {
public:
    ~GridTip() { close(); }

    // From now on that text belongs to that rectangle of the grid's window, and to nothing else.
    void offer(HWND grid, const RECT& cell, const std::string& text, const FormFont& font,
               const ControlsContext& controls);
    void withdraw() noexcept;
    // Every message of the mouse that reaches the grid's window.
    void relay(HWND grid, UINT message, WPARAM wParam, LPARAM lParam) const noexcept;
    // Before the grid's window goes, or gets another font.
    void close() noexcept;

private:
    [[nodiscard]] bool open(HWND grid, const FormFont& font, const ControlsContext& controls);

    HWND window_ = nullptr;
    HWND grid_ = nullptr;  // whose cell has the tip now, null for none
};

}  // namespace telvar::win32
