// The system's colours as a user's scheme sets them, and whether what is painted can be read then.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "ui/form.h"
#include "world.h"

namespace telvar::win32 {

struct Scheme {
    std::string name;
    std::vector<std::pair<int, COLORREF>> colours;  // COLOR_... and what it is
};

inline void PrintTo(const Scheme& scheme, std::ostream* stream) { *stream << scheme.name; }

// White on black, with yellow for what is chosen and green for what is disabled.
[[nodiscard]] Scheme whiteOnBlack();
[[nodiscard]] Scheme blackOnWhite();
[[nodiscard]] Scheme greenOnGrey();
// Fields of the colour that errors and locked columns are marked with.
[[nodiscard]] Scheme blackOnRed();
[[nodiscard]] Scheme blackOnGreen();
[[nodiscard]] std::vector<Scheme> everyScheme();

// In force for the life of the object, for every program of the session.
class SchemeInForce {
public:
    explicit SchemeInForce(const Scheme& scheme);
    SchemeInForce(const SchemeInForce&) = delete;
    SchemeInForce& operator=(const SchemeInForce&) = delete;
    SchemeInForce(SchemeInForce&&) = delete;
    SchemeInForce& operator=(SchemeInForce&&) = delete;
    ~SchemeInForce();

private:
    std::vector<int> indices_;
    std::vector<COLORREF> before_;
};

// How many pixels of a text stand out from what the same place shows without the text, at that contrast or more.
[[nodiscard]] int pixelsSeen(const Picture& with, const Picture& without, const ui::Rect& part, double contrast);

// The text of every widget that is shown in that window can be seen. Takes each text away for a moment.
void expectTextsSeen(HWND window, const ui::Container& container);

}  // namespace telvar::win32
