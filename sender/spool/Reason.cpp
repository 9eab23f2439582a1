#include "spool/Reason.h"

#include <algorithm>
#include <array>

#include "settings/LanguageTexts.h"

namespace tellwick::sender {

namespace {

struct Words {
    TextView name;
    TextView text;
};

constexpr std::array<Words, 22> BuiltIn{{
    {reason::NoFile, u"The message file %d is missing or cannot be read."},
    {reason::NoTab, u"The message has no recipient."},
    {reason::NoRecipients, u"The message has no recipient."},
    {reason::NoNumber, u"The recipient is no telephone number."},
    {reason::TooLong, u"The text is longer than an SMS of 255 parts."},
    {reason::Damaged, u"The file %d is damaged."},
    {reason::Interrupted, u"Tellwick ended before it knew whether the SMS was sent."},
    {reason::TooOld, u"Could not be sent for a day. %d"},
    {reason::NoAnswer, u"The modem does not answer."},
    {reason::Unplugged, u"The modem was unplugged."},
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
}};

}  // namespace

Reason TooOldBecause(const Reason& last) {
    return {Text(reason::TooOld), last.name + u" " + last.detail};
}

Text InWords(const Reason& why, LanguageTexts& language) {
    if (why.name.empty()) return {};
    Text detail = why.detail;
    if (why.name == reason::TooOld) {
        const std::size_t blank = std::min(detail.find(u' '), detail.size());
        detail = InWords({detail.substr(0, blank), Trimmed(detail.substr(blank))}, language);
    }
    Text words = language.GetLanguageString(u"Sender", why.name);
    for (const Words& builtIn : BuiltIn) {
        if (words.empty() && builtIn.name == why.name) words = builtIn.text;
    }
    // A name that a newer version has written.
    if (words.empty()) words = why.name + u" %d";
    return Trimmed(ReplaceAll(words, u"%d", detail));
}

}  // namespace tellwick::sender
