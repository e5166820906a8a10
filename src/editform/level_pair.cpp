#include "editform/level_pair.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/rounding.h"

namespace telvar::editform {

LevelPair::LevelPair(ui::Slider& slider, ui::TextBox& box, base::NumberFormat format)
    : slider_(slider), box_(box), format_(format), before_(slider.value()) {
    ui::on(slider_.Change, this, &LevelPair::slider_Change);
    ui::on(box_.LostFocus, this, &LevelPair::box_LostFocus);
}

void LevelPair::load(double level) {
    box_.loadText(base::numberText(level, format_));
    const double position = std::isnan(level) ? 0.0 : base::roundHalfEven(-level);
    slider_.loadValue(static_cast<int>(
        std::clamp(position, static_cast<double>(slider_.minimum()), static_cast<double>(slider_.maximum()))));
    before_ = slider_.value();
}

void LevelPair::setVisible(bool visible) {
    slider_.setVisible(visible);
    box_.setVisible(visible);
}

void LevelPair::slider_Change() {
    showSlidersLevel();
    const int amount = slider_.value() - std::exchange(before_, slider_.value());
    Moved(amount);
}

// A number may have something behind it, which goes; of the texts that begin with 0 only "0" itself is a level.
void LevelPair::box_LostFocus() {
    const double level = base::roundHalfEven(base::readLeadingNumber(box_.text(), format_));
    if (level >= 1.0 && level <= -slider_.minimum()) {
        slider_.setValue(-static_cast<int>(level));
    } else if (box_.text() == "0") {
        slider_.setValue(0);
    }
    showSlidersLevel();
}

void LevelPair::showSlidersLevel() { box_.setText(std::to_string(std::abs(slider_.value()))); }

}  // namespace telvar::editform
