// The built program itself: pipes, exit statuses, and several of them at once.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <thread>

#include "store/table_file.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"

namespace telvar::cli {
namespace {

using tests::TemporaryFolder;

struct Ended {
    int status;
    std::string out;
};

// Runs a shell command in which $T is the program.
[[nodiscard]] Ended shell(const std::string& command) {
    std::FILE* pipe = ::popen(("T='" TELVAR_BIN_DIR "/telvar'; " + command).c_str(), "r");
    std::string out;
    std::array<char, 4096> part{};
    for (std::size_t got = 0; (got = std::fread(part.data(), 1, part.size(), pipe)) > 0;) {
        out.append(part.data(), got);
    }
    const int ended = ::pclose(pipe);
    return {.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, .out = out};
}

class Program : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string path = folder / "Küste 1.telvar";
    std::string quotedPath = "'" + path + "'";
};

TEST_F(Program, CreatesAndShowsATable) {
    const auto ended = shell("\"$T\" new " + quotedPath + " && \"$T\" show --channels 255 " + quotedPath);
    EXPECT_EQ(ended.status, 0);
    EXPECT_TRUE(ended.out.ends_with("\n255\tX\tX\tX\tX\tX\tX\tX\tX\n")) << ended.out;
}

TEST_F(Program, EndsQuietlyWhenItsReaderIsGone) {
    const auto ended = shell("\"$T\" new - 2>&1 | true; exec 2>&1; \"$T\" show --all-columns '" TELVAR_SOURCE_DIR
                             "/samples/every-reading.telvar' | head -n 1 | cut -c 2-6");
    EXPECT_EQ(ended.out, "Tx Fr\n");
}

TEST_F(Program, FailsOnAFullDevice) {
    const auto ended = shell("\"$T\" new - 2>&1 >/dev/full");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.out, "telvar: standard output cannot be written to.\n");
}

TEST_F(Program, EditsAsTheGridDoes) {
    const auto ended =
        shell("\"$T\" new " + quotedPath + " && printf '145.5\\t146\\r\\n145.6' | \"$T\" paste --row 2 --column 1 " +
              quotedPath + " && \"$T\" fill --from 4 --to 5 --start 450 --step -25 --rx " + quotedPath +
              " && \"$T\" convert " + quotedPath +
              " - --to csv | \"$T\" convert --from csv - - | \"$T\" show --channels 2-5 - | cut -f 1-3 | tail -n 4");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "2\t145.500000\t146.000000\n3\t145.600000\tX\n4\tX\t450.000000\n5\tX\t449.975000\n");
}

TEST_F(Program, TellsARefusedEditByItsStatus) {
    ASSERT_EQ(shell("\"$T\" new " + quotedPath).status, 0);
    const auto before = TemporaryFolder::read(path);
    const auto pasted =
        shell("printf 145.5,abc | tr , '\\t' | \"$T\" paste --row 2 --column 1 " + quotedPath + " 2>&1");
    EXPECT_EQ(pasted.status, 1);
    EXPECT_EQ(pasted.out, path + ": channel 2, Rx Frequency (MHz): Error during pasting data. Error in validating "
                                 "channel frequency (Type mismatch) RX Freq. Unable to continue.\n");
    const auto filled = shell("\"$T\" fill --from 1 --to 2 --start 19 " + quotedPath + " 2>&1");
    EXPECT_EQ(filled.status, 1);
    EXPECT_EQ(filled.out, path + ": Transmit frequency must be between 20 and 1000 MHz or 0 to disable.\n");
    EXPECT_EQ(TemporaryFolder::read(path), before);
    EXPECT_EQ(shell("\"$T\" validate Scan maybe").status, 1);
    EXPECT_EQ(shell("\"$T\" validate Scan yes").status, 0);
}

TEST_F(Program, LosesNoChangeWhenSeveralSetAtOnce) {
    ASSERT_EQ(shell("\"$T\" new " + quotedPath).status, 0);
    std::vector<std::jthread> threads;
    for (int at = 0; at < 4; ++at) {
        threads.emplace_back([this, at] {
            const auto channels = " 1 2 3 4 5 6 7 8";
            const auto ended =
                shell("for n in" + std::string(channels) + "; do \"$T\" set " + quotedPath +
                      " TxFreq=145000000 --channel $((" + std::to_string(at * 8) + " + n)) || exit 1; done");
            EXPECT_EQ(ended.status, 0);
        });
    }
    threads.clear();
    const auto contents = store::loadTable(path).value();
    for (std::size_t index = 0; index < 32; ++index) {
        EXPECT_EQ(contents.channels[index][0], base::Value(145'000'000)) << index + 1;
    }
}

}  // namespace
}  // namespace telvar::cli
