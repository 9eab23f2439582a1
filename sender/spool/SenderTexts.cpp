#include "spool/SenderTexts.h"

#include "platform/Forms.h"
#include "settings/LanguageTexts.h"
#include "spool/Reason.h"

namespace tellwick::sender {

const std::vector<SenderTextEntry>& SenderTexts() {
    using Entry = SenderTextEntry;
    static const std::vector<Entry> texts{
        {reason::NoFile, u"The message file %d is missing or cannot be read."},
        {reason::NoTab, u"The message has no recipient."},
        {reason::NoRecipients, u"The message has no recipient."},
        {reason::NoNumber, u"The recipient is no telephone number."},
        {reason::TooLong, u"The text is longer than an SMS of 255 parts."},
        {reason::Damaged, u"The file %d is damaged."},
        {reason::Interrupted, u"Tellwick ended before it knew whether the SMS was sent."},
        {reason::TooOld, u"Could not be sent for a day. %d"},
        {reason::NoAnswer, u"The modem does not answer."},
        {reason::Unplugged, u"The modem is not connected."},
        {reason::Network, u"The network refuses the SMS (cause %d)."},
        {reason::Modem, u"The modem refuses the SMS: %d"},
        {reason::NoSim, u"There is no SIM card in the modem."},
        {reason::NeedsPin, u"The SIM card asks for its PIN."},
        {reason::WrongPin, u"The SIM card did not accept the PIN."},
        {reason::NeedsPuk, u"The SIM card is locked and asks for its PUK."},
        {reason::NoNetwork, u"The modem has no network."},
        {reason::NoConnection, u"The gateway cannot be reached: %d"},
        {reason::NotTrusted,
         u"The certificate of the gateway is not trusted, not valid today or that of another "
         u"server: %d"},
        {reason::Broken, u"The gateway did not say whether it took the SMS: %d"},
        {reason::NotAllowed, u"The gateway does not accept user and password (status %d)."},
        {reason::Gateway, u"The gateway refuses the SMS: %d"},
        {reason::NoAddress, u"No address of a gateway is set."},
        {u"NoFolder", u"The folder of the settings cannot be found or made."},
        {u"CheckOn", u"&Send SMS", Entry::Window},
        {u"ButtonAgain", u"Send &again", Entry::Window},
        {u"ButtonDelete", u"&Delete", Entry::Window},
        {u"ButtonSettings", u"Se&ttings...", Entry::Window},
        {u"ButtonPin", u"Enter &PIN...", Entry::Window},
        {u"LabelSearch", u"&Find:", Entry::Window},
        {u"MenuOpen", u"&Open", Entry::Window},
        {u"MenuExit", u"E&xit", Entry::Window},
        {u"ColumnTime", u"Time"},
        {u"ColumnRecipient", u"Recipient"},
        {u"ColumnText", u"Text"},
        {u"ColumnParts", u"Parts"},
        {u"ColumnState", u"State"},
        {u"ColumnReason", u"Reason"},
        {u"StateWaiting", u"waiting"},
        {u"StateSending", u"being sent"},
        {u"StateUnsure", u"unsure"},
        {u"StateSent", u"sent"},
        {u"StateDelivered", u"delivered"},
        {u"StateNotDelivered", u"not delivered"},
        {u"StateFailed", u"failed"},
        {u"IsOff", u"Switched off."},
        {u"CountWaiting", u"%d waiting."},
        {u"CountFailed", u"%d failed."},
        {u"CountFound", u"%d found."},
        {u"BalloonFailed", u"The SMS to %d could not be sent."},
        {u"BalloonSeveral", u"%d SMS could not be sent."},
        {u"PinHeld", u"Nothing is sent until the PIN is entered."},
        {u"AskDelete", u"Delete the chosen SMS?"},
        {u"AskAgain", u"An SMS that is unsure may have arrived already. Send it again?"},

        {u"ButtonOK", u"OK"},
        {u"ButtonCancel", u"Cancel"},
        {u"SettingsCaption", u"Tellwick - Settings"},
        {u"FrameCarrier", u"SMS leave through"},
        {u"OptionModem", u"a &modem or mobile phone", Entry::Settings},
        {u"OptionGateway", u"an SMS &gateway", Entry::Settings},
        {u"FrameModem", u"Modem"},
        {u"LabelPort", u"&Port:", Entry::ModemSettings},
        {u"LabelBaudrate", u"&Baud rate:", Entry::ModemSettings},
        {u"LabelParity", u"P&arity:", Entry::ModemSettings},
        {u"LabelStopbits", u"St&op bits:", Entry::ModemSettings},
        {u"AsSet", u"(as it is set)"},
        {u"ParityNone", u"none"},
        {u"ParityOdd", u"odd"},
        {u"ParityEven", u"even"},
        {u"CheckRts", u"&Hardware handshake (RTS/CTS)", Entry::ModemSettings},
        {u"FrameSms", u"SMS"},
        {u"CheckServiceCentre", u"Own service &centre:", Entry::ModemSettings},
        {u"LabelServiceCentre", u"Number of the service centre"},
        {u"CheckFlash", u"&Flash SMS: shown at once, not kept", Entry::ModemSettings},
        {u"CheckStatusReport", u"Ask for a delivery &report", Entry::ModemSettings},
        {u"LabelValidity", u"&Valid for:", Entry::ModemSettings},
        {u"ValidityNetwork", u"(as the network has it)"},
        {u"ValidityMinutes", u"%d minutes"},
        {u"ValidityHours", u"%d hours"},
        {u"ValidityDays", u"%d days"},
        {u"LabelLong", u"&Long texts:", Entry::ModemSettings},
        {u"LongJoined", u"one SMS"},
        {u"LongJoined16", u"one SMS (16-bit reference)"},
        {u"LongSeparate", u"several SMS"},
        {u"FrameGateway", u"Gateway"},
        {u"LabelAddress", u"&Address:", Entry::GatewaySettings},
        {u"ButtonKannel", u"as for &Kannel", Entry::GatewaySettings},
        {u"LabelMethod", u"M&ethod:", Entry::GatewaySettings},
        {u"LabelUser", u"&User:", Entry::GatewaySettings},
        {u"LabelPassword", u"Pass&word:", Entry::GatewaySettings},
        {u"LabelExpected", u"Answer &contains:", Entry::GatewaySettings},
        {u"LabelAddressHelp",
         u"In the address {to}, {text}, {user} and {password} stand for the recipient, the text, "
         u"your user name and your password. An SMS counts as sent when the gateway answers with a "
         u"status from 200 to 299 and, where you enter one, with this text."},
        {u"FrameKept", u"Sent SMS"},
        {u"CheckStoreSent", u"Keep at mo&st:", Entry::Settings},
        {u"LabelMaxSent", u"Largest number of sent SMS"},
        {u"FrameTest", u"Test"},
        {u"LabelTestNumber", u"&Number:", Entry::Settings},
        {u"ButtonTest", u"Send a &test SMS", Entry::Settings},
        {u"LabelFixed", u"Your administrator has fixed some of these settings. They are grey."},
        {u"TestText", u"This is a test SMS from Tellwick."},
        {u"BadChoice", u"%d cannot be used here. Please choose another entry."},
        {u"BadServiceCentre",
         u"Please enter the number of the service centre in international form, such as "
         u"+447700900123."},
        {u"BadAddress",
         u"Please enter an address that begins with http or https and contains {to} and "
         u"{text}."},
        {u"BadMaxSent", u"Please enter a number from 0 to 99999."},
        {u"BadTestNumber", u"Please enter the telephone number that the test SMS goes to."},
        {u"NotWritten", u"The settings could not be saved."},

        {u"PinCaption", u"Tellwick - PIN"},
        {u"LabelPin", u"&PIN:", Entry::Pin},
        {u"LabelPinHelp", u"A SIM card is locked after three wrong PINs."},
        {u"BadPin", u"A PIN has 4 to 8 digits."},
    };
    return texts;
}

Text SenderText(LanguageTexts& language, TextView name) {
    Text text = language.GetLanguageString(u"Sender", name);
    for (const SenderTextEntry& builtIn : SenderTexts()) {
        if (text.empty() && builtIn.name == name) text = builtIn.text;
    }
    return text;
}

void SetSenderTexts(LanguageTexts& language, TextView caption, FormView& view) {
    view.SetCaption(SenderText(language, caption));
    view.ForEachControl([&](TextView name, Control& control) {
        const Text text = SenderText(language, name);
        if (!text.empty()) control.SetCaption(text);
    });
}

}  // namespace tellwick::sender
