// How sliders show their value, and the mouse on them.
#include "form_world.h"

namespace telvar::win32 {
namespace {

constexpr UINT dpiChanged = 0x02E0;

// The place of the thumb in a slider.
RECT thumbOf(HWND slider) {
    constexpr UINT getThumb = WM_USER + 25;
    RECT thumb{};
    SendMessageW(slider, getThumb, 0, reinterpret_cast<LPARAM>(&thumb));
    return thumb;
}

class FormSliders : public FormWorld {
protected:
    ui::Form& form = widgets.form;
};

TEST_F(FormSliders, ASliderShowsItsMinimumAtTheTop) {
    const auto thumbAt = [this](int value) {
        widgets.level.loadValue(value);
        openModeless();
        const HWND slider = windowOf(widgets.level);
        RECT client{};
        GetClientRect(slider, &client);
        const RECT thumb = thumbOf(slider);
        desktop.hide(form);
        return static_cast<double>(thumb.top + thumb.bottom) / (2.0 * static_cast<double>(client.bottom));
    };
    EXPECT_LT(thumbAt(-255), 0.2);
    EXPECT_NEAR(thumbAt(-128), 0.5, 0.05);
    EXPECT_GT(thumbAt(0), 0.8);
}

TEST_F(FormSliders, TheThumbOfASliderStandsInItsMiddleAtAnyResolution) {
    openModeless();
    for (const int dpi : {96, 144, 192}) {
        const RECT suggested{10, 10, 700, 700};
        SendMessageW(window(), dpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&suggested));
        const RECT thumb = thumbOf(windowOf(widgets.level));
        EXPECT_NEAR(thumb.left + thumb.right, widgets.level.bounds().width(), 4) << dpi;
        EXPECT_GT(thumb.right - thumb.left, widgets.level.bounds().width() / 2) << dpi;
    }
}

TEST_F(FormSliders, ASliderIsMovedByTheMouse) {
    openModeless();
    const HWND slider = windowOf(widgets.level);
    const RECT thumb = thumbOf(slider);
    const int x = (thumb.left + thumb.right) / 2;
    const int y = (thumb.top + thumb.bottom) / 2;
    SendMessageW(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, 0));
    EXPECT_EQ(widgets.level.value(), -255);
    SendMessageW(slider, WM_LBUTTONUP, 0, MAKELPARAM(x, 0));
    pump();
    EXPECT_EQ(focused(), "sldLevel");
}

}  // namespace
}  // namespace telvar::win32
