#include "control/strip_layout.h"

#include <algorithm>

namespace telvar::control {

namespace {

// Twips that the grid leaves free at the right and, for the strip, below.
constexpr int rightMargin = 80;
constexpr int stripHeight = 880;

// Measures of one layout, in pixels.
struct Measures {
    ui::Desktop& desktop;
    int dpi = ui::standardDpi;
    int line = desktop.measure("Software Channel Select", dpi).height;
    int gap = line / 2;
    int boxHeight = line + line / 8 + 6;
    // What a text may be drawn wider than it is measured, by the rounding of its letters to pixels.
    int overhang = line / 6 + 1;
    int buttonHeight = 2 * line - line / 4;
    int optionHeight = line + line / 4;
    int frameHeight = line + optionHeight + gap;

    [[nodiscard]] int width(const std::string& text) const { return desktop.measure(text, dpi).width; }
    // The mark of a check box or an option button stands before its caption.
    [[nodiscard]] int markedWidth(const std::string& caption) const { return line + gap + width(caption); }
};

// Sets widgets from left to right, each centred on one line.
class Row {
public:
    Row(int left, int middle, int gap) noexcept : left_(left), middle_(middle), gap_(gap) {}

    void add(ui::Widget& widget, int width, int height) {
        const int top = middle_ - height / 2;
        widget.setBounds({left_, top, left_ + width, top + height});
        left_ += width + gap_;
    }
    void skip(int pixels) noexcept { left_ += pixels; }
    [[nodiscard]] int left() const noexcept { return left_; }

private:
    int left_;
    int middle_;
    int gap_;
};

void addChannelSelect(ChannelInformation& control, const Measures& measures, Row& row) {
    auto& label = control.lblSoftwareChannelSelect;
    row.add(label, measures.width(label.caption()) + measures.overhang, measures.line);
    row.add(control.txtChannelSelect, measures.width("00000") + measures.line, measures.boxHeight);
    auto& button = control.cmdChannelSelect;
    row.add(button, measures.width(button.caption()) + 3 * measures.line, measures.buttonHeight);
}

void addOptions(ChannelInformation& control, const Measures& measures, Row& row) {
    for (auto& option : control.optLockMode) {
        row.add(option, measures.markedWidth(option.caption()), measures.optionHeight);
    }
}

void addLockData(ChannelInformation& control, const Measures& measures, Row& row) {
    row.add(control.ckLockData, measures.markedWidth(control.ckLockData.caption()), measures.optionHeight);
}

// The frame's caption stands above the line that everything else is centred on.
[[nodiscard]] int layOutOnOneLine(ChannelInformation& control, const Measures& measures, const ui::Rect& strip) {
    const int top = strip.top + std::max((strip.height() - measures.frameHeight) / 2, 0);
    Row row(strip.left + measures.gap, top + measures.line + measures.optionHeight / 2, measures.gap);
    addChannelSelect(control, measures, row);
    row.skip(2 * measures.gap);
    const int frameLeft = row.left();
    row.skip(measures.gap);
    addOptions(control, measures, row);
    control.frLockMode.setBounds({frameLeft, top, row.left(), top + measures.frameHeight});
    row.skip(2 * measures.gap);
    addLockData(control, measures, row);
    return row.left();
}

void layOutOnTwoLines(ChannelInformation& control, const Measures& measures, const ui::Rect& strip) {
    const int height = measures.buttonHeight + measures.gap / 2 + measures.optionHeight;
    const int top = strip.top + std::max((strip.height() - height) / 2, 0);
    Row first(strip.left + measures.gap, top + measures.buttonHeight / 2, measures.gap);
    addChannelSelect(control, measures, first);
    Row second(strip.left + measures.gap, top + height - measures.optionHeight / 2, measures.gap);
    addOptions(control, measures, second);
    addLockData(control, measures, second);
}

}  // namespace

void layOutStrip(ChannelInformation& control, ui::Desktop& desktop, const ui::Rect& strip, int dpi) {
    const Measures measures{.desktop = desktop, .dpi = dpi};
    const bool fits = layOutOnOneLine(control, measures, strip) <= strip.right;
    if (!fits) {
        layOutOnTwoLines(control, measures, strip);
    }
    control.frLockMode.setVisible(fits);
}

void ChannelInformation::UserControl_Resize() {
    session_.trap("UserControl_Resize", [&] {
        const int dpi = panel_.dpi();
        const ui::Size size = panel_.size();
        const int width = ui::twipsOf(size.width, dpi);
        const int height = ui::twipsOf(size.height, dpi);
        const ui::Rect present = fgdDatabase.bounds();
        const ui::Rect grid{
            0, present.top, width >= rightMargin ? ui::pixelsOf(width - rightMargin, dpi) : present.width(),
            present.top + (height >= stripHeight ? ui::pixelsOf(height - stripHeight, dpi) : present.height())};
        fgdDatabase.setBounds(grid);
        const int bottom = std::max(size.height, grid.bottom + ui::pixelsOf(stripHeight, dpi));
        layOutStrip(*this, session_.desktop(), {0, grid.bottom, size.width, bottom}, dpi);
    });
}

}  // namespace telvar::control
