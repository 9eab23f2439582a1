#include "delivery/OutlookInbox.h"

#include <utility>

#include "platform/OutlookEvents.h"

namespace tellwick::sender {

namespace {

constexpr std::int32_t YesNoProperty = 6;
// A text of its own that every item has, and that can be searched for: a property of the user's can
// be only where the folder knows it.
constexpr TextView NameProperty = u"BillingInformation";
constexpr std::size_t LongestSubject = 80;

}  // namespace

Text SubjectOf(const ReceivedSms& sms) {
    const Text text = Trimmed(sms.text);
    Text line = Trimmed(TextView(text).substr(0, text.find_first_of(u"\r\n")));
    if (line.size() > LongestSubject) {
        const bool splits = (line[LongestSubject - 1] & 0xFC00) == 0xD800;
        line.resize(splits ? LongestSubject - 1 : LongestSubject);
        line += u'\u2026';
    }
    return line.empty() ? sms.from : line;
}

// Outlook takes what it creates for a mail that is still being written: it would stand in the inbox
// as a draft, and nobody could reply to it. Redemption can say otherwise before the mail is saved.
// Without it the mail begins as a post, which counts as sent, and which Outlook takes for a mail
// once it has let go of it and opens it anew.
Stored OutlookInbox::Put(const ReceivedSms& sms, bool triedBefore) {
    errors.Clear();
    const ObjectPtr outlook = automation.Running(u"Outlook.Application");
    if (!outlook) return Stored::Away;
    const ObjectPtr session = AsObject(Call(errors, outlook, u"GetNamespace", {Text(u"MAPI")}));
    const ObjectPtr inbox =
        AsObject(Call(errors, session, u"GetDefaultFolder", {outlook::InboxFolder}));
    if (!inbox) return Stored::Away;

    ObjectPtr mail = triedBefore ? FormerOne(inbox, sms) : nullptr;
    errors.Clear();
    ObjectPtr safeItem;
    if (!mail) {
        safeItem = automation.Create(u"Redemption.SafeMailItem");
        errors.Clear();
        mail = NewMail(inbox, sms, safeItem);
        if (!safeItem && !errors) mail = Reopened(session, std::move(mail));
    }
    if (!errors) {
        if (!safeItem) tellwick::Put(errors, mail, u"SentOnBehalfOfName", sms.from);
        tellwick::Put(errors, mail, u"UnRead", true);
        Call(errors, mail, u"Save");
    }
    if (!errors) return Stored::Done;
    if (mail) mail->Call(u"Delete");
    return Stored::Failed;
}

ObjectPtr OutlookInbox::NewMail(const ObjectPtr& inbox, const ReceivedSms& sms,
                                const ObjectPtr& safeItem) {
    const auto put = [this](const ObjectPtr& object, TextView member, const Value& value) {
        tellwick::Put(errors, object, member, value);
    };
    const ObjectPtr items = AsObject(Get(errors, inbox, u"Items"));
    ObjectPtr mail =
        AsObject(Call(errors, items, u"Add", {Text(safeItem ? u"IPM.Note" : u"IPM.Post")}));
    put(mail, u"Subject", SubjectOf(sms));
    put(mail, u"Body", sms.text);
    put(mail, NameProperty, sms.files.front());
    const ObjectPtr properties = AsObject(Get(errors, mail, u"UserProperties"));
    put(AsObject(Call(errors, properties, u"Add", {Text(u"IsSMS"), YesNoProperty})), u"Value",
        true);
    if (safeItem) {
        put(safeItem, u"Item", mail);
        put(safeItem, u"Sent", true);
        put(mail, u"SentOnBehalfOfName", sms.from);
    } else {
        put(mail, u"MessageClass", Text(u"IPM.Note"));
    }
    if (!errors) Call(errors, mail, u"Save");
    return mail;
}

ObjectPtr OutlookInbox::FormerOne(const ObjectPtr& inbox, const ReceivedSms& sms) {
    const Text filter = u"[" + Text(NameProperty) + u"] = '" + sms.files.front() + u"'";
    const ObjectPtr items = AsObject(Get(errors, inbox, u"Items"));
    const ObjectPtr found = AsObject(Call(errors, items, u"Restrict", {filter}));
    return AsObject(Call(errors, found, u"GetFirst"));
}

ObjectPtr OutlookInbox::Reopened(const ObjectPtr& session, ObjectPtr item) {
    const Text identifier = AsText(Get(errors, item, u"EntryID"));
    if (errors) return item;
    item.reset();
    return AsObject(Call(errors, session, u"GetItemFromID", {identifier}));
}

}  // namespace tellwick::sender
