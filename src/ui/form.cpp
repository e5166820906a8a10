#include "ui/form.h"

#include <utility>

#include "base/skip.h"

namespace telvar::ui {

void Form::setLayout(Desktop& desktop, Layout layout) {
    desktop_ = &desktop;
    layout_ = std::move(layout);
    resized_ = Resize.connectScoped([this] { arrange(); });
}

void Form::fit() {
    fitAsked_ = fitHeld_ > 0;
    if (fitAsked_) {
        return;
    }
    if (attached()) {
        shown(Aspect::Size);
    } else if (desktop_ != nullptr) {
        setSize(wantedSize(Metrics(*desktop_, dpi())), dpi());
    }
    arrange();
}

// Out of memory for a text: the former layout stays.
Form::FitHeld::~FitHeld() {
    if (--form_.fitHeld_ == 0 && form_.fitAsked_) {
        base::skip([this] { form_.fit(); });
    }
}

void Form::arrange() {
    if (layout_) {
        layout_->arrange({0, 0, size().width, size().height}, Metrics(*desktop_, dpi()));
    }
}

}  // namespace telvar::ui
