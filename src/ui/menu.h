// A pop-up menu and its items. A desktop shows it; the chosen item raises Click.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/event.h"

namespace telvar::ui {

class MenuItem {
public:
    MenuItem(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {}

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    // An item that is a line between groups has the caption "-".
    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled) noexcept { enabled_ = enabled; }

    void userChoose() {
        if (enabled_) {
            Click();
        }
    }

    base::Event<> Click;

private:
    std::string name_;
    std::string caption_;
    bool enabled_ = true;
};

class Menu {
public:
    explicit Menu(std::string name) : name_(std::move(name)) {}

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    void add(MenuItem& item) { items_.push_back(&item); }
    [[nodiscard]] const std::vector<MenuItem*>& items() const noexcept { return items_; }

private:
    std::string name_;
    std::vector<MenuItem*> items_;
};

}  // namespace telvar::ui
