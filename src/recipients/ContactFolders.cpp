#include "recipients/ContactFolders.h"

#include <algorithm>
#include <utility>

#include "platform/OutlookEvents.h"

namespace tellwick {

namespace {

constexpr std::size_t DeepestLevel = 64;  // a store that is wrong about its folders ends, too
constexpr std::size_t MostFolders = 0x8000;
constexpr std::int32_t WithStores = 12;         // the first version that tells of stores
constexpr std::int32_t WithDeletedOfEach = 14;  // and of what was deleted in each

// As ExchangeStoreType has them.
constexpr std::int32_t PublicStore = 2;
constexpr std::int32_t AdditionalStore = 4;

// Of the navigation pane; the user's own contacts were found in the stores.
constexpr std::int32_t ContactsModule = 2;
constexpr std::int32_t OwnGroup = 1;

constexpr TextView HiddenProperty = u"http://schemas.microsoft.com/mapi/proptag/0x10F4000B";

}  // namespace

ContactFolders::ContactFolders(TimedCalls& calls, ObjectPtr outlookApplication, ObjectPtr mapi,
                               std::int32_t version)
    : calls(calls),
      application(std::move(outlookApplication)),
      nameSpace(std::move(mapi)),
      version(version) {}

bool ContactFolders::LookAtOne() {
    calls.errors.Clear();
    if (!std::exchange(listed, true)) {
        List();
        return true;
    }
    while (!levels.empty() && levels.back().next > levels.back().count) levels.pop_back();
    if (!levels.empty()) {
        Level& level = levels.back();
        const Text path = level.path;
        const ObjectPtr folder = AsObject(calls.Get(level.folders, u"Item", {level.next++}));
        LookAt(folder, path);
        return true;
    }
    source.reset();
    if (waiting.empty()) return false;
    source = waiting.front();
    waiting.pop_front();
    SourceState& state = sources[*source];
    if (state.kind == Kind::Store) {
        EnterStore(state);
    } else {
        LookAtShared(state);
    }
    return true;
}

void ContactFolders::List() {
    stores = AsObject(calls.Get(nameSpace, version >= WithStores ? u"Stores" : u"Folders"));
    const std::int32_t count = AsNumber(calls.Get(stores, u"Count"));
    if (calls.errors) Fail({});
    for (std::int32_t store = 1; store <= count; ++store)
        sources.push_back({Kind::Store, store, 0, false, State::Whole, {}, {}});
    const auto defaultFolder = [&](std::int32_t number, TextView property) {
        return AsText(
            calls.Get(AsObject(calls.Call(nameSpace, u"GetDefaultFolder", {number})), property));
    };
    deleted.push_back(defaultFolder(outlook::DeletedFolder, u"EntryID"));  // or ""
    if (version < WithStores) publicStore = defaultFolder(outlook::PublicFoldersFolder, u"StoreID");
    if (version >= WithStores) ListShared();
    for (std::size_t each = 0; each < sources.size(); ++each) waiting.push_back(each);
}

void ContactFolders::ListShared() {
    calls.errors.Clear();
    const ObjectPtr explorer = AsObject(calls.Call(application, u"ActiveExplorer"));
    const ObjectPtr pane = AsObject(calls.Get(explorer, u"NavigationPane"));
    const ObjectPtr contacts = AsObject(calls.Call(AsObject(calls.Get(pane, u"Modules")),
                                                   u"GetNavigationModule", {ContactsModule}));
    groups = AsObject(calls.Get(contacts, u"NavigationGroups"));
    const std::int32_t count = AsNumber(calls.Get(groups, u"Count"));
    for (std::int32_t group = 1; group <= count; ++group) {
        const ObjectPtr one = AsObject(calls.Get(groups, u"Item", {group}));
        if (AsNumber(calls.Get(one, u"GroupType")) == OwnGroup) continue;
        const std::int32_t shown =
            AsNumber(calls.Get(AsObject(calls.Get(one, u"NavigationFolders")), u"Count"));
        for (std::int32_t folder = 1; folder <= shown; ++folder)
            sources.push_back({Kind::Shared, group, folder, false, State::Whole, {}, {}});
    }
    // Without a window nobody knows who shares what.
    if (calls.errors) listIsWhole = false;
}

void ContactFolders::EnterStore(SourceState& store) {
    const ObjectPtr entry = AsObject(calls.Get(stores, u"Item", {store.index}));
    if (version < WithStores) {
        if (store.name.empty()) store.name = OneLine(AsText(calls.Get(entry, u"Name")));
        store.storeId = AsText(calls.Get(entry, u"StoreID"));
        if (!store.storeId.empty() && store.storeId == publicStore) {
            store.state = State::LeftAlone;
        } else {
            LookAt(entry, {});
        }
        return;
    }
    store.name = AsText(calls.Get(entry, u"DisplayName"));
    store.storeId = AsText(calls.Get(entry, u"StoreID"));
    const std::int32_t type = AsNumber(calls.Get(entry, u"ExchangeStoreType"));
    const bool open = AsBoolean(calls.Get(entry, u"IsOpen"));
    if (calls.errors) {
        Fail(store.name);
    } else if (type == PublicStore || type == AdditionalStore) {
        store.state = State::LeftAlone;
    } else if (!open) {
        store.state = State::Unsure;
    } else {
        const ObjectPtr root = AsObject(calls.Call(entry, u"GetRootFolder"));
        if (version >= WithDeletedOfEach && root) {
            const ObjectPtr bin =
                AsObject(calls.Call(entry, u"GetDefaultFolder", {outlook::DeletedFolder}));
            if (bin) deleted.push_back(AsText(calls.Get(bin, u"EntryID")));
            if (!calls.Slow()) calls.errors.Clear();  // not every store has one
        }
        LookAt(root, {});
    }
}

void ContactFolders::LookAtShared(SourceState& shared) {
    const ObjectPtr group = AsObject(calls.Get(groups, u"Item", {shared.index}));
    const ObjectPtr entry = AsObject(
        calls.Get(AsObject(calls.Get(group, u"NavigationFolders")), u"Item", {shared.inGroup}));
    shared.name = OneLine(AsText(calls.Get(entry, u"DisplayName")));
    const ObjectPtr folder = AsObject(calls.Get(entry, u"Folder"));
    const ObjectPtr store = AsObject(calls.Get(folder, u"Store"));
    const std::int32_t type = AsNumber(calls.Get(store, u"ExchangeStoreType"));
    const Text id = AsText(calls.Get(folder, u"EntryID"));
    if (calls.errors) {
        Fail(shared.name);
        return;
    }
    const bool known =
        std::ranges::any_of(found, [&](const Found& other) { return other.toKeep.id == id; });
    if (type != PublicStore && !known) AddFound(folder, id, shared.name);
}

void ContactFolders::LookAt(const ObjectPtr& folder, const Text& above) {
    const Text name = OneLine(AsText(calls.Get(folder, u"Name")));
    const Text path = above + name;
    const Text id = AsText(calls.Get(folder, u"EntryID"));
    const bool ofContacts =
        AsNumber(calls.Get(folder, u"DefaultItemType")) == outlook::ContactItemType;
    if (calls.errors) {
        Fail(path.empty() ? sources[*source].name : path);
        return;
    }
    if (!id.empty() && std::ranges::find(deleted, id) != deleted.end()) return;
    if (ofContacts) {
        if (IsHidden(folder)) return;
        AddFound(folder, id, path);
    }
    Enter(folder, path + u"\\");
}

void ContactFolders::AddFound(const ObjectPtr& folder, const Text& id, const Text& path) {
    if (found.size() == MostFolders) return;
    const Text storeId = AsText(calls.Get(folder, u"StoreID"));
    const std::int32_t count = AsNumber(calls.Get(AsObject(calls.Get(folder, u"Items")), u"Count"));
    if (calls.errors) {
        Fail(path);
    } else {
        found.push_back({{id, storeId, path}, std::uint32_t(std::max(count, 0)), *source});
    }
}

bool ContactFolders::IsHidden(const ObjectPtr& folder) {
    if (version < WithStores) return false;
    const ObjectPtr accessor = AsObject(calls.Get(folder, u"PropertyAccessor"));
    const bool hidden = AsBoolean(calls.Call(accessor, u"GetProperty", {Text(HiddenProperty)}));
    if (!calls.Slow()) calls.errors.Clear();  // most have no such property
    return hidden;
}

void ContactFolders::Enter(const ObjectPtr& folder, const Text& path) {
    if (levels.size() >= DeepestLevel) return;
    Level level;
    if (!calls.Slow()) calls.errors.Clear();
    level.folders = AsObject(calls.Get(folder, u"Folders"));
    level.count = AsNumber(calls.Get(level.folders, u"Count"));
    level.path = path;
    if (calls.errors) Fail(path.substr(0, path.size() - 1));
    levels.push_back(std::move(level));
}

// What is too slow is named when it is put off for good.
void ContactFolders::Fail(const Text& name) {
    if (calls.Slow() && source) return;
    if (source) {
        SetFailed(*source, name);
    } else {
        listIsWhole = false;
        failed.push_back(name);
    }
}

void ContactFolders::SetFailed(std::size_t of, const Text& name) {
    sources[of].state = State::Unsure;
    if (sources[of].storeId.empty()) listIsWhole = false;
    failed.push_back(name);
}

void ContactFolders::PutOff() {
    if (!source) return;
    levels.clear();
    std::erase_if(found, [&](const Found& folder) { return folder.source == *source; });
    if (std::exchange(sources[*source].slow, true)) {
        SetFailed(*source, sources[*source].name);
    } else {
        waiting.push_back(*source);
    }
}

void ContactFolders::PutOff(std::size_t current) {
    const std::size_t of = found[current].source;
    const auto first = found.begin() + std::ptrdiff_t(current);
    const auto last = std::stable_partition(
        first, found.end(), [&](const Found& folder) { return folder.source != of; });
    if (!std::exchange(sources[of].slow, true)) return;
    found.erase(last, found.end());
    SetFailed(of, sources[of].name);
}

bool ContactFolders::MayReturn(const KeptFolder& folder) const {
    const auto store = std::ranges::find_if(sources, [&](const SourceState& each) {
        return each.kind == Kind::Store && each.storeId == folder.storeId;
    });
    return store == sources.end() ? !listIsWhole : store->state == State::Unsure;
}

}  // namespace tellwick
