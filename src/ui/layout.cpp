#include "ui/layout.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace telvar::ui {

namespace {

[[nodiscard]] constexpr bool wide(Grow grow) noexcept { return grow == Grow::Wide || grow == Grow::Both; }
[[nodiscard]] constexpr bool high(Grow grow) noexcept { return grow == Grow::High || grow == Grow::Both; }

[[nodiscard]] int pixels(Distance distance, const Metrics& metrics) {
    switch (distance) {
    case Distance::None:
        return 0;
    case Distance::Small:
        return metrics.smallGap();
    case Distance::Usual:
        break;
    }
    return metrics.gap();
}

[[nodiscard]] bool anyPresent(const LayoutParts& parts) noexcept {
    return std::ranges::any_of(parts, [](const Layout& part) { return part && part->present(); });
}

class WidgetPart final : public LayoutPart {
public:
    WidgetPart(Widget& widget, Grow grow) noexcept : widget_(widget), grow_(grow) {}

    [[nodiscard]] bool present() const noexcept override { return widget_.visible(); }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override { return widget_.wantedSize(metrics); }
    [[nodiscard]] bool growsWide() const noexcept override { return wide(grow_); }
    [[nodiscard]] bool growsHigh() const noexcept override { return high(grow_); }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        const Size size = wanted(metrics);
        Rect bounds = at;
        if (!growsWide()) {
            bounds.right = bounds.left + std::min(size.width, at.width());
        }
        if (!growsHigh()) {
            bounds.top += std::max((at.height() - size.height) / 2, 0);
            bounds.bottom = bounds.top + size.height;
        }
        widget_.setBounds(bounds);
    }

private:
    Widget& widget_;
    Grow grow_;
};

class Spring final : public LayoutPart {
public:
    [[nodiscard]] bool present() const noexcept override { return true; }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        static_cast<void>(metrics);
        return {};
    }
    [[nodiscard]] bool growsWide() const noexcept override { return true; }
    [[nodiscard]] bool growsHigh() const noexcept override { return true; }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        static_cast<void>(at);
        static_cast<void>(metrics);
    }
};

[[nodiscard]] bool isSpring(const Layout& part) { return dynamic_cast<const Spring*>(part.get()) != nullptr; }

// Parts one behind the other: along the row's width or the column's height. A spring is nothing but room along the
// line: it has no distance of its own, and does not make the line grow across.
class Line final : public LayoutPart {
public:
    enum class Direction : std::uint8_t { Row, Column };

    Line(LayoutParts parts, Distance distance, Direction direction)
        : parts_(std::move(parts)), distance_(distance), row_(direction == Direction::Row) {}

    [[nodiscard]] bool present() const noexcept override {
        return std::ranges::any_of(parts_, [](const Layout& part) { return part->present() && !isSpring(part); });
    }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        int along = 0;
        int across = 0;
        bool first = true;
        for (const Layout& part : parts_) {
            if (!part->present() || isSpring(part)) {
                continue;
            }
            const Size size = part->wanted(metrics);
            along += (row_ ? size.width : size.height) + (std::exchange(first, false) ? 0 : pixels(distance_, metrics));
            across = std::max(across, row_ ? size.height : size.width);
        }
        return row_ ? Size{along, across} : Size{across, along};
    }
    [[nodiscard]] bool growsWide() const noexcept override { return anyGrows(&LayoutPart::growsWide, row_); }
    [[nodiscard]] bool growsHigh() const noexcept override { return anyGrows(&LayoutPart::growsHigh, !row_); }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        const Size size = wanted(metrics);
        int over = std::max(row_ ? at.width() - size.width : at.height() - size.height, 0);
        const auto grows = [&](const Layout& part) {
            return part->present() && (row_ ? part->growsWide() : part->growsHigh());
        };
        auto growing = static_cast<int>(std::ranges::count_if(parts_, grows));
        int position = row_ ? at.left : at.top;
        for (const Layout& part : parts_) {
            if (!part->present()) {
                continue;
            }
            const Size own = part->wanted(metrics);
            // What does not divide evenly goes to the last ones.
            const int share = grows(part) ? over / growing-- : 0;
            over -= share;
            const int extent = (row_ ? own.width : own.height) + share;
            part->arrange(row_ ? Rect{position, at.top, position + extent, at.bottom}
                               : Rect{at.left, position, at.right, position + extent},
                          metrics);
            position += extent + (isSpring(part) ? 0 : pixels(distance_, metrics));
        }
    }

