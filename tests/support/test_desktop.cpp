#include "support/test_desktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <utility>

#include "base/failure.h"

namespace telvar::tests {

namespace {

[[nodiscard]] ui::Answer refusal(ui::Buttons buttons) {
    switch (buttons) {
    case ui::Buttons::OkCancel:
        return ui::Answer::Cancel;
    case ui::Buttons::YesNo:
        return ui::Answer::No;
    case ui::Buttons::Ok:
        break;
    }
    return ui::Answer::Ok;
}

[[noreturn]] void clipboardRefuses() { throw base::Failure("The clipboard cannot be opened"); }

}  // namespace

ui::Answer TestDesktop::show(const ui::MessageBox& box) {
    boxes_.push_back(box);
    if (duringBox) {
        duringBox(box);
    }
    if (box.buttons == ui::Buttons::Ok) {
        return ui::Answer::Ok;
    }
    if (answers_.empty()) {
        ADD_FAILURE() << "A question without a scripted answer: " << box.text;
        return refusal(box.buttons);
    }
    const auto answer = answers_.front();
    answers_.pop_front();
    return answer;
}

void TestDesktop::open(ui::Form& form, bool modal) {
    if (noWindows) {
        throw base::Failure("No window can be made");
    }
    if (!shown_.insert(&form).second) {
        return;
    }
    const ui::Size size = form.wantedSize(ui::Metrics(*this, ui::standardDpi));
    form.setSize(size, ui::standardDpi);
    const bool middle = modal || form.bounds().empty();
    const ui::Point at = middle ? ui::Point{(screen.left + screen.right - size.width) / 2,
                                            (screen.top + screen.bottom - size.height) / 2}
                                : ui::Point{form.bounds().left, form.bounds().top};
    form.setBounds({at.x, at.y, at.x + size.width, at.y + size.height});
    form.Load();
}

void TestDesktop::close(ui::Form& form) {
    form.CloseBox();
    hide(form);
}

void TestDesktop::hide(ui::Form& form) {
    if (shown_.erase(&form) != 0 && form.focusAfter() != nullptr) {
        form.focusAfter()->setFocus();
    }
}

void TestDesktop::showModeless(ui::Form& form) { open(form, false); }

void TestDesktop::showModal(ui::Form& form) {
    open(form, true);
    if (duringModal) {
        duringModal(form);
    }
    if (shown_.erase(&form) != 0) {
        ADD_FAILURE() << "The modal form " << form.name() << " was not closed";
    }
}

void TestDesktop::popUp(ui::Menu& menu, ui::Widget& widget, ui::Point at) {
    popUps_.push_back({menu.name(), widget.name(), at});
    if (!menuChoice) {
        return;
    }
    const auto& items = menu.items();
    const auto found = std::ranges::find(items, *menuChoice, [](const ui::MenuItem* item) { return item->name(); });
    if (found == items.end()) {
        ADD_FAILURE() << "The menu " << menu.name() << " has no item " << *menuChoice;
        return;
    }
    (*found)->userChoose();
}

std::optional<std::string> TestDesktop::clipboardText() {
    if (clipboardLocked) {
        clipboardRefuses();
    }
    return clipboard;
}

void TestDesktop::setClipboardText(const std::string& text) {
    if (clipboardLocked) {
        clipboardRefuses();
    }
    clipboard = text;
}

bool TestDesktop::doEvents() {
    ++pumps_;
    while (dispatcher_.runOne() || idle_.runOne()) {
    }
    if (!steps_.empty()) {
        runOne();
    }
    return !quitting_;
}

bool TestDesktop::pumpUntil(const std::function<bool()>& done) {
    while (!done()) {
        ++pumps_;
        if (quitting_) {
            return false;
        }
        if (!runOne()) {
            ADD_FAILURE() << "A wait in which nothing is left to happen";
            return false;
        }
    }
    return true;
}

bool TestDesktop::runOne() {
    if (dispatcher_.runOne() || idle_.runOne()) {
        return true;
    }
    if (steps_.empty()) {
        return false;
    }
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step();
    return true;
}

ui::Size TestDesktop::measure(const std::string& text, int dpi) {
    constexpr int characterWidth = 6;
    constexpr int lineHeight = 13;
    return {static_cast<int>(text.size()) * characterWidth * dpi / ui::standardDpi, lineHeight * dpi / ui::standardDpi};
}

void TestDesktop::startTimer(ui::Timer& timer, std::chrono::milliseconds interval) {
    timers_[&timer] = {interval, now_ + interval};
}

bool TestDesktop::runs(const ui::Timer& timer) const {
    return std::ranges::any_of(timers_, [&](const auto& running) { return running.first == &timer; });
}

void TestDesktop::tick(ui::Timer& timer) {
    if (!runs(timer)) {
        ADD_FAILURE() << "The timer does not run";
        return;
    }
    timer.Tick();
}

void TestDesktop::advance(std::chrono::milliseconds time) {
    const auto until = now_ + time;
    while (true) {
        const auto next = std::ranges::min_element(timers_, {}, [](const auto& running) { return running.second.due; });
        if (next == timers_.end() || next->second.due > until) {
            break;
        }
        now_ = next->second.due;
        next->second.due += next->second.interval;
        next->first->Tick();
    }
    now_ = until;
}

void TestDesktop::Queue::post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
}

bool TestDesktop::Queue::runOne() {
    std::function<void()> work;
    {
        const std::lock_guard lock(mutex_);
        if (work_.empty()) {
            return false;
        }
        work = std::move(work_.front());
        work_.pop_front();
    }
    work();
    return true;
}

}  // namespace telvar::tests

namespace telvar::ui {

std::ostream& operator<<(std::ostream& stream, const MessageBox& box) {
    return stream << '"' << box.text << "\" titled \"" << box.title << "\", icon " << static_cast<int>(box.icon)
                  << ", buttons " << static_cast<int>(box.buttons);
}

}  // namespace telvar::ui
