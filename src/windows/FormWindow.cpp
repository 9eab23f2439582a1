#include "windows/FormWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/Keys.h"
#include "windows/Server.h"
#include "windows/VisualStyles.h"

namespace tellwick::windows {

namespace {

constexpr const wchar_t* FormClass = L"TellwickForm";

// The forms whose windows exist, and the hook that serves them. Outlook's thread only.
std::vector<FormWindow*> openForms;
HHOOK hook = nullptr;

bool RegisterFormClass() {
    WNDCLASSEXW form{};
    form.cbSize = sizeof form;
    if (GetClassInfoExW(Library(), FormClass, &form)) return true;
    form.lpfnWndProc = DefWindowProcW;  // replaced when the window is made
    form.hInstance = Library();
    form.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    form.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    form.lpszClassName = FormClass;
    return RegisterClassExW(&form) != 0;
}

std::int32_t ShiftState() {
    const auto down = [](int virtualKey) { return GetKeyState(virtualKey) < 0; };
    return (down(VK_SHIFT) ? key::Shift : 0) | (down(VK_CONTROL) ? key::Control : 0) |
           (down(VK_MENU) ? key::Alt : 0);
}

}  // namespace

MessageFont::MessageFont() {
    NONCLIENTMETRICSW system{};
    system.cbSize = sizeof system;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0);
    font.reset(CreateFontIndirectW(&system.lfMessageFont));
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(screen, font.get());
    constexpr wchar_t Letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    SIZE size{};
    GetTextExtentPoint32W(screen, Letters, 52, &size);
    metrics = {int(size.cy), int((size.cx / 26 + 1) / 2)};
    SelectObject(screen, previous);
    ReleaseDC(nullptr, screen);
}

SIZE MessageFont::Measure(TextView text, int width) const {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(screen, font.get());
    RECT area{0, 0, width, 0};
    DrawTextW(screen, reinterpret_cast<const wchar_t*>(text.data()), int(text.size()), &area,
              UINT(DT_CALCRECT) | (width > 0 ? DT_WORDBREAK : 0u));
    SelectObject(screen, previous);
    ReleaseDC(nullptr, screen);
    return {area.right, area.bottom};
}

FormWindow::FormWindow(SIZE leastDialogUnits) : leastDialogUnits(leastDialogUnits) {}

FormWindow::~FormWindow() {
    Destroy();
}

HWND FormWindow::ActiveWindow() {
    return GetActiveWindow();
}

bool FormWindow::Create(const std::vector<ControlPlan>& plan) {
    if (window) return true;
    const VisualStyles styles;
    INITCOMMONCONTROLSEX common{sizeof common, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&common);
    font = std::make_unique<MessageFont>();
    if (!RegisterFormClass()) return false;
    const FontMetrics& metrics = font->Metrics();
    window = CreateWindowExW(
        WS_EX_CONTROLPARENT, FormClass, nullptr, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
        CW_USEDEFAULT, CW_USEDEFAULT, metrics.Horizontal(leastDialogUnits.cx * 5 / 4),
        metrics.Vertical(leastDialogUnits.cy * 5 / 4), nullptr, nullptr, Library(), nullptr);
    if (!window) return false;
    lifetime = std::make_unique<Lifetime>();
    const HWND toolTips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0,
                        0, window, nullptr, Library(), nullptr);
    controls = plan;
    for (const ControlPlan& part : controls) {
        const HWND control =
            CreateWindowExW(part.extendedStyle, part.windowClass, nullptr,
                            WS_CHILD | part.style | (part.visible ? WS_VISIBLE : 0u), 0, 0, 0, 0,
                            window, nullptr, Library(), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), FALSE);
        part.control->Attach(control, toolTips);
    }
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure));
    openForms.push_back(this);
    if (!hook) hook = SetWindowsHookExW(WH_GETMESSAGE, &MessageHook, nullptr, GetCurrentThreadId());
    return true;
}

void FormWindow::Destroy() {
    if (!window) return;
    const HWND destroyed = std::exchange(window, nullptr);
    SetWindowLongPtrW(destroyed, GWLP_USERDATA, 0);
    for (const ControlPlan& part : controls) part.control->Detach();
    lastFocus = nullptr;
    DestroyWindow(destroyed);
    std::erase(openForms, this);
    if (openForms.empty() && hook) UnhookWindowsHookEx(std::exchange(hook, nullptr));
    lifetime.reset();
}

void FormWindow::ShowWindowed() {
    if (!window) return;
    ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(window);
}

