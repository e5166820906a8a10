#include "host/shell/login_dialog.h"

#include <span>
#include <utility>

#include "host/shell/dialog.h"
#include "host/shell/resource.h"

namespace telvar::host {

namespace {

// A text that is not left behind in memory.
class Secret {
public:
    explicit Secret(std::wstring text) noexcept : text_(std::move(text)) {}
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    Secret(Secret&&) = delete;
    Secret& operator=(Secret&&) = delete;
    ~Secret() { SecureZeroMemory(text_.data(), text_.size() * sizeof(wchar_t)); }

    [[nodiscard]] const std::wstring& text() const noexcept { return text_; }

private:
    std::wstring text_;
};

void fill(HWND list, std::span<const AccessLevel> levels, AccessLevel chosen) {
    for (const AccessLevel level : levels) {
        const LRESULT index = SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(nameOf(level)));
        SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(level));
        if (level == chosen) {
            SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        }
    }
}

AccessLevel chosenIn(HWND list) {
    const LRESULT index = SendMessageW(list, CB_GETCURSEL, 0, 0);
    return static_cast<AccessLevel>(SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

class LoginDialog final : public Dialog {
public:
    LoginDialog(const Access& access, const std::wstring& why, AccessLevel suggested)
        : level(suggested), access_(access), why_(why) {}

    AccessLevel level;

private:
    HWND begin() override {
        setText(LOGIN_WHY, why_);
        fill(item(LOGIN_LEVEL), accessLevels, level);
        showNeed();
        return item(access_.needsPassword(level) ? LOGIN_PASSWORD : LOGIN_LEVEL);
    }

    bool accept() override {
        const Secret password(textOf(LOGIN_PASSWORD));
        if (!access_.admits(level, password.text())) {
            refuse(LOGIN_PASSWORD, L"The password is wrong.");
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
        note(needed ? L"" : L"This level needs no password.");
    }

    const Access& access_;
    const std::wstring& why_;
};

class PasswordDialog final : public Dialog {
public:
    explicit PasswordDialog(Access& access) : access_(access) {}

    AccessLevel level = AccessLevel::Everything;

private:
    HWND begin() override {
        fill(item(PASSWORD_LEVEL), std::span(accessLevels).subspan(1), level);
        showState();
        return item(PASSWORD_NEW);
    }

    bool accept() override {
        const Secret password(textOf(PASSWORD_NEW));
        const Secret again(textOf(PASSWORD_AGAIN));
        if (password.text() != again.text()) {
            refuse(PASSWORD_AGAIN, L"The two passwords differ.");
            return false;
        }
        if (const wchar_t* const gap = gapLeftBy(password.text().empty())) {
            refuse(PASSWORD_NEW, gap);
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

    // Whoever may do everything may also edit channels: a password for less would protect nothing.
    [[nodiscard]] const wchar_t* gapLeftBy(bool removing) const {
        if (level == AccessLevel::EditChannels && !removing && !access_.needsPassword(AccessLevel::Everything)) {
            return L"Set a password for the level Everything first; everybody can enter it now.";
        }
        if (level == AccessLevel::Everything && removing && access_.needsPassword(AccessLevel::EditChannels)) {
            return L"Remove the password of the level Edit channels first.";
        }
        return nullptr;
    }

    void showState() {
        note(access_.needsPassword(level) ? L"Leave both fields empty to remove the password."
                                          : L"This level has no password yet.");
    }

    Access& access_;
};

}  // namespace

std::optional<AccessLevel> askLogin(HWND owner, const Access& access, const std::wstring& why, AccessLevel suggested) {
    LoginDialog dialog(access, why, suggested);
    return dialog.run(owner, RESOURCE_LOGIN) ? std::optional(dialog.level) : std::nullopt;
}

std::optional<AccessLevel> askNewPassword(HWND owner, Access& access) {
    PasswordDialog dialog(access);
    return dialog.run(owner, RESOURCE_PASSWORDS) ? std::optional(dialog.level) : std::nullopt;
}

}  // namespace telvar::host
