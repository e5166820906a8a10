#include <algorithm>

#include "control_world.h"

namespace telvar::tests {
namespace {

using ui::Rect;

class Surface : public ControlWorld {
protected:
    [[nodiscard]] Rect gridBounds() const { return grid().bounds(); }
    void resize(int width, int height, int dpi = 96) { control->panel().setSize({width, height}, dpi); }
    // What the user sees below the grid, without the frame around the lock modes.
    [[nodiscard]] std::vector<const ui::Widget*> strip() const {
        return {&control->lblSoftwareChannelSelect,
                &control->txtChannelSelect,
                &control->cmdChannelSelect,
                &control->optLockMode[0],
                &control->optLockMode[1],
                &control->optLockMode[2],
                &control->ckLockData};
    }
    void expectNoOverlap() const {
        auto widgets = strip();
        widgets.push_back(&grid());
        for (const auto* one : widgets) {
            EXPECT_FALSE(one->bounds().empty()) << one->name();
            for (const auto* other : widgets) {
                EXPECT_TRUE(one == other || one->bounds().intersected(other->bounds()).empty())
                    << one->name() << " and " << other->name();
            }
        }
    }
    [[nodiscard]] static int middle(const ui::Widget& widget) {
        return (widget.bounds().top + widget.bounds().bottom) / 2;
    }
};

// -- the grid --------------------------------------------------------------------------------------------------------

struct Sizing {
    const char* name;
    int width;
    int height;
    int dpi;
    Rect grid;
};
class GridSize : public Surface, public testing::WithParamInterface<Sizing> {};

TEST_P(GridSize, IsTheControlsLess80And880Twips) {
    resize(GetParam().width, GetParam().height, GetParam().dpi);
    EXPECT_EQ(gridBounds(), GetParam().grid);
}

INSTANTIATE_TEST_SUITE_P(All, GridSize,
                         testing::Values(Sizing{"Standard", 800, 600, 96, {0, 0, 795, 541}},
                                         Sizing{"At150Percent", 1200, 900, 144, {0, 0, 1192, 812}},
                                         Sizing{"At200Percent", 1600, 1200, 192, {0, 0, 1589, 1083}},
                                         Sizing{"JustWideAndHighEnough", 6, 59, 96, {0, 0, 1, 0}}),
                         [](const auto& sizing) { return std::string(sizing.param.name); });

// At 144 dots per inch 80 twips are 8 pixels and 880 are 88.
TEST_F(Surface, AControlOfExactly80By880TwipsHasAGridOfNothing) {
    resize(1200, 900, 144);
    resize(8, 88, 144);
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 0, 0}));
}

TEST_F(Surface, APixelLessThan80TwipsLeavesTheWidthAndOneLessThan880TheHeight) {
    resize(1200, 900, 144);
    resize(7, 88, 144);
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 1192, 0}));
    resize(1200, 900, 144);
    resize(8, 87, 144);
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 0, 812}));
}

TEST_F(Surface, TheControlStartsWithAGoodSize) {
    EXPECT_EQ(control->panel().size(), (ui::Size{630, 520}));
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 625, 461}));
}

TEST_F(Surface, ANarrowerControlLeavesTheGridsWidth) {
    resize(800, 600);
    resize(5, 500);  // 75 twips
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 795, 441}));
}

TEST_F(Surface, ALowerControlLeavesTheGridsHeight) {
    resize(800, 600);
    resize(700, 58);  // 870 twips
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 695, 541}));
}

TEST_F(Surface, ASmallerControlLeavesTheGrid) {
    resize(800, 600);
    resize(5, 58);
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 795, 541}));
    resize(0, 0);
    EXPECT_EQ(gridBounds(), (Rect{0, 0, 795, 541}));
    expectNoOverlap();
}

// -- the strip -------------------------------------------------------------------------------------------------------

class StripDpi : public Surface, public testing::WithParamInterface<int> {
protected:
    [[nodiscard]] static int scaled(int pixels) { return pixels * GetParam() / 96; }
};

TEST_P(StripDpi, EverythingStandsOnOneLineInsideTheStrip) {
    const int dpi = GetParam();
    resize(scaled(900), scaled(600), dpi);
    const Rect below{0, gridBounds().bottom, scaled(900), scaled(600)};
    for (const auto* widget : strip()) {
        EXPECT_EQ(widget->bounds().intersected(below), widget->bounds()) << widget->name();
        EXPECT_NEAR(middle(*widget), middle(*strip().front()), 1) << widget->name();
    }
    EXPECT_EQ(control->frLockMode.bounds().intersected(below), control->frLockMode.bounds());
    EXPECT_NEAR(middle(control->frLockMode), (below.top + below.bottom) / 2, 1);
    EXPECT_TRUE(control->frLockMode.visible());
    expectNoOverlap();
}

TEST_P(StripDpi, TheFrameHoldsTheLockModesOnly) {
    resize(scaled(900), scaled(600), GetParam());
    const Rect frame = control->frLockMode.bounds();
    for (const auto& option : control->optLockMode) {
        EXPECT_EQ(option.bounds().intersected(frame), option.bounds());
        EXPECT_GE(option.bounds().top - frame.top, desktop.measure("X", GetParam()).height);
    }
    EXPECT_TRUE(frame.intersected(control->cmdChannelSelect.bounds()).empty());
    EXPECT_TRUE(frame.intersected(control->ckLockData.bounds()).empty());
}

TEST_P(StripDpi, CaptionsFit) {
    resize(scaled(900), scaled(600), GetParam());
    for (const auto* widget : strip()) {
        const auto text = desktop.measure(widget->caption(), GetParam());
        if (widget != &control->txtChannelSelect) {
            EXPECT_GE(widget->bounds().width(), text.width) << widget->name();
        }
        EXPECT_GE(widget->bounds().height(), text.height) << widget->name();
    }
}

TEST_P(StripDpi, ANarrowControlHasTheLockModesOnASecondLine) {
    const int dpi = GetParam();
    resize(scaled(450), scaled(400), dpi);
    EXPECT_FALSE(control->frLockMode.visible());
    const Rect below{0, gridBounds().bottom, scaled(450), scaled(400)};
    for (const auto* widget : strip()) {
        EXPECT_EQ(widget->bounds().intersected(below), widget->bounds()) << widget->name();
    }
    EXPECT_GE(control->optLockMode[0].bounds().top, control->cmdChannelSelect.bounds().bottom);
    expectNoOverlap();
}

TEST_P(StripDpi, NothingOverlapsAtAnyWidth) {
    for (int width = 0; width <= 1000; width += 50) {
        resize(scaled(width), scaled(300), GetParam());
        expectNoOverlap();
    }
}

INSTANTIATE_TEST_SUITE_P(All, StripDpi, testing::Values(96, 120, 144, 192));

TEST_F(Surface, AWideControlGetsItsFrameBack) {
    resize(300, 400);
    resize(1000, 400);
    EXPECT_TRUE(control->frLockMode.visible());
}

}  // namespace
}  // namespace telvar::tests
