// The sender's icon in the notification area.
#pragma once

#include "windows/Com.h"

#include <shellapi.h>

namespace tellwick::sender {

class TrayIcon {
public:
    // What the user does with it, as its window hears of it.
    enum class Event { None, Open, Menu };

    // The message that the icon sends to its window.
    explicit TrayIcon(UINT message) : message(message) {}
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;
    ~TrayIcon() { Remove(); }

    // Puts it there; again whenever the taskbar is a new one. Where there is none it is shown
    // later.
    void Add(HWND newWindow);
    void Remove();
    // Whether the icon can be used to open the window again.
    bool Shown() const { return shown; }

    void SetTip(TextView newTip);
    // A warning.
    void ShowBalloon(TextView title, TextView text);
    // Once its user knows.
    void HideBalloon();

    // What the message's second parameter says.
    static Event EventOf(LPARAM second);

private:
    NOTIFYICONDATAW Data(UINT flags) const;

    UINT message;
    HWND window = nullptr;
    windows::IconHandle icon;
    Text tip;
    bool shown = false;
    bool balloon = false;  // one was shown
};

}  // namespace tellwick::sender
