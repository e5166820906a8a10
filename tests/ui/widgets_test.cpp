#include <gtest/gtest.h>

#include <memory>

#include "recording_peers.h"
#include "support/test_desktop.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using ui::Aspect;
using Aspects = std::vector<Aspect>;

template <class... Arguments>
void countInto(base::Event<Arguments...>& event, int& count) {
    event.connect([&count](Arguments...) { ++count; });
}

TEST(TextBox, ATextSetByProgramRaisesChangeOnlyWhenItDiffers) {
    ui::TextBox box("txt");
    int changes = 0;
    countInto(box.Change, changes);
    box.setText("12");
    box.setText("12");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(box.text(), "12");
}

TEST(TextBox, LoadingIsQuiet) {
    ui::TextBox box("txt");
    int changes = 0;
    countInto(box.Change, changes);
    EXPECT_TRUE(box.loadText("12"));
    EXPECT_FALSE(box.loadText("12"));
    EXPECT_EQ(changes, 0);
}

TEST(TextBox, ANewTextCollapsesTheSelection) {
    ui::TextBox box("txt");
    box.setText("1234");
    box.selectAll();
    EXPECT_EQ(box.selLength(), 4);
    box.setText("5");
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(box.selLength(), 0);
}

TEST(TextBox, TypingRaisesChangeAndIsNotShownAgain) {
    ui::TextBox box("txt");
    RecordingPeer peer;
    box.attach(peer);
    peer.shown.clear();
    int changes = 0;
    countInto(box.Change, changes);
    box.userTyped("7");
    box.userTyped("7");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(box.text(), "7");
    EXPECT_EQ(peer.shown, Aspects{});
    box.detach();
}

TEST(CheckBox, ClicksByProgramAndByTheUserAreTheSame) {
    ui::CheckBox box("ck");
    int clicks = 0;
    countInto(box.Click, clicks);
    box.setValue(1);
    box.setValue(1);
    EXPECT_EQ(clicks, 1);
    box.userClick();
    EXPECT_EQ(box.value(), 0);
    EXPECT_EQ(clicks, 2);
    box.loadValue(2);
    EXPECT_FALSE(box.checked());
    EXPECT_EQ(clicks, 2);
}

TEST(CheckBox, WhatCannotBeSeenOrUsedCannotBeClicked) {
    ui::CheckBox box("ck");
    box.setEnabled(false);
    box.userClick();
    box.setEnabled(true);
    box.setVisible(false);
    box.userClick();
    EXPECT_EQ(box.value(), 0);
}

struct Options : testing::Test {
    Options() {
        for (auto* button : {&first, &second, &third}) {
            group.add(*button);
        }
        countInto(first.Click, firstClicks);
        countInto(second.Click, secondClicks);
    }
    ui::OptionGroup group;
    ui::OptionButton first{"opt(0)"};
    ui::OptionButton second{"opt(1)"};
    ui::OptionButton third{"opt(2)"};
    int firstClicks = 0;
    int secondClicks = 0;
};

TEST_F(Options, NoneIsSelectedAtFirst) { EXPECT_EQ(group.selected(), -1); }

TEST_F(Options, SelectingOneDeselectsTheOthersQuietly) {
    first.setValue(true);
    second.setValue(true);
    EXPECT_EQ(group.selected(), 1);
    EXPECT_FALSE(first.value());
    EXPECT_EQ(firstClicks, 1);
    EXPECT_EQ(secondClicks, 1);
}

TEST_F(Options, SelectingTheSelectedOneOrDeselectingRaisesNothing) {
    first.setValue(true);
    first.setValue(true);
    first.setValue(false);
    EXPECT_EQ(firstClicks, 1);
    EXPECT_EQ(group.selected(), -1);
}

TEST_F(Options, LoadingIsQuietAndStillExclusive) {
    first.loadValue(true);
    second.loadValue(true);
    EXPECT_EQ(group.selected(), 1);
    EXPECT_EQ(firstClicks + secondClicks, 0);
}

TEST_F(Options, DeselectedButtonsShowIt) {
    RecordingPeer peer;
    first.loadValue(true);
    first.attach(peer);
    peer.shown.clear();
    second.setValue(true);
    EXPECT_EQ(peer.shown, Aspects{Aspect::Value});
    first.detach();
}

TEST_F(Options, ADisabledButtonCannotBeClicked) {
    second.setEnabled(false);
    second.userClick();
    EXPECT_EQ(group.selected(), -1);
}

