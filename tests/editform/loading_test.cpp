// What the controls show of a channel, when loading fails, and what a channel is after it was loaded and stored
// untouched.
#include <random>

#include "edit_form_world.h"
#include "support/all_dcs_codes.h"
#include "support/answering_store.h"
#include "support/failing_store.h"

namespace telvar::tests {
namespace {

using base::Value;

class LoadingForm : public EditFormWorld {};

TEST_F(LoadingForm, TheListsHoldTheirItemsInOrder) {
    load();
    EXPECT_EQ(form.cmbTxModulo.items(), (Texts{"5", "8"}));
    EXPECT_EQ(form.cmbRxModulo.items(), (Texts{"5", "8"}));
    EXPECT_EQ(form.cmbTxAccelProportion.items(), (Texts{"0", "1", "2", "3"}));
    EXPECT_EQ(form.cmbRxAccelProportion.items(), (Texts{"0", "1", "2", "3"}));
    EXPECT_EQ(form.cboRFMode.items(), (Texts{"Duplex", "P25 Digital Repeater (TTR) Only", "Analog Repeater (TTR) Only",
                                             "Mixed Mode Repeater (TTR)", "Simplex"}));
    EXPECT_FALSE(form.cboRFMode.visible());
    EXPECT_EQ(form.cmbTxDcs.items(), allDcsCodes());
    EXPECT_EQ(form.cmbRxDcs.items(), allDcsCodes());
    ASSERT_EQ(form.cmbTxSubtone.listCount(), 40);
    EXPECT_EQ(form.cmbTxSubtone.items()[0], "Disabled");
    EXPECT_EQ(form.cmbTxSubtone.items()[1], "67");
    EXPECT_EQ(form.cmbTxSubtone.items()[2], "69.3");
    EXPECT_EQ(form.cmbTxSubtone.items().back(), "250.3");
    ASSERT_EQ(form.cmbRxSubtone.listCount(), 41);
    EXPECT_EQ(form.cmbRxSubtone.items()[0], "Disabled");
    EXPECT_EQ(form.cmbRxSubtone.items()[1], "Multiple");
    EXPECT_EQ(form.cmbRxSubtone.items()[2], "67");
}

TEST_F(LoadingForm, TheListsAreFilledOnce) {
    load();
    load();
    EXPECT_EQ(form.cmbTxSubtone.listCount(), 40);
    EXPECT_EQ(form.cmbTxDcs.listCount(), 83);
}

TEST_F(LoadingForm, FrequenciesAreShownInMegahertzAndTheLocalOscillatorBesideThem) {
    load({{ChannelKey::TxFreq, 450'100'000}, {ChannelKey::RxFreq, 460'100'000.0}});
    EXPECT_EQ(form.txtEditChannel.text(), "7");
    EXPECT_EQ(form.txtTxFrequency.text(), "450.100000");
    EXPECT_EQ(form.txtRxFrequency.text(), "460.100000");
    EXPECT_EQ(form.txtRxLocalOscFreq.text(), "481.5");
    table->put(StoreMember::LocalOscOffset, -21'400'000);
    load({{ChannelKey::TxFreq, 0}, {ChannelKey::RxFreq, 0}});
    EXPECT_EQ(form.txtTxFrequency.text(), "0.000000");
    EXPECT_EQ(form.txtRxLocalOscFreq.text(), "-21.4");
}

TEST_F(LoadingForm, TheLocalOscillatorIsReckonedFromTheFrequencyAsItIsShown) {
    load({{ChannelKey::RxFreq, 460'100'000.4}});
    EXPECT_EQ(form.txtRxFrequency.text(), "460.100000");
    EXPECT_EQ(form.txtRxLocalOscFreq.text(), "481.5");
    load({{ChannelKey::RxFreq, 460'100'000.6}});
    EXPECT_EQ(form.txtRxFrequency.text(), "460.100001");
    EXPECT_EQ(form.txtRxLocalOscFreq.text(), "481.500001");
}

TEST_F(LoadingForm, TheNumberIsShownBeforeTheChannelIsLoaded) {
    load();
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    form.setChannel(8);
    failing->failAt(3, FailureSpan::FromThereOn);
    std::string shown;
    desktop.duringBox = [&](const ui::MessageBox&) { shown = form.txtEditChannel.text(); };
    form.refresh();
    EXPECT_EQ(shown, "8");
}

TEST_F(LoadingForm, ATransmitToneOrCodeShowsItsListAndLabel) {
    load({{ChannelKey::TxSub, 100.0F}});
    EXPECT_TRUE(form.optTxCtcss.value());
    EXPECT_EQ(form.cmbTxSubtone.text(), "100.0");
    EXPECT_EQ(form.lblTxDcsSubtone.caption(), "Tx Subtone (Hz)");
    EXPECT_TRUE(form.cmbTxSubtone.visible());
    EXPECT_FALSE(form.cmbTxDcs.visible());
    load({{ChannelKey::TxCTCSSDCS, true}, {ChannelKey::TxDCSIndex, 82}});
    EXPECT_TRUE(form.optTxDcs.value());
    EXPECT_EQ(form.cmbTxDcs.text(), "754");
    EXPECT_EQ(form.lblTxDcsSubtone.caption(), "Tx DCS Code");
    EXPECT_FALSE(form.cmbTxSubtone.visible());
    EXPECT_TRUE(form.cmbTxDcs.visible());
}

TEST_F(LoadingForm, AReceiveToneOrCodeShowsItsListAndLabel) {
    load({{ChannelKey::RxSub, 0}});
    EXPECT_TRUE(form.optRxCtcss.value());
    EXPECT_EQ(form.cmbRxSubtone.text(), "0.0");
    EXPECT_EQ(form.lblRxDcsSubtone.caption(), "Rx Subtone (Hz)");
    load({{ChannelKey::RxCTCSSDCS, true}, {ChannelKey::RxDCSIndex, 1}});
    EXPECT_TRUE(form.optRxDcs.value());
    EXPECT_EQ(form.cmbRxDcs.text(), "025");
    EXPECT_EQ(form.lblRxDcsSubtone.caption(), "Rx DCS Code");
    EXPECT_FALSE(form.cmbRxSubtone.visible());
    EXPECT_TRUE(form.cmbRxDcs.visible());
}

TEST_F(LoadingForm, ACellThatReadsMultipleInAnyLetterCaseShowsMultiple) {
    for (const char* const text : {"MULTIPLE", "Multiple", "mUltiple"}) {
        grid.setText(number, 4, text);
        load({{ChannelKey::RxSub, 88.5F}});
        EXPECT_EQ(form.cmbRxSubtone.text(), "Multiple");
    }
    grid.setText(number, 4, "Multiple ");
    load();
    EXPECT_EQ(form.cmbRxSubtone.text(), "88.5");
    grid.setText(8, 4, "Multiple");
    load();
    EXPECT_EQ(form.cmbRxSubtone.text(), "88.5");
}

TEST_F(LoadingForm, AnIndexThatAListDoesNotHaveLeavesItsSelection) {
    load({{ChannelKey::TxCTCSSDCS, true}, {ChannelKey::TxDCSIndex, 4}, {ChannelKey::AccelProp, 2}});
    for (const auto& beyond : {Value{83}, Value{-1}, Value{1e12}, Value{std::int16_t{300}}}) {
        load({{ChannelKey::TxDCSIndex, beyond}, {ChannelKey::AccelProp, beyond}});
        EXPECT_EQ(form.cmbTxDcs.listIndex(), 4);
        EXPECT_EQ(form.cmbTxAccelProportion.listIndex(), 2);
        EXPECT_TRUE(form.optTxDcs.value());
    }
}

TEST_F(LoadingForm, TheHiddenListsShowTheChannelsOwnToneAndCodeToo) {
    load({{ChannelKey::TxCTCSSDCS, true},
          {ChannelKey::RxCTCSSDCS, true},
          {ChannelKey::TxDCSIndex, 40},
          {ChannelKey::RxDCSIndex, 41},
          {ChannelKey::TxSub, 88.5F},
          {ChannelKey::RxSub, 91.5F}});
    EXPECT_EQ(form.cmbTxSubtone.text() + "," + form.cmbRxSubtone.text(), "88.5,91.5");
    form.setChannel(8);
    fill(*table, 8,
         {{ChannelKey::TxFreq, 145'000'000},
          {ChannelKey::TxDCSIndex, 0},
          {ChannelKey::RxDCSIndex, 2},
          {ChannelKey::TxSub, 100.0F},
          {ChannelKey::RxSub, 0.0F}});
    form.refresh();
    EXPECT_EQ(form.cmbTxDcs.text() + "," + form.cmbRxDcs.text(), "023,026");
    EXPECT_EQ(form.cmbTxSubtone.text() + "," + form.cmbRxSubtone.text(), "100.0,0.0");
    form.setChannel(number);
    form.refresh();
    EXPECT_EQ(form.cmbTxDcs.text() + "," + form.cmbRxDcs.text(), "306,311");
    EXPECT_EQ(form.cmbTxSubtone.text() + "," + form.cmbRxSubtone.text(), "88.5,91.5");
}

TEST_F(LoadingForm, WithAnExchangedStoreMultipleIsNotReadFromTheFormerTablesCell) {
    load();
    grid.setText(number, 4, "Multiple");
    const auto other = std::make_shared<model::MemoryDataStore>();
    fill(*other, number, {{ChannelKey::TxFreq, 145'000'000}, {ChannelKey::RxSub, 88.5F}});
    form.setCentralDataStore(other);
    form.refresh();
    EXPECT_EQ(form.cmbRxSubtone.text(), "88.5");
    grid.setText(number, 4, "88.5 Hz");
    fill(*other, number, {{ChannelKey::ModeBits, 0x04}});
    form.refresh();
    EXPECT_EQ(form.cmbRxSubtone.text(), "Multiple");
    fill(*other, number, {{ChannelKey::TxFreq, 0}, {ChannelKey::RxFreq, 0}});
    form.refresh();
    EXPECT_EQ(form.cmbRxSubtone.text(), "88.5") << "an empty channel's cells show nothing";
    form.noteTableReadAnew();
    grid.setText(number, 4, "MULTIPLE");
    form.refresh();
    EXPECT_EQ(form.cmbRxSubtone.text(), "Multiple");
}

TEST_F(LoadingForm, ModeBitsShowInTheirBoxes) {
    load({{ChannelKey::ModeBits, 0x42}, {ChannelKey::scan, true}});
    EXPECT_TRUE(form.ckTtrChannel.checked());
    EXPECT_FALSE(form.ckSimplexChannel.checked());
    EXPECT_TRUE(form.ckScanChannel.checked());
    EXPECT_TRUE(form.ckDataMode.checked());
    load({{ChannelKey::ModeBits, 0x01}, {ChannelKey::scan, false}});
    EXPECT_FALSE(form.ckTtrChannel.checked());
    EXPECT_TRUE(form.ckSimplexChannel.checked());
    EXPECT_FALSE(form.ckScanChannel.checked());
    EXPECT_FALSE(form.ckDataMode.checked());
}

TEST_F(LoadingForm, SynthesizerSettings) {
    load({{ChannelKey::TxLevel, 3},
          {ChannelKey::SynthStep, 6250},
          {ChannelKey::RxSynthStep, 25000.0},
          {ChannelKey::AccelInt, 1},
          {ChannelKey::RxAccelInt, 2},
          {ChannelKey::BinMain, 3},
          {ChannelKey::RxBinMain, 4},
          {ChannelKey::Modulo, 1},
          {ChannelKey::RxModulo, 0},
          {ChannelKey::AccelProp, 3},
          {ChannelKey::RxAccelProp, 1}});
    EXPECT_EQ(form.txtTxSubtoneLevel.text(), "3");
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "6.25");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "25");
    EXPECT_EQ(form.txtTxAccelIntegral.text(), "1");
    EXPECT_EQ(form.txtRxAccelIntegral.text(), "2");
    EXPECT_EQ(form.txtTxBinaryMain.text(), "3");
    EXPECT_EQ(form.txtRxBinaryMain.text(), "4");
    EXPECT_EQ(form.cmbTxModulo.text(), "8");
    EXPECT_EQ(form.cmbRxModulo.text(), "5");
    EXPECT_EQ(form.cmbTxAccelProportion.text(), "3");
    EXPECT_EQ(form.cmbRxAccelProportion.text(), "1");
}

