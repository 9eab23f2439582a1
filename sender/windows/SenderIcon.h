// What the icon in the notification area says of the sender, and what its user wants from it.
#pragma once

#include "windows/Sender.h"
#include "windows/TrayIcon.h"

namespace tellwick::sender {

class SenderIcon {
public:
    // The message that the icon sends to its window.
    SenderIcon(Sender& sender, UINT message) : sender(sender), icon(message) {}

    void Add(HWND newWindow);
    void Remove() { icon.Remove(); }
    // Whether it can stand for the window.
    bool Shown() const { return icon.Shown(); }

    enum class Wish { None, Open, Switch, Settings, Exit };
    // What is wanted by its message with that second parameter; shows the menu where that is asked
    // for.
    Wish WishOf(LPARAM second) const;

    // What has failed is told of once, until the user has seen the window.
    void Failed(const Text& id);
    void Seen() {
        failed = told = 0;
        icon.HideBalloon();
    }
    void ShowFailed();
    void ShowPinWanted();
    // How many wait, in words, and why they do.
    void ShowState(const Text& waiting, const Text& why);

private:
    Wish ShowMenu() const;
    Text Counted(TextView name) const;

    Sender& sender;
    TrayIcon icon;
    HWND window = nullptr;
    std::size_t failed = 0;
    std::size_t told = 0;  // of them
    Text lastFailed;       // its id
};

}  // namespace tellwick::sender
