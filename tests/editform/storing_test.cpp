// What Apply and OK write, step by step, what they refuse, and what a failing store leaves out.
#include <cmath>
#include <functional>
#include <limits>

#include "edit_form_world.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using base::Value;
constexpr auto i16 = [](int number) { return Value{static_cast<std::int16_t>(number)}; };

class Storing : public EditFormWorld {};

// -- one field a step ------------------------------------------------------------------------------------------------

TEST_F(Storing, AFrequencyIsStoredInHertzAsADoubleAndShown) {
    load();
    form.txtTxFrequency.setText("450.1");
    form.txtRxFrequency.setText("10");
    apply();
    EXPECT_EQ(at(ChannelKey::TxFreq), (Value{450.1 * 1e6}));
    EXPECT_EQ(at(ChannelKey::RxFreq), (Value{10e6}));
    EXPECT_EQ(cell(1), "450.1");
    EXPECT_EQ(cell(2), "10");
    EXPECT_TRUE(boxes().empty());
}

TEST_F(Storing, ARefusedFrequencyReachesTheStoreAllTheSameButNotItsCell) {
    load();
    grid.setText(number, 1, "before");
    grid.setText(number, 2, "before");
    form.txtTxFrequency.setText("5");
    form.txtRxFrequency.setText("1001");
    form.txtTxBinaryMain.setText("77");
    apply();
    EXPECT_EQ(boxes(), (Boxes{refusal("Transmit frequency must be between 10 and 1000 MHz or 0 to disable."),
                              refusal("Receive frequency must be between 10 and 1000 MHz.")}));
    EXPECT_EQ(at(ChannelKey::TxFreq), (Value{5e6}));
    EXPECT_EQ(at(ChannelKey::RxFreq), (Value{1001e6}));
    EXPECT_EQ(cell(1), "before");
    EXPECT_EQ(cell(2), "before");
    EXPECT_EQ(form.txtTxFrequency.foreColor(), ui::red);
    EXPECT_EQ(form.txtRxFrequency.foreColor(), ui::red);
    EXPECT_EQ(at(ChannelKey::BinMain), i16(77));
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
}

TEST_F(Storing, ATransmitToneClearsTheCode) {
    load({{ChannelKey::TxCTCSSDCS, true}, {ChannelKey::TxDCSIndex, 5}, {ChannelKey::ModeBits, 0xFF}});
    form.optTxCtcss.userClick();
    form.cmbTxSubtone.userTyped("123");
    apply();
    EXPECT_EQ(at(ChannelKey::TxSub), (Value{123.0F}));
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), (Value{false}));
    EXPECT_EQ(at(ChannelKey::TxDCSIndex), i16(0));
    EXPECT_EQ(cell(3), "123.0 Hz");
    EXPECT_EQ(modeBits() & 0x10, 0);
}

TEST_F(Storing, ATransmitCodeSetsItsBitAndLeavesTheTone) {
    load({{ChannelKey::TxSub, 88.5F}});
    form.optTxDcs.userClick();
    form.cmbTxDcs.userSelected(82);
    apply();
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), (Value{true}));
    EXPECT_EQ(at(ChannelKey::TxDCSIndex), i16(82));
    EXPECT_EQ(at(ChannelKey::TxSub), (Value{88.5F}));
    EXPECT_EQ(cell(3), "754");
    EXPECT_EQ(modeBits() & 0x10, 0x10);
}

TEST_F(Storing, AListOfCodesWithoutASelectionWritesNothing) {
    load({{ChannelKey::TxSub, 88.5F},
          {ChannelKey::TxDCSIndex, 83},
          {ChannelKey::RxDCSIndex, 83},
          {ChannelKey::ModeBits, 0x04}});
    ASSERT_EQ(form.cmbTxDcs.listIndex(), -1);
    form.optTxDcs.userClick();
    form.optRxDcs.userClick();
    grid.setText(number, 3, "before");
    apply();
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), (Value{false}));
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), (Value{false}));
    EXPECT_EQ(cell(3), "before");
    EXPECT_EQ(modeBits() & 0x34, 0x04);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(Storing, AReceiveCodeSetsItsBitAndClearsMultiple) {
    load({{ChannelKey::ModeBits, 0x04}});
    form.optRxDcs.userClick();
    form.cmbRxDcs.userSelected(0);
    apply();
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), (Value{true}));
    EXPECT_EQ(at(ChannelKey::RxDCSIndex), i16(0));
    EXPECT_EQ(cell(4), "023");
    EXPECT_EQ(modeBits() & 0x24, 0x20);
}

