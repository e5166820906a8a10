#include "host/shell/print_preview.h"
#include "base/pinned.h"
#include "win/work_area.h"

#include <algorithm>
#include <string>

#include "desk/sentences.h"
#include "host/print/page_view.h"
#include "host/shell/dialogs.h"
#include "host/shell/resource.h"
#include "host/shell/window_placement.h"

namespace telvar::host {

namespace {

// Of the work area's height, and of that height for the width.
constexpr int percentOfHeight = 90;
constexpr int percentForWidth = 85;

class Preview : private base::Pinned {
public:
    Preview(const PagePainter& painter, const PreviewActions& actions)
        : actions_(actions), document_(actions.compose()), view_(painter, [this](int pages) { turn(pages); }) {}
    ~Preview() { close(); }

    void run(HWND owner) {
        PageView::registerClass();
        owner_ = owner;
        window_ = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_PREVIEW), owner, procedure,
                                     reinterpret_cast<LPARAM>(this));
        if (window_ == nullptr) {
            return;
        }
        EnableWindow(owner_, FALSE);
        ShowWindow(window_, SW_SHOW);
        MSG message{};
        while (window_ != nullptr) {
            if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
                PostQuitMessage(static_cast<int>(message.wParam));
                close();
            } else if (!translate(message) && !IsDialogMessageW(window_, &message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
    }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
        if (message == WM_INITDIALOG) {
            reinterpret_cast<Preview*>(lparam)->window_ = window;
            SetWindowLongPtrW(window, DWLP_USER, lparam);
        }
        auto* const preview = reinterpret_cast<Preview*>(GetWindowLongPtrW(window, DWLP_USER));
        if (preview == nullptr) {
            return FALSE;
        }
        try {
            return preview->handle(message, wparam, lparam);
        } catch (const std::exception& failure) {
            tellFailure(window, desk::sentenceFor(failure));
            return TRUE;
        }
    }

    INT_PTR handle(UINT message, WPARAM wparam, LPARAM lparam) {
        switch (message) {
        case WM_INITDIALOG:
            begin();
            return FALSE;
        case WM_SIZE:
            layout();
            return TRUE;
        case WM_GETMINMAXINFO:
            if (smallest_.cx > 0) {
                reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {smallest_.cx, smallest_.cy};
            }
            return TRUE;
        case WM_COMMAND:
            command(LOWORD(wparam), HIWORD(wparam));
            return TRUE;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, DWLP_USER, 0);
            window_ = nullptr;
            return FALSE;
        default:
            return FALSE;
        }
    }

    [[nodiscard]] HWND item(int control) const noexcept { return GetDlgItem(window_, control); }

