// Folders, the collections of their items, and the faster ways to read them.
#include <algorithm>
#include <charconv>

#include "model/OutlookModel.h"
#include "model/Stores.h"
#include "platform/Grid.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

bool Includes(const std::vector<Text>& names, TextView name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const Text& other) { return EqualFolded(other, name); });
}

// What items refuse to be read for a whole collection.
bool RefusedAsColumn(TextView name) {
    static const std::vector<Text> refused{u"Body",   u"Class",   u"DLName",     u"EntryID",
                                           u"Parent", u"Actions", u"MemberCount"};
    return Includes(refused, name);
}

std::vector<Text> ColumnsOf(TextView list) {
    std::vector<Text> columns;
    for (const Text& part : Split(list, u",")) columns.push_back(Trimmed(part));
    return columns;
}

// A property as a value, to be compared; empty when the item has none of that name.
Value Cell(Item& item, TextView name) {
    const Member* member = item.Table().Find(name);
    return member && !member->isMethod ? member->get(item, {}) : Value();
}

// What a table's columns can be called beside the items' properties: these dates are universal.
const MemberTable& UniversalDates() {
    static const MemberTable table =
        Members<Item>()
            .Property(u"http://schemas.microsoft.com/mapi/proptag/0x30070040",
                      [](Item& self) { return self.created; })
            .Property(u"http://schemas.microsoft.com/mapi/proptag/0x30080040",
                      [](Item& self) { return self.modified; });
    return table;
}

// The properties behind a table's columns, null where the items have none of that name.
std::vector<const Member*> PropertiesOf(const MemberTable& table,
                                        const std::vector<Text>& columns) {
    std::vector<const Member*> properties;
    for (const Text& column : columns) {
        const Member* member = UniversalDates().Find(column);
        if (!member) member = table.Find(column);
        properties.push_back(member && !member->isMethod ? member : nullptr);
    }
    return properties;
}

struct Filter {
    Text field, comparison, value;
};

// "[FIELD] COMPARISON 'VALUE'"; without a field when it is something else.
Filter ReadFilter(TextView text) {
    const std::size_t closed = text.find(u']');
    const std::size_t quote = text.find(u'\'');
    const Text trimmed = Trimmed(text);
    if (!StartsWith(trimmed, u"[") || !EndsWith(trimmed, u"'") || closed == TextView::npos ||
        quote == TextView::npos || quote < closed || text.rfind(u'\'') == quote) {
        return {};
    }
    return {Text(text.substr(text.find(u'[') + 1, closed - text.find(u'[') - 1)),
            Trimmed(text.substr(closed + 1, quote - closed - 1)),
            Text(text.substr(quote + 1, text.rfind(u'\'') - quote - 1))};
}

bool Holds(double left, TextView comparison, double right) {
    if (comparison == u">=") return left >= right;
    if (comparison == u">") return left > right;
    if (comparison == u"<=") return left <= right;
    if (comparison == u"<") return left < right;
    return left == right;
}

}  // namespace

Folder::Folder(OutlookModel& outlook, Text name, std::int32_t number, std::int32_t itemType)
    : ModelObject(outlook),
      name(std::move(name)),
      number(number),
      itemType(number == ContactsFolder   ? ContactItem
               : number == CalendarFolder ? AppointmentItem
                                          : itemType),
      entryId(outlook.NewEntryId()),
      store(std::make_shared<StoreState>()),
      folders(std::make_shared<Folders>(outlook)),
      items(std::make_shared<Items>(outlook)) {
    store->id = entryId;
}

bool Folder::IsGone() const {
    return unreachable || !store->open || outlook.sessionEnded;
}

std::shared_ptr<Folder> Folder::Add(TextView newName, std::int32_t newType) {
    folders->all.push_back(std::make_shared<Folder>(outlook, Text(newName), 0, newType));
    folders->all.back()->store = store;
    return folders->all.back();
}

