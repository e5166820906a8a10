// The control is closed in the middle of each of its activities: inside every box, question, event, wait and store
// write of it. A table that is copied as a whole is copied to its end, since half of one is no state of it.
#include <set>

#include "session/activity.h"
#include "watched_control.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using session::Activity;
using ui::Answer;

struct InActivity {
    Activity activity;
    Situation situation;
};

void atRow3(Watched& world) { world.grid().setCurrent({3, 1}); }
void changed(Watched& world) {
    atRow3(world);
    world.desktop.clipboard = "161.25";
    world.control->run(GridCommand::Paste);
    atRow3(world);
    world.copiesAreNoStops();
}
void open(Watched& world) {
    world.store->put(StoreMember::TableOpen, true);
    world.store->put(StoreMember::ShowSendWarning, true);
    world.store->put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    for (std::int16_t channel = 1; channel <= 12; ++channel) {
        fill(*world.store, channel, {{ChannelKey::TxFreq, 450'000'000}, {ChannelKey::RxFreq, 0}});
    }
    fill(*world.store, 2, {{ChannelKey::SynthStep, 2500}});
}
void types(Watched& world, const char* channel) { world.control->txtChannelSelect.setText(channel); }

const std::string question = "box: This will delete selected channel(s). Would you like to proceed?";
const std::string apply4 = "box: Channel 4 has changes that have not been applied. Apply them now?";
const std::string discard4 = "box: Discard the changes to channel 4?";

