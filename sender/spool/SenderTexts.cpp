#include "spool/SenderTexts.h"

#include "settings/LanguageTexts.h"
#include "spool/Reason.h"

namespace tellwick::sender {

const std::vector<SenderTextEntry>& SenderTexts() {
    static const std::vector<SenderTextEntry> texts{
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
        {reason::Broken, u"The gateway did not say whether it took the SMS: %d"},
        {reason::NotAllowed, u"The gateway does not accept user and password (status %d)."},
        {reason::Gateway, u"The gateway refuses the SMS: %d"},
        {reason::NoAddress, u"No address of a gateway is set."},
        {u"CheckOn", u"&Send SMS"},
        {u"ButtonAgain", u"Send &again"},
        {u"ButtonDelete", u"&Delete"},
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
        {u"StateFailed", u"failed"},
        {u"IsOff", u"Switched off."},
        {u"CountWaiting", u"%d waiting."},
        {u"AskDelete", u"Delete the chosen SMS?"},
        {u"AskAgain", u"An SMS that is unsure may have arrived already. Send it again?"},
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

}  // namespace tellwick::sender