FormPlace FormWindow::WindowPlace() const {
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

void FormWindow::SetWindowPlace(const FormPlace& place) {
    if (!window) return;
    RECT wanted;
    GetWindowRect(window, &wanted);
    const int width = place.width > 0 ? place.width : int(wanted.right - wanted.left);
    const int height = place.height > 0 ? place.height : int(wanted.bottom - wanted.top);
    if (place.left > 0) wanted.left = place.left;
    if (place.top > 0) wanted.top = place.top;
    wanted.right = wanted.left + width;
    wanted.bottom = wanted.top + height;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    const LONG left = std::max(area.left, std::min(wanted.left, area.right - width));
    const LONG top = std::max(area.top, std::min(wanted.top, area.bottom - height));
    SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::SetWindowCaption(TextView caption) {
    if (window) SetWindowTextW(window, Wide(Text(caption)));
}

void FormWindow::VisitControls(const std::function<void(TextView, Control&)>& visit) {
    for (const ControlPlan& part : controls) visit(part.name, *part.control);
}

int FormWindow::CaptionWidth(const WindowControl& control) const {
    return font->Measure(control.Caption()).cx + font->Metrics().Horizontal(12);
}

void FormWindow::Move(const WindowControl& control, int x, int y, int width, int height) {
    MoveWindow(control.Window(), x, y, std::max(width, 0), std::max(height, 0), TRUE);
}

LRESULT CALLBACK FormWindow::WindowProcedure(HWND window, UINT message, WPARAM first,
                                             LPARAM second) {
    const Lifetime running;
    auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        if (form) return form->Handle(message, first, second);
    } catch (...) {
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT FormWindow::Handle(UINT message, WPARAM first, LPARAM second) {
    const HWND own = window;
    switch (message) {
        case WM_ACTIVATE:
            if (LOWORD(first) == WA_INACTIVE) {
                lastFocus = IsChild(own, GetFocus()) ? GetFocus() : lastFocus;
            } else {
                ::SetFocus(lastFocus ? lastFocus : GetNextDlgTabItem(own, nullptr, FALSE));
                OnActivate();
            }
            return 0;
        case WM_SETFOCUS:
            ::SetFocus(lastFocus ? lastFocus : GetNextDlgTabItem(own, nullptr, FALSE));
            return 0;
        case WM_CLOSE:
            OnClose();
            return 0;
        case WM_SIZE:
            if (first != SIZE_MINIMIZED) OnSize();
            return 0;
        case WM_GETMINMAXINFO: {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(second);
            limits.ptMinTrackSize = {font->Metrics().Horizontal(leastDialogUnits.cx),
                                     font->Metrics().Vertical(leastDialogUnits.cy)};
            return 0;
        }
        case WM_COMMAND:
            if (second) OnCommand(reinterpret_cast<HWND>(second), HIWORD(first));
            return 0;
        default:
            return DefWindowProcW(own, message, first, second);
    }
}

LRESULT CALLBACK FormWindow::MessageHook(int code, WPARAM removal, LPARAM parameter) {
    const Lifetime running;
    try {
        auto& message = *reinterpret_cast<MSG*>(parameter);
        if (code >= 0 && removal == PM_REMOVE) {
            for (FormWindow* form : std::vector<FormWindow*>(openForms)) {
                const HWND window = form->window;
                if (!window || (message.hwnd != window && !IsChild(window, message.hwnd))) continue;
                // The host's loop does not know this window and must not see its keys.
                if (form->HandleInput(message)) message.message = WM_NULL;
                break;
            }
        }
    } catch (...) {
    }
    return CallNextHookEx(hook, code, removal, parameter);
}

bool FormWindow::HandleInput(MSG& message) {
    if (message.message == WM_LBUTTONDBLCLK) return OnDoubleClick(message.hwnd);
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    if (message.message == WM_KEYDOWN) {
        const std::int32_t shift = ShiftState();
        const auto keyCode = std::int32_t(message.wParam);
        // The key that submits has typed its line break by the time the form looks at the text.
        if (keyCode == VK_RETURN && shift == key::Control) TranslateMessage(&message);
        if (OnKeyDown(keyCode, shift)) return true;
        if (!window) return true;
        if (keyCode == VK_TAB && MoveFocus((shift & key::Shift) != 0)) return true;
    }
    if (message.message == WM_CHAR && OnCharacter(char16_t(message.wParam))) return true;
    const bool lineBreak = (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) ||
                           (message.message == WM_CHAR && message.wParam == '\r');
    const bool multiLine = (GetWindowLongW(message.hwnd, GWL_STYLE) &
                            (ES_MULTILINE | ES_WANTRETURN)) == (ES_MULTILINE | ES_WANTRETURN);
    if ((lineBreak && multiLine) || !IsDialogMessageW(window, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

// A text box of several lines would keep the tabulator for itself.
bool FormWindow::MoveFocus(bool backwards) {
    const HWND next = GetNextDlgTabItem(window, GetFocus(), backwards);
    if (!next) return false;
    ::SetFocus(next);
    if (SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) {
        if (!(GetWindowLongW(next, GWL_STYLE) & ES_MULTILINE)) SendMessageW(next, EM_SETSEL, 0, -1);
    }
    return true;
}

}  // namespace tellwick::windows
