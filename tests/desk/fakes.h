// What lies outside the desk, played by script: each call is noted in one journal, in the order in which it came, and
// does what the test wants to happen inside it.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/failure.h"
#include "desk/control.h"
#include "desk/link.h"
#include "desk/settings.h"
#include "desk/store.h"
#include "desk/system.h"
#include "desk/window.h"

namespace telvar::tests {

using Notes = std::vector<std::string>;

class Journal {
public:
    void note(std::string line) { lines_.push_back(std::move(line)); }
    // What has been noted since the last time, and how often the line is among it.
    [[nodiscard]] Notes take() { return std::exchange(lines_, {}); }
    [[nodiscard]] long count(const std::string& line) const { return std::ranges::count(lines_, line); }
    void clear() { lines_.clear(); }

private:
    Notes lines_;
};

class Scripted {
public:
    Scripted(Journal& journal, std::string who) : journal_(journal), who_(std::move(who)) {}

    // What happens inside each call of that name from now on.
    void during(const std::string& call, std::function<void()> body) { bodies_[call] = std::move(body); }
    void fails(const std::string& call, const std::string& sentence) {
        during(call, [sentence] { throw base::Failure(sentence); });
    }
    void works(const std::string& call) { bodies_.erase(call); }

protected:
    void act(const std::string& call, const std::string& detail = {}) const {
        journal_.note(who_ + " " + call + (detail.empty() ? "" : ": " + detail));
        look(call);
    }
    // A call that only reads is not noted.
    void look(const std::string& call) const {
        if (const auto found = bodies_.find(call); found != bodies_.end()) {
            const auto body = found->second;
            body();
        }
    }

private:
    Journal& journal_;
    std::string who_;
    std::map<std::string, std::function<void()>> bodies_;
};

class FakeStore final : public desk::Store, public Scripted {
public:
    explicit FakeStore(Journal& journal) : Scripted(journal, "store") {}

    std::string file;
    std::string name;
    long changes = 1;
    bool dirty = false;
    int channels = 2;
    bool busy = false;

    void newTable() override {
        act("new");
        become({});
    }
    void open(const std::string& path) override {
        act("open", path);
        become(path);
    }
    void save() override {
        act("save");
        dirty = false;
    }
    void saveAs(const std::string& path) override {
        act("save as", path);
        file = path;
        dirty = false;
    }
    [[nodiscard]] std::string path() const override {
        look("path");
        return file;
    }
    [[nodiscard]] std::string title() const override {
        look("title");
        return name;
    }
    [[nodiscard]] long revision() const override {
        look("revision");
        return changes;
    }
    [[nodiscard]] bool modified() const override {
        look("modified");
        return dirty;
    }
    [[nodiscard]] int configuredChannels() const override {
        act("count channels");
        return channels;
    }
    [[nodiscard]] bool commsBusy() const noexcept override { return busy; }
    void clearCommsBusy() override {
        act("clear busy");
        busy = false;
    }

private:
    void become(const std::string& path) {
        file = path;
        dirty = false;
        ++changes;
    }
};

[[nodiscard]] inline std::string nameOfAction(desk::EditAction action) {
    static constexpr const char* names[] = {"undo", "redo", "copy", "paste", "delete", "select all"};
    return names[static_cast<std::size_t>(action)];
}

class FakeControl final : public desk::Control, public Scripted {
public:
    explicit FakeControl(Journal& journal) : Scripted(journal, "control") {}

    std::map<desk::EditAction, bool> disabled;
    int current = 1;
    bool leaves = true;
    bool locked = false;
    desk::PasteRefusal refusal;
    desk::PrintedTable shown;