    void begin() {
        for (const wchar_t* zoom : {L"Whole page", L"Page width"}) {
            SendMessageW(item(PREVIEW_ZOOM), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(zoom));
        }
        SendMessageW(item(PREVIEW_ZOOM), CB_SETCURSEL, 0, 0);
        const HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_MAIN));
        SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
        view_.attach(item(PREVIEW_PAGE));
        const RECT area = win::workAreas().front();
        RECT whole{};
        GetWindowRect(window_, &whole);
        smallest_ = {std::min(whole.right - whole.left, area.right - area.left), whole.bottom - whole.top};
        const LONG height = std::max((area.bottom - area.top) * percentOfHeight / 100, smallest_.cy);
        const LONG width = std::clamp(height * percentForWidth / 100, smallest_.cx, area.right - area.left);
        SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        win::centreOverOwner(window_);
        layout();
        showPage();
        SetFocus(item(PREVIEW_PAGE));
    }

    // The page takes all room below the buttons; the last of these keeps to the right.
    void layout() const {
        RECT client{};
        GetClientRect(window_, &client);
        const RECT page = placeOf(PREVIEW_PAGE);
        MoveWindow(item(PREVIEW_PAGE), 0, page.top, client.right, std::max<LONG>(client.bottom - page.top, 0), TRUE);
        const RECT close = placeOf(IDCANCEL);
        const RECT first = placeOf(PREVIEW_PRINT);
        SetWindowPos(item(IDCANCEL), nullptr, client.right - first.left - (close.right - close.left), close.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER);
    }

    [[nodiscard]] RECT placeOf(int control) const {
        RECT place{};
        GetWindowRect(item(control), &place);
        MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    void command(int control, int notification) {
        switch (control) {
        case IDCANCEL:
            close();
            break;
        case PREVIEW_PRINT:
            actions_.print(window_);
            break;
        case PREVIEW_SETUP:
            if (actions_.setUpPage(window_) && window_ != nullptr) {
                document_ = actions_.compose();
                showPage();
            }
            break;
        case PREVIEW_PREVIOUS:
            turn(-1);
            break;
        case PREVIEW_NEXT:
            turn(1);
            break;
        case PREVIEW_ZOOM:
            if (notification == CBN_SELCHANGE) {
                const bool wide = SendMessageW(item(PREVIEW_ZOOM), CB_GETCURSEL, 0, 0) == 1;
                view_.setZoom(wide ? PageZoom::PageWidth : PageZoom::WholePage);
            }
            break;
        default:
            break;
        }
    }

    // Keys that do the same wherever the focus is, but in an open list.
    [[nodiscard]] bool translate(const MSG& message) {
        if (message.message != WM_KEYDOWN || (message.hwnd != window_ && !IsChild(window_, message.hwnd)) ||
            SendMessageW(item(PREVIEW_ZOOM), CB_GETDROPPEDSTATE, 0, 0) != 0) {
            return false;
        }
        const bool control = GetKeyState(VK_CONTROL) < 0;
        switch (message.wParam) {
        case VK_PRIOR:
            turn(-1);
            return true;
        case VK_NEXT:
            turn(1);
            return true;
        case VK_HOME:
            turn(-static_cast<int>(document_.pages.size()));
            return true;
        case VK_END:
            turn(static_cast<int>(document_.pages.size()));
            return true;
        case 'P':
            if (control) {
                SendMessageW(window_, WM_COMMAND, PREVIEW_PRINT, 0);
            }
            return control;
        default:
            return false;
        }
    }

    void turn(int pages) {
        const int last = static_cast<int>(document_.pages.size()) - 1;
        const int wanted = std::clamp(static_cast<int>(page_) + pages, 0, last);
        if (wanted != static_cast<int>(page_)) {
            page_ = static_cast<std::size_t>(wanted);
            showPage();
        }
    }

    void showPage() {
        page_ = std::min(page_, document_.pages.size() - 1);
        const std::wstring text =
            L"Page " + std::to_wstring(page_ + 1) + L" of " + std::to_wstring(document_.pages.size());
        SetWindowTextW(item(PREVIEW_NUMBER), text.c_str());
        SetWindowTextW(item(PREVIEW_PAGE), text.c_str());
        view_.show(document_, page_);
        enable(PREVIEW_PREVIOUS, page_ > 0);
        enable(PREVIEW_NEXT, page_ + 1 < document_.pages.size());
    }

    // A button that is disabled must not keep the focus, or no key would arrive any more.
    void enable(int control, bool enabled) const {
        if (!enabled && GetFocus() == item(control)) {
            SetFocus(item(PREVIEW_PAGE));
        }
        EnableWindow(item(control), enabled);
    }

    // The owner is enabled first, or another program's window would come to the front.
    void close() noexcept {
        if (window_ != nullptr) {
            EnableWindow(owner_, TRUE);
            DestroyWindow(window_);
        }
    }

    const PreviewActions& actions_;
    PrintDocument document_;
    PageView view_;
    HWND owner_ = nullptr;
    HWND window_ = nullptr;
    SIZE smallest_{};
    std::size_t page_ = 0;
};

}  // namespace

void showPreview(HWND owner, const PagePainter& painter, const PreviewActions& actions) {
    Preview(painter, actions).run(owner);
}

}  // namespace telvar::host
