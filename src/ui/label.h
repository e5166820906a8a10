// Text that the user reads; its access key moves the focus to the widget that follows it.
#pragma once

#include <string>
#include <utility>

#include "ui/widget.h"

namespace telvar::ui {

class Label : public Widget {
public:
    using Widget::Widget;

    // In digits of the font; a longer text is broken between words. 0 means: one line, however long.
    [[nodiscard]] int wrapWidth() const noexcept { return wrapWidth_; }
    void setWrapWidth(int digits) noexcept { wrapWidth_ = digits; }

    // Takes room for so many lines whatever its text is, which is broken between words where the room that it is given
    // ends: a text that comes and goes moves nothing. 0 means: as much room as the text needs.
    void setLines(int lines) noexcept { lines_ = lines; }
    [[nodiscard]] bool wraps() const noexcept { return wrapWidth_ > 0 || lines_ > 0; }

    // Shows the text and has screen readers speak it, wherever the focus is; also one that stands there already.
    void announce(std::string text) {
        setCaption(std::move(text));
        shown(Aspect::Announcement);
    }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override;

private:
    int wrapWidth_ = 0;
    int lines_ = 0;
};

}  // namespace telvar::ui
