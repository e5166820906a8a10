// The arrangement of forms: what each kind of part does with its room, and, over random layouts, that nothing overlaps
// and nothing is clipped.
#include "ui/layout.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "support/test_desktop.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace telvar::ui {

inline void PrintTo(const Rect& rect, std::ostream* stream) {
    *stream << rect.left << ',' << rect.top << " to " << rect.right << ',' << rect.bottom;
}
inline void PrintTo(const Size& size, std::ostream* stream) { *stream << size.width << " by " << size.height; }

}  // namespace telvar::ui

namespace telvar::tests {
namespace {

using ui::Distance;
using ui::Grow;
using ui::Layout;
using ui::LayoutParts;
using ui::Rect;
using ui::Size;

// Of a size that no font changes.
class Block : public ui::Widget {
public:
    Block(int width, int height) : Widget("block"), size_{width, height} {}
    [[nodiscard]] Size wantedSize(const ui::Metrics& /*metrics*/) const override { return size_; }

private:
    Size size_;
};

[[nodiscard]] bool inside(const Rect& inner, const Rect& outer) { return inner.intersected(outer) == inner; }
[[nodiscard]] bool disjoint(const Rect& one, const Rect& other) { return one.intersected(other).empty(); }

class Layouts : public testing::TestWithParam<int> {
protected:
    [[nodiscard]] Size wanted(const Layout& layout) const { return layout->wanted(metrics); }
    void arrange(const Layout& layout, const Rect& at) const { layout->arrange(at, metrics); }
    // Exactly as it wants; answers the size.
    Size arrangeWanted(const Layout& layout) const {
        const Size size = wanted(layout);
        arrange(layout, {0, 0, size.width, size.height});
        return size;
    }

