#include "cli/link_options.h"

#include <iostream>

#include "base/pinned.h"
#include "os/end_requests.h"
#include "os/program.h"

namespace telvar::cli {

namespace {

// On a terminal one line that is written over and vanishes in the end; a line for every ten percent elsewhere.
class ProgressLine : private base::Pinned {
public:
    ProgressLine(std::ostream& stream, bool onTerminal) : stream_(stream), onTerminal_(onTerminal) {}
    ~ProgressLine() {
        if (onTerminal_) {
            stream_ << "\r     \r" << std::flush;
        }
    }

    void show(int percent) {
        const int step = onTerminal_ ? percent : percent - percent % 10;
        if (step <= shown_) {
            return;
        }
        shown_ = step;
        if (onTerminal_) {
            stream_ << '\r' << step << " %" << std::flush;
        } else {
            stream_ << step << " %\n" << std::flush;
        }
    }

private:
    std::ostream& stream_;
    bool onTerminal_;
    int shown_ = -1;
};

}  // namespace

void LinkOptions::declare(CLI::App& app) {
    app.add_option("--radio", address_, "Where the radio is: tcp:127.0.0.1:4711, serial:COM3,19200 or simulated")
        ->type_name("ADDRESS")
        ->required();
    app.add_option("--state", state_, "The file that the radio \"simulated\" keeps its table in")->type_name("FILE");
    app.add_option("--faults", faults_, "How the line to the radio \"simulated\" misbehaves")->type_name("LIST");
    app.add_option("--trace", trace_, "Append every frame to this file")->type_name("FILE");
    app.add_flag("--progress", progress_, "Show the progress also where the diagnostics go to no terminal");
}

void LinkOptions::declareBackupFolder(CLI::App& app) {
    app.add_option("--backup-folder", backupFolder_,
                   "Where what the radio holds is kept before it is overwritten; your own state folder otherwise")
        ->type_name("FOLDER");
}

std::expected<radio::LinkSettings, std::string> LinkOptions::settings() const {
    const auto address = radio::parseAddress(address_);
    if (!address) {
        return std::unexpected(address.error());
    }
    const auto faults = radio::parseFaults(faults_);
    if (!faults) {
        return std::unexpected(faults.error());
    }
    if (address->way != radio::Address::Way::Simulated && !(state_.empty() && faults_.empty())) {
        return std::unexpected("--state and --faults are for the radio \"simulated\"");
    }
    return radio::LinkSettings{.address = *address,
                               .faults = *faults,
                               .stateFile = state_,
                               .traceFile = trace_,
                               .backupFolder = backupFolder_};
}

void LinkOptions::run(const Console& console, const radio::LinkSettings& settings, const Exchange& exchange) const {
    const bool onTerminal = &console.err == &std::cerr && os::standardErrorIsTerminal();
    ProgressLine line(console.err, onTerminal);
    const radio::Percent percent = [&](int done) {
        if (onTerminal || progress_) {
            line.show(done);
        }
    };
    radio::SystemClock clock;
    os::Interrupt interrupt;
    const os::EndRequests requests(interrupt);
    radio::RadioClient client(clock, interrupt);
    client.configure(settings);
    exchange(client, percent);
}

}  // namespace telvar::cli
