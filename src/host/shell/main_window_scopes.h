// The two scopes in which the main window does not act on commands; see main_window.h.
#pragma once

#include "host/shell/main_window.h"

namespace telvar::host {

class MainWindow::Modal {
public:
    explicit Modal(MainWindow& owner) : owner_(owner), before_(GetActiveWindow()) {
        ++owner_.modal_;
        owner_.saveFocus();
        tell(false);
    }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;
    Modal(Modal&&) = delete;
    Modal& operator=(Modal&&) = delete;
    ~Modal() {
        tell(true);
        --owner_.modal_;
        // The user goes on where the question came from, such as the control's edit form, not in the window below it.
        if (before_ != owner_.window_ && IsWindowVisible(before_) != FALSE && IsWindowEnabled(before_) != FALSE) {
            SetActiveWindow(before_);
        }
    }

private:
    void tell(bool enable) const {
        if (owner_.control_) {
            owner_.control_->enableModeless(enable);
        }
    }

    MainWindow& owner_;
    HWND before_;
};

class MainWindow::ControlCall {
public:
    explicit ControlCall(MainWindow& owner) noexcept : owner_(owner) { ++owner_.calls_; }
    ControlCall(const ControlCall&) = delete;
    ControlCall& operator=(const ControlCall&) = delete;
    ControlCall(ControlCall&&) = delete;
    ControlCall& operator=(ControlCall&&) = delete;
    ~ControlCall() { --owner_.calls_; }

private:
    MainWindow& owner_;
};

}  // namespace telvar::host
