#include "host/shell/dialog.h"
#include "win/work_area.h"

#include "base/readable_colour.h"
#include "desk/sentences.h"
#include "host/shell/resource.h"
#include "host/shell/window_placement.h"
#include "win/text.h"

namespace telvar::host {

namespace {

constexpr COLORREF refusedColour = RGB(176, 0, 32);

// Where the user chose the colours, they stay.
bool highContrast() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace

bool Dialog::run(HWND owner, int resource) {
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource), owner, procedure,
                           reinterpret_cast<LPARAM>(this)) == IDOK;
}

INT_PTR CALLBACK Dialog::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) {
        reinterpret_cast<Dialog*>(lparam)->window_ = window;
        SetWindowLongPtrW(window, DWLP_USER, lparam);
    }
    auto* const dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        return FALSE;
    }
    try {
        return dialog->handle(message, wparam, lparam);
    } catch (...) {
        EndDialog(window, IDCANCEL);
        return FALSE;
    }
}

INT_PTR Dialog::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_INITDIALOG:
        win::centreOverOwner(window_);
        SetFocus(begin());
        return FALSE;
    case WM_COMMAND:
        command(LOWORD(wparam), HIWORD(wparam));
        return TRUE;
    case WM_CTLCOLORSTATIC:
        if (refused_ && reinterpret_cast<HWND>(lparam) == item(DIALOG_NOTE) && !highContrast()) {
            const auto context = reinterpret_cast<HDC>(wparam);
            SetTextColor(context, base::readable(refusedColour, GetSysColor(COLOR_BTNFACE)));
            SetBkColor(context, GetSysColor(COLOR_BTNFACE));
            return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
        }
        return FALSE;
    default:
        return FALSE;
    }
}

void Dialog::command(int control, int notification) {
    if (control == IDCANCEL) {
        EndDialog(window_, IDCANCEL);
    } else if (control == IDOK) {
        try {
            if (accept()) {
                EndDialog(window_, IDOK);
            }
        } catch (const std::exception& failure) {
            refuse(0, desk::sentenceFor(failure));
        }
    } else if (notification == EN_CHANGE || notification == CBN_SELCHANGE) {
        changed(control);
    }
}

void Dialog::setText(int control, const std::string& text) {
    SetDlgItemTextW(window_, control, win::wide(text).c_str());
}

std::string Dialog::textOf(int control) const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(item(control))) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(item(control), text.data(), static_cast<int>(text.size()))));
    return win::narrow(text);
}

void Dialog::note(const std::string& sentence) {
    refused_ = false;
    setText(DIALOG_NOTE, sentence);
}

void Dialog::refuse(int control, const std::string& sentence) {
    refused_ = true;
    setText(DIALOG_NOTE, sentence);
    MessageBeep(MB_ICONWARNING);
    if (const HWND field = item(control)) {
        SetFocus(field);
        SendMessageW(field, EM_SETSEL, 0, -1);
    }
}

}  // namespace telvar::host
