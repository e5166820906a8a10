// One pass over the file's events. Values go into fresh contents, which are handed out only when all of them were good.
#include <algorithm>
#include <bitset>
#include <optional>
#include <utility>

#include "base/number_text.h"
#include "store/json_text.h"
#include "store/table_file.h"
#include "store/table_head.h"
#include "store/table_values.h"

namespace telvar::store {

namespace {

// What stands open around the value that comes next.
enum class Place { File, Top, Radio, Channels, Channel };

class TableListener : public JsonListener {
public:
    bool scalar(const JsonScalar& value) override;
    bool open(JsonType type) override;
    bool close(JsonType type) override;
    bool name(std::string_view name) override;

    [[nodiscard]] const std::string& refusal() const noexcept { return refusal_; }
    // "channel 12: " inside a channel, "radio: " inside the radio, else nothing.
    [[nodiscard]] std::string where() const;
    [[nodiscard]] TableContents take() { return std::move(contents_); }

private:
    [[nodiscard]] bool refuse(const std::string& what);
    [[nodiscard]] bool refuseMember(const std::string& what) { return refuse(jsonQuoted(name_) + " " + what); }

    [[nodiscard]] bool isKnown() const;
    [[nodiscard]] bool heardUnknown(bool goOn);
    [[nodiscard]] UnknownMembers& unknownHere();

    [[nodiscard]] bool takeTop(const JsonScalar& value);
    [[nodiscard]] bool takeOfRadio(const JsonScalar& value);
    [[nodiscard]] bool takeOfChannel(const JsonScalar& value);
    [[nodiscard]] bool takeChannelNumber(const JsonScalar& value);

    [[nodiscard]] bool openKnown(JsonType type);
    [[nodiscard]] bool beginChannel();
    [[nodiscard]] bool endChannel();

    TableContents contents_ = emptyTable();
    const ChannelValues emptyChannel_ = contents_.channels.front();

    Place place_ = Place::File;
    std::string name_;  // of the member whose value is next
    std::vector<std::string> heardAtTop_;
    std::vector<std::string> heardHere_;  // in the radio or in the channel
    std::string refusal_;
    std::optional<JsonLine> unknown_;  // while the value of an unknown member is put together

