// The fill dialog without a control: its controls, key filters, leave-field rules and loop.
#include "editing/frmFill.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "editing_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"
#include "ui/metrics.h"

namespace telvar::tests {
namespace {

constexpr int backspace = 8;

class FillDialog : public EditingWorld {
protected:
    FillDialog() {
        table->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        form.setCentralDataStore(table);
    }

    void type(ui::TextBox& box, const std::string& text) {
        box.setText(text);
        box.LostFocus();
    }
    void choose(const std::string& first, const std::string& last, const std::string& start, const std::string& step) {
        form.start_chan_val.setText(first);
        form.end_chan_val.setText(last);
        form.start_freq_val.setText(start);
        form.step_val.setText(step);
    }
    [[nodiscard]] bool passes(ui::TextBox& box, int code) {
        ui::KeyPressEvent event{code};
        box.KeyPress(event);
        EXPECT_TRUE(event.code == code || event.code == 0);
        return event.code != 0;
    }
    [[nodiscard]] std::pair<std::string, std::string> channels() const {
        return {form.start_chan_val.text(), form.end_chan_val.text()};
    }
    [[nodiscard]] std::vector<ui::TextBox*> boxes4() {
        return {&form.start_chan_val, &form.end_chan_val, &form.start_freq_val, &form.step_val};
    }
    [[nodiscard]] base::Value tx(std::int16_t channel) { return at(channel, ChannelKey::TxFreq); }
    [[nodiscard]] base::Value rx(std::int16_t channel) { return at(channel, ChannelKey::RxFreq); }

