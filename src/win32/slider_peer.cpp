// The peer of a vertical slider, which counts downwards from its upper end as the control does.
#include "ui/slider.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "win32/control_peer.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

class SliderPeer final : public ControlPeer {
public:
    SliderPeer(ui::Slider& slider, PeerHost& host) noexcept : ControlPeer(slider, host) {}

    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        return event.code >= ui::key::pageUp && event.code <= ui::key::down && (event.shift & ui::shift::alt) == 0;
    }

protected:
    [[nodiscard]] Control control() const noexcept override {
        INITCOMMONCONTROLSEX needed{.dwSize = sizeof needed, .dwICC = ICC_BAR_CLASSES};
        InitCommonControlsEx(&needed);
        return {.className = TRACKBAR_CLASSW,
                .style = WS_TABSTOP | TBS_VERT | TBS_NOTICKS | TBS_BOTH | TBS_FIXEDLENGTH};
    }

    void showAspect(ui::Aspect changed) override {
        using ui::Aspect;
        const bool everything = changed == Aspect::Everything;
        if (everything || changed == Aspect::Bounds) {
            // As wide as the slider, less its border: by itself the thumb stays small at a high resolution.
            constexpr int border = 4;
            send(TBM_SETTHUMBLENGTH, static_cast<WPARAM>(std::max(slider()->bounds().width() - border, 1)), 0);
        }
        if (everything || changed == Aspect::Items) {
            send(TBM_SETRANGEMIN, FALSE, slider()->minimum());
            send(TBM_SETRANGEMAX, FALSE, slider()->maximum());
            // The thumb moves with a new position only, not with a new range: away first, so that the next one is new.
            send(TBM_SETPOS, FALSE,
                 slider()->value() == slider()->minimum() ? slider()->maximum() : slider()->minimum());
            send(TBM_SETLINESIZE, 0, slider()->smallChange());
            send(TBM_SETPAGESIZE, 0, slider()->largeChange());
        }
        if (everything || changed == Aspect::Items || changed == Aspect::Value) {
            send(TBM_SETPOS, TRUE, slider()->value());
        }
    }

    void userDid(unsigned code) override {
        static_cast<void>(code);
        if (settled()) {
            slider()->userMoved(static_cast<int>(send(TBM_GETPOS, 0, 0)));
        }
    }

private:
    [[nodiscard]] ui::Slider* slider() const noexcept { return static_cast<ui::Slider*>(widget()); }
    LRESULT send(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
        return SendMessageW(window(), message, wParam, lParam);
    }
};

}  // namespace

std::shared_ptr<ControlPeer> makeSliderPeer(ui::Slider& slider, PeerHost& host) {
    return std::make_shared<SliderPeer>(slider, host);
}

}  // namespace telvar::win32
