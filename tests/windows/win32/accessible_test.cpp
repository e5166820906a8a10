// What a screen reader sees of the grid.
#include "world.h"

// clang-format off
#include <ole2.h>
#include <oleacc.h>
// clang-format on

#include "win/text.h"
#include "win32/grid_accessible.h"

namespace telvar::win32 {
namespace {

class AccessibleGrid : public World {
protected:
    AccessibleGrid() : window(windowOf(widgets.grid)) {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        widgets.grid.setCaption("Channels");
        widgets.grid.setText(5, 3, "88.5 Hz");
    }
    void SetUp() override {
        ASSERT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                             reinterpret_cast<void**>(&object)),
                  S_OK);
    }
    ~AccessibleGrid() override {
        if (object != nullptr) {
            object->Release();
        }
        CoUninitialize();
    }
    AccessibleGrid(const AccessibleGrid&) = delete;
    AccessibleGrid& operator=(const AccessibleGrid&) = delete;
    AccessibleGrid(AccessibleGrid&&) = delete;
    AccessibleGrid& operator=(AccessibleGrid&&) = delete;

    [[nodiscard]] static VARIANT child(LONG id) {
        VARIANT value;
        VariantInit(&value);
        value.vt = VT_I4;
        value.lVal = id;
        return value;
    }
    [[nodiscard]] VARIANT cell(int row, int column) const { return child(accessibleId(widgets.grid, {row, column})); }
    [[nodiscard]] static std::string taken(BSTR text) {
        const std::string result = text != nullptr ? win::narrow({text, SysStringLen(text)}) : "(none)";
        SysFreeString(text);
        return result;
    }
    [[nodiscard]] std::string name(const VARIANT& of) const {
        BSTR text = nullptr;
        object->get_accName(of, &text);
        return taken(text);
    }
    [[nodiscard]] std::string value(const VARIANT& of) const {
        BSTR text = nullptr;
        object->get_accValue(of, &text);
        return taken(text);
    }
    [[nodiscard]] LONG role(const VARIANT& of) const {
        VARIANT answer = child(-1);
        object->get_accRole(of, &answer);
        return answer.lVal;
    }
    [[nodiscard]] LONG state(const VARIANT& of) const {
        VARIANT answer = child(-1);
        object->get_accState(of, &answer);
        return answer.lVal;
    }

    HWND window;
    IAccessible* object = nullptr;
};

TEST_F(AccessibleGrid, HasTheWholeTextOfWhatIsCutOnTheScreen) {
    widgets.grid.setText(0, 3, "A header of many words that does not fit into three lines of its column");
    widgets.grid.setText(5, 3, "A text that is too long for its cell");
    EXPECT_EQ(value(cell(5, 3)), "A text that is too long for its cell");
    EXPECT_EQ(name(cell(0, 3)), "A header of many words that does not fit into three lines of its column");
    EXPECT_EQ(name(cell(5, 3)), "A header of many words that does not fit into three lines of its column 5");
}

TEST_F(AccessibleGrid, IsATableOfNamedCells) {
    ASSERT_NE(object, nullptr);
    LONG count = 0;
    object->get_accChildCount(&count);
    EXPECT_EQ(count, 256 * 27);
    EXPECT_EQ(name(child(CHILDID_SELF)), "Channels");
    EXPECT_EQ(role(child(CHILDID_SELF)), ROLE_SYSTEM_TABLE);
    EXPECT_EQ(name(cell(5, 3)), "Header 3 5");
    EXPECT_EQ(value(cell(5, 3)), "88.5 Hz");
    EXPECT_EQ(role(cell(5, 3)), ROLE_SYSTEM_CELL);
    EXPECT_EQ(name(cell(0, 3)), "Header 3");
    EXPECT_EQ(role(cell(0, 3)), ROLE_SYSTEM_COLUMNHEADER);
    EXPECT_EQ(name(cell(5, 0)), "5");
    EXPECT_EQ(role(cell(5, 0)), ROLE_SYSTEM_ROWHEADER);
}

