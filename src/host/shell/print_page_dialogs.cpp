#include "host/shell/print_page_dialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <iterator>

#include "host/shell/dialog.h"
#include "host/shell/resource.h"
#include "win/text.h"

namespace telvar::host {

namespace {

constexpr wchar_t choiceProperty[] = L"TelvarChannelChoice";
constexpr wchar_t choiceText[] = L"Only channels in &use";

class PageSetupDialog final : public Dialog {
public:
    explicit PageSetupDialog(const desk::PageSetup& present) : setup(present) {}

    desk::PageSetup setup;

private:
    HWND begin() override {
        std::size_t chosen = std::size(desk::knownSheets);
        for (std::size_t at = 0; at < std::size(desk::knownSheets); ++at) {
            addSheet(desk::knownSheets[at].name);
            chosen = desk::knownSheets[at].code == setup.sheetCode ? at : chosen;
        }
        if (chosen == std::size(desk::knownSheets)) {
            addSheet(desk::millimetresText(setup.sheet.width) + " x " + desk::millimetresText(setup.sheet.height) +
                     " mm");
        }
        SendMessageW(item(PAGE_SHEET), CB_SETCURSEL, chosen, 0);
        CheckRadioButton(GetParent(item(PAGE_SHEET)), PAGE_PORTRAIT, PAGE_LANDSCAPE,
                         setup.landscape ? PAGE_LANDSCAPE : PAGE_PORTRAIT);
        setText(PAGE_LEFT, desk::millimetresText(setup.margins.left));
        setText(PAGE_TOP, desk::millimetresText(setup.margins.top));
        setText(PAGE_RIGHT, desk::millimetresText(setup.margins.right));
        setText(PAGE_BOTTOM, desk::millimetresText(setup.margins.bottom));
        SendMessageW(item(PAGE_ONLY_IN_USE), BM_SETCHECK, setup.onlyInUse ? BST_CHECKED : BST_UNCHECKED, 0);
        return item(PAGE_SHEET);
    }

    bool accept() override {
        desk::PageSetup wanted = setup;
        const auto sheet = static_cast<std::size_t>(SendMessageW(item(PAGE_SHEET), CB_GETCURSEL, 0, 0));
        if (sheet < std::size(desk::knownSheets)) {
            wanted.sheet = desk::knownSheets[sheet].size;
            wanted.sheetCode = desk::knownSheets[sheet].code;
        }
        wanted.landscape = SendMessageW(item(PAGE_LANDSCAPE), BM_GETCHECK, 0, 0) == BST_CHECKED;
        wanted.onlyInUse = SendMessageW(item(PAGE_ONLY_IN_USE), BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (!read(PAGE_LEFT, wanted.margins.left) || !read(PAGE_TOP, wanted.margins.top) ||
            !read(PAGE_RIGHT, wanted.margins.right) || !read(PAGE_BOTTOM, wanted.margins.bottom)) {
            return false;
        }
        if (!desk::leavesRoom(wanted)) {
            refuse(PAGE_LEFT, "These margins leave no room to print on.");
            return false;
        }
        setup = wanted;
        return true;
    }

    void changed(int /*control*/) override { note({}); }

    void addSheet(std::string_view name) const {
        SendMessageW(item(PAGE_SHEET), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win::wide(name).c_str()));
    }

    bool read(int control, int& margin) {
        const std::optional<int> value = desk::readMillimetres(textOf(control));
        if (!value) {
            refuse(control, "Enter a margin in millimetres.");
            return false;
        }
        margin = *value;
        return true;
    }
};

// Makes room above the row of buttons, and puts the box there.
void insertChoice(HWND dialog, bool checked) {
    RECT row{7, 0, 160, 14};
    MapDialogRect(dialog, &row);
    RECT button{};
    GetWindowRect(GetDlgItem(dialog, IDOK), &button);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&button), 2);
    const int top = button.top;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        if (place.top >= top) {
            SetWindowPos(child, nullptr, place.left, place.top + row.bottom, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        }
    }
    RECT whole{};
    GetWindowRect(dialog, &whole);
    SetWindowPos(dialog, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top + row.bottom,
                 SWP_NOMOVE | SWP_NOZORDER);
    const HWND box = CreateWindowExW(0, L"BUTTON", choiceText, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX,
                                     row.left, top, row.right - row.left, row.bottom, dialog,
                                     reinterpret_cast<HMENU>(PAGE_ONLY_IN_USE), nullptr, nullptr);
    SendMessageW(box, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0)), TRUE);
    SendMessageW(box, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    // Before the buttons in the order of Tab.
    SetWindowPos(box, GetWindow(GetDlgItem(dialog, IDOK), GW_HWNDPREV), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace

bool askPageSetup(HWND owner, desk::PageSetup& setup) {
    PageSetupDialog dialog(setup);
    if (!dialog.run(owner, RESOURCE_PAGE_SETUP)) {
        return false;
    }
    setup = dialog.setup;
    return true;
}

UINT_PTR CALLBACK addChannelChoice(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    switch (message) {
    case WM_INITDIALOG: {
        auto* const chosen = reinterpret_cast<bool*>(reinterpret_cast<const PAGESETUPDLGW*>(lparam)->lCustData);
        SetPropW(dialog, choiceProperty, chosen);
        insertChoice(dialog, *chosen);
        break;
    }
    case WM_COMMAND:
        if (LOWORD(wparam) == IDOK) {
            if (auto* const chosen = static_cast<bool*>(GetPropW(dialog, choiceProperty))) {
                *chosen = IsDlgButtonChecked(dialog, PAGE_ONLY_IN_USE) == BST_CHECKED;
            }
        }
        break;
    case WM_NCDESTROY:
        RemovePropW(dialog, choiceProperty);
        break;
    default:
        break;
    }
    return 0;
}

}  // namespace telvar::host
