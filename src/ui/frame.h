// A captioned border around widgets that belong together. Hiding or disabling it hides or disables them.
#pragma once

#include <vector>

#include "ui/widget.h"

namespace telvar::ui {

class Frame : public Widget {
public:
    using Widget::Widget;

    // Every widget at most once, before it has a peer; the widgets must live as long as the frame is used.
    void surround(Widget& widget) {
        widget.frame_ = this;
        inside_.push_back(&widget);
    }
    [[nodiscard]] const std::vector<Widget*>& inside() const noexcept { return inside_; }

    // Alone, without what it surrounds.
    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return {metrics.captionWidth(caption()) + 2 * metrics.gap(), metrics.line() + metrics.gap()};
    }

protected:
    void shown(Aspect aspect) const noexcept override {
        Widget::shown(aspect);
        if (aspect == Aspect::Enabled || aspect == Aspect::Visible) {
            for (const Widget* const widget : inside_) {
                widget->shown(aspect);
            }
        }
    }

private:
    std::vector<Widget*> inside_;
};

}  // namespace telvar::ui
