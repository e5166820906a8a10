#include "form_pictures.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "png_file.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "win/gdi.h"
#include "win/text.h"
#include "win32/window_kinds.h"
#include "world.h"

namespace telvar::win32 {

namespace {

constexpr UINT dpiChanged = 0x02E0;

// Pixels that a text takes in the font that the window has, broken at a width or, for 0, in one line.
ui::Size extentOf(HWND window, const std::string& text, int width, UINT format) {
    const win::WindowContext dc(window);
    const win::Selected font(dc.get(), reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT extent{0, 0, width, 0};
    const std::wstring wide = win::wide(text);
    DrawTextW(dc.get(), wide.c_str(), static_cast<int>(wide.size()), &extent,
              DT_CALCRECT | format | (width > 0 ? DT_WORDBREAK : DT_SINGLELINE));
    return {static_cast<int>(extent.right), static_cast<int>(extent.bottom)};
}

// Room inside a control that its text cannot have: borders, the mark of a check box, the arrow of a list.
int taken(const ui::Widget& widget, int line) {
    if (dynamic_cast<const ui::CheckBox*>(&widget) != nullptr ||
        dynamic_cast<const ui::OptionButton*>(&widget) != nullptr) {
        return line;
    }
    if (dynamic_cast<const ui::Button*>(&widget) != nullptr || dynamic_cast<const ui::Frame*>(&widget) != nullptr) {
        return line / 2;
    }
    return 0;
}

void expectRoomForTexts(HWND form, const ui::Widget& widget) {
    const HWND window = childThatShows(form, widget);
    ASSERT_NE(window, nullptr) << widget.name();
    const ui::Rect& bounds = widget.bounds();
    const int line = extentOf(window, "M", 0, 0).height;
    if (const auto* const combo = dynamic_cast<const ui::ComboBox*>(&widget)) {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetComboBoxInfo(window, &info));
        for (const std::string& item : combo->items()) {
            EXPECT_LE(extentOf(window, item, 0, DT_NOPREFIX).width, info.rcItem.right - info.rcItem.left)
                << widget.name() << ": " << item;
        }
        EXPECT_LE(line, info.rcItem.bottom - info.rcItem.top) << widget.name();
        return;
    }
    if (dynamic_cast<const ui::TextBox*>(&widget) != nullptr) {
        RECT client{};
        GetClientRect(window, &client);
        EXPECT_LE(line, client.bottom) << widget.name();
        return;
    }
    if (dynamic_cast<const ui::Slider*>(&widget) != nullptr) {
        return;  // its caption is for screen readers only
    }
    const auto* const label = dynamic_cast<const ui::Label*>(&widget);
    const bool wraps = label != nullptr && label->wraps();
    const ui::Size extent = extentOf(window, widget.caption(), wraps ? bounds.width() : 0, 0);
    EXPECT_LE(extent.width + taken(widget, line), bounds.width()) << widget.name() << ": " << widget.caption();
    EXPECT_LE(extent.height, bounds.height()) << widget.name() << ": " << widget.caption();
}

bool surrounds(const ui::Widget& outer, const ui::Widget& inner) {
    for (const ui::Widget* frame = inner.frame(); frame != nullptr; frame = frame->frame()) {
        if (frame == &outer) {
            return true;
        }
    }
    return false;
}

void expectApart(const ui::Widget& one, const ui::Widget& other) {
    const bool nested = surrounds(one, other) || surrounds(other, one);
    EXPECT_TRUE(nested || one.bounds().intersected(other.bounds()).empty())
        << one.name() << " lies over " << other.name();
}

void expectInside(const ui::Widget& widget, const ui::Rect& room, const std::string& of) {
    EXPECT_EQ(widget.bounds().intersected(room), widget.bounds()) << widget.name() << " leaves " << of;
}

void expectInOrder(HWND window, const ui::Form& form) {
    std::vector<const ui::Widget*> shown;
    std::ranges::copy_if(form.children(), std::back_inserter(shown),
                         [](const ui::Widget* child) { return child->isShown(); });
    for (std::size_t at = 0; at < shown.size(); ++at) {
        const ui::Widget& widget = *shown[at];
        expectRoomForTexts(window, widget);
        expectInside(widget, {0, 0, form.size().width, form.size().height}, form.name());
        if (widget.frame() != nullptr) {
            expectInside(widget, widget.frame()->bounds(), widget.frame()->name());
        }
        for (std::size_t other = at + 1; other < shown.size(); ++other) {
            expectApart(widget, *shown[other]);
        }
    }
}

}  // namespace

void expectReadable(WindowsDesktop& desktop, ui::Form& form, const std::string& name) {
    desktop.showModeless(form);
    const HWND window = FindWindowW(win::classNameOf(formKind).c_str(), nullptr);
    ASSERT_NE(window, nullptr);
    for (const int dpi : {96, 144, 192}) {
        SCOPED_TRACE(std::to_string(dpi) + " dpi");
        const RECT suggested{0, 0, 600, 400};
        SendMessageW(window, dpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)), reinterpret_cast<LPARAM>(&suggested));
        EXPECT_EQ(form.dpi(), dpi);
        EXPECT_EQ(form.size(), form.wantedSize(ui::Metrics(desktop, dpi)));
        UpdateWindow(window);
        desktop.doEvents();
        savePicture(window, name + "-" + std::to_string(dpi));
        expectInOrder(window, form);
    }
    desktop.hide(form);
}

}  // namespace telvar::win32
