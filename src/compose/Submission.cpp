#include "compose/Submission.h"

#include <utility>

#include "compose/AwaitedRecipients.h"
#include "compose/Draft.h"
#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"
#include "compose/LostCharacters.h"
#include "compose/MessageText.h"
#include "compose/PersonalSubmission.h"
#include "compose/PersonalTexts.h"
#include "compose/SmsQueue.h"
#include "compose/Tellwick.h"
#include "platform/MessageLoop.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientList.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr std::int32_t RecipientMissing = 3;
constexpr std::int32_t TextMissing = 4;

}  // namespace

Submission::Submission(const Services& services, FormSmsSend& form, FormSmsSendView& view,
                       RecipientField& recipientField, AwaitedRecipients& awaitedRecipients,
                       MessageText& messageText, LostCharacters& lostCharacters,
                       const PersonalTexts& personalTexts, PersonalSubmission& personalSubmission,
                       Draft& draft, MessageLoop& messageLoop, SmsQueue& queue, Tellwick& tellwick)
    : Services(services),
      form(form),
      view(view),
      recipientField(recipientField),
      awaitedRecipients(awaitedRecipients),
      messageText(messageText),
      lostCharacters(lostCharacters),
      personalTexts(personalTexts),
      personalSubmission(personalSubmission),
      draft(draft),
      messageLoop(messageLoop),
      queue(queue),
      tellwick(tellwick) {}

bool Submission::ButtonSend_Click_(bool fromKey, bool sendNow, TextView number, TextView text) {
    debug.Errors().Clear();
    debug.DebugTrace(u"ButtonSend_Click", trace::Enter);
    if (!form.Activated()) form.Form_Activate();
    if (busy) {
        // Without an exit record. Deliberate: "A click without an end".
        closeRequested = true;
        return true;
    }
    if (!number.empty()) recipientField.SetText(number);
    if (!text.empty()) view.Message().SetText(text);
    if (fromKey) {
        const int before = begun;
        const bool loaded = view.Loaded();
        RemoveKeyLineBreak();
        if (begun != before || view.Loaded() != loaded) {
            debug.DebugTrace(u"ButtonSend_Click", trace::Exit);
            return begun != before && lastQueued;
        }
    }
    const Text recipient = view.TextTo().GetText();
    if (form.Settings().storeNumbers) recipientField.AddNumberToList(recipient);
    recipientField.SetText(recipient);
    busy = true;
    ++begun;
    closeRequested = false;
    recipientField.StopSearch();
    awaitedRecipients.TakeThose();

    Outcome outcome = Outcome::Refused;
    try {
        outcome = QueueMessage(recipient, !text.empty() && !sendNow);
    } catch (...) {
        // Nothing is queued: the next click tries it again.
        Reset();
        throw;
    }
    lastQueued = outcome == Outcome::Queued;
    // After a refusal the form is still busy, so that this only asks for the form to be closed.
    form.ButtonOK_Click();
    // Who went back to the text sends it later.
    if (outcome == Outcome::Withdrawn) Reset();
    debug.DebugTrace(u"ButtonSend_Click", trace::Exit);
    return outcome == Outcome::Queued;
}

// The key that submits has put a line break into the text, just before the caret.
void Submission::RemoveKeyLineBreak() {
    messageLoop.DoEvents();
    Text text = view.Message().GetText();
    const auto caret = std::size_t(view.Message().SelectionStart());
    if (caret < LineBreak.size() || caret > text.size()) return;
    const std::size_t start = caret - LineBreak.size();
    if (TextView(text).substr(start, LineBreak.size()) != LineBreak) return;
    view.Message().SetText(text.erase(start, LineBreak.size()));
}

Submission::Outcome Submission::RefuseRecipient() {
    MsgBox(RecipientMissing);
    view.TextTo().SetFocus();
    return Outcome::Refused;
}

Submission::Outcome Submission::Withdraw() {
    messageText.SetFocus();
    return Outcome::Withdrawn;
}

Submission::Outcome Submission::QueueMessage(TextView recipient, bool mayBeEmpty) {
    if (recipient.empty()) return RefuseRecipient();
    Text message = messageText.GetText();
    if (message.empty() && !mayBeEmpty) {
        MsgBox(TextMissing);
        messageText.SetFocus();
        return Outcome::Refused;
    }
    // Digits are sent as they stand.
    const bool digits = messageText.ShowsDigits();
    if (!digits && personalTexts.HasFields(message)) {
        std::vector<PersonalText> texts = personalTexts.Of(message, RecipientsIn(recipient));
        if (texts.empty()) return RefuseRecipient();
        if (!personalSubmission.Queue(std::move(texts), form.Settings())) return Withdraw();
    } else {
        if (form.Settings().askLostCharacters && !digits && !lostCharacters.Settle(message))
            return Withdraw();
        queue.AddEntry(recipient, message);
    }
    // It is queued, whatever fails from here on. Busy until the sender application has been told: a
    // click that comes meanwhile must not queue a second entry.
    debug.Guarded([this] {
        // An Outlook that ends while the sender is waited for must not offer it again.
        draft.End();
        tellwick.StartSenderApplication(false);
    });
    busy = false;
    return Outcome::Queued;
}

bool Submission::Writing() const {
    return personalSubmission.Running();
}

bool Submission::RequestClose() {
    if (busy) closeRequested = true;
    return busy;
}

void Submission::MsgBox(std::int32_t number) {
    questionBox.MsgBoxEx(language.TextOrBuiltIn(FormSmsSend::Name, u"MsgBox" + NumberText(number)),
                         box::IconInformation);
}

}  // namespace tellwick
