#include "host/shell/window_placement.h"

#include "win/work_area.h"

namespace telvar::host {

namespace {

LONG widthOf(const RECT& rectangle) noexcept { return rectangle.right - rectangle.left; }

LONG heightOf(const RECT& rectangle) noexcept { return rectangle.bottom - rectangle.top; }

}  // namespace

std::optional<Placement> loadPlacement(const desk::SettingsStore& settings) {
    const auto left = settings.number(desk::setting::left.name);
    const auto top = settings.number(desk::setting::top.name);
    const auto width = settings.number(desk::setting::width.name);
    const auto height = settings.number(desk::setting::height.name);
    // Values beyond any screen would overflow the arithmetic.
    const auto sensible = [](std::int32_t value) { return value > -100'000 && value < 100'000; };
    if (!left || !top || !width || !height || *width <= 0 || *height <= 0 || !sensible(*left) || !sensible(*top) ||
        !sensible(*width) || !sensible(*height)) {
        return std::nullopt;
    }
    return Placement{.rectangle = win::fitted({*left, *top, *left + *width, *top + *height}, win::workAreas()),
                     .maximised = desk::setting::maximised.in(settings)};
}

void savePlacement(desk::SettingsStore& settings, HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(window, &placement)) {
        return;
    }
    const bool maximised = placement.showCmd == SW_SHOWMAXIMIZED ||
                           (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    // The normal position is relative to the main monitor's work area.
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& normal = placement.rcNormalPosition;
    settings.setNumber(desk::setting::left.name, normal.left + monitor.rcWork.left - monitor.rcMonitor.left);
    settings.setNumber(desk::setting::top.name, normal.top + monitor.rcWork.top - monitor.rcMonitor.top);
    settings.setNumber(desk::setting::width.name, widthOf(normal));
    settings.setNumber(desk::setting::height.name, heightOf(normal));
    desk::setting::maximised.put(settings, maximised);
}

}  // namespace telvar::host
