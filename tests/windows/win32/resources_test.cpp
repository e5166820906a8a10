// Nothing is left behind: system resources, window classes, counted uses.
#include "world.h"

#include "win/module.h"
#include "win32/window_kinds.h"

namespace telvar::win32 {
namespace {

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
    const long before = win::uses();
    {
        WindowsDesktop desktop;
        const long bare = win::uses();
        EXPECT_GT(bare, before);
        {
            ui::Timer timer(desktop);
            timer.setInterval(std::chrono::milliseconds(1000));
            EXPECT_EQ(win::uses(), bare + 1);
        }
        EXPECT_EQ(win::uses(), bare);
        Widgets widgets;
        {
            const PanelWindow panel(desktop, widgets.panel, top.handle(), {0, 0, 760, 460});
            EXPECT_GE(win::uses(), bare + 2);
        }
        EXPECT_EQ(win::uses(), bare);
    }
    EXPECT_EQ(win::uses(), before);
}

TEST(Resources, AWindowThatItsParentDestroyedCountsNoLonger) {
    WindowsDesktop desktop;
    Widgets widgets;
    const long bare = win::uses();
    auto top = std::make_unique<TopWindow>(800, 500);
    const PanelWindow panel(desktop, widgets.panel, top->handle(), {0, 0, 760, 460});
    top.reset();
    EXPECT_EQ(win::uses(), bare);
}

TEST(Resources, WindowClassesAreTakenBack) {
    const TopWindow top(800, 500);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    const auto registered = [&](const win::WindowKind& kind) {
        return GetClassInfoExW(win::moduleHandle(), win::classNameOf(kind).c_str(), &description) != FALSE;
    };
    {
        WindowsDesktop desktop;
        Widgets widgets;
        const PanelWindow panel(desktop, widgets.panel, top.handle(), {0, 0, 760, 460});
        EXPECT_TRUE(registered(panelKind));
        EXPECT_TRUE(registered(gridKind));
        EXPECT_TRUE(registered(win::WorkWindow::kind));
    }
    EXPECT_FALSE(registered(panelKind));
    EXPECT_FALSE(registered(gridKind));
    EXPECT_FALSE(registered(win::WorkWindow::kind));
}

}  // namespace
}  // namespace telvar::win32
