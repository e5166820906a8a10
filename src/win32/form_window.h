// The window of a form: one of its own, owned by the host's, with the look and the keys of a dialog. It stands from
// opening to closing only; a hidden form has none.
#pragma once

#include <windows.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "win32/container_window.h"
#include "win32/key_hook.h"
#include "win32/modal_time.h"
#include "win32/scroll_bars.h"

namespace telvar::win32 {

class FormWindow final : public ContainerWindow {
public:
    enum class Kind : std::uint8_t { Modal, Modeless };

    FormWindow(WindowsDesktop& desktop, ui::Form& form, Kind kind) noexcept
        : ContainerWindow(desktop, form), kind_(kind) {}

    [[nodiscard]] const ui::Widget* form() const noexcept { return container(); }
    [[nodiscard]] bool isModal() const noexcept { return kind_ == Kind::Modal; }

    // Makes the window, still invisible, and raises Load, in which it may end. A modeless form comes where it was last.
    // Throws base::Failure when the system refuses.
    void open(HWND owner);
    // Visible, in front, with the focus. Those windows take no input from now until it closes.
    void appear(const std::vector<HWND>& disabled);
    void bringToFront() noexcept;
    // The owner is active again and has the focus where the form wants it, or where it was.
    void close() noexcept;

    // Takes over a key that the thread's message queue has just given out: what is left in `message` brings it back
    // here when it is dispatched.
    void takeKey(MSG& message);

    // ---- PeerHost
    [[nodiscard]] bool looksDefault(const ui::Button& button) const noexcept override;
    [[nodiscard]] ui::Point scrolled() const noexcept override { return bars_.position(); }
    [[nodiscard]] std::shared_ptr<void> hold() const override;

    // ---- the form's peer
    void show(ui::Aspect changed) noexcept override;
    void widgetEnds() noexcept override;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void focusMoved() override;
    void focusSettled() override;
    [[nodiscard]] ui::Size sizeIn(ui::Size client) const override;
    void release() noexcept override;

private:
    static constexpr UINT keyTaken = WM_APP + 1;
    struct TakenKey {
        WPARAM number;
        MSG message;
    };

    [[nodiscard]] ui::Form* openForm() const noexcept { return static_cast<ui::Form*>(container()); }
    void placeFirst(HWND owner);
    [[nodiscard]] ui::Size wantedSize() const;
    [[nodiscard]] ui::Size wholeSize(const ui::Rect& screen) const;
    void place(const ui::Rect& bounds) noexcept;
    void fitToLayout();
    [[nodiscard]] std::vector<ui::Rect> arrangement() const;
    void paintAtOnce() const noexcept;
    void showBars();
    void revealFocus();
    bool scroll(UINT message, WPARAM wParam);
    void follow();
    void moveToDpi(int dpi, const RECT& suggested);
    void closedByUser();

    // ---- keys (form_window_keys.cpp)
    void deliver(WPARAM number);
    bool translate(const MSG& message);
    bool usedByHost(MSG& message);
    bool navigate(int code, const PeerPointer& focused);
    bool tab(const PeerPointer& focused, bool back);
    bool typed(wchar_t character, const PeerPointer& focused);
    [[nodiscard]] ui::Button* buttonThat(bool (ui::Button::*does)() const noexcept) const noexcept;
    bool press(ui::Button* button);

    Kind kind_;
    HWND focusBefore_ = nullptr;
    DisabledWindows disabled_;
    ScrollBars bars_;
    std::optional<KeyHook> hook_;
    std::deque<TakenKey> taken_;
    WPARAM lastNumber_ = 0;
    std::vector<ui::Rect> painted_;  // the arrangement that the user sees
    bool placing_ = true;            // its place is the program's, not the user's
};

}  // namespace telvar::win32
