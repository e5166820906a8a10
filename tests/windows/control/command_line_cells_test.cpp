// The command line shows exactly the cells that the control shows.
#include <gtest/gtest.h>

#include "support/build_paths.h"
#include "support/windows/command.h"
#include "world.h"

namespace telvar::tests {
namespace {

class CommandLineCells : public ControlWorld, public testing::WithParamInterface<std::string> {};

INSTANTIATE_TEST_SUITE_P(Samples, CommandLineCells,
                         testing::Values("maritime", "pmr446", "gmrs", "fixed-bandwidth", "every-reading"));

TEST_P(CommandLineCells, AreTheControls) {
    const auto path = std::string(TELVAR_SOURCE_DIR "/samples/") + GetParam() + ".telvar";
    call(*store, "Open", {Variant(path)});
    setUp();
    call(*control, "UpdateControlsFromMemory");
    std::string cells;
    for (LONG row = 0; row <= 255; ++row) {
        for (LONG column = 0; column <= 26; ++column) {
            cells += (column > 0 ? "\t" : "") + cell(row, column);
        }
        cells += '\n';
    }
    // Both write numbers as the user's locale does.
    const auto shown = runCommand({TELVAR_BIN_DIR "/telvar.exe", "show", path, "--all-columns", "--locale", "user"});
    EXPECT_EQ(shown.exitCode, 0U);
    EXPECT_EQ(shown.output, cells);
}

}  // namespace
}  // namespace telvar::tests