    TestDesktop desktop;
    ui::Metrics metrics{desktop, GetParam()};
    const int small = metrics.smallGap();
    const int gap = metrics.gap();
    Block a{100, 20};
    Block b{60, 40};
    Block c{80, 30};
};

INSTANTIATE_TEST_SUITE_P(Dpi, Layouts, testing::Values(96, 144, 192));

// -- rows and columns ------------------------------------------------------------------------------------------------

TEST_P(Layouts, ARowStandsLeftToRightInTheMiddleOfItsHeight) {
    const auto layout = ui::row({ui::widget(a), ui::widget(b)});
    EXPECT_EQ(wanted(layout), (Size{160 + small, 40}));
    arrange(layout, {10, 10, 1000, 50});
    EXPECT_EQ(a.bounds(), (Rect{10, 20, 110, 40}));
    EXPECT_EQ(b.bounds(), (Rect{110 + small, 10, 170 + small, 50}));
}

TEST_P(Layouts, AColumnStandsTopToBottomAtTheLeft) {
    const auto layout = ui::column({ui::widget(a), ui::widget(b)}, Distance::Usual);
    EXPECT_EQ(wanted(layout), (Size{100, 60 + gap}));
    arrange(layout, {10, 10, 1000, 1000});
    EXPECT_EQ(a.bounds(), (Rect{10, 10, 110, 30}));
    EXPECT_EQ(b.bounds(), (Rect{10, 30 + gap, 70, 70 + gap}));
}

TEST_P(Layouts, DistancesAreNoneSmallAndUsual) {
    for (const auto& [distance, pixels] :
         std::vector<std::pair<Distance, int>>{{Distance::None, 0}, {Distance::Small, small}, {Distance::Usual, gap}}) {
        EXPECT_EQ(wanted(ui::row({ui::widget(a), ui::widget(b)}, distance)).width, 160 + pixels);
        EXPECT_EQ(wanted(ui::column({ui::widget(a), ui::widget(b)}, distance)).height, 60 + pixels);
    }
    EXPECT_LT(0, small);
    EXPECT_LT(small, gap);
}

TEST_P(Layouts, WhatGrowsSharesTheRoomThatIsLeft) {
    const auto layout = ui::row({ui::widget(a, Grow::Wide), ui::widget(b), ui::widget(c, Grow::Both)}, Distance::None);
    arrange(layout, {0, 0, 240 + 50, 100});
    EXPECT_EQ(a.bounds(), (Rect{0, 40, 125, 60}));
    EXPECT_EQ(b.bounds(), (Rect{125, 30, 185, 70}));
    EXPECT_EQ(c.bounds(), (Rect{185, 0, 290, 100}));
}

TEST_P(Layouts, EveryPixelThatIsLeftIsShared) {
    const auto layout =
        ui::column({ui::widget(a, Grow::High), ui::widget(b, Grow::High), ui::widget(c, Grow::High)}, Distance::None);
    arrange(layout, {0, 0, 100, 90 + 8});
    EXPECT_EQ(a.bounds().bottom, b.bounds().top);
    EXPECT_EQ(c.bounds().bottom, 98);
}

TEST_P(Layouts, WhatIsHiddenTakesNoRoom) {
    const auto layout = ui::row({ui::widget(a), ui::widget(b), ui::widget(c)});
    b.setVisible(false);
    EXPECT_EQ(wanted(layout), (Size{180 + small, 30}));
    arrange(layout, {0, 0, 500, 30});
    EXPECT_EQ(c.bounds().left, 100 + small);
    a.setVisible(false);
    c.setVisible(false);
    EXPECT_FALSE(layout->present());
    EXPECT_EQ(wanted(ui::column({layout, ui::row({layout, layout})})), (Size{0, 0}));
}

TEST_P(Layouts, ASpringPushesWhatFollowsToTheEnd) {
    const auto layout = ui::row({ui::widget(a), ui::spring(), ui::widget(b)}, Distance::None);
    EXPECT_EQ(wanted(layout).width, 160);
    arrange(layout, {0, 0, 300, 40});
    EXPECT_EQ(a.bounds().left, 0);
    EXPECT_EQ(b.bounds().right, 300);
    const auto below = ui::column({ui::widget(a), ui::spring(), ui::widget(b)}, Distance::None);
    arrange(below, {0, 0, 300, 400});
    EXPECT_EQ(b.bounds().bottom, 400);
}

TEST_P(Layouts, ASpringCostsNoDistanceOfItsOwn) {
    const auto layout = ui::row({ui::widget(a), ui::spring(), ui::widget(b)}, Distance::Usual);
    EXPECT_EQ(wanted(layout).width, 160 + gap);
    arrangeWanted(layout);
    EXPECT_EQ(b.bounds().left, 100 + gap);
}

TEST_P(Layouts, ARowWithASpringDoesNotGrowHigh) {
    const auto buttons = ui::row({ui::spring(), ui::widget(a)}, Distance::None);
    arrange(ui::column({ui::widget(b, Grow::High), buttons}, Distance::None), {0, 0, 200, 200});
    EXPECT_EQ(b.bounds(), (Rect{0, 0, 60, 180}));
    EXPECT_EQ(a.bounds(), (Rect{100, 180, 200, 200}));
}

// -- tables ----------------------------------------------------------------------------------------------------------

TEST_P(Layouts, ATableAlignsItsColumns) {
    Block d{10, 10};
    const auto layout = ui::table(2, {ui::widget(a), ui::widget(b), ui::widget(c), ui::widget(d)});
    EXPECT_EQ(wanted(layout), (Size{160 + gap, 70 + small}));
    arrangeWanted(layout);
    EXPECT_EQ(a.bounds(), (Rect{0, 10, 100, 30}));
    EXPECT_EQ(b.bounds(), (Rect{100 + gap, 0, 160 + gap, 40}));
    EXPECT_EQ(c.bounds(), (Rect{0, 40 + small, 80, 70 + small}));
    EXPECT_EQ(d.bounds(), (Rect{100 + gap, 50 + small, 110 + gap, 60 + small}));
}

TEST_P(Layouts, TheLastColumnOfATableTakesTheRoomThatIsLeft) {
    const auto layout = ui::table(2, {ui::widget(a), ui::widget(b, Grow::Wide)});
    EXPECT_TRUE(layout->growsWide());
    arrange(layout, {0, 0, 500, 40});
    EXPECT_EQ(b.bounds(), (Rect{100 + gap, 0, 500, 40}));
}

TEST_P(Layouts, EmptyRowsAndColumnsOfATableCollapse) {
    Block d{10, 10};
    const auto layout = ui::table(
        3, {ui::widget(a), nullptr, ui::widget(b), nullptr, ui::widget(d), nullptr, ui::widget(c), nullptr, nullptr});
    d.setVisible(false);
    EXPECT_EQ(wanted(layout), (Size{160 + gap, 70 + small}));
    arrangeWanted(layout);
    EXPECT_EQ(b.bounds().left, 100 + gap);
    EXPECT_EQ(c.bounds().top, 40 + small);
    d.setVisible(true);
    EXPECT_EQ(wanted(layout), (Size{170 + 2 * gap, 80 + 2 * small}));
}

TEST_P(Layouts, AHiddenLastColumnLeavesTheRoomToTheOneBeforeIt) {
    c.setVisible(false);
    const auto layout = ui::table(3, {ui::widget(a), ui::widget(b, Grow::Wide), ui::widget(c)});
    arrange(layout, {0, 0, 500, 40});
    EXPECT_EQ(b.bounds().right, 500);
}

TEST_P(Layouts, ATableMayEndInTheMiddleOfARow) {
    const auto layout = ui::table(2, {ui::widget(a), ui::widget(b), ui::widget(c)});
    EXPECT_EQ(wanted(layout), (Size{160 + gap, 70 + small}));
    EXPECT_EQ(wanted(ui::table(2, {})), (Size{0, 0}));
    EXPECT_FALSE(ui::table(2, {nullptr, nullptr})->present());
}

TEST_P(Layouts, ColumnsOfSeveralTablesMayBeOfOneWidth) {
    Block d{10, 10};
    auto parts = ui::equallyWide({ui::widget(b), ui::widget(c)});
    const auto layout =
        ui::column({ui::table(2, {parts[0], ui::widget(a)}), ui::table(2, {parts[1], ui::widget(d)})}, Distance::None);
    arrangeWanted(layout);
    EXPECT_EQ(b.bounds().width(), 60);
    EXPECT_EQ(a.bounds().left, 80 + gap);
    EXPECT_EQ(d.bounds().left, 80 + gap);
    c.setVisible(false);
    arrangeWanted(layout);
    EXPECT_EQ(a.bounds().left, 60 + gap);
}

TEST_P(Layouts, WhatIsCentredStandsInTheMiddleOfItsColumn) {
    const auto layout = ui::column({ui::widget(a), ui::centred(ui::widget(b))}, Distance::None);
    EXPECT_EQ(wanted(layout), (Size{100, 60}));
    arrangeWanted(layout);
    EXPECT_EQ(b.bounds(), (Rect{20, 20, 80, 60}));
    b.setVisible(false);
    EXPECT_EQ(wanted(layout).height, 20);
}

// -- overlays, frames, margins, buttons ------------------------------------------------------------------------------

TEST_P(Layouts, AnOverlayTakesRoomForTheLargestShownOrNot) {
    b.setVisible(false);
    const auto layout = ui::overlaid({ui::widget(a), ui::widget(b)});
    EXPECT_EQ(wanted(layout), (Size{100, 40}));
    arrange(layout, {5, 5, 105, 45});
    EXPECT_EQ(a.bounds(), (Rect{5, 15, 105, 35}));
    EXPECT_EQ(b.bounds(), (Rect{5, 5, 65, 45}));
    a.setVisible(false);
    EXPECT_EQ(wanted(layout), (Size{100, 40}));
    EXPECT_TRUE(layout->present());
}

TEST_P(Layouts, AnOverlayGrowsAsWhatIsInIt) {
    EXPECT_FALSE(ui::overlaid({ui::widget(a)})->growsWide());
    EXPECT_TRUE(ui::overlaid({ui::widget(a), ui::widget(b, Grow::Wide)})->growsWide());
    EXPECT_TRUE(ui::overlaid({ui::widget(a), ui::widget(b, Grow::High)})->growsHigh());
}

TEST_P(Layouts, AFrameHoldsItsInsideBelowItsCaption) {
    ui::Frame frame("frame");
    frame.setCaption("Module");
    const auto layout = ui::framed(frame, ui::widget(a));
    const Size size = arrangeWanted(layout);
    EXPECT_EQ(frame.bounds(), (Rect{0, 0, size.width, size.height}));
    EXPECT_TRUE(inside(a.bounds(), frame.bounds()));
    EXPECT_GE(a.bounds().top, metrics.line());
    EXPECT_GT(size.height - a.bounds().bottom, 0);
    frame.setVisible(false);
    EXPECT_FALSE(layout->present());
}

TEST_P(Layouts, AFrameIsNeverNarrowerThanItsCaption) {
    ui::Frame frame("frame");
    frame.setCaption("A caption that is longer than what is inside");
    EXPECT_GT(wanted(ui::framed(frame, ui::widget(b))).width, metrics.captionWidth(frame.caption()));
}

TEST_P(Layouts, AFrameWithNothingShownInsideIsAbsent) {
    ui::Frame frame("frame");
    a.setVisible(false);
    EXPECT_FALSE(ui::framed(frame, ui::widget(a))->present());
}

TEST_P(Layouts, AMarginIsTheSameAllAround) {
    const int margin = metrics.margin();
    const auto layout = ui::withMargin(ui::widget(a));
    EXPECT_EQ(wanted(layout), (Size{100 + 2 * margin, 20 + 2 * margin}));
    arrangeWanted(layout);
    EXPECT_EQ(a.bounds(), (Rect{margin, margin, 100 + margin, 20 + margin}));
}

TEST_P(Layouts, ButtonsAreOfOneWidthAtTheRightEdge) {
    ui::Button ok("ok");
    ok.setCaption("OK");
    ui::Button other("other");
    other.setCaption("Something much longer");
    const auto layout = ui::buttonRow({&ok, &other});
    const int width = other.wantedSize(metrics).width;
    EXPECT_EQ(wanted(layout), (Size{2 * width + small, metrics.buttonHeight()}));
    arrange(layout, {0, 0, 1000, metrics.buttonHeight()});
    EXPECT_EQ(other.bounds(), (Rect{1000 - width, 0, 1000, metrics.buttonHeight()}));
    EXPECT_EQ(ok.bounds(), (Rect{1000 - small - 2 * width, 0, 1000 - small - width, metrics.buttonHeight()}));
    ok.setVisible(false);
    EXPECT_EQ(wanted(layout).width, width);
    other.setVisible(false);
    EXPECT_FALSE(layout->present());
    EXPECT_EQ(wanted(layout), (Size{0, 0}));
}

// -- texts -----------------------------------------------------------------------------------------------------------

TEST_P(Layouts, AMarkedCaptionIsAsWideAsItIsRead) {
    EXPECT_EQ(ui::shownText("Start &Freq && more &"), "Start Freq & more &");
    EXPECT_EQ(metrics.captionWidth("&OK"), metrics.width("OK"));
}

TEST_P(Layouts, ALongLabelIsBrokenBetweenWords) {
    ui::Label label("label");
    label.setCaption("aaaa bbbb cccc dddd");
    EXPECT_EQ(label.wantedSize(metrics), (Size{metrics.width(label.caption()), metrics.line()}));
    label.setWrapWidth(10);
    EXPECT_EQ(label.wantedSize(metrics), (Size{metrics.width("aaaa bbbb"), 2 * metrics.line()}));
    label.setWrapWidth(4);
    EXPECT_EQ(label.wantedSize(metrics), (Size{metrics.width("aaaa"), 4 * metrics.line()}));
    label.setCaption("first\nsecond third");
    label.setWrapWidth(12);
    EXPECT_EQ(label.wantedSize(metrics), (Size{metrics.width("second third"), 2 * metrics.line()}));
    label.setCaption("");
    EXPECT_EQ(label.wantedSize(metrics).height, metrics.line());
    label.setCaption("oneverylongwordthatdoesnotbreak");
    EXPECT_EQ(label.wantedSize(metrics), (Size{metrics.width(label.caption()), metrics.line()}));
}

// -- forms -----------------------------------------------------------------------------------------------------------

TEST_P(Layouts, AFormArrangesItsChildrenWhenItsSizeOrResolutionChanges) {
    ui::Form form("form");
    form.setLayout(desktop, ui::column({ui::widget(a, Grow::Both), ui::widget(b)}, Distance::None));
    form.setSize({200, 100}, GetParam());
    EXPECT_EQ(a.bounds(), (Rect{0, 0, 200, 60}));
    form.setSize({300, 140}, GetParam());
    EXPECT_EQ(a.bounds(), (Rect{0, 0, 300, 100}));
    b.setVisible(false);
    form.fit();
    EXPECT_EQ(form.size(), (Size{100, 20}));
    EXPECT_EQ(form.dpi(), GetParam());
    EXPECT_EQ(a.bounds(), (Rect{0, 0, 100, 20}));
}

TEST_P(Layouts, AFormThatIsHeldFitsOnceAtTheEnd) {
    ui::Form form("form");
    form.setLayout(desktop, ui::column({ui::widget(a, Grow::Both), ui::widget(b)}, Distance::None));
    form.setSize({200, 100}, GetParam());
    int sizes = 0;
    form.Resize.connect([&] { ++sizes; });
    {
        const ui::Form::FitHeld outer(form);
        b.setVisible(false);
        form.fit();
        {
            const ui::Form::FitHeld inner(form);
            form.fit();
        }
        EXPECT_EQ(form.size(), (Size{200, 100}));
    }
    EXPECT_EQ(form.size(), (Size{100, 20}));
    EXPECT_EQ(sizes, 1);
    {
        const ui::Form::FitHeld idle(form);
        form.setSize({300, 140}, GetParam());
    }
    EXPECT_EQ(form.size(), (Size{300, 140}));
}

// -- random layouts --------------------------------------------------------------------------------------------------

// A layout made by chance, with the rules that its widgets have to keep.
class RandomLayout {
public:
    RandomLayout(unsigned seed, const ui::Metrics& metrics) : metrics_(metrics), random_(seed) {
        root = part(4, nullptr);
    }