    editing::frmFill form{rows, history};
};

using Channels = std::pair<std::string, std::string>;

// -- what it looks like ----------------------------------------------------------------------------------------------

TEST_F(FillDialog, HasItsControlsAndCaptions) {
    const std::vector<std::pair<ui::Widget*, std::string>> captions{
        {&form, "Channel Fill"},
        {&form.start_chan_lab, "Start Channel:"},
        {&form.end_chan_lab, "End Channel:"},
        {&form.start_freq_lab, "Start Freq (MHz):"},
        {&form.step_cap, "Step Value (kHz):"},
        {&form.Frame1, "Module"},
        {&form.module_sel[0], "Transmitter"},
        {&form.module_sel[1], "Receiver"},
        {&form.ok_but, "OK"},
        {&form.cancel_but, "Cancel"},
    };
    for (const auto& [widget, caption] : captions) {
        EXPECT_EQ(ui::shownText(widget->caption()), caption) << widget->name();
    }
    std::string names;
    for (const auto* child : form.children()) {
        names += child->name() + " ";
    }
    EXPECT_EQ(names,
              "start_chan_lab start_chan_val end_chan_lab end_chan_val start_freq_lab start_freq_val step_cap step_val "
              "Frame1 module_sel(0) module_sel(1) ok_but cancel_but ");
}

TEST_F(FillDialog, NoTwoAccessKeysAreTheSame) {
    std::string keys;
    for (const auto* child : form.children()) {
        const auto mark = child->caption().find('&');
        if (mark != std::string::npos) {
            keys += base::upperCased(child->caption().substr(mark + 1, 1));
        }
    }
    EXPECT_EQ(keys, "SEFVTR");
}

TEST_F(FillDialog, StartsWithTwoChannelsNoFrequencyNoStepAndTheTransmitter) {
    EXPECT_EQ(channels(), (Channels{"1", "2"}));
    EXPECT_EQ(form.start_freq_val.text(), "0");
    EXPECT_EQ(form.step_val.text(), "0");
    EXPECT_TRUE(form.step_val.visible());
    EXPECT_EQ(form.modules.selected(), 0);
    EXPECT_TRUE(form.ok_but.isDefault());
    EXPECT_TRUE(form.cancel_but.isCancel());
}

TEST_F(FillDialog, OneModuleIsSelectedAtATime) {
    form.module_sel[1].userClick();
    EXPECT_FALSE(form.module_sel[0].value());
    EXPECT_TRUE(form.module_sel[1].value());
}

TEST_F(FillDialog, FillDownHidesAndEmptiesTheStepAndASeriesShowsItAgain) {
    form.step_val.setText("12.5");
    form.offerFillDown();
    EXPECT_FALSE(form.step_cap.visible());
    EXPECT_FALSE(form.step_val.visible());
    EXPECT_EQ(form.step_val.text(), "");
    form.step_val.setEnabled(false);
    form.offerSeries();
    EXPECT_TRUE(form.step_cap.visible());
    EXPECT_TRUE(form.step_val.visible());
    EXPECT_TRUE(form.step_val.enabled());
    EXPECT_EQ(form.step_val.text(), "");
}

TEST_F(FillDialog, IsLowerByOneRowWithoutTheStep) {
    const ui::Metrics metrics(desktop, ui::standardDpi);
    form.offerSeries();
    const auto series = form.size();
    form.offerFillDown();
    EXPECT_EQ(form.size().width, series.width);
    EXPECT_EQ(form.size().height, series.height - metrics.fieldHeight() - metrics.smallGap());
}

TEST_F(FillDialog, AlignsLabelsAndFieldsAndKeepsEverythingInside) {
    for (const bool series : {true, false}) {
        series ? form.offerSeries() : form.offerFillDown();
        const int fieldLeft = form.start_chan_val.bounds().left;
        for (const auto* box : boxes4()) {
            if (box->visible()) {
                EXPECT_EQ(box->bounds().left, fieldLeft) << box->name();
                EXPECT_EQ(box->bounds().right, form.start_chan_val.bounds().right) << box->name();
            }
        }
        const ui::Rect client{0, 0, form.size().width, form.size().height};
        for (const auto* child : form.children()) {
            if (child->visible()) {
                EXPECT_EQ(child->bounds().intersected(client), child->bounds()) << child->name();
                EXPECT_GT(child->bounds().width(), 0) << child->name();
            }
        }
        for (const auto& option : form.module_sel) {
            EXPECT_EQ(option.bounds().intersected(form.Frame1.bounds()), option.bounds());
        }
        EXPECT_GT(form.ok_but.bounds().left, form.Frame1.bounds().left);
        EXPECT_EQ(form.cancel_but.bounds().right, form.Frame1.bounds().right);
        EXPECT_EQ(form.ok_but.bounds().top, form.cancel_but.bounds().top);
    }
}

TEST_F(FillDialog, EnteredFieldsAreSelectedWhole) {
    for (auto* box : boxes4()) {
        box->setText("12345");
        box->setFocus();
        EXPECT_EQ(box->selStart(), 0) << box->name();
        EXPECT_EQ(box->selLength(), 5) << box->name();
    }
}

// -- key filters -----------------------------------------------------------------------------------------------------

TEST_F(FillDialog, FieldsTakeWhatTheStoreAcceptsAndBackspace) {
    for (auto* box : boxes4()) {
        for (int code = 1; code < 300; ++code) {
            const bool number = (code >= '0' && code <= '9') || code == '-';
            const bool separator = code == '.' && (box == &form.start_freq_val || box == &form.step_val);
            EXPECT_EQ(passes(*box, code), number || separator || code == backspace) << box->name() << " " << code;
        }
        EXPECT_FALSE(passes(*box, 0x1F600)) << box->name();
    }
}

TEST_F(FillDialog, TheStoreIsAskedForEveryKeyButBackspaceAndTheSeparator) {
    const auto recording = std::make_shared<RecordingStore>(*table);
    form.setCentralDataStore(recording);
    EXPECT_TRUE(passes(form.start_chan_val, '7'));
    EXPECT_FALSE(passes(form.end_chan_val, '.'));
    EXPECT_TRUE(passes(form.start_freq_val, '.'));
    EXPECT_TRUE(passes(form.step_val, backspace));
    EXPECT_TRUE(passes(form.step_val, '-'));
    EXPECT_EQ(recording->calls(), (std::vector<std::string>{"CheckKey(55)", "CheckKey(46)", "CheckKey(45)"}));
}

TEST_F(FillDialog, TheSeparatorIsTheUsersOwn) {
    session::Session german(desktop, {.decimalSeparator = ','});
    german.setStore(table);
    editing::GridRows germanRows(german, grid);
    editing::frmFill other(germanRows, history);
    other.setCentralDataStore(table);
    EXPECT_TRUE(passes(other.start_freq_val, ','));
    EXPECT_FALSE(passes(other.start_freq_val, '.'));
    EXPECT_TRUE(passes(other.step_val, ','));
    EXPECT_FALSE(passes(other.start_chan_val, ','));
    type(other.start_freq_val, "145,5");
    EXPECT_EQ(other.start_freq_val.text(), "145,5");
    type(other.step_val, "12,5");
    other.FillRequested.connect([&] { static_cast<void>(other.fill()); });
    other.ok_but.userPress();
    EXPECT_EQ(tx(2), (base::Value{std::int32_t{145'512'500}}));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillDialog, AStoreThatDoesNotAnswerAcceptsNoKey) {
    const auto failing = std::make_shared<FailingStore>(*table);
    failing->failAt(1, FailureSpan::FromThereOn);
    form.setCentralDataStore(failing);
    EXPECT_FALSE(passes(form.start_chan_val, '7'));
    EXPECT_TRUE(passes(form.start_chan_val, backspace));
    form.setCentralDataStore(nullptr);
    EXPECT_FALSE(passes(form.start_chan_val, '7'));
    EXPECT_TRUE(passes(form.step_val, '.'));
    EXPECT_EQ(boxes(), Boxes{});
}

// -- leaving a field -------------------------------------------------------------------------------------------------

struct ChannelsCase {
    std::string start;
    std::string end;
    std::string startAfter;
    std::string endAfter;
};

class LeavingStart : public FillDialog, public testing::WithParamInterface<ChannelsCase> {};

TEST_P(LeavingStart, KeepsTwoChannelsInTheTable) {
    form.end_chan_val.setText(GetParam().end);
    type(form.start_chan_val, GetParam().start);
    EXPECT_EQ(channels(), (Channels{GetParam().startAfter, GetParam().endAfter}));
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(All, LeavingStart,
                         testing::Values(ChannelsCase{"1", "2", "1", "2"}, ChannelsCase{"0", "2", "1", "2"},
                                         ChannelsCase{"300", "2", "254", "255"},
                                         ChannelsCase{"254", "255", "254", "255"},
                                         ChannelsCase{"255", "255", "254", "255"}, ChannelsCase{"10", "10", "10", "11"},
                                         ChannelsCase{"10", "9", "10", "11"}, ChannelsCase{"-5", "9", "-5", "9"},
                                         ChannelsCase{"-5", "-9", "-5", "-4"}, ChannelsCase{"", "", "1", "2"},
                                         ChannelsCase{"abc", "9", "1", "9"}, ChannelsCase{"3", "abc", "3", "4"},
                                         ChannelsCase{"32767", "2", "254", "255"}, ChannelsCase{"32768", "2", "1", "2"},
                                         ChannelsCase{"-32768", "2", "-32768", "2"},
                                         ChannelsCase{" 7 ", "20", "7", "20"}, ChannelsCase{"2.5", "20", "2", "20"},
                                         ChannelsCase{"3.5", "20", "4", "20"}, ChannelsCase{"5", "300", "5", "300"},
                                         ChannelsCase{"007", "09", "7", "9"}));

class LeavingEnd : public FillDialog, public testing::WithParamInterface<ChannelsCase> {};

TEST_P(LeavingEnd, KeepsTwoChannelsInTheTable) {
    form.start_chan_val.setText(GetParam().start);
    type(form.end_chan_val, GetParam().end);
    EXPECT_EQ(channels(), (Channels{GetParam().startAfter, GetParam().endAfter}));
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(All, LeavingEnd,
                         testing::Values(ChannelsCase{"1", "2", "1", "2"}, ChannelsCase{"1", "1", "1", "2"},
                                         ChannelsCase{"5", "1", "1", "2"}, ChannelsCase{"5", "0", "1", "2"},
                                         ChannelsCase{"5", "-7", "1", "2"}, ChannelsCase{"5", "255", "5", "255"},
                                         ChannelsCase{"5", "256", "5", "255"}, ChannelsCase{"300", "256", "254", "255"},
                                         ChannelsCase{"10", "10", "9", "10"}, ChannelsCase{"10", "4", "3", "4"},
                                         ChannelsCase{"abc", "4", "0", "4"}, ChannelsCase{"-3", "4", "-3", "4"},
                                         ChannelsCase{"5", "", "1", "2"}, ChannelsCase{"5", "40000", "1", "2"}));

struct NumberCase {
    std::string typed;
    std::string after;
    bool refused;
};

class LeavingStartFrequency : public FillDialog, public testing::WithParamInterface<NumberCase> {};

TEST_P(LeavingStartFrequency, IsHeldToTheRangeOrRefused) {
    for (const int module : {0, 1}) {
        form.module_sel[static_cast<std::size_t>(module)].setValue(true);
        type(form.start_freq_val, GetParam().typed);
        EXPECT_EQ(form.start_freq_val.text(), GetParam().after);
        const ui::MessageBox refusal{.text = "Transmit frequency must be between 20 and 1000 MHz or 0 to disable.",
                                     .title = "Bench 3",
                                     .icon = ui::Icon::Exclamation};
        EXPECT_EQ(boxes(), GetParam().refused ? Boxes{refusal} : Boxes{});
    }
}

INSTANTIATE_TEST_SUITE_P(All, LeavingStartFrequency,
                         testing::Values(NumberCase{"450", "450", false}, NumberCase{"20", "20", false},
                                         NumberCase{"1000", "1000", false}, NumberCase{"19.99", "0", true},
                                         NumberCase{"19.999998", "0", true}, NumberCase{"19.9999999", "20", false},
                                         NumberCase{"1000.0001", "0", true}, NumberCase{"1000.00001", "1000", false},
                                         NumberCase{"1001", "0", true}, NumberCase{"0", "0", false},
                                         NumberCase{"0.0", "0", true}, NumberCase{" 0", "0", true},
                                         NumberCase{"", "0", true}, NumberCase{"abc", "0", true},
                                         NumberCase{"-450", "0", true}, NumberCase{"1e99", "0", true},
                                         NumberCase{"4.5e2", "450", false}, NumberCase{" 145.50 ", "145.5", false},
                                         NumberCase{"146.51875", "146.5188", false}, NumberCase{"145,5", "0", true},
                                         NumberCase{"145.5 MHz", "0", true}, NumberCase{"X", "0", true}));

class LeavingStep : public FillDialog, public testing::WithParamInterface<NumberCase> {};

TEST_P(LeavingStep, IsAnyNumberOrRefused) {
    type(form.step_val, GetParam().typed);
    EXPECT_EQ(form.step_val.text(), GetParam().after);
    const ui::MessageBox refusal{
        .text = "Invalid step value.  Please re-enter value.", .title = "Bench 3", .icon = ui::Icon::Exclamation};
    EXPECT_EQ(boxes(), GetParam().refused ? Boxes{refusal} : Boxes{});
}

INSTANTIATE_TEST_SUITE_P(All, LeavingStep,
                         testing::Values(NumberCase{"12.5", "12.5", false}, NumberCase{"-25", "-25", false},
                                         NumberCase{"0", "0", false}, NumberCase{"0.0", "0", true},
                                         NumberCase{"-0", "0", true}, NumberCase{"", "0", true},
                                         NumberCase{"abc", "0", true}, NumberCase{"1e39", "0", true},
                                         NumberCase{"6.250", "6.25", false}, NumberCase{"100000", "100000", false},
                                         NumberCase{"0.0001", "0.0001", false}, NumberCase{".5", "0.5", false}));

TEST_F(FillDialog, RefusalsAreTitledByDefaultWhereTheStoreDoesNotSay) {
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    failing->failAt(1);
    type(form.step_val, "abc");
    form.setCentralDataStore(nullptr);
    type(form.start_freq_val, "abc");
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].title, ui::defaultTitle);
    EXPECT_EQ(shown[1].title, ui::defaultTitle);
}

// -- OK and Cancel ---------------------------------------------------------------------------------------------------

TEST_F(FillDialog, OkAsksItsOwnerAndCancelOnlyHides) {
    int asked = 0;
    form.FillRequested.connect([&] { ++asked; });
    fillDistinct(*table, 3);
    const auto before = tableText(*table);
    desktop.showModeless(form);
    form.ok_but.userPress();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(desktop.isOpen(form));
    choose("1", "9", "450", "12.5");
    form.cancel_but.userPress();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_EQ(tableText(*table), before);
    model::MemoryDataStore empty;
    EXPECT_EQ(tableText(*backup), tableText(empty));
}

// -- OK from inside a field ------------------------------------------------------------------------------------------

class FillFromAField : public FillDialog {
protected:
    FillFromAField() {
        form.FillRequested.connect([this] { ++asked; });
        choose("1", "3", "450", "12.5");
    }
    // The press takes the focus out of the field, as a click does.
    void clickOkFrom(ui::TextBox& box) {
        form.ok_but.userPress([&] {
            box.LostFocus();
            return true;
        });
    }
    // The focus is in the field and stays there.
    void enterIn(ui::TextBox& box, const std::string& text) {
        box.GotFocus();
        box.setText(text);
        form.ok_but.userPress();
    }
    const ui::MessageBox badStep{
        .text = "Invalid step value.  Please re-enter value.", .title = "Bench 3", .icon = ui::Icon::Exclamation};
    int asked = 0;
};

TEST_F(FillFromAField, AClickThatLeavesARefusedFieldDoesNotRunAndTheNextOneDoes) {
    for (auto* const box : {&form.start_freq_val, &form.step_val}) {
        asked = 0;
        box->setText("abc");
        desktop.duringBox = [&](const ui::MessageBox&) { EXPECT_EQ(asked, 0); };
        clickOkFrom(*box);
        EXPECT_EQ(boxes().size(), 1U);
        EXPECT_EQ(box->text(), "0");
        EXPECT_EQ(asked, 0);
        form.ok_but.userPress();
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(boxes(), Boxes{});
    }
}

TEST_F(FillFromAField, AClickThatLeavesAnAcceptedFieldRuns) {
    for (auto* const box : boxes4()) {
        asked = 0;
        clickOkFrom(*box);
        EXPECT_EQ(asked, 1) << box->name();
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillFromAField, AFieldThatWasRefusedBeforeDoesNotStopAClick) {
    type(form.step_val, "abc");
    EXPECT_EQ(boxes(), (Boxes{badStep}));
    form.ok_but.userPress();
    EXPECT_EQ(asked, 1);
}

TEST_F(FillFromAField, EnterInARefusedFieldDoesNotRunAndTheNextOneDoes) {
    enterIn(form.step_val, "abc");
    EXPECT_EQ(boxes(), (Boxes{badStep}));
    EXPECT_EQ(form.step_val.text(), "0");
    EXPECT_EQ(asked, 0);
    // Wrong once more, in the field that still has the focus.
    form.step_val.setText("xyz");
    form.ok_but.userPress();
    EXPECT_EQ(boxes(), (Boxes{badStep}));
    EXPECT_EQ(asked, 0);
    form.ok_but.userPress();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(asked, 1);
}

TEST_F(FillFromAField, EnterAppliesTheRuleOfTheFieldThatHasTheFocus) {
    enterIn(form.end_chan_val, "1");
    EXPECT_EQ(channels(), (Channels{"1", "2"}));
    EXPECT_EQ(asked, 1);
    form.end_chan_val.LostFocus();
    enterIn(form.start_chan_val, "300");
    EXPECT_EQ(channels(), (Channels{"254", "255"}));
    EXPECT_EQ(asked, 2);
    form.start_chan_val.LostFocus();
    enterIn(form.start_freq_val, "1e3");
    EXPECT_EQ(form.start_freq_val.text(), "1000");
    EXPECT_EQ(asked, 3);
}

TEST_F(FillFromAField, NoRuleIsAppliedToAFieldThatWasLeft) {
    form.step_val.GotFocus();
    form.step_val.LostFocus();
    form.step_val.setText("abc");
    form.ok_but.userPress();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(asked, 1);
}

TEST_F(FillFromAField, CancelIsNotHeldUpByARefusedField) {
    desktop.showModeless(form);
    form.step_val.setText("abc");
    form.cancel_but.userPress([&] {
        form.step_val.LostFocus();
        return true;
    });
    EXPECT_FALSE(desktop.isOpen(form));
}

// -- the fill --------------------------------------------------------------------------------------------------------

TEST_F(FillDialog, ASeriesGrowsByItsStepInWholeHertz) {
    choose("1", "255", "450", "12.5");
    desktop.showModeless(form);
    EXPECT_TRUE(form.fill());
    EXPECT_FALSE(desktop.isOpen(form));
    for (std::int16_t channel = 1; channel <= 255; ++channel) {
        ASSERT_EQ(tx(channel), (base::Value{std::int32_t{450'000'000 + 12'500 * (channel - 1)}})) << channel;
        ASSERT_EQ(rx(channel), (base::Value{std::int32_t{0}}));
    }
    EXPECT_EQ(tx(255), (base::Value{std::int32_t{453'175'000}}));
    EXPECT_EQ(grid.text(2, 1), "450.012500");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillDialog, FillDownWritesOneFrequency) {
    form.offerFillDown();
    choose("3", "5", "145.5", "");
    EXPECT_TRUE(form.fill());
    for (std::int16_t channel = 1; channel <= 7; ++channel) {
        EXPECT_EQ(tx(channel), (base::Value{std::int32_t{channel >= 3 && channel <= 5 ? 145'500'000 : 0}})) << channel;
    }
    EXPECT_EQ(rendered, (std::vector<std::int16_t>{3, 4, 5}));
}

TEST_F(FillDialog, TheReceiverIsFilledWhereItIsChosen) {
    form.module_sel[1].userClick();
    choose("3", "4", "145.5", "25");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(rx(3), (base::Value{std::int32_t{145'500'000}}));
    EXPECT_EQ(rx(4), (base::Value{std::int32_t{145'525'000}}));
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{0}}));
    EXPECT_EQ(grid.text(4, 2), "145.525000");
}

TEST_F(FillDialog, ANegativeStepDescends) {
    choose("1", "3", "145.5", "-25");
    static_cast<void>(form.fill());
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{145'450'000}}));
}

TEST_F(FillDialog, ZeroDisablesTheChannels) {
    fill(*table, 1, {{ChannelKey::TxFreq, std::int32_t{145'000'000}}, {ChannelKey::RxFreq, std::int32_t{145'000'000}}});
    choose("1", "2", "0", "0");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(tx(1), (base::Value{std::int32_t{0}}));
    EXPECT_EQ(grid.text(1, 1), "X");
}

TEST_F(FillDialog, FrequencyAndStepAreRoundedHalfToEvenToWholeHertz) {
    choose("1", "3", "145.0000005", "0.0015");
    static_cast<void>(form.fill());
    EXPECT_EQ(tx(1), (base::Value{std::int32_t{145'000'000}}));
    EXPECT_EQ(tx(2), (base::Value{std::int32_t{145'000'002}}));
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{145'000'004}}));
}