TEST(ComboBox, KeepsTheOrderInWhichItWasFilled) {
    ui::ComboBox box("cmb");
    box.addItem("b");
    box.addItem("a");
    EXPECT_EQ(box.items(), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(box.listIndex(), -1);
}

TEST(ComboBox, AnIndexThatItDoesNotHaveKeepsTheSelection) {
    ui::ComboBox box("cmb");
    box.addItem("a");
    box.addItem("b");
    int clicks = 0;
    countInto(box.Click, clicks);
    box.setListIndex(1);
    box.setListIndex(2);
    box.setListIndex(-2);
    EXPECT_EQ(box.listIndex(), 1);
    EXPECT_EQ(box.text(), "b");
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(box.loadListIndex(0));
    EXPECT_EQ(clicks, 1);
}

TEST(ComboBox, AnUnknownTextIsTakenOnlyWhereItCanBeTyped) {
    ui::ComboBox list("cmb");
    list.addItem("67.0");
    list.setListIndex(0);
    list.loadText("68.0");
    EXPECT_EQ(list.listIndex(), 0);

    ui::ComboBox typed("cmb", ui::ComboBox::Style::DropDown);
    typed.addItem("67.0");
    typed.loadText("68.0");
    EXPECT_EQ(typed.listIndex(), -1);
    EXPECT_EQ(typed.text(), "68.0");
    typed.loadText("67.0");
    EXPECT_EQ(typed.listIndex(), 0);
}

TEST(ComboBox, ClearForgetsTheSelection) {
    ui::ComboBox box("cmb");
    box.addItem("a");
    box.setListIndex(0);
    box.clear();
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(box.listCount(), 0);
}

TEST(Button, OnlyAnEnabledVisibleButtonCanBePressed) {
    ui::Button button("cmd");
    int clicks = 0;
    countInto(button.Click, clicks);
    button.userPress();
    button.setEnabled(false);
    button.userPress();
    button.setEnabled(true);
    button.setVisible(false);
    button.userPress();
    EXPECT_EQ(clicks, 1);
}

TEST(MenuItem, ADisabledItemCannotBeChosen) {
    ui::MenuItem item("mnuUndo", "Undo");
    int clicks = 0;
    countInto(item.Click, clicks);
    item.userChoose();
    item.setEnabled(false);
    item.userChoose();
    EXPECT_EQ(clicks, 1);
}

TEST(Peer, ShowsThePresentStateEachTimeItIsAttached) {
    ui::Label label("lbl");
    RecordingPeer peer;
    for (int round = 0; round < 3; ++round) {
        label.attach(peer);
        label.setCaption("caption " + std::to_string(round));
        label.detach();
        label.setCaption("unseen");
    }
    EXPECT_EQ(peer.shown, (Aspects{Aspect::Everything, Aspect::Text, Aspect::Everything, Aspect::Text,
                                   Aspect::Everything, Aspect::Text}));
}

TEST(Peer, IsToldTheWidgetsEndOnlyWhileItIsAttached) {
    RecordingPeer attached;
    RecordingPeer detached;
    {
        ui::Label one("lbl");
        ui::Label other("lbl");
        one.attach(attached);
        other.attach(detached);
        other.detach();
    }
    EXPECT_TRUE(attached.ended);
    EXPECT_FALSE(detached.ended);
}

TEST(Peer, IsToldOncePerChangeWithItsAspect) {
    ui::Label label("lbl");
    RecordingPeer peer;
    label.attach(peer);
    peer.shown.clear();
    label.setEnabled(false);
    label.setEnabled(false);
    label.setVisible(false);
    label.setForeColor(ui::red);
    label.setBounds({1, 2, 3, 4});
    label.setBounds({1, 2, 3, 4});
    EXPECT_EQ(peer.shown, (Aspects{Aspect::Enabled, Aspect::Visible, Aspect::Colours, Aspect::Bounds}));
    label.detach();
}

TEST(Peer, TakesTheFocusAndReportsItItself) {
    ui::Label label("lbl");
    int focused = 0;
    countInto(label.GotFocus, focused);
    label.setFocus();
    EXPECT_EQ(focused, 1);
    RecordingPeer peer;
    label.attach(peer);
    label.setFocus();
    EXPECT_EQ(peer.focused, 1);
    EXPECT_EQ(focused, 1);
    label.detach();
}

TEST(Frame, KeepsItsWidthWithEachOfTheCaptionsThatItIsReservedFor) {
    TestDesktop desktop;
    const ui::Metrics metrics(desktop, ui::standardDpi);
    ui::Frame frame("fr");
    frame.setCaption("Wide Band");
    const int narrow = frame.wantedSize(metrics).width;
    frame.reserveFor({"Wide Band", "Narrow Band Only Channel Spacing"});
    const int wide = frame.wantedSize(metrics).width;
    EXPECT_GT(wide, narrow);
    frame.setCaption("Narrow Band Only Channel Spacing");
    EXPECT_EQ(frame.wantedSize(metrics).width, wide);
    frame.setCaption("A caption that nobody reserved any room for, and longer");
    EXPECT_GT(frame.wantedSize(metrics).width, wide);
}

TEST(Container, TellsANewSizeOnce) {
    ui::Panel panel("panel");
    int resizes = 0;
    countInto(panel.Resize, resizes);
    panel.setSize({100, 50}, 96);
    panel.setSize({100, 50}, 96);
    panel.setSize({100, 50}, 144);
    EXPECT_EQ(resizes, 2);
}

TEST(Timer, RunsWhileItIsEnabledAndHasAnInterval) {
    TestDesktop desktop;
    int ticks = 0;
    {
        ui::Timer timer(desktop);
        countInto(timer.Tick, ticks);
        EXPECT_FALSE(desktop.runs(timer));
        timer.setInterval(200ms);
        EXPECT_TRUE(desktop.runs(timer));
        desktop.advance(1000ms);
        EXPECT_EQ(ticks, 5);
        timer.setEnabled(false);
        desktop.advance(1000ms);
        timer.setEnabled(true);
        desktop.advance(199ms);
        EXPECT_EQ(ticks, 5);
        desktop.advance(1ms);
        EXPECT_EQ(ticks, 6);
        timer.setInterval(0ms);
        EXPECT_FALSE(desktop.runs(timer));
        timer.setInterval(50ms);
    }
    desktop.advance(1000ms);
    EXPECT_EQ(ticks, 6);
}

TEST(Twips, AreRoundedToTheNearestPixelBothWays) {
    EXPECT_EQ(ui::pixelsOf(80, 96), 5);
    EXPECT_EQ(ui::pixelsOf(880, 96), 59);
    EXPECT_EQ(ui::pixelsOf(880, 144), 88);
    EXPECT_EQ(ui::pixelsOf(880, 192), 117);
    EXPECT_EQ(ui::twipsOf(96, 96), 1440);
    EXPECT_EQ(ui::pixelsOf(-80, 96), -5);
}

}  // namespace
}  // namespace telvar::tests
