// The program as a process: what it was given on its command line and what its exit status says.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "installed_servers.h"
#include "running_program.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "test_settings.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

constexpr char walker[] = "TelvarWalk.exe";
constexpr DWORD fine = 0;
constexpr DWORD walkDiffered = 1;
constexpr DWORD badArguments = 2;
constexpr DWORD cannotStart = 3;
constexpr DWORD walkTime = 120'000;  // milliseconds

class ProgramProcess : public testing::Test {
protected:
    [[nodiscard]] std::wstring sample(const std::string& name, const std::string& as) {
        const std::string path = folder / as;
        std::filesystem::copy_file(TELVAR_SOURCE_DIR "/samples/" + name, TemporaryFolder::pathOf(path));
        return win::wide(path);
    }
    [[nodiscard]] static std::vector<std::wstring> with(const std::wstring& file) {
        return {L"--settings", TestSettings::key, file};
    }

    // The next line of the walk's transcript that begins so; false when the program ends before it comes.
    [[nodiscard]] bool waitForLine(const std::string& beginning, RunningProgram& program) {
        constexpr DWORD pace = 50;  // milliseconds between two looks at the file
        while (TemporaryFolder::read(folder / "transcript.txt").find(beginning) == std::string::npos) {
            if (program.waitForEnd(pace)) {
                return false;
            }
        }
        return true;
    }

    const TestSettings settings;
    TemporaryFolder folder;
};

}  // namespace

TEST_F(ProgramProcess, OpensAFileWhoseNameHasBlanksAndForeignLetters) {
    const InstalledServers servers;
    RunningProgram program(with(sample("gmrs.telvar", "Büro \xCE\xA9 & Lager.telvar")));
    const HWND window = program.waitForWindow(L"Channel Information - GMRS with repeaters");
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.waitForEnd(), fine);
}

TEST_F(ProgramProcess, TwoOfThemRunBesideEachOther) {
    const InstalledServers servers;
    RunningProgram first(with(sample("gmrs.telvar", "a.telvar")));
    RunningProgram second(with(sample("pmr446.telvar", "b.telvar")));
    const HWND one = first.waitForWindow(L"Channel Information - GMRS with repeaters");
    ASSERT_NE(one, nullptr);
    PostMessageW(one, WM_CLOSE, 0, 0);
    EXPECT_EQ(first.waitForEnd(), fine);
    EXPECT_EQ(second.waitForEnd(0), std::nullopt);
}

TEST_F(ProgramProcess, ASecondOneOfTheSameFileIsOpenToo) {
    const InstalledServers servers;
    const std::wstring file = sample("gmrs.telvar", "a.telvar");
    RunningProgram first(with(file));
    ASSERT_NE(first.waitForWindow(L"Channel Information - GMRS with repeaters"), nullptr);
    RunningProgram second(with(file));
    EXPECT_NE(second.waitForWindow(L"Channel Information - GMRS with repeaters"), nullptr);
}

TEST_F(ProgramProcess, WithoutTheControlItSaysSoInOneSentence) {
    com::check(LoadedServer("VexloDataStore.dll").registerMachine());
    RunningProgram program(with(sample("gmrs.telvar", "a.telvar")));
    EXPECT_EQ(program.waitForMessage(),
              L"The channel table control Tesslin.ChannelInformation is not installed on this computer.");
    program.confirm();
    EXPECT_EQ(program.waitForEnd(), cannotStart);
    com::check(LoadedServer("VexloDataStore.dll").unregisterMachine());
}

TEST_F(ProgramProcess, WithoutTheStoreItSaysSoInOneSentence) {
    RunningProgram program({L"--settings", TestSettings::key});
    EXPECT_EQ(program.waitForMessage(),
              L"The channel data store VexloDataStore.DataStore is not installed on this computer.");
    program.confirm();
    EXPECT_EQ(program.waitForEnd(), cannotStart);
}

TEST_F(ProgramProcess, WithoutTheRadioLinkTablesAreEditedAllTheSame) {
    com::check(LoadedServer("VexloDataStore.dll").registerMachine());
    com::check(LoadedServer("Tesslin.ocx").registerMachine());
    RunningProgram program(with(sample("gmrs.telvar", "a.telvar")));
    EXPECT_EQ(
        program.waitForMessage(),
        L"The radio link VexloRadioLink.RadioLink is not installed on this computer, so no radio can be reached.");
    program.confirm();
    const HWND window = program.waitForWindow(L"Channel Information - GMRS with repeaters");
    EXPECT_NE(window, nullptr);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.waitForEnd(), fine);
    com::check(LoadedServer("Tesslin.ocx").unregisterMachine());
    com::check(LoadedServer("VexloDataStore.dll").unregisterMachine());
}

TEST_F(ProgramProcess, UnusableArgumentsAreRefused) {
    RunningProgram program({L"--fast"});
    EXPECT_EQ(program.waitForMessage(), L"The option --fast is not known.");
    program.confirm();
    EXPECT_EQ(program.waitForEnd(), badArguments);
}

TEST_F(ProgramProcess, WalksTheMainJobByItself) {
    const InstalledServers servers;
    RunningProgram program({win::wide(folder.name()), sample("every-reading.telvar", "table.telvar")}, walker);
    EXPECT_EQ(program.waitForEnd(walkTime), fine);
    const std::string transcript = TemporaryFolder::read(folder / "transcript.txt");
    EXPECT_TRUE(transcript.ends_with(" steps, everything as expected.\n")) << transcript;
    EXPECT_NE(transcript.find(" keys equal\n"), std::string::npos) << transcript;
    for (const char* picture : {"17-reopened.png", "20-sending.png", "21-loaded.png", "22-cut.png", "23-sent.png"}) {
        EXPECT_TRUE(std::filesystem::exists(TemporaryFolder::pathOf(folder / picture))) << picture;
    }
}

TEST_F(ProgramProcess, AWalkThatFindsADifferenceSaysSoByItsStatus) {
    const InstalledServers servers;
    const std::wstring table = sample("every-reading.telvar", "table.telvar");
    RunningProgram program({win::wide(folder.name()), table}, walker);
    ASSERT_TRUE(waitForLine("ok    the table is opened and every channel is shown: ", program));
    // The walk promises to leave the table alone that it was given.
    TemporaryFolder::write(folder / "table.telvar", "{}");
    EXPECT_EQ(program.waitForEnd(walkTime), walkDiffered);
    const std::string transcript = TemporaryFolder::read(folder / "transcript.txt");
    EXPECT_NE(transcript.find("      the file that was opened first has changed\n"), std::string::npos) << transcript;
}

TEST_F(ProgramProcess, AWalkThatCannotBeginSaysSoInItsTranscript) {
    RunningProgram program({win::wide(folder.name()), L"C:\\nowhere.telvar"}, walker);
    EXPECT_EQ(program.waitForEnd(), cannotStart);
    EXPECT_EQ(TemporaryFolder::read(folder / "transcript.txt"),
              "FAIL  The channel data store VexloDataStore.DataStore is not installed on this computer.\n");
}

TEST_F(ProgramProcess, AWalkNeedsAFolderAndATable) {
    RunningProgram program({win::wide(folder.name())}, walker);
    EXPECT_EQ(program.waitForMessage(), L"The walk needs a folder for what it writes, and a channel table to open.");
    program.confirm();
    EXPECT_EQ(program.waitForEnd(), badArguments);
}

}  // namespace telvar::tests
