#include "schemes.h"

#include "base/readable_colour.h"
#include "ui/slider.h"
#include "win/text.h"
#include "win32/convert.h"

namespace telvar::win32 {

namespace {

// Of everything in few colours: the ground, what stands on it, what is chosen and what stands on that, and what cannot
// be used.
Scheme schemeOf(std::string name, COLORREF ground, COLORREF text, COLORREF chosen, COLORREF chosenText,
                COLORREF disabled) {
    Scheme scheme{.name = std::move(name), .colours = {}};
    for (const int index : {COLOR_WINDOW, COLOR_BTNFACE, COLOR_MENU, COLOR_APPWORKSPACE, COLOR_INFOBK}) {
        scheme.colours.emplace_back(index, ground);
    }
    for (const int index : {COLOR_WINDOWTEXT, COLOR_BTNTEXT, COLOR_MENUTEXT, COLOR_INFOTEXT, COLOR_BTNHIGHLIGHT,
                            COLOR_3DLIGHT, COLOR_3DDKSHADOW, COLOR_WINDOWFRAME}) {
        scheme.colours.emplace_back(index, text);
    }
    scheme.colours.emplace_back(COLOR_HIGHLIGHT, chosen);
    scheme.colours.emplace_back(COLOR_HIGHLIGHTTEXT, chosenText);
    scheme.colours.emplace_back(COLOR_GRAYTEXT, disabled);
    scheme.colours.emplace_back(COLOR_BTNSHADOW, disabled);
    return scheme;
}

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);

void setColours(const std::vector<int>& indices, const std::vector<COLORREF>& colours) {
    ASSERT_TRUE(indices.empty() || SetSysColors(static_cast<int>(indices.size()), indices.data(), colours.data()));
}

// Shows a widget without its text, and with it again at the end.
class WithoutText {
public:
    explicit WithoutText(HWND control, const ui::Widget& widget) : control_(control) {
        if (dynamic_cast<const ui::TextBox*>(&widget) != nullptr) {
            field_ = control;
        } else if (const auto* const combo = dynamic_cast<const ui::ComboBox*>(&widget)) {
            if (combo->style() == ui::ComboBox::Style::DropDown) {
                field_ = GetWindow(control, GW_CHILD);
            } else {
                chosen_ = SendMessageW(control, CB_GETCURSEL, 0, 0);
            }
        }
        take();
        repaint();
    }
    WithoutText(const WithoutText&) = delete;
    WithoutText& operator=(const WithoutText&) = delete;
    WithoutText(WithoutText&&) = delete;
    WithoutText& operator=(WithoutText&&) = delete;
    ~WithoutText() {
        if (field_ != nullptr) {
            SendMessageW(field_, EM_SETPASSWORDCHAR, 0, 0);
        } else if (chosen_ >= 0) {
            SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(chosen_), 0);
        } else {
            SetWindowTextW(control_, win::wide(text_).c_str());
        }
        repaint();
    }

private:
    void take() {
        if (field_ != nullptr) {
            // Blanks instead of it, so that nobody hears of a change.
            SendMessageW(field_, EM_SETPASSWORDCHAR, L' ', 0);
        } else if (chosen_ >= 0) {
            SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        } else {
            text_ = windowText(control_);
            SetWindowTextW(control_, L"");
        }
    }
    void repaint() const {
        const HWND around = GetParent(control_);
        RECT at{};
        GetWindowRect(control_, &at);
        MapWindowPoints(nullptr, around, reinterpret_cast<POINT*>(&at), 2);
        RedrawWindow(around, &at, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }

    HWND control_;
    HWND field_ = nullptr;
    LRESULT chosen_ = -1;
    std::string text_;
};

std::string shownText(const ui::Widget& widget) {
    if (const auto* const box = dynamic_cast<const ui::TextBox*>(&widget)) {
        return box->text();
    }
    if (const auto* const combo = dynamic_cast<const ui::ComboBox*>(&widget)) {
        return combo->text();
    }
    const bool silent = dynamic_cast<const ui::Slider*>(&widget) != nullptr;
    const bool cells = dynamic_cast<const ui::Grid*>(&widget) != nullptr;
    return silent || cells ? std::string() : widget.caption();
}

}  // namespace

Scheme whiteOnBlack() { return schemeOf("white on black", black, white, RGB(255, 255, 0), black, RGB(0, 255, 0)); }
Scheme blackOnWhite() { return schemeOf("black on white", white, black, black, white, RGB(96, 0, 0)); }
Scheme greenOnGrey() {
    return schemeOf("green on grey", RGB(48, 48, 48), RGB(0, 255, 0), RGB(0, 255, 255), black, RGB(160, 160, 160));
}
Scheme blackOnRed() { return schemeOf("black on red", RGB(255, 0, 0), black, RGB(0, 0, 128), white, RGB(64, 0, 0)); }
Scheme blackOnGreen() {
    return schemeOf("black on green", RGB(0, 255, 0), black, RGB(0, 0, 128), white, RGB(0, 96, 0));
}
std::vector<Scheme> everyScheme() {
    return {{.name = "the usual one", .colours = {}},
            whiteOnBlack(),
            blackOnWhite(),
            greenOnGrey(),
            blackOnRed(),
            blackOnGreen()};
}

SchemeInForce::SchemeInForce(const Scheme& scheme) {
    std::vector<COLORREF> now;
    for (const auto& [index, colour] : scheme.colours) {
        indices_.push_back(index);
        before_.push_back(GetSysColor(index));
        now.push_back(colour);
    }
    setColours(indices_, now);
}

SchemeInForce::~SchemeInForce() { setColours(indices_, before_); }

int pixelsSeen(const Picture& with, const Picture& without, const ui::Rect& part, double contrast) {
    int seen = 0;
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            seen += base::contrast(with.at(x, y), without.at(x, y)) >= contrast ? 1 : 0;
        }
    }
    return seen;
}

void expectTextsSeen(HWND window, const ui::Container& container) {
    // What cannot be used need not stand out as well, but it must be seen.
    constexpr double ofDisabled = 1.6;
    // Less than the thinnest letter has.
    constexpr int leastPixels = 5;
    const ui::Rect view{0, 0, container.size().width, container.size().height};
    for (const ui::Widget* const widget : container.children()) {
        if (!widget->isShown() || shownText(*widget).empty()) {
            continue;
        }
        const HWND control = childThatShows(window, *widget);
        ASSERT_NE(control, nullptr) << widget->name();
        const Picture with(window);
        const WithoutText taken(control, *widget);
        const Picture without(window);
        EXPECT_GE(pixelsSeen(with, without, widget->bounds().intersected(view),
                             widget->isUsable() ? base::readableContrast : ofDisabled),
                  leastPixels)
            << widget->name() << ": " << shownText(*widget);
    }
}

}  // namespace telvar::win32
