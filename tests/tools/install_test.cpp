// What ./run builds and what `cmake --install` puts where. The builds are only configured here, with empty files in
// place of the programs: it is the rules that are tested.
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "tool_run.h"

namespace telvar::tests {
namespace {

using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using Names = std::vector<std::string>;

const std::string sources = TELVAR_SOURCE_DIR "/";

// The presets whose build folders a text names.
std::set<std::string> buildFoldersIn(const std::string& text) {
    static const std::regex named("build/([a-z0-9]+)/bin|-C build/([a-z0-9]+)|--install build/([a-z0-9]+)");
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), named); at != std::sregex_iterator(); ++at) {
        for (std::size_t group = 1; group < at->size(); ++group) {
            if ((*at)[group].matched) {
                found.insert((*at)[group].str());
            }
        }
    }
    return found;
}

}  // namespace

class Installing : public testing::Test {
protected:
    void configure(const std::string& preset, const Names& products) {
        const ToolRun made =
            runTool("cd '" + sources + "' && cmake --preset " + preset + " -B '" + build + "' -DTELVAR_TESTS=OFF");
        ASSERT_EQ(made.status, 0) << made.output;
        std::filesystem::create_directories(build + "/bin");
        for (const std::string& product : products) {
            TemporaryFolder::write(build + "/bin/" + product, "");
        }
    }
    [[nodiscard]] ToolRun install() const {
        return runTool("cmake --install '" + build + "' --prefix '" + target + "'");
    }
    // Every installed file by its path below the folder.
    [[nodiscard]] Names installed() const {
        Names names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(target)) {
            if (entry.is_regular_file()) {
                names.push_back(std::filesystem::relative(entry.path(), target).generic_string());
            }
        }
        return names;
    }

    TemporaryFolder folder;
    std::string build = folder / "build";
    std::string target = folder / "target";
};

TEST_F(Installing, PutsTheCommandLineItsSamplesAndDocumentsIntoTheUsualFolders) {
    configure("release", {"telvar"});
    const ToolRun done = install();
    ASSERT_EQ(done.status, 0) << done.output;
    EXPECT_THAT(installed(), IsSupersetOf(Names{"bin/telvar", "share/telvar/samples/maritime.telvar",
                                                "share/doc/telvar/README.md", "share/doc/telvar/docs/user-guide.md"}));
}

TEST_F(Installing, PutsAllOfWindowsIntoOneFolder) {
    const Names products{"TelvarHost.exe", "Tesslin.ocx", "VexloDataStore.dll", "VexloRadioLink.dll", "telvar.exe"};
    configure("x64", products);
    const ToolRun done = install();
    ASSERT_EQ(done.status, 0) << done.output;
    EXPECT_THAT(installed(), IsSupersetOf(products));
    EXPECT_THAT(installed(), IsSupersetOf(Names{"samples/maritime.telvar", "docs/user-guide.md", "README.md"}));
}

TEST_F(Installing, RefusesTheBuildThatIsForTests) {
    configure("native", {"telvar"});
    const ToolRun done = install();
    EXPECT_NE(done.status, 0);
    EXPECT_THAT(done.output, HasSubstr("This build is for tests."));
    EXPECT_FALSE(std::filesystem::exists(target + "/bin"));
}

TEST_F(Installing, WhatRunBuildsIsOptimisedAndHasNoSanitizers) {
    const auto folders = buildFoldersIn(TemporaryFolder::read(sources + "run"));
    EXPECT_EQ(folders, (std::set<std::string>{"release", "x64"}));
    for (const std::string& preset : folders) {
        const std::string here = folder / preset;
        const ToolRun made =
            runTool("cd '" + sources + "' && cmake --preset " + preset + " -B '" + here + "' -DTELVAR_TESTS=OFF");
        ASSERT_EQ(made.status, 0) << made.output;
        const std::string rules = TemporaryFolder::read(here + "/build.ninja");
        EXPECT_THAT(rules, HasSubstr("-O2")) << preset;
        EXPECT_THAT(rules, Not(HasSubstr("-fsanitize"))) << preset;
    }
}

TEST(Readme, NamesTheBuildFoldersThatRunMakes) {
    const auto folders = buildFoldersIn(TemporaryFolder::read(sources + "README.md"));
    EXPECT_EQ(folders, (std::set<std::string>{"release", "x64"}));
}

}  // namespace telvar::tests
