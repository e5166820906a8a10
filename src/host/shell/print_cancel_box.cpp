#include "host/shell/print_cancel_box.h"
#include "win/work_area.h"

#include "host/shell/resource.h"
#include "host/shell/window_placement.h"

namespace telvar::host {

CancelBox::CancelBox(HWND owner)
    : owner_(owner),
      ownerEnabled_(IsWindowEnabled(owner) != FALSE),
      window_(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_PRINTING), owner, procedure,
                                 reinterpret_cast<LPARAM>(this))) {
    // Without a box the document is printed all the same.
    if (window_ != nullptr) {
        win::centreOverOwner(window_);
        EnableWindow(owner_, FALSE);
        ShowWindow(window_, SW_SHOW);
    }
}

// The owner is enabled first, or another program's window would come to the front.
CancelBox::~CancelBox() {
    if (ownerEnabled_) {
        EnableWindow(owner_, TRUE);
    }
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

void CancelBox::show(const std::wstring& text) {
    if (window_ != nullptr) {
        SetDlgItemTextW(window_, DIALOG_NOTE, text.c_str());
        UpdateWindow(window_);
    }
}

bool CancelBox::goesOn() {
    MSG message{};
    // Without a box nothing keeps the user from other commands meanwhile, so they wait.
    while (window_ != nullptr && !cancelled_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            cancelled_ = true;
        } else if (!IsDialogMessageW(window_, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return !cancelled_;
}

INT_PTR CALLBACK CancelBox::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lparam);
        return TRUE;
    }
    auto* const box = reinterpret_cast<CancelBox*>(GetWindowLongPtrW(window, DWLP_USER));
    if (box == nullptr) {
        return FALSE;
    }
    if (message == WM_COMMAND && (LOWORD(wparam) == IDCANCEL || LOWORD(wparam) == IDOK)) {
        box->cancelled_ = true;
        return TRUE;
    }
    if (message == WM_DESTROY) {
        // The program ends with its owner.
        box->cancelled_ = true;
        box->window_ = nullptr;
    }
    return FALSE;
}

}  // namespace telvar::host
