// The project's own tools: what they must refuse, since a check that accepts everything is not noticed.
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "tool_run.h"

namespace telvar::tests {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string tools = TELVAR_SOURCE_DIR "/tools/";

class CheckLayers : public testing::Test {
protected:
    void add(const std::string& path, const std::string& text) {
        const std::string file = folder_ / path;
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        TemporaryFolder::write(file, text);
        for (const std::string folder : {"os", "ui", "model"}) {
            std::filesystem::create_directories(folder_ / ("src/" + folder));
            TemporaryFolder::write(folder_ / ("src/" + folder + "/README.md"), "x");
        }
    }
    ToolRun check() {
        std::filesystem::create_directories(folder_ / "tools");
        std::filesystem::copy_file(tools + "layers.txt", folder_ / "tools/layers.txt");
        return runTool(tools + "check_layers " + folder_.name());
    }

private:
    TemporaryFolder folder_;
};

TEST_F(CheckLayers, AcceptsWhatARowNames) {
    add("src/ui/grid.h", "#include \"base/value.h\"\n#include \"ui/widget.h\"\n#include <vector>\n");
    add("src/os/windows/clock.cpp", "#include <windows.h>\nwchar_t name[3];\n");
    add("src/os/posix/clock.cpp", "#include <unistd.h>\n");
    const ToolRun result = check();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
}

TEST_F(CheckLayers, RefusesAFolderThatIsNotNamed) {
    add("src/model/store.cpp", "// head\n#include \"ui/grid.h\"\n");
    const ToolRun result = check();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "src/model/store.cpp:2: model may not include ui (\"ui/grid.h\")\n");
}

TEST_F(CheckLayers, RefusesWindowsInPortableCode) {
    add("src/ui/grid.cpp",
        "#include <windows.h>\n// wchar_t in a comment\nauto text = L\"x\";\n#ifdef _WIN32\n#endif\n");
    const ToolRun result = check();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("grid.cpp:1: <windows.h> belongs to Windows"));
    EXPECT_THAT(result.output, HasSubstr("grid.cpp:3: wide characters"));
    EXPECT_THAT(result.output, HasSubstr("grid.cpp:4: a difference between platforms"));
    EXPECT_EQ(result.output.find("grid.cpp:2"), std::string::npos);
}

TEST_F(CheckLayers, RefusesAnIncludeThatIsNotWrittenFromSrc) {
    add("src/ui/grid.cpp", "#include \"grid.h\"\n");
    EXPECT_THAT(check().output, HasSubstr("\"grid.h\" is not written from src"));
}

TEST_F(CheckLayers, OnlyTheHalfForWindowsIncludesWhatItsRowNames) {
    add("src/os/windows/clock.cpp", "#include \"base/value.h\"\n#include \"os/clock.h\"\n#include \"win/text.h\"\n");
    EXPECT_EQ(check().output, "");
}

TEST_F(CheckLayers, TheOtherHalvesDoNot) {
    add("src/os/clock.cpp", "#include \"win/text.h\"\n");
    add("src/os/posix/clock.cpp", "#include \"win/text.h\"\n");
    add("src/os/files.cpp", "#include \"os/windows/clock.h\"\n");
    add("src/os/windows/clock.cpp", "#include \"ui/grid.h\"\n");
    EXPECT_EQ(check().output, "src/os/clock.cpp:1: os may not include win (\"win/text.h\")\n"
                              "src/os/files.cpp:1: os may not include os/windows (\"os/windows/clock.h\")\n"
                              "src/os/posix/clock.cpp:1: os may not include win (\"win/text.h\")\n"
                              "src/os/windows/clock.cpp:1: os/windows may not include ui (\"ui/grid.h\")\n");
}