TEST_F(Storing, AReceiveToneClearsBothBits) {
    load({{ChannelKey::RxCTCSSDCS, true}, {ChannelKey::RxDCSIndex, 9}, {ChannelKey::ModeBits, 0x24}});
    form.optRxCtcss.userClick();
    form.cmbRxSubtone.userTyped("67.0");
    apply();
    EXPECT_EQ(at(ChannelKey::RxSub), (Value{67.0F}));
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), (Value{false}));
    EXPECT_EQ(at(ChannelKey::RxDCSIndex), i16(0));
    EXPECT_EQ(cell(4), "67.0 Hz");
    EXPECT_EQ(modeBits() & 0x24, 0);
}

TEST_F(Storing, MultipleSetsItsBitAndLeavesToneAndCode) {
    load({{ChannelKey::RxCTCSSDCS, true},
          {ChannelKey::RxDCSIndex, 9},
          {ChannelKey::RxSub, 71.9F},
          {ChannelKey::ModeBits, 0x20}});
    form.optRxCtcss.userClick();
    form.cmbRxSubtone.loadText("Multiple");
    grid.setText(number, 4, "before");
    apply();
    EXPECT_EQ(at(ChannelKey::RxSub), (Value{71.9F}));
    EXPECT_EQ(at(ChannelKey::RxDCSIndex), (Value{9}));
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), (Value{false}));
    EXPECT_EQ(modeBits() & 0x24, 0x04);
    EXPECT_EQ(cell(4), "before");
}

TEST_F(Storing, ARefusedReceiveToneHasClearedTheCodesBitAndFlag) {
    load({{ChannelKey::RxCTCSSDCS, true}, {ChannelKey::ModeBits, 0x24}});
    form.optRxCtcss.userClick();
    form.cmbRxSubtone.userTyped("64.9");
    apply();
    EXPECT_EQ(boxes(), (Boxes{refusal("Receive subtone must be between 65 and 257 Hz or 0 to disable.")}));
    EXPECT_EQ(form.cmbRxSubtone.foreColor(), ui::red);
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), (Value{false}));
    EXPECT_EQ(modeBits() & 0x24, 0x04);
}

TEST_F(Storing, ARefusedTransmitToneWritesNothingAtAll) {
    load({{ChannelKey::TxCTCSSDCS, true}, {ChannelKey::TxSub, 100.0F}, {ChannelKey::ModeBits, 0x10}});
    form.optTxCtcss.userClick();
    form.cmbTxSubtone.userTyped("257.1");
    apply();
    EXPECT_EQ(boxes(), (Boxes{refusal("Transmit subtone must be between 65 and 257 Hz or 0 to disable.")}));
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), (Value{true}));
    EXPECT_EQ(at(ChannelKey::TxSub), (Value{100.0F}));
    EXPECT_EQ(modeBits() & 0x10, 0x10);
}

TEST_F(Storing, DisabledAndZeroAreTheToneZero) {
    for (const char* const text : {"Disabled", "disabled", "0", "0.0"}) {
        load({{ChannelKey::TxSub, 88.5F}, {ChannelKey::RxSub, 88.5F}});
        form.cmbTxSubtone.userTyped(text);
        form.cmbRxSubtone.userTyped(text);
        apply();
        EXPECT_EQ(at(ChannelKey::TxSub), (Value{0.0F})) << text;
        EXPECT_EQ(at(ChannelKey::RxSub), (Value{0.0F})) << text;
        EXPECT_EQ(cell(3), "0.0 Hz");
        EXPECT_TRUE(boxes().empty());
    }
}

struct ModeCase {
    int ttr;
    int simplex;
    std::int64_t before;
    std::int64_t after;
    const char* text;
};

TEST_F(Storing, TheChannelModeHasThreeReadings) {
    for (const auto& mode : {ModeCase{1, 0, 0x09, 0x0A, "Repeater"}, ModeCase{0, 1, 0x0A, 0x09, "Simplex"},
                             ModeCase{0, 0, 0x0B, 0x08, "Duplex"}}) {
        load();
        form.ckTtrChannel.loadValue(mode.ttr);
        form.ckSimplexChannel.loadValue(mode.simplex);
        fill(*table, number, {{ChannelKey::ModeBits, static_cast<std::int32_t>(mode.before)}});
        apply();
        EXPECT_EQ(modeBits(), mode.after) << mode.text;
        EXPECT_EQ(cell(5), mode.text);
    }
}

TEST_F(Storing, ScanAndDataModeAreYesOrNo) {
    load();
    form.ckScanChannel.userClick();
    form.ckDataMode.userClick();
    apply();
    EXPECT_EQ(at(ChannelKey::scan), (Value{true}));
    EXPECT_EQ(modeBits() & 0x40, 0x40);
    EXPECT_EQ(cell(6) + cell(8), "YesYes");
    form.ckScanChannel.userClick();
    form.ckDataMode.userClick();
    apply();
    EXPECT_EQ(at(ChannelKey::scan), (Value{false}));
    EXPECT_EQ(modeBits() & 0x40, 0);
    EXPECT_EQ(cell(6) + cell(8), "NoNo");
}