    Layout root;
    struct Leaf {
        std::unique_ptr<ui::Widget> widget;
        const ui::Frame* frame;
    };
    std::vector<Leaf> leaves;
    std::vector<std::unique_ptr<ui::Frame>> frames;

private:
    [[nodiscard]] int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    Layout part(int depth, const ui::Frame* frame) {
        switch (depth > 0 ? below(7) : 6) {
        case 0:
            return ui::row(parts(depth, frame), static_cast<Distance>(below(3)));
        case 1:
            return ui::column(parts(depth, frame), static_cast<Distance>(below(3)));
        case 2: {
            auto cells = parts(depth, frame);
            cells.insert(cells.begin() + below(static_cast<int>(cells.size())), nullptr);
            return ui::table(1 + below(3), std::move(cells));
        }
        case 3: {
            frames.push_back(std::make_unique<ui::Frame>("frame"));
            ui::Frame& own = *frames.back();
            own.setCaption(std::string(static_cast<std::size_t>(below(30)), 'x'));
            return ui::framed(own, part(depth - 1, &own));
        }
        case 4:
            return ui::withMargin(part(depth - 1, frame));
        case 5: {
            std::vector<ui::Widget*> buttons;
            for (int count = 1 + below(3); count > 0; --count) {
                buttons.push_back(&leaf(std::make_unique<ui::Button>("button"), frame));
            }
            return ui::buttonRow(std::move(buttons));
        }
        default:
            return below(8) == 0 ? ui::spring() : ui::widget(leaf(some(), frame), static_cast<Grow>(below(4)));
        }
    }
    LayoutParts parts(int depth, const ui::Frame* frame) {
        LayoutParts parts;
        for (int count = 1 + below(4); count > 0; --count) {
            parts.push_back(part(depth - 1, frame));
        }
        return parts;
    }
    std::unique_ptr<ui::Widget> some() {
        switch (below(3)) {
        case 0:
            return std::make_unique<ui::TextBox>("text");
        case 1:
            return std::make_unique<ui::CheckBox>("check");
        default:
            break;
        }
        auto label = std::make_unique<ui::Label>("label");
        label->setWrapWidth(below(2) * 20);
        return label;
    }
    ui::Widget& leaf(std::unique_ptr<ui::Widget> widget, const ui::Frame* frame) {
        std::string caption;
        for (int words = below(8); words >= 0; --words) {
            caption += "word ";
        }
        widget->setCaption(caption);
        widget->setVisible(below(5) != 0);
        leaves.push_back({std::move(widget), frame});
        return *leaves.back().widget;
    }

