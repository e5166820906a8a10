// The options of a command that talks to a radio, and the exchange itself: progress on the diagnostics, and an end in
// order when the user wants it.
#pragma once

#include <CLI/CLI.hpp>

#include <expected>
#include <functional>
#include <string>

#include "cli/console.h"
#include "radio/radio_client.h"

namespace telvar::cli {

class LinkOptions {
public:
    // Without the folder for backups, which only a send has.
    void declare(CLI::App& app);
    void declareBackupFolder(CLI::App& app);

    // What the options say; the error is for Console::refuse.
    [[nodiscard]] std::expected<radio::LinkSettings, std::string> settings() const;

    // Runs an exchange with a client that has these settings. Progress is shown where somebody looks or --progress is
    // given; requests to end the program abort the exchange at its next frame.
    using Exchange = std::function<void(radio::RadioClient&, const radio::Percent&)>;
    void run(const Console& console, const radio::LinkSettings& settings, const Exchange& exchange) const;

private:
    std::string address_;
    std::string state_;
    std::string faults_;
    std::string trace_;
    std::string backupFolder_;
    bool progress_ = false;
};

}  // namespace telvar::cli
