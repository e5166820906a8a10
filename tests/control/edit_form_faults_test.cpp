// What lies between the grid and the edit form and would look right at the first glance: the selection on opening, the
// rows that settings were copied to, the lists, the separator and the lock mode that the form is given.
#include <functional>
#include <utility>

#include "control_world.h"
#include "support/all_dcs_codes.h"

namespace telvar::tests {
namespace {

class FormOfTheGrid : public ControlWorld {
protected:
    FormOfTheGrid() {
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            fill(*store, channel, {{ChannelKey::TxFreq, 150'000'000}, {ChannelKey::RxFreq, 151'000'000}});
        }
        control->DistributeDataStoreLink();
        control->Prepare();
        control->UpdateControlsFromMemory();
        control->UpdateAccess(5);
    }
    [[nodiscard]] editform::frmChannelEdit& form() const { return control->frmCE; }
    // Opens the form over several rows, with the user's consent to copying.
    void openOver(int from, int to) {
        desktop.duringModal = [](ui::Form& box) { dynamic_cast<editing::frmMsgBox&>(box).cmdYes.userPress(); };
        grid().select({from, 1}, {to, 1});
        doubleClickCurrent();
    }
    [[nodiscard]] double stored(int channel, ChannelKey key) const {
        return base::toDouble(store->channel(static_cast<std::int16_t>(channel)).get(key));
    }
};

// Repaint requests, and the channel that was selected when they came.
class RepaintedGrid : public ui::GridPeer {
public:
    explicit RepaintedGrid(std::function<int()> selected) : selected_(std::move(selected)) {}
    void show(ui::Aspect changed) noexcept override {
        if (changed == ui::Aspect::Everything) {
            selectedAt.push_back(selected_());
        }
    }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const ui::CellRange& /*range*/) noexcept override {}
    void layoutChanged() noexcept override {}
    void highlightChanged() noexcept override {}

    std::vector<int> selectedAt;

private:
    std::function<int()> selected_;
};

TEST_F(FormOfTheGrid, OpeningClearsTheSelectionFirstAndRepaintsTheGridForIt) {
    RepaintedGrid peer([this] { return selectedChannel(); });
    grid().attach(peer);
    grid().setCurrent({4, 1});
    peer.selectedAt.clear();
    doubleClickCurrent();
    grid().detach();
    EXPECT_EQ(peer.selectedAt, std::vector<int>{1});
    EXPECT_EQ(selectedChannel(), 4);
}

TEST_F(FormOfTheGrid, OpeningOverSeveralRowsSaysWhichChannelsItAppliesTo) {
    openOver(4, 9);
    EXPECT_EQ(form().lblSelectedChannels.caption(), "Also applies to channels 4 to 9");
}

TEST_F(FormOfTheGrid, EveryCopiedRowIsRenderedAnewFromTheFirstToTheLastChannel) {
    openOver(1, 255);
    form().ckScanChannel.userClick();
    form().txtTxBinaryMain.setText("9");
    form().txtP25TalkgroupID.setText("ABC");
    form().cmdApply.userPress();
    EXPECT_EQ(boxes(), Boxes{});
    for (const int channel : {1, 2, 128, 254, 255}) {
        EXPECT_EQ(stored(channel, ChannelKey::BinMain), 9.0) << channel;
        EXPECT_EQ(grid().text(channel, 18), "9") << channel;
        EXPECT_EQ(grid().text(channel, 24), "0ABC") << channel;
        const auto rendered = renderedRow(*store, static_cast<std::int16_t>(channel));
        const auto shown = row(channel);
        EXPECT_EQ(Log(shown.begin() + 1, shown.end()), Log(rendered.begin() + 1, rendered.end())) << channel;
    }
    EXPECT_EQ(grid().row(), 1);
}