TEST_F(LoadingForm, EverySelectorButOneMeansModuloFive) {
    for (const int selector : {0, 2, 5, -1}) {
        load({{ChannelKey::Modulo, 1}, {ChannelKey::RxModulo, selector}});
        EXPECT_EQ(form.cmbTxModulo.text(), "8");
        EXPECT_EQ(form.cmbRxModulo.text(), "5") << selector;
    }
}

TEST_F(LoadingForm, LevelsAreShownWithTheBiasInvertedAndTheSlidersNegative) {
    load({{ChannelKey::TxPower, 1},
          {ChannelKey::RefOscFreq, 2},
          {ChannelKey::NBRefOscFreq, 3},
          {ChannelKey::VCODev, 4},
          {ChannelKey::NBVCODev, 5},
          {ChannelKey::RefOscDev, 6},
          {ChannelKey::NBRefOscDev, 300}});
    const auto level = [](const ui::TextBox& box, const ui::Slider& slider) {
        return box.text() + " " + std::to_string(slider.value());
    };
    EXPECT_EQ(level(form.txtTransmitPower, form.sldTransmitPower), "1 -1");
    EXPECT_EQ(level(form.txtRefOscFreq, form.sldRefOscFreq), "253 -253");
    EXPECT_EQ(level(form.txtNBRefOscFreq, form.sldNBRefOscFreq), "252 -252");
    EXPECT_EQ(level(form.txtVcoDeviation, form.sldVcoDeviation), "4 -4");
    EXPECT_EQ(level(form.txtNBVcoDeviation, form.sldNBVcoDeviation), "5 -5");
    EXPECT_EQ(level(form.txtRefOscDev, form.sldRefOscDev), "6 -6");
    EXPECT_EQ(level(form.txtNBRefOscDev, form.sldNBRefOscDev), "300 -255");
}

