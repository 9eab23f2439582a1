// The window of the sender's settings, a field for each.
#pragma once

#include <vector>

#include "platform/Forms.h"

namespace tellwick::sender {

class FormSettingsEvents {
public:
    virtual ~FormSettingsEvents() = default;
    // Of either option.
    virtual void OptionCarrier_Click() = 0;
    virtual void CheckServiceCentre_Click() = 0;
    virtual void CheckStoreSent_Click() = 0;
    virtual void ButtonKannel_Click() = 0;
    virtual void ButtonTest_Click() = 0;
    // The default button.
    virtual void ButtonOK_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonCancel_Click() = 0;
};

struct FormSettingsFields {
    // Two option buttons: the user chooses one and thereby lets the other go.
    CheckBox& optionModem;
    CheckBox& optionGateway;

    ItemList& boxPort;
    ItemList& boxBaudrate;
    ItemList& boxParity;
    ItemList& boxStopbits;
    CheckBox& checkRts;
    CheckBox& checkServiceCentre;
    TextBox& textServiceCentre;
    CheckBox& checkFlash;
    CheckBox& checkStatusReport;
    ItemList& boxValidity;
    ItemList& boxLong;

    TextBox& textAddress;
    ItemList& boxMethod;
    Control& buttonKannel;
    TextBox& textUser;
    TextBox& textPassword;  // is not to be read on the screen
    TextBox& textExpected;

    CheckBox& checkStoreSent;
    TextBox& textMaxSent;
    TextBox& textTestNumber;
    Control& labelTestState;
    Control& labelFixed;  // takes no place without a caption
};

// A dialog of the sender's window.
class FormSettingsView : public FormView {
public:
    // The same controls as long as the view exists.
    virtual FormSettingsFields Fields() = 0;
    // The fields of the one carrier or of the other.
    virtual void ShowGateway(bool gateway) = 0;
    // The serial ports that the system has now ("COM5"), in the order of their numbers.
    virtual std::vector<Text> Ports() = 0;
    // A message box; returns when the user has read it.
    virtual void Tell(TextView text) = 0;
    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormSettingsEvents& events) = 0;
};

}  // namespace tellwick::sender
