#include "control_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using ui::CellRange;

class ChannelSelection : public ControlWorld {
protected:
    void type(const std::string& text) { control->txtChannelSelect.setText(text); }
    [[nodiscard]] const std::string& typed() const { return control->txtChannelSelect.text(); }
    void press() { control->cmdChannelSelect.userPress(); }
};

const ui::MessageBox invalidSelection{
    .text = "Channel Not configured correctly or Invalid channel selection.\r\nPlease configure the channel (1-255) by "
            "clicking on its respective row on the grid.",
    .title = "Telvar: Invalid Channel Selection"};

// -- the highlighted channel -----------------------------------------------------------------------------------------

TEST_F(ChannelSelection, HighlightingSelectsTheRowFromItsFirstToItsLastColumn) {
    control->HighLightChannel(17);
    EXPECT_EQ(grid().row(), 17);
    EXPECT_EQ(grid().column(), 1);
    EXPECT_EQ(grid().rowSel(), 17);
    EXPECT_EQ(grid().columnSel(), 26);
}

TEST_F(ChannelSelection, HighlightingResetsTheRowsColours) {
    control->SetRowBackColour(17, 255);
    control->SetRowBackColour(18, 255);
    control->HighLightChannel(17);
    for (int column = 0; column < 27; ++column) {
        EXPECT_EQ(grid().cellBackColor(17, column), 0U);
    }
    EXPECT_EQ(grid().cellBackColor(18, 1), 255U);
}

TEST_F(ChannelSelection, BothEndsOfTheTableCanBeHighlighted) {
    control->HighLightChannel(1);
    EXPECT_EQ(grid().row(), 1);
    control->HighLightChannel(255);
    EXPECT_EQ(grid().row(), 255);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ChannelSelection, TheSelectionFollowsTheStoresChannel) {
    store->put(StoreMember::SelectedChannel, std::int16_t{42});
    control->UpdateChannelSelection();
    EXPECT_EQ(selection(), (CellRange{42, 1, 42, 26}));
    EXPECT_EQ(typed(), "42");
}

struct NoChannelValue {
    const char* name;
    base::Value value;
};
class NoChannel : public ChannelSelection, public testing::WithParamInterface<NoChannelValue> {};

TEST_P(NoChannel, EmptiesTheBoxAndKeepsTheSelection) {
    control->HighLightChannel(3);
    type("12");
    decorate<AnsweringStore>()->answer(StoreMember::SelectedChannel, GetParam().value);
    control->UpdateChannelSelection();
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(selection(), (CellRange{3, 1, 3, 26}));
    EXPECT_EQ(boxes(), Boxes{});
    desktop.advance(200ms);
    EXPECT_FALSE(grid().highlightShown());
}

