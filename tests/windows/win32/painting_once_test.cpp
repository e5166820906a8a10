// How often the windows of a form are painted when it opens and when it changes: once, and at once, so that nobody sees
// fields without texts or places that are not painted yet.
#include <map>

#include "edit_form_world.h"
#include "win/gdi.h"

namespace telvar::win32 {
namespace {

// Counts the paintings of every window of the thread while it lives. There may be one at a time.
class PaintCount {
public:
    PaintCount()
        : sent_(SetWindowsHookExW(WH_CALLWNDPROC, sent, nullptr, GetCurrentThreadId())),
          taken_(SetWindowsHookExW(WH_GETMESSAGE, taken, nullptr, GetCurrentThreadId())) {
        counts().clear();
    }
    PaintCount(const PaintCount&) = delete;
    PaintCount& operator=(const PaintCount&) = delete;
    PaintCount(PaintCount&&) = delete;
    PaintCount& operator=(PaintCount&&) = delete;
    ~PaintCount() {
        UnhookWindowsHookEx(sent_);
        UnhookWindowsHookEx(taken_);
    }
    [[nodiscard]] static int of(HWND window) { return counts()[window]; }

private:
    static std::map<HWND, int>& counts() {
        static std::map<HWND, int> all;
        return all;
    }
    static LRESULT CALLBACK sent(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && message.message == WM_PAINT) {
            ++counts()[message.hwnd];
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static LRESULT CALLBACK taken(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<const MSG*>(lParam);
        if (code == HC_ACTION && wParam == PM_REMOVE && message.message == WM_PAINT) {
            ++counts()[message.hwnd];
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK sent_;
    HHOOK taken_;
};

class PaintingOnce : public EditFormWorld {
protected:
    [[nodiscard]] std::vector<const ui::Widget*> shown() const {
        std::vector<const ui::Widget*> all;
        std::ranges::copy_if(form->children(), std::back_inserter(all),
                             [](const ui::Widget* child) { return child->isShown(); });
        return all;
    }
    // Names of those of which some part waits to be painted.
    [[nodiscard]] std::vector<std::string> waiting() const {
        std::vector<std::string> names;
        for (const ui::Widget* const child : shown()) {
            if (GetUpdateRect(windowOf(*child), nullptr, FALSE) != FALSE) {
                names.push_back(child->name());
            }
        }
        if (GetUpdateRect(window(), nullptr, FALSE) != FALSE) {
            names.emplace_back("the form");
        }
        return names;
    }
    void expectPaintedOnce(const char* when) {
        for (const ui::Widget* const child : shown()) {
            EXPECT_EQ(PaintCount::of(windowOf(*child)), 1) << child->name() << " when " << when;
        }
        EXPECT_EQ(PaintCount::of(window()), 1) << "the form when " << when;
    }
    // As it looks now, against a painting of everything.
    void expectAsPaintedAnew() {
        const Picture before(window());
        RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        const Picture after(window());
        EXPECT_EQ(before.differences(after), 0) << before.differing(after).left << ", " << before.differing(after).top;
    }
};

TEST_F(PaintingOnce, AFormThatOpensIsWholeBeforeAnythingElseHappens) {
    form->UpdateAccess(5);
    form->refresh();
    const PaintCount count;
    desktop.showModeless(*form);
    EXPECT_EQ(waiting(), std::vector<std::string>());
    expectPaintedOnce("it opens");
    expectAsPaintedAnew();
}

TEST_F(PaintingOnce, TheBandChangesAtOnce) {
    open();
    focus(form->optNarrowBand);
    for (ui::OptionButton* const band : {&form->optNarrowBand, &form->optWideBand}) {
        const PaintCount count;
        band->setValue(true);
        EXPECT_EQ(waiting(), std::vector<std::string>()) << band->name();
        for (const ui::Widget* const child : shown()) {
            EXPECT_LE(PaintCount::of(windowOf(*child)), 2) << child->name();
        }
        EXPECT_LE(PaintCount::of(window()), 1);
        expectAsPaintedAnew();
    }
}

TEST_F(PaintingOnce, AnotherLevelOfAccessChangesTheFormAtOnce) {
    open();
    for (const std::int16_t level : {std::int16_t{0}, std::int16_t{5}}) {
        const PaintCount count;
        form->UpdateAccess(level);
        EXPECT_EQ(waiting(), std::vector<std::string>()) << level;
        EXPECT_LE(PaintCount::of(window()), 1) << level;
        expectAsPaintedAnew();
    }
}

}  // namespace
}  // namespace telvar::win32