TEST_F(LoadingForm, OlderHardwareShowsTheWideBandsBiasForTheNarrowBand) {
    const auto narrowBias = [&](float revision) {
        table->put(StoreMember::HardwareRevision, revision);
        load({{ChannelKey::RefOscFreq, 10}, {ChannelKey::NBRefOscFreq, 20}});
        return form.txtNBRefOscFreq.text();
    };
    EXPECT_EQ(narrowBias(2.9F), "235");
    EXPECT_EQ(narrowBias(3.0F), "235");
    EXPECT_EQ(narrowBias(2.8999999F), "245");
}

TEST_F(LoadingForm, WithoutASwitchableBandwidthTheNarrowBiasStaysAndTheWideSetIsShown) {
    load({{ChannelKey::NBRefOscFreq, 20}, {ChannelKey::ModeBits, 0x80}});
    EXPECT_TRUE(form.txtNBVcoDeviation.visible());
    table->put(StoreMember::BandwidthSwitchable, false);
    load({{ChannelKey::NBRefOscFreq, 30}});
    EXPECT_EQ(form.txtNBRefOscFreq.text(), "235");
    EXPECT_TRUE(form.optNarrowBand.value());
    EXPECT_FALSE(form.optNarrowBand.isUsable());
    EXPECT_FALSE(form.optWideBand.isUsable());
    EXPECT_TRUE(form.txtVcoDeviation.visible());
    EXPECT_FALSE(form.txtNBVcoDeviation.visible());
    table->put(StoreMember::BandwidthSwitchable, true);
    load();
    EXPECT_TRUE(form.optWideBand.isUsable());
    EXPECT_TRUE(form.txtNBVcoDeviation.visible());
}

