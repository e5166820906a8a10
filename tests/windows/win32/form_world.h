// The world of the tests of forms: a visible top-level window as the host's, a desktop whose site it is, and a form
// with one widget of every kind. Keys are real messages, taken out of the queue by the loop that is running.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/slider.h"
#include "world.h"

namespace telvar::win32 {

struct FormWidgets {
    explicit FormWidgets(ui::Desktop& desktop);
    ui::Form form{"frmEverything"};
    ui::Label nameLabel{"lblName"};
    ui::TextBox name{"txtName"};
    ui::Label noteLabel{"lblNote"};
    ui::TextBox note{"txtNote"};
    ui::Label explanation{"lblExplanation"};
    ui::Frame band{"frBand"};
    ui::OptionGroup bands;
    ui::OptionButton wide{"optWide"};
    ui::OptionButton narrow{"optNarrow"};
    ui::OptionButton fixed{"optFixed"};
    ui::CheckBox locked{"ckLocked"};
    ui::ComboBox list{"cmbList"};
    ui::ComboBox tones{"cmbTones", ui::ComboBox::Style::DropDown};
    ui::Slider level{"sldLevel"};
    ui::Button ok{"cmdOk"};
    ui::Button apply{"cmdApply"};
    ui::Button cancel{"cmdCancel"};
};

class FormWorld : public testing::Test {
protected:
    FormWorld();

    void pump() { desktop.doEvents(); }
    bool until(const std::function<bool()>& condition);
    // Once the form is visible and has settled; for forms whose showing does not return at once.
    void whenOpen(std::function<void()> then);
    // Null while the form is hidden.
    [[nodiscard]] HWND window() const;
    [[nodiscard]] HWND windowOf(const ui::Widget& widget) const;
    // Name of the widget that has the focus, empty for none.
    [[nodiscard]] std::string focused() const { return focused(widgets.form); }
    [[nodiscard]] std::string focused(const ui::Form& form) const;
    void click(HWND window);
    // Pressed and released, with others held meanwhile; handled when this returns, by the desktop's loop or, if that is
    // set, by a host's that knows nothing of forms.
    void key(WORD code, std::initializer_list<WORD> held = {});
    bool inForeignLoop = false;
    // The whole of a host's loop, until the queue is empty.
    static void runForeignLoop();
    static void press(WORD code, std::initializer_list<WORD> held = {});
    // Until the form is not open any more.
    void untilClosed() {
        until([this] { return !desktop.isOpen(widgets.form); });
    }
    void openModeless();

    WindowsDesktop desktop;
    TopWindow top{900, 700};
    FormWidgets widgets{desktop};
    std::vector<bool> modeless;
};

}  // namespace telvar::win32