struct OkCase {
    std::string start;
    std::string step;
    std::int32_t first;
    std::int32_t second;
};

class OkChecksNothing : public FillDialog, public testing::WithParamInterface<OkCase> {};

TEST_P(OkChecksNothing, AndTextsThatAreNoNumbersCountAsZero) {
    choose("1", "2", GetParam().start, GetParam().step);
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(tx(1), (base::Value{GetParam().first}));
    EXPECT_EQ(tx(2), (base::Value{GetParam().second}));
    EXPECT_EQ(boxes(), Boxes{});
}

constexpr auto greatest = std::numeric_limits<std::int32_t>::max();
INSTANTIATE_TEST_SUITE_P(
    All, OkChecksNothing,
    testing::Values(OkCase{"5", "1", 5'000'000, 5'001'000}, OkCase{"1500", "0", 1'500'000'000, 1'500'000'000},
                    OkCase{"abc", "12.5", 0, 12'500}, OkCase{"450", "abc", 450'000'000, 450'000'000},
                    OkCase{"2147.483647", "1", greatest, greatest}, OkCase{"2147.483648", "1", 0, 1000},
                    OkCase{"1e300", "1", 0, 1000}, OkCase{"450", "3000000", 450'000'000, 450'000'000},
                    OkCase{"-1", "-1", -1'000'000, -1'001'000}));

TEST_F(FillDialog, AFrequencyThatCannotGrowFurtherStaysAsItIs) {
    choose("1", "3", "2147", "400");
    static_cast<void>(form.fill());
    EXPECT_EQ(tx(2), (base::Value{std::int32_t{2'147'400'000}}));
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{2'147'400'000}}));
}

TEST_F(FillDialog, ChannelsOutsideTheTableAreSkippedAndTakeTheirStep) {
    choose("-2", "3", "450", "1000");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(tx(1), (base::Value{std::int32_t{453'000'000}}));
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{455'000'000}}));
    EXPECT_EQ(std::exchange(rendered, {}), (std::vector<std::int16_t>{1, 2, 3}));
    choose("254", "300", "450", "0");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(tx(255), (base::Value{std::int32_t{450'000'000}}));
    EXPECT_EQ(rendered, (std::vector<std::int16_t>{254, 255}));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillDialog, ARunWithoutChannelsChangesNothing) {
    const auto before = tableText(*table);
    for (const auto& [first, last] : std::vector<Channels>{{"5", "4"}, {"abc", ""}, {"-9", "0"}, {"256", "32767"}}) {
        choose(first, last, "450", "0");
        EXPECT_FALSE(form.fill()) << first << " " << last;
    }
    EXPECT_EQ(tableText(*table), before);
    EXPECT_EQ(rendered, std::vector<std::int16_t>{});
    EXPECT_EQ(boxes(), Boxes{});
}

// -- order, backup, failures -----------------------------------------------------------------------------------------

TEST_F(FillDialog, TakesOneBackupBeforeItsLoop) {
    fill(*table, 2, {{ChannelKey::TxFreq, std::int32_t{145'000'000}}});
    choose("1", "3", "450", "0");
    static_cast<void>(form.fill());
    EXPECT_TRUE(undo.enabled());
    EXPECT_EQ(base::toInt32(backup->channel(2).get(ChannelKey::TxFreq)), 145'000'000);
    static_cast<void>(history.UndoChanges());
    EXPECT_EQ(tx(1), (base::Value{std::int32_t{0}}));
    EXPECT_EQ(tx(2), (base::Value{std::int32_t{145'000'000}}));
}

TEST_F(FillDialog, AsksTheStoreForNothingElse) {
    const auto recording = std::make_shared<RecordingStore>(*table);
    form.setCentralDataStore(recording);
    choose("7", "9", "450", "12.5");
    static_cast<void>(form.fill());
    EXPECT_EQ(
        recording->calls(),
        (std::vector<std::string>{"ChannelTable(6).TxFreq=", "ChannelTable(7).TxFreq=", "ChannelTable(8).TxFreq="}));
}

TEST_F(FillDialog, GoesOnWithoutABackup) {
    history.setTables(nullptr, nullptr);
    choose("1", "3", "450", "0");
    desktop.showModeless(form);
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory")}));
    EXPECT_EQ(tx(3), (base::Value{std::int32_t{450'000'000}}));
    EXPECT_EQ(grid.text(3, 1), "450.000000");
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_FALSE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
}

TEST_F(FillDialog, ARefusedStoreIsSkippedAndTheLoopGoesOn) {
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    for (int call = 1; call <= 5; ++call) {
        for (std::int16_t channel = 1; channel <= 5; ++channel) {
            table->channel(channel).put(ChannelKey::TxFreq, std::int32_t{1});
        }
        failing->failAt(call);
        choose("1", "5", "450", "1000");
        EXPECT_TRUE(form.fill());
        for (std::int16_t channel = 1; channel <= 5; ++channel) {
            const std::int32_t expected = channel == call ? 1 : 449'000'000 + 1'000'000 * channel;
            EXPECT_EQ(tx(channel), (base::Value{expected})) << call << " " << channel;
        }
        EXPECT_EQ(grid.text(call, 1), "0.000001");
        EXPECT_EQ(boxes(), Boxes{});
    }
}

TEST_F(FillDialog, WithoutAStoreNothingIsStored) {
    form.setCentralDataStore(nullptr);
    choose("1", "3", "450", "0");
    EXPECT_FALSE(form.fill());
    EXPECT_EQ(transmits(1), 0.0);
    EXPECT_EQ(boxes(), Boxes{});
}

// Renders through a store whose calls may fail.
class FillWithFailingRows : public FillDialog {
protected:
    FillWithFailingRows() { session.setStore(failing); }
    std::shared_ptr<FailingStore> failing = std::make_shared<FailingStore>(*table);
    static constexpr int backupCalls = 255 * 28;
};

TEST_F(FillWithFailingRows, OneFailureIsToldOnceAndTheOtherRowsAreRendered) {
    failing->failAt(backupCalls + 1);
    choose("1", "3", "450", "0");
    desktop.duringBox = [this](const ui::MessageBox&) { EXPECT_TRUE(grid.redraw()); };
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    EXPECT_EQ(rendered, (std::vector<std::int16_t>{1, 2, 3}));
    // Row 1 shows what was stored, though it could not be read again.
    EXPECT_EQ(grid.text(1, 1), "450.000000");
    EXPECT_EQ(grid.text(1, 5), "");
    EXPECT_NE(grid.text(3, 5), "");
}

TEST_F(FillWithFailingRows, AStoreThatNeverAnswersAgainIsToldOnce) {
    failing->failAt(backupCalls + 1, FailureSpan::FromThereOn);
    choose("1", "255", "450", "0");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    EXPECT_TRUE(grid.redraw());
}

TEST_F(FillDialog, EndsWhereTheOwnerEnds) {
    session.close();
    choose("1", "3", "450", "0");
    EXPECT_THROW(static_cast<void>(form.fill()), Closed);
    EXPECT_EQ(transmits(1), 0.0);
    EXPECT_TRUE(grid.redraw());
}

// Lets something happen inside each write.
class EndingStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void()> onWrite;

protected:
    void onCall(const StoreCall& call) override {
        if (call.kind == StoreCall::Kind::WriteChannel) {
            onWrite();
        }
    }
};

TEST_F(FillDialog, MakesEachChannelsRowCurrentBeforeItIsWritten) {
    const auto watching = std::make_shared<EndingStore>(*table);
    std::vector<int> written;
    watching->onWrite = [&] { written.push_back(grid.row()); };
    form.setCentralDataStore(watching);
    choose("3", "5", "450", "0");
    EXPECT_TRUE(form.fill());
    EXPECT_EQ(written, (std::vector<int>{3, 4, 5}));
}

TEST_F(FillDialog, EndsWhereTheOwnerEndsInsideACallToTheStore) {
    const auto ending = std::make_shared<EndingStore>(*table);
    int writes = 0;
    ending->onWrite = [&] {
        if (++writes == 2) {
            session.close();
            form.setCentralDataStore(nullptr);
        }
    };
    form.setCentralDataStore(ending);
    choose("1", "5", "450", "0");
    EXPECT_THROW(static_cast<void>(form.fill()), Closed);
    EXPECT_EQ(writes, 2);
    EXPECT_TRUE(grid.redraw());
}

}  // namespace
}  // namespace telvar::tests
