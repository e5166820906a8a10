#include "host/shell/login_dialog.h"

#include <span>
#include <string_view>
#include <utility>

#include "base/pinned.h"
#include "host/shell/dialog.h"
#include "host/shell/resource.h"
#include "win/text.h"

namespace telvar::host {

namespace {

// A text that is not left behind in memory.
class Secret : private base::Pinned {
public:
    explicit Secret(std::string text) noexcept : text_(std::move(text)) {}
    ~Secret() { SecureZeroMemory(text_.data(), text_.size()); }

    [[nodiscard]] const std::string& text() const noexcept { return text_; }

private:
    std::string text_;
};

void fill(HWND list, std::span<const desk::AccessLevel> levels, desk::AccessLevel chosen) {
    for (const desk::AccessLevel level : levels) {
        const LRESULT index =
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win::wide(desk::nameOf(level)).c_str()));
        SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(level));
        if (level == chosen) {
            SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        }
    }
}

desk::AccessLevel chosenIn(HWND list) {
    const LRESULT index = SendMessageW(list, CB_GETCURSEL, 0, 0);
    return static_cast<desk::AccessLevel>(SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

class LoginDialog final : public Dialog {
public:
    LoginDialog(const desk::Access& access, const std::string& why, desk::AccessLevel suggested)
        : level(suggested), access_(access), why_(why) {}

    desk::AccessLevel level;

private:
    HWND begin() override {
        setText(LOGIN_WHY, why_);
        fill(item(LOGIN_LEVEL), desk::accessLevels, level);
        showNeed();
        return item(access_.needsPassword(level) ? LOGIN_PASSWORD : LOGIN_LEVEL);
    }

    bool accept() override {
        const Secret password(textOf(LOGIN_PASSWORD));
        if (!access_.admits(level, password.text())) {
            refuse(LOGIN_PASSWORD, "The password is wrong.");
            return false;
        }
        return true;
    }

    void changed(int control) override {
        if (control == LOGIN_LEVEL) {
            level = chosenIn(item(LOGIN_LEVEL));
            setText(LOGIN_PASSWORD, {});
            showNeed();
        }
    }

    void showNeed() {
        const bool needed = access_.needsPassword(level);
        EnableWindow(item(LOGIN_PASSWORD), needed ? TRUE : FALSE);
        note(needed ? "" : "This level needs no password.");
    }

    const desk::Access& access_;
    const std::string& why_;
};

class PasswordDialog final : public Dialog {
public:
    explicit PasswordDialog(desk::Access& access) : access_(access) {}

    desk::AccessLevel level = desk::AccessLevel::Everything;

private:
    HWND begin() override {
        fill(item(PASSWORD_LEVEL), std::span(desk::accessLevels).subspan(1), level);
        showState();
        return item(PASSWORD_NEW);
    }

    bool accept() override {
        const Secret password(textOf(PASSWORD_NEW));
        const Secret again(textOf(PASSWORD_AGAIN));
        if (password.text() != again.text()) {
            refuse(PASSWORD_AGAIN, "The two passwords differ.");
            return false;
        }
        if (const std::string_view gap = access_.gapLeftBy(level, password.text().empty()); !gap.empty()) {
            refuse(PASSWORD_NEW, std::string(gap));
            return false;
        }
        access_.setPassword(level, password.text());
        return true;
    }

    void changed(int control) override {
        if (control == PASSWORD_LEVEL) {
            level = chosenIn(item(PASSWORD_LEVEL));
            setText(PASSWORD_NEW, {});
            setText(PASSWORD_AGAIN, {});
            showState();
        }
    }

    void showState() {
        note(access_.needsPassword(level) ? "Leave both fields empty to remove the password."
                                          : "This level has no password yet.");
    }

    desk::Access& access_;
};

}  // namespace

std::optional<desk::AccessLevel> askLogin(HWND owner, const desk::Access& access, const std::string& why,
                                          desk::AccessLevel suggested) {
    LoginDialog dialog(access, why, suggested);
    return dialog.run(owner, RESOURCE_LOGIN) ? std::optional(dialog.level) : std::nullopt;
}

std::optional<desk::AccessLevel> askNewPassword(HWND owner, desk::Access& access) {
    PasswordDialog dialog(access);
    return dialog.run(owner, RESOURCE_PASSWORDS) ? std::optional(dialog.level) : std::nullopt;
}

}  // namespace telvar::host
