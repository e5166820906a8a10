// Which activity may begin inside which, restated by hand, and what is told where one may not.
#include "session/activity.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

namespace telvar::tests {
namespace {

using session::Activities;
using session::Activity;
using session::Refusal;
using session::UnderWay;

constexpr std::array inside{Activity::Editing, Activity::FillDialog, Activity::Selecting,     Activity::Sending,
                            Activity::Loading, Activity::Storing,    Activity::AskingToLeave, Activity::Updating};

// By columns as above: "." begins, "-" is ignored, "E" is told that the table is edited, "W" that a transfer waits, "R"
// that the table is replaced.
const std::map<Activity, std::string> table{
    {Activity::Editing, "-...R..."},    {Activity::FillDialog, "--..R..."},    {Activity::Selecting, "..-....."},
    {Activity::Sending, "...WW..."},    {Activity::Loading, "E..WWE.."},       {Activity::Storing, "-...R-.."},
    {Activity::Updating, ".......-"},   {Activity::AskingToLeave, ".....--."}, {Activity::Reloading, ".....-.."},
    {Activity::Cancelling, ".....-.."},
};

[[nodiscard]] char letter(Refusal refusal) {
    switch (refusal) {
    case Refusal::None:
        return '.';
    case Refusal::Ignored:
        return '-';
    case Refusal::TableIsEdited:
        return 'E';
    case Refusal::TransferWaits:
        return 'W';
    case Refusal::TableIsReplaced:
        return 'R';
    }
    return '?';
}

TEST(Activities, BeginInsideOthersAsTheTableSays) {
    ASSERT_EQ(table.size(), session::activityCount);
    for (const auto& [wanted, row] : table) {
        for (std::size_t at = 0; at < inside.size(); ++at) {
            Activities activities;
            const UnderWay under(activities, inside[at]);
            EXPECT_EQ(letter(activities.refusalOf(wanted)), row[at])
                << static_cast<int>(wanted) << " inside " << static_cast<int>(inside[at]);
            EXPECT_EQ(activities.mayBegin(wanted), row[at] == '.');
        }
    }
}

TEST(Activities, AllBeginWhileNothingIsUnderWay) {
    const Activities idle;
    for (const auto& [wanted, row] : table) {
        EXPECT_TRUE(idle.mayBegin(wanted));
    }
}

TEST(Activities, AreUnderWayForAsLongAsTheirScopeAndOfSeveralTheFirstRefusalCounts) {
    Activities activities;
    {
        const UnderWay loading(activities, Activity::Loading);
        EXPECT_EQ(activities.refusalOf(Activity::Editing), Refusal::TableIsReplaced);
        {
            const UnderWay storing(activities, Activity::Storing);
            EXPECT_EQ(activities.refusalOf(Activity::Loading), Refusal::TableIsEdited);
            EXPECT_EQ(activities.refusalOf(Activity::Storing), Refusal::Ignored);
        }
        EXPECT_FALSE(activities.underWay(Activity::Storing));
        EXPECT_EQ(activities.refusalOf(Activity::Loading), Refusal::TransferWaits);
        EXPECT_TRUE(activities.underWay(Activity::Loading));
    }
    EXPECT_FALSE(activities.underWay(Activity::Loading));
}

TEST(Activities, AreRefusedInOneSentenceOrInSilence) {
    EXPECT_EQ(session::sentenceOf(Refusal::None), nullptr);
    EXPECT_EQ(session::sentenceOf(Refusal::Ignored), nullptr);
    EXPECT_STREQ(session::sentenceOf(Refusal::TableIsEdited),
                 "The channel table is being edited. Please end that before it is loaded from the radio.");
    EXPECT_STREQ(session::sentenceOf(Refusal::TransferWaits),
                 "Another transfer is waiting for the Telvar. Please wait until it has ended.");
    EXPECT_STREQ(session::sentenceOf(Refusal::TableIsReplaced),
                 "The channel table is being loaded from the radio. Please wait until it has ended.");
}

}  // namespace
}  // namespace telvar::tests
