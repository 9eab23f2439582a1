#include "windows/MessageFont.h"

#include <algorithm>

#include "windows/SystemFunction.h"

namespace tellwick::windows {

namespace {

int SystemResolution() {
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return resolution;
}

int CALLBACK AddFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
    // "@" marks a font's turned letters for vertical text.
    if (font->lfCharSet == SYMBOL_CHARSET || font->lfFaceName[0] == L'@') return TRUE;
    try {
        reinterpret_cast<std::vector<Text>*>(names)->push_back(FromWide(font->lfFaceName));
    } catch (...) {
        return FALSE;
    }
    return TRUE;
}

}  // namespace

int ResolutionOf(HWND window) {
    using DpiForWindow = UINT(WINAPI*)(HWND);
    static const auto dpiForWindow = SystemFunction<DpiForWindow>(L"user32.dll", "GetDpiForWindow");
    if (!window) return SystemResolution();
    UINT own = dpiForWindow ? dpiForWindow(window) : 0;
    if (own) return int(own);
    // Windows 8.1 knows the monitor's only; a host that does not follow gets the system's here.
    using DpiForMonitor = HRESULT(WINAPI*)(HMONITOR, int type, UINT* horizontal, UINT* vertical);
    static const auto dpiForMonitor =
        SystemFunction<DpiForMonitor>(L"shcore.dll", "GetDpiForMonitor");
    UINT vertical = 0;
    if (dpiForMonitor &&
        SUCCEEDED(dpiForMonitor(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), 0, &own,
                                &vertical))) {
        return int(own);
    }
    return SystemResolution();
}

SIZE SizeAround(HWND window, SIZE client) {
    using AdjustForDpi =
        BOOL(WINAPI*)(RECT*, DWORD style, BOOL menu, DWORD extendedStyle, UINT dpi);
    static const auto adjustForDpi =
        SystemFunction<AdjustForDpi>(L"user32.dll", "AdjustWindowRectExForDpi");
    RECT frame{0, 0, client.cx, client.cy};
    const auto style = DWORD(GetWindowLongW(window, GWL_STYLE));
    const auto extendedStyle = DWORD(GetWindowLongW(window, GWL_EXSTYLE));
    if (!adjustForDpi ||
        !adjustForDpi(&frame, style, FALSE, extendedStyle, UINT(ResolutionOf(window)))) {
        AdjustWindowRectEx(&frame, style, FALSE, extendedStyle);
    }
    return {frame.right - frame.left, frame.bottom - frame.top};
}

std::vector<Text> InstalledFonts() {
    LOGFONTW all{};
    all.lfCharSet = DEFAULT_CHARSET;
    std::vector<Text> names;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &all, &AddFont, reinterpret_cast<LPARAM>(&names), 0);
    ReleaseDC(nullptr, screen);
    // A font comes once for every script it has.
    std::sort(names.begin(), names.end(), LessFolded);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

MessageFont::MessageFont(int resolution) : resolution(resolution) {
    NONCLIENTMETRICSW system{};
    system.cbSize = sizeof system;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0);
    LOGFONTW& logical = system.lfMessageFont;
    logical.lfHeight = MulDiv(logical.lfHeight, resolution, SystemResolution());
    font.reset(CreateFontIndirectW(&logical));
    context.reset(CreateCompatibleDC(nullptr));
    SelectObject(context.get(), font.get());
    constexpr wchar_t Letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    SIZE size{};
    GetTextExtentPoint32W(context.get(), Letters, 52, &size);
    metrics = {int(size.cy), int((size.cx / 26 + 1) / 2)};
}

int MessageFont::DropDownWidth(const ItemList& list) const {
    int width = metrics.Horizontal(30);
    for (std::int32_t item = 0; item < list.Count(); ++item) {
        width = std::max(width, int(Measure(list.Item(item)).cx));
    }
    return width + MulDiv(GetSystemMetrics(SM_CXVSCROLL), resolution, SystemResolution()) +
           metrics.Horizontal(8);
}

SIZE MessageFont::Measure(TextView text, int width) const {
    RECT area{0, 0, width, 0};
    DrawTextW(context.get(), reinterpret_cast<const wchar_t*>(text.data()), int(text.size()), &area,
              UINT(DT_CALCRECT) | (width > 0 ? DT_WORDBREAK : 0u));
    return {area.right, area.bottom};
}

}  // namespace tellwick::windows
