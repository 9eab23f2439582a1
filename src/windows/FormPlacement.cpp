#include "windows/FormPlacement.h"

#include <algorithm>

#include "windows/MessageFont.h"

namespace tellwick::windows {

FormPlace PlaceOf(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!window || !GetWindowPlacement(window, &placement)) return {};
    RECT place = placement.rcNormalPosition;
    // The normal position counts from the work area, windows are placed by the screen.
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left,
               monitor.rcWork.top - monitor.rcMonitor.top);
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

void MoveToFirstPlace(HWND window, HWND caller, const FormPlace& wanted, bool positioned,
                      SIZE leastClient, SIZE usualClient) {
    const SIZE least = SizeAround(window, leastClient);
    const SIZE usual = SizeAround(window, usualClient);
    LONG width = std::max(wanted.width > 0 ? LONG(wanted.width) : usual.cx, least.cx);
    LONG height = std::max(wanted.height > 0 ? LONG(wanted.height) : usual.cy, least.cy);
    const RECT place{wanted.left, wanted.top, wanted.left + width, wanted.top + height};
    HMONITOR screen = positioned ? MonitorFromRect(&place, MONITOR_DEFAULTTONULL) : nullptr;
    const bool restored = screen != nullptr;
    if (!restored) screen = MonitorFromWindow(caller, MONITOR_DEFAULTTOPRIMARY);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(screen, &monitor);
    const RECT& area = monitor.rcWork;
    width = std::min(width, area.right - area.left);
    height = std::min(height, area.bottom - area.top);
    RECT around = area;
    if (caller && !IsIconic(caller)) GetWindowRect(caller, &around);
    const LONG left = restored ? place.left : (around.left + around.right - width) / 2;
    const LONG top = restored ? place.top : (around.top + around.bottom - height) / 2;
    SetWindowPos(window, nullptr, std::clamp(left, area.left, area.right - width),
                 std::clamp(top, area.top, area.bottom - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

int GrowWindow(HWND window, int height) {
    if (!window || IsZoomed(window) || IsIconic(window)) return 0;
    RECT place;
    GetWindowRect(window, &place);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    const LONG before = place.bottom - place.top;
    const LONG after = height > 0
                           ? std::max(before, std::min(before + height, area.bottom - area.top))
                           : before + height;
    const LONG top =
        height > 0 ? std::max(area.top, std::min(place.top, area.bottom - after)) : place.top;
    SetWindowPos(window, nullptr, place.left, top, place.right - place.left, after,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return int(after - before);
}

}  // namespace tellwick::windows
