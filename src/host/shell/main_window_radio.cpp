// The radio: sending, loading and cancelling, what becomes of the commands meanwhile and afterwards, and the
// diagnostics in the status bar.
#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"
#include "host/shell/radio_dialogs.h"
#include "host/shell/resource.h"
#include "win/user_folder.h"

namespace telvar::host {

namespace {

// Codes of exchanges, as the link tells them.
constexpr long selectionTask = 11;
constexpr long loadTask = 22;
constexpr long restoreTask = 31;
constexpr long levelsTask = 33;

constexpr wchar_t connectionSetting[] = L"RadioConnection";
// Where the simulated radio keeps its table; empty: nowhere. The menu does not offer it.
constexpr wchar_t radioFileSetting[] = L"SimulatedRadioFile";
constexpr wchar_t usualRadioFile[] = L"\\simulated-radio.telvar-radio";

}  // namespace

// Whether the command was one of these.
bool MainWindow::runForRadio(int command) {
    if (radio_.link() == nullptr) {
        return false;
    }
    switch (command) {
    case COMMAND_RADIO_SEND:
        sendToRadio();
        return true;
    case COMMAND_RADIO_LOAD:
        loadFromRadio();
        return true;
    case COMMAND_RADIO_RESTORE:
        restoreBackup();
        return true;
    case COMMAND_RADIO_CONNECTION:
        chooseConnection();
        return true;
    case COMMAND_RADIO_FAULTS:
        if (radio_.simulated()) {
            chooseFaults();
        }
        return true;
    default:
        return false;
    }
}

void MainWindow::sendToRadio() { exchange(&_ChannelInformation::SendChannelInfoToTelvar, L"Sending to the radio"); }

// What arrives takes the place of the open table, as another file would. A locked one the control refuses, so that
// nothing needs to be asked first.
void MainWindow::loadFromRadio() {
    if (dataLocked() || mayDiscard()) {
        exchange(&_ChannelInformation::LoadChannelInfoFromTelvar, L"Loading from the radio");
    }
}

// The control asks, checks and waits for a quiet link inside the call, and returns when the link has taken over or the
// exchange was given up. Only the link tells the end of one that has begun.
void MainWindow::exchange(ControlMethod method, const std::wstring& what) {
    exchangeText_ = what;
    cancelWanted_ = false;
    preparing_ = true;
    callControl(method);
    preparing_ = false;
    if (window_ == nullptr) {
        return;
    }
    if (!radio_.exchanging()) {
        cancelWanted_ = false;
        releaseCommands();
        PostMessageW(window_, exchangeMessage, 0, 0);
        return;
    }
    if (cancelWanted_) {
        attempt([this] { radio_.cancel(); });
    }
}

bool MainWindow::mayCancel() const {
    return windowEnabled_ && modal_ == 0 && (preparing_ || restoreWanted_ || (calls_ == 0 && radio_.exchanging()));
}

// While the control still waits for the link, what it waits for is cut short, and the exchange that it begins then.
void MainWindow::cancelExchange() {
    if (restoreWanted_) {
        giveRestoreUp();
        return;
    }
    cancelWanted_ = true;
    showStatus(L"Cancelling the exchange with the radio...");
    attempt([this] {
        VARIANT_BOOL busy = VARIANT_FALSE;
        com::checkCall(radio_.link()->get_Busy(&busy));
        if (busy == VARIANT_FALSE) {
            // Somebody left the mark behind, and nobody else would ever take it away.
            com::checkCall(document_->store()->put_CommsBusy(VARIANT_FALSE));
        } else {
            radio_.cancel();
        }
    });
}

void MainWindow::releaseCommands() {
    commandsEnabled_ = true;
    DefaultOverWindow();
    radio_.resumePolling();
    exchangeText_.clear();
    statusBar_.endProgress();
    com::Bstr commands(std::wstring_view(L"RS232"));
    if (channels_) {
        channels_->EnableMyCommands(commands.address());
    }
}

void MainWindow::linkProgressed(long percent) {
    if (!exchangeText_.empty()) {
        statusBar_.showPercent(static_cast<int>(percent));
        showStatus(exchangeText_ + L": " + std::to_wstring(percent) + L" %");
    }
}

// Whatever the outcome, the control waits for its button and the user for the commands; but what ends while another
// exchange waits for it was not that one, which takes care of itself. What may open a window waits until the event has
// returned.
void MainWindow::exchangeEnded(long task, bool succeeded, const std::wstring& message) {
    if (!message.empty()) {
        showStatus(message);
    } else if (cancelWanted_) {
        showStatus(cancelledSentence);
    }
    if (!preparing_ && !restoreWanted_) {
        cancelWanted_ = false;
        releaseCommands();
    }
    loaded_ = loaded_ || (succeeded && task == loadTask);
    channelSelected_ = channelSelected_ || (succeeded && task == selectionTask);
    loadRestored_ = loadRestored_ && succeeded && task == restoreTask;
    // Levels are sent again and again while a slider moves.
    if (!succeeded && task != levelsTask && !message.empty()) {
        failedExchange_ = message;
    }
    PostMessageW(window_, exchangeMessage, 0, 0);
}

// Does nothing while something else is under way; the state timer comes back to it.
void MainWindow::answerExchange() {
    beginRestore();
    if (!mayAct()) {
        return;
    }
    if (std::exchange(loaded_, false)) {
        refreshTable();
    }
    if (std::exchange(channelSelected_, false)) {
        callControl(&_ChannelInformation::UpdateChannelSelection);
        // An open edit form follows moves of the user's by itself, but this one is the program's.
        callControl(&_ChannelInformation::RefreshEditForm);
    }
    if (const std::wstring sentence = std::exchange(failedExchange_, {}); !sentence.empty()) {
        tell(sentence);
    }
    if (std::exchange(closeWanted_, false)) {
        loadRestored_ = false;
        PostMessageW(window_, WM_CLOSE, 0, 0);
    }
    // What was done here since the restore began would be overwritten unseen.
    if (std::exchange(loadRestored_, false) && (dataLocked() || mayDiscard())) {
        exchange(&_ChannelInformation::LoadChannelInfoFromTelvar, L"Loading from the radio");
    }
}

void MainWindow::PauseDiagnostics() { radio_.pausePolling(); }

void MainWindow::statusReported(bool answered, const std::wstring& message) {
    radioState_ = message;
    if (restoreWanted_) {
        PostMessageW(window_, exchangeMessage, 0, 0);
    }
    statusBar_.setRadio(answered ? L"Radio ready" : L"No radio answers", message);
}

void MainWindow::chooseConnection() {
    const Modal modal(*this);
    const Connection present{.address = radio_.connection(), .trace = radio_.traceFile()};
    const bool taken = askConnection(window_, present, radioState_, [this](const Connection& choice) {
        radio_.setConnection(choice.address);
        radio_.setTraceFile(choice.trace);
    });
    if (taken) {
        followRadio();
        const std::wstring address = radio_.connection();
        showStatus(L"The radio is now at " + address + L".");
        if (!settings_.setText(connectionSetting, address)) {
            showStatus(L"The radio is now at " + address + L", until the program ends.");
        }
    }
}

void MainWindow::chooseFaults() {
    const Modal modal(*this);
    const bool taken =
        askFaults(window_, radio_.faults(), [this](const std::wstring& faults) { radio_.setFaults(faults); });
    if (taken) {
        showStatus(L"Fault of the simulated radio: " + radio_.faults());
    }
}

// A radio that is simulated in this program is the same one in every run.
void MainWindow::rememberRadio() {
    std::optional<std::wstring> file = settings_.text(radioFileSetting);
    if (!file) {
        const std::wstring folder = win::userFolder();
        file = folder.empty() ? folder : folder + usualRadioFile;
    }
    attempt([&] { radio_.setStateFile(*file); });
    if (const auto address = settings_.text(connectionSetting)) {
        attempt([&] { radio_.setConnection(*address); });
    }
}

// Whether the program may end as far as the radio is concerned. If something must come to its end first, the window
// closes by itself after that.
bool MainWindow::mayLeaveRadio() {
    if (preparing_) {
        closeWanted_ = true;
        cancelExchange();
        return false;
    }
    if (!radio_.exchanging()) {
        return true;
    }
    bool leaves = false;
    {
        const Modal modal(*this);
        leaves = askCancelExchange(window_);
    }
    if (leaves && radio_.exchanging()) {
        closeWanted_ = true;
        cancelExchange();
        return false;
    }
    return leaves;
}

}  // namespace telvar::host
