// The desktop of a control in a Windows process: message boxes over the host's window, menus, pointer, clipboard,
// waiting, timers and work from other threads. Lives on the user-interface thread; only the dispatcher may be used from
// others.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/desktop.h"
#include "win32/controls_context.h"
#include "win32/dispatcher_window.h"
#include "win32/fonts.h"

namespace telvar::win32 {

class FormWindow;

class WindowsDesktop final : public ui::Desktop {
public:
    // What a control without a site leaves empty.
    struct Site {
        // The window that message boxes and forms belong to; null for none.
        std::function<HWND()> owner;
        // False before something modal is shown, True after it.
        std::function<void(bool enable)> enableModeless;
        // Called before every message of a form, every tick and every piece of queued work; what it answers is released
        // afterwards. Lets the owner of the forms live to the end of what its last user let go of it in.
        std::function<std::shared_ptr<void>()> holder;
        // A key that a modeless form has no use for: whether the host used it.
        std::function<bool(MSG& key)> hostKey;
    };

    WindowsDesktop();
    ~WindowsDesktop() override;
    void setSite(Site site) { site_ = std::move(site); }

    // Hides every open form, the last opened one first, and raises nothing: no CloseBox, no LostFocus. A modal form's
    // call returns when control comes back to its loop, and the windows that it disabled take input again at once. May
    // be called from inside any event, also of a form.
    void closeForms() noexcept;

    ui::Answer show(const ui::MessageBox& box) override;
    void showModal(ui::Form& form) override;
    void showModeless(ui::Form& form) override;
    void hide(ui::Form& form) override;
    [[nodiscard]] bool isOpen(const ui::Form& form) const override;
    void popUp(ui::Menu& menu, ui::Widget& widget, ui::Point at) override;
    void setPointer(ui::Pointer pointer) override;
    [[nodiscard]] std::optional<std::string> clipboardText() override;
    void setClipboardText(const std::string& text) override;
    bool doEvents() override;
    bool pumpUntil(const std::function<bool()>& done) override;
    [[nodiscard]] ui::Size screenSize() override;
    [[nodiscard]] ui::Rect workArea(const ui::Rect& at) override;
    [[nodiscard]] ui::Size measure(const std::string& text, int dpi) override;
    [[nodiscard]] base::Dispatcher& dispatcher() override;
    void whenIdle(std::function<void()> work) override;
    void startTimer(ui::Timer& timer, std::chrono::milliseconds interval) override;
    void stopTimer(ui::Timer& timer) noexcept override;

    // ---- for windows of this folder
    // Made once for each number of dots per inch, and again after the user's settings changed.
    [[nodiscard]] std::shared_ptr<const FormFont> font(int dpi);
    void forgetFonts() noexcept { fonts_.clear(); }
    // Answers a window's WM_SETCURSOR; False leaves the pointer to the window.
    [[nodiscard]] bool showPointer() const noexcept;
    void widgetShown(const ui::Widget& widget, HWND window) { windows_[&widget] = window; }
    // Null for a widget that no window shows.
    [[nodiscard]] HWND windowOf(const ui::Widget& widget) const noexcept {
        const auto found = windows_.find(&widget);
        return found != windows_.end() ? found->second : nullptr;
    }
    void windowGone(HWND window) noexcept {
        std::erase_if(windows_, [window](const auto& entry) { return entry.second == window; });
    }

    // To be active while controls are made.
    [[nodiscard]] const ControlsContext& controls() const noexcept { return controls_; }
    [[nodiscard]] std::shared_ptr<void> holdOwner() const { return site_.holder ? site_.holder() : nullptr; }
    void formGone(const FormWindow& window) noexcept;
    [[nodiscard]] bool offerToHost(MSG& key) const {
        const auto hostKey = site_.hostKey;
        return hostKey && hostKey(key);
    }

private:
    // ---- forms (windows_desktop_forms.cpp)
    // The window that something modal or a form belongs to now: a form in use, else the site's; null for none.
    [[nodiscard]] HWND ownerOfNext() const;
    // The site's window, or all of the thread's without a site, and our forms: what takes no input while something else
    // is modal.
    [[nodiscard]] std::vector<HWND> othersThan(HWND window) const;
    [[nodiscard]] std::shared_ptr<FormWindow> formWindowOf(const ui::Form& form) const noexcept;
    [[nodiscard]] std::shared_ptr<FormWindow> openWindow(const std::shared_ptr<FormWindow>& window, HWND owner);

    Site site_;
    std::shared_ptr<DispatcherWindow> messages_;
    ControlsContext controls_;
    std::map<int, std::shared_ptr<const FormFont>> fonts_;
    std::map<const ui::Widget*, HWND> windows_;
    std::vector<std::shared_ptr<FormWindow>> forms_;  // in the order of their opening
    ui::Pointer pointer_ = ui::Pointer::Default;
};

}  // namespace telvar::win32
