// A captioned border around widgets that belong together. Hiding or disabling it hides or disables them.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
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

    // Every caption that it may get, so that it keeps its width with each of them.
    void reserveFor(std::vector<std::string> captions) { captions_ = std::move(captions); }
    // Alone, without what it surrounds.
    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        int widest = metrics.captionWidth(caption());
        for (const std::string& other : captions_) {
            widest = std::max(widest, metrics.captionWidth(other));
        }
        return {widest + 2 * metrics.gap(), metrics.line() + metrics.gap()};
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
    std::vector<std::string> captions_;
};

}  // namespace telvar::ui
