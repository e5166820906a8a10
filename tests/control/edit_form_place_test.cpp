// Where the edit form comes up: beside the row that it is about, and where it was.
#include "edit_form_world.h"

namespace telvar::tests {
namespace {

using ui::Point;
using ui::Rect;

// A window of the grid that says where its current row is on the screen.
class PlacedGrid : public ui::GridPeer {
public:
    void show(ui::Aspect /*changed*/) noexcept override {}
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const ui::CellRange& /*range*/) noexcept override {}
    void layoutChanged() noexcept override {}
    void highlightChanged() noexcept override {}
    [[nodiscard]] std::optional<Rect> currentRowOnScreen() const override { return row; }

    std::optional<Rect> row;
};

class EditFormPlace : public ControlEditForm {
protected:
    EditFormPlace() {
        desktop.screen = {0, 0, 3000, 2000};
        grid().attach(window);
    }
    ~EditFormPlace() override { grid().detach(); }
    EditFormPlace(const EditFormPlace&) = delete;
    EditFormPlace& operator=(const EditFormPlace&) = delete;
    EditFormPlace(EditFormPlace&&) = delete;
    EditFormPlace& operator=(EditFormPlace&&) = delete;

    void openOver(const std::optional<Rect>& row) {
        window.row = row;
        doubleClick(4);
        ASSERT_TRUE(open());
    }
    void openAgainOver(const Rect& row) {
        form().cmdCancel.userPress();
        openOver(row);
    }
    void userMovesTheFormTo(Point to) {
        const Rect now = form().bounds();
        form().setBounds({to.x, to.y, to.x + now.width(), to.y + now.height()});
    }
    [[nodiscard]] Point corner() const { return {form().bounds().left, form().bounds().top}; }

    PlacedGrid window;
};

TEST_F(EditFormPlace, IsBesideTheCurrentRow) {
    openOver(Rect{100, 200, 700, 217});
    EXPECT_EQ(corner(), (Point{700, 200}));
}

TEST_F(EditFormPlace, IsBelowTheCurrentRowWhereTheScreenHasNoRoomBesideIt) {
    openOver(Rect{100, 200, 2900, 217});
    EXPECT_EQ(corner(), (Point{100, 217}));
}

TEST_F(EditFormPlace, IsInTheMiddleWhereTheScreenHasNoRoomOnAnySideOfTheRow) {
    openOver(std::nullopt);
    const Rect small{0, 0, form().bounds().width() + 10, form().bounds().height() + 10};
    form().cmdCancel.userPress();

    desktop.screen = small;
    control = std::make_unique<ChannelInformation>(
        control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = logPath});
    control->setCentralDataStore(store);
    control->DistributeDataStoreLink();
    control->UpdateAccess(5);
    grid().attach(window);
    openOver(Rect{5, 100, 400, 117});
    EXPECT_EQ(corner(), (Point{5, 5}));
}

TEST_F(EditFormPlace, IsInTheMiddleWhereTheRowCannotBeSeen) {
    openOver(std::nullopt);
    EXPECT_EQ(corner(), (Point{(3000 - form().bounds().width()) / 2, (2000 - form().bounds().height()) / 2}));
}

TEST_F(EditFormPlace, IsKeptForAnotherRowThatItDoesNotHide) {
    openOver(Rect{100, 200, 700, 217});
    openAgainOver({100, 800, 700, 817});
    EXPECT_EQ(corner(), (Point{700, 200}));
}

TEST_F(EditFormPlace, IsLeftForARowThatItWouldHide) {
    openOver(Rect{100, 200, 2900, 217});
    openAgainOver({100, 300, 2900, 317});
    EXPECT_EQ(corner(), (Point{100, 317}));
}

TEST_F(EditFormPlace, IsWhereTheUserMovedItWhateverItHidesThere) {
    openOver(Rect{100, 200, 700, 217});
    userMovesTheFormTo({150, 190});
    for (int time = 0; time < 3; ++time) {
        openAgainOver({100, 200, 700, 217});
        EXPECT_EQ(corner(), (Point{150, 190})) << time;
    }
}

TEST_F(EditFormPlace, DoesNotChangeWhileTheFormIsOpen) {
    openOver(Rect{100, 200, 2900, 217});
    window.row = Rect{100, 300, 2900, 317};
    doubleClick(9);
    userMovesTo(10);
    EXPECT_EQ(corner(), (Point{100, 217}));
}

}  // namespace
}  // namespace telvar::tests
