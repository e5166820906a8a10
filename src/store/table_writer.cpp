// One member a line at the top and in the radio, one channel a line, in a fixed order: what changes in a table changes
// as few lines as possible.
#include "store/json_text.h"
#include "store/table_file.h"
#include "store/table_values.h"

namespace telvar::store {

namespace {

using Text = std::expected<std::string, os::FileError>;

// Members of one object, each handed over as `"name": value`.
class Members {
public:
    void add(std::string_view name, std::string_view json) {
        if (!text_.empty()) {
            text_ += separator_;
        }
        text_.append(jsonQuoted(name)).append(": ").append(json);
    }
    void add(const UnknownMembers& members) {
        for (const auto& member : members) {
            add(member.name, member.json);
        }
    }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }

    explicit Members(std::string_view separator) : separator_(separator) {}

private:
    std::string_view separator_;
    std::string text_;
};

class Writer {
public:
    Writer(const TableContents& contents, const std::string& name) : contents_(contents), name_(name) {}

    [[nodiscard]] Text text() const {
        const auto radio = radioText();
        if (!radio) {
            return radio;
        }
        const auto channels = channelsText();
        if (!channels) {
            return channels;
        }
        Members members(",\n  ");
        members.add("format", jsonQuoted(tableFormat));
        members.add("version", std::to_string(tableVersion));
        members.add("title", jsonQuoted(contents_.title));
        members.add(contents_.unknown);
        members.add("radio", *radio);
        members.add("channels", *channels);
        return "{\n  " + members.text() + "\n}\n";
    }

private:
    [[nodiscard]] std::unexpected<os::FileError> refused(const std::string& where, std::string_view key,
                                                         const Refusal& refusal) const {
        return std::unexpected(os::FileError{name_, where + jsonQuoted(key) + " " + refusal});
    }

    [[nodiscard]] Text radioText() const {
        Members members(",\n    ");
        for (const auto& info : model::storeMembers) {
            if (!info.describesRadio) {
                continue;
            }
            const auto json = writeValue(info.kind, contents_.radio[static_cast<std::size_t>(info.member)]);
            if (!json) {
                return refused("radio: ", info.name, json.error());
            }
            members.add(info.name, *json);
        }
        members.add(scalingName, std::to_string(contents_.referenceDividerScaling));
        members.add(contents_.unknownOfRadio);
        return "{\n    " + members.text() + "\n  }";
    }

    // Empty for a channel that differs in nothing from an empty one.
    [[nodiscard]] Text channelText(std::int16_t number) const {
        Members members(", ");
        const auto& values = contents_.channels[static_cast<std::size_t>(number - 1)];
        for (const auto& info : model::channelKeys) {
            const auto& value = values[static_cast<std::size_t>(info.key)];
            const auto empty = model::emptyChannelValue(info.key);
            if (value == empty) {
                continue;
            }
            const auto json = writeValue(info.kind, value);
            if (!json) {
                return refused("channel " + std::to_string(number) + ": ", info.name, json.error());
            }
            // Another type may hold the same value.
            if (*json != writeValue(info.kind, empty)) {
                members.add(info.name, *json);
            }
        }
        if (const auto unknown = contents_.unknownOfChannel.find(number); unknown != contents_.unknownOfChannel.end()) {
            members.add(unknown->second);
        }
        return members.text();
    }

    [[nodiscard]] Text channelsText() const {
        std::string lines;
        for (std::int16_t number = 1; number <= model::channelCount; ++number) {
            const auto channel = channelText(number);
            if (!channel) {
                return channel;
            }
            if (!channel->empty()) {
                lines += lines.empty() ? "\n" : ",\n";
                lines += "    {\"channel\": " + std::to_string(number) + ", " + *channel + "}";
            }
        }
        return lines.empty() ? "[]" : "[" + lines + "\n  ]";
    }

    const TableContents& contents_;
    const std::string& name_;
};

}  // namespace

std::expected<std::string, os::FileError> tableText(const TableContents& contents, const std::string& name) {
    return Writer(contents, name).text();
}

}  // namespace telvar::store
