#include "host/shell/channel_dialog.h"

#include "host/shell/dialog.h"
#include "host/shell/resource.h"

namespace telvar::host {

namespace {

constexpr int lastChannel = 255;

class ChannelDialog final : public Dialog {
public:
    explicit ChannelDialog(int suggested) : channel(suggested) {}

    int channel;

private:
    HWND begin() override {
        setText(CHANNEL_NUMBER, std::to_string(channel));
        SendMessageW(item(CHANNEL_NUMBER), EM_SETSEL, 0, -1);
        return item(CHANNEL_NUMBER);
    }

    bool accept() override {
        const std::optional<int> number = readChannel(textOf(CHANNEL_NUMBER));
        if (!number) {
            refuse(CHANNEL_NUMBER, "Enter a channel number from 1 to 255.");
            return false;
        }
        channel = *number;
        return true;
    }

    void changed(int /*control*/) override { note({}); }
};

}  // namespace

std::optional<int> readChannel(std::string_view text) noexcept {
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    int number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        number = number * 10 + (digit - '0');
        if (number > lastChannel) {
            return std::nullopt;
        }
    }
    return number >= 1 ? std::optional(number) : std::nullopt;
}

std::optional<int> askChannel(HWND owner, int suggested) {
    ChannelDialog dialog(suggested);
    return dialog.run(owner, RESOURCE_GO_TO) ? std::optional(dialog.channel) : std::nullopt;
}

}  // namespace telvar::host
