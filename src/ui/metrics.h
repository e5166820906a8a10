// What the size of a form is made of: the font's line and the width of texts, at one number of dots per inch.
#pragma once

#include <string>

#include "ui/desktop.h"
#include "ui/geometry.h"

namespace telvar::ui {

// A caption as the user reads it: "&" marks the access key and is not shown; "&&" is one ampersand.
[[nodiscard]] std::string shownText(const std::string& caption);

class Metrics {
public:
    Metrics(Desktop& desktop, int dpi) : desktop_(desktop), dpi_(dpi), line_(desktop.measure("M", dpi).height) {}

    [[nodiscard]] int dpi() const noexcept { return dpi_; }
    // Height of one line of text, in pixels; every distance on a form is a part of it, so that it follows the font.
    [[nodiscard]] int line() const noexcept { return line_; }
    [[nodiscard]] int width(const std::string& text) const { return desktop_.measure(text, dpi_).width; }
    // Room for so many digits.
    [[nodiscard]] int digits(int count) const {
        return width(std::string(static_cast<std::size_t>(count > 0 ? count : 0), '0'));
    }
    [[nodiscard]] int captionWidth(const std::string& caption) const { return width(shownText(caption)); }

    // Between widgets that belong together, between groups, and around everything.
    [[nodiscard]] int smallGap() const noexcept { return line_ * 3 / 8; }
    [[nodiscard]] int gap() const noexcept { return line_ * 3 / 4; }
    [[nodiscard]] int margin() const noexcept { return line_; }
    // Heights of the common kinds of widget. The system draws the text of a field three pixels below the field's upper
    // edge, at any height and resolution: so high a field has it in its middle, and beside a label on the same line.
    [[nodiscard]] int fieldHeight() const noexcept { return line_ + 7; }
    [[nodiscard]] int buttonHeight() const noexcept { return 2 * line_ - line_ / 4; }
    [[nodiscard]] int optionHeight() const noexcept { return line_ + line_ / 4; }
    // The mark before the caption of a check box or an option, with its distance.
    [[nodiscard]] int markWidth() const noexcept { return line_ + line_ / 2; }

private:
    Desktop& desktop_;
    int dpi_;
    int line_;
};

}  // namespace telvar::ui
