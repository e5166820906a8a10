// The control's dialogs in a host: over its window, with the look of today whatever the host's is, and no danger to a
// host that lets go of the control while one is open.
#include <array>
#include <functional>
#include <string_view>
#include <utility>

#include "container.h"
#include "world.h"

namespace telvar::tests {
namespace {

class ControlForms : public ControlWorld {
protected:
    // A dialog of this thread; null while there is none.
    [[nodiscard]] static HWND form() {
        HWND found = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &lookForForm, reinterpret_cast<LPARAM>(&found));
        return found;
    }
    // Runs once, when a dialog is visible; the call that shows it does not return before.
    void whenFormOpens(std::function<void()> then) {
        then_ = std::move(then);
        self = this;
        constexpr UINT lookAgain = 15;
        timer_ = SetTimer(nullptr, 0, lookAgain, &look);
    }

private:
    static BOOL CALLBACK lookForForm(HWND window, LPARAM found) {
        std::array<wchar_t, 64> name{};
        GetClassNameW(window, name.data(), static_cast<int>(name.size()));
        if (std::wstring_view(name.data()).starts_with(L"Telvar.Form.") && IsWindowVisible(window) != FALSE) {
            *reinterpret_cast<HWND*>(found) = window;
        }
        return TRUE;
    }
    static void CALLBACK look(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        if (form() != nullptr) {
            KillTimer(nullptr, timer);
            const auto then = std::exchange(self->then_, nullptr);
            then();
        }
    }

    static inline ControlForms* self = nullptr;
    std::function<void()> then_;
    UINT_PTR timer_ = 0;
};

TEST_F(ControlForms, BelongToTheHostsWindow) {
    setUp();
    auto site = com::make<Container>(*control);
    ASSERT_EQ(site->activate(), S_OK);
    const HWND host = GetAncestor(site->window(), GA_ROOT);
    bool opened = false;
    whenFormOpens([&] {
        opened = true;
        EXPECT_EQ(GetWindow(form(), GW_OWNER), host);
        EXPECT_FALSE(IsWindowEnabled(host));
        SendMessageW(form(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(control->DisplayFill(), S_OK);
    EXPECT_TRUE(opened);
    EXPECT_EQ(form(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host));
    site->close();
}

TEST_F(ControlForms, HaveTheLookOfTodayInAProgramWithoutAManifest) {
    setUp();
    SIZE ideal{};
    whenFormOpens([&] {
        // A question that only a button of the present kind answers.
        constexpr UINT idealSize = 0x1601;
        const HWND button = FindWindowExW(form(), nullptr, L"Button", nullptr);
        EXPECT_TRUE(SendMessageW(button, idealSize, 0, reinterpret_cast<LPARAM>(&ideal)));
        SendMessageW(form(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(control->DisplayFill(), S_OK);
    EXPECT_GT(ideal.cx, 0);
}

TEST_F(ControlForms, EndWhenTheHostLetsGoOfTheControl) {
    setUp();
    grid.reset();
    _ChannelInformation& shown = *control.get();
    whenFormOpens([&] { control.reset(); });
    EXPECT_EQ(shown.DisplayFill(), S_OK);
    EXPECT_EQ(form(), nullptr);
}

TEST_F(ControlForms, EndWhenTheHostsWindowGoes) {
    setUp();
    auto site = com::make<Container>(*control);
    ASSERT_EQ(site->activate(), S_OK);
    whenFormOpens([&] { DestroyWindow(GetAncestor(site->window(), GA_ROOT)); });
    EXPECT_EQ(control->DisplayFill(), S_OK);
    EXPECT_EQ(form(), nullptr);
    site->close();
}

}  // namespace
}  // namespace telvar::tests
