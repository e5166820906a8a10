// Nothing is left behind: system resources, window classes, counted uses.
#include "world.h"

#include "win32/module.h"

namespace telvar::win32 {
namespace {

int uses = 0;
void count(int change) noexcept { uses += change; }

class Counting {
public:
    Counting() noexcept {
        uses = 0;
        setUseCounter(count);
    }
    Counting(const Counting&) = delete;
    Counting& operator=(const Counting&) = delete;
    Counting(Counting&&) = delete;
    Counting& operator=(Counting&&) = delete;
    ~Counting() { setUseCounter(nullptr); }
};

DWORD resources(DWORD kind) { return GetGuiResources(GetCurrentProcess(), kind); }

void showOnce(const TopWindow& top) {
    WindowsDesktop desktop;
    Widgets widgets;
    const PanelWindow panel(desktop, widgets.panel, top.handle(), {0, 0, 760, 460});
    widgets.grid.setHighlightShown(true);
    desktop.doEvents();
    widgets.grid.setTopRow(5);
    desktop.doEvents();
}

TEST(Resources, DoNotLeakOverTwoHundredShowings) {
    const TopWindow top(800, 500);
    for (int warmUp = 0; warmUp < 3; ++warmUp) {
        showOnce(top);
    }
    const DWORD drawing = resources(GR_GDIOBJECTS);
    const DWORD windows = resources(GR_USEROBJECTS);
    for (int round = 0; round < 200; ++round) {
        showOnce(top);
    }
    EXPECT_LE(resources(GR_GDIOBJECTS), drawing);
    EXPECT_LE(resources(GR_USEROBJECTS), windows);
}

TEST(Resources, WindowsAndTimersCountAsUses) {
    const TopWindow top(800, 500);
    const Counting counting;
    {
        WindowsDesktop desktop;
        const int bare = uses;
        EXPECT_GT(bare, 0);
        {
            ui::Timer timer(desktop);
            timer.setInterval(std::chrono::milliseconds(1000));
            EXPECT_EQ(uses, bare + 1);
        }
        EXPECT_EQ(uses, bare);
        Widgets widgets;
        {
            const PanelWindow panel(desktop, widgets.panel, top.handle(), {0, 0, 760, 460});
            EXPECT_GE(uses, bare + 2);
        }
        EXPECT_EQ(uses, bare);
    }
    EXPECT_EQ(uses, 0);
}

TEST(Resources, AWindowThatItsParentDestroyedCountsNoLonger) {
    const Counting counting;
    WindowsDesktop desktop;
    Widgets widgets;
    const int bare = uses;
    auto top = std::make_unique<TopWindow>(800, 500);
    const PanelWindow panel(desktop, widgets.panel, top->handle(), {0, 0, 760, 460});
    top.reset();
    EXPECT_EQ(uses, bare);
}

TEST(Resources, WindowClassesAreTakenBack) {
    const TopWindow top(800, 500);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    const auto registered = [&](WindowKind kind) {
        return GetClassInfoExW(moduleHandle(), windowClassName(kind).c_str(), &description) != FALSE;
    };
    {
        WindowsDesktop desktop;
        Widgets widgets;
        const PanelWindow panel(desktop, widgets.panel, top.handle(), {0, 0, 760, 460});
        EXPECT_TRUE(registered(WindowKind::Panel));
        EXPECT_TRUE(registered(WindowKind::Grid));
        EXPECT_TRUE(registered(WindowKind::Messages));
    }
    EXPECT_FALSE(registered(WindowKind::Panel));
    EXPECT_FALSE(registered(WindowKind::Grid));
    EXPECT_FALSE(registered(WindowKind::Messages));
}

}  // namespace
}  // namespace telvar::win32
