#include "desk/desk.h"

namespace telvar::desk {

namespace {

constexpr char usualRadioFile[] = "\\simulated-radio.telvar-radio";

}  // namespace

Desk::Desk(const World& world, SettingsStore& settings, const PasswordHasher& hasher)
    : bench_(world),
      settings_(settings),
      recent_(settings, world.system),
      access_(settings, hasher),
      status_(bench_, *this),
      document_(bench_, recent_, *this),
      logins_(bench_, access_, *this),
      prints_(bench_, settings),
      radio_(bench_),
      exchange_(bench_, radio_, *this) {}

void Desk::begin(const std::function<void()>& join, const std::string& file) {
    rememberRadio();
    bench_.call([&](Control& /*control*/) { join(); });
    logins_.apply();
    bench_.attempt([this] { bench_.store.newTable(); });
    showOther();
    if (!file.empty()) {
        document_.openPath(file);
    }
}

// A radio that is simulated in this program is the same one in every run.
void Desk::rememberRadio() {
    if (!bench_.link.installed()) {
        return;
    }
    std::optional<std::string> file = setting::simulatedRadioFile.in(settings_);
    if (!file) {
        const std::string folder = bench_.system.userFolder();
        file = folder.empty() ? folder : folder + usualRadioFile;
    }
    bench_.attempt([&] { bench_.link.setStateFile(*file); });
    if (const auto address = setting::radioConnection.in(settings_)) {
        bench_.attempt([&] { bench_.link.setConnection(*address); });
    }
}

void Desk::run(Command command) {
    bench_.attempt([&] {
        if (!allowed(command)) {
            return;
        }
        if (isRecent(command)) {
            document_.openRecent(static_cast<std::size_t>(command) - static_cast<std::size_t>(Command::RecentFirst));
        } else {
            (this->*rowOf(command)->run)();
        }
    });
}

bool Desk::allowed(Command command) const {
    const CommandRow* const row = rowOf(command);
    return row != nullptr && (this->*row->allowed)();
}

bool Desk::ticked(Command command) const {
    const CommandRow* const row = rowOf(command);
    return row != nullptr && row->ticked != nullptr && (this->*row->ticked)();
}

void Desk::openDropped(const std::string& path) {
    bench_.attempt([&] { document_.openDropped(path); });
}

// A modal window of the control still needs the program's.
bool Desk::mayClose() {
    const bool preparing = exchange_.state() == Exchange::State::Preparing;
    if (bench_.asking() || (bench_.calling() && !preparing)) {
        bench_.window.showModal();
        return false;
    }
    bool may = false;
    const bool answered = bench_.attempt([&] { may = exchange_.mayLeave() && document_.mayGo(); });
    // A store that cannot say whether it holds changes does not hold the window for ever.
    return may || !answered;
}

void Desk::goOn() {
    refreshState();
    logins_.goOn();
    exchange_.goOn();
    prints_.goOn();
}

bool Desk::mayEdit(EditAction action) const {
    return mayAct() && (bench_.window.textBoxHasFocus() || bench_.control.enabled(action));
}

// A fill changes the table, as a deletion does.
bool Desk::mayFill() const { return mayAct() && bench_.control.enabled(EditAction::Delete); }

bool Desk::mayChooseFaults() const { return mayUseRadio() && bench_.link.connection() == "simulated"; }

void Desk::edit(EditAction action) {
    if (bench_.window.textBoxHasFocus()) {
        bench_.window.editText(action);
    } else {
        bench_.attemptCall([&](Control& control) { control.edit(action); });
    }
    refreshState();
}

void Desk::fillDown() {
    bench_.attemptCall([](Control& control) { control.fillDown(); });
    refreshState();
}

void Desk::fillSeries() {
    bench_.attemptCall([](Control& control) { control.fillSeries(); });
    refreshState();
}

void Desk::editChannel() {
    bench_.attemptCall([](Control& control) { control.editChannel(); });
    refreshState();
}

void Desk::goToChannel() {
    const int current = bench_.control.currentChannel();
    const auto channel = bench_.ask([&](Questions& questions) { return questions.askChannel(current); });
    if (channel) {
        bench_.attemptCall([&](Control& control) { control.goTo(*channel); });
        refreshState();
    }
}

void Desk::refreshTable() {
    bench_.attemptCall([](Control& control) { control.refresh(); });
    logins_.apply();
    bench_.window.status().endProgress();
    refreshState();
}

// Wherever in the control, or in its edit form, the keyboard is.
void Desk::focusTable() { bench_.control.focus(); }

void Desk::toggleStatusBar() {
    StatusLine& line = bench_.window.status();
    line.setVisible(!line.visible());
    setting::statusBar.put(settings_, line.visible());
    bench_.window.layout();
}

void Desk::statusReported(bool answers, const std::string& sentence) {
    radio_.answered(answers, sentence);
    if (exchange_.state() == Exchange::State::Waiting) {
        bench_.window.later();
    }
}

void Desk::chooseConnection() {
    const Connection present{.address = bench_.link.connection(), .trace = bench_.link.traceFile()};
    const bool taken = bench_.ask([&](Questions& questions) {
        return questions.askConnection(present, radio_.sentence(), [this](const Connection& choice) {
            bench_.link.setConnection(choice.address);
            bench_.link.setTraceFile(choice.trace);
        });
    });
    if (!taken) {
        return;
    }
    logins_.apply();
    const std::string address = bench_.link.connection();
    const bool kept = settings_.setText(setting::radioConnection.name, address);
    bench_.window.status().setMessage("The radio is now at " + address + (kept ? "." : ", until the program ends."));
}

void Desk::chooseFaults() {
    const std::vector<std::string> known = bench_.link.knownFaults();
    const std::string present = bench_.link.faults();
    const bool taken = bench_.ask([&](Questions& questions) {
        return questions.askFaults(known, present,
                                   [this](const std::string& faults) { bench_.link.setFaults(faults); });
    });
    if (taken) {
        bench_.window.status().setMessage("Fault of the simulated radio: " + bench_.link.faults());
    }
}

void Desk::showAbout() {
    bench_.ask([](Questions& questions) { questions.showAbout(); });
}

// Another table begins at its top; a refresh stays where the user was.
void Desk::showOther() {
    refreshTable();
    bench_.attempt([this] { bench_.control.showTop(); });
    showName();
}

void Desk::showName() { bench_.window.status().setMessage(document_.shownName()); }

}  // namespace telvar::desk
