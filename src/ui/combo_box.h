// A list with one selected entry and, where it can be typed into, a text of its own.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "ui/widget.h"

namespace telvar::ui {

class ComboBox : public Widget {
public:
    enum class Style : std::uint8_t { DropDown, DropDownList };

    explicit ComboBox(std::string name, Style style = Style::DropDownList) : Widget(std::move(name)), style_(style) {}

    [[nodiscard]] Style style() const noexcept { return style_; }

    // Appended; the list keeps the order in which it was filled.
    void addItem(std::string item) {
        items_.push_back(std::move(item));
        shown(Aspect::Items);
    }
    void clear() {
        items_.clear();
        listIndex_ = -1;
        text_.clear();
        shown(Aspect::Items);
    }
    [[nodiscard]] const std::vector<std::string>& items() const noexcept { return items_; }
    [[nodiscard]] int listCount() const noexcept { return static_cast<int>(items_.size()); }

    // -1 for none. Raises Click when it changes.
    [[nodiscard]] int listIndex() const noexcept { return listIndex_; }
    void setListIndex(int index) {
        if (loadListIndex(index)) {
            Click();
        }
    }
    // An index that the list does not have changes nothing.
    bool loadListIndex(int index) {
        if (index < -1 || index >= listCount() || index == listIndex_) {
            return false;
        }
        listIndex_ = index;
        text_ = index >= 0 ? items_[static_cast<std::size_t>(index)] : std::string();
        shown(Aspect::Value);
        return true;
    }

    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    // Selects the first entry with that text; a list that can be typed into also takes any other text.
    void loadText(const std::string& text) {
        for (int at = 0; at < listCount(); ++at) {
            if (items_[static_cast<std::size_t>(at)] == text) {
                loadListIndex(at);
                return;
            }
        }
        if (style_ == Style::DropDown) {
            listIndex_ = -1;
            text_ = text;
            shown(Aspect::Value);
        }
    }

    void userSelected(int index) { setListIndex(index); }
    void userTyped(std::string text) {
        text_ = std::move(text);
        listIndex_ = -1;
        Change();
    }

    // As wide as the longest entry.
    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        int widest = 0;
        for (const std::string& item : items_) {
            widest = std::max(widest, metrics.width(item));
        }
        return {widest + 3 * metrics.line(), metrics.fieldHeight()};
    }

    base::Event<> Click;
    base::Event<> Change;

private:
    Style style_;
    std::vector<std::string> items_;
    std::string text_;
    int listIndex_ = -1;
};

}  // namespace telvar::ui
