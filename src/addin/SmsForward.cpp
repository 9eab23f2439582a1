#include "addin/SmsForward.h"

#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"
#include "compose/MailExcerpt.h"
#include "compose/MessageText.h"
#include "recipients/Contacts.h"

namespace tellwick {

SmsForward::SmsForward(PendingError& errors, Contacts& contacts, FormSmsSend& formSmsSend,
                       FormSmsSendView& view, MessageText& messageText)
    : errors(errors),
      contacts(contacts),
      formSmsSend(formSmsSend),
      view(view),
      messageText(messageText) {}

void SmsForward::Open(ObjectPtr mail) {
    const Text text = TextOf(mail);
    mail.reset();
    formSmsSend.Open({}, FormSmsSend::Remembered::Forget);
    messageText.Replace(CutToFit(text, [this](TextView cut) { return messageText.Fits(cut); }));
    view.TextTo().SetFocus();
}

// Ribbons came with Outlook 2007, which trusts its add-ins; where Redemption is, it reads.
Text SmsForward::TextOf(const ObjectPtr& mail) {
    const ObjectPtr safe = contacts.SafeMail(mail);
    const auto read = [&](TextView member) {
        const Text value = AsText(Get(errors, safe, member));
        return OneLine(value.empty() ? AsText(Get(errors, mail, member)) : value);
    };
    Text text = read(u"SenderName");
    const Text subject = read(u"Subject");
    if (!text.empty() && !subject.empty()) text += u": ";
    text += subject;
    Text body = AsText(Get(errors, safe, u"Body"));
    if (body.empty()) body = AsText(Get(errors, mail, u"Body"));
    const Text words = OwnWords(body);
    if (!text.empty() && !words.empty()) text += LineBreak;
    return text + words;
}

}  // namespace tellwick
