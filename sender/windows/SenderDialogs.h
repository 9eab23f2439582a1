// The dialogs of the sender's window: one at a time.
#pragma once

#include "forms/FormPin.h"
#include "forms/FormSettings.h"
#include "windows/FormPinWindow.h"
#include "windows/FormSettingsWindow.h"
#include "windows/Sender.h"

namespace tellwick::sender {

class SenderDialogs {
public:
    // The owner is there whenever one of them is open.
    SenderDialogs(Sender& sender, const HWND& owner);

    void OpenSettings();
    void OpenPin();
    // To be called now and then while the window is to be seen: asks for a PIN that is wanted, and
    // says what has become of the test SMS.
    void Look();
    void SpoolChanged(const Text& id, std::optional<State> state);
    // Whether a PIN is wanted that the user does not want to enter.
    bool PinCancelled() const { return formPin.Cancelled(); }
    void Close();

private:
    bool SendTest(TextView number, TextView text);
    Text TestState();

    Sender& sender;
    FormSettingsWindow settingsWindow;
    FormSettings formSettings;
    FormPinWindow pinWindow;
    FormPin formPin;

    Text testId;
    State testState = State::Waiting;
};

}  // namespace tellwick::sender
