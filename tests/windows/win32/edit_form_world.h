// The world of the tests of the channel edit form in its window: a memory store with one channel in service, a host's
// window, and the events that reach the owner of the form. Keys are real messages.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "editform/frmChannelEdit.h"
#include "form_world.h"
#include "model/memory_data_store.h"
#include "support/table_builder.h"

namespace telvar::win32 {

using model::ChannelKey;
using model::StoreMember;

class EditFormWorld : public FormWorld {
protected:
    static constexpr std::int16_t number = 7;

    EditFormWorld();

    // The channel with these values over those of an empty one in service, shown by the form.
    void load(tests::KeyValues values = {});
    void open(std::int16_t accessLevel = 5);
    // Names of the widgets that get the focus one after the other, by Tab or Shift+Tab, until the first comes again.
    std::vector<std::string> stops(std::initializer_list<WORD> held);
    void focus(ui::Widget& widget);
    [[nodiscard]] std::string focusedField() const { return focused(*form); }
    // As the form's window colours the text of a field.
    [[nodiscard]] COLORREF textColour(const ui::Widget& field) const;
    // What is selected in the window of a text box.
    [[nodiscard]] std::string selectedText(const ui::TextBox& box) const;

    std::shared_ptr<model::MemoryDataStore> table = std::make_shared<model::MemoryDataStore>();
    ui::Grid grid{"fgdDatabase", 256, 27};
    std::shared_ptr<editform::frmChannelEdit> form;
    std::vector<std::string> events;
};

}  // namespace telvar::win32
