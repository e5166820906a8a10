// One line of text that the user edits.
#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "ui/widget.h"

namespace telvar::ui {

class TextBox : public Widget {
public:
    using Widget::Widget;

    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    // Raises Change when the text changes; the selection collapses to the start.
    void setText(std::string text) {
        if (loadText(std::move(text))) {
            Change();
        }
    }
    bool loadText(std::string text) {
        if (!change(text_, std::move(text), Aspect::Text)) {
            return false;
        }
        setSelection(0, 0);
        return true;
    }

    // In characters (UTF-16 units, as the system's edit control counts).
    [[nodiscard]] int selStart() const noexcept { return selStart_; }
    [[nodiscard]] int selLength() const noexcept { return selLength_; }
    void setSelection(int start, int length) {
        selStart_ = start;
        selLength_ = length;
        shown(Aspect::TextSelection);
    }
    // A length that reaches beyond the text means: to its end.
    void selectAll() { setSelection(0, static_cast<int>(text_.size())); }

    [[nodiscard]] bool readOnly() const noexcept { return readOnly_; }
    void setReadOnly(bool readOnly) { change(readOnly_, readOnly, Aspect::Enabled); }

    // Whether Enter is meant for this box, as a KeyPress, and not for its form or host.
    [[nodiscard]] bool takesEnter() const noexcept { return takesEnter_; }
    void setTakesEnter(bool takesEnter) noexcept { takesEnter_ = takesEnter; }

    // By the peer: the user typed, so the peer shows the text already.
    void userTyped(std::string text) {
        if (std::exchange(text_, std::move(text)) != text_) {
            Change();
        }
    }
    void userSelected(int start, int length) noexcept {
        selStart_ = start;
        selLength_ = length;
    }

    // Room for so many digits.
    void setWidth(int digits) noexcept { width_ = digits; }
    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return {metrics.digits(width_) + metrics.line(), metrics.fieldHeight()};
    }

    base::Event<> Change;

private:
    static constexpr int usualWidth = 8;

    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
    int width_ = usualWidth;
    bool readOnly_ = false;
    bool takesEnter_ = false;
};

}  // namespace telvar::ui
