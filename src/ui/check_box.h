// A check box: 0 clear, 1 checked, 2 grey.
#pragma once

#include "ui/widget.h"

namespace telvar::ui {

class CheckBox : public Widget {
public:
    using Widget::Widget;

    [[nodiscard]] int value() const noexcept { return value_; }
    // Shows it and raises Click when it changes, like the user's click.
    void setValue(int value) {
        if (loadValue(value)) {
            Click();
        }
    }
    // Shows it; nobody clicked.
    bool loadValue(int value) { return change(value_, value, Aspect::Value); }
    [[nodiscard]] bool checked() const noexcept { return value_ == 1; }

    // The user's click: clear becomes checked, checked and grey become clear.
    void userClick() {
        if (isUsable() && isShown()) {
            setValue(value_ == 0 ? 1 : 0);
        }
    }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return {metrics.markWidth() + metrics.captionWidth(caption()), metrics.optionHeight()};
    }

    base::Event<> Click;

private:
    int value_ = 0;
};

}  // namespace telvar::ui
