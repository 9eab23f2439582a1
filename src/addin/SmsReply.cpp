#include "addin/SmsReply.h"

#include "compose/FormSmsSend.h"
#include "compose/MessageText.h"
#include "platform/MessageLoop.h"
#include "platform/OutlookEvents.h"
#include "recipients/Contacts.h"
#include "recipients/RecipientField.h"
#include "settings/Debug.h"

namespace tellwick {

namespace {
constexpr std::uint32_t FormLoading = 50;  // milliseconds that a new form is given
// Outlook 2007: few machines have Redemption any more, and the program is trusted.
constexpr std::int32_t FirstReadDirectly = 12;
}  // namespace

SmsReply::SmsReply(PendingError& errors, Debug& debug, const ProcessValues& processValues,
                   MessageLoop& messageLoop, Contacts& contacts, FormSmsSend& formSmsSend,
                   RecipientField& recipientField, MessageText& messageText)
    : errors(errors),
      debug(debug),
      processValues(processValues),
      messageLoop(messageLoop),
      contacts(contacts),
      formSmsSend(formSmsSend),
      recipientField(recipientField),
      messageText(messageText) {}

bool SmsReply::Follow(SunkObject& objMailItem, const outlook::Item& item, Place place) {
    if (item.Class() != outlook::MailClass) return false;
    return objMailItem.Set(
        errors, item.Reference(), outlook::ItemEvents,
        [this, held = item.Reference(), place](std::int32_t event, std::vector<Value>& arguments) {
            // The item may be let go while its reply is written.
            const ObjectPtr mailItem = held;
            if (event != outlook::event::ItemReply) return;
            debug.Guarded([&] { objMailItem_Reply(mailItem, arguments, place); });
        });
}

void SmsReply::objMailItem_Reply(const ObjectPtr& mailItem, std::vector<Value>& arguments,
                                 Place place) {
    // The program asks for a reply itself to see who is in it; that one is nobody's answer.
    if (contacts.AsksForReply()) return;
    Procedure procedure{debug, u"objMailItem_Reply"};
    if (!IsSms(mailItem)) return;
    const auto parts =
        Separate(mailItem, [&] { return arguments.empty() ? nullptr : AsObject(arguments[0]); });
    if (!parts) return;
    Open(*parts, place);
    if (arguments.size() > 1) arguments[1] = true;
}

std::optional<SmsReply::Parts> SmsReply::PartsOf(const ObjectPtr& mailItem) {
    if (!IsSms(mailItem)) return std::nullopt;
    return Separate(mailItem, [&] { return contacts.ReplyOf(mailItem); });
}

bool SmsReply::IsSms(const ObjectPtr& mailItem) {
    errors.Clear();
    const bool marked = outlook::MailItem(errors, mailItem).UserProperty(u"IsSMS").Value();
    return marked && !errors;
}

// The sender and the body, read through Redemption where Outlook would ask the user before it hands
// them out; else what stands before and behind the first colon of the host's own reply.
std::optional<SmsReply::Parts> SmsReply::Separate(const ObjectPtr& mailItem,
                                                  const ResponseSource& response) {
    ObjectPtr source = contacts.SafeMail(mailItem);
    Text text = AsText(Get(errors, source, u"SentOnBehalfOfName"));
    if (text.empty() && processValues.outlookVersion >= FirstReadDirectly) {
        source = mailItem;
        text = AsText(Get(errors, source, u"SentOnBehalfOfName"));
    }
    std::size_t separator = text.size();
    if (!text.empty()) {
        text += u' ' + AsText(Get(errors, source, u"Body"));
    } else {
        errors.Clear();
        const ObjectPtr reply = response();
        text = AsText(Get(errors, reply, DefaultMember));
        if (errors) text = AsText(Get(errors, reply, u"Subject"));
        separator = text.find(u':');
        if (separator == Text::npos) return std::nullopt;
    }
    return Parts{text.substr(0, separator), Trimmed(TextView(text).substr(separator + 1))};
}

void SmsReply::Open(const Parts& parts, Place place) {
    formSmsSend.Open({});
    // The form is to have finished loading before it is filled.
    messageLoop.DoEvents();
    messageLoop.Sleep(FormLoading);
    messageLoop.DoEvents();
    recipientField.SetText(parts.recipient);
    messageText.Replace(parts.message);
    if (place == Place::Inspector) return;

    messageLoop.DoEvents();
    if (recipientField.IsEmpty()) recipientField.SetTextByList(parts.recipient);
    messageText.SetFocus();
}

}  // namespace tellwick
