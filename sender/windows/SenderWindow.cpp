#include "windows/SenderWindow.h"

#include "windows/DialogKeys.h"

namespace tellwick::sender {

namespace {

constexpr wchar_t CallName[] = L"TellwickSender.Call";
constexpr LRESULT Heard = 1;
constexpr UINT AnswerTime = 2000;  // milliseconds

constexpr UINT IconMessage = WM_APP + 1;
constexpr UINT ResolutionChanged = 0x02E0;  // WM_DPICHANGED, newer than the headers used

enum TimerNumber : UINT_PTR { EndTimer = 1, RefreshTimer, StateTimer, SearchTimer };
constexpr UINT BetweenLooksAtEnd = 50;
constexpr UINT AtOnce = 10;
constexpr UINT BetweenRefreshes = 250;  // while something changes
constexpr UINT BetweenStates = 2000;
constexpr DWORD LongestEnd = 10'000;  // that an answer of the carrier is waited for

}  // namespace

SenderWindow::SenderWindow(Sender& sender)
    : sender(sender),
      list(sender.TheSpool(), sender.Texts()),
      controls(list, sender.Texts()),
      icon(sender, IconMessage),
      actions(sender, list, window),
      dialogs(sender, window),
      callMessage(RegisterWindowMessageW(CallName)),
      taskbarMessage(RegisterWindowMessageW(L"TaskbarCreated")) {
    sender.TheSpool().SetListener(
        [this](const Text& id, std::optional<State> state) { SpoolChanged(id, state); });
}

SenderWindow::~SenderWindow() {
    sender.TheSpool().SetListener({});
}

bool SenderWindow::Open(bool minimised) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hIcon = LoadIconW(type.hInstance, MAKEINTRESOURCEW(1));
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = ClassName;
    RegisterClassW(&type);
    if (!CreateWindowExW(WS_EX_CONTROLPARENT, ClassName, L"Tellwick",
                         WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, type.hInstance, this) ||
        !controls.Create(window)) {
        return false;
    }
    const SIZE size = controls.First();
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    icon.Add(window);
    SetTimer(window, StateTimer, BetweenStates, nullptr);
    if (!minimised) {
        ShowWindow(window, SW_SHOWDEFAULT);
    } else if (!icon.Shown()) {
        ShowWindow(window, SW_SHOWMINNOACTIVE);
    }
    ShowState();
    // The window shows itself before a spool of many thousand SMS is read.
    SetTimer(window, RefreshTimer, BetweenRefreshes, nullptr);
    sender.Publish(window);
    sender.Look();  // what was queued since its first look has told nobody
    return true;
}

bool SenderWindow::Call(bool show) {
    const HWND there = FindWindowW(ClassName, nullptr);
    if (!there) return false;
    DWORD process = 0;
    GetWindowThreadProcessId(there, &process);
    AllowSetForegroundWindow(process);
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(there, RegisterWindowMessageW(CallName), show, 0, SMTO_ABORTIFHUNG,
                               AnswerTime, &answer) &&
           answer == Heard;
}

LRESULT CALLBACK SenderWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        const auto* created = reinterpret_cast<const CREATESTRUCTW*>(second);
        auto* self = static_cast<SenderWindow*>(created->lpCreateParams);
        self->window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<SenderWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, first, second);
    try {
        return self->Handle(message, first, second);
    } catch (...) {
        self->sender.ReportException();
        return 0;
    }
}

LRESULT SenderWindow::Handle(UINT message, WPARAM first, LPARAM second) {
    if (message == callMessage) return Called(first != 0);
    if (message == taskbarMessage && !closing) {
        // A new one, which knows of no icon.
        icon.Add(window);
        return 0;
    }
    switch (message) {
        case WM_KEYUP: {
            // One look serves all who have signalled so far.
            MSG more;
            while (PeekMessageW(&more, window, WM_KEYUP, WM_KEYUP, PM_REMOVE)) continue;
            if (!closing) sender.Look();
            ShowState();
            return 0;
        }
        case WM_DEVICECHANGE:
            if (!closing) sender.DevicesChanged();
            return TRUE;
        case IconMessage:
            IconEvent(second);
            return 0;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_TIMER:
            return Tick(first);
        case WM_COMMAND:
            if (HIWORD(first) == BN_CLICKED) Command(LOWORD(first));
            if (HIWORD(first) == EN_CHANGE && LOWORD(first) == SenderControls::TextSearch) Search();
            return 0;
        case WM_NOTIFY:
            return Notified(*reinterpret_cast<NMHDR*>(second));
        case WM_ENDSESSION:
            if (first) sender.Publish(nullptr);
            return 0;
        case WM_DESTROY:
            icon.Remove();
            sender.Publish(nullptr);
            PostQuitMessage(0);
            return 0;
        default:
            return HandleFrame(message, first, second);
    }
}

