// The sender's main window, which is also where the add-ins send their messages.
#pragma once

#include "windows/Com.h"

#include "spool/SenderTexts.h"
#include "windows/MessageFont.h"
#include "windows/Sender.h"
#include "windows/SmsList.h"

namespace tellwick::sender {

class SenderWindow {
public:
    static constexpr wchar_t ClassName[] = L"TellwickSender";

    // Of a sender that has started.
    explicit SenderWindow(Sender& sender);
    SenderWindow(const SenderWindow&) = delete;
    SenderWindow& operator=(const SenderWindow&) = delete;
    ~SenderWindow();

    // Makes the window and publishes it. False when that fails.
    bool Open(bool minimised);

    // For the message loop: whether it was a key of the window's own.
    bool TakesKey(MSG& message);

    // In another process: shows the window of the sender that runs there, or has it look at the
    // queue. False when there is none, or one that is about to end.
    static bool Call(bool show);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    LRESULT Called(bool show);
    LRESULT Tick(UINT_PTR timer);
    LRESULT Notified(NMHDR& notification);
    void Command(int control);
    void Close();
    void EndWhenAtRest();

    bool CreateControls();
    HWND CreateControl(const wchar_t* className, TextView name, DWORD style, int identifier) const;
    void Arrange();
    void ShowState();
    void SendAgain();
    void Delete();
    bool Asked(TextView name) const;
    Text Words(TextView name) const { return SenderText(sender.Texts(), name); }

    Sender& sender;
    windows::MessageFont font;
    SmsList list;
    HWND window = nullptr;
    HWND listWindow = nullptr;
    HWND checkOn = nullptr;
    HWND buttonAgain = nullptr;
    HWND buttonDelete = nullptr;
    HWND status = nullptr;
    HWND lastFocus = nullptr;  // while another window is active
    bool listLoaded = false;
    Text shownStatus;
    UINT callMessage;
    bool closing = false;
    DWORD closingSince = 0;
};

}  // namespace tellwick::sender
