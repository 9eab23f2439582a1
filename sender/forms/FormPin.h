// Asks for the PIN of the SIM card.
#pragma once

#include "delivery/PinKeeper.h"
#include "platform/Forms.h"

namespace tellwick {
class LanguageTexts;
}

namespace tellwick::sender {

class FormPinEvents {
public:
    virtual ~FormPinEvents() = default;
    // The default button.
    virtual void ButtonOK_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonCancel_Click() = 0;
};

// A dialog of the sender's window.
class FormPinView : public FormView {
public:
    virtual Control& LabelAsked() = 0;
    // Is not to be read on the screen. Takes eight digits.
    virtual TextBox& TextPin() = 0;
    // A message box; returns when the user has read it.
    virtual void Tell(TextView text) = 0;
    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormPinEvents& events) = 0;
};

class FormPin : public FormPinEvents {
public:
    FormPin(FormPinView& view, PinKeeper& keeper, LanguageTexts& language);

    // To be called now and then: asks when a PIN is wanted, for each of the SIM's questions once,
    // and goes when the question has gone.
    void Look(const Reason& away);
    // Asks, again where it was cancelled.
    void Show(const Reason& away);
    // Whether the user does not want to be asked.
    bool Cancelled() const { return cancelled && keeper.Asks(); }

    void ButtonOK_Click() override;
    void ButtonCancel_Click() override;

private:
    FormPinView& view;
    PinKeeper& keeper;
    LanguageTexts& language;
    bool cancelled = false;
};

}  // namespace tellwick::sender