TEST_F(Storing, TheBandwidthIsWrittenOnlyWhereItCanSwitch) {
    load();
    form.optNarrowBand.userClick();
    apply();
    EXPECT_EQ(cell(7), "Narrow");
    EXPECT_EQ(modeBits() & 0x80, 0x80);
    form.optWideBand.userClick();
    apply();
    EXPECT_EQ(cell(7), "Wide");
    EXPECT_EQ(modeBits() & 0x80, 0);
    table->put(StoreMember::BandwidthSwitchable, false);
    load({{ChannelKey::ModeBits, 0x80}});
    form.optWideBand.loadValue(true);
    apply();
    EXPECT_EQ(cell(7), "N/A");
    EXPECT_EQ(modeBits() & 0x80, 0x80);
}

TEST_F(Storing, ListsStoreTheirIndex) {
    load();
    form.cmbTxModulo.userSelected(0);
    form.cmbRxModulo.userSelected(1);
    form.cmbTxAccelProportion.userSelected(3);
    form.cmbRxAccelProportion.userSelected(2);
    apply();
    EXPECT_EQ(at(ChannelKey::Modulo), i16(0));
    EXPECT_EQ(at(ChannelKey::RxModulo), i16(1));
    EXPECT_EQ(at(ChannelKey::AccelProp), i16(3));
    EXPECT_EQ(at(ChannelKey::RxAccelProp), i16(2));
}

TEST_F(Storing, StepsAreStoredInWholeHertz) {
    load();
    form.txtTxSynthStepSize.setText("5.2");
    form.txtRxSynthStepSize.setText("25.5");
    apply();
    EXPECT_EQ(at(ChannelKey::SynthStep), i16(5200));
    EXPECT_EQ(at(ChannelKey::RxSynthStep), i16(25500));
}

TEST_F(Storing, AnIntegerIsRoundedHalfToEvenOnlyWhenItIsStored) {
    load();
    form.txtTxBinaryMain.setText("2.5");
    form.txtRxBinaryMain.setText("3.5");
    form.txtTxSubtoneLevel.setText("-1");
    form.txtTxAccelIntegral.setText("-40000");
    apply();
    EXPECT_EQ(at(ChannelKey::BinMain), i16(2));
    EXPECT_EQ(at(ChannelKey::RxBinMain), i16(4));
    EXPECT_EQ(at(ChannelKey::TxLevel), i16(-1));
    EXPECT_EQ(at(ChannelKey::AccelInt), (Value{-40000}));
    EXPECT_TRUE(boxes().empty());
}

TEST_F(Storing, TheLevelsOfTheBandInUseAreStoredWithTheBiasInverted) {
    load();
    form.optNarrowBand.userClick();
    form.txtTransmitPower.setText("1");
    form.txtNBRefOscFreq.setText("0");
    form.txtNBVcoDeviation.setText("3");
    form.txtNBRefOscDev.setText("4");
    form.txtRefOscFreq.setText("200");
    apply();
    EXPECT_EQ(at(ChannelKey::TxPower), i16(1));
    EXPECT_EQ(at(ChannelKey::NBRefOscFreq), i16(255));
    EXPECT_EQ(at(ChannelKey::NBVCODev), i16(3));
    EXPECT_EQ(at(ChannelKey::NBRefOscDev), i16(4));
    EXPECT_EQ(at(ChannelKey::RefOscFreq), (Value{128}));
    form.optWideBand.userClick();
    form.txtRefOscFreq.setText("255");
    form.txtVcoDeviation.setText("13");
    form.txtRefOscDev.setText("14");
    apply();
    EXPECT_EQ(at(ChannelKey::RefOscFreq), i16(0));
    EXPECT_EQ(at(ChannelKey::VCODev), i16(13));
    EXPECT_EQ(at(ChannelKey::RefOscDev), i16(14));
    EXPECT_EQ(at(ChannelKey::NBVCODev), i16(3));
}

TEST_F(Storing, ARadioOfOneBandwidthStoresTheWideLevelsOfANarrowChannel) {
    table->put(StoreMember::BandwidthSwitchable, false);
    load({{ChannelKey::ModeBits, 0x80}});
    form.txtVcoDeviation.setText("13");
    form.txtNBVcoDeviation.setText("99");
    apply();
    EXPECT_EQ(at(ChannelKey::VCODev), i16(13));
    EXPECT_EQ(at(ChannelKey::NBVCODev), (Value{128}));
}

