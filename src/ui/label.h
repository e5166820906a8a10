// Text that the user reads; its access key moves the focus to the widget that follows it.
#pragma once

#include "ui/widget.h"

namespace telvar::ui {

class Label : public Widget {
public:
    using Widget::Widget;
};

// A captioned border around widgets that belong together.
class Frame : public Widget {
public:
    using Widget::Widget;
};

}  // namespace telvar::ui
