#include "cli/console_desktop.h"

#include "base/failure.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

[[nodiscard]] std::string_view nameOf(ui::Icon icon) noexcept {
    switch (icon) {
    case ui::Icon::Information:
        return "information";
    case ui::Icon::Exclamation:
        return "exclamation";
    case ui::Icon::None:
        break;
    }
    return "none";
}

[[nodiscard]] ui::Answer refusal(ui::Buttons buttons) noexcept {
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

}  // namespace

std::string ConsoleDesktop::messagesAsJson() const {
    std::string text;
    for (const auto& box : messages_) {
        text += text.empty() ? "{\"text\": " : ", {\"text\": ";
        text += store::jsonQuoted(box.text) + ", \"title\": " + store::jsonQuoted(box.title) +
                ", \"icon\": " + store::jsonQuoted(nameOf(box.icon)) + "}";
    }
    return "[" + text + "]";
}

ui::Answer ConsoleDesktop::show(const ui::MessageBox& box) {
    const std::string place = place_ ? place_() : std::string();
    console_.err << file_ << ": " << (place.empty() ? place : place + ": ") << box.text << '\n';
    messages_.push_back(box);
    return refusal(box.buttons);
}

void ConsoleDesktop::showModal(ui::Form& /*form*/) { throw base::Failure("There is no window here"); }

}  // namespace telvar::cli
