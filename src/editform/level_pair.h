// A level's slider and text box, which follow one another. The slider holds the negated level, so that up is higher on
// a control whose upper end is its minimum; the box shows it without the sign.
#pragma once

#include "base/event.h"
#include "base/number_text.h"
#include "ui/slider.h"
#include "ui/text_box.h"

namespace telvar::editform {

class LevelPair {
public:
    // Both must outlive the pair.
    LevelPair(ui::Slider& slider, ui::TextBox& box, base::NumberFormat format);

    // Shows a stored level, also one that is outside 0 to 255; nobody moved anything.
    void load(double level);
    void setVisible(bool visible);
    // In the slider's sense: up is negative. Held to its range.
    void moveBy(int amount) { slider_.setValue(slider_.value() + amount); }
    [[nodiscard]] const ui::TextBox& box() const noexcept { return box_; }

    // By how much the slider moved.
    base::Event<int> Moved;

private:
    void slider_Change();
    void box_LostFocus();
    void showSlidersLevel();

    ui::Slider& slider_;
    ui::TextBox& box_;
    base::NumberFormat format_;
    int before_ = 0;
};

}  // namespace telvar::editform
