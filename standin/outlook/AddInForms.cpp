#include "outlook/AddInForms.h"

#include "outlook/Com.h"
#include "outlook/ControlDescriptions.h"

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

}  // namespace tellwick::standin
