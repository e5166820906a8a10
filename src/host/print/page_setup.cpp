#include "host/print/page_setup.h"

#include <windows.h>

#include <utility>

namespace telvar::host {

namespace {

constexpr int twipsPerInch = 1440;
constexpr int perInch = 2540;
// From a matchbox to a poster.
constexpr int shortestSide = 3'000;
constexpr int longestSide = 200'000;

constexpr const wchar_t* onlyInUseValue = L"PrintOnlyInUse";
constexpr const wchar_t* landscapeValue = L"PrintLandscape";
constexpr const wchar_t* sheetValues[] = {L"PrintSheet", L"PrintSheetWidth", L"PrintSheetHeight"};
constexpr const wchar_t* marginValues[] = {L"PrintMarginLeft", L"PrintMarginTop", L"PrintMarginRight",
                                           L"PrintMarginBottom"};

int twips(int hundredths) noexcept { return MulDiv(hundredths, twipsPerInch, perInch); }

bool isSheet(desk::Size size) noexcept {
    return size.width >= shortestSide && size.height >= shortestSide && size.width <= longestSide &&
           size.height <= longestSide;
}

desk::Size turned(const PageSetup& setup) noexcept {
    return setup.landscape ? desk::Size{setup.sheet.height, setup.sheet.width} : setup.sheet;
}

}  // namespace

PageSetup usualPageSetup() {
    PageSetup setup;
    DWORD code = 0;
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE | LOCALE_RETURN_NUMBER, reinterpret_cast<LPWSTR>(&code),
                   sizeof code / sizeof(wchar_t));
    for (const KnownSheet& sheet : knownSheets) {
        if (static_cast<DWORD>(sheet.code) == code) {
            setup.sheet = sheet.size;
            setup.sheetCode = sheet.code;
        }
    }
    return setup;
}

PageSetup loadPageSetup(const win::Settings& settings) {
    const PageSetup usual = usualPageSetup();
    PageSetup setup = usual;
    const auto read = [&](const wchar_t* name, int otherwise) {
        return static_cast<int>(settings.number(name).value_or(otherwise));
    };
    setup.sheetCode = read(sheetValues[0], usual.sheetCode);
    setup.sheet = {read(sheetValues[1], usual.sheet.width), read(sheetValues[2], usual.sheet.height)};
    if (!isSheet(setup.sheet)) {
        setup.sheetCode = usual.sheetCode;
        setup.sheet = usual.sheet;
    }
    setup.landscape = read(landscapeValue, 0) != 0;
    setup.onlyInUse = read(onlyInUseValue, 0) != 0;
    setup.margins = {read(marginValues[0], usual.margins.left), read(marginValues[1], usual.margins.top),
                     read(marginValues[2], usual.margins.right), read(marginValues[3], usual.margins.bottom)};
    if (!leavesRoom(setup)) {
        setup.margins = usual.margins;
    }
    return setup;
}

void savePageSetup(win::Settings& settings, const PageSetup& setup) {
    settings.setNumber(sheetValues[0], setup.sheetCode);
    settings.setNumber(sheetValues[1], setup.sheet.width);
    settings.setNumber(sheetValues[2], setup.sheet.height);
    settings.setNumber(landscapeValue, setup.landscape ? 1 : 0);
    settings.setNumber(onlyInUseValue, setup.onlyInUse ? 1 : 0);
    settings.setNumber(marginValues[0], setup.margins.left);
    settings.setNumber(marginValues[1], setup.margins.top);
    settings.setNumber(marginValues[2], setup.margins.right);
    settings.setNumber(marginValues[3], setup.margins.bottom);
}

bool leavesRoom(const PageSetup& setup) noexcept {
    const desk::Size size = turned(setup);
    const auto room = [](int whole, int before, int after) {
        return before >= 0 && after >= 0 && before <= whole && after <= whole && whole - before - after >= perInch;
    };
    return room(size.width, setup.margins.left, setup.margins.right) &&
           room(size.height, setup.margins.top, setup.margins.bottom);
}

desk::Paper paperOf(const PageSetup& setup) noexcept {
    const desk::Size size = turned(setup);
    return {.size = {twips(size.width), twips(size.height)},
            .margins = {twips(setup.margins.left), twips(setup.margins.top), twips(setup.margins.right),
                        twips(setup.margins.bottom)}};
}

}  // namespace telvar::host
