#include "windows/SenderWindow.h"

#include <algorithm>

namespace tellwick::sender {

namespace {

constexpr wchar_t CallName[] = L"TellwickSender.Call";
constexpr LRESULT Heard = 1;
constexpr UINT AnswerTime = 2000;  // milliseconds

enum TimerNumber : UINT_PTR { EndTimer = 1, RefreshTimer, StateTimer };
constexpr UINT BetweenLooksAtEnd = 50;
constexpr UINT BetweenRefreshes = 250;  // while something changes
constexpr UINT BetweenStates = 2000;    // while the window is to be seen
constexpr DWORD LongestEnd = 10'000;    // that an answer of the carrier is waited for

enum Identifier { CheckOn = 100, ButtonAgain, ButtonDelete, List, Status };

// In dialog units.
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;
constexpr int LeastWidth = 260;
constexpr int LeastHeight = 120;
constexpr int FirstWidth = 600;
constexpr int FirstHeight = 220;

}  // namespace

SenderWindow::SenderWindow(Sender& sender)
    : sender(sender),
      list(sender.TheSpool(), sender.Texts()),
      callMessage(RegisterWindowMessageW(CallName)) {
    sender.TheSpool().SetListener([this](const Text& id, std::optional<State> state) {
        list.Changed(id, state);
        if (window) SetTimer(window, RefreshTimer, BetweenRefreshes, nullptr);
    });
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
    if (!CreateWindowExW(WS_EX_CONTROLPARENT, ClassName, L"Tellwick", WS_OVERLAPPEDWINDOW,
                         CW_USEDEFAULT, CW_USEDEFAULT, font.Metrics().Horizontal(FirstWidth),
                         font.Metrics().Vertical(FirstHeight), nullptr, nullptr, type.hInstance,
                         this) ||
        !CreateControls()) {
        return false;
    }
    Arrange();
    ShowState();
    SetTimer(window, RefreshTimer, BetweenRefreshes, nullptr);
    ShowWindow(window, minimised ? SW_SHOWMINNOACTIVE : SW_SHOWDEFAULT);
    sender.Publish(window);
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
        case WM_CLOSE:
            Close();
            return 0;
        case WM_TIMER:
            return Tick(first);
        case WM_COMMAND:
            if (HIWORD(first) == BN_CLICKED) Command(LOWORD(first));
            return 0;
        case WM_NOTIFY:
            return Notified(*reinterpret_cast<NMHDR*>(second));
        case WM_SIZE:
            if (first == SIZE_MINIMIZED) {
                KillTimer(window, StateTimer);
            } else {
                Arrange();
                ShowState();
                SetTimer(window, StateTimer, BetweenStates, nullptr);
            }
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {
                font.Metrics().Horizontal(LeastWidth), font.Metrics().Vertical(LeastHeight)};
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(first) == WA_INACTIVE) lastFocus = GetFocus();
            return 0;
        case WM_SETFOCUS:
            SetFocus(lastFocus && IsChild(window, lastFocus) ? lastFocus : listWindow);
            return 0;
        case WM_ENDSESSION:
            if (first) sender.Publish(nullptr);
            return 0;
        case WM_DESTROY:
            sender.Publish(nullptr);
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, first, second);
    }
}

LRESULT SenderWindow::Called(bool show) {
    if (closing) return 0;
    if (show) {
        ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
        SetForegroundWindow(window);
    }
    sender.Look();
    return Heard;
}

LRESULT SenderWindow::Tick(UINT_PTR timer) {
    switch (timer) {
        case EndTimer:
            EndWhenAtRest();
            break;
        case RefreshTimer:
            KillTimer(window, RefreshTimer);
            if (!listLoaded) list.Load();
            listLoaded = true;
            list.Refresh();
            ShowState();
            break;
        case StateTimer:
            ShowState();
            break;
        default:
            break;
    }
    return 0;
}

bool SenderWindow::TakesKey(MSG& message) {
    if (message.message == WM_KEYDOWN && message.hwnd == listWindow) {
        if (message.wParam == VK_DELETE) {
            Delete();
            return true;
        }
        if (message.wParam == 'A' && GetKeyState(VK_CONTROL) < 0) {
            list.ChooseAll();
            return true;
        }
    }
    return IsDialogMessageW(window, &message);
}

LRESULT SenderWindow::Notified(NMHDR& notification) {
    if (notification.idFrom != List) return 0;
    if (notification.code == LVN_ITEMCHANGED || notification.code == LVN_ODSTATECHANGED) {
        ShowState();
    }
    return list.Answer(notification);
}

void SenderWindow::Command(int control) {
    switch (control) {
        case CheckOn:
            sender.SwitchOn(SendMessageW(checkOn, BM_GETCHECK, 0, 0) == BST_CHECKED);
            ShowState();
            break;
        case ButtonAgain:
            SendAgain();
            break;
        case ButtonDelete:
            Delete();
            break;
        default:
            return;
    }
    // The button may have nothing left to do.
    if (control != CheckOn) SetFocus(listWindow);
}

