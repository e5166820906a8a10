// The servers under the system's script engine, through the registry.
#include <gtest/gtest.h>

#include <string>

#include "support/windows/command.h"

namespace telvar::tests {
namespace {

class Scripts : public testing::TestWithParam<const char*> {
protected:
    static void SetUpTestSuite() {
        for (const auto* server : {"VexloDataStore.dll", "VexloRadioLink.dll", "TestHelper.dll"}) {
            ASSERT_EQ(registerServer(server), CommandOutcome{}) << server;
        }
    }
};

TEST_P(Scripts, RunsToItsEnd) {
    const auto outcome = runScript(std::string("windows/radio/scripts/") + GetParam());
    EXPECT_EQ(outcome.output, "done\n");
    EXPECT_EQ(outcome.exitCode, 42U);
}

INSTANTIATE_TEST_SUITE_P(Engines, Scripts, testing::Values("radio_link.vbs", "own_store.vbs"), [](const auto& script) {
    std::string name = script.param;
    for (char& character : name) {
        character = character == '.' ? '_' : character;
    }
    return name;
});

}  // namespace
}  // namespace telvar::tests
