#include "windows/FormWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>

#include "platform/Keys.h"
#include "windows/DialogKeys.h"
#include "windows/Server.h"
#include "windows/VisualStyles.h"

namespace tellwick::windows {

namespace {

constexpr int ProgramIcon = 1;  // the resource
constexpr const wchar_t* FormClass = L"TellwickForm";
constexpr UINT ResolutionChanged = 0x02E0;  // WM_DPICHANGED, newer than the headers used

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

BOOL CALLBACK DestroyForm(HWND window, LPARAM) {
    wchar_t name[32]{};
    GetClassNameW(window, name, int(std::size(name)));
    const auto maker = reinterpret_cast<HMODULE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
    if (maker == Library() && std::wstring_view(name) == FormClass) DestroyWindow(window);
    return TRUE;
}

// An open menu has keys and mouse for itself.
bool InMenu() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    constexpr DWORD Menu = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & Menu) != 0;
}

}  // namespace

FormWindow::~FormWindow() {
    // The controls were the derived window's, and are gone.
    controls.Forget();
    Destroy();
    // The library goes: what the message loop had no turn for goes before.
    EnumThreadWindows(GetCurrentThreadId(), &DestroyForm, 0);
}

HWND FormWindow::ActiveWindow() {
    return GetActiveWindow();
}

bool FormWindow::Create(const std::vector<ControlPlan>& plan, HWND owner) {
    if (window) return true;
    const VisualStyles styles;
    INITCOMMONCONTROLSEX common{sizeof common,
                                ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&common);
    if (!RegisterFormClass()) return false;
    placed = false;
    caller = owner ? owner : ActiveWindow();
    // Where the caller is, so that it is made for that monitor's resolution.
    RECT around{};
    if (caller) GetWindowRect(caller, &around);
    constexpr DWORD Dialog = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    window = CreateWindowExW(WS_EX_CONTROLPARENT | (owner ? WS_EX_DLGMODALFRAME : 0), FormClass,
                             nullptr, (owner ? Dialog : WS_OVERLAPPEDWINDOW) | WS_CLIPCHILDREN,
                             around.left, around.top, 0, 0, owner, nullptr, Library(), nullptr);
    if (!window) return false;
    try {
        Furnish(plan);
    } catch (...) {
        // Half of a window would be there for good.
        Destroy();
        throw;
    }
    return true;
}

void FormWindow::Furnish(const std::vector<ControlPlan>& plan) {
    font = std::make_unique<MessageFont>(ResolutionOf(window));
    LoadIcons();
    controls.Make(window, plan, *font);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure));
    open =
        std::make_unique<OpenForm>(window, [this](MSG& message) { return HandleInput(message); });
}

void FormWindow::Destroy() {
    if (!window) return;
    const HWND gone = std::exchange(window, nullptr);
    SetWindowLongPtrW(gone, GWLP_USERDATA, 0);
    SetWindowLongPtrW(gone, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
    controls.Detach();
    lastFocus = defaultButton = caller = nullptr;
    // Before the window goes: the system then activates its owner, not another program's window.
    if (const HWND owner = GetWindow(gone, GW_OWNER)) {
        EnableWindow(owner, TRUE);
        if (GetActiveWindow() == gone) SetActiveWindow(owner);
    }
    // Taking it apart can wait for the message loop's next turn, and nobody has to wait for it.
    ShowWindow(gone, SW_HIDE);
    if (!PostMessageW(gone, WM_CLOSE, 0, 0)) DestroyWindow(gone);
    open.reset();
}

void FormWindow::LoadIcons() {
    if (!bigIcon || iconResolution != font->Resolution()) {
        smallIcon = LoadLibraryIcon(ProgramIcon, font->Pixels(16));
        bigIcon = LoadLibraryIcon(ProgramIcon, font->Pixels(32));
        iconResolution = font->Resolution();
    }
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon.get()));
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(bigIcon.get()));
}

void FormWindow::ShowWindowed() {
    if (!window) return;
    if (!std::exchange(placed, true)) PlaceFirst();
    if (const HWND owner = GetWindow(window, GW_OWNER)) EnableWindow(owner, FALSE);
    ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
    // Of a window with an open dialog, the dialog, and the window right behind it.
    const HWND front = GetLastActivePopup(window);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    BringWindowToTop(front);
    SetForegroundWindow(front);
}

void FormWindow::SetWindowPlace(const FormPlace& place, bool newPositioned) {
    wanted = place;
    positioned = newPositioned;
}

SIZE FormWindow::UsualClient() const {
    const SIZE least = LeastClient();
    return {least.cx * 5 / 4, least.cy * 5 / 4};
}

