// Who is logged in: the login when the control or the user asks for it, and the passwords.
#include "com/kit/failure.h"
#include "host/shell/login_dialog.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"

namespace telvar::host {

namespace {

// The next one above, for somebody who wants to log in without saying for what.
AccessLevel levelAbove(AccessLevel level) noexcept {
    return level < AccessLevel::EditChannels ? AccessLevel::EditChannels : AccessLevel::Everything;
}

}  // namespace

// Both events come from inside a call or a handler of the control. The login waits until that has returned.
void MainWindow::OpenLoginWithChannelFill() { askForLogin(LoginReason::Fill); }

void MainWindow::OpenLoginWithChannelEdit() { askForLogin(LoginReason::Edit); }

void MainWindow::askForLogin(LoginReason reason) {
    loginReason_ = reason;
    PostMessageW(window_, loginMessage, 0, 0);
}

// Does nothing while something else is under way; the state timer comes back to it.
void MainWindow::answerLogin() {
    if (!loginReason_ || !mayAct()) {
        return;
    }
    const LoginReason reason = *loginReason_;
    loginReason_.reset();
    switch (reason) {
    case LoginReason::Fill:
        if (logIn(L"Filling channels needs the level Edit channels.", AccessLevel::EditChannels) &&
            access_.level() >= AccessLevel::EditChannels) {
            callControl(&_ChannelInformation::DisplayFill);
        }
        break;
    case LoginReason::Edit:
        // The edit form stands open and follows the level by itself.
        (void)logIn(L"This part of the edit form needs a higher level.", levelAbove(access_.level()));
        break;
    }
}

bool MainWindow::logIn(const std::wstring& why, AccessLevel suggested) {
    std::optional<AccessLevel> level;
    {
        const Modal modal(*this);
        level = askLogin(window_, access_, why, suggested);
    }
    return level && enterLevel(*level);
}

void MainWindow::logInByMenu() {
    (void)logIn(L"Choose the level that you want to work at.", levelAbove(access_.level()));
}

void MainWindow::logOut() { (void)enterLevel(AccessLevel::View); }

bool MainWindow::enterLevel(AccessLevel level) {
    access_.enter(level);
    showTableName();
    return followRadio();
}

void MainWindow::applyAccess() {
    statusBar_.setLevel(nameOf(access_.level()));
    auto level = static_cast<short>(access_.level());
    com::checkCall(channels_->UpdateAccess(&level));
}

// Which columns a level shows depends on the radio's boards.
bool MainWindow::followRadio() {
    return attempt([this] {
        const ControlCall call(*this);
        applyAccess();
    });
}

void MainWindow::setPasswords() {
    std::optional<AccessLevel> level;
    {
        const Modal modal(*this);
        level = askNewPassword(window_, access_);
    }
    if (level) {
        showStatus(std::wstring(L"The level ") + nameOf(*level) +
                   (access_.needsPassword(*level) ? L" has a new password." : L" needs no password."));
    }
}

}  // namespace telvar::host
