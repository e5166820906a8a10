// telvar set: values by key, all of them or none.
#include <CLI/CLI.hpp>

#include "base/text.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_edit.h"
#include "interchange/key_text.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

constexpr std::string_view titleName = "title";

// One KEY=VALUE, understood. A plain text goes to the title, a number without a member to the scaling.
struct Assignment {
    std::string key;
    std::string text;
    std::optional<model::ChannelKey> channelKey;
    std::optional<model::StoreMember> member;
    base::Value value;
};

using Understood = std::expected<Assignment, std::string>;

// A key that differs in letter case only, as a hint; empty where there is none.
[[nodiscard]] std::string similarKey(std::string_view name) {
    const auto hint = [](std::string_view key) { return "; did you mean " + store::jsonQuoted(key) + "?"; };
    for (const auto& info : model::channelKeys) {
        if (base::equalIgnoringCase(info.name, name)) {
            return hint(info.name);
        }
    }
    for (const auto& info : model::storeMembers) {
        if (info.describesRadio && base::equalIgnoringCase(info.name, name)) {
            return hint(info.name);
        }
    }
    return {};
}

[[nodiscard]] std::expected<base::Value, std::string> readValue(const Assignment& assignment,
                                                                const base::NumberFormat& format) {
    if (assignment.channelKey) {
        return interchange::readKeyText(model::infoOf(*assignment.channelKey).kind, assignment.text, format);
    }
    if (assignment.member) {
        return interchange::readMemberText(model::infoOf(*assignment.member).kind, assignment.text, format);
    }
    const auto kind = assignment.key == titleName ? model::MemberKind::Text : model::MemberKind::Integer32;
    return interchange::readMemberText(kind, assignment.text, format);
}

[[nodiscard]] Understood understood(const std::string& argument, const base::NumberFormat& format) {
    const auto equals = argument.find('=');
    if (equals == std::string::npos) {
        return std::unexpected(store::jsonQuoted(argument) + " is not KEY=VALUE");
    }
    Assignment assignment{.key = argument.substr(0, equals), .text = argument.substr(equals + 1)};
    assignment.channelKey = model::channelKeyNamed(assignment.key);
    assignment.member = model::storeMemberNamed(assignment.key);
    if (assignment.member && !model::infoOf(*assignment.member).describesRadio) {
        return std::unexpected(store::jsonQuoted(assignment.key) + " is no part of a table");
    }
    const bool known = assignment.channelKey || assignment.member || assignment.key == titleName ||
                       assignment.key == store::scalingName;
    if (!known) {
        return std::unexpected("there is no key " + store::jsonQuoted(assignment.key) + similarKey(assignment.key));
    }
    auto value = readValue(assignment, format);
    if (!value) {
        return std::unexpected(store::jsonQuoted(assignment.key) + " " + value.error());
    }
    assignment.value = *std::move(value);
    return assignment;
}

class SetCommand : public Command {
public:
    std::string name() const override { return "set"; }
    std::string summary() const override { return "Set values of the radio or of channels by key"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table to change, or - from standard input to standard output")->required();
        app.add_option("KEY=VALUE", arguments_, "What to set; frequencies and steps in hertz")->required();
        app.add_option("--channel", channels_, "The channel that the keys belong to, or several as in 1-20,25")
            ->type_name("N");
    }

    Outcome execute(const Console& console) override {
        if (console.json && file_ == standardStream) {
            return console.refuse("--json and the table itself cannot both go to standard output");
        }
        if (const auto problem = understandAll(console.format)) {
            return console.refuse(*problem);
        }
        if (const auto* assignment = outsideCsv()) {
            return console.refuse(os::FileError{file_, store::jsonQuoted(assignment->key) + " is not part of CSV"});
        }
        auto edit = TableEdit::begin(console, file_);
        if (!edit) {
            return console.refuse(edit.error());
        }
        apply(edit->contents);
        const auto changed = edit->finish(console);
        if (!changed) {
            return console.refuse(changed.error());
        }
        if (console.json) {
            console.out << Json().add("file", file_).add("changed", *changed).line();
        }
        return Outcome::Fine;
    }

private:
    // What is wrong with the arguments, if anything is.
    [[nodiscard]] std::optional<std::string> understandAll(const base::NumberFormat& format) {
        if (!channels_.empty()) {
            const auto numbers = channelList(channels_);
            if (!numbers) {
                return "--channel takes a number of 1 to 255, or several such as 1-20,25, not " +
                       store::jsonQuoted(channels_);
            }
            numbers_ = *numbers;
        }
        for (const auto& argument : arguments_) {
            auto assignment = understood(argument, format);
            if (!assignment) {
                return assignment.error();
            }
            if (std::ranges::find(assignments_, assignment->key, &Assignment::key) != assignments_.end()) {
                return store::jsonQuoted(assignment->key) + " is given twice";
            }
            if (assignment->channelKey && numbers_.empty()) {
                return store::jsonQuoted(assignment->key) + " belongs to a channel; say which with --channel";
            }
            assignments_.push_back(*std::move(assignment));
        }
        const auto isOfChannel = [](const Assignment& assignment) { return assignment.channelKey.has_value(); };
        if (!numbers_.empty() && std::ranges::none_of(assignments_, isOfChannel)) {
            return "--channel is given, but no key that belongs to a channel";
        }
        return std::nullopt;
    }

    // A value that the file could not hold; null where there is none.
    [[nodiscard]] const Assignment* outsideCsv() const {
        const auto ofTable = std::ranges::find_if(
            assignments_, [](const Assignment& assignment) { return !assignment.channelKey.has_value(); });
        return formatOf(file_) == FileFormat::Csv && ofTable != assignments_.end() ? &*ofTable : nullptr;
    }

    void apply(store::TableContents& contents) const {
        for (const auto& assignment : assignments_) {
            if (assignment.channelKey) {
                for (const auto number : numbers_) {
                    auto& channel = contents.channels[static_cast<std::size_t>(number - 1)];
                    channel[static_cast<std::size_t>(*assignment.channelKey)] = assignment.value;
                }
            } else if (assignment.member) {
                contents.radio[static_cast<std::size_t>(*assignment.member)] = assignment.value;
            } else if (assignment.key == titleName) {
                contents.title = std::get<std::string>(assignment.value);
            } else {
                contents.referenceDividerScaling = std::get<std::int32_t>(assignment.value);
            }
        }
    }

    std::string file_;
    std::vector<std::string> arguments_;
    std::string channels_;
    std::vector<std::int16_t> numbers_;
    std::vector<Assignment> assignments_;
};

}  // namespace

std::unique_ptr<Command> setCommand() { return std::make_unique<SetCommand>(); }

}  // namespace telvar::cli
