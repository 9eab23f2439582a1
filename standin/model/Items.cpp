#include "model/Items.h"

#include <algorithm>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

// Types of user properties.
constexpr std::int32_t TextType = 1;
constexpr std::int32_t NumberType = 3;
constexpr std::int32_t TruthType = 6;

constexpr TextView MailMessage = u"IPM.Note";

// What a user property of the type begins with; empty for a type that is not played.
Value FirstValue(std::int32_t type) {
    switch (type) {
        case TextType:
            return Text();
        case NumberType:
            return 0.0;
        case TruthType:
            return false;
        default:
            return {};
    }
}

// A value of the type that the property has; false when the new one cannot be converted.
bool Assign(Value& held, const Value& value) {
    if (auto* truth = std::get_if<bool>(&held)) return Convert(value, *truth);
    if (auto* text = std::get_if<Text>(&held)) return Convert(value, *text);
    std::int32_t number = 0;
    if (!Convert(value, number)) return false;
    held = std::holds_alternative<double>(value) ? value : Value(double(number));
    return true;
}

void PutField(Item& item, TextView name, const Value& value) {
    Text text;
    if (Convert(value, text)) {
        item.SetField(name, text);
    } else {
        item.Fail(error::TypeMismatch);
    }
}

void AddDates(Members<Item>& members) {
    members
        .Property(u"CreationTime", [](Item& self) { return self.created + self.outlook.timeZone; })
        .Property(u"LastModificationTime",
                  [](Item& self) { return self.modified + self.outlook.timeZone; });
}

// What the user is asked for before it is handed out.
bool IsGuarded(TextView field) {
    constexpr TextView Fields[] = {u"Body", u"SenderName",    u"SentOnBehalfOfName",
                                   u"To",   u"Email1Address", u"CC"};
    return std::ranges::find(Fields, field) != std::end(Fields);
}

void AddPeople(Members<Item>& members) {
    members.Property(u"MemberCount", [](Item& self) { return std::int32_t(self.people.size()); })
        .Method(
            u"GetMember", {u"Index"},
            [](Item& self, const Arguments& arguments) -> Value {
                const auto index = std::size_t(AsNumber(arguments[0]));
                if (index < 1 || index > self.people.size()) {
                    return self.Fail(error::SubscriptOutOfRange);
                }
                return std::make_shared<Recipient>(self.outlook, self.people[index - 1])->Handle();
            })
        .Guarded();
}

Members<Item> ItemMembers(std::int32_t itemClass) {
    Members<Item> members = OutlookMembers<Item>(itemClass);
    AddDates(members);
    if (itemClass == DistributionListClass) AddPeople(members);
    if (itemClass == AppointmentClass) AddAppointmentMembers(members);
    for (const TextView name : FieldNames(itemClass)) {
        members.Property(
            name, [name](Item& self) { return self.Field(name); },
            [name](Item& self, const Value& value) { PutField(self, name, value); });
        if (IsGuarded(name)) members.Guarded();
    }
    members.Property(u"Parent", [](Item& self) { return HandleOf(self.folder.lock()); })
        .Property(u"UserProperties", [](Item& self) { return self.Properties()->Handle(); })
        .Method(u"Display", {u"Modal"},
                [](Item& self, const Arguments&) {
                    self.outlook.OpenInspector(Self(self));
                    return Value();
                })
        .Method(u"Close", {u"SaveMode"},
                [](Item& self, const Arguments&) {
                    self.outlook.CloseInspector(self.outlook.InspectorOf(Self(self)));
                    return Value();
                })
        .Method(u"Save", {},
                [](Item& self, const Arguments&) -> Value {
                    if (!self.storedMeanwhile.empty()) return self.Fail(error::Automation);
                    self.outlook.SaveItem(Self(self));
                    return {};
                })
        .Method(u"Delete", {}, [](Item& self, const Arguments&) {
            self.outlook.DeleteItem(Self(self));
            return Value();
        });
    members.Field(u"UnRead", &Item::unread);
    if (itemClass == MailClass) {
        members.Property(u"Sent", [](Item& self) { return self.sent; });
        members.Property(u"ReceivedTime", [](Item& self) { return self.created; });
        // A handler that cancels takes the reply away from the caller, too.
        members.Method(u"Reply", {}, [](Item& self, const Arguments&) {
            const OutlookModel::Answer answer = self.outlook.PrepareReply(Self(self));
            return HandleOf(answer.cancelled ? nullptr : answer.response);
        });
    }
    return members.Default(u"Subject");
}

}  // namespace