TEST_P(NoChannel, LetsARefreshGoOn) {
    fillDistinct(*store, 255);
    decorate<AnsweringStore>()->answer(StoreMember::SelectedChannel, GetParam().value);
    control->UpdateControlsFromMemory();
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(grid().text(255, 1), renderedRow(*store, 255)[1]);
    EXPECT_EQ(store->get(StoreMember::GridLoaded), base::Value{true});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_P(NoChannel, ReadBackAfterADoubleClickIsShownAsTheTextThatItHas) {
    control->DistributeDataStoreLink();
    decorate<AnsweringStore>()->answer(StoreMember::SelectedChannel, GetParam().value);
    grid().select({7, 3}, {7, 3});
    doubleClickCurrent();
    std::string text;
    if (!std::holds_alternative<base::Unusable>(GetParam().value)) {
        text = base::toText(GetParam().value);
    }
    EXPECT_EQ(typed(), text);
    EXPECT_TRUE(desktop.isOpen(control->frmCE));
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(
    All, NoChannel,
    testing::Values(NoChannelValue{"Zero", std::int16_t{0}}, NoChannelValue{"Minus1", std::int16_t{-1}},
                    NoChannelValue{"Minus5", std::int32_t{-5}}, NoChannelValue{"Beyond", std::int16_t{256}},
                    NoChannelValue{"Largest", std::int16_t{32767}}, NoChannelValue{"TooLarge", std::int32_t{70'000}},
                    NoChannelValue{"FarTooLarge", 1e300}, NoChannelValue{"Text", std::string("none")},
                    NoChannelValue{"EmptyText", std::string()}, NoChannelValue{"Empty", base::Empty{}},
                    NoChannelValue{"NullOrObject", base::Unusable{}}),
    [](const auto& value) { return std::string(value.param.name); });

TEST_F(ChannelSelection, FollowingResetsTheGridsDisplaySettings) {
    grid().setDisplay({.backColor = ui::red, .foreColor = ui::green, .gridLines = false, .selectionShown = false});
    control->UpdateChannelSelection();
    EXPECT_EQ(grid().display(), ui::GridDisplay{});
    EXPECT_EQ(grid().display().backColor, 0x80000005U);
}

TEST_F(ChannelSelection, FollowingWithoutOrWithAFailingStoreIsTold) {
    const auto failing = decorate<FailingStore>();
    failing->failAt(1);
    control->UpdateChannelSelection();
    control->setCentralDataStore(nullptr);
    control->UpdateChannelSelection();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateChannelSelection"), errorIn("UpdateChannelSelection")}));
}

TEST_F(ChannelSelection, HighlightingNeedsNoStore) {
    control->setCentralDataStore(nullptr);
    control->HighLightChannel(3);
    EXPECT_EQ(boxes(), Boxes{});
}

// -- blinking --------------------------------------------------------------------------------------------------------

TEST_F(ChannelSelection, AHighlightedRowBlinksWithTheTimer) {
    control->HighLightChannel(3);
    std::vector<bool> phases;
    for (int tick = 0; tick < 4; ++tick) {
        desktop.advance(200ms);
        phases.push_back(grid().highlightShown());
    }
    EXPECT_EQ(phases, (std::vector<bool>{true, false, true, false}));
}

TEST_F(ChannelSelection, NothingBlinksBeforeAChannelIsHighlighted) {
    desktop.advance(1000ms);
    EXPECT_FALSE(grid().highlightShown());
}

TEST_F(ChannelSelection, BlinkingEndsErasedWhenNoChannelIsSelected) {
    control->HighLightChannel(3);
    desktop.advance(200ms);
    EXPECT_TRUE(grid().highlightShown());
    store->put(StoreMember::SelectedChannel, std::int16_t{0});
    control->UpdateChannelSelection();
    EXPECT_FALSE(grid().highlightShown());
    desktop.advance(1000ms);
    EXPECT_FALSE(grid().highlightShown());
}

TEST_F(ChannelSelection, ARefusedChannelLeavesTheBlinkingAlone) {
    control->HighLightChannel(3);
    control->HighLightChannel(0);
    desktop.advance(200ms);
    EXPECT_TRUE(grid().highlightShown());
}

// -- stepping --------------------------------------------------------------------------------------------------------

struct Stepping {
    const char* name;
    const char* from;
    const char* up;
    const char* down;
};
class Steps : public ChannelSelection, public testing::WithParamInterface<Stepping> {};

TEST_P(Steps, WrapAtExactlyTheEnds) {
    type(GetParam().from);
    control->ChannelKeyUp();
    EXPECT_EQ(typed(), GetParam().up);
    EXPECT_EQ(control->txtChannelSelect.selStart(), 0);
    EXPECT_EQ(control->txtChannelSelect.selLength(), static_cast<int>(typed().size()));
    type(GetParam().from);
    control->ChannelKeyDown();
    EXPECT_EQ(typed(), GetParam().down);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(events, Log{});
}

INSTANTIATE_TEST_SUITE_P(All, Steps,
                         testing::Values(Stepping{"First", "1", "255", "2"}, Stepping{"Last", "255", "254", "1"},
                                         Stepping{"Middle", "100", "99", "101"}, Stepping{"Empty", "", "-1", "1"},
                                         Stepping{"Zero", "0", "-1", "1"}, Stepping{"Beyond", "256", "255", "257"},
                                         Stepping{"Trailing", "12abc", "11", "13"}, Stepping{"Text", "abc", "-1", "1"}),
                         [](const auto& stepping) { return std::string(stepping.param.name); });

TEST_F(ChannelSelection, StepsBeyond16BitsAreFailures) {
    type("99999");
    control->ChannelKeyUp();
    type("32767");
    control->ChannelKeyDown();
    type("-32768");
    control->ChannelKeyUp();
    EXPECT_EQ(boxes(), (Boxes{errorIn("ChannelKeyUp"), errorIn("ChannelKeyDown"), errorIn("ChannelKeyUp")}));
    EXPECT_EQ(typed(), "-32768");
}

TEST_F(ChannelSelection, TheStoreIsAskedForItsAutomaticSelectWith2) {
    const auto recording = decorate<RecordingStore>();
    type("7");
    control->ChannelKeyUp();
    EXPECT_EQ(recording->calls(), (Log{"AutomaticSelect(2)"}));
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(ChannelSelection, WithAutomaticSelectTheRadioFollowsEveryStep) {
    store->setAutomaticSelect(true);
    store->put(StoreMember::ChannelChangeAllowed, true);
    type("7");
    control->ChannelKeyUp();
    control->ChannelKeyDown();  // the button is disabled by now
    EXPECT_EQ(link->calls, (Log{"SelectChannel 6", "SelectChannel 7"}));
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

TEST_F(ChannelSelection, SteppingWithoutAStoreIsToldAfterTheStep) {
    control->setCentralDataStore(nullptr);
    type("7");
    control->ChannelKeyUp();
    EXPECT_EQ(boxes(), (Boxes{errorIn("ChannelKeyUp")}));
    EXPECT_EQ(typed(), "6");
}

// -- clicks on the grid -----------------------------------------------------------------------------------------------

TEST_F(ChannelSelection, ADoubleClickMakesTheGridsRowTheSelectedChannel) {
    control->DistributeDataStoreLink();
    const auto recording = decorate<RecordingStore>();
    grid().select({7, 3}, {7, 3});
    doubleClickCurrent();
    EXPECT_EQ(selectedChannel(), 7);
    EXPECT_EQ(typed(), "7");
    EXPECT_EQ(recording->calls(), (Log{"SelectedChannel=", "SelectedChannel"}));
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(ChannelSelection, ADoubleClickShowsWhatTheStoreMakesOfTheChannel) {
    const auto answering = decorate<AnsweringStore>();
    answering->answer(StoreMember::SelectedChannel, base::Value{std::int16_t{42}});
    grid().select({7, 3}, {7, 3});
    doubleClickCurrent();
    EXPECT_EQ(typed(), "42");
}

TEST_F(ChannelSelection, ADoubleClickInsideSeveralRowsSelectsTheClickedChannel) {
    control->DistributeDataStoreLink();
    desktop.duringModal = [](ui::Form& asked) { dynamic_cast<editing::frmMsgBox&>(asked).cmdNo.userPress(); };
    grid().select({3, 1}, {8, 5});
    doubleClickOn({6, 2});
    EXPECT_EQ(selection(), (ui::CellRange{6, 2, 6, 2}));
    EXPECT_EQ(selectedChannel(), 6);
    EXPECT_EQ(typed(), "6");
}

TEST_F(ChannelSelection, ADoubleClickOnAHeaderSelectsNoChannel) {
    type("9");
    doubleClickOn({0, 2});
    EXPECT_EQ(selectedChannel(), 1);
    EXPECT_EQ(typed(), "9");
}

class NotingPeer : public ui::WidgetPeer {
public:
    NotingPeer(Log& log, ui::Aspect aspect, std::string name) : log_(log), aspect_(aspect), name_(std::move(name)) {}
    void show(ui::Aspect changed) noexcept override {
        if (changed == aspect_) {
            log_.push_back(name_);
        }
    }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}

private:
    Log& log_;
    ui::Aspect aspect_;
    std::string name_;
};

// Repaints and scrolls.
class NotingGridPeer : public ui::GridPeer {
public:
    explicit NotingGridPeer(Log& log) : log_(log) {}
    void show(ui::Aspect changed) noexcept override {
        if (changed == ui::Aspect::Everything) {
            log_.emplace_back("grid repainted");
        }
    }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const CellRange& /*range*/) noexcept override {}
    void layoutChanged() noexcept override { log_.emplace_back("grid scrolled"); }
    void highlightChanged() noexcept override {}

private:
    Log& log_;
};

class NotingStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    Log* log = nullptr;

protected:
    void onCall(const StoreCall& call) override {
        if (log != nullptr) {
            log->push_back(describe(call));
        }
    }
};

TEST_F(ChannelSelection, ADoubleClickClearsTheSelectionThenNamesTheChannelThenShowsIt) {
    const auto noting = decorate<NotingStore>();
    noting->log = &events;
    NotingGridPeer gridPeer(events);
    NotingPeer boxPeer(events, ui::Aspect::Text, "number shown");
    grid().select({7, 3}, {7, 3});
    grid().attach(gridPeer);
    control->txtChannelSelect.attach(boxPeer);
    events.clear();
    doubleClickCurrent();
    EXPECT_EQ(events, (Log{"grid repainted", "SelectedChannel=", "SelectedChannel", "number shown"}));
    grid().detach();
    control->txtChannelSelect.detach();
}

TEST_F(ChannelSelection, ADoubleClickThatFailsIsToldOnce) {
    control->setCentralDataStore(nullptr);
    doubleClickCurrent();
    EXPECT_EQ(boxes(), (Boxes{errorIn("fgdDatabase_DblClick")}));
}

TEST_F(ChannelSelection, ASingleClickSelectsNoChannel) {
    type("9");
    const auto before = selectedChannel();
    grid().select({7, 3}, {7, 3});
    grid().Click();
    EXPECT_EQ(selectedChannel(), before);
    EXPECT_EQ(typed(), "9");
    EXPECT_EQ(events, Log{});
}

// -- the button ------------------------------------------------------------------------------------------------------

TEST_F(ChannelSelection, TheButtonSwitchesTheRadio) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    const auto recording = decorate<RecordingStore>();
    type("12");
    press();
    EXPECT_EQ(recording->calls(), (Log{"CommsBusy", "CommsBusy", "ChannelChangeAllowed", "EnterChannelSelect"}));
    EXPECT_EQ(link->calls, (Log{"SelectChannel 12"}));
    EXPECT_EQ(events, (Log{"HourglassOverWindow", "PauseDiagnostics"}));
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
    EXPECT_EQ(boxes(), Boxes{});
    control->EnableMyCommands("RS232");
    EXPECT_TRUE(control->cmdChannelSelect.enabled());
}

TEST_F(ChannelSelection, TheButtonIsDisabledBeforeTheHourglassAndTheGridScrollsBeforeTheDiagnosticsPause) {
    NotingGridPeer gridPeer(events);
    NotingPeer buttonPeer(events, ui::Aspect::Enabled, "button disabled");
    grid().attach(gridPeer);
    control->cmdChannelSelect.attach(buttonPeer);
    events.clear();
    type("100");
    press();
    EXPECT_EQ(events, (Log{"button disabled", "HourglassOverWindow", "grid scrolled", "PauseDiagnostics"}));
    grid().detach();
    control->cmdChannelSelect.detach();
}

TEST_F(ChannelSelection, ARadioThatMayNotChangeItsChannelIsLeftAlone) {
    store->put(StoreMember::ChannelChangeAllowed, false);
    type("12");
    press();
    EXPECT_EQ(link->calls, Log{});
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

TEST_F(ChannelSelection, TheButtonWaitsUntilTheDiagnosticsHaveStopped) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { EXPECT_EQ(link->calls, Log{}); });
    desktop.whenPumping([&] { store->put(StoreMember::CommsBusy, false); });
    type("12");
    press();
    EXPECT_EQ(link->calls, (Log{"SelectChannel 12"}));
    EXPECT_EQ(desktop.pumps(), 3);
}

TEST_F(ChannelSelection, AQuitEndsTheWaitQuietly) {
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { desktop.quit(); });
    type("12");
    press();
    EXPECT_EQ(link->calls, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ChannelSelection, AControlClosedInTheWaitEndsItQuietly) {
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { control->close(); });
    type("12");
    press();
    EXPECT_EQ(link->calls, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ChannelSelection, StepsInsideTheWaitOnlyLeaveTheNumberToBeSent) {
    store->setAutomaticSelect(true);
    store->put(StoreMember::ChannelChangeAllowed, true);
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { control->ChannelKeyDown(); });
    desktop.whenPumping([&] { control->ChannelKeyDown(); });
    desktop.whenPumping([&] { store->put(StoreMember::CommsBusy, false); });
    type("12");
    press();
    EXPECT_EQ(link->calls, (Log{"SelectChannel 14"}));
    EXPECT_EQ(events, (Log{"HourglassOverWindow", "PauseDiagnostics"}));
}

TEST_F(ChannelSelection, AStoreExchangedInTheWaitIsTheOneThatIsAsked) {
    const auto other = std::make_shared<model::MemoryDataStore>();
    other->put(StoreMember::ChannelChangeAllowed, true);
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { control->setCentralDataStore(other); });
    type("12");
    press();
    EXPECT_EQ(link->calls, (Log{"SelectChannel 12"}));
}

