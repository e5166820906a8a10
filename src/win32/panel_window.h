// The child window that an embedded control is: shows a panel, with one peer for each of its widgets, at the place that
// a container gives it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "base/pinned.h"
#include "ui/form.h"

namespace telvar::win32 {

class EmbeddedWindow;
class WindowsDesktop;

// All members belong on the user-interface thread. Panel and desktop must outlive the window, or the panel must end
// first, which leaves an empty window. The object may be destroyed from inside any callback or event.
class PanelWindow : private base::Pinned {
public:
    // Visible, with the panel's size and dots per inch set from the window. Throws base::Failure when the system
    // refuses.
    PanelWindow(WindowsDesktop& desktop, ui::Panel& panel, HWND parent, const RECT& at);
    ~PanelWindow();

    // Null once somebody destroyed the window, such as the parent in its own destruction.
    [[nodiscard]] HWND hwnd() const noexcept;
    // In the parent's client coordinates. `clip` is the part that may be seen; without one all of it.
    void move(const RECT& at, const RECT* clip = nullptr);
    void show(bool visible);

    // `entered`: the focus came to a widget from outside, which is what makes a control UI active. `left`: it went to
    // another window of the same top-level window. Neither is called for a message box or another program in front.
    void setFocusCallbacks(std::function<void()> entered, std::function<void()> left);
    // Called before every message of the window and its children; what it answers is released after the message. Lets
    // an owner live to the end of a message in whose course its last user let go of it.
    void setHolder(std::function<std::shared_ptr<void>()> holder);
    [[nodiscard]] bool hasFocus() const noexcept;
    // To the widget that had it last, or the first one.
    void focus();
    // For a host that comes in by Tab or by Shift+Tab.
    void focusFirst();
    void focusLast();

    // For the host's message loop, before its own accelerators. True: the key is done. False: it is the host's. A key
    // that the focused widget uses is delivered to it; Tab and Shift+Tab move inside and answer False at the ends,
    // where the host moves on; Alt with an access key of a widget acts on that widget.
    bool translateAccelerator(const MSG& message);
    // The same for a host that matches access keys itself. Answers whether some widget has that key.
    bool pressAccessKey(wchar_t character);

private:
    std::shared_ptr<EmbeddedWindow> window_;
};

}  // namespace telvar::win32
