// The one door to windows, clipboard, pointer and message loop. The portable control asks for everything here; tests
// have a desktop that answers by script and records what was asked.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/dispatcher.h"
#include "base/pinned.h"
#include "ui/geometry.h"

namespace telvar::ui {

class Form;
class Menu;
class Timer;
class Widget;

enum class Icon : std::uint8_t { None, Information, Exclamation };
enum class Buttons : std::uint8_t { Ok, OkCancel, YesNo };
// The platform's result codes.
enum class Answer : std::uint8_t { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

inline constexpr const char* defaultTitle = "Tesslin";

struct MessageBox {
    std::string text;
    std::string title = defaultTitle;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    bool operator==(const MessageBox&) const = default;
};

enum class Pointer : std::uint8_t { Default, Hourglass };

class Desktop : base::Pinned {
public:
    virtual ~Desktop() = default;

    // Modal to the window that owns the control. Anything may happen inside, as in every pump.
    virtual Answer show(const MessageBox& box) = 0;

    // Opens the form in the middle of the window that owns the control, after Load; returns when it was hidden.
    // Anything may happen inside. Fails (base::Failure) where no window can be made.
    virtual void showModal(Form& form) = 0;
    // Opens the form, or brings it to the front where it is open.
    virtual void showModeless(Form& form) = 0;
    virtual void hide(Form& form) = 0;
    [[nodiscard]] virtual bool isOpen(const Form& form) const = 0;

    // At a point of `widget`, in pixels; returns when the menu has closed, the chosen item has raised its Click by
    // then.
    virtual void popUp(Menu& menu, Widget& widget, Point at) = 0;

    virtual void setPointer(Pointer pointer) = 0;

    // Nothing where the clipboard holds no text; fails (base::Failure) where it cannot be opened.
    [[nodiscard]] virtual std::optional<std::string> clipboardText() = 0;
    virtual void setClipboardText(const std::string& text) = 0;

    // Runs what is pending; answers False where it met a quit message, which is posted again and not swallowed.
    virtual bool doEvents() = 0;
    // Pumps and sleeps in turns until `done` answers True or the message loop is quitting; answers whether it was done.
    virtual bool pumpUntil(const std::function<bool()>& done) = 0;

    [[nodiscard]] virtual Size screenSize() = 0;
    // Of the screen that most of a rectangle is on, else of the nearest one: what a window may cover, in pixels.
    [[nodiscard]] virtual Rect workArea(const Rect& at) = 0;
    // Pixels of one line in the font of forms at that many dots per inch.
    [[nodiscard]] virtual Size measure(const std::string& text, int dpi) = 0;

    [[nodiscard]] virtual base::Dispatcher& dispatcher() = 0;
    // Runs the work once, from the message loop, when nothing that the user did waits there any more and no posted work
    // does: for what has to keep up with a held key without holding it up. From the user-interface thread only; work
    // that is still waiting when the desktop ends is dropped.
    virtual void whenIdle(std::function<void()> work) = 0;

    // By Timer: calls timer.Tick() every `interval` until stopped.
    virtual void startTimer(Timer& timer, std::chrono::milliseconds interval) = 0;
    virtual void stopTimer(Timer& timer) noexcept = 0;
};

}  // namespace telvar::ui