TEST_F(Storing, P25SettingsAndCodes) {
    table->put(StoreMember::P25BoardFitted, true);
    load({{ChannelKey::ModeBits, 0x80}});
    form.optP25TransmitMode[1].userClick();
    form.chkP25RepeaterEnable.userClick();
    form.chkTTRAnalogDataMode.userClick();
    form.txtP25TxNetworkAccessCode.setText("1A");
    form.txtP25RxNetworkAccessCode.setText("");
    form.txtP25TalkgroupID.setText("beef");
    apply();
    EXPECT_EQ(at(ChannelKey::P25TransmitMode), (Value{true}));
    EXPECT_EQ(at(ChannelKey::p25RepeaterEnable), (Value{true}));
    EXPECT_EQ(at(ChannelKey::TTRAnalogDataMode), (Value{true}));
    EXPECT_EQ(at(ChannelKey::P25TxNetworkAccessCode), base::textValue("001A"));
    EXPECT_EQ(at(ChannelKey::P25RxNetworkAccessCode), base::textValue("0000"));
    EXPECT_EQ(at(ChannelKey::P25TalkgroupID), base::textValue("beef"));
}

TEST_F(Storing, CodesAreCheckedAfterPaddingWithoutTrimming) {
    for (const char* const text : {"12345", "12G4", " 1A", "1A ", "0x1A", "\t"}) {
        load();
        form.txtP25TxNetworkAccessCode.setText(text);
        form.txtP25RxNetworkAccessCode.setText(text);
        form.txtP25TalkgroupID.setText(text);
        apply();
        EXPECT_EQ(boxes(), (Boxes{refusal("P25 TX Network Access Code must be 4 chars long and in hexadecimal format"),
                                  refusal("P25 RX Network Access Code must be 4 chars long and in hexadecimal format"),
                                  refusal("P25 Talkgroup ID must be 4 chars long and in hexadecimal format")}))
            << text;
        EXPECT_EQ(at(ChannelKey::P25TalkgroupID), base::textValue("0000"));
        EXPECT_EQ(form.txtP25TalkgroupID.foreColor(), ui::red);
    }
}

TEST_F(Storing, AChannelOutOfServiceHasNoValueInItsFirstCells) {
    load();
    form.txtTxFrequency.setText("0");
    form.txtRxFrequency.setText("0");
    apply();
    EXPECT_EQ(cell(1) + cell(2) + cell(3) + cell(4) + cell(5) + cell(6), "XXXXXNo");
    EXPECT_EQ(at(ChannelKey::TxFreq), (Value{0.0}));
}

TEST_F(Storing, OutOfServiceWithARefusedFieldKeepsItsCells) {
    load();
    form.txtTxFrequency.setText("0");
    form.txtRxFrequency.setText("0");
    form.txtTransmitPower.setText("256");
    apply();
    EXPECT_EQ(cell(1), "0");
    EXPECT_EQ(cell(5), "Duplex");
}

TEST_F(Storing, WithThePotentiometersOnlyIndicationTheUserIsToldAndNothingIsCopied) {
    ui::OptionButton indication("optLockMode(2)");
    form.setPotentiometersOnly(&indication);
    load();
    form.setSelectedChannels(7, 8);
    form.txtTxBinaryMain.setText("9");
    indication.loadValue(true);
    apply();
    EXPECT_EQ(boxes(), (Boxes{{.text = "Pot values have been altered.\r\n"
                                       "To permanently save changes 'Send Data to Telvar'.",
                               .title = "Bench 3",
                               .icon = ui::Icon::Information}}));
    EXPECT_EQ(at(ChannelKey::BinMain, 8), (Value{0}));
    form.txtTransmitPower.setText("300");
    apply();
    EXPECT_EQ(boxes(), (Boxes{refusal("Transmit power setting must be between 0 and 255.")}));
    indication.loadValue(false);
    form.txtTransmitPower.setText("30");
    apply();
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(at(ChannelKey::BinMain, 8), i16(9));
}

// -- bounds ----------------------------------------------------------------------------------------------------------

struct BoundCase {
    const char* name;
    ui::TextBox& (*box)(frmChannelEdit&);
    ChannelKey key;
    const char* lastAccepted;  // the largest text that passes, and what follows it in single precision
    const char* firstRefused;
    const char* lowestAccepted;
    const char* belowRefused;  // null where no lower bound is tested
    int highestStored;
    int lowestStored;
    const char* message;
};

constexpr auto integralMessage = "Binary accelerator for integral charge pump must be between 0 and 15.";
constexpr auto mainMessage = "Binary accelerator main must be between 0 and 255.";
constexpr auto stepMessage = "Synthesiser step size must be between 0 and 25.5 kHz.";