// Test programs are scripts here; each is what run_tests may meet.
class RunTests : public testing::Test {
protected:
    void program(const std::string& script) {
        TemporaryFolder::write(folder_ / "test_x", "#!/usr/bin/env bash\n" + script);
        std::filesystem::permissions(folder_ / "test_x", std::filesystem::perms::owner_all);
        TemporaryFolder::write(folder_ / "tests.txt", "test_x " + (folder_ / "test_x") + "\n");
    }
    ToolRun runTests(const std::string& options = {}) {
        return runTool(tools + "run_tests " + folder_.name() + options);
    }
    // An emulator that gives up silently so many times before it starts the program.
    ToolRun runEmulated(int failures) {
        const std::string path = folder_ / "emulator";
        TemporaryFolder::write(path, "#!/usr/bin/env bash\necho >>'" + path + ".starts'\n" + "[ $(wc -l <'" + path +
                                         ".starts') -gt " + std::to_string(failures) +
                                         " ] || exit 1\nexec \"$1\" \"${2/Z:/}\"\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return runTests(" --emulator " + path);
    }
    std::string counts() { return TemporaryFolder::read(folder_ / "results/counts.txt"); }

    static constexpr auto report = "file=${1#--gtest_output=xml:}\ncat >\"$file\" <<'E'\n<testsuites><testsuite>"
                                   "<testcase classname='A' name='Good' status='run' result='completed'/>"
                                   "<testcase classname='A' name='Off' status='notrun' result='suppressed'/>";

private:
    TemporaryFolder folder_;
};

TEST_F(RunTests, CountsWhatTheReportSays) {
    program(std::string(report) + "</testsuite></testsuites>\nE\n");
    EXPECT_EQ(runTests().status, 0);
    EXPECT_EQ(counts(), "1 0 1\n");
}

TEST_F(RunTests, AnEmulatorThatDoesNotStartTheProgramIsStartedOnceMoreAndSaidSo) {
    program(std::string(report) + "</testsuite></testsuites>\nE\necho ran\n");
    const ToolRun once = runEmulated(1);
    EXPECT_EQ(once.status, 0);
    EXPECT_THAT(once.output, HasSubstr("test_x: the emulator did not start it (ended with status 1); once more"));
    EXPECT_EQ(counts(), "1 0 1\n");
}

TEST_F(RunTests, AnEmulatorThatNeverStartsTheProgramFailsTheRun) {
    program(std::string(report) + "</testsuite></testsuites>\nE\necho ran\n");
    EXPECT_EQ(runEmulated(2).status, 1);
    EXPECT_EQ(counts(), "0 1 0\n");
}

TEST_F(RunTests, AProgramThatBeganIsNotStartedAgain) {
    program("echo began; exit 3\n");
    const ToolRun result = runEmulated(0);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, Not(HasSubstr("once more")));
}

TEST_F(RunTests, AFailedTestFailsTheRun) {
    program(std::string(report) + "<testcase classname='A' name='Bad' status='run' result='completed'>"
                                  "<failure message='no'/></testcase></testsuite></testsuites>\nE\nexit 1\n");
    const ToolRun result = runTests();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("FAILED A.Bad"));
    EXPECT_EQ(counts(), "1 1 1\n");
}

TEST_F(RunTests, ASilentProgramHasNotRun) {
    program("exit 0\n");
    EXPECT_EQ(runTests().status, 1);
    EXPECT_EQ(counts(), "0 1 0\n");
}

TEST_F(RunTests, AProgramThatFailsAfterItsTestsFails) {
    program(std::string(report) + "</testsuite></testsuites>\nE\necho leaked; exit 23\n");
    const ToolRun result = runTests();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("ended with status 23\n      leaked"));
    EXPECT_EQ(counts(), "1 1 1\n");
}

TEST_F(RunTests, ACrashIsCountedOnceBesideTheTestsBeforeIt) {
    program("printf '[ RUN      ] A.One\\n[       OK ] A.One (0 ms)\\n[ RUN      ] A.Two\\n'; exit 5\n");
    const ToolRun result = runTests();
    EXPECT_THAT(result.output, HasSubstr("ended with status 5 in A.Two"));
    EXPECT_EQ(counts(), "1 1 0\n");
}

}  // namespace
}  // namespace telvar::tests