std::optional<std::int32_t> ClassOfType(std::int32_t type) {
    switch (type) {
        case MailItem:
            return MailClass;
        case AppointmentItem:
            return AppointmentClass;
        case ContactItem:
            return ContactClass;
        case PostItem:
            return PostClass;
        default:
            return {};
    }
}

const std::vector<TextView>& FieldNames(std::int32_t itemClass) {
    static const std::vector<TextView> mail{
        u"Subject", u"Body",         u"SenderName", u"SentOnBehalfOfName", u"To",
        u"CC",      u"MessageClass", u"EntryID",    u"BillingInformation"};
    static const std::vector<TextView> contact{u"FullName",
                                               u"FirstName",
                                               u"LastName",
                                               u"CompanyName",
                                               u"FileAs",
                                               u"Subject",
                                               u"Body",
                                               u"Email1Address",
                                               u"MessageClass",
                                               u"EntryID",
                                               u"MobileTelephoneNumber",
                                               u"HomeTelephoneNumber",
                                               u"Home2TelephoneNumber",
                                               u"BusinessTelephoneNumber",
                                               u"Business2TelephoneNumber",
                                               u"CarTelephoneNumber",
                                               u"PrimaryTelephoneNumber",
                                               u"OtherTelephoneNumber",
                                               u"AssistantTelephoneNumber",
                                               u"CompanyMainTelephoneNumber",
                                               u"CallbackTelephoneNumber",
                                               u"RadioTelephoneNumber",
                                               u"TTYTDDTelephoneNumber",
                                               u"ISDNNumber",
                                               u"PagerNumber",
                                               u"TelexNumber",
                                               u"BusinessFaxNumber",
                                               u"HomeFaxNumber",
                                               u"OtherFaxNumber"};
    static const std::vector<TextView> appointment{u"Subject", u"Body", u"Location",
                                                   u"MessageClass", u"EntryID"};
    static const std::vector<TextView> post{u"Subject",      u"Body",    u"SenderName",
                                            u"MessageClass", u"EntryID", u"BillingInformation"};
    static const std::vector<TextView> list{u"DLName", u"Subject", u"Body", u"MessageClass",
                                            u"EntryID"};
    switch (itemClass) {
        case ContactClass:
            return contact;
        case AppointmentClass:
            return appointment;
        case DistributionListClass:
            return list;
        case PostClass:
            return post;
        default:
            return mail;
    }
}

const MemberTable& UserProperty::Table() const {
    static const MemberTable table =
        OutlookMembers<UserProperty>(39)
            .Property(u"Name", [](UserProperty& self) { return self.name; })
            .Property(u"Type",
                      [](UserProperty& self) {
                          return std::holds_alternative<bool>(self.value)   ? TruthType
                                 : std::holds_alternative<Text>(self.value) ? TextType
                                                                            : NumberType;
                      })
            .Property(
                u"Value", [](UserProperty& self) { return self.value; },
                [](UserProperty& self, const Value& value) {
                    if (!Assign(self.value, value)) self.Fail(error::TypeMismatch);
                })
            .Default(u"Value");
    return table;
}