const std::vector<BoundCase>& boundCases() {
    using Form = frmChannelEdit;
    static const std::vector<BoundCase> cases{
        {"TxSubtoneLevel", [](Form& f) -> ui::TextBox& { return f.txtTxSubtoneLevel; }, ChannelKey::TxLevel, "6",
         "6.0000005", "-1", nullptr, 6, -1, "Transmitter subtone level must be between 0 and 6."},
        {"TxStep", [](Form& f) -> ui::TextBox& { return f.txtTxSynthStepSize; }, ChannelKey::SynthStep, "25.5",
         "25.500002", "0", "-1e-45", 25500, 0, stepMessage},
        {"RxStep", [](Form& f) -> ui::TextBox& { return f.txtRxSynthStepSize; }, ChannelKey::RxSynthStep, "25.5",
         "25.500002", "0", "-1e-45", 25500, 0, stepMessage},
        {"TxAccelIntegral", [](Form& f) -> ui::TextBox& { return f.txtTxAccelIntegral; }, ChannelKey::AccelInt, "15",
         "15.000001", "-1", nullptr, 15, -1, integralMessage},
        {"RxAccelIntegral", [](Form& f) -> ui::TextBox& { return f.txtRxAccelIntegral; }, ChannelKey::RxAccelInt, "15",
         "15.000001", "-1", nullptr, 15, -1, integralMessage},
        {"TxBinaryMain", [](Form& f) -> ui::TextBox& { return f.txtTxBinaryMain; }, ChannelKey::BinMain, "255",
         "255.00002", "0", "-1e-45", 255, 0, mainMessage},
        {"RxBinaryMain", [](Form& f) -> ui::TextBox& { return f.txtRxBinaryMain; }, ChannelKey::RxBinMain, "255",
         "255.00002", "0", "-1e-45", 255, 0, mainMessage},
        {"TransmitPower", [](Form& f) -> ui::TextBox& { return f.txtTransmitPower; }, ChannelKey::TxPower, "255",
         "255.00002", "0", "-1e-45", 255, 0, "Transmit power setting must be between 0 and 255."},
        // Tested as stored: 255 minus the entry.
        {"Bias", [](Form& f) -> ui::TextBox& { return f.txtRefOscFreq; }, ChannelKey::RefOscFreq, "255", "255.00002",
         "0", "-1e-5", 0, 255, "Reference bias setting must be between 0 and 255."},
        {"VcoDeviation", [](Form& f) -> ui::TextBox& { return f.txtVcoDeviation; }, ChannelKey::VCODev, "255",
         "255.00002", "0", "-1e-45", 255, 0, "VCO deviation setting must be between 0 and 255."},
        {"ReferenceLevel", [](Form& f) -> ui::TextBox& { return f.txtRefOscDev; }, ChannelKey::RefOscDev, "255",
         "255.00002", "0", "-1e-45", 255, 0, "Reference level setting must be between 0 and 255."},
    };
    return cases;
}

class Bounds : public EditFormWorld, public testing::WithParamInterface<BoundCase> {
protected:
    Boxes store(const std::string& text) {
        load();
        fill(*table, number, {{GetParam().key, 1}});
        GetParam().box(form).setText(text);
        apply();
        return boxes();
    }
};

TEST_P(Bounds, AreAcceptedAndOneUnitInTheLastPlaceBeyondIsRefused) {
    const auto& bound = GetParam();
    EXPECT_EQ(store(bound.lastAccepted), Boxes{});
    EXPECT_EQ(at(bound.key), i16(bound.highestStored));
    EXPECT_EQ(store(bound.lowestAccepted), Boxes{});
    EXPECT_EQ(at(bound.key), i16(bound.lowestStored));
    EXPECT_EQ(store(bound.firstRefused), Boxes{refusal(bound.message)});
    EXPECT_EQ(at(bound.key), Value{1});
    EXPECT_EQ(bound.box(form).foreColor(), ui::red);
    if (bound.belowRefused != nullptr) {
        EXPECT_EQ(store(bound.belowRefused), Boxes{refusal(bound.message)});
        EXPECT_EQ(at(bound.key), Value{1});
    }
}

