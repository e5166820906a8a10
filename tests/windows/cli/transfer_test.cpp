// Sending and loading between two Windows programs over TCP.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <windows.h>

#include "os/windows/wide_text.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "support/windows/command.h"

namespace telvar::tests {
namespace {

struct CloseHandleLater {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandleLater>;

struct Pipe {
    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE in = nullptr;
        HANDLE out = nullptr;
        if (CreatePipe(&in, &out, &inherited, 0) == 0) {
            throw std::runtime_error("no pipe");
        }
        read.reset(in);
        write.reset(out);
    }
    Handle read;
    Handle write;
};

// `telvar radio`, with its input held open.
class Radio {
public:
    explicit Radio(const std::string& options) {
        Pipe in;
        Pipe out;
        SetHandleInformation(in.write.get(), HANDLE_FLAG_INHERIT, 0);
        SetHandleInformation(out.read.get(), HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = in.read.get();
        startup.hStdOutput = out.write.get();
        startup.hStdError = out.write.get();
        auto line = os::wide("\"" TELVAR_BIN_DIR "/telvar.exe\" radio --listen 0 " + options);
        PROCESS_INFORMATION process{};
        if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) ==
            0) {
            throw std::runtime_error("the radio does not start");
        }
        CloseHandle(process.hThread);
        process_.reset(process.hProcess);
        in_ = std::move(in.write);
        out_ = std::move(out.read);
    }
    Radio(const Radio&) = delete;
    Radio& operator=(const Radio&) = delete;
    Radio(Radio&&) = delete;
    Radio& operator=(Radio&&) = delete;
    ~Radio() { TerminateProcess(process_.get(), 1); }

    [[nodiscard]] std::string line() const {
        std::string text;
        char c = 0;
        for (DWORD got = 0; ReadFile(out_.get(), &c, 1, &got, nullptr) != 0 && got == 1 && c != '\n';) {
            text += c;
        }
        return text;
    }
    void closeInput() { in_.reset(); }
    [[nodiscard]] DWORD wait() const {
        DWORD code = STILL_ACTIVE;
        EXPECT_EQ(WaitForSingleObject(process_.get(), 30'000), WAIT_OBJECT_0);
        GetExitCodeProcess(process_.get(), &code);
        return code;
    }

private:
    Handle process_;
    Handle in_;
    Handle out_;
};

class Transfer : public testing::Test {
protected:
    [[nodiscard]] static CommandOutcome telvar(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), TELVAR_BIN_DIR "/telvar.exe");
        return runCommand(arguments);
    }

    TemporaryFolder folder;
    std::string table = folder / "K\xc3\xbcste.telvar";
    std::string state = folder / "state.telvar-radio";
    std::string sample = TemporaryFolder::read(TELVAR_SOURCE_DIR "/samples/every-reading.telvar");
};

TEST_F(Transfer, ATableIsSentChangedAndLoadedBackByteByByte) {
    TemporaryFolder::write(table, sample);
    Radio radio("--state \"" + state + "\"");
    const auto address = radio.line();
    ASSERT_TRUE(address.starts_with("tcp:127.0.0.1:")) << address;
    const auto sent = telvar({"send", table, "--radio", address, "--backup-folder", folder / "backups"});
    EXPECT_EQ(sent.exitCode, 0U) << sent.output;
    EXPECT_TRUE(sent.output.starts_with("The radio holds the table; its former one is kept in ")) << sent.output;
    ASSERT_EQ(telvar({"set", table, "TxFreq=150000000", "--channel", "1-255"}).exitCode, 0U);
    const auto loaded = telvar({"load", table, "--radio", address});
    EXPECT_EQ(loaded.exitCode, 0U) << loaded.output;
    EXPECT_EQ(TemporaryFolder::read(table), sample);
    radio.closeInput();
    EXPECT_EQ(radio.wait(), 0U);
    EXPECT_TRUE(TemporaryFolder::read(state).starts_with("telvar-radio-table 1\n"));
}

TEST_F(Transfer, ARadioThatIsNotThereIsTold) {
    TemporaryFolder::write(table, sample);
    std::string address;
    {
        Radio radio("");
        address = radio.line();
        radio.closeInput();
        EXPECT_EQ(radio.wait(), 0U);
    }
    const auto loaded = telvar({"load", table, "--radio", address});
    EXPECT_EQ(loaded.exitCode, 2U);
    EXPECT_TRUE(loaded.output.starts_with("telvar: The radio cannot be reached at " + address + " (")) << loaded.output;
    EXPECT_EQ(TemporaryFolder::read(table), sample);
}

TEST_F(Transfer, FindingsKeepATableFromBeingSent) {
    ASSERT_EQ(telvar({"new", table}).exitCode, 0U);
    ASSERT_EQ(telvar({"set", table, "TxFreq=450000001", "ModeBits=1", "--channel", "3"}).exitCode, 0U);
    const auto sent = telvar({"send", table, "--radio", "simulated"});
    EXPECT_EQ(sent.exitCode, 1U);
    EXPECT_TRUE(sent.output.starts_with(table + ": Reference frequency divide error")) << sent.output;
}

}  // namespace
}  // namespace telvar::tests