TEST_F(FormOfTheGrid, AllThreeListsOfCodesHoldAll83InTheirOrder) {
    const auto codes = allDcsCodes();
    ASSERT_EQ(codes.size(), 83U);
    EXPECT_EQ(control->pcmbDCSCodes.items(), codes);
    EXPECT_EQ(form().cmbTxDcs.items(), codes);
    EXPECT_EQ(form().cmbRxDcs.items(), codes);
}

TEST_F(FormOfTheGrid, WritesNumbersWithTheControlsDecimalSeparator) {
    control = std::make_unique<ChannelInformation>(control::Surroundings{
        .desktop = desktop, .makeTable = nullptr, .numberFormat = {.decimalSeparator = ','}, .logPath = logPath});
    control->setCentralDataStore(store);
    control->DistributeDataStoreLink();
    control->Prepare();
    control->UpdateControlsFromMemory();
    grid().setCurrent({4, 1});
    doubleClickCurrent();
    EXPECT_EQ(form().txtTxFrequency.text(), "150,000000");
    form().txtTxFrequency.setText("160,5");
    form().cmdApply.userPress();
    EXPECT_EQ(stored(4, ChannelKey::TxFreq), 160.5e6);
    EXPECT_EQ(grid().text(4, 1), "160,500000");
}

TEST_F(FormOfTheGrid, OnlyTheLockOfChannelSettingsMeansPotentiometersOnly) {
    for (const std::size_t mode : {0U, 1U, 2U}) {
        control->optLockMode[mode].userClick();
        grid().setCurrent({4, 1});
        doubleClickCurrent();
        form().cmdApply.userPress();
        const auto told = boxes();
        ASSERT_EQ(told.size(), mode == 2 ? 1U : 0U) << mode;
        if (mode == 2) {
            EXPECT_EQ(told[0].text,
                      "Pot values have been altered.\r\nTo permanently save changes 'Send Data to Telvar'.");
        }
    }
}

TEST_F(FormOfTheGrid, TheFocusBeginsInTheNumberSoThatLeavingItProposesNothing) {
    fill(*store, 4, {{ChannelKey::TxFreq, 150'000'100}, {ChannelKey::SynthStep, 7000}});
    Log focused;
    for (ui::Widget* const child : form().children()) {
        child->GotFocus.connect([&focused, child] { focused.push_back(child->name()); });
    }
    grid().setCurrent({4, 1});
    doubleClickCurrent();
    EXPECT_EQ(focused, Log{"txtEditChannel"});
    form().txtEditChannel.LostFocus();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_FALSE(form().hasUnappliedEdits());
    EXPECT_EQ(form().txtTxSynthStepSize.text(), "7");
}

TEST_F(FormOfTheGrid, MultipleOfTheFormerTableIsNotTakenForOneOfTheNewTables) {
    fill(*store, 4, {{ChannelKey::ModeBits, 0x04}});
    control->UpdateControlsFromMemory();
    grid().setCurrent({4, 1});
    doubleClickCurrent();
    EXPECT_EQ(form().cmbRxSubtone.text(), "Multiple");
    const auto other = std::make_shared<model::MemoryDataStore>();
    fill(*other, 4, {{ChannelKey::TxFreq, 440'000'000}, {ChannelKey::RxSub, 88.5F}});
    control->setCentralDataStore(other);
    control->DistributeDataStoreLink();
    EXPECT_EQ(form().cmbRxSubtone.text(), "88.5");
}

TEST_F(FormOfTheGrid, AnAppliedMultipleIsStillShown) {
    grid().setCurrent({4, 1});
    doubleClickCurrent();
    form().cmbRxSubtone.userTyped("Multiple");
    form().cmdApply.userPress();
    EXPECT_EQ(form().cmbRxSubtone.text(), "Multiple");
    form().cmdApply.userPress();
    EXPECT_EQ(base::toBits(store->channel(4).get(ChannelKey::ModeBits)) & 0x04, 0x04);
    EXPECT_EQ(grid().text(4, 4), "Multiple");
}

}  // namespace
}  // namespace telvar::tests
