// One choice of a group. Selecting one deselects the others of its group, which raise nothing.
#pragma once

#include <vector>

#include "ui/widget.h"

namespace telvar::ui {

class OptionButton;

// Knows the buttons of which one at most is selected. Must live as long as its buttons are used.
class OptionGroup {
public:
    void add(OptionButton& button);
    [[nodiscard]] const std::vector<OptionButton*>& buttons() const noexcept { return buttons_; }
    // Position of the selected button, -1 when none is.
    [[nodiscard]] int selected() const noexcept;
    // Where Tab enters the group: the selected button, or the first that can be used where that one cannot or there is
    // none. Null where none can be used.
    [[nodiscard]] const OptionButton* tabStop() const noexcept;

private:
    std::vector<OptionButton*> buttons_;
};

class OptionButton : public Widget {
public:
    using Widget::Widget;

    [[nodiscard]] bool value() const noexcept { return value_; }
    // Selecting raises Click when it changes; deselecting raises nothing.
    void setValue(bool value) {
        if (loadValue(value) && value) {
            Click();
        }
    }
    bool loadValue(bool value) {
        if (value && group_ != nullptr) {
            for (OptionButton* other : group_->buttons()) {
                if (other != this) {
                    other->change(other->value_, false, Aspect::Value);
                }
            }
        }
        return change(value_, value, Aspect::Value);
    }

    void userClick() {
        if (isUsable() && isShown()) {
            value_ ? ChosenAgain() : setValue(true);
        }
    }

    [[nodiscard]] OptionGroup* group() const noexcept { return group_; }

    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return {metrics.markWidth() + metrics.captionWidth(caption()), metrics.optionHeight()};
    }

    base::Event<> Click;
    // The user clicked the one that is selected already.
    base::Event<> ChosenAgain;

private:
    friend class OptionGroup;
    OptionGroup* group_ = nullptr;
    bool value_ = false;
};

inline void OptionGroup::add(OptionButton& button) {
    buttons_.push_back(&button);
    button.group_ = this;
}

inline int OptionGroup::selected() const noexcept {
    for (std::size_t at = 0; at < buttons_.size(); ++at) {
        if (buttons_[at]->value()) {
            return static_cast<int>(at);
        }
    }
    return -1;
}

inline const OptionButton* OptionGroup::tabStop() const noexcept {
    const OptionButton* first = nullptr;
    for (const OptionButton* const button : buttons_) {
        const bool enters = button->isUsable() && button->isShown();
        if (enters && button->value()) {
            return button;
        }
        if (enters && first == nullptr) {
            first = button;
        }
    }
    return first;
}

}  // namespace telvar::ui
