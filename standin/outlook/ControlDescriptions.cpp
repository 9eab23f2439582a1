#include "outlook/ControlDescriptions.h"

#include <commctrl.h>

#include <algorithm>

#include "outlook/Com.h"

namespace tellwick::standin {

namespace {

// Measures texts in a control's font.
class Ruler {
public:
    Ruler(HWND control, int resolutionOfOther)
        : control(control),
          screen(GetDC(control)),
          resolution(resolutionOfOther ? resolutionOfOther : ScreenResolution()) {
        if (resolutionOfOther) {
            NONCLIENTMETRICSW system{};
            system.cbSize = sizeof system;
            SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0);
            LOGFONTW& font = system.lfMessageFont;
            font.lfHeight = MulDiv(font.lfHeight, resolution, ScreenResolution());
            others = CreateFontIndirectW(&font);
        }
        const auto own = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
        previous = SelectObject(screen, others ? others : own);
    }
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;
    ~Ruler() {
        SelectObject(screen, previous);
        ReleaseDC(control, screen);
        DeleteObject(others);
    }

    RECT Measure(const Text& text, UINT format, LONG width = 0) const {
        RECT area{0, 0, width, 0};
        DrawTextW(screen, Wide(text), -1, &area, DT_CALCRECT | format);
        return area;
    }
    int Pixels(int at96) const { return MulDiv(at96, resolution, 96); }

private:
    HWND control;
    HDC screen;
    int resolution;
    HFONT others = nullptr;
    HGDIOBJ previous = nullptr;
};

bool IsDropDownList(HWND control) {
    return ClassOf(control) == u"ComboBox" &&
           (GetWindowLongW(control, GWL_STYLE) & 3) == CBS_DROPDOWNLIST;
}

// Of the text and what the control draws beside it. A text of several lines needs the width that
// it has, or more when it does not fit.
int NeededWidth(HWND control, const Text& caption, const RECT& place, const Ruler& ruler) {
    const RECT line = ruler.Measure(caption, DT_SINGLELINE);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const auto code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    if ((code & DLGC_STATIC) && ClassOf(control) == u"Static" &&
        (style & SS_ELLIPSISMASK) == SS_ENDELLIPSIS) {
        return 0;
    }
    if ((code & DLGC_STATIC) && height >= 2 * line.bottom) {
        const RECT lines = ruler.Measure(caption, DT_WORDBREAK, width);
        return lines.bottom <= height ? lines.right : width + 1;
    }
    const LONG type = style & BS_TYPEMASK;
    int beside = 0;
    if (code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) beside = 8;
    if ((code & DLGC_BUTTON) && (type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON)) {
        beside = 18;
    }
    if (IsDropDownList(control)) beside = 22;
    return line.right + ruler.Pixels(beside);
}

Text TextOf(HWND control) {
    wchar_t text[1024] = L"";
    // Whatever program it belongs to.
    SendMessageW(control, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
    return FromWide(text);
}

Text WidestEntry(HWND list, const Ruler& ruler) {
    Text widest;
    const auto count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry) {
        wchar_t text[512] = L"";
        if (SendMessageW(list, CB_GETLBTEXTLEN, WPARAM(entry), 0) >= 512) continue;
        SendMessageW(list, CB_GETLBTEXT, WPARAM(entry), reinterpret_cast<LPARAM>(text));
        const LONG width = ruler.Measure(widest, DT_SINGLELINE | DT_NOPREFIX).right;
        if (ruler.Measure(FromWide(text), DT_SINGLELINE | DT_NOPREFIX).right > width) {
            widest = FromWide(text);
        }
    }
    return widest;
}

}  // namespace

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

std::vector<Text> DescribeControls(HWND window, int resolutionOfOther) {
    std::vector<Text> descriptions;
    for (HWND control = GetWindow(window, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsWindowVisible(control)) continue;
        const Ruler ruler(control, resolutionOfOther);
        RECT place;
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        const Text className = ClassOf(control);
        Text caption;
        if (className == u"Button" || className == u"Static") {
            caption = TextOf(control);
        } else if (IsDropDownList(control)) {
            caption = WidestEntry(control, ruler);
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
        description +=
            u" " + NumberText(caption.empty() ? 0 : NeededWidth(control, caption, place, ruler));
        descriptions.push_back(description + u" " + caption);
    }
    return descriptions;
}

}  // namespace tellwick::standin
