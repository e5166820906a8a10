#include "desk/exchange.h"

#include <optional>
#include <utility>
#include <vector>

#include "desk/backups.h"

namespace telvar::desk {

namespace {

constexpr char cancelledSentence[] = "The exchange with the radio was cancelled.";
constexpr char lockedSentence[] =
    "Data is locked, so the restored table could not be shown here. Clear 'Lock Data', or restore without showing it.";

}  // namespace

std::string Exchange::nameOf(Goal goal) {
    switch (goal) {
    case Goal::Send:
        return "Sending to the radio";
    case Goal::Load:
        return "Loading from the radio";
    case Goal::Restore:
        return "Restoring the radio's table";
    case Goal::None:
        break;
    }
    return {};
}

void Exchange::send() { prepare(Goal::Send, &Control::send); }

// What arrives takes the place of the open table, as another file would. A locked one the control refuses, so that
// nothing needs to be asked first.
void Exchange::load() {
    if (bench_.control.dataLocked() || surroundings_.mayReplaceTable()) {
        prepare(Goal::Load, &Control::load);
    }
}

// Only the link tells the end of an exchange that has begun.
void Exchange::prepare(Goal goal, void (Control::*begin)()) {
    goal_ = goal;
    cancelWanted_ = false;
    showRestored_ = false;
    state_ = State::Preparing;
    bench_.attemptCall([&](Control& control) { (control.*begin)(); });
    surroundings_.refreshState();
    if (!bench_.window.open()) {
        return;
    }
    if (!radio_.exchanging()) {
        release();
        bench_.window.later();
        return;
    }
    state_ = State::Running;
    if (cancelWanted_) {
        bench_.attempt([this] { bench_.link.abort(); });
    }
}

void Exchange::restore() {
    std::optional<RestoreChoice> choice;
    const bool asked = bench_.attempt([&] {
        const std::string told = bench_.link.backupFolder();
        const std::string folder = told.empty() ? usualBackupFolder(bench_.system) : told;
        const std::vector<Backup> backups = backupsIn(bench_.system, folder);
        bench_.ask([&](Questions& questions) {
            choice = questions.askBackup(backups, folder);
            if (choice && choice->load && bench_.control.dataLocked()) {
                bench_.tell(lockedSentence);
                choice.reset();
            }
            if (choice && !questions.askRestore(choice->backup)) {
                choice.reset();
            }
        });
    });
    // What arrives takes the place of the open table, as another file would.
    if (asked && choice && bench_.window.open() && (!choice->load || surroundings_.mayReplaceTable())) {
        give(choice->backup, choice->load);
    }
}

void Exchange::give(const Backup& backup, bool show) {
    goal_ = Goal::Restore;
    cancelWanted_ = false;
    backup_ = backup.path;
    showRestored_ = show;
    state_ = State::Waiting;
    radio_.pause();
    bench_.setCommands(false);
    bench_.window.setHourglass(true);
    bench_.control.disableCommands();
    beginRestore();
}

// The link refuses while it still asks how the radio is, which takes a few seconds at most.
void Exchange::beginRestore() {
    if (state_ != State::Waiting || radio_.asking()) {
        return;
    }
    state_ = State::Running;
    if (!bench_.attempt([this] { bench_.link.restore(backup_); })) {
        showRestored_ = false;
        release();
    }
}

void Exchange::giveUpWaiting() {
    showRestored_ = false;
    bench_.window.status().setMessage(cancelledSentence);
    release();
}

bool Exchange::mayCancel() const {
    if (bench_.asking() || !bench_.link.installed()) {
        return false;
    }
    return state_ == State::Preparing || state_ == State::Waiting || (!bench_.calling() && radio_.exchanging());
}

void Exchange::cancel() {
    if (state_ == State::Waiting) {
        giveUpWaiting();
        return;
    }
    cancelWanted_ = true;
    bench_.window.status().setMessage("Cancelling the exchange with the radio...");
    bench_.attempt([this] { cutShort(); });
}

// While the control still waits for the link, what it waits for is cut.
void Exchange::cutShort() {
    if (bench_.link.busy()) {
        bench_.link.abort();
    } else {
        // Somebody left the mark behind, and nobody else would ever take it away.
        bench_.store.clearCommsBusy();
    }
}

void Exchange::release() {
    state_ = State::Idle;
    goal_ = Goal::None;
    cancelWanted_ = false;
    bench_.setCommands(true);
    bench_.window.setHourglass(false);
    radio_.resume();
    bench_.window.status().endProgress();
    bench_.control.enableCommands();
}

void Exchange::progressed(long percent) {
    if (goal_ != Goal::None) {
        bench_.window.status().showPercent(static_cast<int>(percent));
        bench_.window.status().setMessage(nameOf(goal_) + ": " + std::to_string(percent) + " %");
    }
}

void Exchange::ended(Task task, bool succeeded, const std::string& message) {
    if (!message.empty()) {
        bench_.window.status().setMessage(message);
    } else if (cancelWanted_) {
        bench_.window.status().setMessage(cancelledSentence);
    }
    // One that ends while ours is still to begin is another.
    const bool toBegin = state_ == State::Preparing || state_ == State::Waiting;
    if (!toBegin) {
        showRestored_ = showRestored_ && (goal_ != Goal::Restore || succeeded);
        release();
    }
    news_.loaded = news_.loaded || (succeeded && task == Task::Load);
    news_.channelSelected = news_.channelSelected || (succeeded && task == Task::ChannelSelection);
    // Levels are sent again and again while a slider moves.
    if (!succeeded && task != Task::Levels && !message.empty()) {
        news_.failure = message;
    }
    bench_.window.later();
}

void Exchange::goOn() {
    beginRestore();
    if (!bench_.free()) {
        return;
    }
    if (std::exchange(news_.loaded, false)) {
        surroundings_.refreshTable();
    }
    if (std::exchange(news_.channelSelected, false)) {
        bench_.attemptCall([](Control& control) { control.followRadioChannel(); });
        surroundings_.refreshState();
    }
    if (const std::string sentence = std::exchange(news_.failure, {}); !sentence.empty()) {
        bench_.tell(sentence);
    }
    if (std::exchange(news_.closeWanted, false)) {
        showRestored_ = false;
        bench_.window.closeLater();
    }
    // What was done here since the restore began would be overwritten unseen.
    if (std::exchange(showRestored_, false) && (bench_.control.dataLocked() || surroundings_.mayReplaceTable())) {
        prepare(Goal::Load, &Control::load);
    }
}

bool Exchange::mayLeave() {
    if (state_ == State::Preparing) {
        news_.closeWanted = true;
        cancel();
        return false;
    }
    if (!radio_.exchanging()) {
        return true;
    }
    const bool leaves = bench_.ask([](Questions& questions) { return questions.askCancelExchange(); });
    if (leaves && radio_.exchanging()) {
        news_.closeWanted = true;
        cancel();
        return false;
    }
    return leaves;
}

}  // namespace telvar::desk
