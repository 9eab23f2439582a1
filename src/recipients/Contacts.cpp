#include "recipients/Contacts.h"

#include <algorithm>

#include "platform/Meanwhile.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "recipients/NumberInText.h"
#include "recipients/Prefixes.h"

namespace tellwick {

namespace {

constexpr TextView Separator = u"  (";  // between the name and the number of an entry

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

struct Contacts::Entry {
    Text name;
    Number number;

    Text AsText() const { return Text(name).append(Separator).append(number.text).append(u")"); }
    bool operator<(const Entry& other) const {
        if (LessFolded(name, other.name)) return true;
        return number.mobile && !other.number.mobile && !LessFolded(other.name, name);
    }
};

Contacts::Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes)
    : errors(errors), automation(automation), prefixes(prefixes) {}

void Contacts::Release() {
    nameSpace.reset();
    application.reset();
    addresses.Assign({});
    loaded = false;
}

// The mobile number, else the one at home.
Contacts::Number Contacts::NumberOf(const ObjectPtr& contact) {
    Text number = AsText(Get(errors, contact, u"MobileTelephoneNumber"));
    const bool mobile = !number.empty();
    if (!mobile) number = AsText(Get(errors, contact, u"HomeTelephoneNumber"));
    return {prefixes.ConvertPhoneNumber(number), mobile};
}

const AddressList& Contacts::Addresses() {
    if (loaded) return addresses;
    if (!application) application = automation.Running(u"Outlook.Application");
    if (!application) return addresses;
    Once loading(loaded);
    if (!nameSpace) {
        nameSpace = AsObject(Call(errors, application, u"GetNamespace", {Text(u"MAPI")}));
    }
    const ObjectPtr folder =
        AsObject(Call(errors, nameSpace, u"GetDefaultFolder", {outlook::ContactsFolder}));
    const ObjectPtr items = AsObject(Get(errors, folder, u"Items"));
    std::vector<Entry> entries;
    for (std::int32_t index = 1, count = AsNumber(Get(errors, items, u"Count")); index <= count;
         ++index) {
        const outlook::Item item(errors, AsObject(Get(errors, items, u"Item", {index})));
        if (item.Class() != outlook::ContactClass) continue;
        const Number number = NumberOf(item.Reference());
        if (number.text.empty()) continue;
        entries.push_back({AsText(Get(errors, item.Reference(), u"FullName")), number});
    }
    std::stable_sort(entries.begin(), entries.end());
    std::vector<Text> texts;
    texts.reserve(entries.size());
    for (const Entry& entry : entries) texts.push_back(entry.AsText());
    addresses.Assign(std::move(texts));
    loading.Done();
    return addresses;
}

Text Contacts::SelectedRecipients(const ObjectPtr& outlookApplication) {
    application =
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
        case outlook::ContactClass:
            return prefixes.GetNumber(
                Entry{AsText(Get(errors, item, u"FullName")), NumberOf(item)}.AsText());
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
    if (!own.empty()) return prefixes.GetNumber(u"(" + prefixes.ConvertPhoneNumber(own) + u")");
    safeItem->Put(u"Item", ReplyOf(mail));
    return NumberOfPersonIn(AsText(safeItem->Get(u"Body")));
}

ObjectPtr Contacts::ReplyOf(const ObjectPtr& mail) {
    const Meanwhile asking(asksForReply, true);
    return AsObject(Call(errors, mail, u"Reply"));
}

// The number of the person named first; of several names that begin there, the longest.
Text Contacts::NumberOfPersonIn(TextView text) {
    const Text folded = LowerCase(text);
    const AddressList& list = Addresses();
    std::size_t first = Text::npos;
    std::size_t longest = 0;
    std::size_t named = list.Size();
    for (std::size_t index = 0; index < list.Size(); ++index) {
        const Text& entry = list.Entry(index);
        const Text name = LowerCase(TextView(entry).substr(0, entry.rfind(Separator)));
        const std::size_t found = FindWord(folded, name);
        if (found < first || (found == first && found != Text::npos && name.size() > longest)) {
            first = found;
            longest = name.size();
            named = index;
        }
    }
    return named < list.Size() ? prefixes.GetNumber(list.Entry(named)) : Text();
}

}  // namespace tellwick
