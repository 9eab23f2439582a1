#include "windows/SenderWindow.h"

namespace tellwick::sender {

namespace {

constexpr wchar_t CallName[] = L"TellwickSender.Call";
constexpr LRESULT Heard = 1;
constexpr UINT AnswerTime = 2000;  // milliseconds
constexpr UINT_PTR EndTimer = 1;
constexpr UINT BetweenLooksAtEnd = 50;
constexpr DWORD LongestEnd = 10'000;  // that an answer of the carrier is waited for

}  // namespace

SenderWindow::SenderWindow(Sender& sender)
    : sender(sender), callMessage(RegisterWindowMessageW(CallName)) {}

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
                         CW_USEDEFAULT, CW_USEDEFAULT, 700, 400, nullptr, nullptr, type.hInstance,
                         this)) {
        return false;
    }
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
        case WM_KEYUP:
            if (!closing) sender.Look();
            return 0;
        case WM_DEVICECHANGE:
            if (!closing) sender.DevicesChanged();
            return TRUE;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_TIMER:
            if (first == EndTimer) EndWhenAtRest();
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

// From here on the add-ins find nobody; what is with the carrier gets its answer first.
void SenderWindow::Close() {
    if (closing) return;
    closing = true;
    closingSince = GetTickCount();
    sender.Publish(nullptr);
    sender.Rest();
    ShowWindow(window, SW_HIDE);
    SetTimer(window, EndTimer, BetweenLooksAtEnd, nullptr);
    EndWhenAtRest();
}

void SenderWindow::EndWhenAtRest() {
    if (sender.UnderWay() && GetTickCount() - closingSince < LongestEnd) return;
    DestroyWindow(window);
}

}  // namespace tellwick::sender
