#include "recipients/Contacts.h"

#include <algorithm>

#include "platform/OutlookEvents.h"
#include "recipients/Prefixes.h"

namespace tellwick {

Contacts::Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes)
    : errors(errors), automation(automation), prefixes(prefixes) {}

void Contacts::Release() {
    nameSpace.reset();
    application.reset();
    addresses.Assign({});
    loaded = false;
}

// The mobile number, else the one at home.
Text Contacts::NumberOf(const ObjectPtr& contact) {
    Text number = AsText(Get(errors, contact, u"MobileTelephoneNumber"));
    if (number.empty()) number = AsText(Get(errors, contact, u"HomeTelephoneNumber"));
    return prefixes.ConvertPhoneNumber(number);
}

const AddressList& Contacts::Addresses() {
    if (loaded) return addresses;
    if (!application) application = automation.Running(u"Outlook.Application");
    if (!application) return addresses;
    loaded = true;
    if (!nameSpace) {
        nameSpace = AsObject(Call(errors, application, u"GetNamespace", {Text(u"MAPI")}));
    }
    const ObjectPtr folder =
        AsObject(Call(errors, nameSpace, u"GetDefaultFolder", {outlook::ContactsFolder}));
    const ObjectPtr items = AsObject(Get(errors, folder, u"Items"));
    std::vector<Text> entries;
    for (std::int32_t index = 1, count = AsNumber(Get(errors, items, u"Count")); index <= count;
         ++index) {
        const ObjectPtr item = AsObject(Get(errors, items, u"Item", {index}));
        if (AsNumber(Get(errors, item, u"Class")) != outlook::ContactClass) continue;
        const Text number = NumberOf(item);
        if (number.empty()) continue;
        entries.push_back(AsText(Get(errors, item, u"FullName")) + u"  (" + number + u")");
    }
    std::sort(entries.begin(), entries.end(), LessFolded);
    addresses.Assign(std::move(entries));
    return addresses;
}

Text Contacts::SelectedRecipients(const ObjectPtr& outlookApplication) {
    application =
        outlookApplication ? outlookApplication : automation.Running(u"Outlook.Application");
    const ObjectPtr explorer = AsObject(Call(errors, application, u"ActiveExplorer"));
    const ObjectPtr selection = AsObject(Get(errors, explorer, u"Selection"));
    Text recipients;
    for (std::int32_t index = 1, count = AsNumber(Get(errors, selection, u"Count")); index <= count;
         ++index) {
        const ObjectPtr item = AsObject(Get(errors, selection, u"Item", {index}));
        const std::int32_t itemClass = AsNumber(Get(errors, item, u"Class"));
        Text number;
        if (itemClass == outlook::ContactClass) {
            number = prefixes.GetNumber(AsText(Get(errors, item, u"FullName")) + u"  (" +
                                        NumberOf(item) + u")");
        } else if (itemClass == outlook::MailClass) {
            number = NumberForMail(item);
        }
        if (number.empty()) continue;
        if (!recipients.empty()) recipients += u';';
        recipients += number;
    }
    return recipients;
}

// A reply to the mail names its sender; the first contact named in there is the recipient. Read
// through Redemption, since Outlook would ask the user before it hands out a body.
Text Contacts::NumberForMail(const ObjectPtr& mail) {
    const ObjectPtr safeItem = automation.Create(u"Redemption.SafeMailItem");
    if (!safeItem) return {};
    safeItem->Put(u"Item", Call(errors, mail, u"Reply"));
    const Text body = LowerCase(AsText(safeItem->Get(u"Body")));
    const AddressList& list = Addresses();
    std::size_t first = Text::npos;
    std::size_t named = list.Size();
    for (std::size_t index = 0; index < list.Size(); ++index) {
        const Text& entry = list.Entry(index);
        const Text name = LowerCase(TextView(entry).substr(0, entry.rfind(u"  (")));
        const std::size_t found = name.empty() ? Text::npos : body.find(name);
        if (found < first) {
            first = found;
            named = index;
        }
    }
    return named < list.Size() ? prefixes.GetNumber(list.Entry(named)) : Text();
}

}  // namespace tellwick
