#include "form_world.h"

#include <chrono>

#include "win32/window_kinds.h"

namespace telvar::win32 {

FormWidgets::FormWidgets(ui::Desktop& desktop) {
    form.setCaption("Everything");
    nameLabel.setCaption("&Name");
    noteLabel.setCaption("N&ote");
    explanation.setCaption("A sentence that is too long for one line and goes on below.");
    constexpr int explanationWidth = 34;
    explanation.setWrapWidth(explanationWidth);
    band.setCaption("Band");
    wide.setCaption("&Wide");
    narrow.setCaption("Na&rrow");
    fixed.setCaption("&Fixed");
    for (ui::OptionButton* const option : {&wide, &narrow, &fixed}) {
        bands.add(*option);
        band.surround(*option);
    }
    wide.loadValue(true);
    locked.setCaption("&Locked");
    list.setCaption("DCS");
    list.addItem("023");
    list.addItem("025");
    list.addItem("026");
    tones.setCaption("CTCSS");
    tones.addItem("67.0");
    tones.addItem("69.3");
    level.setCaption("Level");
    level.setRange(-255, 0);
    ok.setCaption("OK");
    ok.setDefault(true);
    apply.setCaption("&Apply");
    cancel.setCaption("Cancel");
    cancel.setCancel(true);
    const std::array<ui::Widget*, 16> inOrder = {&nameLabel, &name,   &noteLabel, &note,   &explanation, &band,
                                                 &wide,      &narrow, &fixed,     &locked, &list,        &tones,
                                                 &level,     &ok,     &apply,     &cancel};
    for (ui::Widget* const child : inOrder) {
        form.add(*child);
    }
    using ui::Grow;
    form.setLayout(
        desktop,
        ui::withMargin(ui::column(
            {ui::row({ui::column({ui::table(2, {ui::widget(nameLabel), ui::widget(name, Grow::Wide),
                                                ui::widget(noteLabel), ui::widget(note, Grow::Wide)}),
                                  ui::widget(explanation),
                                  ui::framed(band, ui::row({ui::widget(wide), ui::widget(narrow), ui::widget(fixed)},
                                                           ui::Distance::Usual)),
                                  ui::widget(locked), ui::row({ui::widget(list), ui::widget(tones)})}),
                      ui::widget(level, Grow::High)},
                     ui::Distance::Usual),
             ui::buttonRow({&ok, &apply, &cancel})},
            ui::Distance::Usual)));
}

FormWorld::FormWorld() {
    desktop.setSite({.owner = [this] { return top.handle(); },
                     .enableModeless = [this](bool enable) { modeless.push_back(enable); }});
    pump();
}

bool FormWorld::until(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    bool met = false;
    desktop.pumpUntil([&] {
        met = condition();
        return met || std::chrono::steady_clock::now() > end;
    });
    EXPECT_TRUE(met);
    return met;
}

HWND FormWorld::window() const { return FindWindowW(win::classNameOf(formKind).c_str(), nullptr); }

void FormWorld::whenOpen(std::function<void()> then) {
    desktop.dispatcher().post([this, then = std::move(then)] {
        if (window() == nullptr || IsWindowVisible(window()) == FALSE) {
            whenOpen(then);
            return;
        }
        pump();
        then();
    });
}

HWND FormWorld::windowOf(const ui::Widget& widget) const { return childThatShows(window(), widget); }

std::string FormWorld::focused(const ui::Form& form) const {
    HWND focus = GetFocus();
    while (focus != nullptr && GetParent(focus) != window()) {
        focus = GetAncestor(focus, GA_PARENT);
    }
    for (const ui::Widget* const child : form.children()) {
        if (focus != nullptr && windowOf(*child) == focus) {
            return child->name();
        }
    }
    return {};
}

void FormWorld::click(HWND window) {
    const LPARAM at = MAKELPARAM(3, 3);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
}

void FormWorld::press(WORD code, std::initializer_list<WORD> held) {
    std::vector<INPUT> inputs;
    const auto add = [&inputs](WORD key, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = flags | (key >= VK_PRIOR && key <= VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0U);
        inputs.push_back(input);
    };
    for (const WORD key : held) {
        add(key, 0);
    }
    add(code, 0);
    add(code, KEYEVENTF_KEYUP);
    for (const WORD key : held) {
        add(key, KEYEVENTF_KEYUP);
    }
    EXPECT_EQ(SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)), inputs.size());
}

void FormWorld::key(WORD code, std::initializer_list<WORD> held) {
    press(code, held);
    inForeignLoop ? runForeignLoop() : pump();
}

void FormWorld::runForeignLoop() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void FormWorld::openModeless() {
    desktop.showModeless(widgets.form);
    pump();
}

}  // namespace telvar::win32
