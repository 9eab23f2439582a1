#include "recipients/Contacts.h"

#include "platform/Meanwhile.h"
#include "recipients/Prefixes.h"

namespace tellwick {

Contacts::Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes)
    : errors(errors), automation(automation), prefixes(prefixes) {}

Text Contacts::NumberOfContact(const ObjectPtr& contact) {
    Text number = AsText(Get(errors, contact, u"MobileTelephoneNumber"));
    if (number.empty()) number = AsText(Get(errors, contact, u"HomeTelephoneNumber"));
    return Dialable(number);
}

Person Contacts::PersonOfContact(const ObjectPtr& contact) {
    const auto name = [&](TextView member) {
        return OneLine(AsText(Get(errors, contact, member)));
    };
    Person person{name(u"FirstName"), name(u"LastName"), name(u"FullName"), name(u"CompanyName")};
    // One that another program has put there may have no more than its whole name.
    if (person.firstName.empty() && person.lastName.empty())
        return PersonNamed(person.fullName, {}, person.company);
    return person;
}

Text Contacts::Dialable(TextView number) {
    return prefixes.NationalNumber(number);
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

}  // namespace tellwick
