#include "outlook/AddInForms.h"

#include "outlook/Com.h"

namespace tellwick::standin {

namespace {

constexpr UINT ResolutionChanged = 0x02E0;  // WM_DPICHANGED

BOOL CALLBACK CollectAddInWindow(HWND window, LPARAM found) {
    const auto library = reinterpret_cast<HMODULE>(GetClassLongPtrW(window, GCLP_HMODULE));
    if (IsWindowVisible(window) && library != GetModuleHandleW(nullptr)) {
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    }
    return TRUE;
}

int ScreenResolution() {
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return resolution;
}

Text ClassOf(HWND control) {
    wchar_t name[64] = L"";
    GetClassNameW(control, name, 64);
    return FromWide(name);
}

// Of the text, which only a label may wrap, and what the control draws beside it.
int NeededWidth(HWND control, const Text& caption) {
    const HDC screen = GetDC(control);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    const HGDIOBJ previous = SelectObject(screen, font);
    RECT place;
    GetClientRect(control, &place);
    RECT area = place;
    DrawTextW(screen, Wide(caption), -1, &area, DT_CALCRECT | DT_WORDBREAK);
    if (ClassOf(control) != u"Static" || area.bottom > place.bottom) {
        DrawTextW(screen, Wide(caption), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    }
    SelectObject(screen, previous);
    ReleaseDC(control, screen);
    const auto code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    const LONG type = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    int beside = 0;
    if (code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) beside = 8;
    if ((code & DLGC_BUTTON) && type == BS_AUTOCHECKBOX) beside = 18;
    return area.right + MulDiv(beside, ScreenResolution(), 96);
}

}  // namespace

std::vector<HWND> AddInWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), CollectAddInWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

void ChangeResolution(HWND window, int resolution) {
    RECT place;
    GetWindowRect(window, &place);
    place.right = place.left + MulDiv(place.right - place.left, resolution, ScreenResolution());
    place.bottom = place.top + MulDiv(place.bottom - place.top, resolution, ScreenResolution());
    SendMessageW(window, ResolutionChanged, MAKEWPARAM(resolution, resolution),
                 reinterpret_cast<LPARAM>(&place));
}

std::vector<Text> DescribeControls(HWND window) {
    std::vector<Text> descriptions;
    for (HWND control = GetWindow(window, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsWindowVisible(control)) continue;
        RECT place;
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        const Text className = ClassOf(control);
        Text caption;
        if (className == u"Button" || className == u"Static") {
            wchar_t text[512] = L"";
            GetWindowTextW(control, text, 512);
            caption = FromWide(text);
        }
        Text description = className;
        for (const LONG edge : {place.left, place.top, place.right, place.bottom}) {
            description += u" " + NumberText(std::int64_t(edge));
        }
        description +=
            u" " + NumberText(caption.empty() ? 0 : NeededWidth(control, caption)) + u" " + caption;
        descriptions.push_back(description);
    }
    return descriptions;
}

}  // namespace tellwick::standin
