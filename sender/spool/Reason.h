// Why an SMS was not sent, or not yet: kept with it by a name, shown to the user in words.
#pragma once

#include "platform/Text.h"

namespace tellwick {
class LanguageTexts;
}

namespace tellwick::sender {

struct Reason {
    Text name;    // one of those below; empty: there is none
    Text detail;  // what the words name: a number of the network, an answer, a file

    bool operator==(const Reason&) const = default;
};

namespace reason {
// Of an entry of the queue.
inline constexpr TextView NoFile = u"NoFile";              // detail: the path
inline constexpr TextView NoTab = u"NoTab";                // nothing separates recipients and text
inline constexpr TextView NoRecipients = u"NoRecipients";  // there are none
inline constexpr TextView NoNumber = u"NoNumber";          // the recipient cannot be dialled
inline constexpr TextView TooLong = u"TooLong";            // no carrier takes so many parts
inline constexpr TextView Damaged = u"Damaged";            // the spool's file; detail: its name
// Of delivery.
inline constexpr TextView Interrupted = u"Interrupted";  // ended while it was being sent
inline constexpr TextView TooOld = u"TooOld";            // tried for a day; made by TooOldBecause
// Of the modem.
inline constexpr TextView NoAnswer = u"NoAnswer";    // the modem fell silent
inline constexpr TextView Unplugged = u"Unplugged";  // the modem went away
inline constexpr TextView Network = u"Network";      // detail: the cause's number
inline constexpr TextView Modem = u"Modem";          // detail: the modem's own words
inline constexpr TextView NoSim = u"NoSim";          // none in the modem
inline constexpr TextView NeedsPin = u"NeedsPin";    // the SIM asks for its PIN
inline constexpr TextView WrongPin = u"WrongPin";    // and did not take the one it got
inline constexpr TextView NeedsPuk = u"NeedsPuk";    // locked: only a phone can undo that
inline constexpr TextView NoNetwork = u"NoNetwork";  // not registered in any
// Of the gateway.
inline constexpr TextView NoConnection = u"NoConnection";  // detail: the system's words
inline constexpr TextView NotTrusted = u"NotTrusted";      // its certificate; detail: likewise
inline constexpr TextView Broken = u"Broken";              // no answer came; detail: likewise
inline constexpr TextView NotAllowed = u"NotAllowed";      // user and password; detail: the status
inline constexpr TextView Gateway = u"Gateway";            // detail: status and answer
inline constexpr TextView NoAddress = u"NoAddress";        // the settings name none
}  // namespace reason

// That one was tried for a day, and what the last try came to.
Reason TooOldBecause(const Reason& last);

// In the user's language: the text of that name in section "Sender" of the language file, or the
// English one that is built in; "%d" in it is the detail. Empty for no reason.
Text InWords(const Reason& why, LanguageTexts& language);

}  // namespace tellwick::sender
