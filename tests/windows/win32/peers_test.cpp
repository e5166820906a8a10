#include "world.h"

#include "win/gdi.h"
#include "win32/convert.h"

namespace telvar::win32 {
namespace {

class Peers : public World {};

TEST_F(Peers, ShowTheStateThatTheirWidgetsHadBefore) {
    panel.reset();
    widgets.text.loadText("12é€");
    widgets.text.setReadOnly(true);
    widgets.button.setEnabled(false);
    widgets.check.loadValue(2);
    widgets.levels.loadValue(true);
    widgets.list.loadListIndex(1);
    widgets.typed.loadText("77.7");
    widgets.label.setVisible(false);
    RECT client{};
    GetClientRect(top.handle(), &client);
    panel = std::make_unique<PanelWindow>(desktop, widgets.panel, top.handle(), client);

    EXPECT_EQ(windowText(windowOf(widgets.text)), "12é€");
    EXPECT_NE(GetWindowLongW(windowOf(widgets.text), GWL_STYLE) & ES_READONLY, 0);
    EXPECT_FALSE(IsWindowEnabled(windowOf(widgets.button)));
    EXPECT_EQ(SendMessageW(windowOf(widgets.check), BM_GETCHECK, 0, 0), BST_INDETERMINATE);
    EXPECT_EQ(SendMessageW(windowOf(widgets.levels), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(windowOf(widgets.none), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_EQ(SendMessageW(windowOf(widgets.list), CB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(SendMessageW(windowOf(widgets.list), CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(windowText(windowOf(widgets.typed)), "77.7");
    EXPECT_FALSE(IsWindowVisible(windowOf(widgets.label)));
    EXPECT_EQ(windowText(windowOf(widgets.button)), "S&elect");
}

TEST_F(Peers, FollowTheirWidgets) {
    widgets.text.setText("7");
    widgets.text.setSelection(0, 1);
    widgets.button.setCaption("&Go");
    widgets.check.setValue(1);
    widgets.levels.setValue(true);
    widgets.list.setListIndex(0);
    widgets.list.addItem("026");
    widgets.label.setBounds({300, 450, 400, 470});

    EXPECT_EQ(windowText(windowOf(widgets.text)), "7");
    DWORD start = 9;
    DWORD end = 9;
    SendMessageW(windowOf(widgets.text), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0U);
    EXPECT_EQ(end, 1U);
    EXPECT_EQ(windowText(windowOf(widgets.button)), "&Go");
    EXPECT_EQ(SendMessageW(windowOf(widgets.check), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(windowOf(widgets.levels), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(windowOf(widgets.list), CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(SendMessageW(windowOf(widgets.list), CB_GETCOUNT, 0, 0), 3);
    EXPECT_NE(windowOf(widgets.label), nullptr);
}

TEST_F(Peers, RaiseNothingForWhatTheProgramShows) {
    int changes = 0;
    int clicks = 0;
    widgets.text.Change.connect([&] { ++changes; });
    widgets.typed.Change.connect([&] { ++changes; });
    widgets.check.Click.connect([&] { ++clicks; });
    widgets.levels.Click.connect([&] { ++clicks; });
    widgets.list.Click.connect([&] { ++clicks; });

    widgets.text.loadText("12");
    widgets.typed.loadText("99.9");
    widgets.check.loadValue(1);
    widgets.levels.loadValue(true);
    widgets.list.loadListIndex(1);
    pump();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(clicks, 0);

    widgets.text.setText("13");
    pump();
    EXPECT_EQ(changes, 1);
}

TEST_F(Peers, ReportWhatTheUserTypes) {
    std::vector<std::string> texts;
    widgets.text.Change.connect([&] { texts.push_back(widgets.text.text()); });
    SetFocus(windowOf(widgets.text));
    type(windowOf(widgets.text), L'1');
    type(windowOf(widgets.text), L'é');

    EXPECT_EQ(texts, (std::vector<std::string>{"1", "1é"}));
    EXPECT_EQ(widgets.text.selStart(), 2);
}

TEST_F(Peers, ReportTheUsersSelectionOfText) {
    widgets.text.setText("145");
    SetFocus(windowOf(widgets.text));
    pump();
    key(windowOf(widgets.text), VK_END);
    EXPECT_EQ(widgets.text.selStart(), 3);
    const HeldKey shift(VK_SHIFT);
    key(windowOf(widgets.text), VK_LEFT);
    EXPECT_EQ(widgets.text.selStart(), 2);
    EXPECT_EQ(widgets.text.selLength(), 1);
}

TEST_F(Peers, AHandlerSwallowsOrChangesAKey) {
    widgets.text.KeyPress.connect([](ui::KeyPressEvent& event) { event.code = event.code == 'x' ? 0 : 'B'; });
    SetFocus(windowOf(widgets.text));
    type(windowOf(widgets.text), L'x');
    type(windowOf(widgets.text), L'a');
    EXPECT_EQ(widgets.text.text(), "B");
}

TEST_F(Peers, ReportClicks) {
    std::vector<std::string> clicked;
    widgets.button.Click.connect([&] { clicked.emplace_back("button"); });
    widgets.check.Click.connect([&] { clicked.emplace_back("check"); });
    widgets.levels.Click.connect([&] { clicked.emplace_back("levels"); });
    click(windowOf(widgets.button));
    click(windowOf(widgets.check));
    click(windowOf(widgets.levels));
    click(windowOf(widgets.levels));

    EXPECT_EQ(clicked, (std::vector<std::string>{"button", "check", "levels"}));
    EXPECT_EQ(widgets.check.value(), 1);
    EXPECT_EQ(SendMessageW(windowOf(widgets.check), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_TRUE(widgets.levels.value());
}

TEST_F(Peers, FocusAloneDoesNotChooseAnOption) {
    int clicks = 0;
    widgets.levels.Click.connect([&] { ++clicks; });
    SetFocus(windowOf(widgets.levels));
    pump();
    EXPECT_EQ(clicks, 0);
    EXPECT_FALSE(widgets.levels.value());
}

TEST_F(Peers, ArrowKeysChooseTheNeighbouringOption) {
    widgets.none.loadValue(true);
    SetFocus(windowOf(widgets.none));
    pump();
    int clicks = 0;
    widgets.levels.Click.connect([&] { ++clicks; });
    EXPECT_TRUE(press(VK_DOWN));
    EXPECT_TRUE(widgets.levels.value());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(GetFocus(), windowOf(widgets.levels));
}

TEST_F(Peers, ReportTheChosenEntryOfAList) {
    std::vector<int> chosen;
    widgets.list.Click.connect([&] { chosen.push_back(widgets.list.listIndex()); });
    SetFocus(windowOf(widgets.list));
    key(windowOf(widgets.list), VK_DOWN);
    key(windowOf(widgets.list), VK_DOWN);
    EXPECT_EQ(chosen, (std::vector<int>{0, 1}));
}

TEST_F(Peers, ReportTextTypedIntoAList) {
    int changes = 0;
    widgets.typed.Change.connect([&] { ++changes; });
    const HWND field = GetWindow(windowOf(widgets.typed), GW_CHILD);
    SetFocus(field);
    type(field, L'8');
    EXPECT_EQ(widgets.typed.text(), "8");
    EXPECT_EQ(changes, 1);
}

TEST_F(Peers, TheOrderIsLostFocusGotFocusClick) {
    std::vector<std::string> happened;
    widgets.text.GotFocus.connect([&] { happened.emplace_back("text got"); });
    widgets.text.LostFocus.connect([&] { happened.emplace_back("text lost"); });
    widgets.button.GotFocus.connect([&] { happened.emplace_back("button got"); });
    widgets.button.Click.connect([&] { happened.emplace_back("click"); });
    SetFocus(windowOf(widgets.text));
    pump();
    click(windowOf(widgets.button));
    EXPECT_EQ(happened, (std::vector<std::string>{"text got", "text lost", "button got", "click"}));
}

TEST_F(Peers, AFieldIsLeftOnlyAfterTheSystemsFocusChangeIsOver) {
    HWND focusInside = nullptr;
    widgets.text.LostFocus.connect([&] { focusInside = GetFocus(); });
    SetFocus(windowOf(widgets.text));
    pump();
    SetFocus(windowOf(widgets.check));
    EXPECT_EQ(focusInside, nullptr);
    pump();
    EXPECT_EQ(focusInside, windowOf(widgets.check));
}

TEST_F(Peers, AMessageBoxInLostFocusDoesNotSwallowTheClick) {
    int clicks = 0;
    widgets.button.Click.connect([&] { ++clicks; });
    widgets.text.LostFocus.connect([&] { desktop.show({.text = "Invalid"}); });
    const BoxAnswers answers(desktop, IDOK);
    SetFocus(windowOf(widgets.text));
    pump();
    const LPARAM at = MAKELPARAM(3, 3);
    PostMessageW(windowOf(widgets.button), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(windowOf(widgets.button), WM_LBUTTONUP, 0, at);
    until([&] { return clicks > 0; });
    EXPECT_EQ(answers.texts(), std::vector<std::string>{"Invalid"});
    EXPECT_EQ(clicks, 1);
}

TEST_F(Peers, AnotherTopLevelWindowLeavesNoField) {
    int lost = 0;
    widgets.text.LostFocus.connect([&] { ++lost; });
    SetFocus(windowOf(widgets.text));
    pump();
    const TopWindow other(200, 100);
    pump();
    EXPECT_NE(GetFocus(), windowOf(widgets.text));
    EXPECT_EQ(lost, 0);
}

TEST_F(Peers, UseTheColourOfTheirWidget) {
    widgets.text.setForeColor(ui::red);
    const win::WindowContext screen(windowOf(widgets.text));
    SendMessageW(panel->hwnd(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(screen.get()),
                 reinterpret_cast<LPARAM>(windowOf(widgets.text)));
    EXPECT_EQ(GetTextColor(screen.get()), RGB(255, 0, 0));
    EXPECT_EQ(GetBkColor(screen.get()), GetSysColor(COLOR_WINDOW));
}

TEST_F(Peers, OutliveTheirWidgets) {
    auto box = std::make_unique<ui::CheckBox>("ckShort");
    ui::Panel surface("surface");
    box->setBounds({1, 1, 80, 20});
    surface.add(*box);
    PanelWindow window(desktop, surface, top.handle(), {0, 500, 100, 530});
    const HWND shown = GetWindow(window.hwnd(), GW_CHILD);
    ASSERT_NE(shown, nullptr);
    box.reset();
    click(shown);
    key(shown, VK_SPACE);
    pump();
    EXPECT_FALSE(IsWindowVisible(shown));
}

TEST_F(Peers, AFrameLiesBehindWhatItSurrounds) {
    HWND last = GetWindow(windowOf(widgets.grid), GW_HWNDLAST);
    EXPECT_EQ(last, windowOf(widgets.frame));
}

}  // namespace
}  // namespace telvar::win32
