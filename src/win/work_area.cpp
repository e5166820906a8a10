#include "win/work_area.h"

#include <algorithm>
#include <optional>

namespace telvar::win {

namespace {

LONG widthOf(const RECT& rectangle) noexcept { return rectangle.right - rectangle.left; }

LONG heightOf(const RECT& rectangle) noexcept { return rectangle.bottom - rectangle.top; }

long long commonArea(const RECT& one, const RECT& other) noexcept {
    const long long width = std::min(one.right, other.right) - std::max(one.left, other.left);
    const long long height = std::min(one.bottom, other.bottom) - std::max(one.top, other.top);
    return width > 0 && height > 0 ? width * height : 0;
}

RECT wholeScreen() noexcept { return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }

std::optional<MONITORINFO> informationOf(HMONITOR monitor) noexcept {
    MONITORINFO information{};
    information.cbSize = sizeof information;
    return GetMonitorInfoW(monitor, &information) != FALSE ? std::optional(information) : std::nullopt;
}

BOOL CALLBACK addWorkArea(HMONITOR monitor, HDC, LPRECT, LPARAM data) noexcept {
    if (const auto information = informationOf(monitor)) {
        auto& areas = *reinterpret_cast<std::vector<RECT>*>(data);
        const bool first = (information->dwFlags & MONITORINFOF_PRIMARY) != 0;
        areas.insert(first ? areas.begin() : areas.end(), information->rcWork);
    }
    return TRUE;
}

}  // namespace

RECT fitted(RECT wanted, std::span<const RECT> workAreas) noexcept {
    const auto best = std::max_element(workAreas.begin(), workAreas.end(), [&](const RECT& one, const RECT& other) {
        return commonArea(wanted, one) < commonArea(wanted, other);
    });
    const LONG width = std::min(widthOf(wanted), widthOf(*best));
    const LONG height = std::min(heightOf(wanted), heightOf(*best));
    const LONG left = std::clamp(wanted.left, best->left, best->right - width);
    const LONG top = std::clamp(wanted.top, best->top, best->bottom - height);
    return {left, top, left + width, top + height};
}

RECT workAreaOf(HMONITOR monitor) noexcept {
    const auto information = informationOf(monitor);
    return information ? information->rcWork : wholeScreen();
}

std::vector<RECT> workAreas() {
    std::vector<RECT> areas;
    EnumDisplayMonitors(nullptr, nullptr, addWorkArea, reinterpret_cast<LPARAM>(&areas));
    if (areas.empty()) {
        areas.push_back(wholeScreen());
    }
    return areas;
}

void centreOverOwner(HWND window) {
    RECT own{};
    RECT around{};
    GetWindowRect(window, &own);
    const HWND owner = GetWindow(window, GW_OWNER);
    const std::vector<RECT> areas = workAreas();
    if (owner == nullptr || IsIconic(owner) || !GetWindowRect(owner, &around)) {
        around = areas.front();
    }
    OffsetRect(&own, (around.left + around.right - own.left - own.right) / 2,
               (around.top + around.bottom - own.top - own.bottom) / 2);
    const RECT place = fitted(own, areas);
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace telvar::win
