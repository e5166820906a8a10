// The form's message boxes, titled with the store's MessageTitle, or with the default title where that cannot be read.
#pragma once

#include <functional>
#include <string>

#include "base/conversion.h"
#include "model/data_store.h"
#include "ui/desktop.h"
#include "ui/trapped.h"

namespace telvar::editform {

class FormMessages {
public:
    // `store` answers the store of the moment, null for none. The desktop must outlive the messages.
    FormMessages(ui::Desktop& desktop, std::function<model::DataStorePointer()> store)
        : desktop_(desktop), store_(std::move(store)) {}

    void refuse(const std::string& text) { show(text, ui::Icon::Exclamation, ui::Buttons::Ok); }
    void inform(const std::string& text) { show(text, ui::Icon::Information, ui::Buttons::Ok); }
    [[nodiscard]] bool confirmed(const std::string& question) {
        return show(question, ui::Icon::Exclamation, ui::Buttons::YesNo) == ui::Answer::Yes;
    }

private:
    ui::Answer show(const std::string& text, ui::Icon icon, ui::Buttons buttons) {
        std::string title = ui::defaultTitle;
        ui::resumed([&] {
            if (const auto store = store_()) {
                title = base::toText(store->get(model::StoreMember::MessageTitle));
            }
        });
        return desktop_.show({.text = text, .title = title, .icon = icon, .buttons = buttons});
    }

    ui::Desktop& desktop_;
    std::function<model::DataStorePointer()> store_;
};

}  // namespace telvar::editform
