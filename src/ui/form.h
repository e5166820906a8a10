// Windows that hold widgets: a form of its own, and the panel that a control is. Children are kept in tab order. A form
// is arranged by its layout; who arranges a panel listens to Resize and sets the bounds of its children.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/pinned.h"
#include "ui/layout.h"
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

    // Who gets the focus when the child that has it can no longer have it; null for the next one in tab order.
    void setFocusFallback(Widget* child) noexcept { focusFallback_ = child; }
    [[nodiscard]] Widget* focusFallback() const noexcept { return focusFallback_; }

    base::Event<> Resize;

private:
    std::vector<Widget*> children_;
    Widget* focusFallback_ = nullptr;
    Size size_;
    int dpi_ = standardDpi;
};

// The surface of an embedded control.
class Panel : public Container {
public:
    using Container::Container;
};

// A window of its own. Its bounds are those of the whole window on the screen, borders included; its size is that of
// the client area, or what the layout wants where that is more: the window scrolls then.
class Form : public Container {
public:
    using Container::Container;

    // Arranges the children from now on. The desktop must outlive the form's use.
    void setLayout(Desktop& desktop, Layout layout);
    // Of the client area: what the layout wants.
    [[nodiscard]] Size wantedSize(const Metrics& metrics) const override {
        return layout_ ? layout_->wanted(metrics) : Size{};
    }
    // Takes the size that the layout wants now, after children were shown or hidden.
    void fit();
    // Gives every child its place in the present size.
    void arrange();
    // While one of these lives, fit() waits for the end of the last one: many changes, one new layout.
    class FitHeld : base::Pinned {
    public:
        explicit FitHeld(Form& form) noexcept : form_(form) { ++form_.fitHeld_; }
        ~FitHeld();

    private:
        Form& form_;
    };

    // Who gets the focus when the form is hidden while it has it; null for who had it before. Must outlive the form's
    // use.
    void setFocusAfter(Widget* widget) noexcept { focusAfter_ = widget; }
    [[nodiscard]] Widget* focusAfter() const noexcept { return focusAfter_; }

    // By the desktop, each time before the form becomes visible: its size and dots per inch are set, and its bounds to
    // the middle of its owner's window. A handler may set other bounds.
    base::Event<> Load;
    // By the desktop: the close box was used. The desktop hides the form afterwards.
    base::Event<> CloseBox;

private:
    Desktop* desktop_ = nullptr;
    Layout layout_;
    base::Connection resized_;
    Widget* focusAfter_ = nullptr;
    int fitHeld_ = 0;
    bool fitAsked_ = false;
};

}  // namespace telvar::ui
