// Small services for the host: the message log and the print request.
#include <filesystem>
#include <fstream>

#include "base/conversion.h"
#include "base/failure.h"
#include "control/channel_information.h"

namespace telvar::control {

using model::StoreMember;

namespace {

template <class Result, class Question>
[[nodiscard]] Result answerOr(Result otherwise, Question&& question) {
    try {
        return question();
    } catch (const std::exception&) {
        return otherwise;
    }
}

}  // namespace

void ChannelInformation::logMessage(const std::string& txtMessage) {
    const std::filesystem::path path(std::u8string(logPath_.begin(), logPath_.end()));
    std::ofstream log(path, std::ios::binary | std::ios::app);
    log << txtMessage << "\r\n";
    log.close();
    if (!log) {
        throw base::Failure("The message log cannot be written: " + logPath_);
    }
}

std::string ChannelInformation::messageTitle() const {
    return answerOr<std::string>(ui::defaultTitle,
                                 [&] { return base::toText(store()->get(StoreMember::MessageTitle), numberFormat_); });
}

void ChannelInformation::PrintInfo() {
    routine("PrintInfo", [&] {
        // A table whose state cannot be read counts as not open.
        if (answerOr(false, [&] { return base::isTrue(store()->get(StoreMember::TableOpen)); })) {
            ui::resumed([this] { PrintChannelData(); });
            return;
        }
        show({.text = "No channel information open to print. Please open a channel database.",
              .title = messageTitle(),
              .icon = ui::Icon::Exclamation});
    });
}

}  // namespace telvar::control
