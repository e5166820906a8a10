// The excerpt by which the README shows how to embed the control is run as it stands there.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "installed_servers.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "support/windows/command.h"

namespace telvar::tests {

namespace {

// The text between the mark that begins a block of that language and the one that ends it.
std::string codeBlock(const std::string& text, const std::string& language) {
    const std::string begin = "```" + language + "\n";
    const std::size_t from = text.find(begin);
    if (from == std::string::npos) {
        return {};
    }
    return text.substr(from + begin.size(), text.find("```", from + begin.size()) - from - begin.size());
}

}  // namespace

TEST(Readme, TheExcerptRunsAsItStands) {
    const InstalledServers servers;
    const TemporaryFolder folder;
    std::string script = codeBlock(TemporaryFolder::read(TELVAR_SOURCE_DIR "/README.md"), "vb");
    const std::string example = "C:\\tables\\maritime.telvar";
    const std::size_t path = script.find(example);
    ASSERT_NE(path, std::string::npos) << script;
    std::string sample = TELVAR_SOURCE_DIR "/samples/maritime.telvar";
    std::replace(sample.begin(), sample.end(), '/', '\\');
    script.replace(path, example.size(), sample);
    script += "WScript.Echo store.GridLoaded & \" \" & store.DatabaseTitle\nWScript.Quit 7\n";
    TemporaryFolder::write(folder / "readme.vbs", script);
    const CommandOutcome outcome = runCommand({"cscript", "//nologo", folder / "readme.vbs"});
    EXPECT_EQ(outcome.output, "True International maritime VHF, coast station\n");
    EXPECT_EQ(outcome.exitCode, 7U);
}

}  // namespace telvar::tests
