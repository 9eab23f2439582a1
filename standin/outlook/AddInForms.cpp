#include "outlook/AddInForms.h"

#include <commctrl.h>

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

// Of the text and what the control draws beside it. A text of several lines needs the width that
// it has, or more when it does not fit.
int NeededWidth(HWND control, const Text& caption, const RECT& place) {
    const HDC screen = GetDC(control);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    const HGDIOBJ previous = SelectObject(screen, font);
    RECT line{};
    DrawTextW(screen, Wide(caption), -1, &line, DT_CALCRECT | DT_SINGLELINE);
    const LONG width = place.right - place.left;
    RECT lines{0, 0, width, 0};
    DrawTextW(screen, Wide(caption), -1, &lines, DT_CALCRECT | DT_WORDBREAK);
    SelectObject(screen, previous);
    ReleaseDC(control, screen);
    const auto code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    const LONG height = place.bottom - place.top;
    if ((code & DLGC_STATIC) && height >= 2 * line.bottom) {
        return lines.bottom <= height ? lines.right : width + 1;
    }
    const LONG type = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    int beside = 0;
    if (code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) beside = 8;
    if ((code & DLGC_BUTTON) && type == BS_AUTOCHECKBOX) beside = 18;
    return line.right + MulDiv(beside, ScreenResolution(), 96);
}

BOOL CALLBACK CollectControl(HWND control, LPARAM found) {
    reinterpret_cast<std::vector<HWND>*>(found)->push_back(control);
    return TRUE;
}

// Of the window in front, in the order in which they were made.
std::vector<HWND> ControlsInFront() {
    std::vector<HWND> controls;
    const std::vector<HWND> windows = AddInWindows();
    if (windows.empty()) return controls;
    EnumChildWindows(windows[0], CollectControl, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

}  // namespace

bool FillFields(const std::vector<Text>& texts) {
    std::size_t filled = 0;
    for (const HWND control : ControlsInFront()) {
        if (filled == texts.size()) break;
        if (ClassOf(control) != u"Edit") continue;
        SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(texts[filled++])));
    }
    return filled == texts.size();
}

bool PushButton(const Text& caption) {
    for (const HWND control : ControlsInFront()) {
        wchar_t text[256] = L"";
        GetWindowTextW(control, text, 256);
        if (ClassOf(control) != u"Button" || ReplaceAll(FromWide(text), u"&", u"") != caption) {
            continue;
        }
        SendMessageW(control, BM_CLICK, 0, 0);
        return true;
    }
    return false;
}

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
        } else if (className == u"msctls_statusbar32") {
            // Its first part stands for it.
            wchar_t text[512] = L"";
            SendMessageW(control, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
            caption = FromWide(text);
            SendMessageW(control, SB_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
            MapWindowPoints(control, window, reinterpret_cast<POINT*>(&place), 2);
        }
        Text description = className;
        for (const LONG edge : {place.left, place.top, place.right, place.bottom}) {
            description += u" " + NumberText(std::int64_t(edge));
        }
        description += u" " +
                       NumberText(caption.empty() ? 0 : NeededWidth(control, caption, place)) +
                       u" " + caption;
        descriptions.push_back(description);
    }
    return descriptions;
}

}  // namespace tellwick::standin
