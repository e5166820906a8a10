// Windows that hold widgets: a form of its own, and the panel that a control is. Children are kept in tab order; who
// arranges them listens to Resize and sets their bounds.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/widget.h"

namespace telvar::ui {

class Container : public Widget {
public:
    using Widget::Widget;

    void add(Widget& child) { children_.push_back(&child); }
    [[nodiscard]] const std::vector<Widget*>& children() const noexcept { return children_; }

    [[nodiscard]] Size size() const noexcept { return size_; }
    [[nodiscard]] int dpi() const noexcept { return dpi_; }
    // By the peer or by the owner of a windowless container: client size in pixels at that many dots per inch.
    void setSize(Size size, int dpi) {
        if (size_ == size && dpi_ == dpi) {
            return;
        }
        size_ = size;
        dpi_ = dpi;
        Resize();
    }

    base::Event<> Resize;

private:
    std::vector<Widget*> children_;
    Size size_;
    int dpi_ = standardDpi;
};

// The surface of an embedded control.
class Panel : public Container {
public:
    using Container::Container;
};

class Form : public Container {
public:
    using Container::Container;

    // By the peer: the close box was used. The form decides; by default it only hides.
    base::Event<> CloseBox;
};

}  // namespace telvar::ui
