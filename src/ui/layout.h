// How the widgets of a form are arranged, as data: rows, columns and tables of widgets, sized from measured text, so
// that the same form fits any font and resolution.
//
// Hidden widgets take no room, except in `overlaid`; a row or a column of a table in which nothing is shown collapses.
// What grows shares the room that is left over; everything else keeps the size that it wants.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "base/pinned.h"
#include "ui/frame.h"
#include "ui/geometry.h"
#include "ui/metrics.h"
#include "ui/widget.h"

namespace telvar::ui {

// A part of a layout. The widgets in it must live as long as it is used.
class LayoutPart : base::Pinned {
public:
    virtual ~LayoutPart() = default;

    // Whether it takes room at all.
    [[nodiscard]] virtual bool present() const noexcept = 0;
    // The smallest size at which everything fits, in pixels.
    [[nodiscard]] virtual Size wanted(const Metrics& metrics) const = 0;
    [[nodiscard]] virtual bool growsWide() const noexcept { return false; }
    [[nodiscard]] virtual bool growsHigh() const noexcept { return false; }
    // Sets the bounds of the widgets.
    virtual void arrange(const Rect& at, const Metrics& metrics) const = 0;
};

using Layout = std::shared_ptr<const LayoutPart>;
using LayoutParts = std::vector<Layout>;

enum class Grow : std::uint8_t { No, Wide, High, Both };
enum class Distance : std::uint8_t { None, Small, Usual };

// One widget, at the left and in the middle of its room unless it grows.
[[nodiscard]] Layout widget(Widget& widget, Grow grow = Grow::No);
// Left to right, each in the middle of the row's height.
[[nodiscard]] Layout row(LayoutParts parts, Distance distance = Distance::Small);
// Top to bottom, each as wide as the column.
[[nodiscard]] Layout column(LayoutParts parts, Distance distance = Distance::Small);
// Row by row into `columns` columns of common widths; room that is left over goes to the last column. Null for a cell
// that stays empty.
[[nodiscard]] Layout table(int columns, LayoutParts cells);
// The same parts, each wanting the width of the widest of those that take room: for columns of several tables, or
// groups of one row, that shall be alike.
[[nodiscard]] LayoutParts equallyWide(LayoutParts parts);
// In the middle of its width, no wider than it wants to be.
[[nodiscard]] Layout centred(Layout part);
// All at the same place, of which the form shows one at a time. Takes room for the largest, shown or not.
[[nodiscard]] Layout overlaid(LayoutParts parts);
// The frame with `inside` in it.
[[nodiscard]] Layout framed(Frame& frame, Layout inside);
// Empty room that grows in both directions, such as before the buttons at the right edge.
[[nodiscard]] Layout spring();
// The margin of a form around everything on it.
[[nodiscard]] Layout withMargin(Layout inside);
// Buttons of one width, at the right edge.
[[nodiscard]] Layout buttonRow(std::vector<Widget*> buttons);

}  // namespace telvar::ui
