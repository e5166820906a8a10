#include <stdexcept>

#include "control_world.h"
#include "model/memory_data_store.h"
#include "support/failing_store.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using control::GridCommand;
using control::Surroundings;

class Lifecycle : public ControlWorld {};

// -- start-up --------------------------------------------------------------------------------------------------------

TEST_F(Lifecycle, TheGridHas256RowsAnd27Columns) {
    EXPECT_EQ(grid().rows(), 256);
    EXPECT_EQ(grid().columns(), 27);
}

TEST_F(Lifecycle, TheHiddenListHoldsThe83DcsCodes) {
    EXPECT_EQ(control->pcmbDCSCodes.listCount(), 83);
    EXPECT_EQ(control->pcmbDCSCodes.items().front(), "023");
    EXPECT_EQ(control->pcmbDCSCodes.items().back(), "754");
    EXPECT_FALSE(control->pcmbDCSCodes.visible());
}

TEST_F(Lifecycle, LockOffIsTheFirstLockMode) {
    EXPECT_EQ(control->lockModes.selected(), 0);
    EXPECT_EQ(control->optLockMode[0].caption(), "Lock Off");
    EXPECT_EQ(control->optLockMode[1].caption(), "Lock Pots");
    EXPECT_EQ(control->optLockMode[2].caption(), "Lock Channel Settings");
    EXPECT_EQ(control->ckLockData.caption(), "Lock Data");
    EXPECT_EQ(control->ckLockData.value(), 0);
}

TEST_F(Lifecycle, TheTimerTicksEvery200Milliseconds) {
    EXPECT_EQ(control->Timer1.interval(), 200ms);
    EXPECT_TRUE(desktop.runs(control->Timer1));
}

TEST_F(Lifecycle, NothingIsRememberedAtFirst) {
    EXPECT_EQ(control->confirmation.answer(), 0);
    EXPECT_FALSE(control->confirmation.ignoreWarning());
    EXPECT_EQ(control->accessLevel(), 0);
    EXPECT_FALSE(control->bHidden);
    EXPECT_EQ(control->intPrevChannel, 0);
    EXPECT_FALSE(control->closed());
    EXPECT_FALSE(grid().highlightShown());
}

TEST_F(Lifecycle, StartingUpTellsNothing) {
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Lifecycle, TheFormKnowsTheGridAndItsMenuStartsWithoutUndoAndRedo) {
    EXPECT_EQ(control->frmCE.grid(), &grid());
    EXPECT_TRUE(control->frmCE.mnuPopUpMenuCopy.enabled());
    EXPECT_FALSE(control->frmCE.mnuPopUpMenuUndo.enabled());
    EXPECT_FALSE(control->frmCE.mnuPopUpMenuRedo.enabled());
}

TEST_F(Lifecycle, TheSurfaceHoldsTheWidgetsInTabOrder) {
    Log names;
    for (const auto* child : control->panel().children()) {
        names.push_back(child->name());
    }
    EXPECT_EQ(names, (Log{"fgdDatabase", "lblSoftwareChannelSelect", "txtChannelSelect", "cmdChannelSelect",
                          "frLockMode", "optLockMode(0)", "optLockMode(1)", "optLockMode(2)", "ckLockData"}));
}

TEST(BackupTables, ComeFromTheFactoryTwice) {
    TestDesktop desktop;
    std::vector<model::DataStorePointer> made;
    const ChannelInformation control(
        Surroundings{.desktop = desktop,
                     .makeTable = [&] { return made.emplace_back(std::make_shared<model::MemoryDataStore>()); },
                     .logPath = ""});
    ASSERT_EQ(made.size(), 2U);
    EXPECT_EQ(control.undoTable(), made[0]);
    EXPECT_EQ(control.redoTable(), made[1]);
}

struct Factory {
    const char* name;
    std::function<model::DataStorePointer()> make;
};
class NoFactory : public testing::TestWithParam<Factory> {};

