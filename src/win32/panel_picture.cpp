#include "win32/panel_picture.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include "base/failure.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/grid.h"
#include "ui/grid_layout.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"
#include "win/gdi.h"
#include "win/text.h"
#include "win32/convert.h"
#include "win32/fonts.h"
#include "win32/grid_painter.h"
#include "win32/text_colours.h"

namespace telvar::win32 {

namespace {

// Draws one widget after the other into the same device context, whose font is selected already.
class WidgetPainter {
public:
    WidgetPainter(HDC dc, std::shared_ptr<const FormFont> font) noexcept : dc_(dc), font_(std::move(font)) {}

    void draw(const ui::Widget& widget) const {
        const RECT at = rectOf(widget.bounds());
        useTextColour(widget, faceGround);
        if (const auto* const grid = dynamic_cast<const ui::Grid*>(&widget)) {
            drawGrid(*grid, at);
        } else if (const auto* const box = dynamic_cast<const ui::TextBox*>(&widget)) {
            drawField(widget, box->text(), at, box->isUsable() && !box->readOnly() ? fieldGround : faceGround);
        } else if (const auto* const combo = dynamic_cast<const ui::ComboBox*>(&widget)) {
            drawCombo(*combo, at);
        } else if (dynamic_cast<const ui::Button*>(&widget) != nullptr) {
            RECT face = at;
            DrawFrameControl(dc_, &face, DFC_BUTTON, DFCS_BUTTONPUSH | inactive(widget));
            drawCaption(widget, at, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        } else if (const auto* const check = dynamic_cast<const ui::CheckBox*>(&widget)) {
            drawMarked(widget, at, DFCS_BUTTONCHECK | (check->value() != 0 ? DFCS_CHECKED : 0U));
        } else if (const auto* const option = dynamic_cast<const ui::OptionButton*>(&widget)) {
            drawMarked(widget, at, DFCS_BUTTONRADIO | (option->value() ? DFCS_CHECKED : 0U));
        } else if (dynamic_cast<const ui::Frame*>(&widget) != nullptr) {
            drawFrame(widget, at);
        } else {
            drawCaption(widget, at, DT_LEFT | DT_WORDBREAK);
        }
    }

private:
    [[nodiscard]] static UINT inactive(const ui::Widget& widget) noexcept {
        return widget.isUsable() ? 0U : DFCS_INACTIVE;
    }

    void useTextColour(const ui::Widget& widget, Ground ground) const noexcept {
        SetTextColor(dc_, widget.isUsable() ? textColourOn(ground, widget.foreColor()) : GetSysColor(COLOR_GRAYTEXT));
    }

    void drawCaption(const ui::Widget& widget, RECT at, UINT format) const {
        const std::wstring text = win::wide(widget.caption());
        DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &at, format);
    }

    void drawField(const ui::Widget& widget, const std::string& text, RECT at, Ground ground) const {
        DrawEdge(dc_, &at, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        FillRect(dc_, &at, GetSysColorBrush(ground.back));
        useTextColour(widget, ground);
        InflateRect(&at, -2, 0);
        const std::wstring wide = win::wide(text);
        DrawTextW(dc_, wide.c_str(), static_cast<int>(wide.size()), &at,
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }

    void drawCombo(const ui::ComboBox& combo, const RECT& at) const {
        drawField(combo, combo.text(), at, combo.isUsable() ? fieldGround : faceGround);
        RECT arrow = at;
        InflateRect(&arrow, -2, -2);
        arrow.left = std::max(arrow.left, arrow.right - MulDiv(17, font_->dpi(), ui::standardDpi));
        DrawFrameControl(dc_, &arrow, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | inactive(combo));
    }

    void drawMarked(const ui::Widget& widget, const RECT& at, UINT state) const {
        const int size = MulDiv(13, font_->dpi(), ui::standardDpi);
        RECT mark = at;
        mark.top += (at.bottom - at.top - size) / 2;
        mark.right = mark.left + size;
        mark.bottom = mark.top + size;
        DrawFrameControl(dc_, &mark, DFC_BUTTON, state | inactive(widget));
        RECT caption = at;
        caption.left = mark.right + MulDiv(4, font_->dpi(), ui::standardDpi);
        drawCaption(widget, caption, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    }

    void drawFrame(const ui::Widget& widget, const RECT& at) const {
        RECT border = at;
        border.top += font_->height() / 2;
        DrawEdge(dc_, &border, EDGE_ETCHED, BF_RECT);
        RECT caption = at;
        caption.left += MulDiv(8, font_->dpi(), ui::standardDpi);
        SetBkMode(dc_, OPAQUE);
        SetBkColor(dc_, GetSysColor(COLOR_BTNFACE));
        drawCaption(widget, caption, DT_LEFT | DT_TOP | DT_SINGLELINE);
        SetBkMode(dc_, TRANSPARENT);
    }

    void drawGrid(const ui::Grid& grid, RECT at) const {
        DrawEdge(dc_, &at, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        if (IsRectEmpty(&at) != FALSE) {
            return;
        }
        const win::SavedContext saved(dc_);
        SetViewportOrgEx(dc_, static_cast<int>(at.left), static_cast<int>(at.top), nullptr);
        const ui::Size size = {static_cast<int>(at.right - at.left), static_cast<int>(at.bottom - at.top)};
        const GridPainter painter(font_);
        painter.paint(dc_, grid, ui::GridLayout(grid, size, painter.metrics()), {0, 0, size.width, size.height}, false);
    }

    HDC dc_;
    std::shared_ptr<const FormFont> font_;
};

ui::Size deviceSize(HDC dc, const RECT& at) noexcept {
    std::array<POINT, 2> corners = {POINT{at.left, at.top}, POINT{at.right, at.bottom}};
    LPtoDP(dc, corners.data(), static_cast<int>(corners.size()));
    return {std::abs(static_cast<int>(corners[1].x - corners[0].x)),
            std::abs(static_cast<int>(corners[1].y - corners[0].y))};
}

}  // namespace

void drawPanel(ui::Panel& panel, HDC dc, const RECT& at, int dpi) {
    if (!panel.attached()) {
        panel.setSize(deviceSize(dc, at), dpi);
    }
    const ui::Size size = panel.size();
    if (size.width <= 0 || size.height <= 0) {
        return;
    }
    const win::WindowContext screen(nullptr);
    const win::Bitmap picture(CreateCompatibleBitmap(screen.get(), size.width, size.height));
    if (!picture) {
        throw base::Failure("There is no memory for the picture");
    }
    const win::MemoryContext memory(screen.get());
    const win::Selected bitmap(memory.get(), picture.get());
    const auto font = std::make_shared<const FormFont>(panel.dpi());
    const win::Selected selectedFont(memory.get(), font->get());
    const RECT all{0, 0, size.width, size.height};
    FillRect(memory.get(), &all, GetSysColorBrush(COLOR_BTNFACE));
    SetBkMode(memory.get(), TRANSPARENT);
    const WidgetPainter painter(memory.get(), font);
    for (const ui::Widget* const child : panel.children()) {
        if (child->isShown()) {
            painter.draw(*child);
        }
    }
    StretchBlt(dc, static_cast<int>(at.left), static_cast<int>(at.top), static_cast<int>(at.right - at.left),
               static_cast<int>(at.bottom - at.top), memory.get(), 0, 0, size.width, size.height, SRCCOPY);
}

}  // namespace telvar::win32