TEST_F(AccessibleGrid, TellsTheStateOfCells) {
    SetFocus(window);
    widgets.grid.select({5, 3}, {6, 3});
    EXPECT_EQ(state(cell(5, 3)) & (STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED),
              STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(state(cell(6, 3)) & (STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED), STATE_SYSTEM_SELECTED);
    EXPECT_EQ(state(cell(7, 3)) & STATE_SYSTEM_SELECTED, 0);
    EXPECT_NE(state(cell(5, 20)) & STATE_SYSTEM_INVISIBLE, 0);
    EXPECT_NE(state(cell(200, 3)) & STATE_SYSTEM_OFFSCREEN, 0);
    EXPECT_EQ(state(cell(5, 3)) & (STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE), 0);
}

TEST_F(AccessibleGrid, FindsCellsByPlace) {
    LONG left = 0;
    LONG top_ = 0;
    LONG width = 0;
    LONG height = 0;
    ASSERT_EQ(object->accLocation(&left, &top_, &width, &height, cell(5, 3)), S_OK);
    EXPECT_EQ(width, 73);
    VARIANT hit = child(-1);
    ASSERT_EQ(object->accHitTest(left + 2, top_ + 2, &hit), S_OK);
    EXPECT_EQ(hit.lVal, cell(5, 3).lVal);
    EXPECT_EQ(object->accHitTest(-5000, -5000, &hit), S_FALSE);
}

TEST_F(AccessibleGrid, TellsFocusAndSelection) {
    VARIANT answer = child(-1);
    SetFocus(top.handle());
    EXPECT_EQ(object->get_accFocus(&answer), S_FALSE);
    SetFocus(window);
    widgets.grid.setCurrent({5, 3});
    ASSERT_EQ(object->get_accFocus(&answer), S_OK);
    EXPECT_EQ(answer.lVal, cell(5, 3).lVal);
    ASSERT_EQ(object->get_accSelection(&answer), S_OK);
    EXPECT_EQ(answer.vt, VT_I4);
    EXPECT_EQ(answer.lVal, cell(5, 3).lVal);

    widgets.grid.select({5, 3}, {6, 4});
    ASSERT_EQ(object->get_accSelection(&answer), S_OK);
    ASSERT_EQ(answer.vt, VT_UNKNOWN);
    IEnumVARIANT* list = nullptr;
    ASSERT_EQ(answer.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&list)), S_OK);
    std::vector<LONG> ids;
    VARIANT next = child(0);
    while (list->Next(1, &next, nullptr) == S_OK) {
        ids.push_back(next.lVal);
    }
    list->Release();
    VariantClear(&answer);
    EXPECT_EQ(ids, (std::vector<LONG>{cell(5, 3).lVal, cell(5, 4).lVal, cell(6, 3).lVal, cell(6, 4).lVal}));
}

TEST_F(AccessibleGrid, LetsTheReaderSelectAndNavigate) {
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, cell(7, 2)), S_OK);
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{7, 2, 7, 2}));
    EXPECT_EQ(GetFocus(), window);
    VARIANT to = child(0);
    EXPECT_EQ(object->accNavigate(NAVDIR_DOWN, cell(7, 2), &to), S_OK);
    EXPECT_EQ(to.lVal, cell(8, 2).lVal);
    EXPECT_EQ(object->accNavigate(NAVDIR_UP, cell(0, 2), &to), S_FALSE);
    EXPECT_EQ(object->accNavigate(NAVDIR_LASTCHILD, child(CHILDID_SELF), &to), S_OK);
    EXPECT_EQ(to.lVal, 256 * 27);
}

TEST_F(AccessibleGrid, RefusesCellsThatDoNotExist) {
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(child(256 * 27 + 1), &text), E_INVALIDARG);
    EXPECT_EQ(object->get_accName(child(-3), &text), E_INVALIDARG);
}

TEST_F(AccessibleGrid, OutlivesItsWindow) {
    panel.reset();
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(child(1), &text), CO_E_OBJNOTCONNECTED);
}

std::vector<std::pair<DWORD, LONG>>* heard = nullptr;

void CALLBACK hear(HWINEVENTHOOK, DWORD event, HWND, LONG object, LONG id, DWORD, DWORD) noexcept {
    if (object == OBJID_CLIENT) {
        heard->emplace_back(event, id);
    }
}

TEST_F(AccessibleGrid, AnnouncesTheNewCurrentCell) {
    std::vector<std::pair<DWORD, LONG>> events;
    heard = &events;
    SetFocus(window);
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_SELECTIONWITHIN, nullptr, hear,
                                               GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    key(window, VK_DOWN);
    until([&] { return events.size() >= 2; });
    UnhookWinEvent(hook);
    const LONG id = cell(2, 1).lVal;
    EXPECT_EQ(events, (std::vector<std::pair<DWORD, LONG>>{{EVENT_OBJECT_FOCUS, id}, {EVENT_OBJECT_SELECTION, id}}));
}

}  // namespace
}  // namespace telvar::win32
