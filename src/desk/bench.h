// What every part of the desk works at: the outside world behind its interfaces, and the two scopes in which no command
// begins. Anything may happen inside a question or a call of the control.
#pragma once

#include <exception>
#include <string>

#include "base/pinned.h"
#include "desk/control.h"
#include "desk/link.h"
#include "desk/sentences.h"
#include "desk/store.h"
#include "desk/system.h"
#include "desk/window.h"

namespace telvar::desk {

// What lies outside the desk.
struct World {
    Store& store;
    Control& control;
    Link& link;
    Window& window;
    const System& system;
};

class Bench : public World, private base::Pinned {
public:
    // All of the world outlives this.
    explicit Bench(const World& world) noexcept : World(world) {}
    ~Bench() = default;

    // Nothing modal is open, no call of the control's is under way, and the control has not taken the commands away.
    [[nodiscard]] bool free() const noexcept { return commands_ && !asking() && calls_ == 0; }
    // Something modal, of the program's or of the control's, stands open.
    [[nodiscard]] bool asking() const noexcept { return modal_ > 0 || !windowEnabled_; }
    // Inside a call of the control.
    [[nodiscard]] bool calling() const noexcept { return calls_ > 0; }

    // The control enables and disables the program's commands, and its window around something modal of its own.
    void setCommands(bool enabled) noexcept { commands_ = enabled; }
    void setWindowEnabled(bool enabled) noexcept { windowEnabled_ = enabled; }

    // Asks the user something, and answers what `question` answers.
    template <class Question>
    auto ask(Question&& question) {
        const Asking scope(*this);
        return question(window.questions());
    }
    void tell(const std::string& sentence) {
        ask([&](Questions& questions) { questions.tell(sentence); });
    }

    // Calls the control.
    template <class Call>
    auto call(Call&& body) {
        const Calling scope(*this);
        return body(control);
    }

    // A failure is told to the user; answers whether there was none.
    template <class Action>
    bool attempt(Action&& action) {
        try {
            action();
            return true;
        } catch (const std::exception& failure) {
            tell(sentenceFor(failure));
            return false;
        }
    }
    template <class Call>
    bool attemptCall(Call&& body) {
        return attempt([&] { call(body); });
    }

private:
    class Asking : private base::Pinned {
    public:
        explicit Asking(Bench& bench) : bench_(bench) {
            ++bench_.modal_;
            bench_.window.beginModal();
        }
        ~Asking() {
            --bench_.modal_;
            bench_.window.endModal();
        }

    private:
        Bench& bench_;
    };
    class Calling : private base::Pinned {
    public:
        explicit Calling(Bench& bench) noexcept : bench_(bench) { ++bench_.calls_; }
        ~Calling() { --bench_.calls_; }

    private:
        Bench& bench_;
    };

    int modal_ = 0;
    int calls_ = 0;
    bool commands_ = true;
    bool windowEnabled_ = true;
};

}  // namespace telvar::desk
