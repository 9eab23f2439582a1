// Outlook's items, the folders they lie in, and the outside library's way to read them.
#pragma once

#include <map>
#include <utility>

#include "model/ModelObject.h"

namespace tellwick::standin {

class Folder;

inline constexpr std::int32_t CalendarFolder = 9;

// Item types, as CreateItem takes them.
inline constexpr std::int32_t MailItem = 0;
inline constexpr std::int32_t AppointmentItem = 1;
inline constexpr std::int32_t ContactItem = 2;

class UserProperty : public ModelObject {
public:
    UserProperty(OutlookModel& outlook, Text name, Value value)
        : ModelObject(outlook), name(std::move(name)), value(std::move(value)) {}
    TextView ClassName() const override { return u"UserProperty"; }
    const MemberTable& Table() const override;

    Text name;
    Value value;
};

class UserProperties : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"UserProperties"; }
    const MemberTable& Table() const override;
    std::shared_ptr<UserProperty> Find(TextView name) const;

    std::vector<std::shared_ptr<UserProperty>> all;
};

// An item of one of the four kinds. Its plain text properties are fields by name; a field that was
// never set is the empty text.
class Item : public ModelObject {
public:
    Item(OutlookModel& outlook, std::int32_t itemClass);
    TextView ClassName() const override;
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
    bool IsGone() const override { return deleted; }

    Text Field(TextView name) const;
    void SetField(TextView name, TextView value) { fields[LowerCase(name)] = value; }
    void SetUserProperty(TextView name, Value value);
    // What a list of items shows for it.
    Text Title() const;

    const std::int32_t itemClass;
    std::map<Text, Text> fields;  // by folded name
    std::shared_ptr<UserProperties> userProperties;
    std::weak_ptr<Folder> folder;
    bool deleted = false;
};

// The names of the fields that items of the class have.
const std::vector<TextView>& FieldNames(std::int32_t itemClass);

class Items : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Items"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<Item>> all;
    std::size_t next = 0;  // where GetNext goes on
};

class Folders : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Folders"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<Folder>> all;
};

class Folder : public ModelObject {
public:
    Folder(OutlookModel& outlook, Text name, std::int32_t number)
        : ModelObject(outlook),
          name(std::move(name)),
          number(number),
          folders(std::make_shared<Folders>(outlook)),
          items(std::make_shared<Items>(outlook)) {}
    TextView ClassName() const override { return u"MAPIFolder"; }
    const MemberTable& Table() const override;

    const Text name;
    const std::int32_t number;  // as default folder; 0 for a store's root
    const std::shared_ptr<Folders> folders;
    const std::shared_ptr<Items> items;
};

// What "Redemption.SafeMailItem" creates: any property of the mail item put into it.
class SafeMailItem : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"SafeMailItem"; }
    const MemberTable& Table() const override;

    std::shared_ptr<Item> item;
};

}  // namespace tellwick::standin