HWND SenderWindow::CreateControl(const wchar_t* className, TextView name, DWORD style,
                                 int identifier) const {
    const HWND control =
        CreateWindowExW(0, className, windows::Wide(Words(name)), WS_CHILD | WS_VISIBLE | style, 0,
                        0, 0, 0, window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    return control;
}

// In the order of the Tab key.
bool SenderWindow::CreateControls() {
    checkOn = CreateControl(L"BUTTON", u"CheckOn", WS_TABSTOP | BS_AUTOCHECKBOX, CheckOn);
    buttonAgain = CreateControl(L"BUTTON", u"ButtonAgain", WS_TABSTOP, ButtonAgain);
    buttonDelete = CreateControl(L"BUTTON", u"ButtonDelete", WS_TABSTOP, ButtonDelete);
    listWindow = list.Create(window, List, font);
    status = CreateControl(L"STATIC", {}, SS_NOPREFIX | SS_ENDELLIPSIS, Status);
    return listWindow && checkOn && buttonAgain && buttonDelete && status;
}

void SenderWindow::Arrange() {
    if (!status) return;
    RECT client;
    GetClientRect(window, &client);
    const windows::FontMetrics& metrics = font.Metrics();
    const int margin = metrics.Horizontal(Margin);
    const int gap = metrics.Horizontal(Gap);
    const int height = metrics.Vertical(ButtonHeight);
    const int width = int(client.right) - 2 * margin;
    int left = margin;
    for (const auto& [control, name] : {std::pair<HWND, TextView>{checkOn, u"CheckOn"},
                                        {buttonAgain, u"ButtonAgain"},
                                        {buttonDelete, u"ButtonDelete"}}) {
        const int own = font.CaptionWidth(Words(name)) + (control == checkOn ? height : 0);
        MoveWindow(control, left, margin, own, height, TRUE);
        left += own + gap;
    }
    const int top = margin + height + gap;
    const int bottom = int(client.bottom) - margin - metrics.lineHeight;
    MoveWindow(listWindow, margin, top, width, std::max(0, bottom - gap - top), TRUE);
    MoveWindow(status, margin, bottom, width, metrics.lineHeight, TRUE);
}

void SenderWindow::ShowState() {
    if (!status || closing) return;
    const bool on = sender.On();
    SendMessageW(checkOn, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    const std::vector<SmsList::Row> chosen = list.Chosen();
    const auto any = [&](auto... states) {
        return std::any_of(chosen.begin(), chosen.end(),
                           [&](const SmsList::Row& row) { return ((row.state == states) || ...); });
    };
    EnableWindow(buttonAgain, any(State::Failed, State::Unsure, State::Sent));
    EnableWindow(buttonDelete, any(State::Failed, State::Unsure, State::Sent, State::Waiting));
    const Text waiting = NumberText(std::int64_t(sender.TheSpool().Waiting()));
    Text text = ReplaceAll(Words(u"CountWaiting"), u"%d", waiting) + u"  " +
                (on ? InWords(sender.Away(), sender.Texts()) : Words(u"IsOff"));
    if (text == shownStatus) return;
    shownStatus = std::move(text);
    SetWindowTextW(status, windows::Wide(shownStatus));
}

bool SenderWindow::Asked(TextView name) const {
    return MessageBoxW(window, windows::Wide(Words(name)), L"Tellwick",
                       MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void SenderWindow::SendAgain() {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    const bool unsure = std::any_of(chosen.begin(), chosen.end(), [](const SmsList::Row& row) {
        return row.state == State::Unsure;
    });
    if (unsure && !Asked(u"AskAgain")) return;
    // The oldest one goes first. One that has changed meanwhile is no longer what was chosen.
    std::for_each(chosen.rbegin(), chosen.rend(), [this](const SmsList::Row& row) {
        sender.TheSpool().SendAgain(row.state, row.id);
    });
    sender.Look();
}

void SenderWindow::Delete() {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    if (chosen.empty() || !Asked(u"AskDelete")) return;
    for (const SmsList::Row& row : chosen) sender.TheSpool().Delete(row.state, row.id);
}

// From here on the add-ins find nobody; what is with the carrier gets its answer first.
void SenderWindow::Close() {
    if (closing) return;
    closing = true;
    closingSince = GetTickCount();
    sender.Publish(nullptr);
    sender.Rest();
    ShowWindow(window, SW_HIDE);
    SetTimer(window, EndTimer, BetweenLooksAtEnd, nullptr);
}

void SenderWindow::EndWhenAtRest() {
    if (sender.UnderWay() && GetTickCount() - closingSince < LongestEnd) return;
    DestroyWindow(window);
}

}  // namespace tellwick::sender
