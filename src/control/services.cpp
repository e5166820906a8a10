// Small services for the host: the message log and the print request.
#include <filesystem>
#include <fstream>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/skip.h"
#include "control/channel_information.h"

namespace telvar::control {

using model::StoreMember;

void ChannelInformation::logMessage(const std::string& txtMessage) {
    const std::filesystem::path path(std::u8string(logPath_.begin(), logPath_.end()));
    std::ofstream log(path, std::ios::binary | std::ios::app);
    log << txtMessage << "\r\n";
    log.close();
    if (!log) {
        throw base::Failure("The message log cannot be written: " + logPath_);
    }
}

void ChannelInformation::PrintInfo() {
    session_.trap("PrintInfo", [&] {
        // A table whose state cannot be read counts as not open.
        bool open = false;
        base::skip([&] { open = base::isTrue(session_.store()->get(StoreMember::TableOpen)); });
        if (open) {
            base::skip([this] { PrintChannelData(); });
            return;
        }
        session_.throwIfClosed();
        session_.refuse("No channel information open to print. Please open a channel database.");
    });
}

}  // namespace telvar::control