const MemberTable& Folders::Table() const {
    static const MemberTable table =
        OutlookMembers<Folders>(15).Collection([](Folders& self, const Text& name) -> Value {
            for (const auto& folder : self.all) {
                if (EqualFolded(folder->name, name)) return folder->Handle();
            }
            return self.Fail(error::SubscriptOutOfRange);
        });
    return table;
}

const MemberTable& Folder::Table() const {
    static const MemberTable table =
        OutlookMembers<Folder>(2)
            .Property(u"Name", [](Folder& self) { return self.name; })
            .Default(u"Name")
            .Property(u"DefaultItemType", [](Folder& self) { return self.itemType; })
            .Property(u"EntryID", [](Folder& self) { return self.entryId; })
            .Property(u"StoreID", [](Folder& self) { return self.store->id; })
            .Property(u"Folders", [](Folder& self) { return self.folders->Handle(); })
            // Another collection each time: columns are set in one, not in the folder.
            .Property(u"Items",
                      [](Folder& self) {
                          auto items = std::make_shared<Items>(self.outlook);
                          items->folder = Self(self);
                          items->all = self.items->all;
                          return items->Handle();
                      })
            .Method(u"GetTable", {u"Filter", u"TableContents"},
                    [](Folder& self, const Arguments& arguments) -> Value {
                        const Text filter = AsText(arguments[0]);
                        const auto items =
                            filter.empty() ? self.items : self.items->Restricted(filter);
                        if (!items) return {};
                        return std::make_shared<ItemTable>(self.outlook, Self(self), items->all)
                            ->Handle();
                    })
            .From(12)
            .Property(u"PropertyAccessor",
                      [](Folder& self) {
                          return std::make_shared<PropertyAccessor>(Self(self))->Handle();
                      })
            .From(12)
            .Property(u"Store", [](Folder& self) { return self.outlook.StoreOf(self)->Handle(); })
            .From(12);
    return table;
}

std::shared_ptr<Items> Items::Restricted(TextView text) const {
    const Filter filter = ReadFilter(text);
    const bool byDate = EqualFolded(filter.field, u"LastModificationTime") ||
                        EqualFolded(filter.field, u"CreationTime");
    const std::optional<double> read =
        byDate ? outlook.readDate(filter.value) : std::optional<double>();
    // The text has the year of the user's calendar, which is read as one of the common calendar.
    constexpr double Buddhist = 543 * 365.2425;
    const double date = read.value_or(0) + (outlook.Does(Documented::OtherCalendar) ? Buddhist : 0);
    if (filter.field.empty() || (byDate ? !read : filter.comparison != u"=")) {
        Fail(error::InvalidCall);
        return nullptr;
    }
    auto restricted = std::make_shared<Items>(outlook);
    restricted->folder = folder;
    for (const auto& item : all) {
        const bool meets = byDate
                               ? Holds(AsReal(Cell(*item, filter.field)), filter.comparison, date)
                               : EqualFolded(AsText(Cell(*item, filter.field)), filter.value);
        if (meets) restricted->all.push_back(item);
    }
    return restricted;
}

bool Items::Sort(TextView property, bool descending) {
    if (StartsWith(property, u"[") && EndsWith(property, u"]"))
        property = property.substr(1, property.size() - 2);
    if (RefusedAsColumn(property)) return false;
    const auto less = [&](const std::shared_ptr<Item>& one, const std::shared_ptr<Item>& other) {
        const Value left = Cell(*one, property);
        const Value right = Cell(*other, property);
        if (std::holds_alternative<double>(left) && std::holds_alternative<double>(right))
            return AsReal(left) < AsReal(right);
        return LessFolded(AsText(left), AsText(right));
    };
    std::ranges::stable_sort(all, [&](const auto& one, const auto& other) {
        return descending ? less(other, one) : less(one, other);
    });
    next = 0;
    return true;
}

