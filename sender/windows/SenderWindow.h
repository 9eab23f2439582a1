// The sender's main window, which is also where the add-ins send their messages.
#pragma once

#include "windows/Com.h"

#include "windows/Sender.h"

namespace tellwick::sender {

class SenderWindow {
public:
    static constexpr wchar_t ClassName[] = L"TellwickSender";

    explicit SenderWindow(Sender& sender);
    SenderWindow(const SenderWindow&) = delete;
    SenderWindow& operator=(const SenderWindow&) = delete;

    // Makes the window and publishes it. False when that fails.
    bool Open(bool minimised);

    // For the message loop: whether it was a key of the window's own.
    bool TakesKey(MSG& message) const { return IsDialogMessageW(window, &message); }

    // In another process: shows the window of the sender that runs there, or has it look at the
    // queue. False when there is none, or one that is about to end.
    static bool Call(bool show);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    LRESULT Called(bool show);
    void Close();
    void EndWhenAtRest();

    Sender& sender;
    HWND window = nullptr;
    UINT callMessage;
    bool closing = false;
    DWORD closingSince = 0;
};

}  // namespace tellwick::sender
