#include "windows/SenderDialogs.h"

#include "spool/SenderTexts.h"
#include "windows/SmsList.h"

namespace tellwick::sender {

SenderDialogs::SenderDialogs(Sender& sender, const HWND& owner)
    : sender(sender),
      settingsWindow(owner),
      formSettings(settingsWindow, sender.Settings(), sender.Texts(), sender.TheSecrets(),
                   {[&sender] { sender.SettingsChanged(); },
                    [this](TextView number, TextView text) { return SendTest(number, text); },
                    [this] { return TestState(); }}),
      pinWindow(owner),
      formPin(pinWindow, sender.Pin(), sender.Texts()) {}

void SenderDialogs::OpenSettings() {
    if (!pinWindow.Loaded()) formSettings.Show();
}

void SenderDialogs::OpenPin() {
    if (!formSettings.Shown()) formPin.Show(sender.Away());
}

void SenderDialogs::Look() {
    if (formSettings.Shown()) {
        formSettings.ShowTestState();
    } else {
        formPin.Look(sender.Away());
    }
}

void SenderDialogs::SpoolChanged(const Text& id, std::optional<State> state) {
    if (state && id == testId) testState = *state;
}

void SenderDialogs::Close() {
    settingsWindow.Unload();
    pinWindow.Unload();
}

bool SenderDialogs::SendTest(TextView number, TextView text) {
    testState = State::Waiting;
    testId = sender.Send(number, text);
    return !testId.empty();
}

Text SenderDialogs::TestState() {
    const std::optional<SpooledSms> sms = sender.TheSpool().Load(testState, testId);
    Text why = sms ? InWords(sms->reason, sender.Texts()) : Text();
    if (testState == State::Waiting) {
        const Text away = sender.WhyNothingIsSent();
        why = away.empty() ? why : away;
    }
    const Text words = InWords(testState, sender.Texts());
    return why.empty() ? words : words + u" - " + why;
}

}  // namespace tellwick::sender