    void refresh() override { act("refresh"); }
    void showTop() override { act("show top"); }
    void updateAccess(desk::AccessLevel level) override { act("access", std::string(desk::nameOf(level))); }
    void followRadioChannel() override { act("follow radio"); }
    void focus() override { act("focus"); }
    [[nodiscard]] bool enabled(desk::EditAction action) const override { return !disabled.contains(action); }
    void edit(desk::EditAction action) override { act("edit", nameOfAction(action)); }
    void fillDown() override { act("fill down"); }
    void fillSeries() override { act("fill series"); }
    void fill() override { act("fill"); }
    void editChannel() override { act("edit channel"); }
    [[nodiscard]] int currentChannel() const override { return current; }
    void goTo(int channel) override { act("go to", std::to_string(channel)); }
    [[nodiscard]] bool leaveEdits() override {
        act("leave edits");
        return leaves;
    }
    [[nodiscard]] bool dataLocked() const override { return locked; }
    [[nodiscard]] desk::PasteRefusal refusedPaste() const override { return refusal; }
    void send() override { act("send"); }
    void load() override { act("load"); }
    void disableCommands() override { act("disable commands"); }
    void enableCommands() override { act("enable commands"); }
    void print() override { act("print"); }
    [[nodiscard]] desk::PrintedTable shownTable() const override {
        look("shown table");
        return shown;
    }
};

class FakeLink final : public desk::Link, public Scripted {
public:
    explicit FakeLink(Journal& journal) : Scripted(journal, "link") {}

    bool there = true;
    bool running = false;
    bool takesStatus = true;
    std::string address = "simulated";
    std::string plan = "none";
    std::string trace;
    std::string backups;

    [[nodiscard]] bool installed() const noexcept override { return there; }
    [[nodiscard]] bool busy() const noexcept override { return running; }
    [[nodiscard]] bool askStatus() noexcept override {
        act("ask status");
        running = running || takesStatus;
        return takesStatus;
    }
    void abort() override { act("abort"); }
    void restore(const std::string& backup) override {
        act("restore", backup);
        running = true;
    }
    [[nodiscard]] std::string connection() const override {
        look("connection");
        return address;
    }
    void setConnection(const std::string& wanted) override {
        act("connect", wanted);
        address = wanted;
    }
    [[nodiscard]] std::string faults() const override { return plan; }
    [[nodiscard]] std::vector<std::string> knownFaults() const override { return {"silence", "echo"}; }
    void setFaults(const std::string& faults) override {
        act("faults", faults);
        plan = faults;
    }
    [[nodiscard]] std::string traceFile() const override { return trace; }
    void setTraceFile(const std::string& path) override {
        act("trace", path);
        trace = path;
    }
    void setStateFile(const std::string& path) override { act("state file", path); }
    [[nodiscard]] std::string backupFolder() const override {
        look("backup folder");
        return backups;
    }
};

class FakeStatusLine final : public desk::StatusLine {
public:
    Notes messages;
    std::string level;
    std::string channels;
    std::string radio;
    std::string radioSentence;
    bool modified = false;
    std::vector<int> percents;
    int progressEnds = 0;
    bool shown = true;

    void setMessage(const std::string& text) override { messages.push_back(text); }
    [[nodiscard]] std::string message() const override { return messages.empty() ? "" : messages.back(); }
    void setLevel(std::string_view text) override { level = text; }
    void setChannels(const std::string& text) override { channels = text; }
    void setRadio(std::string_view text, const std::string& sentence) override {
        radio = text;
        radioSentence = sentence;
    }
    void setModified(bool value) override { modified = value; }
    void stepProgress() override {}
    void showPercent(int percent) override { percents.push_back(percent); }
    void endProgress() override { ++progressEnds; }
    [[nodiscard]] bool visible() const override { return shown; }
    void setVisible(bool visible) override { shown = visible; }
};

// Cancels whatever the test gives no answer for. What was asked stands in the journal behind "ask".
class FakeQuestions final : public desk::Questions, public Scripted {
public:
    explicit FakeQuestions(Journal& journal) : Scripted(journal, "ask") {}

    desk::SaveAnswer save = desk::SaveAnswer::Cancel;
    bool cancelExchange = false;
    std::optional<std::string> openPath;
    std::optional<std::string> savePath;
    std::optional<std::string> htmlPath;
    std::optional<int> channel;
    std::optional<desk::AccessLevel> login;
    std::function<std::optional<desk::AccessLevel>(desk::Access&)> passwords;
    std::optional<desk::Connection> connection;
    std::optional<std::string> faults;
    std::vector<std::string> offeredFaults;
    // Of the listed ones, by its place.
    std::optional<std::size_t> backup;
    bool showRestored = true;
    bool restore = false;
    // Changes the set-up, and then reads the table if it is a question that prints.
    std::function<void(desk::PageSetup&)> setUp;
    bool printed = true;
    // What was read in the last question that prints.
    std::optional<desk::PrintedTable> pages;
    // The sentence with which the last choice was refused inside its dialog.
    std::string refused;

