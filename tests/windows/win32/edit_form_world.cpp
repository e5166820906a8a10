#include "edit_form_world.h"

#include "base/value.h"
#include "win/gdi.h"
#include "win32/convert.h"

namespace telvar::win32 {

EditFormWorld::EditFormWorld() : form(std::make_shared<editform::frmChannelEdit>(desktop, base::NumberFormat{})) {
    table->put(StoreMember::P25BoardFitted, true);
    form->setCentralDataStore(table);
    form->setGrid(&grid);
    form->setChannel(number);
    form->DataChanged.connect([this] { events.emplace_back("DataChanged"); });
    form->EditClosed.connect([this] { events.emplace_back("EditClosed"); });
    form->OpenLoginWithChannelEdit.connect([this] { events.emplace_back("OpenLoginWithChannelEdit"); });
    form->NeedToUpdateFlexGrid.connect(
        [this](std::int16_t& row) { events.push_back("NeedToUpdateFlexGrid " + std::to_string(row)); });
    load();
}

void EditFormWorld::load(tests::KeyValues values) {
    tests::fill(*table, number, {{ChannelKey::TxFreq, 145'000'000}, {ChannelKey::RxFreq, 145'600'000}});
    tests::fill(*table, number, values);
    form->refresh();
}

void EditFormWorld::open(std::int16_t accessLevel) {
    form->UpdateAccess(accessLevel);
    form->refresh();
    desktop.showModeless(*form);
    pump();
}

std::vector<std::string> EditFormWorld::stops(std::initializer_list<WORD> held) {
    constexpr std::size_t tooMany = 80;
    std::vector<std::string> names{focusedField()};
    do {
        key(VK_TAB, held);
        names.push_back(focusedField());
    } while (names.back() != names.front() && names.size() < tooMany);
    return names;
}

void EditFormWorld::focus(ui::Widget& widget) {
    widget.setFocus();
    pump();
}

COLORREF EditFormWorld::textColour(const ui::Widget& field) const {
    HWND child = windowOf(field);
    if (const HWND inner = GetWindow(child, GW_CHILD)) {
        child = inner;
    }
    const win::WindowContext context(child);
    SendMessageW(window(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context.get()), reinterpret_cast<LPARAM>(child));
    return GetTextColor(context.get());
}

std::string EditFormWorld::selectedText(const ui::TextBox& box) const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(windowOf(box), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return windowText(windowOf(box)).substr(start, end - start);
}

}  // namespace telvar::win32