const MemberTable& Items::Table() const {
    static const auto give = [](Items& self, const std::shared_ptr<Item>& item) -> Value {
        if (self.columns.empty()) return item->Handle();
        return std::make_shared<ColumnItem>(item, self.columns)->Handle();
    };
    static const auto itemAtNext = [](Items& self) -> Value {
        return self.next < self.all.size() ? give(self, self.all[self.next++]) : ObjectPtr();
    };
    static const MemberTable table = [] {
        Members<Items> members = OutlookMembers<Items>(16);
        members.Collection()
            .Method(u"GetFirst", {},
                    [](Items& self, const Arguments&) {
                        self.next = 0;
                        return itemAtNext(self);
                    })
            .Method(u"GetNext", {}, [](Items& self, const Arguments&) { return itemAtNext(self); })
            .Method(u"Add", {u"Type"},
                    [](Items& self, const Arguments& arguments) -> Value {
                        const auto item = self.Add(arguments[0]);
                        return item ? item->Handle() : self.Fail(error::InvalidCall);
                    })
            .Method(u"SetColumns", {u"Columns"},
                    [](Items& self, const Arguments& arguments) -> Value {
                        std::vector<Text> columns = ColumnsOf(AsText(arguments[0]));
                        if (std::any_of(columns.begin(), columns.end(), RefusedAsColumn)) {
                            return self.Fail(error::InvalidCall);
                        }
                        self.columns = std::move(columns);
                        return {};
                    })
            .Method(u"Restrict", {u"Filter"},
                    [](Items& self, const Arguments& arguments) {
                        return HandleOf(self.Restricted(AsText(arguments[0])));
                    })
            .Method(u"Sort", {u"Property", u"Descending"},
                    [](Items& self, const Arguments& arguments) -> Value {
                        return self.Sort(AsText(arguments[0]), AsBoolean(arguments[1]))
                                   ? Value()
                                   : self.Fail(error::InvalidCall);
                    });
        members.Replace(u"Count", [](Items& self, const Arguments&) -> Value {
            const auto folder = self.folder.lock();
            if (folder && folder->countFails) return self.Fail(error::Automation);
            return std::int32_t(self.all.size());
        });
        members.Replace(u"Item", [](Items& self, const Arguments& arguments) -> Value {
            std::int32_t index = 0;
            if (!Convert(arguments[0], index)) return self.Fail(error::TypeMismatch);
            if (index < 1 || std::size_t(index) > self.all.size()) {
                return self.Fail(error::SubscriptOutOfRange);
            }
            return give(self, self.all[std::size_t(index) - 1]);
        });
        return members;
    }();
    return table;
}

ColumnItem::ColumnItem(std::shared_ptr<Item> wholeItem, const std::vector<Text>& columns)
    : ModelObject(wholeItem->outlook), item(std::move(wholeItem)), columns(columns) {}

namespace {

// The properties of items of a class, by way of an object that has such an item; `read` gets the
// object and the item's member.
template <class Type, class Read>
Members<Type> PropertiesOfItem(const MemberTable& itemTable, const Read& read) {
    Members<Type> members;
    for (const Member& member : itemTable.All()) {
        if (member.isMethod) continue;
        members.Property(member.name, [&member, read](Type& self) { return read(self, member); });
    }
    return members;
}

}  // namespace

const MemberTable& ColumnItem::Table() const {
    // By the table of the item's class.
    static std::map<const MemberTable*, MemberTable> tables;
    const auto [at, isNew] = tables.try_emplace(&item->Table());
    if (isNew) {
        at->second = PropertiesOfItem<ColumnItem>(
            item->Table(), [](ColumnItem& self, const Member& member) -> Value {
                return Includes(self.columns, member.name) ? member.get(*self.item, {}) : Text();
            });
    }
    return at->second;
}

const MemberTable& Recipient::Table() const {
    static const MemberTable table =
        OutlookMembers<Recipient>(4)
            .Property(u"Name", [](Recipient& self) { return self.person.name; })
            .Guarded()
            .Default(u"Name")
            .Property(u"Address", [](Recipient& self) { return self.person.address; })
            .Guarded();
    return table;
}