struct Typed {
    const char* name;
    const char* text;
    const char* sent;  // null: refused
};
class TypedText : public ChannelSelection, public testing::WithParamInterface<Typed> {};

TEST_P(TypedText, IsReadAsALeadingNumber) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    type(GetParam().text);
    press();
    if (GetParam().sent != nullptr) {
        EXPECT_EQ(link->calls, (Log{std::string("SelectChannel ") + GetParam().sent}));
        EXPECT_EQ(boxes(), Boxes{});
    } else {
        EXPECT_EQ(link->calls, Log{});
        EXPECT_EQ(boxes(), (Boxes{invalidSelection}));
    }
}

INSTANTIATE_TEST_SUITE_P(All, TypedText,
                         testing::Values(Typed{"First", "1", "1"}, Typed{"Last", "255", "255"},
                                         Typed{"Trailing", "12abc", "12"}, Typed{"Blanks", "  7", "7"},
                                         Typed{"Zero", "0", nullptr}, Typed{"Beyond", "256", nullptr},
                                         Typed{"Text", "abc", nullptr}, Typed{"Empty", "", nullptr},
                                         Typed{"Half", "0.5", nullptr}, Typed{"LastAndAHalf", "255.5", nullptr},
                                         Typed{"Negative", "-1", nullptr}, Typed{"TooLarge", "99999", nullptr},
                                         Typed{"FarTooLarge", "1e300", nullptr}),
                         [](const auto& typed) { return std::string(typed.param.name); });

