// What is painted in the user's own colours: every text can be read, whatever a program or the scheme put behind it.
#include "schemes.h"

#include <algorithm>

#include "base/readable_colour.h"
#include "edit_form_world.h"
#include "editing/frmFill.h"
#include "editing/frmMsgBox.h"
#include "png_file.h"
#include "ui/grid_layout.h"
#include "ui/menu.h"
#include "win/gdi.h"
#include "win32/fonts.h"
#include "win32/grid_painter.h"
#include "win32/window_kinds.h"

namespace telvar::win32 {
namespace {

constexpr int leastPixels = 5;

// ---- the grid and the panel around it

class PanelsInScheme : public World, public testing::WithParamInterface<Scheme> {
protected:
    PanelsInScheme() : scheme(GetParam()), window(windowOf(widgets.grid)) { pump(); }

    [[nodiscard]] ui::Rect placeOf(ui::Cell cell) {
        RECT client{};
        GetClientRect(window, &client);
        const ui::GridLayout layout(widgets.grid, {static_cast<int>(client.right), static_cast<int>(client.bottom)},
                                    GridPainter(desktop.font(96)).metrics());
        return layout.cellRect(cell);
    }
    [[nodiscard]] Picture painted() {
        InvalidateRect(window, nullptr, FALSE);
        UpdateWindow(window);
        return Picture(window);
    }
    void expectSeen(ui::Cell cell, double contrast = base::readableContrast) {
        widgets.grid.setText(cell.row, cell.column, "88.5");
        const Picture with = painted();
        widgets.grid.setText(cell.row, cell.column, "");
        EXPECT_GE(pixelsSeen(with, painted(), placeOf(cell), contrast), leastPixels)
            << "cell " << cell.row << ", " << cell.column;
    }

    SchemeInForce scheme;
    HWND window;
};

TEST_P(PanelsInScheme, EveryTextOfAWidgetIsSeen) {
    widgets.text.loadText("12");
    widgets.list.loadListIndex(0);
    widgets.typed.loadText("67.0");
    widgets.levels.setEnabled(false);
    pump();
    savePicture(panel->hwnd(), "panel-" + GetParam().name);
    expectTextsSeen(panel->hwnd(), widgets.panel);
}

TEST_P(PanelsInScheme, ARedTextIsSeen) {
    widgets.text.setForeColor(ui::red);
    widgets.text.loadText("12");
    widgets.typed.setForeColor(ui::red);
    widgets.typed.loadText("67.0");
    pump();
    expectTextsSeen(panel->hwnd(), widgets.panel);
}

TEST_P(PanelsInScheme, ABlackTextIsShownInTheSystemsColourAndStaysBlack) {
    widgets.text.setForeColor(ui::black);
    widgets.text.loadText("12");
    pump();
    expectTextsSeen(panel->hwnd(), widgets.panel);
    EXPECT_EQ(widgets.text.foreColor(), 0U);
}

TEST_P(PanelsInScheme, ATextIsSeenOnEveryColourOfACell) {
    for (const ui::Colour colour : {ui::white, ui::green, ui::red, ui::Colour{0x00FFFF}, ui::Colour{0x800000},
                                    ui::Colour{0x808080}, ui::Colour{0x010101}, ui::windowBackground}) {
        SCOPED_TRACE(colour);
        widgets.grid.setCellBackColor(5, 3, colour);
        widgets.grid.setCellBackColor(0, 3, colour);
        expectSeen({5, 3});
        expectSeen({0, 3});
    }
}

TEST_P(PanelsInScheme, ASelectedTextIsSeenWithTheFocusAndWithout) {
    widgets.grid.select({2, 1}, {3, 2});
    SetFocus(window);
    pump();
    // This pair is the system's own, and not ours to better.
    expectSeen({3, 2}, std::min(base::readableContrast,
                                base::contrast(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT))));
    SetFocus(top.handle());
    pump();
    expectSeen({3, 2});
}

TEST_P(PanelsInScheme, TheHeadersOfTheCurrentCellAreSeen) {
    widgets.grid.setCurrent({4, 3});
    expectSeen({0, 3});
    expectSeen({4, 0});
    expectSeen({0, 4});
    widgets.grid.setCellBackColor(0, 3, ui::green);
    expectSeen({0, 3});
}

TEST_P(PanelsInScheme, TheTextOfADisabledGridIsSeen) {
    constexpr double ofDisabled = 1.6;
    widgets.grid.setEnabled(false);
    expectSeen({5, 3}, ofDisabled);
}

INSTANTIATE_TEST_SUITE_P(Schemes, PanelsInScheme, testing::ValuesIn(everyScheme()));

// ---- a scheme that changes while windows stand

class ChangingScheme : public World {
protected:
    // Paints over a window, behind its back.
    static void soil(HWND window) {
        const win::WindowContext screen(window);
        RECT client{};
        GetClientRect(window, &client);
        const win::Brush brush(CreateSolidBrush(mark));
        FillRect(screen.get(), &client, brush.get());
    }
    [[nodiscard]] static int soiled(HWND window) {
        const Picture picture(window);
        return picture.count({0, 0, picture.width(), picture.height()}, mark);
    }
    static constexpr COLORREF mark = RGB(255, 0, 255);
};

TEST_F(ChangingScheme, WindowsThatStandTakeTheNewColours) {
    widgets.text.loadText("12");
    pump();
    const SchemeInForce scheme(whiteOnBlack());
    pump();
    for (const HWND window : {windowOf(widgets.grid), windowOf(widgets.text)}) {
        const Picture picture(window);
        EXPECT_EQ(picture.at(picture.width() - 3, picture.height() - 3), RGB(0, 0, 0));
    }
    EXPECT_EQ(Picture(panel->hwnd()).at(2, 2), RGB(0, 0, 0));
    expectTextsSeen(panel->hwnd(), widgets.panel);
}

TEST_F(ChangingScheme, EveryChildIsPaintedAnewWhenColoursOrThemeChange) {
    for (const UINT message : {static_cast<UINT>(WM_SYSCOLORCHANGE), static_cast<UINT>(WM_THEMECHANGED)}) {
        for (const HWND window : {windowOf(widgets.grid), windowOf(widgets.text), windowOf(widgets.check)}) {
            soil(window);
            ASSERT_GT(soiled(window), 0);
            SendMessageW(panel->hwnd(), message, 0, 0);
            pump();
            EXPECT_EQ(soiled(window), 0) << message;
        }
    }
}

// The system tells only some windows; the grid may be the one.
TEST_F(ChangingScheme, TheGridIsPaintedAnewWhenItIsToldItself) {
    const HWND window = windowOf(widgets.grid);
    for (const UINT message : {static_cast<UINT>(WM_SYSCOLORCHANGE), static_cast<UINT>(WM_THEMECHANGED)}) {
        soil(window);
        SendMessageW(window, message, 0, 0);
        pump();
        EXPECT_EQ(soiled(window), 0) << message;
    }
}

// ---- the forms

class FormsInBlack : public EditFormWorld {
protected:
    // Opens the form and leaves a picture of it.
    void expectSeen(ui::Form& shown, const std::string& name) {
        desktop.showModeless(shown);
        pump();
        const HWND standing = FindWindowW(win::classNameOf(formKind).c_str(), nullptr);
        ASSERT_NE(standing, nullptr);
        savePicture(standing, name + "-black");
        expectTextsSeen(standing, shown);
        desktop.hide(shown);
    }

