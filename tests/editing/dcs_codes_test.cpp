// Every DCS code in the grid: accepted by both subtone columns, stored as its place in the list, and shown again.
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "editing/cell_storing.h"
#include "editing/validators.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;

// By a second hand.
constexpr std::array<const char*, 83> listedCodes{
    "023", "025", "026", "031", "032", "043", "047", "051", "054", "065", "071", "072", "073", "074",
    "114", "115", "116", "125", "131", "132", "134", "143", "152", "155", "156", "162", "165", "172",
    "174", "205", "223", "226", "243", "244", "245", "251", "261", "263", "265", "271", "306", "311",
    "315", "331", "343", "346", "351", "364", "365", "371", "411", "412", "413", "423", "431", "432",
    "445", "464", "465", "466", "503", "506", "516", "532", "546", "565", "606", "612", "624", "627",
    "631", "632", "654", "662", "664", "703", "712", "723", "731", "732", "734", "743", "754"};

class DcsCodes : public testing::Test {
protected:
    DcsCodes() { fill(table, 1, {{ChannelKey::TxFreq, 145'000'000}}); }
    [[nodiscard]] editing::CellContext context() { return {.store = table, .channel = 1, .format = {}}; }
    model::MemoryDataStore table;
};

TEST_F(DcsCodes, AllEightyThreeAreStoredAsTheirPlaceInTheListAndShownAgain) {
    for (std::size_t place = 0; place < listedCodes.size(); ++place) {
        const std::string code = listedCodes.at(place);
        for (const auto column : {std::int16_t{3}, std::int16_t{4}}) {
            EXPECT_EQ(editing::validateCell(context(), column, code), "") << code;
            editing::storeCell(context(), column, code);
            EXPECT_EQ(renderedRow(table, 1).at(static_cast<std::size_t>(column)), code);
        }
        const base::Value index{static_cast<std::int16_t>(place)};
        EXPECT_EQ(table.channel(1).get(ChannelKey::TxDCSIndex), index) << code;
        EXPECT_EQ(table.channel(1).get(ChannelKey::RxDCSIndex), index) << code;
    }
}

TEST_F(DcsCodes, EveryOtherThreeDigitsAreRefused) {
    for (int number = 0; number < 1000; ++number) {
        std::string code = std::to_string(number);
        code.insert(0, 3 - code.size(), '0');
        const bool listed = std::ranges::find(listedCodes, code) != listedCodes.end();
        for (const auto& [column, name] : {std::pair<std::int16_t, std::string>{3, "TX Subtone"}, {4, "RX Subtone"}}) {
            EXPECT_EQ(editing::validateCell(context(), column, code),
                      listed ? "" : "Invalid DCS value (not found in the table) " + name)
                << code;
        }
    }
}

}  // namespace
}  // namespace telvar::tests