    void tell(const std::string& sentence) override { act("tell", sentence); }
    [[nodiscard]] desk::SaveAnswer askSave(const std::string& tableName) override {
        act("save", tableName);
        return save;
    }
    [[nodiscard]] bool askCancelExchange() override {
        act("cancel exchange");
        return cancelExchange;
    }
    [[nodiscard]] std::optional<std::string> askOpenPath(const std::string& besides) override {
        act("open path", besides);
        return openPath;
    }
    [[nodiscard]] std::optional<std::string> askSavePath(const std::string& suggested) override {
        act("save path", suggested);
        return savePath;
    }
    [[nodiscard]] std::optional<std::string> askHtmlPath(const std::string& suggested) override {
        act("html path", suggested);
        return htmlPath;
    }
    [[nodiscard]] std::optional<int> askChannel(int suggested) override {
        act("channel", std::to_string(suggested));
        return channel;
    }
    [[nodiscard]] std::optional<desk::AccessLevel> askLogin(const desk::Access&, const std::string& why,
                                                            desk::AccessLevel suggested) override {
        act("login", why + " " + std::string(desk::nameOf(suggested)));
        return login;
    }
    [[nodiscard]] std::optional<desk::AccessLevel> askNewPassword(desk::Access& access) override {
        act("passwords");
        return passwords ? passwords(access) : std::nullopt;
    }
    [[nodiscard]] bool askConnection(const desk::Connection& present, const std::string& note,
                                     const std::function<void(const desk::Connection&)>& take) override {
        act("connection", present.address + "|" + present.trace + "|" + note);
        return connection && taken([&] { take(*connection); });
    }
    [[nodiscard]] bool askFaults(std::span<const std::string> known, const std::string& present,
                                 const std::function<void(const std::string&)>& take) override {
        offeredFaults.assign(known.begin(), known.end());
        act("faults", present);
        return faults && taken([&] { take(*faults); });
    }
    [[nodiscard]] std::optional<desk::RestoreChoice> askBackup(std::span<const desk::Backup> backups,
                                                               const std::string& folder) override {
        act("backup", std::to_string(backups.size()) + " in " + folder);
        return backup && *backup < backups.size()
                   ? std::optional(desk::RestoreChoice{.backup = backups[*backup], .load = showRestored})
                   : std::nullopt;
    }
    [[nodiscard]] bool askRestore(const desk::Backup& chosen) override {
        act("restore", chosen.path);
        return restore;
    }
    void showAbout() override { act("about"); }
    void previewPages(const ReadTable& read, desk::PageSetup& setup) override {
        changePages(setup);
        act("preview");
        pages = read();
    }
    [[nodiscard]] bool print(const ReadTable& read, desk::PageSetup& setup) override {
        changePages(setup);
        act("print");
        pages = read();
        return printed;
    }
    void setUpPage(desk::PageSetup& setup) override {
        changePages(setup);
        act("page setup");
    }

private:
    template <class Take>
    bool taken(Take&& take) {
        try {
            take();
            return true;
        } catch (const base::Failure& failure) {
            refused = failure.description();
            return false;
        }
    }
    void changePages(desk::PageSetup& setup) const {
        if (setUp) {
            setUp(setup);
        }
    }
};

class FakeWindow final : public desk::Window, public Scripted {
public:
    explicit FakeWindow(Journal& journal) : Scripted(journal, "window"), asked(journal) {}

    FakeStatusLine line;
    FakeQuestions asked;
    bool isOpen = true;
    std::string title;
    bool hourglass = false;
    int modal = 0;  // begun and not ended
    bool wanted = false;
    bool textBox = false;