void FormWindow::PlaceFirst() {
    const int resolution = font->Resolution();
    const auto move = [this] {
        MoveToFirstPlace(window, caller, wanted, positioned, LeastClient(), UsualClient());
    };
    move();
    // On its way to a monitor of another resolution the system has scaled it.
    if (font->Resolution() != resolution) move();
}

void FormWindow::ChangeResolution(int resolution, const RECT& suggested) {
    // The controls let the old font go first.
    const std::unique_ptr<MessageFont> old =
        std::exchange(font, std::make_unique<MessageFont>(resolution));
    controls.SetFont(*font);
    LoadIcons();
    OnResolution();
    const SIZE least = SizeAround(window, LeastClient());
    SetWindowPos(window, nullptr, suggested.left, suggested.top,
                 std::max(suggested.right - suggested.left, least.cx),
                 std::max(suggested.bottom - suggested.top, least.cy),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    OnSize();
    // Labels kept what was drawn in the old size.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::SetWindowCaption(TextView caption) {
    if (window) SetWindowTextW(window, Wide(Text(caption)));
}

void FormWindow::VisitControls(const std::function<void(TextView, Control&)>& visit) {
    controls.Visit(visit);
}

void FormWindow::SetDefaultButton(const WindowControl& button) {
    defaultButton = button.Window();
    SendMessageW(defaultButton, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

LRESULT CALLBACK FormWindow::WindowProcedure(HWND window, UINT message, WPARAM first,
                                             LPARAM second) {
    const Lifetime running;
    const MonitorAware aware(MonitorAware::Window);
    auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        if (form) return form->Handle(message, first, second);
    } catch (...) {
        ReportException();
        // The system would destroy the window, and the form would take it for an open one.
        if (message == WM_CLOSE) return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT FormWindow::Handle(UINT message, WPARAM first, LPARAM second) {
    const HWND own = window;
    switch (message) {
        case WM_ACTIVATE:
            if (LOWORD(first) == WA_INACTIVE) {
                lastFocus = IsChild(own, GetFocus()) ? GetFocus() : lastFocus;
                OnDeactivate();
            } else {
                ::SetFocus(lastFocus ? lastFocus : GetNextDlgTabItem(own, nullptr, FALSE));
                OnActivate();
            }
            return 0;
        case WM_QUERYENDSESSION:
            OnDeactivate();
            return TRUE;
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
            const SIZE least = SizeAround(window, LeastClient());
            limits.ptMinTrackSize = {least.cx, least.cy};
            return 0;
        }
        case ResolutionChanged:
            ChangeResolution(HIWORD(first), *reinterpret_cast<const RECT*>(second));
            return 0;
        case WM_COMMAND: {
            const HWND control = reinterpret_cast<HWND>(second);
            if (!control) return 0;
            WORD notification = HIWORD(first);
            // The second of two quick clicks is a click like any other.
            if (notification == BN_DOUBLECLICKED && IsPushButton(control)) {
                notification = BN_CLICKED;
            }
            MoveDefault(defaultButton, control, notification);
            OnCommand(control, notification, LOWORD(first));
            return 0;
        }
        case WM_NEXTDLGCTL: {
            // A mnemonic of a label leads to the control behind it, that of a button pushes it and
            // leaves the user where he is.
            const HWND next = LOWORD(second) ? reinterpret_cast<HWND>(first)
                                             : GetNextDlgTabItem(own, GetFocus(), first != 0);
            if (next && !IsPushButton(next)) FocusControl(next);
            return 0;
        }
        case WM_CTLCOLORLISTBOX:
            OnListDrawn(reinterpret_cast<HWND>(second));
            return DefWindowProcW(own, message, first, second);
        case WM_NOTIFY:
            if (const LRESULT answer = OnNotify(*reinterpret_cast<const NMHDR*>(second)))
                return answer;
            return DefWindowProcW(own, message, first, second);
        default:
            return DefWindowProcW(own, message, first, second);
    }
}

bool FormWindow::HandleInput(MSG& message) {
    const bool isInput = (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) ||
                         (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST);
    if (isInput && InMenu()) return false;
    if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST)
        controls.RelayMouse(message);
    if (message.message == WM_LBUTTONDBLCLK) return OnDoubleClick(message.hwnd);
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    if (message.message == WM_KEYDOWN) {
        const std::int32_t shift = ShiftState();
        const auto keyCode = std::int32_t(message.wParam);
        // The key that submits has typed its line break by the time the form looks at the text.
        if (keyCode == VK_RETURN && shift == key::Control) TranslateMessage(&message);
        if (OnKeyDown(keyCode, shift) || !window) return true;
        if (HandleDialogKey(window, defaultButton, keyCode, shift)) return true;
    }
    if (message.message == WM_CHAR && OnCharacter(char16_t(message.wParam))) return true;
    DispatchDialogMessage(window, message);
    return true;
}

}  // namespace tellwick::windows
