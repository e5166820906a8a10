// telvar radio: the simulated radio as a program of its own, at the end of a TCP connection.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/radio_diary.h"
#include "os/end_requests.h"
#include "radio/address.h"
#include "radio/radio_server.h"

namespace telvar::cli {

namespace {

class RadioCommand : public Command {
public:
    std::string name() const override { return "radio"; }
    std::string summary() const override { return "Be a simulated radio until the standard input ends"; }

    void declare(CLI::App& app) override {
        app.add_option("--listen", port_, "The TCP port on this machine; 0 takes any that is free")
            ->type_name("PORT")
            ->capture_default_str();
        app.add_option("--state", state_, "The file that keeps the table; otherwise the radio forgets it in the end")
            ->type_name("FILE");
        app.add_option("--faults", faults_, "How the line misbehaves, for instance drop/5,power@100")
            ->type_name("LIST");
        app.add_flag("--quiet", quiet_, "Say only where the radio is");
    }

    Outcome execute(const Console& console) override {
        const auto faults = radio::parseFaults(faults_);
        if (!faults) {
            return console.refuse(faults.error());
        }
        const auto radio = radio::SimulatedRadio::open(state_);
        if (!radio) {
            return console.refuse(radio.error());
        }
        auto listener = os::TcpListener::open(port_);
        if (!listener) {
            return console.refuse("port " + std::to_string(port_) + " cannot be listened on (" + listener.error() +
                                  ")");
        }
        radio::SimulatedLine line(**radio, *faults);
        return serve(console, line, *listener);
    }

private:
    [[nodiscard]] Outcome serve(const Console& console, radio::SimulatedLine& line, os::TcpListener& listener) const {
        const auto interrupt = std::make_shared<os::Interrupt>();
        const os::EndRequests requests(*interrupt);
        os::raiseAtEndOfInput(interrupt);
        sayWhere(console, listener.port());
        RadioDiary diary(console);
        if (!quiet_) {
            line.onAnswer = [&](const radio::Frame& request, const radio::Frame& answer) {
                diary.note(request, answer);
            };
        }
        const auto served = radio::serve(line, listener, *interrupt);
        return served ? Outcome::Fine : console.refuse("no partner can be taken (" + served.error() + ")");
    }

    static void sayWhere(const Console& console, std::uint16_t port) {
        const auto address = radio::textOf({.way = radio::Address::Way::Tcp, .place = "127.0.0.1", .port = port});
        if (console.json) {
            console.out << Json().add("radio", address).line() << std::flush;
        } else {
            console.out << address << '\n' << std::flush;
        }
    }

    static constexpr std::uint16_t usualPort = 4711;
    std::uint16_t port_ = usualPort;
    std::string state_;
    std::string faults_;
    bool quiet_ = false;
};

}  // namespace

std::unique_ptr<Command> radioCommand() { return std::make_unique<RadioCommand>(); }

}  // namespace telvar::cli
