// Faults of storing that would look right at the first glance: a refusal that lets OK close, a cell or a text that is
// written although it should not be, a bound of the other band.
#include "edit_form_world.h"

namespace telvar::tests {
namespace {

using base::Value;
constexpr auto i16 = [](int number) { return Value{static_cast<std::int16_t>(number)}; };

// -- refusals --------------------------------------------------------------------------------------------------------

using Controls = editform::ChannelEditControls;

struct Refusal {
    const char* name;
    ui::Widget& (*field)(Controls&);
    const char* text;
    const char* message;
};

void enterText(ui::Widget& field, const char* text) {
    if (auto* const list = dynamic_cast<ui::ComboBox*>(&field)) {
        list->userTyped(text);
    } else {
        dynamic_cast<ui::TextBox&>(field).setText(text);
    }
}

constexpr auto stepMessage = "Synthesiser step size must be between 0 and 25.5 kHz.";
constexpr auto integralMessage = "Binary accelerator for integral charge pump must be between 0 and 15.";
constexpr auto mainMessage = "Binary accelerator main must be between 0 and 255.";

const std::vector<Refusal>& refusals() {
    static const std::vector<Refusal> all{
        {"TxFrequency", [](Controls& c) -> ui::Widget& { return c.txtTxFrequency; }, "5",
         "Transmit frequency must be between 10 and 1000 MHz or 0 to disable."},
        {"RxFrequency", [](Controls& c) -> ui::Widget& { return c.txtRxFrequency; }, "1001",
         "Receive frequency must be between 10 and 1000 MHz."},
        {"TxTone", [](Controls& c) -> ui::Widget& { return c.cmbTxSubtone; }, "64.9",
         "Transmit subtone must be between 65 and 257 Hz or 0 to disable."},
        {"RxTone", [](Controls& c) -> ui::Widget& { return c.cmbRxSubtone; }, "257.1",
         "Receive subtone must be between 65 and 257 Hz or 0 to disable."},
        {"TxSubtoneLevel", [](Controls& c) -> ui::Widget& { return c.txtTxSubtoneLevel; }, "7",
         "Transmitter subtone level must be between 0 and 6."},
        {"TxStep", [](Controls& c) -> ui::Widget& { return c.txtTxSynthStepSize; }, "25.6", stepMessage},
        {"RxStep", [](Controls& c) -> ui::Widget& { return c.txtRxSynthStepSize; }, "-1", stepMessage},
        {"TxIntegral", [](Controls& c) -> ui::Widget& { return c.txtTxAccelIntegral; }, "16", integralMessage},
        {"RxIntegral", [](Controls& c) -> ui::Widget& { return c.txtRxAccelIntegral; }, "16", integralMessage},
        {"TxMain", [](Controls& c) -> ui::Widget& { return c.txtTxBinaryMain; }, "-1", mainMessage},
        {"RxMain", [](Controls& c) -> ui::Widget& { return c.txtRxBinaryMain; }, "256", mainMessage},
        {"Power", [](Controls& c) -> ui::Widget& { return c.txtTransmitPower; }, "256",
         "Transmit power setting must be between 0 and 255."},
        {"Bias", [](Controls& c) -> ui::Widget& { return c.txtRefOscFreq; }, "256",
         "Reference bias setting must be between 0 and 255."},
        {"Vco", [](Controls& c) -> ui::Widget& { return c.txtVcoDeviation; }, "-1",
         "VCO deviation setting must be between 0 and 255."},
        {"Reference", [](Controls& c) -> ui::Widget& { return c.txtRefOscDev; }, "256",
         "Reference level setting must be between 0 and 255."},
        {"TxCode", [](Controls& c) -> ui::Widget& { return c.txtP25TxNetworkAccessCode; }, "12345",
         "P25 TX Network Access Code must be 4 chars long and in hexadecimal format"},
        {"RxCode", [](Controls& c) -> ui::Widget& { return c.txtP25RxNetworkAccessCode; }, "12G4",
         "P25 RX Network Access Code must be 4 chars long and in hexadecimal format"},
        {"Talkgroup", [](Controls& c) -> ui::Widget& { return c.txtP25TalkgroupID; }, "1 ",
         "P25 Talkgroup ID must be 4 chars long and in hexadecimal format"},
    };
    return all;
}

class Refused : public EditFormWorld, public testing::WithParamInterface<Refusal> {};

TEST_P(Refused, KeepsTheFormOpenBehindOkWithTheFieldInRed) {
    open();
    enterText(GetParam().field(form), GetParam().text);
    form.cmdOk.userPress();
    EXPECT_EQ(boxes(), Boxes{refusal(GetParam().message)});
    EXPECT_TRUE(desktop.isOpen(form));
    EXPECT_FALSE(form.closing());
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    for (ui::Widget* const field : form.markableFields()) {
        EXPECT_EQ(field->foreColor() == ui::red, field == &GetParam().field(form)) << field->name();
    }
}

TEST_P(Refused, CopiesNothingToOtherChannels) {
    open();
    form.setSelectedChannels(7, 8);
    form.ckScanChannel.userClick();
    enterText(GetParam().field(form), GetParam().text);
    apply();
    EXPECT_EQ(at(ChannelKey::scan), (Value{true}));
    EXPECT_EQ(at(ChannelKey::scan, 8), (Value{false}));
}

INSTANTIATE_TEST_SUITE_P(EveryField, Refused, testing::ValuesIn(refusals()),
                         [](const auto& entry) { return std::string(entry.param.name); });

class StoringFaults : public EditFormWorld {};

TEST_F(StoringFaults, ARefusedToneLeavesItsCell) {
    load();
    grid.setText(number, 3, "tx before");
    grid.setText(number, 4, "rx before");
    form.cmbTxSubtone.userTyped("64.9");
    form.cmbRxSubtone.userTyped("64.9");
    apply();
    EXPECT_EQ(cell(3) + ", " + cell(4), "tx before, rx before");
}

// -- levels of the narrow band ---------------------------------------------------------------------------------------

struct NarrowLevel {
    const char* name;
    ui::TextBox frmChannelEdit::* box;
    ChannelKey key;
    const char* belowLowest;
    int lowestStored;
    int highestStored;
    const char* message;
};

class NarrowLevels : public EditFormWorld, public testing::WithParamInterface<NarrowLevel> {
protected:
    Boxes store(const std::string& text) {
        load({{ChannelKey::ModeBits, 0x80}});
        fill(*table, number, {{GetParam().key, 1}});
        (form.*GetParam().box).setText(text);
        apply();
        return boxes();
    }
};

TEST_P(NarrowLevels, AreHeldToTheirBounds) {
    EXPECT_EQ(store("0"), Boxes{});
    EXPECT_EQ(at(GetParam().key), i16(GetParam().lowestStored));
    EXPECT_EQ(store("255"), Boxes{});
    EXPECT_EQ(at(GetParam().key), i16(GetParam().highestStored));
    for (const char* const text : {"255.00002", GetParam().belowLowest}) {
        EXPECT_EQ(store(text), Boxes{refusal(GetParam().message)}) << text;
        EXPECT_EQ(at(GetParam().key), Value{1}) << text;
        EXPECT_EQ((form.*GetParam().box).foreColor(), ui::red) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, NarrowLevels,
    testing::Values(NarrowLevel{"Bias", &Controls::txtNBRefOscFreq, ChannelKey::NBRefOscFreq, "-1e-5", 255, 0,
                                "Reference bias setting must be between 0 and 255."},
                    NarrowLevel{"Vco", &Controls::txtNBVcoDeviation, ChannelKey::NBVCODev, "-1e-45", 0, 255,
                                "VCO deviation setting must be between 0 and 255."},
                    NarrowLevel{"Reference", &Controls::txtNBRefOscDev, ChannelKey::NBRefOscDev, "-1e-45", 0, 255,
                                "Reference level setting must be between 0 and 255."}),
    [](const auto& entry) { return std::string(entry.param.name); });

// -- rows of the grid ------------------------------------------------------------------------------------------------

TEST_F(StoringFaults, AChannelWithOneFrequencyIsInServiceAndKeepsItsCells) {
    load();
    form.txtTxFrequency.setText("0");
    apply();
    EXPECT_EQ(cell(1) + "," + cell(2) + "," + cell(5), "0,145.600000,Duplex");
    load({{ChannelKey::TxFreq, 145'000'000}});
    form.txtRxFrequency.setText("0");
    apply();
    EXPECT_EQ(cell(1) + "," + cell(2) + "," + cell(5), "145.000000,0,Duplex");
}

TEST_F(StoringFaults, TheEditedRowIsTheCurrentOneWhileTheChannelIsStored) {
    load();
    grid.setCurrent({20, 3});
    form.txtTxFrequency.setText("5");
    int rowInBox = 0;
    desktop.duringBox = [&](const ui::MessageBox&) { rowInBox = grid.row(); };
    apply();
    EXPECT_EQ(rowInBox, number);
    EXPECT_EQ(grid.row(), number);
}

TEST_F(StoringFaults, TheOwnRowSaysRepeaterBeforeSimplex) {
    load();
    form.ckTtrChannel.loadValue(1);
    form.ckSimplexChannel.loadValue(1);
    apply();
    EXPECT_EQ(cell(5), "Repeater");
    EXPECT_EQ(modeBits() & 0x03, 0x02);
}

TEST_F(StoringFaults, CopiedRowsSayRepeaterBeforeP25RepeaterBeforeSimplex) {
    struct Case {
        int ttr;
        int p25;
        int simplex;
        const char* text;
    };
    for (const auto& boxes : {Case{1, 1, 1, "Repeater"}, Case{1, 0, 1, "Repeater"}, Case{1, 1, 0, "Repeater"},
                              Case{0, 1, 1, "P25 Repeater"}, Case{0, 0, 1, "Simplex"}, Case{0, 0, 0, "Duplex"}}) {
        load();
        form.setSelectedChannels(7, 8);
        form.ckTtrChannel.loadValue(boxes.ttr);
        form.chkP25RepeaterEnable.loadValue(boxes.p25);
        form.ckSimplexChannel.loadValue(boxes.simplex);
        apply();
        EXPECT_EQ(cell(5, 8), boxes.text) << boxes.ttr << boxes.p25 << boxes.simplex;
    }
}

TEST_F(StoringFaults, CopiedRowsSayTheirBandwidthScanAndTransmitMode) {
    const auto copied = [&](bool narrow, bool scans, bool digital) {
        load({{ChannelKey::ModeBits, narrow ? 0x80 : 0},
              {ChannelKey::scan, scans},
              {ChannelKey::P25TransmitMode, digital}});
        form.setSelectedChannels(7, 8);
        apply();
        return cell(6, 8) + "," + cell(7, 8) + "," + cell(8, 8);
    };
    EXPECT_EQ(copied(false, false, false), "No,Wide,Analogue");
    EXPECT_EQ(copied(true, true, true), "Yes,Narrow,P25 Digital");
    EXPECT_EQ(copied(false, true, false), "Yes,Wide,Analogue");
    table->put(StoreMember::BandwidthSwitchable, false);
    EXPECT_EQ(copied(true, false, true), "No,N/A,P25 Digital");
}

TEST_F(StoringFaults, TheFirstAndTheLastChannelAreAmongTheCopiedOnes) {
    load();
    form.setSelectedChannels(1, 255);
    form.txtTxBinaryMain.setText("9");
    apply();
    for (const std::int16_t channel : std::initializer_list<std::int16_t>{1, 2, 6, 8, 254, 255}) {
        EXPECT_EQ(at(ChannelKey::BinMain, channel), i16(9)) << channel;
    }
    ASSERT_EQ(form.copiedChannels().size(), 254U);
    EXPECT_EQ(form.copiedChannels().front(), 1);
    EXPECT_EQ(form.copiedChannels().back(), 255);
}

// -- how the form ends -----------------------------------------------------------------------------------------------

TEST_F(StoringFaults, OkAndCancelStopTheContinuousUpdate) {
    for (ui::Button* const button : {&form.cmdOk, &form.cmdCancel}) {
        open();
        form.ckContinuousUpdateEnabled.userClick();
        ASSERT_TRUE(desktop.runs(form.tmrUpdate));
        button->userPress();
        EXPECT_FALSE(desktop.isOpen(form)) << button->name();
        EXPECT_FALSE(desktop.runs(form.tmrUpdate)) << button->name();
        EXPECT_FALSE(form.ckContinuousUpdateEnabled.checked()) << button->name();
    }
}

TEST_F(StoringFaults, TheFormIsEnabledBeforeThePointerIsItsUsualOneAgain) {
    open();
    for (ui::Button* const button : {&form.cmdApply, &form.cmdOk}) {
        std::vector<std::pair<ui::Pointer, bool>> seen;
        desktop.onPointer = [&](ui::Pointer pointer) { seen.emplace_back(pointer, form.enabled()); };
        button->userPress();
        EXPECT_EQ(seen, (std::vector<std::pair<ui::Pointer, bool>>{{ui::Pointer::Hourglass, true},
                                                                   {ui::Pointer::Default, true}}))
            << button->name();
    }
}

}  // namespace
}  // namespace telvar::tests
