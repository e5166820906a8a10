// The control is closed inside every box, question, event and store write of everything that it does for its edit form.
// Whatever the routine would have done after that does not happen: no further event, write, box, or call of the link.
#include <functional>
#include <map>
#include <utility>

#include "edit_form_world.h"
#include "support/store_decorator.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::Answer;

// Tells of each write before it is done.
class WatchedStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void(const std::string&)> onWrite;

protected:
    void onCall(const StoreCall& call) override {
        const bool writes = call.kind == StoreCall::Kind::Put || call.kind == StoreCall::Kind::WriteChannel;
        if (writes && onWrite) {
            onWrite(describe(call));
        }
    }
};

// One control with its form, and a list of everything that reaches the outside.
class Watched : public ControlEditForm {
public:
    Watched() {
        watched = decorate<WatchedStore>();
        control->DistributeDataStoreLink();
        other->put(StoreMember::MessageTitle, base::textValue("Bench 4"));
    }
    void TestBody() override {}

    // From now on everything is listed, and the control is closed inside the stop of that number, counted from 1; the
    // same thing is a stop up to three times. 0 closes it nowhere.
    void watch(int closeAt) {
        closeAt_ = closeAt;
        const auto stopsAt = [this](const char* name) { return [this, name](auto&...) { stop(name); }; };
        control->OpenLoginWithChannelEdit.connect(stopsAt("OpenLoginWithChannelEdit"));
        control->PauseDiagnostics.connect(stopsAt("PauseDiagnostics"));
        control->NewWindowCaption.connect(stopsAt("NewWindowCaption"));
        control->EditWindowClosed.connect(stopsAt("EditWindowClosed"));
        control->IncrementProgressBar.connect(stopsAt("IncrementProgressBar"));
        form().DataChanged.connect(stopsAt("form DataChanged"));
        form().EditClosed.connect(stopsAt("form EditClosed"));
        form().NeedToUpdateFlexGrid.connect(stopsAt("form NeedToUpdateFlexGrid"));
        form().OpenLoginWithChannelEdit.connect(stopsAt("form OpenLoginWithChannelEdit"));
        form().PauseDiagnosticsIfRunning.connect(stopsAt("form PauseDiagnosticsIfRunning"));
        form().PopUpMenuClick.connect(stopsAt("form PopUpMenuClick"));
        form().Load.connect(stopsAt("form Load"));
        grid().SelectionChanged.connect(stopsAt("SelectionChanged"));
        watched->onWrite = [this](const std::string& write) { stop(write); };
        desktop.duringBox = [this](const ui::MessageBox& box) { stop("box: " + box.text); };
        desktop.duringModal = [this](ui::Form& form) {
            stop("question");
            if (!control->closed()) {
                dynamic_cast<editing::frmMsgBox&>(form).cmdYes.userPress();
            }
        };
    }

    [[nodiscard]] const Log& happenings() const { return log_; }
    [[nodiscard]] bool wasClosed() const { return closedAfter_ != 0; }
    // What reached the outside after the stop in which the control was closed: the form's own events and the grid's do
    // not, the control stands between.
    [[nodiscard]] Log after() const {
        Log outside(log_.begin() + static_cast<std::ptrdiff_t>(closedAfter_), log_.end());
        std::erase_if(outside, [](const std::string& happening) {
            return happening.starts_with("form ") || happening == "SelectionChanged";
        });
        return outside;
    }
    [[nodiscard]] std::string last() const { return log_.at(closedAfter_ - 1); }

    using ControlEditForm::answerCopying;
    using ControlEditForm::control;
    using ControlEditForm::desktop;
    using ControlEditForm::doubleClick;
    using ControlEditForm::doubleClickOn;
    using ControlEditForm::edit;
    using ControlEditForm::form;
    using ControlEditForm::grid;
    using ControlEditForm::link;
    using ControlEditForm::open;
    using ControlEditForm::press;
    using ControlEditForm::store;
    std::shared_ptr<WatchedStore> watched;
    std::shared_ptr<model::MemoryDataStore> other = std::make_shared<model::MemoryDataStore>();

private:
    void stop(const std::string& name) {
        log_.push_back(name);
        // The writes of one channel are one thing.
        if (control->closed() || seen_[name.substr(0, name.find('.'))]++ >= 3 || ++stops_ != closeAt_) {
            return;
        }
        closedAfter_ = log_.size();
        control->close();
    }

    Log log_;
    std::map<std::string, int> seen_;
    int stops_ = 0;
    int closeAt_ = 0;
    std::size_t closedAfter_ = 0;
};

// `arrange` comes before anything is watched.
struct Situation {
    const char* name;
    void (*arrange)(Watched& world);
    void (*act)(Watched& world);
    Log mustHappen;  // among others, when nobody closes the control
};
class ClosedInsideEachStop : public testing::TestWithParam<Situation> {};

TEST_P(ClosedInsideEachStop, NothingHappensAfterIt) {
    const auto run = [](Watched& world, int closeAt) {
        GetParam().arrange(world);
        world.watch(closeAt);
        GetParam().act(world);
        world.desktop.doEvents();
    };
    {
        Watched undisturbed;
        run(undisturbed, 0);
        for (const auto& happening : GetParam().mustHappen) {
            EXPECT_GT(std::ranges::count(undisturbed.happenings(), happening), 0) << happening;
        }
    }
    for (int closeAt = 1;; ++closeAt) {
        Watched world;
        run(world, closeAt);
        if (!world.wasClosed()) {
            EXPECT_GT(closeAt, static_cast<int>(GetParam().mustHappen.size()));
            return;
        }
        EXPECT_EQ(world.after(), Log{}) << "closed inside " << world.last();
        EXPECT_FALSE(world.open()) << "closed inside " << world.last();
        EXPECT_TRUE(world.grid().redraw());
        EXPECT_EQ(world.link->calls, Log{});
    }
}

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