private:
    [[nodiscard]] bool anyGrows(bool (LayoutPart::*grows)() const noexcept, bool along) const {
        return std::ranges::any_of(parts_, [grows, along](const Layout& part) {
            return part->present() && ((*part).*grows)() && (along || !isSpring(part));
        });
    }

    LayoutParts parts_;
    Distance distance_;
    bool row_;
};

class Table final : public LayoutPart {
public:
    Table(int columns, LayoutParts cells)
        : columns_(static_cast<std::size_t>(std::max(columns, 1))), cells_(std::move(cells)) {
        cells_.resize((cells_.size() + columns_ - 1) / columns_ * columns_);
    }

    [[nodiscard]] bool present() const noexcept override { return anyPresent(cells_); }
    [[nodiscard]] bool growsWide() const noexcept override {
        return std::ranges::any_of(cells_,
                                   [](const Layout& cell) { return cell && cell->present() && cell->growsWide(); });
    }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        return {lengthOf(widths(metrics), metrics.gap()), lengthOf(heights(metrics), metrics.smallGap())};
    }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        auto widths = this->widths(metrics);
        const auto heights = this->heights(metrics);
        const auto last = std::find_if(widths.rbegin(), widths.rend(), [](int width) { return width > 0; });
        if (last != widths.rend()) {
            *last += std::max(at.width() - lengthOf(widths, metrics.gap()), 0);
        }
        int top = at.top;
        for (std::size_t row = 0; row < heights.size(); ++row) {
            int left = at.left;
            for (std::size_t column = 0; column < columns_; ++column) {
                if (const Layout& cell = cells_[row * columns_ + column]; cell && cell->present()) {
                    cell->arrange({left, top, left + widths[column], top + heights[row]}, metrics);
                }
                left += widths[column] > 0 ? widths[column] + metrics.gap() : 0;
            }
            top += heights[row] > 0 ? heights[row] + metrics.smallGap() : 0;
        }
    }

private:
    [[nodiscard]] static int lengthOf(const std::vector<int>& extents, int gap) {
        int length = 0;
        for (const int extent : extents) {
            length += extent > 0 ? extent + (length > 0 ? gap : 0) : 0;
        }
        return length;
    }
    [[nodiscard]] std::vector<int> widths(const Metrics& metrics) const {
        std::vector<int> widths(columns_);
        forEach(metrics, [&](std::size_t at, Size size) {
            widths[at % columns_] = std::max(widths[at % columns_], size.width);
        });
        return widths;
    }
    [[nodiscard]] std::vector<int> heights(const Metrics& metrics) const {
        std::vector<int> heights(cells_.size() / columns_);
        forEach(metrics, [&](std::size_t at, Size size) {
            heights[at / columns_] = std::max(heights[at / columns_], size.height);
        });
        return heights;
    }
    template <class Visit>
    void forEach(const Metrics& metrics, Visit&& visit) const {
        for (std::size_t at = 0; at < cells_.size(); ++at) {
            if (cells_[at] && cells_[at]->present()) {
                visit(at, cells_[at]->wanted(metrics));
            }
        }
    }

    std::size_t columns_;
    LayoutParts cells_;
};

class Overlay final : public LayoutPart {
public:
    explicit Overlay(LayoutParts parts) : parts_(std::move(parts)) {}

    [[nodiscard]] bool present() const noexcept override { return true; }
    [[nodiscard]] bool growsWide() const noexcept override {
        return std::ranges::any_of(parts_, [](const Layout& part) { return part->growsWide(); });
    }
    [[nodiscard]] bool growsHigh() const noexcept override {
        return std::ranges::any_of(parts_, [](const Layout& part) { return part->growsHigh(); });
    }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        Size largest;
        for (const Layout& part : parts_) {
            const Size size = part->wanted(metrics);
            largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
        }
        return largest;
    }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        for (const Layout& part : parts_) {
            part->arrange(at, metrics);
        }
    }

private:
    LayoutParts parts_;
};

// One of several parts of the same width.
class WidePart final : public LayoutPart {
public:
    WidePart(Layout part, std::shared_ptr<const LayoutParts> all) : part_(std::move(part)), all_(std::move(all)) {}

    [[nodiscard]] bool present() const noexcept override { return part_->present(); }
    [[nodiscard]] bool growsWide() const noexcept override { return part_->growsWide(); }
    [[nodiscard]] bool growsHigh() const noexcept override { return part_->growsHigh(); }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        Size size = part_->wanted(metrics);
        for (const Layout& other : *all_) {
            size.width = std::max(size.width, other->present() ? other->wanted(metrics).width : 0);
        }
        return size;
    }
    void arrange(const Rect& at, const Metrics& metrics) const override { part_->arrange(at, metrics); }

