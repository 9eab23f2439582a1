// The submission: turns what the form holds into one entry of the queue and sees to the sender
// application.
#pragma once

#include <cstdint>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class AwaitedRecipients;
class Draft;
class FormSmsSend;
class FormSmsSendView;
class LostCharacters;
class MessageLoop;
class MessageText;
class PersonalSubmission;
class PersonalTexts;
class RecipientField;
class SmsQueue;
class Tellwick;

class Submission : private Services {
public:
    Submission(const Services& services, FormSmsSend& form, FormSmsSendView& view,
               RecipientField& recipientField, AwaitedRecipients& awaitedRecipients,
               MessageText& messageText, LostCharacters& lostCharacters,
               const PersonalTexts& personalTexts, PersonalSubmission& personalSubmission,
               Draft& draft, MessageLoop& messageLoop, SmsQueue& queue, Tellwick& tellwick);

    // Queues what the form holds, a text with fields once for each recipient, and sees to the
    // sender application; the form closes. A `number` or `text` that is not empty replaces the
    // form's own first. False when it was refused because recipient or text is missing, or the user
    // went back to a text that would not get through whole; the user knows and the form stays. A
    // call that comes while one runs only asks for the form to be closed, and returns true. What
    // another call settled, or who closed the form, while the messages behind a key ran, is not
    // done again.
    bool ButtonSend_Click_(bool fromKey, bool sendNow, TextView number, TextView text);

    // Both queue the text; they differ only in what they take for an empty one.
    void ButtonSend_Click() { ButtonSend_Click_(false, true, {}, {}); }
    void ButtonStore_Click() { ButtonSend_Click_(false, false, {}, {}); }

    // Forgets a submission that was refused: the form is initialised anew.
    void Reset() { busy = closeRequested = false; }

    // While a submission runs, and after a refused one: notes that the form is to be closed and
    // returns true. Else false: the form may close.
    bool RequestClose();

    // While the entries of a text with fields are written: the form closes when they are.
    bool Writing() const;

private:
    void RemoveKeyLineBreak();
    enum class Outcome { Queued, Refused, Withdrawn };
    Outcome RefuseRecipient();
    Outcome Withdraw();
    Outcome QueueMessage(TextView recipient, bool mayBeEmpty);
    void MsgBox(std::int32_t number);

    bool busy = false;
    int begun = 0;  // submissions, since the program started
    bool lastQueued = false;
    bool closeRequested = false;

    FormSmsSend& form;
    FormSmsSendView& view;
    RecipientField& recipientField;
    AwaitedRecipients& awaitedRecipients;
    MessageText& messageText;
    LostCharacters& lostCharacters;
    const PersonalTexts& personalTexts;
    PersonalSubmission& personalSubmission;
    Draft& draft;
    MessageLoop& messageLoop;
    SmsQueue& queue;
    Tellwick& tellwick;
};

}  // namespace tellwick