TEST_F(ChannelSelection, AnInvalidNumberPutsEverythingBack) {
    store->put(StoreMember::CommsBusy, true);
    const auto recording = decorate<RecordingStore>();
    type("300");
    int focused = 0;
    control->txtChannelSelect.GotFocus.connect([&] { ++focused; });
    press();
    EXPECT_EQ(recording->calls(), (Log{"CommsBusy", "CommsBusy=", "MessageTitle"}));
    EXPECT_EQ(store->get(StoreMember::CommsBusy), base::Value{true});
    EXPECT_EQ(events, (Log{"HourglassOverWindow", "DefaultOverWindow"}));
    EXPECT_EQ(focused, 1);
    EXPECT_EQ(control->txtChannelSelect.selLength(), 3);
    EXPECT_TRUE(control->cmdChannelSelect.enabled());
}

struct Scrolling {
    int top;
    std::int16_t channel;
    int expected;
};
class ScrollingRule : public ChannelSelection, public testing::WithParamInterface<Scrolling> {};

TEST_P(ScrollingRule, CountsWith25Rows) {
    grid().setTopRow(GetParam().top);
    type(std::to_string(GetParam().channel));
    press();
    EXPECT_EQ(grid().topRow(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, ScrollingRule,
                         testing::Values(Scrolling{1, 100, 95}, Scrolling{100, 3, 95}, Scrolling{4, 2, 1},
                                         Scrolling{1, 25, 1}, Scrolling{1, 26, 21}, Scrolling{6, 5, 1},
                                         Scrolling{5, 4, 1}, Scrolling{50, 50, 50}, Scrolling{50, 74, 50},
                                         Scrolling{50, 75, 70}),
                         [](const auto& scrolling) {
                             return "From" + std::to_string(scrolling.param.top) + "To" +
                                    std::to_string(scrolling.param.channel);
                         });

TEST_F(ChannelSelection, EveryCallOfTheButtonMayFailAndLeavesItUsable) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    const auto failing = decorate<FailingStore>();
    for (const std::string text : {"12", "300"}) {
        for (int call = 1; call <= (text == "12" ? 4 : 3); ++call) {
            failing->failAt(call);
            type(text);
            events.clear();
            press();
            EXPECT_EQ(boxes(), (Boxes{errorIn("cmdChannelSelect_Click")})) << text << " call " << call;
            EXPECT_TRUE(control->cmdChannelSelect.enabled());
            EXPECT_EQ(events.back(), "DefaultOverWindow");
            EXPECT_EQ(link->calls, Log{});
        }
    }
}

TEST_F(ChannelSelection, WithoutALinkTheButtonFails) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    control->setRadioComms(nullptr);
    type("12");
    press();
    EXPECT_EQ(boxes(), (Boxes{errorIn("cmdChannelSelect_Click")}));
    EXPECT_TRUE(control->cmdChannelSelect.enabled());
}

}  // namespace
}  // namespace telvar::tests
