// What reaches the store when a cell is stored: for every column the writes, each with its value and in its order, once
// more by a second hand.
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "editing/cell_storing.h"
#include "support/store_decorator.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using base::Value;
using editing::storeCell;
using model::ChannelKey;
using Writes = std::vector<std::string>;

constexpr std::int16_t edited = 9;

// "key type value"; the type shows what kind of number the store gets.
class WriteLog : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    Writes writes;

    void writeChannel(std::int16_t index, ChannelKey key, const Value& value) override {
        EXPECT_EQ(index, edited - 1);
        writes.push_back(std::string(model::infoOf(key).name) + " " + typeOf(value) + " " + base::toText(value));
        StoreDecorator::writeChannel(index, key, value);
    }

protected:
    void onCall(const StoreCall& /*call*/) override {}

private:
    [[nodiscard]] static std::string typeOf(const Value& value) {
        static const std::vector<std::string> names{"empty",  "flag",   "int16", "int32",   "int64",
                                                    "single", "double", "text",  "unusable"};
        return names.at(value.index());
    }
};

struct CellCase {
    std::int16_t column;
    std::string text;
    std::int32_t bits;  // ModeBits before
    Writes writes;
};

class CellWrites : public testing::TestWithParam<CellCase> {};

TEST_P(CellWrites, AreTheseAndInThisOrder) {
    const auto& [column, text, bits, writes] = GetParam();
    model::MemoryDataStore table;
    table.channel(edited).put(ChannelKey::ModeBits, bits);
    WriteLog log(table);
    storeCell({.store = log, .channel = edited, .format = {}}, column, text);
    EXPECT_EQ(log.writes, writes) << column << " " << text << " from " << bits;
}

INSTANTIATE_TEST_SUITE_P(Frequencies, CellWrites,
                         testing::Values(CellCase{1, "145.5", 0, {"TxFreq double 145500000"}},
                                         CellCase{1, "X", 0, {"TxFreq int16 0"}},
                                         CellCase{2, "450.0125", 0, {"RxFreq double 450012500"}},
                                         CellCase{2, "X", 0, {"RxFreq int16 0"}}));

INSTANTIATE_TEST_SUITE_P(
    Subtones, CellWrites,
    testing::Values(CellCase{3, "Disabled", 255, {"TxCTCSSDCS flag False", "TxDCSIndex int16 0", "TxSub single 0"}},
                    CellCase{3, "123.0 Hz", 255, {"TxCTCSSDCS flag False", "TxDCSIndex int16 0", "TxSub single 123"}},
                    CellCase{3, "754", 255, {"TxCTCSSDCS flag True", "TxDCSIndex int16 82"}},
                    CellCase{4,
                             "Disabled",
                             255,
                             {"RxCTCSSDCS flag False", "RxDCSIndex int16 0", "RxSub single 0", "ModeBits int16 251"}},
                    CellCase{4,
                             "123.0 Hz",
                             255,
                             {"RxCTCSSDCS flag False", "RxDCSIndex int16 0", "RxSub single 123", "ModeBits int16 251"}},
                    CellCase{4, "Multiple", 0, {"RxCTCSSDCS flag False", "ModeBits int16 4"}},
                    CellCase{4, "754", 4, {"RxCTCSSDCS flag True", "RxDCSIndex int16 82", "ModeBits int16 16"}}));

