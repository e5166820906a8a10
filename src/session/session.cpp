#include "session/session.h"

#include <utility>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/skip.h"

namespace telvar::session {

Session::Session(ui::Desktop& desktop, base::NumberFormat format)
    : common_(std::make_shared<Common>(desktop, format)) {}

bool Session::close() noexcept { return !std::exchange(common_->closed, true); }

void Session::throwIfClosed() const {
    if (closed()) {
        throw Closed{};
    }
}

void Session::setStore(model::DataStorePointer store) noexcept {
    const auto former = std::exchange(store_, std::move(store));
}

void Session::setLink(model::RadioLinkPointer link) noexcept {
    const auto former = std::exchange(link_, std::move(link));
}

model::DataStorePointer Session::store() const {
    throwIfClosed();
    if (!store_) {
        throw base::Failure("There is no data store");
    }
    return store_;
}

model::RadioLinkPointer Session::link() const {
    throwIfClosed();
    if (!link_) {
        throw base::Failure("There is no radio link");
    }
    return link_;
}

std::string Session::title() const {
    std::string title = ui::defaultTitle;
    base::skip([&] {
        if (const auto store = store_) {
            title = base::toText(store->get(model::StoreMember::MessageTitle), format());
        }
    });
    return title;
}

std::string Session::storesTitle() const {
    return base::toText(store()->get(model::StoreMember::MessageTitle), format());
}

ui::Answer Session::show(const ui::MessageBox& box) const {
    const auto answer = desktop().show(box);
    throwIfClosed();
    return answer;
}

void Session::refuse(const std::string& text) const { showTitled(text, ui::Icon::Exclamation, ui::Buttons::Ok); }

void Session::inform(const std::string& text) const { showTitled(text, ui::Icon::Information, ui::Buttons::Ok); }

bool Session::confirmed(const std::string& question) const {
    return showTitled(question, ui::Icon::Exclamation, ui::Buttons::YesNo) == ui::Answer::Yes;
}

ui::Answer Session::showTitled(const std::string& text, ui::Icon icon, ui::Buttons buttons) const {
    return desktop().show({.text = text, .title = title(), .icon = icon, .buttons = buttons});
}

void Session::tellFailureOf(std::string_view routine) const {
    desktop().show({.text = "Error in " + std::string(routine) + "()", .icon = ui::Icon::Exclamation});
}

void Session::whenIdle(std::function<void()> work) const {
    desktop().whenIdle([common = std::weak_ptr(common_), work = std::move(work)] {
        if (const auto alive = common.lock(); alive && !alive->closed) {
            work();
        }
    });
}

}  // namespace telvar::session
