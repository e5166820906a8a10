// Everything that a table file can be refused for, each with its one sentence.
#include <gtest/gtest.h>

#include "store/table_file.h"

namespace telvar::store {
namespace {

// The sentence for a text, without the file's name; empty where it is accepted.
[[nodiscard]] std::string refusalOf(const std::string& text) {
    const auto contents = parseTable(text, "marine.telvar");
    if (contents) {
        return "";
    }
    const auto sentence = contents.error().sentence();
    EXPECT_TRUE(sentence.starts_with("marine.telvar: ")) << sentence;
    return sentence.substr(15);
}

[[nodiscard]] std::string fileWith(const std::string& members) {
    return R"({"format": "telvar-channel-table", "version": 1, )" + members + "}";
}

[[nodiscard]] std::string channelWith(const std::string& members) {
    return fileWith(R"("channels": [{"channel": 12, )" + members + "}]");
}

[[nodiscard]] std::string radioWith(const std::string& members) { return fileWith(R"("radio": {)" + members + "}"); }

struct Case {
    std::string text;
    std::string refusal;
    friend void PrintTo(const Case& c, std::ostream* out) { *out << c.text.substr(0, 120); }
};

class Refused : public testing::TestWithParam<Case> {};

TEST_P(Refused, WithOneSentence) { EXPECT_EQ(refusalOf(GetParam().text), GetParam().refusal); }

INSTANTIATE_TEST_SUITE_P(
    NoTable, Refused,
    testing::Values(
        Case{"", "the file is empty."}, Case{"   \n", "damaged at line 2, column 1: nothing is there."},
        Case{"[]", "is no channel table."}, Case{"5", "is no channel table."}, Case{"\"x\"", "is no channel table."},
        Case{"{}", R"(is no channel table: "format" is missing.)"},
        Case{R"({"format": "other", "version": 1})",
             R"(is no channel table: "format" must be "telvar-channel-table".)"},
        Case{R"({"format": 1, "version": 1})", R"(is no channel table: "format" must be "telvar-channel-table".)"},
        Case{R"({"format": {}, "version": 1})", "is no channel table."},
        Case{R"({"format": "telvar-channel-table"})", R"("version" is missing.)"},
        Case{R"({"format": "telvar-channel-table", "version": "1"})", R"("version" must be 1.)"},
        Case{R"({"format": "telvar-channel-table", "version": 0})", R"("version" must be 1.)"},
        Case{R"({"format": "telvar-channel-table", "version": []})", R"("version" must be a whole number.)"},
        Case{R"({"format": "telvar-channel-table", "version": 2, "channels": 7})",
             "was written by a newer release: its version is 2, and this release reads version 1."},
        // However the members stand, the version comes first.
        Case{R"({"channels": [{"channel": "A"}], "version": 2, "format": "telvar-channel-table"})",
             "was written by a newer release: its version is 2, and this release reads version 1."}));

INSTANTIATE_TEST_SUITE_P(
    Damaged, Refused,
    testing::Values(
        Case{"{\n  \"format\": \"telvar-channel-table\",\n  \"version\" 1\n}",
             "damaged at line 3, column 13: a colon is missing after a member's name."},
        Case{R"({"format": "telvar-channel-table", "version": 1)",
             "damaged at line 1, column 48: a comma or } is missing."},
        Case{fileWith("\"channels\": [\n{\"channel\": 12, \"TxFreq\": 1456}\n{\"channel\": 13}]"),
             "damaged at line 3, column 1: a comma or ] is missing."},
        Case{R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 12, "TxFreq": 145)",
             "channel 12: damaged at line 1, column 92: a comma or } is missing."},
        Case{channelWith(R"("P25TalkgroupID": "00)"),
             "channel 12: damaged at line 1, column 103: a closing quotation mark is missing."},
        Case{fileWith("\"title\": \"\xff\""), "damaged at line 1, column 60: a text is not UTF-8."},
        Case{fileWith("\"title\": \"\xc0\xaf\""), "damaged at line 1, column 60: a text is not UTF-8."},
        Case{fileWith("\"title\": \"a\nb\""),
             "damaged at line 1, column 61: a text has a control character or a wrong \\ escape."},
        Case{fileWith(R"("title": "\x")"),
             R"(damaged at line 1, column 60: a text has a control character or a wrong \ escape.)"},
        Case{fileWith(R"("title": "a")") + " x", "damaged at line 1, column 64: something follows the end."},
        Case{fileWith("\"title\": \"a\"") + std::string(1, '\0'),
             "damaged at line 1, column 63: a zero byte is no text."},
        Case{channelWith(R"("TxFreq": 1e999)"), "channel 12: damaged at line 1, column 89: a number is too large."},
        Case{channelWith(R"("TxFreq": 0145)"), "channel 12: damaged at line 1, column 90: a comma or } is missing."},
        Case{channelWith(R"("TxFreq": NaN)"), "channel 12: damaged at line 1, column 89: no value can be read here."},
        Case{"\xFF\xFE{", "is text in UTF-16; a channel table is in UTF-8."}));

INSTANTIATE_TEST_SUITE_P(
    OfAWrongType, Refused,
    testing::Values(
        Case{fileWith(R"("title": 5)"), R"("title" must be text.)"},
        Case{fileWith(R"("title": ["a"])"), R"("title" must be text.)"},
        Case{fileWith(R"("radio": [])"), R"("radio" must be an object.)"},
        Case{fileWith(R"("radio": null)"), R"("radio" must be an object.)"},
        Case{fileWith(R"("channels": {})"), R"("channels" must be a list.)"},
        Case{fileWith(R"("channels": 5)"), R"("channels" must be a list.)"},
        Case{fileWith(R"("channels": [5])"), R"("channels" must hold objects only.)"},
        Case{fileWith(R"("channels": [[]])"), R"("channels" must hold objects only.)"},
        Case{channelWith(R"("TxFreq": "145")"), R"(channel 12: "TxFreq" must be a number of hertz, not text.)"},
        Case{channelWith(R"("RxFreq": true)"), R"(channel 12: "RxFreq" must be a number of hertz, not true.)"},
        Case{channelWith(R"("SynthStep": null)"), R"(channel 12: "SynthStep" must be a number of hertz, not null.)"},
        Case{channelWith(R"("TxSub": {"Hz": 67})"), R"(channel 12: "TxSub" must be a number of hertz, not an object.)"},
        Case{channelWith(R"("RxSub": 1e39)"), R"(channel 12: "RxSub" is too large a number.)"},
        Case{channelWith(R"("TxLevel": 2.5)"), R"(channel 12: "TxLevel" must be a whole number, not 2.5.)"},
        Case{channelWith(R"("TxLevel": [2])"), R"(channel 12: "TxLevel" must be a whole number, not a list.)"},
        Case{channelWith(R"("ModeBits": 3000000000)"),
             R"(channel 12: "ModeBits" must lie between -2147483648 and 2147483647, not be 3000000000.)"},
        Case{channelWith(R"("ModeBits": 0.)" + std::string(60, '1')),
             R"(channel 12: "ModeBits" must be a whole number, not 0.)" + std::string(38, '1') + "..."},
        Case{channelWith(R"("scan": 1)"), R"(channel 12: "scan" must be true or false, not 1.)"},
        Case{channelWith(R"("scan": "True")"), R"(channel 12: "scan" must be true or false, not text.)"},
        Case{channelWith(R"("P25TalkgroupID": 1)"), R"(channel 12: "P25TalkgroupID" must be text, not 1.)"},
        Case{radioWith(R"("HardwareRevision": "3")"), R"(radio: "HardwareRevision" must be a number, not text.)"},
        Case{radioWith(R"("BandwidthSwitchable": -1)"),
             R"(radio: "BandwidthSwitchable" must be true or false, not -1.)"},
        Case{radioWith(R"("ChannelSpacing": 12500.5)"),
             R"(radio: "ChannelSpacing" must be a whole number, not 12500.5.)"},
        Case{radioWith(R"("TxSynthChipInfo": false)"), R"(radio: "TxSynthChipInfo" must be text, not false.)"},
        Case{radioWith(R"("sm": "0")"), R"(radio: "sm" must be a whole number, not text.)"}));

INSTANTIATE_TEST_SUITE_P(
    InItsChannels, Refused,
    testing::Values(Case{fileWith(R"("channels": [{"channel": 1}, {"TxFreq": 5}])"),
                         R"(entry 2 of "channels": "channel" is missing.)"},
                    Case{fileWith(R"("channels": [{"channel": 0}])"),
                         R"(entry 1 of "channels": "channel" must lie between 1 and 255, not be 0.)"},
                    Case{fileWith(R"("channels": [{"channel": 256}])"),
                         R"(entry 1 of "channels": "channel" must lie between 1 and 255, not be 256.)"},
                    Case{fileWith(R"("channels": [{"channel": 1.5}])"),
                         R"(entry 1 of "channels": "channel" must be a whole number, not 1.5.)"},
                    Case{fileWith(R"("channels": [{"channel": "1"}])"),
                         R"(entry 1 of "channels": "channel" must be a whole number, not text.)"},
                    // The number may follow the other members; until then the entry is named by its place.
                    Case{fileWith(R"("channels": [{"TxFreq": "x", "channel": 7}])"),
                         R"(entry 1 of "channels": "TxFreq" must be a number of hertz, not text.)"},
                    Case{fileWith(R"("channels": [{"channel": 7}, {"channel": 8}, {"channel": 7}])"),
                         R"(entry 3 of "channels": channel 7 is there twice.)"},
                    Case{channelWith(R"("scan": true, "scan": false)"), R"(channel 12: "scan" is given twice.)"},
                    Case{channelWith(R"("note": 1, "note": 2)"), R"(channel 12: "note" is given twice.)"},
                    Case{radioWith(R"("sm": 0, "sm": 0)"), R"(radio: "sm" is given twice.)"},
                    Case{fileWith(R"("title": "a", "title": "a")"), R"("title" is given twice.)"},
                    Case{fileWith(R"("channels": [], "channels": [])"), R"("channels" is given twice.)"}));

TEST(Refusals, UnknownMembersMayBeNestedOnlySoDeep) {
    const auto nested = [](std::size_t depth) {
        return fileWith(R"("note": )" + std::string(depth, '[') + std::string(depth, ']'));
    };
    EXPECT_EQ(refusalOf(nested(100)), "");
    EXPECT_EQ(refusalOf(nested(101)), R"("note" is nested too deeply.)");
    // Far beyond what a stack of calls could hold.
    EXPECT_EQ(refusalOf(nested(5'000'000)), R"("note" is nested too deeply.)");
    EXPECT_EQ(refusalOf(std::string(5'000'000, '[')), "is no channel table.");
}

TEST(Refusals, EveryTruncationOfATableIsRefused) {
    const auto whole = tableText(emptyTable(), "x").value();
    EXPECT_EQ(refusalOf(whole), "");
    // The last character is only the line end.
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        EXPECT_NE(refusalOf(whole.substr(0, length)), "") << length;
    }
}

}  // namespace
}  // namespace telvar::store