const std::vector<InActivity>& situations() {
    static const std::vector<InActivity> all{
        {Activity::Editing,
         {"Paste",
          [](Watched& w) {
              atRow3(w);
              w.desktop.clipboard = "161.25\r162.5";
          },
          [](Watched& w) { w.control->run(GridCommand::Paste); },
          {"ChannelTable(2).TxFreq=", "ChannelTable(3).TxFreq=", "DataModified=", "ChannelDataModified="}}},
        {Activity::Editing,
         {"RefusedPaste",
          [](Watched& w) {
              atRow3(w);
              w.desktop.clipboard = "161.25\t161.5\tnonsense";
              w.copiesAreNoStops();
          },
          [](Watched& w) { w.control->run(GridCommand::Paste); },
          {"box: Error during pasting data. Invalid DCS value (not found in the table) TX Subtone. Unable to continue.",
           "DataModified="}}},
        {Activity::Editing,
         {"Delete",
          [](Watched& w) {
              atRow3(w);
              w.desktop.answerWith(Answer::Yes);
          },
          [](Watched& w) { w.control->run(GridCommand::Delete); },
          {question, "ChannelTable(2).TxFreq=", "ChannelTable(2).RxFreq=", "DataModified=", "ChannelDataModified="}}},
        {Activity::Editing,
         {"Undo", changed, [](Watched& w) { w.control->run(GridCommand::Undo); }, {"DataModified="}}},
        {Activity::Editing,
         {"Redo",
          [](Watched& w) {
              changed(w);
              w.control->run(GridCommand::Undo);
          },
          [](Watched& w) { w.control->run(GridCommand::Redo); },
          {"DataModified=", "ChannelDataModified="}}},
        {Activity::FillDialog,
         {"Fill",
          [](Watched& w) { w.control->frmFill().start_freq_val.setText("450"); },
          [](Watched& w) { w.control->ChannelFillDown(); },
          {"question", "ChannelTable(0).TxFreq=", "ChannelTable(1).TxFreq=", "DataModified=", "ChannelDataModified="}}},
        {Activity::FillDialog,
         {"FillThatNeedsALogin",
          [](Watched& w) { w.control->UpdateAccess(0); },
          [](Watched& w) { w.control->ChannelFillSeries(); },
          {"OpenLoginWithChannelFill"}}},
        {Activity::Selecting,
         {"ChannelSelect",
          [](Watched& w) {
              w.store->put(StoreMember::ChannelChangeAllowed, true);
              types(w, "7");
          },
          [](Watched& w) {
              w.holdLink();
              w.control->cmdChannelSelect.userPress();
          },
          {"HourglassOverWindow", "PauseDiagnostics", "wait"}}},
        {Activity::Selecting,
         {"ChannelSelectOfNoChannel",
          [](Watched& w) { types(w, "256"); },
          [](Watched& w) { w.control->cmdChannelSelect.userPress(); },
          {"HourglassOverWindow", "CommsBusy=",
           "box: Channel Not configured correctly or Invalid channel selection.\r\nPlease configure the channel "
           "(1-255) "
           "by clicking on its respective row on the grid.",
           "DefaultOverWindow"}}},
        {Activity::Sending,
         {"Send",
          [](Watched& w) {
              open(w);
              w.desktop.answerWith(Answer::Ok);
          },
          [](Watched& w) {
              w.holdLink();
              w.control->SendToTelvar();
          },
          {"SendInProgress=", "DisableCommands", "HourglassOverWindow",
           "box: Phillips SA 7025 PLL chip detected, synthesizer step size 5kHZ or larger is recommended to maintain "
           "RF "
           "performance in channel 2 (TX)",
           "PauseDiagnostics", "wait", "CommsTask=", "ProgressCount="}}},
        {Activity::Sending,
         {"SendThatIsNotConfirmed",
          [](Watched& w) {
              open(w);
              w.desktop.answerWith(Answer::Cancel);
          },
          [](Watched& w) { w.control->SendToTelvar(); },
          {"RestoreButtons", "EnableCommands"}}},
        {Activity::Loading,
         {"Load",
          [](Watched& /*world*/) {},
          [](Watched& w) {
              w.holdLink();
              w.control->LoadFromTelvar();
          },
          {"DisableCommands", "HourglassOverWindow", "PauseDiagnostics", "wait", "CommsTask=", "ProgressCount="}}},
        {Activity::Storing,
         {"Apply",
          [](Watched& w) {
              w.doubleClick(4);
              w.edit("5");
          },
          [](Watched& w) { w.form().cmdApply.userPress(); },
          {"form DataChanged", "DataModified=", "ChannelDataModified=",
           "box: Transmit frequency must be between 10 and 1000 MHz or 0 to disable.",
           "ChannelTable(3).TxFreq=", "form NeedToUpdateFlexGrid"}}},
        {Activity::AskingToLeave,
         {"Question",
          [](Watched& w) {
              w.doubleClick(4);
              w.edit();
              w.desktop.answerWith(Answer::No);
              w.desktop.answerWith(Answer::Yes);
          },
          [](Watched& w) { w.press(ui::key::down); },
          {apply4, discard4, "SelectedChannel="}}},
        {Activity::Updating,
         {"LiveUpdate",
          [](Watched& w) {
              w.doubleClick(4);
              w.form().ckContinuousUpdateEnabled.userClick();
              w.form().sldTransmitPower.userMoved(-7);
          },
          [](Watched& w) {
              w.holdLink();
              w.desktop.tick(w.form().tmrUpdate);
          },
          {"form PauseDiagnosticsIfRunning", "PauseDiagnostics", "wait", "CommsTask=", "ProgressCount="}}}};
    return all;
}

TEST(ClosedInActivity, IsTriedInEveryOneOfThem) {
    std::set<Activity> tried;
    for (const auto& each : situations()) {
        tried.insert(each.activity);
    }
    EXPECT_EQ(tried,
              (std::set<Activity>{Activity::Editing, Activity::FillDialog, Activity::Selecting, Activity::Sending,
                                  Activity::Loading, Activity::Storing, Activity::AskingToLeave, Activity::Updating}));
}

class ClosedInActivity : public testing::TestWithParam<InActivity> {};

TEST_P(ClosedInActivity, NothingHappensAfterIt) { expectNothingAfterEachStop(GetParam().situation); }

INSTANTIATE_TEST_SUITE_P(All, ClosedInActivity, testing::ValuesIn(situations()),
                         [](const auto& each) { return std::string(each.param.situation.name); });

}  // namespace
}  // namespace telvar::tests