    int entry_ = 0;  // of "channels", from 1
    std::optional<std::int16_t> number_;
    ChannelValues channel_;
    UnknownMembers unknownOfChannel_;
    std::bitset<static_cast<std::size_t>(model::channelCount) + 1> filled_;
};

bool TableListener::refuse(const std::string& what) {
    refusal_ = where() + what;
    return false;
}

std::string TableListener::where() const {
    if (place_ == Place::Radio) {
        return "radio: ";
    }
    if (place_ == Place::Channel) {
        return number_ ? "channel " + std::to_string(*number_) + ": "
                       : "entry " + std::to_string(entry_) + " of \"channels\": ";
    }
    return {};
}

bool TableListener::name(std::string_view name) {
    if (unknown_) {
        return heardUnknown(unknown_->name(name));
    }
    name_ = name;
    auto& heard = place_ == Place::Top ? heardAtTop_ : heardHere_;
    if (std::ranges::find(heard, name) != heard.end()) {
        return refuseMember("is given twice");
    }
    heard.push_back(name_);
    return true;
}

bool TableListener::isKnown() const {
    switch (place_) {
    case Place::Top:
        return name_ == "format" || name_ == "version" || name_ == "title" || name_ == "radio" || name_ == "channels";
    case Place::Radio: {
        const auto member = model::storeMemberNamed(name_);
        return name_ == scalingName || (member && model::infoOf(*member).describesRadio);
    }
    case Place::Channel:
        return name_ == "channel" || model::channelKeyNamed(name_);
    default:
        return true;
    }
}

UnknownMembers& TableListener::unknownHere() {
    switch (place_) {
    case Place::Radio:
        return contents_.unknownOfRadio;
    case Place::Channel:
        return unknownOfChannel_;
    default:
        return contents_.unknown;
    }
}

bool TableListener::heardUnknown(bool goOn) {
    if (!goOn) {
        return refuseMember("is nested too deeply");
    }
    if (unknown_->complete()) {
        unknownHere().push_back({.name = name_, .json = unknown_->text()});
        unknown_.reset();
    }
    return true;
}

bool TableListener::scalar(const JsonScalar& value) {
    if (!unknown_ && !isKnown()) {
        unknown_.emplace();
    }
    if (unknown_) {
        return heardUnknown(unknown_->scalar(value));
    }
    switch (place_) {
    case Place::Top:
        return takeTop(value);
    case Place::Radio:
        return takeOfRadio(value);
    case Place::Channel:
        return takeOfChannel(value);
    default:
        return refuse("\"channels\" must hold objects only");
    }
}

bool TableListener::open(JsonType type) {
    if (!unknown_ && !isKnown()) {
        unknown_.emplace();
    }
    return unknown_ ? heardUnknown(unknown_->open(type)) : openKnown(type);
}

bool TableListener::openKnown(JsonType type) {
    if (place_ == Place::File) {
        place_ = Place::Top;
        return true;
    }
    if (place_ == Place::Channels && type == JsonType::Object) {
        return beginChannel();
    }
    if (place_ == Place::Top && name_ == "radio" && type == JsonType::Object) {
        heardHere_.clear();
        place_ = Place::Radio;
        return true;
    }
    if (place_ == Place::Top && name_ == "channels" && type == JsonType::List) {
        place_ = Place::Channels;
        return true;
    }
    return scalar({.type = type, .text = {}, .truth = false});
}

bool TableListener::close(JsonType type) {
    if (unknown_) {
        return heardUnknown(unknown_->close(type));
    }
    if (place_ == Place::Channel) {
        return endChannel();
    }
    place_ = place_ == Place::Top ? Place::File : Place::Top;
    return true;
}

bool TableListener::takeTop(const JsonScalar& value) {
    if (name_ == "title") {
        if (value.type != JsonType::Text) {
            return refuseMember("must be text");
        }
        contents_.title = value.text;
    } else if (name_ == "radio") {
        return refuseMember("must be an object");
    } else if (name_ == "channels") {
        return refuseMember("must be a list");
    }
    // Format and version were looked at before.
    return true;
}

bool TableListener::takeOfRadio(const JsonScalar& value) {
    const auto member = model::storeMemberNamed(name_);
    const auto kind = member ? model::infoOf(*member).kind : model::MemberKind::Integer32;
    auto read = readValue(kind, value);
    if (!read) {
        return refuseMember(read.error());
    }
    if (member) {
        contents_.radio[static_cast<std::size_t>(*member)] = *std::move(read);
    } else {
        contents_.referenceDividerScaling = std::get<std::int32_t>(*read);
    }
    return true;
}

bool TableListener::takeOfChannel(const JsonScalar& value) {
    if (name_ == "channel") {
        return takeChannelNumber(value);
    }
    const auto& info = model::infoOf(*model::channelKeyNamed(name_));
    auto read = readValue(info.kind, value);
    if (!read) {
        return refuseMember(read.error());
    }
    channel_[static_cast<std::size_t>(info.key)] = *std::move(read);
    return true;
}

bool TableListener::takeChannelNumber(const JsonScalar& value) {
    const auto read = readValue(model::KeyKind::Integer, value);
    if (!read) {
        return refuseMember(read.error());
    }
    const auto number = std::get<std::int32_t>(*read);
    if (number < 1 || number > model::channelCount) {
        return refuseMember("must lie between 1 and 255, not be " + std::to_string(number));
    }
    if (filled_[static_cast<std::size_t>(number)]) {
        return refuse("channel " + std::to_string(number) + " is there twice");
    }
    number_ = static_cast<std::int16_t>(number);
    return true;
}

bool TableListener::beginChannel() {
    place_ = Place::Channel;
    ++entry_;
    number_.reset();
    channel_ = emptyChannel_;
    unknownOfChannel_.clear();
    heardHere_.clear();
    return true;
}

bool TableListener::endChannel() {
    if (!number_) {
        return refuse("\"channel\" is missing");
    }
    filled_.set(static_cast<std::size_t>(*number_));
    contents_.channels[static_cast<std::size_t>(*number_ - 1)] = channel_;
    if (!unknownOfChannel_.empty()) {
        contents_.unknownOfChannel[*number_] = std::exchange(unknownOfChannel_, {});
    }
    place_ = Place::Channels;
    return true;
}

[[nodiscard]] std::string lineAndColumn(std::string_view text, std::size_t offset) {
    const auto before = text.substr(0, offset);
    const auto line = std::ranges::count(before, '\n') + 1;
    const auto start = before.rfind('\n') + 1;  // 0 on the first line, where nothing is found
    return "line " + std::to_string(line) + ", column " + std::to_string(offset - start + 1);
}

// What cannot even be looked at as JSON in UTF-8.
[[nodiscard]] std::optional<std::string> encodingProblem(std::string_view text) {
    if (text.empty()) {
        return "the file is empty";
    }
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return "is text in UTF-16; a channel table is in UTF-8";
    }
    return std::nullopt;
}

}  // namespace

std::expected<TableContents, os::FileError> parseTable(std::string_view text, const std::string& name) {
    const auto refused = [&](const std::string& what) { return std::unexpected(os::FileError{name, what}); };
    if (const auto problem = encodingProblem(text)) {
        return refused(*problem);
    }
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    if (const auto problem = headProblem(text)) {
        return refused(*problem);
    }
    TableListener listener;
    const auto problem = readJson(text, listener);
    if (!problem) {
        return listener.take();
    }
    if (!listener.refusal().empty()) {
        return refused(listener.refusal());
    }
    return refused(listener.where() + "damaged at " + lineAndColumn(text, problem->offset) + ": " + problem->what);
}

}  // namespace telvar::store
