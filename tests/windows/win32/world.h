// The world of these tests: a visible top-level window, a desktop, and a panel with one widget of every kind in a panel
// window. Pixels are read back from the screen's device context of a window.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/grid.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "win32/panel_window.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

// Ends with the test.
class TopWindow {
public:
    TopWindow(int width, int height);
    TopWindow(const TopWindow&) = delete;
    TopWindow& operator=(const TopWindow&) = delete;
    TopWindow(TopWindow&&) = delete;
    TopWindow& operator=(TopWindow&&) = delete;
    ~TopWindow();
    [[nodiscard]] HWND handle() const noexcept { return handle_; }

private:
    HWND handle_;
};

// The child window that shows a widget, found by its place on the scrolled surface; null for none. Of several at the
// same place the one that is shown as the widget is.
[[nodiscard]] HWND childThatShows(HWND parent, const ui::Widget& widget);

// The client area of a window as the screen shows it.
class Picture {
public:
    explicit Picture(HWND window);
    Picture(int width, int height, std::vector<COLORREF> pixels) noexcept
        : width_(width), height_(height), pixels_(std::move(pixels)) {}
    [[nodiscard]] COLORREF at(int x, int y) const {
        return pixels_.at((static_cast<std::size_t>(y) * static_cast<std::size_t>(width_)) +
                          static_cast<std::size_t>(x));
    }
    [[nodiscard]] int width() const noexcept { return width_; }
    [[nodiscard]] int height() const noexcept { return height_; }
    // How many pixels of a rectangle have that colour.
    [[nodiscard]] int count(const ui::Rect& part, COLORREF colour) const;
    [[nodiscard]] int differences(const Picture& other) const;
    // The smallest rectangle that encloses every difference; empty without any.
    [[nodiscard]] ui::Rect differing(const Picture& other) const;
    bool operator==(const Picture&) const = default;

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<COLORREF> pixels_;
};

struct Widgets {
    Widgets();
    ui::Panel panel{"panel"};
    ui::Grid grid{"fgdDatabase", 256, 27};
    ui::Label label{"lblSoftwareChannelSelect"};
    ui::TextBox text{"txtChannelSelect"};
    ui::Button button{"cmdChannelSelect"};
    ui::CheckBox check{"ckLockData"};
    ui::Frame frame{"frLockMode"};
    ui::OptionGroup group;
    ui::OptionButton none{"optLockMode0"};
    ui::OptionButton levels{"optLockMode1"};
    ui::ComboBox list{"pcmbDCSCodes"};
    ui::ComboBox typed{"cmbTyped", ui::ComboBox::Style::DropDown};
};

class World : public testing::Test {
protected:
    World();

    // Runs what is pending, painting included.
    void pump() { desktop.doEvents(); }
    // Pumps until it is so; a test fails when that takes longer than five seconds.
    bool until(const std::function<bool()>& condition);
    // The child window of a widget, found by its place in the panel.
    [[nodiscard]] HWND windowOf(const ui::Widget& widget) const;
    // As a message loop gives the host's keys to the control.
    bool press(WPARAM key, LPARAM character = 0);
    void type(HWND window, wchar_t character) { SendMessageW(window, WM_CHAR, character, 0); }
    void key(HWND window, WPARAM code) { SendMessageW(window, WM_KEYDOWN, code, 0); }
    void click(HWND window);

    WindowsDesktop desktop;
    TopWindow top{820, 600};
    Widgets widgets;
    std::unique_ptr<PanelWindow> panel;
};

// Presses a button of every message box that comes up meanwhile.
class BoxAnswers {
public:
    BoxAnswers(WindowsDesktop& desktop, int button);
    [[nodiscard]] const std::vector<std::string>& texts() const noexcept { return texts_; }
    [[nodiscard]] const std::vector<std::string>& titles() const noexcept { return titles_; }
    [[nodiscard]] HWND owner() const noexcept { return owner_; }

private:
    void look();
    int button_;
    std::vector<std::string> texts_;
    std::vector<std::string> titles_;
    HWND owner_ = nullptr;
    HWND answered_ = nullptr;
    ui::Timer timer_;
};

// Held down for the life of the object, as the thread sees it.
class HeldKey {
public:
    explicit HeldKey(int code) noexcept : code_(code) { set(0x80); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    HeldKey(HeldKey&&) = delete;
    HeldKey& operator=(HeldKey&&) = delete;
    ~HeldKey() { set(0); }

private:
    void set(BYTE state) const noexcept;
    int code_;
};

}  // namespace telvar::win32
