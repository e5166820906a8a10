// The desktop of a command that runs a part of the control: message boxes become diagnostics and are remembered, the
// clipboard is a text that the command was given, and there are no windows.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/console.h"
#include "cli/json.h"
#include "ui/desktop.h"

namespace telvar::cli {

class ConsoleDesktop : public ui::Desktop {
public:
    // `file` is what the diagnostics are about, as the user named it.
    ConsoleDesktop(const Console& console, std::string file) : console_(console), file_(std::move(file)) {}

    // Where in the file what is being told lies; empty where that is not known.
    void setPlace(std::function<std::string()> place) { place_ = std::move(place); }

    // What was told, in order. A routine that tells something did not go through.
    [[nodiscard]] const std::vector<ui::MessageBox>& messages() const noexcept { return messages_; }
    // "text", "title" and "icon" ("none", "information" or "exclamation") of each.
    [[nodiscard]] std::vector<Json> messagesAsJson() const;

    // Nobody can be asked: a question is answered No or Cancel.
    ui::Answer show(const ui::MessageBox& box) override;

    [[nodiscard]] std::optional<std::string> clipboardText() override { return clipboard_; }
    void setClipboardText(const std::string& text) override { clipboard_ = text; }

    // A modal form would wait for a user who is not there.
    [[noreturn]] void showModal(ui::Form& form) override;
    void showModeless(ui::Form& /*form*/) override {}
    void hide(ui::Form& /*form*/) override {}
    [[nodiscard]] bool isOpen(const ui::Form& /*form*/) const override { return false; }
    void popUp(ui::Menu& /*menu*/, ui::Widget& /*widget*/, ui::Point /*at*/) override {}
    void setPointer(ui::Pointer /*pointer*/) override {}
    bool doEvents() override { return true; }
    bool pumpUntil(const std::function<bool()>& done) override { return done(); }
    [[nodiscard]] ui::Size screenSize() override { return {}; }
    [[nodiscard]] ui::Rect workArea(const ui::Rect& /*at*/) override { return {}; }
    [[nodiscard]] ui::Size measure(const std::string& /*text*/, int /*dpi*/) override { return {}; }
    [[nodiscard]] base::Dispatcher& dispatcher() override { return dispatcher_; }
    void whenIdle(std::function<void()> /*work*/) override {}
    void startTimer(ui::Timer& /*timer*/, std::chrono::milliseconds /*interval*/) override {}
    void stopTimer(ui::Timer& /*timer*/) noexcept override {}

private:
    // A command waits for nothing, so that posted work is never run.
    class NoLoop : public base::Dispatcher {
    public:
        void post(std::function<void()> /*work*/) override {}
    };

    const Console& console_;
    std::string file_;
    std::function<std::string()> place_;
    std::vector<ui::MessageBox> messages_;
    std::optional<std::string> clipboard_;
    NoLoop dispatcher_;
};

}  // namespace telvar::cli
