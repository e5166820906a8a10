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
        setText(CHANNEL_NUMBER, std::to_wstring(channel));
        SendMessageW(item(CHANNEL_NUMBER), EM_SETSEL, 0, -1);
        return item(CHANNEL_NUMBER);
    }

    bool accept() override {
        const std::optional<int> number = readChannel(textOf(CHANNEL_NUMBER));
        if (!number) {
            refuse(CHANNEL_NUMBER, L"Enter a channel number from 1 to 255.");
            return false;
        }
        channel = *number;
        return true;
    }

    void changed(int /*control*/) override { note({}); }
};

}  // namespace

std::optional<int> readChannel(std::wstring_view text) noexcept {
    while (text.starts_with(L' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(L' ')) {
        text.remove_suffix(1);
    }
    int number = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9') {
            return std::nullopt;
        }
        number = number * 10 + (digit - L'0');
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