TEST_F(LoadingForm, TheBandFollowsItsBit) {
    load({{ChannelKey::ModeBits, 0x80}});
    EXPECT_TRUE(form.optNarrowBand.value());
    EXPECT_FALSE(form.sldRefOscFreq.visible());
    EXPECT_TRUE(form.sldNBRefOscFreq.visible());
    load({{ChannelKey::ModeBits, 0}});
    EXPECT_TRUE(form.optWideBand.value());
    EXPECT_TRUE(form.sldRefOscFreq.visible());
    EXPECT_FALSE(form.sldNBRefOscFreq.visible());
}

TEST_F(LoadingForm, P25Settings) {
    load({{ChannelKey::P25TransmitMode, true},
          {ChannelKey::p25RepeaterEnable, true},
          {ChannelKey::TTRAnalogDataMode, true},
          {ChannelKey::P25TxNetworkAccessCode, base::textValue("1111")},
          {ChannelKey::P25RxNetworkAccessCode, base::textValue("2222")},
          {ChannelKey::P25TalkgroupID, base::textValue("3333")}});
    EXPECT_TRUE(form.optP25TransmitMode[1].value());
    EXPECT_TRUE(form.chkP25RepeaterEnable.checked());
    EXPECT_TRUE(form.chkTTRAnalogDataMode.checked());
    EXPECT_EQ(form.txtP25TxNetworkAccessCode.text(), "1111");
    EXPECT_EQ(form.txtP25RxNetworkAccessCode.text(), "2222");
    EXPECT_EQ(form.txtP25TalkgroupID.text(), "3333");
    load({{ChannelKey::P25TransmitMode, false}, {ChannelKey::TTRAnalogDataMode, false}});
    EXPECT_TRUE(form.optP25TransmitMode[0].value());
    EXPECT_FALSE(form.chkTTRAnalogDataMode.checked());
}