    const ui::Metrics& metrics_;
    std::mt19937 random_;
};

void expectWellArranged(const RandomLayout& layout, const Rect& room, const ui::Metrics& metrics) {
    for (std::size_t at = 0; at < layout.leaves.size(); ++at) {
        const auto& leaf = layout.leaves[at];
        const bool shown = leaf.widget->visible();
        if (!shown) {
            continue;
        }
        const Rect& bounds = leaf.widget->bounds();
        const Size size = leaf.widget->wantedSize(metrics);
        ASSERT_TRUE(inside(bounds, room)) << leaf.widget->name();
        ASSERT_GE(bounds.width(), size.width) << leaf.widget->name();
        ASSERT_GE(bounds.height(), size.height) << leaf.widget->name();
        if (leaf.frame != nullptr) {
            ASSERT_TRUE(inside(bounds, leaf.frame->bounds())) << leaf.widget->name();
            ASSERT_GE(bounds.top, leaf.frame->bounds().top + metrics.line());
        }
        for (std::size_t other = 0; other < at; ++other) {
            if (layout.leaves[other].widget->visible()) {
                ASSERT_TRUE(disjoint(bounds, layout.leaves[other].widget->bounds()));
            }
        }
    }
}

TEST_P(Layouts, NothingOverlapsAndNothingIsClipped) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const RandomLayout layout(seed, metrics);
        const Size size = wanted(layout.root);
        for (const auto& [more, higher] :
             std::vector<std::pair<int, int>>{{0, 0}, {1, 1}, {137, 0}, {0, 91}, {300, 200}}) {
            const Rect room{7, 11, 7 + size.width + more, 11 + size.height + higher};
            arrange(layout.root, room);
            ASSERT_NO_FATAL_FAILURE(expectWellArranged(layout, room, metrics));
        }
    }
}

}  // namespace
}  // namespace telvar::tests