LRESULT SenderWindow::HandleFrame(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_SIZE:
            if (first != SIZE_MINIMIZED) {
                controls.Arrange();
            } else if (icon.Shown()) {
                ShowWindow(window, SW_HIDE);
            }
            return 0;
        case WM_GETMINMAXINFO:
            controls.Limit(*reinterpret_cast<MINMAXINFO*>(second));
            return 0;
        case ResolutionChanged:
            controls.ChangeResolution(HIWORD(first), *reinterpret_cast<const RECT*>(second));
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(first) == WA_INACTIVE) lastFocus = GetFocus();
            return 0;
        case WM_SETFOCUS:
            SetFocus(lastFocus && IsChild(window, lastFocus) && IsWindowEnabled(lastFocus)
                         ? lastFocus
                         : controls.Window(SenderControls::List));
            return 0;
        default:
            return DefWindowProcW(window, message, first, second);
    }
}

LRESULT SenderWindow::Called(bool show) {
    if (closing) return 0;
    if (show) ShowUp();
    sender.Look();
    return Heard;
}

void SenderWindow::ShowUp() {
    ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(GetLastActivePopup(window));
    Refresh();
}

void SenderWindow::IconEvent(LPARAM second) {
    if (closing) return;
    switch (icon.WishOf(second)) {
        case SenderIcon::Wish::Open:
            ShowUp();
            break;
        case SenderIcon::Wish::Switch:
            sender.SwitchOn(!sender.On());
            ShowState();
            break;
        case SenderIcon::Wish::Settings:
            OpenSettings();
            break;
        case SenderIcon::Wish::Exit:
            Close();
            break;
        default:
            break;
    }
}

LRESULT SenderWindow::Tick(UINT_PTR timer) {
    switch (timer) {
        case EndTimer:
            EndWhenAtRest();
            break;
        case RefreshTimer:
            KillTimer(window, RefreshTimer);
            refreshDue = false;
            Refresh();
            break;
        case StateTimer:
            ShowState();
            LookAtPin();
            break;
        case SearchTimer:
            SearchOn();
            break;
    }
    return 0;
}

void SenderWindow::SpoolChanged(const Text& id, std::optional<State> state) {
    list.Changed(id, state);
    dialogs.SpoolChanged(id, state);
    if (state == State::Failed) icon.Failed(id);
    // Set anew by each of many changes it would never come.
    if (refreshDue || !window) return;
    refreshDue = SetTimer(window, RefreshTimer, BetweenRefreshes, nullptr) != 0;
}

void SenderWindow::Refresh() {
    if (closing) return;
    if (Seen()) {
        if (!list.Loaded()) list.Load();
        list.Refresh();
        icon.Seen();
    } else {
        icon.ShowFailed();
    }
    ShowState();
    LookAtPin();
}

bool SenderWindow::TakesListKey(WPARAM key) {
    switch (key) {
        case VK_DELETE:
            actions.Delete();
            return true;
        case VK_RETURN:
            actions.ShowDetails();
            return true;
        case 'A':
            if (GetKeyState(VK_CONTROL) >= 0) return false;
            list.ChooseAll();
            return true;
        default:
            return false;
    }
}