struct DerivedMode {
    int bits;
    bool p25;
    int mode;
    std::string boxes;  // simplex, repeater, P25 repeater
    bool narrow;
};

TEST_F(LoadingForm, TheRfModeIsDerivedAndItsRuleApplied) {
    for (const auto& derived : {DerivedMode{0, false, 1, "000", false}, DerivedMode{1, false, 0, "100", false},
                                DerivedMode{2, false, 2, "010", false}, DerivedMode{0, true, 3, "001", true},
                                DerivedMode{2, true, 4, "011", true}, DerivedMode{3, true, 0, "100", false},
                                DerivedMode{1, true, 0, "100", false}, DerivedMode{3, false, 0, "100", false}}) {
        load({{ChannelKey::ModeBits, derived.bits}, {ChannelKey::p25RepeaterEnable, derived.p25}});
        EXPECT_EQ(form.rfModes.selected(), derived.mode) << derived.bits << derived.p25;
        EXPECT_EQ(std::to_string(form.ckSimplexChannel.value()) + std::to_string(form.ckTtrChannel.value()) +
                      std::to_string(form.chkP25RepeaterEnable.value()),
                  derived.boxes);
        EXPECT_EQ(form.optNarrowBand.value(), derived.narrow);
        EXPECT_EQ(form.sldNBVcoDeviation.visible(), derived.narrow);
    }
}

