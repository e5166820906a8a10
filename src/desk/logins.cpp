#include "desk/logins.h"

#include <utility>

namespace telvar::desk {

void Logins::want(Reason reason) {
    wanted_ = reason;
    bench_.window.later();
}

void Logins::goOn() {
    if (!wanted_ || !bench_.free()) {
        return;
    }
    switch (*std::exchange(wanted_, std::nullopt)) {
    case Reason::Fill:
        if (ask("Filling channels needs the level Edit channels.", AccessLevel::EditChannels) &&
            level() >= AccessLevel::EditChannels) {
            bench_.attemptCall([](Control& control) { control.fill(); });
        }
        break;
    case Reason::Edit:
        // The edit form stands open and follows the level by itself.
        (void)ask("This part of the edit form needs a higher level.", levelAbove(level()));
        break;
    }
}

bool Logins::ask(const std::string& why, AccessLevel suggested) {
    const auto level = bench_.ask([&](Questions& questions) { return questions.askLogin(access_, why, suggested); });
    return level && enter(*level);
}

void Logins::logIn() { (void)ask("Choose the level that you want to work at.", levelAbove(level())); }

void Logins::logOut() { (void)enter(AccessLevel::View); }

bool Logins::enter(AccessLevel level) {
    access_.enter(level);
    view_.showName();
    return apply();
}

bool Logins::apply() {
    bench_.window.status().setLevel(nameOf(level()));
    return bench_.attemptCall([this](Control& control) { control.updateAccess(level()); });
}

void Logins::setPasswords() {
    const auto level = bench_.ask([&](Questions& questions) { return questions.askNewPassword(access_); });
    if (level) {
        bench_.window.status().setMessage(
            "The level " + std::string(nameOf(*level)) +
            (access_.needsPassword(*level) ? " has a new password." : " needs no password."));
    }
}

}  // namespace telvar::desk
