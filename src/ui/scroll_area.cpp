#include "ui/scroll_area.h"

#include <algorithm>

namespace telvar::ui {

namespace {

// One direction of reveal: where the room begins, so that it holds the part from `first` to `last`.
[[nodiscard]] int revealed(int position, int room, int first, int last) noexcept {
    return std::min(std::max(position, last - room), first);
}

// What is around a part shares the room that the part leaves.
[[nodiscard]] int aroundIn(int room, int part, int around) noexcept { return std::clamp((room - part) / 2, 0, around); }

}  // namespace

ScrollView viewOf(Size content, Size most, Size bars) noexcept {
    ScrollView view;
    view.vertical = content.height > most.height;
    view.horizontal = content.width + (view.vertical ? bars.width : 0) > most.width;
    view.vertical = view.vertical || (view.horizontal && content.height + bars.height > most.height);
    view.size = {std::min(content.width + (view.vertical ? bars.width : 0), most.width),
                 std::min(content.height + (view.horizontal ? bars.height : 0), most.height)};
    return view;
}

void ScrollArea::setSizes(Size content, Size room) noexcept {
    content_ = content;
    room_ = room;
    moveTo(position_);
}

void ScrollArea::moveTo(Point position) noexcept {
    position_ = {std::clamp(position.x, 0, std::max(content_.width - room_.width, 0)),
                 std::clamp(position.y, 0, std::max(content_.height - room_.height, 0))};
}

void ScrollArea::reveal(const Rect& part, int around) noexcept {
    const int beside = aroundIn(room_.width, part.width(), around);
    const int above = aroundIn(room_.height, part.height(), around);
    moveTo({revealed(position_.x, room_.width, part.left - beside, part.right + beside),
            revealed(position_.y, room_.height, part.top - above, part.bottom + above)});
}

}  // namespace telvar::ui
