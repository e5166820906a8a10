// Serial ports of Windows, used by the Windows program under Wine: its port is one end of a pair of terminals, and the
// simulated radio in this test has the other one. Needs the Windows build beside this one.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "radio/radio_server.h"
#include "support/build_paths.h"
#include "support/posix/pseudo_terminal.h"
#include "support/temporary_folder.h"

namespace telvar::tests {
namespace {

const std::string sources = TELVAR_SOURCE_DIR;
const std::string program = sources + "/build/x64/bin/telvar.exe";

struct WindowsSerialPort : testing::Test {
    void SetUp() override {
        ASSERT_TRUE(std::filesystem::exists(program)) << "build the preset x64 first";
        ASSERT_EQ(run("tools/wine_prefix --fresh \"$WINEPREFIX\""), 0) << output;
        // Wine looks its ports up when it starts.
        ASSERT_EQ(run("$wine reg add 'HKLM\\Software\\Wine\\Ports' /v COM1 /t REG_SZ /d " + terminal.name() +
                      " /f && wineserver -k && wineserver -w"),
                  0)
            << output;
        stream = terminal.radioSide(ending);
        server = std::thread([this] { radio::serve(line, *stream, ending); });
    }
    void TearDown() override {
        ending.raise();
        if (server.joinable()) {
            server.join();
            run("wineserver -k");
        }
    }
    // By the shell, in Wine's environment and without a display; what it says goes into `output`.
    int run(const std::string& command) {
        const std::string whole = "cd " + sources + " && unset DISPLAY && . tools/wine_env && export WINEPREFIX='" +
                                  folder.name() + "/prefix' && { " + command + "; } 2>&1";
        output.clear();
        FILE* pipe = popen(whole.c_str(), "r");
        std::array<char, 4096> buffer{};
        while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            output.append(buffer.data(), size);
        }
        return WEXITSTATUS(pclose(pipe));
    }
    int telvar(const std::string& arguments) { return run("$wine " + program + " " + arguments); }

    TemporaryFolder folder;
    PseudoTerminal terminal;
    radio::SimulatedRadio theRadio;
    radio::SimulatedLine line{theRadio, {}};
    os::Interrupt ending;
    std::unique_ptr<os::ByteStream> stream;
    std::thread server;
    std::string output;
};

TEST_F(WindowsSerialPort, ATableTravelsOverItAndBack) {
    EXPECT_EQ(telvar("send samples/gmrs.telvar --radio serial:COM1,115200 --backup-folder '" + folder.name() + "'"), 0)
        << output;
    EXPECT_NE(output.find("The radio holds the table; "), std::string::npos) << output;
    EXPECT_NE(theRadio.table(), radio::emptyImage());
    EXPECT_EQ(telvar("load '" + folder.name() + "/loaded.telvar' --radio serial:COM1,115200"), 0) << output;
    EXPECT_NE(TemporaryFolder::read(folder / "loaded.telvar").find("462562500"), std::string::npos);
}

}  // namespace
}  // namespace telvar::tests
