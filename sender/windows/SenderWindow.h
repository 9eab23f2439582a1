// The sender's main window, which is also where the add-ins send their messages. Minimised it is
// only an icon in the notification area.
#pragma once

#include "windows/Com.h"

#include "spool/SenderTexts.h"
#include "windows/Sender.h"
#include "windows/SenderControls.h"
#include "windows/SenderDialogs.h"
#include "windows/SenderIcon.h"
#include "windows/SmsActions.h"
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
    LRESULT HandleFrame(UINT message, WPARAM first, LPARAM second);
    LRESULT Called(bool show);
    LRESULT Tick(UINT_PTR timer);
    LRESULT Notified(NMHDR& notification);
    void SpoolChanged(const Text& id, std::optional<State> state);
    void Command(int control);
    bool TakesListKey(WPARAM key);
    void Close();
    void EndWhenAtRest();

    bool Seen() const { return IsWindowVisible(window) && !IsIconic(window); }
    void ShowUp();
    void IconEvent(LPARAM second);

    void Refresh();
    void ShowState();
    void LookAtPin();
    void OpenSettings();
    void Search();
    void SearchOn();
    Text Words(TextView name) const { return SenderText(sender.Texts(), name); }

    Sender& sender;
    HWND window = nullptr;
    SmsList list;
    SenderControls controls;
    SenderIcon icon;
    SmsActions actions;
    SenderDialogs dialogs;
    HWND lastFocus = nullptr;  // while another window is active

    bool toldPin = false;
    bool refreshDue = false;

    UINT callMessage;
    UINT taskbarMessage;
    bool closing = false;
    DWORD closingSince = 0;
};

}  // namespace tellwick::sender