private:
    Layout part_;
    std::shared_ptr<const LayoutParts> all_;
};

// `inside` with room around it, and the frame, if any, around that.
class Bordered final : public LayoutPart {
public:
    Bordered(Layout inside, Frame* frame) : inside_(std::move(inside)), frame_(frame) {}

    [[nodiscard]] bool present() const noexcept override {
        return (frame_ == nullptr || frame_->visible()) && inside_->present();
    }
    [[nodiscard]] bool growsWide() const noexcept override { return inside_->growsWide(); }
    [[nodiscard]] bool growsHigh() const noexcept override { return inside_->growsHigh(); }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        const Size size = inside_->wanted(metrics);
        const int border = borderWidth(metrics);
        const int narrowest = frame_ != nullptr ? frame_->wantedSize(metrics).width : 0;
        return {std::max(size.width + 2 * border, narrowest), size.height + border + topWidth(metrics)};
    }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        if (frame_ != nullptr) {
            frame_->setBounds(at);
        }
        const int border = borderWidth(metrics);
        inside_->arrange({at.left + border, at.top + topWidth(metrics), at.right - border, at.bottom - border},
                         metrics);
    }

private:
    [[nodiscard]] int borderWidth(const Metrics& metrics) const {
        return frame_ != nullptr ? metrics.gap() : metrics.margin();
    }
    // The caption of a frame stands in its upper border.
    [[nodiscard]] int topWidth(const Metrics& metrics) const {
        return borderWidth(metrics) + (frame_ != nullptr ? metrics.line() - metrics.smallGap() : 0);
    }

    Layout inside_;
    Frame* frame_;
};

class ButtonRow final : public LayoutPart {
public:
    explicit ButtonRow(std::vector<Widget*> buttons) : buttons_(std::move(buttons)) {}

    [[nodiscard]] bool present() const noexcept override { return count() > 0; }
    [[nodiscard]] bool growsWide() const noexcept override { return true; }
    [[nodiscard]] Size wanted(const Metrics& metrics) const override {
        if (!present()) {
            return {};
        }
        const Size one = largest(metrics);
        return {count() * (one.width + metrics.smallGap()) - metrics.smallGap(), one.height};
    }
    void arrange(const Rect& at, const Metrics& metrics) const override {
        const Size one = largest(metrics);
        int left = at.right - wanted(metrics).width;
        for (Widget* const button : buttons_) {
            if (button->visible()) {
                button->setBounds({left, at.top, left + one.width, at.top + one.height});
                left += one.width + metrics.smallGap();
            }
        }
    }

private:
    [[nodiscard]] int count() const noexcept {
        return static_cast<int>(
            std::ranges::count_if(buttons_, [](const Widget* button) { return button->visible(); }));
    }
    [[nodiscard]] Size largest(const Metrics& metrics) const {
        Size largest;
        for (const Widget* const button : buttons_) {
            const Size size = button->wantedSize(metrics);
            largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
        }
        return largest;
    }

    std::vector<Widget*> buttons_;
};

}  // namespace

Layout widget(Widget& widget, Grow grow) { return std::make_shared<WidgetPart>(widget, grow); }

Layout row(LayoutParts parts, Distance distance) {
    return std::make_shared<Line>(std::move(parts), distance, Line::Direction::Row);
}

Layout column(LayoutParts parts, Distance distance) {
    return std::make_shared<Line>(std::move(parts), distance, Line::Direction::Column);
}

Layout table(int columns, LayoutParts cells) { return std::make_shared<Table>(columns, std::move(cells)); }

Layout overlaid(LayoutParts parts) { return std::make_shared<Overlay>(std::move(parts)); }

LayoutParts equallyWide(LayoutParts parts) {
    const auto all = std::make_shared<const LayoutParts>(parts);
    for (Layout& part : parts) {
        part = std::make_shared<WidePart>(part, all);
    }
    return parts;
}

Layout centred(Layout part) { return row({spring(), std::move(part), spring()}, Distance::None); }

Layout framed(Frame& frame, Layout inside) { return std::make_shared<Bordered>(std::move(inside), &frame); }

Layout spring() { return std::make_shared<Spring>(); }

Layout withMargin(Layout inside) { return std::make_shared<Bordered>(std::move(inside), nullptr); }

Layout buttonRow(std::vector<Widget*> buttons) { return std::make_shared<ButtonRow>(std::move(buttons)); }

}  // namespace telvar::ui