const MemberTable& UserProperties::Table() const {
    static const MemberTable table =
        OutlookMembers<UserProperties>(38)
            .Collection([](UserProperties& self, const Text& name) -> Value {
                const auto found = self.Find(name);
                // Outlook 2000 raises an error for an unknown name, later versions give the empty
                // reference.
                if (!found && self.outlook.version < 10) {
                    return self.Fail(error::SubscriptOutOfRange);
                }
                return HandleOf(found);
            })
            .Method(
                u"Add", {u"Name", u"Type", u"AddToFolderFields", u"DisplayFormat"},
                [](UserProperties& self, const Arguments& arguments) -> Value {
                    const Text name = AsText(arguments[0]);
                    if (const auto found = self.Find(name)) return found->Handle();
                    const Value first = FirstValue(AsNumber(arguments[1]));
                    if (name.empty() || std::holds_alternative<Nothing>(first)) {
                        return self.Fail(error::InvalidCall);
                    }
                    self.all.push_back(std::make_shared<UserProperty>(self.outlook, name, first));
                    return self.all.back()->Handle();
                })
            .Method(u"Find", {u"Name", u"Custom"},
                    [](UserProperties& self, const Arguments& arguments) {
                        return HandleOf(self.Find(AsText(arguments[0])));
                    });
    return table;
}

std::shared_ptr<UserProperty> UserProperties::Find(TextView name) const {
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& property) {
        return EqualFolded(property->name, name);
    });
    return found == all.end() ? nullptr : *found;
}

Item::Item(OutlookModel& outlook, std::int32_t itemClass)
    : ModelObject(outlook), itemClass(itemClass) {
    if (itemClass == AppointmentClass) appointment = std::make_unique<Appointment>();
}

const std::shared_ptr<UserProperties>& Item::Properties() {
    if (!userProperties) userProperties = std::make_shared<UserProperties>(outlook);
    return userProperties;
}

TextView Item::ClassName() const {
    switch (itemClass) {
        case AppointmentClass:
            return u"AppointmentItem";
        case ContactClass:
            return u"ContactItem";
        case DistributionListClass:
            return u"DistListItem";
        case PostClass:
            return u"PostItem";
        default:
            return u"MailItem";
    }
}

const MemberTable& Item::Table() const {
    static const std::map<std::int32_t, MemberTable> tables{
        {AppointmentClass, ItemMembers(AppointmentClass)},
        {ContactClass, ItemMembers(ContactClass)},
        {DistributionListClass, ItemMembers(DistributionListClass)},
        {MailClass, ItemMembers(MailClass)},
        {PostClass, ItemMembers(PostClass)}};
    const auto found = tables.find(itemClass);
    return found == tables.end() ? tables.at(MailClass) : found->second;
}

const EventInterface* Item::Events() const {
    return &ItemEvents;
}

void Item::OnHeld() {
    // What was posted has been sent, and is what its message class says once it is opened anew.
    if (itemClass == PostClass && !folder.expired() && Field(u"MessageClass") == MailMessage) {
        itemClass = MailClass;
        sent = true;
    }
    for (const auto& [name, value] : storedMeanwhile) SetField(name, value);
    storedMeanwhile.clear();
}

Text Item::Field(TextView name) const {
    for (const auto& [known, value] : fields) {
        if (EqualFolded(known, name)) return value;
    }
    // Outlook takes both from the full name, unless they are set.
    const bool first = itemClass == ContactClass && name == u"FirstName";
    if (!first && (itemClass != ContactClass || name != u"LastName")) return {};
    const Text full = Field(u"FullName");
    const std::size_t blank = full.rfind(u' ');
    if (blank == Text::npos) return first ? full : Text();
    return first ? full.substr(0, full.find(u' ')) : full.substr(blank + 1);
}

void Item::SetField(TextView name, TextView value) {
    for (auto& [known, held] : fields) {
        if (EqualFolded(known, name)) {
            held = value;
            return;
        }
    }
    for (const TextView known : FieldNames(itemClass)) {
        if (EqualFolded(known, name)) fields.emplace_back(known, value);
    }
}

void Item::SetUserProperty(TextView name, Value value) {
    if (const auto property = Properties()->Find(name)) {
        property->value = std::move(value);
    } else {
        Properties()->all.push_back(
            std::make_shared<UserProperty>(outlook, Text(name), std::move(value)));
    }
}

Text Item::Title() const {
    switch (itemClass) {
        case ContactClass:
            return Field(u"FullName");
        case DistributionListClass:
            return Field(u"DLName");
        default:
            return Field(u"Subject");
    }
}

}  // namespace tellwick::standin
