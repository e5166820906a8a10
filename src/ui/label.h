// Text that the user reads; its access key moves the focus to the widget that follows it.
#pragma once

#include "ui/widget.h"

namespace telvar::ui {

class Label : public Widget {
public:
    using Widget::Widget;

    // In digits of the font; a longer text is broken between words. 0 means: one line, however long.
    [[nodiscard]] int wrapWidth() const noexcept { return wrapWidth_; }
    void setWrapWidth(int digits) noexcept { wrapWidth_ = digits; }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override;

private:
    int wrapWidth_ = 0;
};

}  // namespace telvar::ui
