// A desktop without windows: answers by script, records what it was asked, keeps its own clipboard, and fires timers
// and queued work only when a test lets it.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ui/desktop.h"
#include "ui/form.h"
#include "ui/menu.h"
#include "ui/timer.h"

namespace telvar::tests {

using Boxes = std::vector<ui::MessageBox>;

class TestDesktop : public ui::Desktop {
public:
    // -- message boxes ----------------------------------------------------------------------------------------------
    // Answers of the next questions, in order. A question without a scripted answer fails the test and is answered No
    // or Cancel; a box with OK alone needs none.
    void answerWith(ui::Answer answer) { answers_.push_back(answer); }
    [[nodiscard]] const Boxes& boxes() const noexcept { return boxes_; }
    [[nodiscard]] Boxes takeBoxes() { return std::exchange(boxes_, {}); }
    // Runs while a box is open, after it was recorded.
    std::function<void(const ui::MessageBox&)> duringBox;

    // -- forms and menus --------------------------------------------------------------------------------------------
    // The user's close box.
    void close(ui::Form& form);
    // No form can be shown.
    bool noWindows = false;
    ui::Rect screen{0, 0, 1024, 768};
    // What the user does in a modal form. It has to hide the form; else the test fails and the form is hidden.
    std::function<void(ui::Form&)> duringModal;
    // The item that the user chooses in the next pop-up menus, by name; none closes the menu without a choice.
    std::optional<std::string> menuChoice;
    struct PopUp {
        std::string menu;
        std::string widget;
        ui::Point at;
        bool operator==(const PopUp&) const = default;
    };
    [[nodiscard]] const std::vector<PopUp>& popUps() const noexcept { return popUps_; }

    // -- pointer and clipboard --------------------------------------------------------------------------------------
    [[nodiscard]] const std::vector<ui::Pointer>& pointers() const noexcept { return pointers_; }
    // Runs when the pointer is set, after it was recorded.
    std::function<void(ui::Pointer)> onPointer;
    std::optional<std::string> clipboard;
    bool clipboardLocked = false;

    // -- queued work and waiting ------------------------------------------------------------------------------------
    // Something that happens, one a turn, in the next waits and doEvents: the world's answer to a wait. Between two
    // turns nothing waits, so that work for idle times is run.
    void whenPumping(std::function<void()> step) { steps_.push_back(std::move(step)); }
    [[nodiscard]] int pumps() const noexcept { return pumps_; }
    // The message loop is quitting: every wait meets that when it has done what was pending before.
    void quit() noexcept { quitting_ = true; }

    // -- timers -----------------------------------------------------------------------------------------------------
    [[nodiscard]] bool runs(const ui::Timer& timer) const;
    // One tick, which must be running.
    void tick(ui::Timer& timer);
    // Lets time pass: every running timer ticks when it is due, in order of time.
    void advance(std::chrono::milliseconds time);

    // -- ui::Desktop ------------------------------------------------------------------------------------------------
    ui::Answer show(const ui::MessageBox& box) override;
    void showModal(ui::Form& form) override;
    void showModeless(ui::Form& form) override;
    void hide(ui::Form& form) override;
    [[nodiscard]] bool isOpen(const ui::Form& form) const override { return shown_.contains(&form); }
    void popUp(ui::Menu& menu, ui::Widget& widget, ui::Point at) override;
    void setPointer(ui::Pointer pointer) override {
        pointers_.push_back(pointer);
        if (onPointer) {
            onPointer(pointer);
        }
    }
    [[nodiscard]] std::optional<std::string> clipboardText() override;
    void setClipboardText(const std::string& text) override;
    bool doEvents() override;
    // Fails the test instead of hanging when nothing is left that could make progress.
    bool pumpUntil(const std::function<bool()>& done) override;
    [[nodiscard]] ui::Size screenSize() override { return {screen.width(), screen.height()}; }
    [[nodiscard]] ui::Rect workArea(const ui::Rect& /*at*/) override { return screen; }
    // Every character is 6 by 13 pixels at 96 dpi.
    [[nodiscard]] ui::Size measure(const std::string& text, int dpi) override;
    [[nodiscard]] base::Dispatcher& dispatcher() override { return dispatcher_; }
    void whenIdle(std::function<void()> work) override { idle_.post(std::move(work)); }
    void startTimer(ui::Timer& timer, std::chrono::milliseconds interval) override;
    void stopTimer(ui::Timer& timer) noexcept override { timers_.erase(&timer); }

private:
    class Queue : public base::Dispatcher {
    public:
        void post(std::function<void()> work) override;
        // Answers whether there was any.
        bool runOne();

    private:
        std::mutex mutex_;
        std::deque<std::function<void()>> work_;
    };
    struct Running {
        std::chrono::milliseconds interval;
        std::chrono::milliseconds due;
    };

    // What comes before a form is visible: its size, its place, and Load. A modal form comes in the middle of the
    // screen, another one where it was last.
    void open(ui::Form& form, bool modal);
    // One piece of queued work, else of idle work, else one step; answers whether there was any.
    bool runOne();

    Queue dispatcher_;
    Queue idle_;
    std::deque<ui::Answer> answers_;
    Boxes boxes_;
    std::set<const ui::Form*> shown_;
    std::vector<PopUp> popUps_;
    std::vector<ui::Pointer> pointers_;
    std::deque<std::function<void()>> steps_;
    std::map<ui::Timer*, Running> timers_;
    std::chrono::milliseconds now_{0};
    int pumps_ = 0;
    bool quitting_ = false;
};

// The next wait goes on for an hour of the desktop's time, in turns as short as those of a real message loop; then
// `after` happens.
inline void waitAnHour(TestDesktop& desktop, std::function<void()> after) {
    using namespace std::chrono_literals;
    constexpr auto turn = 50ms;
    for (auto waited = 0ms; waited < 1h; waited += turn) {
        desktop.whenPumping([&desktop, turn] { desktop.advance(turn); });
    }
    desktop.whenPumping(std::move(after));
}

// The box of a routine that failed.
[[nodiscard]] inline ui::MessageBox errorIn(const std::string& routine) {
    return {.text = "Error in " + routine + "()", .icon = ui::Icon::Exclamation};
}

}  // namespace telvar::tests

namespace telvar::ui {

// How failed expectations show a box.
std::ostream& operator<<(std::ostream& stream, const MessageBox& box);

}  // namespace telvar::ui