const MemberTable& TableColumns::Table() const {
    static const MemberTable table =
        OutlookMembers<TableColumns>(120)
            .Property(u"Count",
                      [](TableColumns& self) { return std::int32_t(self.table->columns.size()); })
            .Method(u"RemoveAll", {},
                    [](TableColumns& self, const Arguments&) {
                        self.table->columns.clear();
                        return Value();
                    })
            .Method(u"Add", {u"Name"}, [](TableColumns& self, const Arguments& arguments) -> Value {
                const Text name = AsText(arguments[0]);
                if (name.empty()) return self.Fail(error::InvalidCall);
                self.table->columns.push_back(name);
                return {};
            });
    return table;
}

const MemberTable& ItemTable::Table() const {
    static const MemberTable table =
        OutlookMembers<ItemTable>(121)
            .Property(u"Columns",
                      [](ItemTable& self) {
                          return std::make_shared<TableColumns>(Self(self))->Handle();
                      })
            .Property(u"EndOfTable", [](ItemTable& self) { return self.next >= self.items.size(); })
            .Method(u"GetRowCount", {},
                    [](ItemTable& self, const Arguments&) -> Value {
                        constexpr std::size_t Large = 10000;
                        if (self.items.size() > Large &&
                            self.outlook.Does(Documented::LargeTableUncounted)) {
                            return self.Fail(error::Automation);
                        }
                        return std::int32_t(self.items.size());
                    })
            .Method(u"GetNextRow", {},
                    [](ItemTable& self, const Arguments&) -> Value {
                        if (self.next >= self.items.size()) return ObjectPtr();
                        Item& item = *self.items[self.next++];
                        std::vector<Value> values;
                        for (const Member* property : PropertiesOf(item.Table(), self.columns))
                            values.push_back(property ? property->get(item, {}) : Value());
                        return std::make_shared<TableRow>(Self(self), std::move(values))->Handle();
                    })
            .Method(u"GetArray", {u"MaxRows"},
                    [](ItemTable& self, const Arguments& arguments) -> Value {
                        const auto wanted = std::size_t(AsNumber(arguments[0]));
                        if (wanted > self.items.size() &&
                            self.outlook.Does(Documented::ArrayLargerThanTable)) {
                            return self.Fail(error::InvalidCall);
                        }
                        const auto rows = std::min(wanted, self.items.size() - self.next);
                        auto grid = std::make_shared<Grid>(rows, self.columns.size());
                        // Items of one kind mostly follow one another.
                        const MemberTable* kind = nullptr;
                        std::vector<const Member*> properties;
                        for (std::size_t row = 0; row < rows; ++row) {
                            Item& item = *self.items[self.next++];
                            if (std::exchange(kind, &item.Table()) != &item.Table())
                                properties = PropertiesOf(*kind, self.columns);
                            for (const Member* property : properties) {
                                grid->Add(property ? property->get(item, {}) : Value());
                            }
                        }
                        return GridPtr(std::move(grid));
                    });
    return table;
}

const MemberTable& TableRow::Table() const {
    static const MemberTable table =
        OutlookMembers<TableRow>(123)
            .Method(u"Item", {u"Index"},
                    [](TableRow& self, const Arguments& arguments) -> Value {
                        std::int32_t index = 0;
                        const auto& columns = self.table->columns;
                        if (const auto* name = std::get_if<Text>(&arguments[0])) {
                            const auto found = std::ranges::find(columns, *name);
                            index = std::int32_t(found - columns.begin()) + 1;
                        } else if (!Convert(arguments[0], index)) {
                            return self.Fail(error::TypeMismatch);
                        }
                        if (index < 1 || std::size_t(index) > self.values.size()) {
                            return self.Fail(error::SubscriptOutOfRange);
                        }
                        return self.values[std::size_t(index) - 1];
                    })
            .Default(u"Item");
    return table;
}

}  // namespace tellwick::standin
