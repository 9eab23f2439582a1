#include "windows/DialogKeys.h"

#include "platform/Keys.h"

namespace tellwick::windows {

namespace {

// A text box of several lines would keep the tabulator for itself.
bool MoveFocus(HWND dialog, bool backwards) {
    const HWND next = GetNextDlgTabItem(dialog, GetFocus(), backwards);
    if (!next) return false;
    SendMessageW(dialog, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    FocusControl(next);
    return true;
}

// Of a text box: one that is only read leaves Enter to the default button.
bool TakesLineBreaks(LONG style) {
    constexpr LONG Both = ES_MULTILINE | ES_WANTRETURN;
    return (style & Both) == Both;
}

}  // namespace

bool IsPushButton(HWND control) {
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) &
            (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) != 0;
}

std::int32_t ShiftState() {
    const auto down = [](int virtualKey) { return GetKeyState(virtualKey) < 0; };
    return (down(VK_SHIFT) ? key::Shift : 0) | (down(VK_CONTROL) ? key::Control : 0) |
           (down(VK_MENU) ? key::Alt : 0);
}

void FocusControl(HWND control) {
    SetFocus(control);
    if (!(SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)) return;
    if (GetWindowLongW(control, GWL_STYLE) & ES_MULTILINE) return;
    SendMessageW(control, EM_SETSEL, 0, -1);
}

bool HandleDialogKey(HWND dialog, HWND defaultButton, std::int32_t keyCode, std::int32_t shift) {
    if (keyCode == VK_TAB) return MoveFocus(dialog, (shift & key::Shift) != 0);
    const HWND focus = GetFocus();
    const auto code = SendMessageW(focus, WM_GETDLGCODE, 0, 0);
    const auto style = GetWindowLongW(focus, GWL_STYLE);
    if (keyCode == 'A' && shift == key::Control && (code & DLGC_HASSETSEL)) {
        // Older systems know this key in no text box.
        SendMessageW(focus, EM_SETSEL, 0, -1);
        return true;
    }
    if (keyCode != VK_RETURN || shift != 0) return false;
    const HWND parent = GetParent(focus);
    const HWND combo = parent == dialog ? focus : parent;
    if (SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0)) return false;  // the key chooses in the list
    const bool multiLine = (code & DLGC_HASSETSEL) && TakesLineBreaks(style);
    const HWND pushed = IsPushButton(focus) ? focus : defaultButton;
    if (multiLine || !pushed || !IsWindowEnabled(pushed)) return false;
    SendMessageW(pushed, BM_CLICK, 0, 0);
    return true;
}

void DispatchDialogMessage(HWND dialog, MSG& message) {
    const bool lineBreak = (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) ||
                           (message.message == WM_CHAR && message.wParam == '\r');
    const bool multiLine = TakesLineBreaks(GetWindowLongW(message.hwnd, GWL_STYLE));
    if ((lineBreak && multiLine) || !IsDialogMessageW(dialog, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void MoveDefault(HWND defaultButton, HWND control, WORD notification) {
    const bool focused = notification == BN_SETFOCUS;
    if ((!focused && notification != BN_KILLFOCUS) || control == defaultButton) return;
    // Other controls have other notifications of these numbers.
    if (!IsPushButton(control)) return;
    SendMessageW(defaultButton, BM_SETSTYLE, focused ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON, TRUE);
    SendMessageW(control, BM_SETSTYLE, focused ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

}  // namespace tellwick::windows
