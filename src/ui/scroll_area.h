// A view of something larger than the room there is for it: which scroll bars are needed, and which part is seen. In
// pixels, without any window.
#pragma once

#include "ui/geometry.h"

namespace telvar::ui {

// The size of a view with the bars that it shows.
struct ScrollView {
    Size size;
    bool vertical = false;
    bool horizontal = false;
    bool operator==(const ScrollView&) const = default;
};

// The view that shows as much of `content` as it can without being larger than `most`. A vertical bar takes
// `bars.width` of the room, a horizontal one `bars.height`; one may make the other one necessary.
[[nodiscard]] ScrollView viewOf(Size content, Size most, Size bars) noexcept;

class ScrollArea {
public:
    // Keeps the position where it can.
    void setSizes(Size content, Size room) noexcept;
    [[nodiscard]] Size content() const noexcept { return content_; }
    [[nodiscard]] Size room() const noexcept { return room_; }

    // The point of the content at the upper left corner of the room.
    [[nodiscard]] Point position() const noexcept { return position_; }
    // Held to the content.
    void moveTo(Point position) noexcept;
    // By as little as brings a part of the content into the room, with so much around it where there is room for that.
    // Of a part that is larger than the room its beginning is shown.
    void reveal(const Rect& part, int around) noexcept;

private:
    Size content_;
    Size room_;
    Point position_;
};

}  // namespace telvar::ui
