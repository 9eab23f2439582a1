#include "windows/TrayIcon.h"

#include <algorithm>

namespace tellwick::sender {

namespace {

constexpr UINT OnlyIcon = 1;
constexpr int ProgramIcon = 1;  // the resource

// Newer than the oldest system, which does not send it.
constexpr UINT BalloonClicked = WM_USER + 5;

template <std::size_t Size>
void Copy(TextView text, wchar_t (&field)[Size]) {
    const std::size_t length = std::min(text.size(), Size - 1);
    std::copy_n(text.begin(), length, field);
    field[length] = 0;
}

}  // namespace

NOTIFYICONDATAW TrayIcon::Data(UINT flags) const {
    NOTIFYICONDATAW data{};
    // What all systems from Windows 2000 on know.
    data.cbSize = NOTIFYICONDATAW_V2_SIZE;
    data.hWnd = window;
    data.uID = OnlyIcon;
    data.uFlags = flags;
    data.uCallbackMessage = message;
    data.hIcon = icon.get();
    Copy(tip, data.szTip);
    return data;
}

void TrayIcon::Add(HWND newWindow) {
    window = newWindow;
    if (!icon) icon = windows::LoadLibraryIcon(ProgramIcon, GetSystemMetrics(SM_CXSMICON));
    NOTIFYICONDATAW data = Data(NIF_ICON | NIF_MESSAGE | NIF_TIP);
    shown = Shell_NotifyIconW(NIM_ADD, &data) || Shell_NotifyIconW(NIM_MODIFY, &data);
}

void TrayIcon::Remove() {
    NOTIFYICONDATAW data = Data(0);
    if (std::exchange(shown, false)) Shell_NotifyIconW(NIM_DELETE, &data);
}

void TrayIcon::SetTip(TextView newTip) {
    if (tip == newTip) return;
    tip = newTip;
    NOTIFYICONDATAW data = Data(NIF_TIP);
    if (shown) Shell_NotifyIconW(NIM_MODIFY, &data);
}

void TrayIcon::ShowBalloon(TextView title, TextView text) {
    NOTIFYICONDATAW data = Data(NIF_INFO);
    data.dwInfoFlags = NIIF_WARNING;
    data.uTimeout = 10'000;
    Copy(title, data.szInfoTitle);
    Copy(text, data.szInfo);
    if (shown) Shell_NotifyIconW(NIM_MODIFY, &data);
    balloon = !text.empty();
}

void TrayIcon::HideBalloon() {
    // One without a text takes away the one that is there.
    if (balloon) ShowBalloon({}, {});
}

TrayIcon::Event TrayIcon::EventOf(LPARAM second) {
    switch (LOWORD(second)) {
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:  // or the Enter key
        case BalloonClicked:
            return Event::Open;
        case WM_RBUTTONUP:
            return Event::Menu;
        default:
            return Event::None;
    }
}

}  // namespace tellwick::sender
