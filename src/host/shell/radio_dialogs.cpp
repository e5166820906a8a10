#include "host/shell/radio_dialogs.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "host/shell/dialog.h"
#include "host/shell/resource.h"

namespace telvar::host {

namespace {

struct Way {
    const wchar_t* name;
    std::wstring_view prefix;  // of an address
    const wchar_t* usual;      // the rest of it
};

// The first has no rest.
constexpr std::array<Way, 3> ways{{{L"Simulated radio in this program", L"simulated", L""},
                                   {L"Network (TCP), host:port", L"tcp:", L"127.0.0.1:4711"},
                                   {L"Serial port, name,speed", L"serial:", L"COM1,19200"}}};

void addEntry(HWND list, const wchar_t* text) { SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)); }

class ConnectionDialog final : public Dialog {
public:
    ConnectionDialog(const Connection& present, const std::wstring& state, const TakeConnection& take)
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
        take_({.address = std::wstring(ways[chosen].prefix) + (chosen == 0 ? L"" : textOf(CONNECTION_PLACE)),
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

    const Connection& present_;
    const std::wstring& state_;
    const TakeConnection& take_;
};

class FaultsDialog final : public Dialog {
public:
    FaultsDialog(const std::wstring& present, const TakeChoice& take) : present_(present), take_(take) {}

private:
    HWND begin() override {
        for (const wchar_t* fault : {L"none", L"silence", L"delay", L"noise", L"drop", L"repeat", L"cut", L"reorder",
                                     L"identity", L"echo", L"power"}) {
            addEntry(item(FAULTS_PLAN), fault);
        }
        setText(FAULTS_PLAN, present_.empty() ? L"none" : present_);
        return item(FAULTS_PLAN);
    }

    bool accept() override {
        take_(textOf(FAULTS_PLAN));
        return true;
    }

    void changed(int /*control*/) override { note({}); }

    const std::wstring& present_;
    const TakeChoice& take_;
};

}  // namespace

bool askConnection(HWND owner, const Connection& present, const std::wstring& note, const TakeConnection& take) {
    return ConnectionDialog(present, note, take).run(owner, RESOURCE_CONNECTION);
}

bool askFaults(HWND owner, const std::wstring& present, const TakeChoice& take) {
    return FaultsDialog(present, take).run(owner, RESOURCE_FAULTS);
}

}  // namespace telvar::host
