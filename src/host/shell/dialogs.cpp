#include "host/shell/dialogs.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <array>
#include <bit>

#include "host/shell/resource.h"
#include "win/text.h"

namespace telvar::host {

namespace {

// What a dialog for files shows, and the extension of a name without one.
struct FileKind {
    const wchar_t* filter;
    const wchar_t* extension;
};
constexpr FileKind tableFiles{L"Channel tables (*.telvar)\0*.telvar\0All files\0*.*\0", tableExtension};
constexpr FileKind htmlFiles{L"HTML pages (*.html)\0*.html;*.htm\0All files\0*.*\0", L"html"};

// The longest path that the system knows at all.
constexpr std::size_t longestPath = 32'768;

using TaskDialog = decltype(&TaskDialogIndirect);

// Only version 6 of the common controls has it, so it is asked for by name.
TaskDialog findTaskDialog() noexcept {
    const HMODULE controls = GetModuleHandleW(L"comctl32.dll");
    const FARPROC found = controls == nullptr ? nullptr : GetProcAddress(controls, "TaskDialogIndirect");
    return std::bit_cast<TaskDialog>(found);
}

desk::SaveAnswer answerOf(int button) noexcept {
    switch (button) {
    case IDYES:
        return desk::SaveAnswer::Save;
    case IDNO:
        return desk::SaveAnswer::DontSave;
    default:
        return desk::SaveAnswer::Cancel;
    }
}

std::wstring folderOf(const std::string& path) {
    const std::size_t end = path.find_last_of("\\/");
    return end == std::string::npos ? std::wstring() : win::wide(path.substr(0, end));
}

std::optional<std::string> askPath(HWND owner, const FileKind& kind, const std::wstring& initial,
                                   const std::wstring& folder, const wchar_t* title, DWORD flags,
                                   BOOL(WINAPI* ask)(LPOPENFILENAMEW)) {
    std::wstring path(longestPath, L'\0');
    std::copy_n(initial.begin(), std::min(initial.size(), path.size() - 1), path.begin());
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = kind.filter;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = title;
    dialog.lpstrDefExt = kind.extension;
    dialog.Flags = flags | OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
    if (!ask(&dialog)) {
        return std::nullopt;
    }
    path.resize(path.find(L'\0'));
    return win::narrow(path);
}

INT_PTR CALLBACK aboutProcedure(HWND dialog, UINT message, WPARAM wparam, LPARAM) noexcept {
    if (message == WM_INITDIALOG) {
        SetDlgItemTextW(dialog, ABOUT_VERSION,
                        sizeof(void*) == 8 ? L"Version 1.0.0 (64 bit)" : L"Version 1.0.0 (32 bit)");
        return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wparam) == IDOK || LOWORD(wparam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wparam));
        return TRUE;
    }
    return FALSE;
}

}  // namespace

void tellFailure(HWND owner, const std::string& sentence) {
    MessageBoxW(owner, win::wide(sentence).c_str(), programTitle, MB_OK | MB_ICONEXCLAMATION);
}

desk::SaveAnswer askSave(HWND owner, const std::string& tableName) {
    const std::wstring question = L"Do you want to save the changes to " + win::wide(tableName) + L"?";
    static const TaskDialog show = findTaskDialog();
    const std::array<TASKDIALOG_BUTTON, 3> buttons{{{IDYES, L"&Save"}, {IDNO, L"Do&n't Save"}, {IDCANCEL, L"Cancel"}}};
    TASKDIALOGCONFIG dialog{};
    dialog.cbSize = sizeof dialog;
    dialog.hwndParent = owner;
    dialog.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    dialog.pszWindowTitle = programTitle;
    dialog.pszMainInstruction = question.c_str();
    dialog.cButtons = static_cast<UINT>(buttons.size());
    dialog.pButtons = buttons.data();
    dialog.nDefaultButton = IDYES;
    int button = IDCANCEL;
    if (show != nullptr && SUCCEEDED(show(&dialog, &button, nullptr, nullptr))) {
        return answerOf(button);
    }
    return answerOf(MessageBoxW(owner, question.c_str(), programTitle, MB_YESNOCANCEL | MB_ICONQUESTION));
}

bool askCancelExchange(HWND owner) {
    return MessageBoxW(owner, L"The exchange with the radio is still going on. Cancel it and close the program?",
                       programTitle, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

std::optional<std::string> askOpenPath(HWND owner, const std::string& besides) {
    return askPath(owner, tableFiles, {}, folderOf(besides), L"Open Channel Table", OFN_FILEMUSTEXIST,
                   GetOpenFileNameW);
}

std::optional<std::string> askSavePath(HWND owner, const std::string& suggested) {
    return askPath(owner, tableFiles, win::wide(suggested), folderOf(suggested), L"Save Channel Table As",
                   OFN_OVERWRITEPROMPT, GetSaveFileNameW);
}

std::optional<std::string> askHtmlPath(HWND owner, const std::string& suggested) {
    return askPath(owner, htmlFiles, win::wide(suggested), folderOf(suggested), L"Save as HTML", OFN_OVERWRITEPROMPT,
                   GetSaveFileNameW);
}

void showAbout(HWND owner) {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_ABOUT), owner, aboutProcedure, 0);
}

}  // namespace telvar::host
