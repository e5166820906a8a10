#include "ui/form.h"

#include <utility>

namespace telvar::ui {

void Form::setLayout(Desktop& desktop, Layout layout) {
    desktop_ = &desktop;
    layout_ = std::move(layout);
    resized_ = Resize.connectScoped([this] { arrange(); });
}

void Form::fit() {
    if (attached()) {
        shown(Aspect::Size);
    } else if (desktop_ != nullptr) {
        setSize(wantedSize(Metrics(*desktop_, dpi())), dpi());
    }
    arrange();
}

void Form::arrange() {
    if (layout_) {
        layout_->arrange({0, 0, size().width, size().height}, Metrics(*desktop_, dpi()));
    }
}

}  // namespace telvar::ui