TEST_P(NoFactory, TablesInMemoryServe) {
    TestDesktop desktop;
    const ChannelInformation control(Surroundings{.desktop = desktop, .makeTable = GetParam().make, .logPath = ""});
    ASSERT_NE(dynamic_cast<model::MemoryDataStore*>(control.undoTable().get()), nullptr);
    ASSERT_NE(dynamic_cast<model::MemoryDataStore*>(control.redoTable().get()), nullptr);
    EXPECT_NE(control.undoTable(), control.redoTable());
    EXPECT_EQ(desktop.boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(
    All, NoFactory,
    testing::Values(Factory{"Missing", nullptr}, Factory{"AnswersNull", [] { return model::DataStorePointer(); }},
                    Factory{"Fails", []() -> model::DataStorePointer { throw std::runtime_error("no class"); }}),
    [](const auto& factory) { return std::string(factory.param.name); });

// -- links -----------------------------------------------------------------------------------------------------------

TEST_F(Lifecycle, TheFormsGetTheLinksOnlyWhenTheyAreDistributed) {
    EXPECT_EQ(control->frmCE.centralDataStore(), nullptr);
    EXPECT_EQ(control->frmCE.radioComms(), nullptr);
    control->DistributeDataStoreLink();
    EXPECT_EQ(control->frmCE.centralDataStore(), store);
    EXPECT_EQ(control->frmFill().centralDataStore(), store);
    EXPECT_EQ(control->frmCE.radioComms(), nullptr);
    control->DistributeRadioCommsLink();
    EXPECT_EQ(control->frmCE.radioComms(), link);
}

TEST_F(Lifecycle, AFillDialogThatIsNeededEarlierTakesThePresentStore) {
    auto& dialog = control->frmFill();
    EXPECT_EQ(dialog.centralDataStore(), store);
    EXPECT_EQ(dialog.caption(), "Channel Fill");
    const auto other = std::make_shared<model::MemoryDataStore>();
    control->setCentralDataStore(other);
    EXPECT_EQ(dialog.centralDataStore(), store);
    control->DistributeDataStoreLink();
    EXPECT_EQ(&control->frmFill(), &dialog);
    EXPECT_EQ(dialog.centralDataStore(), other);
}

TEST_F(Lifecycle, ExchangedLinksReachTheFormsByTheNextDistribution) {
    control->DistributeDataStoreLink();
    control->DistributeRadioCommsLink();
    control->setCentralDataStore(nullptr);
    control->setRadioComms(nullptr);
    EXPECT_EQ(control->frmCE.centralDataStore(), store);
    EXPECT_EQ(control->frmCE.radioComms(), link);
    control->DistributeDataStoreLink();
    control->DistributeRadioCommsLink();
    EXPECT_EQ(control->frmCE.centralDataStore(), nullptr);
    EXPECT_EQ(control->frmCE.radioComms(), nullptr);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Lifecycle, AnotherStoreForgetsUndoAndRedoAndTheSameOneDoesNot) {
    auto& form = control->frmCE;
    form.mnuPopUpMenuUndo.setEnabled(true);
    form.mnuPopUpMenuRedo.setEnabled(true);
    control->setCentralDataStore(store);
    EXPECT_TRUE(form.mnuPopUpMenuUndo.enabled());
    control->setCentralDataStore(std::make_shared<model::MemoryDataStore>());
    EXPECT_FALSE(form.mnuPopUpMenuUndo.enabled());
    EXPECT_FALSE(form.mnuPopUpMenuRedo.enabled());
}

TEST_F(Lifecycle, TheHostsOwnValuesAreKept) {
    control->bHidden = true;
    control->intPrevChannel = 77;
    control->Prepare();
    control->UpdateControlsFromMemory();
    EXPECT_TRUE(control->bHidden);
    EXPECT_EQ(control->intPrevChannel, 77);
}

TEST_F(Lifecycle, HideAdvancedButtonDoesNothing) {
    control->HideAdvancedButton();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(events, Log{});
}

// -- what the forms tell ---------------------------------------------------------------------------------------------

class WriteLog : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    Log writes;

protected:
    void onCall(const StoreCall& call) override {
        if (call.kind == StoreCall::Kind::Put) {
            writes.push_back(describe(call));
        }
    }
};

TEST_F(Lifecycle, ChangedDataSetsBothFlagsInOrder) {
    const auto log = decorate<WriteLog>();
    control->frmCE.DataChanged();
    EXPECT_EQ(log->writes, (Log{"DataModified=", "ChannelDataModified="}));
    EXPECT_EQ(store->get(StoreMember::DataModified), base::Value{true});
    EXPECT_EQ(store->get(StoreMember::ChannelDataModified), base::Value{true});
}

TEST_F(Lifecycle, ChangedDataWithAFailingStoreIsTold) {
    decorate<FailingStore>()->failAt(1);
    control->frmCE.DataChanged();
    EXPECT_EQ(boxes(), (Boxes{errorIn("frmCE_DataChanged")}));
}

TEST_F(Lifecycle, TheFormsOtherEventsArePassedOn) {
    control->frmCE.EditClosed();
    control->frmCE.OpenLoginWithChannelEdit();
    control->frmCE.PauseDiagnosticsIfRunning();
    EXPECT_EQ(events, (Log{"EditWindowClosed", "OpenLoginWithChannelEdit", "PauseDiagnostics"}));
}

TEST_F(Lifecycle, TheFormHasItsRowRendered) {
    fill(*store, 7, {{ChannelKey::TxFreq, 145'500'000}});
    std::int16_t channel = 7;
    control->frmCE.NeedToUpdateFlexGrid(channel);
    EXPECT_EQ(grid().text(7, 1), "145.500000");
    EXPECT_EQ(grid().row(), 7);
    channel = 256;
    control->frmCE.NeedToUpdateFlexGrid(channel);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
}

class PopUpCode : public Lifecycle, public testing::WithParamInterface<std::int16_t> {};

TEST_P(PopUpCode, ChangesNothingWithoutACommandThatIsAvailable) {
    fillDistinct(*store, 1);
    control->Prepare();
    control->UpdateControlsFromMemory();
    const auto before = tableText(*store);
    const auto texts = gridTexts();
    events.clear();
    std::int16_t code = GetParam();
    control->frmCE.PopUpMenuClick(code);
    EXPECT_EQ(tableText(*store), before);
    EXPECT_EQ(gridTexts(), texts);
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(desktop.clipboard, std::nullopt);
}

// Nothing to undo or redo, and codes of no command.
INSTANTIATE_TEST_SUITE_P(All, PopUpCode, testing::Values(3, 4, 5, 100, 32767, -1));

// -- the host's command target ---------------------------------------------------------------------------------------

TEST_F(Lifecycle, UndoAndRedoAreEnabledAsTheirMenuItemsAre) {
    EXPECT_FALSE(control->commandEnabled(GridCommand::Undo));
    EXPECT_FALSE(control->commandEnabled(GridCommand::Redo));
    control->frmCE.mnuPopUpMenuUndo.setEnabled(true);
    EXPECT_TRUE(control->commandEnabled(GridCommand::Undo));
    EXPECT_FALSE(control->commandEnabled(GridCommand::Redo));
}

TEST_F(Lifecycle, EverythingIsEveryChannelAndColumn) {
    control->selectAll();
    EXPECT_EQ(selection(), (ui::CellRange{1, 1, 255, 26}));
}

// -- the end ---------------------------------------------------------------------------------------------------------

TEST_F(Lifecycle, ClosingStopsTheTimerAndLetsEverythingGo) {
    control->DistributeDataStoreLink();
    control->DistributeRadioCommsLink();
    control->HighLightChannel(3);
    desktop.tick(control->Timer1);
    control->close();
    control->close();
    EXPECT_TRUE(control->closed());
    EXPECT_FALSE(desktop.runs(control->Timer1));
    EXPECT_FALSE(grid().highlightShown());
    EXPECT_EQ(store.use_count(), 1);
    EXPECT_EQ(link.use_count(), 1);
    EXPECT_EQ(control->undoTable(), nullptr);
    EXPECT_EQ(control->redoTable(), nullptr);
}

TEST_F(Lifecycle, AClosedControlDoesNothingMore) {
    control->close();
    control->setCentralDataStore(store);
    control->setRadioComms(link);
    control->Prepare();
    control->DistributeDataStoreLink();
    control->DistributeRadioCommsLink();
    control->UpdateControlsFromMemory();
    control->UpdateRowData(1);
    control->UpdateChannelSelection();
    control->HighLightChannel(1);
    control->SetRowBackColour(1, 255);
    control->UpdateAccess(5);
    control->PrintInfo();
    control->ChannelKeyUp();
    control->cmdChannelSelect.userPress();
    control->optLockMode[1].userClick();
    control->frmCE.DataChanged();
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(1, 0), "");
    EXPECT_EQ(store.use_count(), 1);
}

