// The servers under the system's script engines, through the registry.
#include "support/windows/finished_scripts.h"

namespace telvar::tests {
namespace {

class Scripts : public FinishedScripts {
protected:
    static void SetUpTestSuite() { registerAll({"VexloDataStore.dll", "TestHelper.dll"}); }
};

TEST_P(Scripts, RunsToItsEnd) { expectDone("windows/store/scripts/"); }

INSTANTIATE_TEST_SUITE_P(Engines, Scripts, testing::Values("data_store.vbs", "data_store.js"), scriptTestName);

}  // namespace
}  // namespace telvar::tests
