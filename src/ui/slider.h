// A vertical slider for an integer. The upper end is the minimum, as on the system's own: what shall be higher further
// up is negated.
#pragma once

#include <algorithm>

#include "ui/widget.h"

namespace telvar::ui {

class Slider : public Widget {
public:
    using Widget::Widget;

    [[nodiscard]] int minimum() const noexcept { return minimum_; }
    [[nodiscard]] int maximum() const noexcept { return maximum_; }
    // The value is held to the range, which raises nothing.
    void setRange(int minimum, int maximum) {
        minimum_ = minimum;
        maximum_ = std::max(minimum, maximum);
        value_ = std::clamp(value_, minimum_, maximum_);
        shown(Aspect::Items);
    }
    // What an arrow key and a page key, or a click beside the thumb, move it by.
    [[nodiscard]] int smallChange() const noexcept { return smallChange_; }
    [[nodiscard]] int largeChange() const noexcept { return largeChange_; }
    void setChanges(int small, int large) {
        smallChange_ = small;
        largeChange_ = large;
        shown(Aspect::Items);
    }

    [[nodiscard]] int value() const noexcept { return value_; }
    // Held to the range. Raises Change when the value changes.
    void setValue(int value) {
        if (loadValue(value)) {
            Change();
        }
    }
    bool loadValue(int value) { return change(value_, std::clamp(value, minimum_, maximum_), Aspect::Value); }

    // By the peer, also while the user drags: the peer shows the value already.
    void userMoved(int value) {
        if (std::exchange(value_, std::clamp(value, minimum_, maximum_)) != value_) {
            Change();
        }
    }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return {2 * metrics.line(), 6 * metrics.line()};
    }

    base::Event<> Change;

private:
    int minimum_ = 0;
    int maximum_ = 100;
    int smallChange_ = 1;
    int largeChange_ = 10;
    int value_ = 0;
};

}  // namespace telvar::ui
