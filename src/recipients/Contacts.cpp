#include "recipients/Contacts.h"

#include <algorithm>

#include "platform/Meanwhile.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "recipients/Addresses.h"
#include "recipients/NumberInText.h"
#include "recipients/Prefixes.h"

namespace tellwick {

namespace {

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

Contacts::Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes,
                   Addresses& addresses)
    : errors(errors), automation(automation), prefixes(prefixes), addresses(addresses) {}

Text Contacts::SelectedRecipients(const ObjectPtr& outlookApplication) {
    const ObjectPtr application =
        outlookApplication ? outlookApplication : automation.Running(u"Outlook.Application");
    return RecipientsIn(
        outlook::Application(errors, application).ActiveExplorer().Selection().Reference());
}

Text Contacts::RecipientsIn(const ObjectPtr& items) {
    const outlook::Selection selection(errors, items);
    std::vector<Text> numbers;
    Text recipients;
    for (std::int32_t index = 1, count = selection.Count(); index <= count; ++index) {
        Text number = RecipientOf(selection.Item(index).Reference());
        if (number.empty() || std::find(numbers.begin(), numbers.end(), number) != numbers.end()) {
            continue;
        }
        if (!recipients.empty()) recipients += u';';
        recipients += number;
        numbers.push_back(std::move(number));
    }
    return recipients;
}

Text Contacts::RecipientOf(const ObjectPtr& item) {
    switch (outlook::Item(errors, item).Class()) {
        case outlook::ContactClass: {
            // The mobile number, else the one at home.
            Text number = AsText(Get(errors, item, u"MobileTelephoneNumber"));
            if (number.empty()) number = AsText(Get(errors, item, u"HomeTelephoneNumber"));
            return Dialable(number);
        }
        case outlook::MailClass:
            return NumberForMail(item);
        default:
            return {};
    }
}

// The sender's own number, as messages from a telephone have it; else that of the first contact
// whom a reply to the mail names. Read through Redemption, since Outlook would ask the user before
// it hands out sender and body.
Text Contacts::NumberForMail(const ObjectPtr& mail) {
    const ObjectPtr safeItem = automation.Create(u"Redemption.SafeMailItem");
    if (!safeItem) return {};
    safeItem->Put(u"Item", mail);
    const Text own = NumberInText(AsText(safeItem->Get(u"SentOnBehalfOfName")));
    if (!own.empty()) return Dialable(own);
    safeItem->Put(u"Item", ReplyOf(mail));
    return NumberOfPersonIn(AsText(safeItem->Get(u"Body")));
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
