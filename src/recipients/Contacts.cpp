#include "recipients/Contacts.h"

#include <algorithm>

#include "platform/Meanwhile.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "recipients/Addresses.h"
#include "recipients/Conversation.h"
#include "recipients/NumberInText.h"
#include "recipients/Prefixes.h"

namespace tellwick {

namespace {

// Outlook 2003: from then on what comes from the application that a connection hands over is
// trusted.
constexpr std::int32_t FirstTrusting = 11;
constexpr std::int32_t MostConversations = 20;

// Where the word or words first stand by themselves; npos when they do not, or are none.
std::size_t FindWord(TextView text, TextView word) {
    if (word.empty()) return TextView::npos;
    for (std::size_t at = text.find(word); at != TextView::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !IsWordUnit(text[at - 1])) &&
            (end == text.size() || !IsWordUnit(text[end]))) {
            return at;
        }
    }
    return TextView::npos;
}

}  // namespace

Contacts::Contacts(PendingError& errors, Automation& automation, const ProcessValues& processValues,
                   Prefixes& prefixes, Addresses& addresses)
    : errors(errors),
      automation(automation),
      processValues(processValues),
      prefixes(prefixes),
      addresses(addresses) {}

Text Contacts::SelectedRecipients(const ObjectPtr& outlookApplication) {
    const Origin origin = outlookApplication ? Origin::Connection : Origin::RunningObject;
    const ObjectPtr application =
        outlookApplication ? outlookApplication : automation.Running(u"Outlook.Application");
    LendApplicationOf(outlookApplication);
    return RecipientsFrom(
        outlook::Application(errors, application).ActiveExplorer().Selection().Reference(), origin);
}

Text Contacts::RecipientsIn(const ObjectPtr& items) {
    LendApplicationOf(items);
    return RecipientsFrom(items, Origin::Connection);
}

Text Contacts::RecipientOf(const ObjectPtr& item) {
    LendApplicationOf(item);
    return RecipientFrom(item, Origin::Connection);
}

// A connection without a window handed no application over that the contacts could be read from.
void Contacts::LendApplicationOf(const ObjectPtr& object) {
    if (!object || addresses.HasApplication()) return;
    addresses.LendApplication(AsObject(Get(errors, object, u"Application")));
}

Text Contacts::RecipientsFrom(const ObjectPtr& items, Origin origin) {
    const outlook::Selection selection(errors, items);
    std::vector<Text> numbers;
    Text recipients;
    const auto add = [&](const outlook::Item& item) {
        Text number = RecipientFrom(item.Reference(), origin);
        if (number.empty() || std::find(numbers.begin(), numbers.end(), number) != numbers.end()) {
            return;
        }
        if (!recipients.empty()) recipients += u';';
        recipients += number;
        numbers.push_back(std::move(number));
    };
    const std::int32_t count = selection.Count();
    for (std::int32_t index = 1; index <= count; ++index) add(selection.Item(index));
    if (count == 0 && selection && processValues.outlookVersion >= FirstWithConversations) {
        for (const outlook::Item& mail :
             NewestOfConversations(errors, selection, MostConversations)) {
            add(mail);
        }
    }
    return recipients;
}

Text Contacts::RecipientFrom(const ObjectPtr& item, Origin origin) {
    switch (outlook::Item(errors, item).Class()) {
        case outlook::ContactClass: {
            // The mobile number, else the one at home.
            Text number = AsText(Get(errors, item, u"MobileTelephoneNumber"));
            if (number.empty()) number = AsText(Get(errors, item, u"HomeTelephoneNumber"));
            return Dialable(number);
        }
        case outlook::MailClass:
            return NumberForMail(item, origin);
        default:
            return {};
    }
}

// The sender's own number, as messages from a telephone have it; else that of the first contact
// whom a reply to the mail names. Without Redemption only where Outlook does not ask the user
// before it hands out sender and body.
Text Contacts::NumberForMail(const ObjectPtr& mail, Origin origin) {
    const ObjectPtr safeMail = SafeMail(mail);
    const bool trusted =
        origin == Origin::Connection && processValues.outlookVersion >= FirstTrusting;
    if (!safeMail && !trusted) return {};
    const Text own =
        NumberInText(AsText(Get(errors, safeMail ? safeMail : mail, u"SentOnBehalfOfName")));
    if (!own.empty()) return Dialable(own);
    const ObjectPtr reply = ReplyOf(mail);
    if (safeMail) safeMail->Put(u"Item", reply);
    return NumberOfPersonIn(AsText(Get(errors, safeMail ? safeMail : reply, u"Body")));
}

ObjectPtr Contacts::SafeMail(const ObjectPtr& mail) {
    const ObjectPtr safeItem = automation.Create(u"Redemption.SafeMailItem");
    Put(errors, safeItem, u"Item", mail);
    return safeItem;
}

ObjectPtr Contacts::ReplyOf(const ObjectPtr& mail) {
    const Meanwhile asking(asksForReply, true);
    return AsObject(Call(errors, mail, u"Reply"));
}

// As the user's settings have it dialled.
Text Contacts::Dialable(TextView number) {
    return prefixes.GetNumber(u"(" + prefixes.ConvertPhoneNumber(number) + u")");
}

// The number of the person named first; of several names that begin there, the longest.
Text Contacts::NumberOfPersonIn(TextView text) {
    const Text folded = LowerCase(text);
    const AddressList& list = addresses.Complete();
    std::size_t first = Text::npos;
    std::size_t longest = 0;
    Text number;
    for (std::size_t index = 0; index < list.Size(); ++index) {
        const AddressList::Entry entry = list.EntryAt(index);
        const AddressRow row = list.Row(entry.row);
        if (entry.byFileAs || row.kind == NumberKind::List) continue;
        const std::size_t found = FindWord(folded, LowerCase(row.name));
        if (found < first || (found == first && found != Text::npos && row.name.size() > longest)) {
            first = found;
            longest = row.name.size();
            number = row.number;
        }
    }
    return number.empty() ? number : Dialable(number);
}

}  // namespace tellwick
