// Outlook's items, the folders they lie in, and the outside library's way to read them.
#pragma once

#include <optional>
#include <utility>

#include "model/Appointments.h"
#include "model/ModelObject.h"

namespace tellwick::standin {

class Folder;

inline constexpr std::int32_t CalendarFolder = 9;

// Item types, as CreateItem takes them.
inline constexpr std::int32_t MailItem = 0;
inline constexpr std::int32_t AppointmentItem = 1;
inline constexpr std::int32_t ContactItem = 2;
inline constexpr std::int32_t PostItem = 6;

// The class of such items; empty for a type that is not played.
std::optional<std::int32_t> ClassOfType(std::int32_t type);

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

// An item of one of the five kinds. Its plain text properties are fields by name; a field that was
// never set is the empty text.
class Item : public ModelObject {
public:
    Item(OutlookModel& outlook, std::int32_t itemClass);
    TextView ClassName() const override;
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
    bool IsGone() const override { return deleted; }
    void OnHeld() override;
    std::shared_ptr<Folder> Within() override { return folder.lock(); }

    Text Field(TextView name) const;
    // Nothing when items of the class have no such field.
    void SetField(TextView name, TextView value);
    // Made when first asked for: most of many items have none.
    const std::shared_ptr<UserProperties>& Properties();
    void SetUserProperty(TextView name, Value value);
    // What a list of items shows for it.
    Text Title() const;

    struct Person {
        Text name, address;
    };

    std::int32_t itemClass;  // of a post, once it is seen again after it has become a mail, that
    std::vector<Person> people;  // the members of a distribution list
    double created = 0;          // dates, see Value; of the universal time
    double modified = 0;
    std::weak_ptr<Folder> folder;
    std::weak_ptr<Folder> madeIn;              // by Items.Add: where it is saved
    std::unique_ptr<Appointment> appointment;  // null for any other item
    bool deleted = false;
    // Came in or went out; else a mail that is still being written.
    bool sent = false;
    bool unread = false;
    // Fields that the store has got while somebody held the item.
    std::vector<std::pair<Text, Text>> storedMeanwhile;

private:
    std::vector<std::pair<TextView, Text>> fields;  // by the names of FieldNames
    std::shared_ptr<UserProperties> userProperties;
};

// A person whom a distribution list names.
class Recipient : public ModelObject {
public:
    Recipient(OutlookModel& outlook, Item::Person person)
        : ModelObject(outlook), person(std::move(person)) {}
    TextView ClassName() const override { return u"Recipient"; }
    const MemberTable& Table() const override;

    const Item::Person person;
};

// An item of a collection that was told by SetColumns what is wanted: everything else is empty.
class ColumnItem : public ModelObject {
public:
    ColumnItem(std::shared_ptr<Item> item, const std::vector<Text>& columns);
    TextView ClassName() const override { return item->ClassName(); }
    const MemberTable& Table() const override;
    bool IsGone() const override { return item->IsGone(); }
    std::shared_ptr<Folder> Within() override { return item->Within(); }

    const std::shared_ptr<Item> item;
    const std::vector<Text>& columns;
};

// The names of the fields that items of the class have.
const std::vector<TextView>& FieldNames(std::int32_t itemClass);

class Items : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Items"; }
    const MemberTable& Table() const override;
    std::shared_ptr<Folder> Within() override { return folder.lock(); }

    // Of all, those that meet the filter, which compares one field with a text or a date:
    // "[FullName] = 'Anna'", "[LastModificationTime] >= '21.11.2026 17:00'". Empty when it cannot
    // be read.
    std::shared_ptr<Items> Restricted(TextView filter) const;
    // By a property, which may stand in brackets. False when it cannot be sorted by.
    bool Sort(TextView property, bool descending);
    // A new item of the collection's folder, by its type or its message class. Null for one that is
    // not played.
    std::shared_ptr<Item> Add(const Value& type) const;

