#include "cli/console_desktop.h"

#include "base/failure.h"

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

std::vector<Json> ConsoleDesktop::messagesAsJson() const {
    std::vector<Json> messages;
    for (const auto& box : messages_) {
        messages.push_back(Json().add("text", box.text).add("title", box.title).add("icon", nameOf(box.icon)));
    }
    return messages;
}

ui::Answer ConsoleDesktop::show(const ui::MessageBox& box) {
    const std::string place = place_ ? place_() : std::string();
    console_.err << file_ << ": " << (place.empty() ? place : place + ": ") << box.text << '\n';
    messages_.push_back(box);
    return refusal(box.buttons);
}

void ConsoleDesktop::showModal(ui::Form& /*form*/) { throw base::Failure("There is no window here"); }

}  // namespace telvar::cli
