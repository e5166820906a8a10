// The control is closed inside every box, question, event and store write of everything that it does for its edit form.
// Whatever the routine would have done after that does not happen: no further event, write, box, or call of the link.
#include "watched_control.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::Answer;

class ClosedInsideEachStop : public testing::TestWithParam<Situation> {};

TEST_P(ClosedInsideEachStop, NothingHappensAfterIt) { expectNothingAfterEachStop(GetParam()); }

void nothing(Watched& /*world*/) {}
void opened(Watched& world) { world.doubleClick(4); }
void edited(Watched& world) {
    world.doubleClick(4);
    world.edit();
}
void openedForSeveral(Watched& world) {
    world.answerCopying(true);
    world.grid().select({5, 1}, {8, 3});
    world.control->editChannel();
}
void applies(Watched& world) { world.desktop.answerWith(Answer::Yes); }
void discards(Watched& world) {
    world.desktop.answerWith(Answer::No);
    world.desktop.answerWith(Answer::Yes);
}
void stays(Watched& world) {
    world.desktop.answerWith(Answer::No);
    world.desktop.answerWith(Answer::No);
}
const std::string apply4 = "box: Channel 4 has changes that have not been applied. Apply them now?";
const std::string discard4 = "box: Discard the changes to channel 4?";

INSTANTIATE_TEST_SUITE_P(
    All, ClosedInsideEachStop,
    testing::Values(
        Situation{"DoubleClick",
                  nothing,
                  [](Watched& w) { w.doubleClickOn({4, 2}); },
                  {"SelectionChanged", "SelectedChannel=", "form Load"}},
        Situation{"DoubleClickInsideSeveralRows",
                  [](Watched& w) { w.grid().select({5, 1}, {8, 3}); },
                  [](Watched& w) { w.doubleClickOn({6, 2}); },
                  {"SelectionChanged", "SelectedChannel=", "question", "form Load"}},
        Situation{"DoubleClickThatApplies",
                  edited,
                  [](Watched& w) {
                      applies(w);
                      w.doubleClickOn({9, 2});
                  },
                  {apply4, "form DataChanged", "DataModified=", "ChannelDataModified=", "ChannelTable(3).TxFreq=",
                   "form NeedToUpdateFlexGrid", "SelectedChannel="}},
        Situation{"DoubleClickThatDiscards",
                  edited,
                  [](Watched& w) {
                      discards(w);
                      w.doubleClickOn({9, 2});
                  },
                  {apply4, discard4, "SelectedChannel="}},
        Situation{"DoubleClickThatStays",
                  edited,
                  [](Watched& w) {
                      stays(w);
                      w.doubleClick(9);
                  },
                  {apply4, discard4, "SelectionChanged"}},
        Situation{
            "TheKeyForEditingAgain", openedForSeveral, [](Watched& w) { w.control->editChannel(); }, {"question"}},
        Situation{"FollowingAKey",
                  opened,
                  [](Watched& w) { w.press(ui::key::down); },
                  {"SelectionChanged", "SelectedChannel="}},
        Situation{"FollowingAKeyThatApplies",
                  edited,
                  [](Watched& w) {
                      applies(w);
                      w.press(ui::key::down);
                  },
                  {"SelectionChanged", apply4, "form DataChanged", "DataModified=", "form NeedToUpdateFlexGrid",
                   "SelectedChannel="}},
        Situation{"FollowingAKeyThatDiscards",
                  edited,
                  [](Watched& w) {
                      discards(w);
                      w.press(ui::key::down);
                  },
                  {apply4, discard4, "SelectedChannel="}},
        Situation{"FollowingAKeyThatStays",
                  edited,
                  [](Watched& w) {
                      stays(w);
                      w.press(ui::key::down);
                  },
                  {apply4, discard4, "SelectionChanged"}},
        Situation{"Apply",
                  edited,
                  [](Watched& w) { w.form().cmdApply.userPress(); },
                  {"form DataChanged",
                   "DataModified=", "ChannelDataModified=", "ChannelTable(3).TxFreq=", "form NeedToUpdateFlexGrid"}},
        Situation{"ApplyToSeveral",
                  openedForSeveral,
                  [](Watched& w) { w.form().cmdApply.userPress(); },
                  {"form DataChanged", "ChannelTable(4).scan=", "ChannelTable(7).scan=", "form NeedToUpdateFlexGrid",
                   "SelectionChanged"}},
        Situation{"ApplyOfARefusedField",
                  [](Watched& w) {
                      w.doubleClick(4);
                      w.edit("5");
                  },
                  [](Watched& w) { w.form().cmdApply.userPress(); },
                  {"form DataChanged", "form NeedToUpdateFlexGrid"}},
        Situation{"ApplyOfLockedData",
                  [](Watched& w) {
                      edited(w);
                      w.control->ckLockData.setValue(1);
                  },
                  [](Watched& w) { w.form().cmdApply.userPress(); },
                  {"box: Data is locked. Clear 'Lock Data' to make changes."}},
        Situation{
            "Ok",
            edited,
            [](Watched& w) { w.form().cmdOk.userPress(); },
            {"form DataChanged", "DataModified=", "form NeedToUpdateFlexGrid", "form EditClosed", "EditWindowClosed"}},
        Situation{"Cancel",
                  edited,
                  [](Watched& w) { w.form().cmdCancel.userPress(); },
                  {"form EditClosed", "EditWindowClosed"}},
        Situation{"Login",
                  opened,
                  [](Watched& w) { w.form().cmdAdvanced.userPress(); },
                  {"form OpenLoginWithChannelEdit", "OpenLoginWithChannelEdit"}},
        Situation{"LiveUpdate",
                  [](Watched& w) {
                      w.doubleClick(4);
                      w.form().ckContinuousUpdateEnabled.userClick();
                      w.form().sldTransmitPower.userMoved(-7);
                      w.store->put(StoreMember::CommsBusy, true);
                      // Nobody answers any more.
                      w.desktop.whenPumping([&w] { w.desktop.quit(); });
                  },
                  [](Watched& w) { w.desktop.tick(w.form().tmrUpdate); },
                  {"form PauseDiagnosticsIfRunning", "PauseDiagnostics"}},
        Situation{"PopUpMenuPaste",
                  [](Watched& w) {
                      edited(w);
                      w.desktop.clipboard = "161.25";
                      stays(w);
                  },
                  [](Watched& w) { w.form().mnuPopUpMenuPaste.userChoose(); },
                  {"form PopUpMenuClick", "ChannelTable(3).TxFreq=", "DataModified=", "ChannelDataModified=", apply4,
                   discard4}},
        Situation{
            "PasteUnderEditsThatAreApplied",
            [](Watched& w) {
                edited(w);
                w.desktop.clipboard = "161.25";
                applies(w);
            },
            [](Watched& w) { w.control->run(GridCommand::Paste); },
            {"ChannelTable(3).TxFreq=", "DataModified=", apply4, "form DataChanged", "form NeedToUpdateFlexGrid"}},
        Situation{"LeavingTheTableWithApply",
                  [](Watched& w) {
                      edited(w);
                      applies(w);
                  },
                  [](Watched& w) { static_cast<void>(w.control->leaveEdits()); },
                  {apply4, "form DataChanged", "form NeedToUpdateFlexGrid"}},
        Situation{"LeavingTheTableWithDiscard",
                  [](Watched& w) {
                      edited(w);
                      discards(w);
                  },
                  [](Watched& w) { static_cast<void>(w.control->leaveEdits()); },
                  {apply4, discard4}},
        Situation{"AnExchangedStoreAfterApply",
                  [](Watched& w) {
                      edited(w);
                      applies(w);
                      w.control->setCentralDataStore(w.other);
                  },
                  [](Watched& w) { w.control->DistributeDataStoreLink(); },
                  {apply4, "form DataChanged", "ChannelTable(3).TxFreq=", "form NeedToUpdateFlexGrid"}},
        Situation{"ARefreshUnderEdits",
                  [](Watched& w) {
                      edited(w);
                      applies(w);
                  },
                  [](Watched& w) { w.control->UpdateControlsFromMemory(); },
                  {"NewWindowCaption", "SelectionChanged", "IncrementProgressBar", "GridLoaded=",
                   "box: The channel table has been read anew. Channel 4 has changes that have not been applied. Apply "
                   "them now?",
                   "form DataChanged", "form NeedToUpdateFlexGrid", "SelectedChannel="}},
        Situation{"AReloadByTheHost",
                  [](Watched& w) {
                      edited(w);
                      w.grid().setCurrent({9, 1});
                      discards(w);
                  },
                  [](Watched& w) { w.control->RefreshEditForm(); },
                  {apply4, discard4, "SelectedChannel="}}),
    [](const auto& situation) { return std::string(situation.param.name); });

}  // namespace
}  // namespace telvar::tests