    std::weak_ptr<Folder> folder;
    std::vector<std::shared_ptr<Item>> all;
    std::size_t next = 0;       // where GetNext goes on
    std::vector<Text> columns;  // see ColumnItem; empty: whole items
};

class Folders : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Folders"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<Folder>> all;
};

// What folders lie in: a mailbox, a file, the public folders.
struct StoreState {
    Text id;
    std::int32_t exchangeType = NotExchange;
    bool open = true;
    bool hasPassword = false;  // whoever has it opened is asked, and does not know it
    double milliseconds = 0;   // that each call takes

    // As Store.ExchangeStoreType.
    static constexpr std::int32_t PublicFolders = 2;
    static constexpr std::int32_t NotExchange = 3;
    static constexpr std::int32_t Additional = 4;
};

class Folder : public ModelObject {
public:
    // Of mails, unless its number or its type says otherwise.
    Folder(OutlookModel& outlook, Text name, std::int32_t number, std::int32_t itemType = MailItem);
    TextView ClassName() const override { return u"MAPIFolder"; }
    const MemberTable& Table() const override;
    // Also of a store that cannot be reached, or whose password was asked for.
    bool IsGone() const override;
    std::shared_ptr<Folder> Within() override { return Self(*this); }

    // Puts a folder into this one.
    std::shared_ptr<Folder> Add(TextView newName, std::int32_t newType);

    Text name;
    const std::int32_t number;  // as default folder; 0 for any other
    const std::int32_t itemType;
    const Text entryId;
    std::shared_ptr<StoreState> store;
    bool unreachable = false;
    bool hidden = false;
    bool countFails = false;  // of its items
    const std::shared_ptr<Folders> folders;
    const std::shared_ptr<Items> items;
};

// Rows of a folder, as Outlook 2007 and later give them out (GetTable).
class ItemTable : public ModelObject {
public:
    ItemTable(OutlookModel& outlook, std::shared_ptr<Folder> folder,
              std::vector<std::shared_ptr<Item>> items)
        : ModelObject(outlook), folder(std::move(folder)), items(std::move(items)) {}
    TextView ClassName() const override { return u"Table"; }
    const MemberTable& Table() const override;
    std::shared_ptr<Folder> Within() override { return folder; }

    const std::shared_ptr<Folder> folder;

    const std::vector<std::shared_ptr<Item>> items;
    std::size_t next = 0;  // row
    std::vector<Text> columns{u"EntryID", u"Subject", u"CreationTime", u"LastModificationTime",
                              u"MessageClass"};
};

// A row as GetNextRow gives it.
class TableRow : public ModelObject {
public:
    TableRow(std::shared_ptr<ItemTable> table, std::vector<Value> values)
        : ModelObject(table->outlook), table(std::move(table)), values(std::move(values)) {}
    TextView ClassName() const override { return u"Row"; }
    const MemberTable& Table() const override;
    std::shared_ptr<Folder> Within() override { return table->folder; }

    const std::shared_ptr<ItemTable> table;
    const std::vector<Value> values;
};

class TableColumns : public ModelObject {
public:
    explicit TableColumns(std::shared_ptr<ItemTable> table)
        : ModelObject(table->outlook), table(std::move(table)) {}
    TextView ClassName() const override { return u"Columns"; }
    const MemberTable& Table() const override;

    const std::shared_ptr<ItemTable> table;
};

// What "Redemption.SafeMailItem", "...SafeDistList" and "...SafeAppointmentItem" create: any
// property of the item put into it. A mail's Sent can be put, too, until it is saved for the first
// time.
class SafeItem : public ModelObject {
public:
    SafeItem(OutlookModel& outlook, std::int32_t itemClass)
        : ModelObject(outlook), itemClass(itemClass) {}
    TextView ClassName() const override;
    const MemberTable& Table() const override;
    void Put(const Member& member, const Value& value) const;

    const std::int32_t itemClass;
    std::shared_ptr<Item> item;
};

}  // namespace tellwick::standin
