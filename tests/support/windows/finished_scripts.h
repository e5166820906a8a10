// Scripts that use a server as their authors would, and say by the line "done" and the exit code 42 that they came to
// their end without a failed expectation.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "support/windows/command.h"

namespace telvar::tests {

class FinishedScripts : public testing::TestWithParam<const char*> {
protected:
    static void registerAll(std::initializer_list<const char*> servers) {
        for (const auto* server : servers) {
            ASSERT_EQ(registerServer(server), CommandOutcome{}) << server;
        }
    }
    // The script of the test's name in a folder of tests/.
    static void expectDone(const std::string& folder) {
        const auto outcome = runScript(folder + GetParam());
        EXPECT_EQ(outcome.output, "done\n");
        EXPECT_EQ(outcome.exitCode, 42U);
    }
};

// "data_store_vbs" for "data_store.vbs".
[[nodiscard]] inline std::string scriptTestName(const testing::TestParamInfo<const char*>& script) {
    std::string name = script.param;
    std::ranges::replace(name, '.', '_');
    return name;
}

}  // namespace telvar::tests
