// A push button.
#pragma once

#include <algorithm>

#include "ui/widget.h"

namespace telvar::ui {

class Button : public Widget {
public:
    using Widget::Widget;

    // The user's press: a disabled or hidden button cannot be pressed. `focusMoved` tells the widgets about the focus
    // that the press moved, and answers whether the button is still there.
    template <class FocusMoved>
    void userPress(FocusMoved&& focusMoved) {
        Pressing();
        if (focusMoved() && isUsable() && isShown()) {
            Click();
        }
    }
    void userPress() {
        userPress([] { return true; });
    }

    // Pressed by Enter, or by Esc, wherever the focus is on its form.
    [[nodiscard]] bool isDefault() const noexcept { return isDefault_; }
    void setDefault(bool isDefault) { change(isDefault_, isDefault, Aspect::Value); }
    [[nodiscard]] bool isCancel() const noexcept { return isCancel_; }
    void setCancel(bool isCancel) noexcept { isCancel_ = isCancel; }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        const int narrowest = 6 * metrics.line();
        return {std::max(metrics.captionWidth(caption()) + 2 * metrics.gap(), narrowest), metrics.buttonHeight()};
    }

    // A press begins; nobody was told yet that the focus moved. What is told from here to Click belongs to the press.
    base::Event<> Pressing;
    base::Event<> Click;

private:
    bool isDefault_ = false;
    bool isCancel_ = false;
};

}  // namespace telvar::ui
