// Redemption: an outside library's way to items, past the security question.
#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

using namespace tellwick::outlook;

ObjectPtr OutlookModel::CreateSafeItem(std::int32_t itemClass) {
    return std::make_shared<SafeItem>(*this, itemClass)->Handle();
}

TextView SafeItem::ClassName() const {
    return itemClass == MailClass          ? u"SafeMailItem"
           : itemClass == AppointmentClass ? u"SafeAppointmentItem"
                                           : u"SafeDistList";
}

void SafeItem::Put(const Member& member, const Value& value) const {
    const bool sent = member.name == u"Sent";
    if (!item) {
        Fail(error::ObjectNotSet);
    } else if (sent && item->folder.expired()) {
        item->sent = AsBoolean(value);
    } else if (!member.put) {
        Fail(sent ? error::Automation : error::NoSuchMember);
    } else {
        member.put(*item, value);
    }
}

const MemberTable& SafeItem::Table() const {
    static const auto make = [](std::int32_t itemClass, const Item& example) {
        Members<SafeItem> members;
        for (const Member& member : example.Table().All()) {
            if (member.isMethod) continue;
            members.Property(
                member.name,
                [&member](SafeItem& self) -> Value {
                    if (!self.item) return self.Fail(error::ObjectNotSet);
                    return member.name == u"Recipients" ? SafeRecipientsOf(self.item)
                                                        : member.get(*self.item, {});
                },
                [&member](SafeItem& self, const Value& value) { self.Put(member, value); });
        }
        members.Property(
            u"Item", [](SafeItem& self) { return HandleOf(self.item); },
            [itemClass](SafeItem& self, const Value& value) {
                const auto item = TargetAs<Item>(AsObject(value));
                if (item && item->itemClass == itemClass) {
                    self.item = item;
                } else {
                    self.Fail(error::TypeMismatch);
                }
            });
        if (const Member* getMember = example.Table().Find(u"GetMember")) {
            members.Method(u"GetMember", {u"Index"},
                           [getMember](SafeItem& self, const Arguments& arguments) -> Value {
                               return self.item ? getMember->get(*self.item, arguments)
                                                : self.Fail(error::ObjectNotSet);
                           });
        }
        return members;
    };
    static const MemberTable mail = make(MailClass, Item(outlook, MailClass));
    static const MemberTable list =
        make(DistributionListClass, Item(outlook, DistributionListClass));
    static const MemberTable appointment = make(AppointmentClass, Item(outlook, AppointmentClass));
    return itemClass == MailClass ? mail : itemClass == AppointmentClass ? appointment : list;
}

}  // namespace tellwick::standin