TEST_F(Lifecycle, EndingTheControlClosesIt) {
    control.reset();
    EXPECT_EQ(store.use_count(), 1);
    EXPECT_EQ(link.use_count(), 1);
}

struct Closing {
    const char* name;
    void (*connect)(ChannelInformation&);
    void (*act)(ChannelInformation&);
};
class ClosedInside : public Lifecycle, public testing::WithParamInterface<Closing> {};

TEST_P(ClosedInside, EndsTheRoutineQuietly) {
    store->put(StoreMember::TableOpen, true);
    control->txtChannelSelect.setText("300");
    GetParam().connect(*control);
    GetParam().act(*control);
    EXPECT_TRUE(control->closed());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(events.size(), 1U);
    EXPECT_TRUE(grid().redraw());
    EXPECT_EQ(store.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    All, ClosedInside,
    testing::Values(
        Closing{"NewWindowCaption",
                [](ChannelInformation& c) { c.NewWindowCaption.connect([&c](std::string&) { c.close(); }); },
                [](ChannelInformation& c) { c.UpdateControlsFromMemory(); }},
        Closing{"PrintChannelData", [](ChannelInformation& c) { c.PrintChannelData.connect([&c] { c.close(); }); },
                [](ChannelInformation& c) { c.PrintInfo(); }},
        Closing{"EditWindowClosed", [](ChannelInformation& c) { c.EditWindowClosed.connect([&c] { c.close(); }); },
                [](ChannelInformation& c) { c.frmCE.EditClosed(); }},
        Closing{"OpenLogin", [](ChannelInformation& c) { c.OpenLoginWithChannelEdit.connect([&c] { c.close(); }); },
                [](ChannelInformation& c) { c.frmCE.OpenLoginWithChannelEdit(); }},
        Closing{"PauseDiagnostics", [](ChannelInformation& c) { c.PauseDiagnostics.connect([&c] { c.close(); }); },
                [](ChannelInformation& c) { c.frmCE.PauseDiagnosticsIfRunning(); }},
        Closing{"Hourglass", [](ChannelInformation& c) { c.HourglassOverWindow.connect([&c] { c.close(); }); },
                [](ChannelInformation& c) { c.cmdChannelSelect.userPress(); }}),
    [](const auto& closing) { return std::string(closing.param.name); });

TEST_F(Lifecycle, AControlClosedInTheMiddleOfARefreshStopsThere) {
    control->IncrementProgressBar.connect([this] {
        if (grid().row() == 17) {
            control->close();
        }
    });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(events.size(), 1U + 17U);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(grid().redraw());
    EXPECT_EQ(store->get(StoreMember::GridLoaded), base::Value{false});
}

TEST_F(Lifecycle, AControlClosedWhileItsBoxIsOpenStaysQuiet) {
    control->txtChannelSelect.setText("300");
    desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
    control->cmdChannelSelect.userPress();
    EXPECT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(events, (Log{"HourglassOverWindow"}));
}

// A store whose call brings the host back in, which closes the control, and then fails.
class ClosingStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void()> onRead;

protected:
    void onCall(const StoreCall& call) override {
        if (call.kind == StoreCall::Kind::ReadChannel) {
            onRead();
            throw std::runtime_error("gone");
        }
    }
};

TEST_F(Lifecycle, AControlClosedInsideAStoresCallTellsNothing) {
    const auto closing = decorate<ClosingStore>();
    closing->onRead = [this] { control->close(); };
    control->UpdateControlsFromMemory();
    EXPECT_TRUE(control->closed());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(grid().redraw());
}

TEST_F(Lifecycle, RefreshingAHiddenEditFormDoesNothing) {
    fillDistinct(*store, 1);
    const auto before = tableText(*store);
    control->RefreshEditForm();
    EXPECT_EQ(tableText(*store), before);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(events, Log{});
}

}  // namespace
}  // namespace telvar::tests
