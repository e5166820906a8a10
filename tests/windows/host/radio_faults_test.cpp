// Each fault of the simulated radio, chosen in the menu: an exchange under it ends in success or in one sentence, and
// the next one without it goes through.
#include <algorithm>
#include <cctype>
#include <ostream>

#include "radio_commands.h"

namespace telvar::tests {

namespace {

struct FaultyExchange {
    const wchar_t* fault;
    // How the one sentence ends; empty where the link makes the fault good.
    const wchar_t* sendEnds;
    const wchar_t* loadEnds;
};

// For the messages of a test that fails.
[[maybe_unused]] void PrintTo(const FaultyExchange& exchange, std::ostream* out) {
    *out << win::narrow(exchange.fault);
}

constexpr wchar_t nothingWritten[] = L"; nothing was written to the radio.";
constexpr wchar_t notChanged[] = L"; the table here was not changed.";

// Of the faults that hit every fifth frame each costs the patience of a request; one frame shows the same.
const FaultyExchange exchanges[] = {
    {.fault = L"silence", .sendEnds = nothingWritten, .loadEnds = notChanged},
    {.fault = L"delay:5", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"noise@12", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"drop@12", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"repeat", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"cut@12", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"reorder@12", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"identity", .sendEnds = nothingWritten, .loadEnds = notChanged},
    {.fault = L"echo", .sendEnds = L"", .loadEnds = L""},
    {.fault = L"power", .sendEnds = L"; the radio keeps its former table.", .loadEnds = L""},
    {.fault = L"power@40", .sendEnds = nothingWritten, .loadEnds = notChanged},
};

}  // namespace

struct RadioFaults : RadioCommands, testing::WithParamInterface<FaultyExchange> {
    void SetUp() override { startWith("gmrs.telvar"); }
    // Runs the exchange and holds it to its end.
    void expectEnd(desk::Command identifier, const std::wstring& sentence, const std::wstring& success) {
        if (!sentence.empty()) {
            dialogs.expectBox(IDOK);
        }
        finish(identifier);
        if (sentence.empty()) {
            EXPECT_TRUE(statusText(messagePart).starts_with(success)) << win::narrow(statusText(messagePart));
        } else {
            EXPECT_TRUE(ends(lastDialog(), sentence));
        }
        expectEverythingBack();
    }
};

TEST_P(RadioFaults, ASendUnderItEndsAndTheNextIsGood) {
    setFaults(GetParam().fault);
    EXPECT_EQ(statusText(messagePart), std::wstring(L"Fault of the simulated radio: ") + GetParam().fault);
    expectEnd(desk::Command::RadioSend, GetParam().sendEnds, L"The radio holds the table;");
    EXPECT_EQ(frequency(), 462'562'500);
    EXPECT_FALSE(modified());
    setFaults(L"none");
    expectEnd(desk::Command::RadioSend, L"", L"The radio holds the table;");
}

// The table has changed since it was sent, and the changes may go.
TEST_P(RadioFaults, ALoadUnderItEndsAndTheNextIsGood) {
    send();
    change();
    const bool fails = GetParam().loadEnds[0] != L'\0';
    setFaults(GetParam().fault);
    dialogs.expectQuestion(IDNO);
    expectEnd(desk::Command::RadioLoad, GetParam().loadEnds, L"The table was loaded from the radio.");
    EXPECT_EQ(frequency(), fails ? 446'006'250 : 462'562'500);
    setFaults(L"none");
    dialogs.expectQuestion(IDNO);
    expectEnd(desk::Command::RadioLoad, L"", L"The table was loaded from the radio.");
    EXPECT_EQ(frequency(), 462'562'500);
    EXPECT_EQ(cell(1, 1), L"462.562500");
}

INSTANTIATE_TEST_SUITE_P(EachOfThem, RadioFaults, testing::ValuesIn(exchanges),
                         [](const testing::TestParamInfo<FaultyExchange>& exchange) {
                             std::string name = win::narrow(exchange.param.fault);
                             std::ranges::replace_if(name, [](char each) { return std::isalnum(each) == 0; }, '_');
                             return name;
                         });

}  // namespace telvar::tests
