// Where texts stand in fields and beside them: read from the screen.
#include "form_world.h"

#include <algorithm>
#include <array>

namespace telvar::win32 {
namespace {

constexpr UINT dpiChanged = 0x02E0;

// A label with each kind of field in one row.
class FormAlignment : public FormWorld {
protected:
    FormAlignment() {
        label.setCaption("HH");
        box.loadText("HH");
        box.setWidth(6);
        for (ui::ComboBox* const combo : {&typed, &chosen}) {
            combo->addItem("HH");
            combo->loadListIndex(0);
        }
        check.setCaption("HH");
        ok.setCaption("OK");
        for (ui::Widget* const widget : inOrder) {
            row.add(*widget);
        }
        row.setLayout(desktop,
                      ui::withMargin(ui::column({ui::row({ui::widget(label), ui::widget(box), ui::widget(typed),
                                                          ui::widget(chosen), ui::widget(check)}),
                                                 ui::widget(ok)})));
        // No field shows a selection.
        row.Load.connect([this] { ok.setFocus(); });
        desktop.showModeless(row);
        pump();
    }

    // First and last row in which the text of a widget has dark pixels, on the form.
    struct Rows {
        int first = 0;
        int last = 0;
    };
    // Of the picture of the whole form; borders, marks and arrows are left out.
    [[nodiscard]] Rows textRows(const Picture& form, const ui::Widget& widget) {
        constexpr int darkest = 200;
        const ui::Metrics metrics(desktop, row.dpi());
        const ui::Rect& at = widget.bounds();
        const bool isLabel = &widget == &label;
        const int left = at.left + (&widget == &check ? metrics.markWidth() - 2 : isLabel ? 0 : 4);
        const int right = std::min(left + metrics.width("HH") + 4, at.right);
        const int inset = isLabel || &widget == &check ? 0 : 3;
        Rows rows{.first = at.bottom, .last = at.top};
        for (int y = at.top + inset; y < at.bottom - inset; ++y) {
            for (int x = left; x < right; ++x) {
                const COLORREF pixel = form.at(x, y);
                if (GetRValue(pixel) + GetGValue(pixel) + GetBValue(pixel) < darkest) {
                    rows = {.first = std::min(rows.first, y), .last = std::max(rows.last, y)};
                }
            }
        }
        return rows;
    }

    ui::Form row{"frmRow"};
    ui::Label label{"lblLabel"};
    ui::TextBox box{"txtBox"};
    ui::ComboBox typed{"cmbTyped", ui::ComboBox::Style::DropDown};
    ui::ComboBox chosen{"cmbChosen"};
    ui::CheckBox check{"ckCheck"};
    ui::Button ok{"cmdOk"};
    const std::array<ui::Widget*, 6> inOrder{&label, &box, &typed, &chosen, &check, &ok};
};

TEST_F(FormAlignment, TextStandsInTheMiddleOfItsFieldAndOnTheLineOfItsLabel) {
    for (const int dpi : {96, 144, 192}) {
        SCOPED_TRACE(std::to_string(dpi) + " dpi");
        const RECT suggested{10, 10, 700, 300};
        SendMessageW(window(), dpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&suggested));
        UpdateWindow(window());
        pump();
        const Picture picture(window());
        const Rows besides = textRows(picture, label);
        EXPECT_GT(besides.last - besides.first, ui::Metrics(desktop, dpi).line() / 3);
        EXPECT_EQ(textRows(picture, box).last, besides.last);
        EXPECT_EQ(textRows(picture, typed).last, besides.last);
        // The system itself sets what was chosen from a list a pixel lower than what can be typed.
        EXPECT_NEAR(textRows(picture, chosen).last, besides.last, 1);
        EXPECT_NEAR(textRows(picture, check).last, besides.last, 1);
        const Rows inside = textRows(picture, box);
        const int above = inside.first - box.bounds().top;
        const int below = box.bounds().bottom - 1 - inside.last;
        EXPECT_NEAR(above, below, 1);
    }
}

}  // namespace
}  // namespace telvar::win32
