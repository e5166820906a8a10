#include "desk/page_setup.h"

#include <algorithm>

namespace telvar::desk {

namespace {

constexpr int twipsPerInch = 1440;
constexpr int perInch = 2540;
constexpr int perMillimetre = 100;
// From a matchbox to a poster.
constexpr int shortestSide = 3'000;
constexpr int longestSide = 200'000;

// To the nearest.
int twips(int hundredths) noexcept {
    return static_cast<int>((static_cast<long long>(hundredths) * twipsPerInch + perInch / 2) / perInch);
}

bool isSheet(Size size) noexcept {
    return size.width >= shortestSide && size.height >= shortestSide && size.width <= longestSide &&
           size.height <= longestSide;
}

Size turned(const PageSetup& setup) noexcept {
    return setup.landscape ? Size{setup.sheet.height, setup.sheet.width} : setup.sheet;
}

}  // namespace

PageSetup usualPageSetup(int sheetCode) noexcept {
    PageSetup setup;
    for (const KnownSheet& sheet : knownSheets) {
        if (sheet.code == sheetCode) {
            setup.sheet = sheet.size;
            setup.sheetCode = sheet.code;
        }
    }
    return setup;
}

PageSetup loadPageSetup(const SettingsStore& settings, const PageSetup& usual) {
    PageSetup setup = usual;
    const auto read = [&](const NumberSetting& number, int otherwise) {
        return static_cast<int>(settings.number(number.name).value_or(otherwise));
    };
    setup.sheetCode = read(setting::printSheet, usual.sheetCode);
    setup.sheet = {read(setting::printSheetWidth, usual.sheet.width),
                   read(setting::printSheetHeight, usual.sheet.height)};
    if (!isSheet(setup.sheet)) {
        setup.sheetCode = usual.sheetCode;
        setup.sheet = usual.sheet;
    }
    setup.landscape = setting::printLandscape.in(settings);
    setup.onlyInUse = setting::printOnlyInUse.in(settings);
    setup.margins = {
        read(setting::printMarginLeft, usual.margins.left), read(setting::printMarginTop, usual.margins.top),
        read(setting::printMarginRight, usual.margins.right), read(setting::printMarginBottom, usual.margins.bottom)};
    if (!leavesRoom(setup)) {
        setup.margins = usual.margins;
    }
    return setup;
}

void savePageSetup(SettingsStore& settings, const PageSetup& setup) {
    settings.setNumber(setting::printSheet.name, setup.sheetCode);
    settings.setNumber(setting::printSheetWidth.name, setup.sheet.width);
    settings.setNumber(setting::printSheetHeight.name, setup.sheet.height);
    setting::printLandscape.put(settings, setup.landscape);
    setting::printOnlyInUse.put(settings, setup.onlyInUse);
    settings.setNumber(setting::printMarginLeft.name, setup.margins.left);
    settings.setNumber(setting::printMarginTop.name, setup.margins.top);
    settings.setNumber(setting::printMarginRight.name, setup.margins.right);
    settings.setNumber(setting::printMarginBottom.name, setup.margins.bottom);
}

bool leavesRoom(const PageSetup& setup) noexcept {
    const Size size = turned(setup);
    const auto room = [](int whole, int before, int after) {
        return before >= 0 && after >= 0 && before <= whole && after <= whole && whole - before - after >= perInch;
    };
    return room(size.width, setup.margins.left, setup.margins.right) &&
           room(size.height, setup.margins.top, setup.margins.bottom);
}

Paper paperOf(const PageSetup& setup) noexcept {
    const Size size = turned(setup);
    return {.size = {twips(size.width), twips(size.height)},
            .margins = {twips(setup.margins.left), twips(setup.margins.top), twips(setup.margins.right),
                        twips(setup.margins.bottom)}};
}

std::optional<int> readMillimetres(std::string_view text) noexcept {
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    constexpr int tooMuch = 10'000;  // millimetres
    int whole = 0;
    int part = 0;
    int worth = 0;  // of a decimal, in hundredths; 0 before the point
    bool any = false;
    for (const char each : text) {
        if ((each == '.' || each == ',') && worth == 0 && any) {
            worth = perMillimetre;
        } else if (each < '0' || each > '9' || worth == 1) {
            return std::nullopt;
        } else if (worth != 0) {
            worth /= 10;
            part += (each - '0') * worth;
        } else {
            whole = std::min(whole * 10 + (each - '0'), tooMuch);
            any = true;
        }
    }
    if (whole == tooMuch) {
        return std::nullopt;
    }
    return any ? std::optional(whole * perMillimetre + part) : std::nullopt;
}

std::string millimetresText(int hundredths) {
    std::string text = std::to_string(hundredths / perMillimetre);
    if (const int part = hundredths % perMillimetre; part != 0) {
        text += "." + std::to_string(part / 10);
        if (part % 10 != 0) {
            text += std::to_string(part % 10);
        }
    }
    return text;
}

}  // namespace telvar::desk
