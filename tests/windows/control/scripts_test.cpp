// Scripts use the control as their authors would. A script host prints nothing and ends with 0 when a script breaks
// off, so each script says by its last line and its exit code that it came to its end.
#include <windows.h>

#include <array>
#include <memory>
#include <string_view>
#include <thread>

#include "registered_servers.h"
#include "support/windows/command.h"

namespace telvar::tests {
namespace {

constexpr std::uint32_t cameToItsEnd = 40;  // plus the number of failed expectations

// Closes every form that a script's process opens, answers No to its questions and OK to what it says.
class Bystander {
public:
    Bystander() : ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)), watcher_([this] { watch(); }) {}
    Bystander(const Bystander&) = delete;
    Bystander& operator=(const Bystander&) = delete;
    Bystander(Bystander&&) = delete;
    Bystander& operator=(Bystander&&) = delete;
    ~Bystander() {
        SetEvent(ended_);
        watcher_.join();
        CloseHandle(ended_);
    }

private:
    void watch() const {
        constexpr DWORD lookAgain = 20;
        while (WaitForSingleObject(ended_, lookAgain) == WAIT_TIMEOUT) {
            EnumWindows(&dismiss, 0);
        }
    }
    static BOOL CALLBACK dismiss(HWND window, LPARAM /*unused*/) {
        std::array<wchar_t, 64> buffer{};
        GetClassNameW(window, buffer.data(), static_cast<int>(buffer.size()));
        const std::wstring_view name(buffer.data());
        if (IsWindowVisible(window) == FALSE) {
            return TRUE;
        }
        if (name.starts_with(L"Telvar.Form.")) {
            PostMessageW(window, WM_CLOSE, 0, 0);
        } else if (name == L"#32770") {
            PostMessageW(window, WM_COMMAND, GetDlgItem(window, IDNO) != nullptr ? IDNO : IDOK, 0);
        }
        return TRUE;
    }

    HANDLE ended_;
    std::thread watcher_;
};

struct Scripts : testing::Test {
    static void SetUpTestSuite() { servers = std::make_unique<RegisteredServers>(); }
    static void TearDownTestSuite() { servers.reset(); }

    static void expectSuccess(const std::string& script) {
        const CommandOutcome outcome = runScript("windows/scripts/" + script);
        EXPECT_FALSE(outcome.timedOut);
        EXPECT_EQ(outcome.output, "end of " + script + ", failures: 0\n");
        EXPECT_EQ(outcome.exitCode, cameToItsEnd);
    }

    static inline std::unique_ptr<RegisteredServers> servers;
};

TEST_F(Scripts, WalkTheMainJob) { expectSuccess("walk.vbs"); }
TEST_F(Scripts, CallEveryMember) {
    const Bystander bystander;
    expectSuccess("members.vbs");
}
TEST_F(Scripts, PassArgumentsByReferenceInEveryForm) { expectSuccess("arguments.vbs"); }
TEST_F(Scripts, BringStoresAndLinksOfTheirOwn) { expectSuccess("own_store.vbs"); }
TEST_F(Scripts, HearEveryEvent) { expectSuccess("events.vbs"); }
TEST_F(Scripts, SendAndLoadTheTable) {
    // The findings are told in message boxes.
    const Bystander bystander;
    expectSuccess("transfer.vbs");
}
TEST_F(Scripts, InTheOtherLanguageToo) { expectSuccess("walk.js"); }

TEST_F(Scripts, AScriptThatBreaksOffIsNoticed) {
    const CommandOutcome outcome = runScript("windows/scripts/breaks_off.vbs");
    EXPECT_NE(outcome.exitCode, cameToItsEnd);
}

}  // namespace
}  // namespace telvar::tests