bool SenderWindow::TakesKey(MSG& message) {
    if (message.message == WM_KEYDOWN && IsChild(window, message.hwnd)) {
        const HWND search = controls.Window(SenderControls::TextSearch);
        const HWND listWindow = controls.Window(SenderControls::List);
        if (message.wParam == 'F' && GetKeyState(VK_CONTROL) < 0) {
            windows::FocusControl(search);
            return true;
        }
        if (message.wParam == VK_F5) {
            list.Load();
            Search();
            sender.Look();
            return true;
        }
        if (message.hwnd == listWindow && TakesListKey(message.wParam)) return true;
        if (message.hwnd == search && message.wParam == VK_ESCAPE) SetWindowTextW(search, L"");
        if (message.hwnd == search && message.wParam == VK_RETURN) SetFocus(listWindow);
        if (message.wParam == VK_RETURN && windows::IsPushButton(message.hwnd)) {
            SendMessageW(message.hwnd, BM_CLICK, 0, 0);
        }
        if (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) return true;
    }
    return IsDialogMessageW(window, &message);
}

LRESULT SenderWindow::Notified(NMHDR& notification) {
    if (notification.idFrom != SenderControls::List) return 0;
    if (notification.code == LVN_ITEMCHANGED || notification.code == LVN_ODSTATECHANGED) {
        ShowState();
    }
    if (notification.code == NM_DBLCLK) actions.ShowDetails();
    return list.Answer(notification);
}

void SenderWindow::Command(int control) {
    switch (control) {
        case SenderControls::CheckOn: {
            const HWND box = controls.Window(SenderControls::CheckOn);
            sender.SwitchOn(SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED);
            ShowState();
            break;
        }
        case SenderControls::ButtonAgain:
            actions.SendAgain();
            break;
        case SenderControls::ButtonDelete:
            actions.Delete();
            break;
        case SenderControls::ButtonSettings:
            OpenSettings();
            break;
        case SenderControls::ButtonPin:
            dialogs.OpenPin();
            break;
    }
}

void SenderWindow::ShowState() {
    if (!controls.Made() || closing) return;
    const bool on = sender.On();
    SendMessageW(controls.Window(SenderControls::CheckOn), BM_SETCHECK,
                 on ? BST_CHECKED : BST_UNCHECKED, 0);
    controls.Enable(SenderControls::ButtonAgain, actions.CanSendAgain());
    controls.Enable(SenderControls::ButtonDelete, actions.CanDelete());
    controls.ShowPinButton(sender.Pin().Asks());

    const auto counted = [this](TextView name, std::size_t count) {
        return ReplaceAll(Words(name), u"%d", NumberText(std::int64_t(count)));
    };
    const std::size_t waiting = sender.TheSpool().Waiting();
    Text why = sender.WhyNothingIsSent();
    if (on && dialogs.PinCancelled()) why += u" " + Words(u"PinHeld");
    const Text count = counted(u"CountWaiting", waiting);
    const Text found = list.Searches() ? counted(u"CountFound", list.Count()) + u"  " : Text();
    controls.SetStatus(found + count + u"  " + why);
    controls.ShowProgress(on ? waiting : 0);
    icon.ShowState(count, why);
}

void SenderWindow::LookAtPin() {
    if (closing) return;
    const bool asks = sender.Pin().Asks();
    if (Seen()) {
        dialogs.Look();
    } else if (asks && !toldPin) {
        icon.ShowPinWanted();
    }
    toldPin = asks;
}

void SenderWindow::OpenSettings() {
    ShowUp();
    dialogs.OpenSettings();
}

void SenderWindow::Search() {
    list.Search(controls.SearchedFor());
    if (list.Searches()) {
        SetTimer(window, SearchTimer, AtOnce, nullptr);
    } else {
        KillTimer(window, SearchTimer);
    }
    ShowState();
}

void SenderWindow::SearchOn() {
    if (!list.SearchMore()) KillTimer(window, SearchTimer);
    ShowState();
}

// From here on the add-ins find nobody; what is with the carrier gets its answer first.
void SenderWindow::Close() {
    if (closing) return;
    closing = true;
    closingSince = GetTickCount();
    sender.Publish(nullptr);
    sender.Rest();
    dialogs.Close();
    icon.Remove();
    ShowWindow(window, SW_HIDE);
    SetTimer(window, EndTimer, BetweenLooksAtEnd, nullptr);
}

void SenderWindow::EndWhenAtRest() {
    if (sender.UnderWay() && GetTickCount() - closingSince < LongestEnd) return;
    DestroyWindow(window);
}

}  // namespace tellwick::sender
