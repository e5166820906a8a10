#include "host/shell/radio_dialogs.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "host/shell/dialog.h"
#include "host/shell/resource.h"
#include "win/text.h"

namespace telvar::host {

namespace {

struct Way {
    const char* name;
    std::string_view prefix;  // of an address
    const char* usual;        // the rest of it
};

// The first has no rest.
constexpr std::array<Way, 3> ways{{{"Simulated radio in this program", "simulated", ""},
                                   {"Network (TCP), host:port", "tcp:", "127.0.0.1:4711"},
                                   {"Serial port, name,speed", "serial:", "COM1,19200"}}};

void addEntry(HWND list, std::string_view text) {
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win::wide(text).c_str()));
}

class ConnectionDialog final : public Dialog {
public:
    ConnectionDialog(const desk::Connection& present, const std::string& state, const TakeConnection& take)
        : present_(present), state_(state), take_(take) {}

private:
    HWND begin() override {
        std::size_t chosen = 0;
        for (std::size_t index = 0; index < ways.size(); ++index) {
            addEntry(item(CONNECTION_WAY), ways[index].name);
            chosen = present_.address.starts_with(ways[index].prefix) ? index : chosen;
        }
        SendMessageW(item(CONNECTION_WAY), CB_SETCURSEL, chosen, 0);
        setText(CONNECTION_PLACE, present_.address.substr(ways[chosen].prefix.size()));
        setText(CONNECTION_TRACE, present_.trace);
        EnableWindow(item(CONNECTION_PLACE), chosen != 0);
        note(state_);
        return item(CONNECTION_WAY);
    }

    bool accept() override {
        const std::size_t chosen = way();
        take_({.address = std::string(ways[chosen].prefix) + (chosen == 0 ? "" : textOf(CONNECTION_PLACE)),
               .trace = textOf(CONNECTION_TRACE)});
        return true;
    }

    void changed(int control) override {
        if (control == CONNECTION_WAY) {
            setText(CONNECTION_PLACE, ways[way()].usual);
            EnableWindow(item(CONNECTION_PLACE), way() != 0);
        }
        note({});
    }

    [[nodiscard]] std::size_t way() const {
        return static_cast<std::size_t>(SendMessageW(item(CONNECTION_WAY), CB_GETCURSEL, 0, 0));
    }

    const desk::Connection& present_;
    const std::string& state_;
    const TakeConnection& take_;
};

class FaultsDialog final : public Dialog {
public:
    FaultsDialog(std::span<const std::string> known, const std::string& present, const TakeChoice& take)
        : known_(known), present_(present), take_(take) {}

private:
    HWND begin() override {
        addEntry(item(FAULTS_PLAN), "none");
        for (const std::string& fault : known_) {
            addEntry(item(FAULTS_PLAN), fault);
        }
        setText(FAULTS_PLAN, present_.empty() ? "none" : present_);
        return item(FAULTS_PLAN);
    }

    bool accept() override {
        take_(textOf(FAULTS_PLAN));
        return true;
    }

    void changed(int /*control*/) override { note({}); }

    std::span<const std::string> known_;
    const std::string& present_;
    const TakeChoice& take_;
};

}  // namespace

bool askConnection(HWND owner, const desk::Connection& present, const std::string& note, const TakeConnection& take) {
    return ConnectionDialog(present, note, take).run(owner, RESOURCE_CONNECTION);
}

bool askFaults(HWND owner, std::span<const std::string> known, const std::string& present, const TakeChoice& take) {
    return FaultsDialog(known, present, take).run(owner, RESOURCE_FAULTS);
}

}  // namespace telvar::host