    SchemeInForce black{whiteOnBlack()};
};

TEST_F(FormsInBlack, EveryKindOfWidgetIsSeen) {
    widgets.name.loadText("Selected text");
    widgets.list.loadListIndex(0);
    widgets.tones.loadText("67.0");
    widgets.narrow.setEnabled(false);
    widgets.note.loadText("disabled");
    widgets.note.setEnabled(false);
    expectSeen(widgets.form, "frmEverything");
}

TEST_F(FormsInBlack, EveryTextOfTheEditFormIsSeen) {
    load({{ChannelKey::TxSub, 88.5F}, {ChannelKey::RxSub, 123.0F}, {ChannelKey::TxPower, 200}});
    form->UpdateAccess(5);
    form->setSelectedChannels(5, 10);
    expectSeen(*form, "frmChannelEdit");
}

TEST_F(FormsInBlack, EveryErrorOfTheEditFormIsSeen) {
    load({{ChannelKey::TxSub, 88.5F}, {ChannelKey::RxSub, 123.0F}});
    form->UpdateAccess(5);
    for (ui::Widget* const field : form->markableFields()) {
        field->setForeColor(ui::red);
    }
    expectSeen(*form, "frmChannelEdit-errors");
}

TEST_F(FormsInBlack, EveryLockedFieldOfTheEditFormIsSeen) {
    load({{ChannelKey::TxSub, 88.5F}, {ChannelKey::RxSub, 123.0F}});
    form->UpdateAccess(5);
    form->setLockDataMode(1);
    expectSeen(*form, "frmChannelEdit-lock-1");
    form->setLockDataMode(2);
    expectSeen(*form, "frmChannelEdit-lock-2");
}

TEST_F(FormsInBlack, EveryTextOfTheFillDialogIsSeen) {
    session::Session session(desktop, {});
    editing::GridRows rows(session, grid);
    ui::MenuItem undo{"mnuUndo", "&Undo"};
    ui::MenuItem redo{"mnuRedo", "&Redo"};
    editing::UndoHistory history(rows, undo, redo);
    editing::frmFill fill(rows, history);
    fill.offerSeries();
    expectSeen(fill, "frmFill-series");
    fill.offerFillDown();
    expectSeen(fill, "frmFill-down");
}

TEST_F(FormsInBlack, EveryTextOfTheMessageBoxIsSeen) {
    editing::frmMsgBox box(desktop);
    box.InitControls("Changes will also be copied to the other selected channels. Would you like to proceed?");
    expectSeen(box, "frmMsgBox");
}

}  // namespace
}  // namespace telvar::win32
