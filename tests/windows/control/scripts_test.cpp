// Scripts use the control as their authors would. A script host prints nothing and ends with 0 when a script breaks
// off, so each script says by its last line and its exit code that it came to its end.
#include <memory>

#include "registered_servers.h"
#include "support/windows/command.h"

namespace telvar::tests {
namespace {

constexpr std::uint32_t cameToItsEnd = 40;  // plus the number of failed expectations

struct Scripts : testing::Test {
    static void SetUpTestSuite() { servers = std::make_unique<RegisteredServers>(); }
    static void TearDownTestSuite() { servers.reset(); }

    static void expectSuccess(const std::string& script) {
        const CommandOutcome outcome = runScript("windows/scripts/" + script);
        EXPECT_FALSE(outcome.timedOut);
        EXPECT_EQ(outcome.output, "end of " + script + ", failures: 0\n");
        EXPECT_EQ(outcome.exitCode, cameToItsEnd);
    }

    static inline std::unique_ptr<RegisteredServers> servers;
};

TEST_F(Scripts, WalkTheMainJob) { expectSuccess("walk.vbs"); }
TEST_F(Scripts, CallEveryMember) { expectSuccess("members.vbs"); }
TEST_F(Scripts, PassArgumentsByReferenceInEveryForm) { expectSuccess("arguments.vbs"); }
TEST_F(Scripts, BringStoresAndLinksOfTheirOwn) { expectSuccess("own_store.vbs"); }
TEST_F(Scripts, HearEveryEvent) { expectSuccess("events.vbs"); }
TEST_F(Scripts, InTheOtherLanguageToo) { expectSuccess("walk.js"); }

TEST_F(Scripts, AScriptThatBreaksOffIsNoticed) {
    const CommandOutcome outcome = runScript("windows/scripts/breaks_off.vbs");
    EXPECT_NE(outcome.exitCode, cameToItsEnd);
}

}  // namespace
}  // namespace telvar::tests