INSTANTIATE_TEST_SUITE_P(
    Modes, CellWrites,
    testing::Values(
        CellCase{5, "Duplex", 255, {"ModeBits int16 252", "p25RepeaterEnable flag False"}},
        CellCase{5, "Simplex", 254, {"ModeBits int16 255", "ModeBits int16 253", "p25RepeaterEnable flag False"}},
        CellCase{5, "Repeater", 253, {"ModeBits int16 255", "ModeBits int16 254", "p25RepeaterEnable flag False"}},
        CellCase{5, "P25 Repeater", 3, {"ModeBits int16 0", "ModeBits int16 128", "p25RepeaterEnable flag True"}},
        CellCase{5,
                 "Mixed Mode",
                 1,
                 {"ModeBits int16 3", "ModeBits int16 2", "ModeBits int16 130", "p25RepeaterEnable flag True"}},
        CellCase{6, "Yes", 0, {"scan flag True"}}, CellCase{6, "No", 0, {"scan flag False"}},
        CellCase{7, "Narrow", 65, {"ModeBits int16 193"}}, CellCase{7, "Wide", 193, {"ModeBits int16 65"}},
        CellCase{7, "N/A", 193, {"ModeBits int16 65"}},
        CellCase{8, "P25 Digital", 1, {"P25TransmitMode flag True", "ModeBits int16 129"}},
        CellCase{8, "Analogue", 129, {"P25TransmitMode flag False"}},
        // From no bit and from every other one: none but the one meant changes.
        CellCase{5, "Duplex", 0, {"ModeBits int16 0", "p25RepeaterEnable flag False"}},
        CellCase{7, "Narrow", 0, {"ModeBits int16 128"}}, CellCase{7, "Narrow", 127, {"ModeBits int16 255"}},
        CellCase{7, "Wide", 128, {"ModeBits int16 0"}}, CellCase{7, "Wide", 255, {"ModeBits int16 127"}},
        CellCase{7, "N/A", 128, {"ModeBits int16 0"}}, CellCase{7, "N/A", 255, {"ModeBits int16 127"}},
        CellCase{8, "P25 Digital", 0, {"P25TransmitMode flag True", "ModeBits int16 128"}},
        CellCase{8, "P25 Digital", 127, {"P25TransmitMode flag True", "ModeBits int16 255"}},
        CellCase{23, "Yes", 3, {"ModeBits int16 0", "p25RepeaterEnable flag True", "ModeBits int16 128"}},
        CellCase{23, "No", 131, {"p25RepeaterEnable flag False"}}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, CellWrites,
    testing::Values(CellCase{9, "1", 0, {"TxPower int16 1"}}, CellCase{10, "2", 0, {"RefOscFreq int16 2"}},
                    CellCase{11, "3", 0, {"VCODev int16 3"}}, CellCase{12, "4", 0, {"RefOscDev int16 4"}},
                    CellCase{13, "5", 0, {"NBRefOscFreq int16 5"}}, CellCase{14, "6", 0, {"NBVCODev int16 6"}},
                    CellCase{15, "7", 0, {"NBRefOscDev int16 7"}}, CellCase{16, "6", 0, {"TxLevel int16 6"}},
                    CellCase{17, "12.5", 0, {"SynthStep double 12500"}}, CellCase{18, "80", 0, {"BinMain int16 80"}},
                    CellCase{19, "5", 0, {"Modulo int16 0"}}, CellCase{19, "8", 0, {"Modulo int16 1"}},
                    CellCase{20, "6.25", 0, {"RxSynthStep double 6250"}}, CellCase{21, "90", 0, {"RxBinMain int16 90"}},
                    CellCase{22, "5", 0, {"RxModulo int16 0"}}, CellCase{22, "8", 0, {"RxModulo int16 1"}}));

INSTANTIATE_TEST_SUITE_P(Codes, CellWrites,
                         testing::Values(CellCase{24, "1a", 0, {"P25TalkgroupID text 001a"}},
                                         CellCase{25, "0293", 0, {"P25TxNetworkAccessCode text 0293"}},
                                         CellCase{26, "F7E", 0, {"P25RxNetworkAccessCode text F7E"}}));

// However the number is written, the store gets a number of hertz in single precision and never the text.
TEST(ToneWrites, AreNumbersWhateverWasTyped) {
    struct Typed {
        std::string text;
        char separator;
        float hertz;
    };
    for (const auto& [text, separator, hertz] : std::vector<Typed>{{"123Hz", '.', 123.0F},
                                                                   {"123.0Hz", '.', 123.0F},
                                                                   {"  123.0 Hz  ", '.', 123.0F},
                                                                   {"+123Hz", '.', 123.0F},
                                                                   {"1.23e2Hz", '.', 123.0F},
                                                                   {"0123.000Hz", '.', 123.0F},
                                                                   {"Hz123HzHz", '.', 123.0F},
                                                                   {"103.5Hz", '.', 103.5F},
                                                                   {"103,5Hz", ',', 103.5F},
                                                                   {"0Hz", '.', 0.0F}}) {
        model::MemoryDataStore table;
        for (const auto& [column, key] :
             {std::pair<std::int16_t, ChannelKey>{3, ChannelKey::TxSub}, {4, ChannelKey::RxSub}}) {
            storeCell({.store = table, .channel = edited, .format = {.decimalSeparator = separator}}, column, text);
            EXPECT_EQ(table.channel(edited).get(key), Value{hertz}) << text;
        }
    }
}

// What the store made of the flag decides, not what was typed: here it takes no DCS code.
class WithoutDcs : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::vector<std::string> calls;

    void writeChannel(std::int16_t index, ChannelKey key, const Value& value) override {
        StoreDecorator::writeChannel(index, key, key == ChannelKey::RxCTCSSDCS ? Value{false} : value);
    }

protected:
    void onCall(const StoreCall& call) override { calls.push_back(describe(call)); }
};

TEST(ReceiveSubtoneWrites, AreFollowedByReadingTheFlagBack) {
    model::MemoryDataStore table;
    table.channel(edited).put(ChannelKey::ModeBits, 0x04);
    WithoutDcs store(table);
    storeCell({.store = store, .channel = edited, .format = {}}, 4, "754");
    EXPECT_EQ(store.calls, (std::vector<std::string>{"ChannelTable(8).RxCTCSSDCS=", "ChannelTable(8).RxDCSIndex=",
                                                     "ChannelTable(8).RxCTCSSDCS", "ChannelTable(8).ModeBits",
                                                     "ChannelTable(8).ModeBits="}));
    EXPECT_EQ(base::toBits(table.channel(edited).get(ChannelKey::ModeBits)), 0);
}

}  // namespace
}  // namespace telvar::tests
