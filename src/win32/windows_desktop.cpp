#include "win32/windows_desktop.h"

#include <utility>
#include <vector>

#include "base/failure.h"
#include "ui/menu.h"
#include "ui/metrics.h"
#include "ui/timer.h"
#include "win/handle.h"
#include "win/text.h"
#include "win32/clipboard.h"
#include "win32/modal_time.h"
#include "win32/placement.h"
#include "win32/window_kinds.h"

namespace telvar::win32 {

namespace {

UINT styleOf(const ui::MessageBox& box) noexcept {
    UINT style = MB_OK;
    switch (box.buttons) {
    case ui::Buttons::Ok:
        break;
    case ui::Buttons::OkCancel:
        style = MB_OKCANCEL;
        break;
    case ui::Buttons::YesNo:
        style = MB_YESNO;
        break;
    }
    switch (box.icon) {
    case ui::Icon::None:
        break;
    case ui::Icon::Information:
        style |= MB_ICONINFORMATION;
        break;
    case ui::Icon::Exclamation:
        style |= MB_ICONEXCLAMATION;
        break;
    }
    return style;
}

// False when the message loop is quitting; the quit message is posted again for the loop outside.
bool handle(const MSG& message) {
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

UINT track(const win::PopupMenu& popup, HWND owner, POINT at) {
    return static_cast<UINT>(TrackPopupMenu(popup.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_LEFTALIGN,
                                            static_cast<int>(at.x), static_cast<int>(at.y), 0, owner, nullptr));
}

}  // namespace

WindowsDesktop::WindowsDesktop() : messages_(std::make_shared<DispatcherWindow>()) {
    messages_->open();
    messages_->setHolder([this] { return holdOwner(); });
}

WindowsDesktop::~WindowsDesktop() {
    site_ = {};
    closeForms();
    messages_->setHolder(nullptr);
    messages_->endAll();
    unregisterWindowClasses();
}

ui::Answer WindowsDesktop::show(const ui::MessageBox& box) {
    const HWND owner = ownerOfNext();
    const HWND focus = GetFocus();
    const UINT modality = owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
    int answer = 0;
    {
        const ModalTime modal(site_.enableModeless);
        // The box disables its owner itself, and lets it be active again before it goes.
        DisabledWindows others;
        for (const HWND other : othersThan(owner)) {
            others.disable(other);
        }
        answer = MessageBoxW(owner, win::wide(box.text).c_str(), win::wide(box.title).c_str(), styleOf(box) | modality);
    }
    // A host's frame seldom gives the focus back to the window inside it that had it.
    if (focus != nullptr && IsWindow(focus) != FALSE && GetAncestor(focus, GA_ROOT) == GetActiveWindow()) {
        SetFocus(focus);
    }
    switch (answer) {
    case IDCANCEL:
        return ui::Answer::Cancel;
    case IDYES:
        return ui::Answer::Yes;
    case IDNO:
        return ui::Answer::No;
    case IDOK:
        return ui::Answer::Ok;
    default:
        throw base::Failure("A message box could not be shown");
    }
}

void WindowsDesktop::popUp(ui::Menu& menu, ui::Widget& widget, ui::Point at) {
    const auto found = windows_.find(&widget);
    if (found == windows_.end()) {
        return;
    }
    // A copy: while the menu is open anything may happen to it.
    const std::vector<ui::MenuItem*> items(menu.items().begin(), menu.items().end());
    const win::PopupMenu popup(CreatePopupMenu());
    for (std::size_t index = 0; index < items.size(); ++index) {
        const ui::MenuItem& item = *items[index];
        const UINT kind = item.caption() == "-" ? MF_SEPARATOR : MF_STRING;
        const UINT state = item.enabled() ? MF_ENABLED : MF_GRAYED;
        AppendMenuW(popup.get(), kind | state, index + 1, win::wide(item.caption()).c_str());
    }
    POINT screen{at.x, at.y};
    ClientToScreen(found->second, &screen);
    const UINT chosen = track(popup, found->second, screen);
    if (chosen > 0 && chosen <= items.size()) {
        items[chosen - 1]->userChoose();
    }
}

void WindowsDesktop::setPointer(ui::Pointer pointer) {
    pointer_ = pointer;
    SetCursor(LoadCursorW(nullptr, pointer == ui::Pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
}

bool WindowsDesktop::showPointer() const noexcept {
    if (pointer_ == ui::Pointer::Default) {
        return false;
    }
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

std::optional<std::string> WindowsDesktop::clipboardText() { return readClipboardText(messages_->handle()); }

void WindowsDesktop::setClipboardText(const std::string& text) { writeClipboardText(messages_->handle(), text); }

// Neither of the two pumps touches the desktop after a message: it may be gone by then.
bool WindowsDesktop::doEvents() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (!handle(message)) {
            return false;
        }
    }
    return true;
}

bool WindowsDesktop::pumpUntil(const std::function<bool()>& done) {
    // A foreign object may change its state without any message, so even an idle wait looks again now and then.
    constexpr DWORD longestSleep = 50;
    while (!done()) {
        MSG message{};
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
            MsgWaitForMultipleObjectsEx(0, nullptr, longestSleep, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        } else if (!handle(message)) {
            return done();
        }
    }
    return true;
}

ui::Size WindowsDesktop::screenSize() { return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }

ui::Rect WindowsDesktop::workArea(const ui::Rect& at) { return screenAt(at); }

std::shared_ptr<const FormFont> WindowsDesktop::font(int dpi) {
    auto& font = fonts_[dpi];
    if (!font) {
        font = std::make_shared<const FormFont>(dpi);
    }
    return font;
}

ui::Size WindowsDesktop::measure(const std::string& text, int dpi) {
    const auto used = font(dpi);
    return {used->widthOf(win::wide(ui::shownText(text))), used->height()};
}

base::Dispatcher& WindowsDesktop::dispatcher() { return *messages_; }

void WindowsDesktop::whenIdle(std::function<void()> work) { messages_->whenIdle(std::move(work)); }

void WindowsDesktop::startTimer(ui::Timer& timer, std::chrono::milliseconds interval) {
    messages_->start(timer, interval);
}

void WindowsDesktop::stopTimer(ui::Timer& timer) noexcept { messages_->stop(timer); }

}  // namespace telvar::win32