    [[nodiscard]] desk::StatusLine& status() override { return line; }
    [[nodiscard]] desk::Questions& questions() override { return asked; }
    [[nodiscard]] bool open() const override { return isOpen; }
    void setTitle(const std::string& text) override { title = text; }
    void setHourglass(bool on) override {
        act(on ? "hourglass" : "arrow");
        hourglass = on;
    }
    void layout() override { act("layout"); }
    void beginModal() override { ++modal; }
    void endModal() override { --modal; }
    void later() override { wanted = true; }
    void closeLater() override { act("close later"); }
    void showModal() override { act("show modal"); }
    [[nodiscard]] bool textBoxHasFocus() const override { return textBox; }
    void editText(desk::EditAction action) override { act("edit text", nameOfAction(action)); }
};

class FakeSystem final : public desk::System {
public:
    Notes files;
    std::map<std::string, Notes> folders;
    std::string user = "C:\\Users\\me\\Telvar";
    int sheet = 9;
    mutable std::map<std::string, std::string> written;
    std::string writeFailure;

    [[nodiscard]] bool exists(const std::string& path) const override {
        return std::ranges::find(files, path) != files.end();
    }
    // Plain letters only; a stand-in for the file system.
    [[nodiscard]] bool samePath(const std::string& left, const std::string& right) const override {
        return std::ranges::equal(left, right, {}, lower, lower);
    }
    [[nodiscard]] Notes fileNamesIn(const std::string& folder) const override {
        const auto found = folders.find(folder);
        return found == folders.end() ? Notes() : found->second;
    }
    [[nodiscard]] std::string userFolder() const override { return user; }
    [[nodiscard]] std::string dateAndTime(std::chrono::local_seconds at) const override {
        return "at " + std::to_string(at.time_since_epoch().count());
    }
    [[nodiscard]] std::string now() const override { return "21/11/2026 14:05"; }
    [[nodiscard]] int usualSheet() const override { return sheet; }
    void replaceFile(const std::string& path, const std::string& contents) const override {
        if (!writeFailure.empty()) {
            throw base::Failure(writeFailure);
        }
        written[path] = contents;
    }

private:
    static char lower(char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
};

class FakeSettings final : public desk::SettingsStore {
public:
    using Value = std::variant<std::int32_t, std::string, Notes>;
    std::map<std::string, Value, std::less<>> values;
    bool keeps = true;
    int writes = 0;

    [[nodiscard]] bool has(std::string_view name) const override { return values.contains(name); }
    [[nodiscard]] std::optional<std::int32_t> number(std::string_view name) const override {
        return read<std::int32_t>(name);
    }
    [[nodiscard]] std::optional<std::string> text(std::string_view name) const override {
        return read<std::string>(name);
    }
    [[nodiscard]] Notes list(std::string_view name) const override { return read<Notes>(name).value_or(Notes()); }
    bool setNumber(std::string_view name, std::int32_t value) override { return keep(name, value); }
    bool setText(std::string_view name, const std::string& value) override { return keep(name, value); }
    bool setList(std::string_view name, const Notes& value) override { return keep(name, value); }
    bool remove(std::string_view name) override {
        if (keeps) {
            values.erase(std::string(name));
        }
        return keeps;
    }

private:
    template <class Kind>
    [[nodiscard]] std::optional<Kind> read(std::string_view name) const {
        const auto found = values.find(name);
        const auto* const value = found == values.end() ? nullptr : std::get_if<Kind>(&found->second);
        return value == nullptr ? std::nullopt : std::optional(*value);
    }
    bool keep(std::string_view name, Value value) {
        ++writes;
        if (keeps) {
            values.insert_or_assign(std::string(name), std::move(value));
        }
        return keeps;
    }
};

class FakeHasher final : public desk::PasswordHasher {
public:
    bool works = true;

    [[nodiscard]] std::string hash(const std::string& password) const override {
        throwIfBroken();
        return "hash of " + password;
    }
    [[nodiscard]] bool matches(const std::string& password, const std::string& hash) const override {
        throwIfBroken();
        return hash == "hash of " + password;
    }

private:
    void throwIfBroken() const {
        if (!works) {
            throw base::Failure("The system has no cryptography");
        }
    }
};

}  // namespace telvar::tests