TEST_F(LoadingForm, WhatIsShownDoesNotDependOnTheChannelShownBefore) {
    load({{ChannelKey::p25RepeaterEnable, true}});
    const auto first = form.entries();
    load({{ChannelKey::p25RepeaterEnable, false}, {ChannelKey::ModeBits, 0x01}});
    EXPECT_TRUE(form.optWideBand.value());
    load({{ChannelKey::p25RepeaterEnable, true}, {ChannelKey::ModeBits, 0}});
    EXPECT_EQ(form.entries(), first);
    load({{ChannelKey::p25RepeaterEnable, true}});
    EXPECT_TRUE(form.optNarrowBand.value());
}

TEST_F(LoadingForm, TheSpacingStandsInTheFramesCaptionAfterTheLevelsCaption) {
    load({{ChannelKey::ModeBits, 0x80}});
    EXPECT_EQ(form.frChannelSpacing.caption(), "12.5 kHz Narrow Band Channel Spacing");
    form.optWideBand.userClick();
    EXPECT_EQ(form.frChannelSpacing.caption(), "25.0 kHz Wide Band");
    form.refresh();
    EXPECT_EQ(form.frChannelSpacing.caption(), "12.5 kHz Narrow Band Channel Spacing");
    table->put(StoreMember::ChannelSpacing, 20'000);
    form.refresh();
    EXPECT_EQ(form.frChannelSpacing.caption(), "20.0 kHz  Medium Band Channel Spacing");
}

TEST_F(LoadingForm, TheSpacingFollowsTheStoredBitAndNotTheBandThatAP25RepeaterForces) {
    load({{ChannelKey::p25RepeaterEnable, true}, {ChannelKey::ModeBits, 0}});
    EXPECT_TRUE(form.optNarrowBand.value());
    EXPECT_EQ(form.frChannelSpacing.caption(), "25.0 kHz  Wide Band Channel Spacing");
}

// -- failures --------------------------------------------------------------------------------------------------------

TEST_F(LoadingForm, AStoreThatFailsAtAnyCallIsToldOnceAndAHalfLoadedChannelCannotBeStored) {
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    load({{ChannelKey::ModeBits, 0x80}});
    failing->failAt(0);
    form.refresh();
    const int calls = failing->calls();
    ASSERT_GT(calls, 40);
    constexpr int accessCalls = 2;
    constexpr int spacingCalls = 4;
    for (const auto span : {FailureSpan::OneCall, FailureSpan::FromThereOn}) {
        for (int call = 1; call <= calls; ++call) {
            failing->failAt(call, span);
            form.refresh();
            const bool fatal = span == FailureSpan::FromThereOn ? call <= calls - spacingCalls
                                                                : call > accessCalls && call <= calls - spacingCalls;
            const bool silent = span == FailureSpan::OneCall && call <= accessCalls;
            const auto told = boxes();
            EXPECT_EQ(told, silent  ? Boxes{}
                            : fatal ? Boxes{errorIn("LoadControlsFromMemory")}
                                    : Boxes{errorIn("ShowChannelSpacing")})
                << call;
            EXPECT_EQ(form.cmdApply.enabled(), !fatal) << call;
            EXPECT_EQ(form.cmdOk.enabled(), !fatal) << call;
        }
    }
    failing->failAt(0);
    form.refresh();
    EXPECT_TRUE(form.cmdApply.enabled());
}

TEST_F(LoadingForm, TonesThatCannotBeReadAreToldAndAskedForAgain) {
    const auto failing = std::make_shared<FailingStore>(*table);
    frmChannelEdit other(desktop, {});
    other.setCentralDataStore(failing);
    other.setChannel(number);
    failing->failAt(5);
    other.refresh();
    EXPECT_EQ(boxes(), (Boxes{errorIn("SetUpLists")}));
    EXPECT_FALSE(other.cmdApply.enabled());
    EXPECT_EQ(other.cmbRxSubtone.listCount(), 0);
    other.refresh();
    EXPECT_EQ(boxes(), (Boxes{}));
    EXPECT_EQ(other.cmbRxSubtone.listCount(), 41);
    EXPECT_TRUE(other.cmdApply.enabled());
}

TEST_F(LoadingForm, AValueOfTheWrongKindIsAFailure) {
    const auto answering = std::make_shared<AnsweringStore>(*table);
    answering->answer(ChannelKey::VCODev, base::Unusable{});
    form.setCentralDataStore(answering);
    form.refresh();
    EXPECT_EQ(boxes(), (Boxes{errorIn("LoadControlsFromMemory")}));
    EXPECT_FALSE(form.cmdApply.enabled());
}

TEST_F(LoadingForm, WithoutAStoreNothingIsLoaded) {
    form.setCentralDataStore(nullptr);
    form.refresh();
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_FALSE(form.cmdApply.enabled());
}

TEST_F(LoadingForm, AnotherStoreOrChannelHasToBeShownBeforeItCanBeStored) {
    load();
    EXPECT_TRUE(form.cmdApply.enabled());
    form.setChannel(number);
    EXPECT_TRUE(form.cmdApply.enabled());
    form.setChannel(8);
    EXPECT_FALSE(form.cmdApply.enabled());
    form.cmdApply.Click();
    form.refresh();
    EXPECT_TRUE(form.cmdOk.enabled());
    form.setCentralDataStore(std::make_shared<model::MemoryDataStore>());
    form.cmdOk.Click();
    EXPECT_FALSE(form.cmdOk.enabled());
    EXPECT_EQ(events, Texts{});
}

// -- loaded and stored untouched -------------------------------------------------------------------------------------

// The value under `key` after a channel was loaded and stored untouched. What changes by rule:
// frequencies are what six decimals of megahertz can say; whole numbers and steps are rounded; a tone has one decimal;
// a selector becomes 0 or 1; an accepted tone sets the code to 0; the code's bits and flags are made to agree; a P25
// repeater makes the channel narrow; simplex goes alone; the bias of older hardware comes from the wide band.
class Untouched : public EditFormWorld {
protected:
    std::mt19937 random{20240607};
    int pick(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    bool flip() { return pick(0, 1) == 1; }

    void randomize() {
        table->put(StoreMember::BandwidthSwitchable, flip());
        table->put(StoreMember::HardwareRevision, flip() ? 3.0F : 2.8F);
        for (const auto& info : model::channelKeys) {
            table->channel(number).put(info.key, randomValue(info));
        }
    }
    Value randomValue(const model::ChannelKeyInfo& info) {
        switch (info.kind) {
        case model::KeyKind::Frequency:
            return pick(0, 9) == 0 ? 0 : pick(10'000'000, 1'000'000'000);
        case model::KeyKind::Step:
            return pick(0, 25'500);
        case model::KeyKind::Tone:
            return pick(0, 3) == 0 ? 0.0F : static_cast<float>(pick(650, 2570)) / 10.0F;
        case model::KeyKind::Boolean:
            return flip();
        case model::KeyKind::Code: {
            std::string code;
            for (int at = 0; at < 4; ++at) {
                code += "0123456789abcdefABCDEF"[pick(0, 21)];
            }
            return base::textValue(code);
        }
        case model::KeyKind::Integer:
            break;
        }
        return integerOf(info.key);
    }
    Value integerOf(ChannelKey key) {
        switch (key) {
        case ChannelKey::TxDCSIndex:
        case ChannelKey::RxDCSIndex:
            return pick(0, 82);
        case ChannelKey::TxLevel:
            return pick(0, 6);
        case ChannelKey::AccelInt:
        case ChannelKey::RxAccelInt:
            return pick(0, 15);
        case ChannelKey::Modulo:
        case ChannelKey::RxModulo:
            return pick(0, 5);
        case ChannelKey::AccelProp:
        case ChannelKey::RxAccelProp:
            return pick(0, 3);
        default:
            return pick(0, 255);
        }
    }
    [[nodiscard]] std::array<double, model::channelKeyCount> numbers() const {
        std::array<double, model::channelKeyCount> values{};
        for (const auto& info : model::channelKeys) {
            if (info.kind != model::KeyKind::Code) {
                values[static_cast<std::size_t>(info.key)] = numberAt(info.key);
            }
        }
        return values;
    }
};

// Says what the form decides, by a second hand.
[[nodiscard]] double expected(ChannelKey key, const std::array<double, model::channelKeyCount>& before, bool switchable,
                              bool ownNarrowBias) {
    const auto was = [&](ChannelKey k) { return before[static_cast<std::size_t>(k)]; };
    const auto bits = static_cast<int>(was(ChannelKey::ModeBits));
    const bool simplex = (bits & 1) != 0;
    const bool p25 = !simplex && was(ChannelKey::p25RepeaterEnable) != 0;
    const bool narrow = p25 || (bits & 0x80) != 0;
    const bool txDcs = was(ChannelKey::TxCTCSSDCS) != 0;
    const bool rxDcs = was(ChannelKey::RxCTCSSDCS) != 0;
    switch (key) {
    case ChannelKey::TxDCSIndex:
        return txDcs ? was(key) : 0;
    case ChannelKey::RxDCSIndex:
        return rxDcs ? was(key) : 0;
    case ChannelKey::ModeBits: {
        int after = bits & 0x48;
        after |= simplex ? 1 : (bits & 2);
        after |= (txDcs ? 0x10 : 0) | (rxDcs ? 0x20 : 0);
        after |= switchable ? (narrow ? 0x80 : 0) : (bits & 0x80);
        return after;
    }
    case ChannelKey::Modulo:
    case ChannelKey::RxModulo:
        return was(key) == 1 ? 1 : 0;
    case ChannelKey::NBRefOscFreq:
        return switchable && narrow && !ownNarrowBias ? was(ChannelKey::RefOscFreq) : was(key);
    case ChannelKey::p25RepeaterEnable:
        return p25 ? -1 : 0;
    default:
        return was(key);
    }
}

TEST_F(Untouched, AnyChannelIsAfterwardsWhatTheRulesSay) {
    for (int round = 0; round < 400; ++round) {
        randomize();
        const bool switchable = base::isTrue(table->get(StoreMember::BandwidthSwitchable));
        const bool ownBias = base::toSingle(table->get(StoreMember::HardwareRevision)) >= 2.9F;
        const auto before = numbers();
        const auto code = at(ChannelKey::P25TalkgroupID);
        form.refresh();
        ASSERT_FALSE(form.hasUnappliedEdits());
        apply();
        ASSERT_EQ(boxes(), Boxes{}) << "round " << round;
        EXPECT_EQ(at(ChannelKey::P25TalkgroupID), code);
        const auto after = numbers();
        for (const auto& info : model::channelKeys) {
            const auto index = static_cast<std::size_t>(info.key);
            if (info.kind == model::KeyKind::Tone) {
                EXPECT_FLOAT_EQ(static_cast<float>(after[index]), static_cast<float>(before[index])) << info.name;
            } else if (info.kind == model::KeyKind::Frequency) {
                EXPECT_NEAR(after[index], before[index], 1e-6) << info.name;
            } else {
                ASSERT_EQ(after[index], expected(info.key, before, switchable, ownBias))
                    << info.name << ", round " << round << ", switchable " << switchable;
            }
        }
        const auto settled = numbers();
        form.refresh();
        apply();
        ASSERT_EQ(numbers(), settled) << "a second time, round " << round;
    }
}

}  // namespace
}  // namespace telvar::tests
