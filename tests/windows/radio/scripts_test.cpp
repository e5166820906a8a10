// The servers under the system's script engine, through the registry.
#include "support/windows/finished_scripts.h"

namespace telvar::tests {
namespace {

class Scripts : public FinishedScripts {
protected:
    static void SetUpTestSuite() { registerAll({"VexloDataStore.dll", "VexloRadioLink.dll", "TestHelper.dll"}); }
};

TEST_P(Scripts, RunsToItsEnd) { expectDone("windows/radio/scripts/"); }

INSTANTIATE_TEST_SUITE_P(Engines, Scripts, testing::Values("radio_link.vbs", "own_store.vbs"), scriptTestName);

}  // namespace
}  // namespace telvar::tests