TEST_P(Bounds, ATextThatIsNoNumberWritesNothingAndTellsNothing) {
    for (const char* const text : {"", " ", "abc", "1,5", "12 MHz", "12kHz", "1e999", "--1", "0x10"}) {
        EXPECT_EQ(store(text), Boxes{}) << text;
        EXPECT_EQ(at(GetParam().key), Value{1}) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, Bounds, testing::ValuesIn(boundCases()),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST_F(Storing, FrequencyBoundsAreHeldInDoublePrecision) {
    for (const auto& [text, accepted] : std::vector<std::pair<std::string, bool>>{{"10", true},
                                                                                  {"9.999999999999998", false},
                                                                                  {"9.999999", false},
                                                                                  {"1000", true},
                                                                                  {"1000.0000000000001", false},
                                                                                  {"1000.000001", false},
                                                                                  {"0", true},
                                                                                  {"5e-324", false},
                                                                                  {"-145", false}}) {
        load();
        form.txtTxFrequency.setText(text);
        form.txtRxFrequency.setText(text);
        apply();
        EXPECT_EQ(boxes().size(), accepted ? 0U : 2U) << text;
    }
}

TEST_F(Storing, ToneBoundsAreHeldInSinglePrecision) {
    for (const auto& [text, accepted] : std::vector<std::pair<std::string, bool>>{{"65", true},
                                                                                  {"64.99999", false},
                                                                                  {"64.9", false},
                                                                                  {"257", true},
                                                                                  {"257.00003", false},
                                                                                  {"257.1", false},
                                                                                  {"-0.1", false}}) {
        load();
        form.cmbTxSubtone.userTyped(text);
        form.cmbRxSubtone.userTyped(text);
        apply();
        EXPECT_EQ(boxes().size(), accepted ? 0U : 2U) << text;
    }
}

TEST_F(Storing, FrequenciesAndTonesThatAreNoNumbersWriteNothingAndTellNothing) {
    for (const char* const text : {"", "abc", "145,5", "145.5 MHz", "100Hz", "1e999"}) {
        load({{ChannelKey::TxSub, 88.5F}, {ChannelKey::RxSub, 88.5F}});
        grid.setText(number, 1, "before");
        form.txtTxFrequency.setText(text);
        form.txtRxFrequency.setText(text);
        form.cmbTxSubtone.userTyped(text);
        form.cmbRxSubtone.userTyped(text);
        apply();
        EXPECT_EQ(boxes(), Boxes{}) << text;
        EXPECT_EQ(numberAt(ChannelKey::TxFreq), 145e6);
        EXPECT_EQ(numberAt(ChannelKey::RxFreq), 145.6e6);
        EXPECT_EQ(at(ChannelKey::TxSub), (Value{88.5F}));
        EXPECT_EQ(at(ChannelKey::RxSub), (Value{88.5F}));
        EXPECT_EQ(cell(1), "before");
    }
}

TEST_F(Storing, ADecimalCommaIsReadWhereTheUsersNumbersHaveOne) {
    frmChannelEdit other(desktop, {.decimalSeparator = ','});
    other.setCentralDataStore(table);
    other.setGrid(&grid);
    other.setChannel(number);
    other.UpdateAccess(5);
    load({{ChannelKey::TxSub, 88.5F}});
    other.refresh();
    EXPECT_EQ(other.txtTxFrequency.text(), "145,000000");
    EXPECT_EQ(other.cmbTxSubtone.text(), "88,5");
    EXPECT_EQ(other.txtTxSynthStepSize.text(), "12,5");
    other.txtTxFrequency.setText("145,5");
    other.txtTxSynthStepSize.setText("6,25");
    other.cmdApply.userPress();
    EXPECT_EQ(numberAt(ChannelKey::TxFreq), 145.5e6);
    EXPECT_EQ(at(ChannelKey::SynthStep), i16(6250));
    EXPECT_EQ(cell(3), "88,5 Hz");
}

// -- the whole walk --------------------------------------------------------------------------------------------------

TEST_F(Storing, EveryBadFieldIsToldInOrderAndEndsRed) {
    load();
    const std::vector<ui::TextBox*> bad{&form.txtTxFrequency,     &form.txtRxFrequency,     &form.txtTxSubtoneLevel,
                                        &form.txtTxSynthStepSize, &form.txtRxSynthStepSize, &form.txtTxAccelIntegral,
                                        &form.txtRxAccelIntegral, &form.txtTxBinaryMain,    &form.txtRxBinaryMain,
                                        &form.txtTransmitPower,   &form.txtRefOscFreq,      &form.txtVcoDeviation,
                                        &form.txtRefOscDev};
    for (auto* const box : bad) {
        box->setText("5000");
    }
    form.cmbTxSubtone.userTyped("5000");
    form.cmbRxSubtone.userTyped("5000");
    apply();
    Texts told;
    for (const auto& box : boxes()) {
        told.push_back(box.text);
    }
    EXPECT_EQ(
        told,
        (Texts{"Transmit frequency must be between 10 and 1000 MHz or 0 to disable.",
               "Receive frequency must be between 10 and 1000 MHz.",
               "Transmit subtone must be between 65 and 257 Hz or 0 to disable.",
               "Receive subtone must be between 65 and 257 Hz or 0 to disable.",
               "Transmitter subtone level must be between 0 and 6.", stepMessage, stepMessage, integralMessage,
               integralMessage, mainMessage, mainMessage, "Transmit power setting must be between 0 and 255.",
               "Reference bias setting must be between 0 and 255.", "VCO deviation setting must be between 0 and 255.",
               "Reference level setting must be between 0 and 255."}));
    for (auto* const box : bad) {
        EXPECT_EQ(box->foreColor(), ui::red) << box->name();
        box->GotFocus();
        EXPECT_EQ(box->foreColor(), ui::black) << box->name();
    }
    form.refresh();
    EXPECT_EQ(form.cmbTxSubtone.foreColor(), ui::black);
}

TEST_F(Storing, WritesInTheOrderOfTheSteps) {
    const auto recording = std::make_shared<RecordingStore>(*table);
    form.setCentralDataStore(recording);
    load();
    recording->forget();
    apply();
    Texts writes;
    for (const auto& call : recording->calls()) {
        if (call.ends_with("=")) {
            writes.push_back(call.substr(call.find('.') + 1, call.size() - call.find('.') - 2));
        }
    }
    EXPECT_EQ(writes, (Texts{"TxFreq",
                             "RxFreq",
                             "TxSub",
                             "TxCTCSSDCS",
                             "TxDCSIndex",
                             "ModeBits",
                             "ModeBits",
                             "RxCTCSSDCS",
                             "RxSub",
                             "RxCTCSSDCS",
                             "RxDCSIndex",
                             "ModeBits",
                             "ModeBits",
                             "scan",
                             "ModeBits",
                             "ModeBits",
                             "TxLevel",
                             "SynthStep",
                             "RxSynthStep",
                             "AccelInt",
                             "RxAccelInt",
                             "BinMain",
                             "RxBinMain",
                             "Modulo",
                             "RxModulo",
                             "AccelProp",
                             "RxAccelProp",
                             "TxPower",
                             "RefOscFreq",
                             "VCODev",
                             "RefOscDev",
                             "P25TransmitMode",
                             "p25RepeaterEnable",
                             "TTRAnalogDataMode",
                             "P25TxNetworkAccessCode",
                             "P25RxNetworkAccessCode",
                             "P25TalkgroupID"}));
}

TEST_F(Storing, AStoreThatFailsAtAnyOneCallLosesThatStatementAndNothingElse) {
    load();
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    form.refresh();
    failing->failAt(0);
    apply();
    const int calls = failing->calls();
    ASSERT_GT(calls, 40);
    for (int call = 1; call <= calls; ++call) {
        fillDistinct(*table, number);
        failing->failAt(0);
        form.refresh();
        ASSERT_TRUE(form.cmdApply.enabled());
        form.txtRxBinaryMain.setText("201");
        form.txtP25TalkgroupID.setText("ABCD");
        form.txtTxSubtoneLevel.setText("1");
        form.txtTxAccelIntegral.setText("1");
        form.txtRxAccelIntegral.setText("1");
        form.cmbTxSubtone.loadText("100");
        form.cmbRxSubtone.loadText("100");
        events.clear();
        failing->failAt(call);
        apply();
        EXPECT_EQ(boxes(), Boxes{}) << call;
        EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"})) << call;
        const int missing =
            (at(ChannelKey::RxBinMain) != i16(201)) + (at(ChannelKey::P25TalkgroupID) != base::textValue("ABCD"));
        EXPECT_LE(missing, 1) << call;
        EXPECT_TRUE(form.enabled());
    }
}

TEST_F(Storing, AStoreThatIsGoneFromAnyCallOnTellsNothingAndLeavesTheFormUsable) {
    load();
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    form.refresh();
    failing->failAt(0);
    apply();
    const int calls = failing->calls();
    for (int call = 1; call <= calls; ++call) {
        failing->failAt(call, FailureSpan::FromThereOn);
        events.clear();
        apply();
        EXPECT_EQ(boxes(), Boxes{}) << call;
        EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
        EXPECT_TRUE(form.enabled());
        EXPECT_EQ(desktop.pointers().back(), ui::Pointer::Default);
    }
}

TEST_F(Storing, AMessageWhoseTitleCannotBeReadHasTheDefaultTitle) {
    load();
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    form.refresh();
    form.txtTxFrequency.setText("5");
    failing->failAt(1, FailureSpan::FromThereOn);
    apply();
    ASSERT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(desktop.boxes()[0].title, "Tesslin");
}

TEST_F(Storing, AStoreThatIsExchangedBehindAMessageGetsNothing) {
    load();
    const auto other = std::make_shared<model::MemoryDataStore>();
    const auto untouched = tableText(*other);
    form.txtTxFrequency.setText("5");
    form.txtRxBinaryMain.setText("77");
    desktop.duringBox = [&](const ui::MessageBox&) { form.setCentralDataStore(other); };
    apply();
    EXPECT_EQ(tableText(*other), untouched);
    EXPECT_NE(at(ChannelKey::RxBinMain), i16(77));
    EXPECT_EQ(desktop.boxes().size(), 1U);
    EXPECT_TRUE(form.enabled());
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
}

// -- copying ---------------------------------------------------------------------------------------------------------

TEST_F(Storing, SharedSettingsGoToTheOtherSelectedChannelsInOrderAndNothingElse) {
    const auto recording = std::make_shared<RecordingStore>(*table);
    fillDistinct(*table, 6);
    fillDistinct(*table, 8);
    const auto own = at(ChannelKey::TxFreq, 8);
    const auto tone = at(ChannelKey::RxSub, 8);
    form.setCentralDataStore(recording);
    load({{ChannelKey::ModeBits, 0x80}, {ChannelKey::P25TalkgroupID, base::textValue("AAAA")}});
    form.setSelectedChannels(6, 8);
    form.ckScanChannel.userClick();
    form.txtTxBinaryMain.setText("9");
    recording->forget();
    events.clear();
    apply();
    Texts copied;
    for (const auto& call : recording->calls()) {
        if (call.starts_with("ChannelTable(7).") && call.ends_with("=")) {
            copied.push_back(call.substr(16, call.size() - 17));
        }
        EXPECT_FALSE(call.starts_with("ChannelTable(4)") || call.starts_with("ChannelTable(8)")) << call;
    }
    EXPECT_EQ(copied, (Texts{"scan",
                             "ModeBits",
                             "P25TransmitMode",
                             "p25RepeaterEnable",
                             "P25TalkgroupID",
                             "P25TxNetworkAccessCode",
                             "P25RxNetworkAccessCode",
                             "TxLevel",
                             "SynthStep",
                             "AccelInt",
                             "BinMain",
                             "Modulo",
                             "AccelProp",
                             "TxPower",
                             "VCODev",
                             "RefOscFreq",
                             "RefOscDev",
                             "NBVCODev",
                             "NBRefOscDev",
                             "NBRefOscFreq",
                             "RxBinMain",
                             "RxSynthStep",
                             "RxAccelInt",
                             "RxModulo",
                             "RxAccelProp"}));
    EXPECT_EQ(at(ChannelKey::BinMain, 6), i16(9));
    EXPECT_EQ(at(ChannelKey::BinMain, 8), i16(9));
    EXPECT_EQ(base::toBits(at(ChannelKey::ModeBits, 8)), modeBits());
    EXPECT_EQ(at(ChannelKey::TxFreq, 8), own);
    EXPECT_EQ(at(ChannelKey::RxSub, 8), tone);
    EXPECT_EQ(cell(5, 8) + "," + cell(6, 8) + "," + cell(7, 8) + "," + cell(8, 8), "Duplex,Yes,Narrow,Analogue");
    EXPECT_EQ(form.copiedChannels(), (std::vector<std::int16_t>{6, 8}));
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
}

TEST_F(Storing, CopiedChannelsShowTheFormsMode) {
    table->put(StoreMember::RadioConfigurationCode, 7);
    load();
    form.setSelectedChannels(7, 8);
    form.optP25TransmitMode[1].userClick();
    const std::vector<std::pair<int, std::string>> modes{
        {0, "Simplex"}, {1, "Duplex"}, {2, "Repeater"}, {3, "P25 Repeater"}, {4, "Repeater"}};
    for (const auto& [mode, text] : modes) {
        form.optRFMode[static_cast<std::size_t>(mode)].userClick();
        apply();
        EXPECT_EQ(cell(5, 8), text);
        EXPECT_EQ(cell(8, 8), "P25 Digital");
    }
    table->put(StoreMember::BandwidthSwitchable, false);
    apply();
    EXPECT_EQ(cell(7, 8), "N/A");
}

TEST_F(Storing, ARefusedFieldCopiesNothing) {
    load();
    form.setSelectedChannels(7, 8);
    form.txtTxBinaryMain.setText("9");
    form.txtTransmitPower.setText("256");
    apply();
    EXPECT_EQ(at(ChannelKey::BinMain), i16(9));
    EXPECT_EQ(at(ChannelKey::BinMain, 8), (Value{0}));
    EXPECT_TRUE(form.copiedChannels().empty());
}

TEST_F(Storing, ASelectionCountsOnlyWithTwoRowsAndTheEditedChannelAmongThem) {
    load();
    const auto label = [&](std::int16_t first, std::int16_t last) {
        form.setSelectedChannels(first, last);
        return form.lblSelectedChannels.visible() ? form.lblSelectedChannels.caption() : "";
    };
    EXPECT_EQ(label(5, 10), "Also applies to channels 5 to 10");
    EXPECT_EQ(label(7, 7), "");
    EXPECT_EQ(label(8, 10), "");
    EXPECT_EQ(label(1, 255), "Also applies to channels 1 to 255");
    EXPECT_EQ(label(0, 255), "");
    EXPECT_EQ(label(7, 256), "");
    EXPECT_EQ(label(10, 5), "");
}

}  // namespace
}  // namespace telvar::tests
