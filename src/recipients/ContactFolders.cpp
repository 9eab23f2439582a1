#include "recipients/ContactFolders.h"

#include <utility>

#include "platform/OutlookEvents.h"

namespace tellwick {

namespace {

constexpr std::size_t DeepestLevel = 64;  // a store that is wrong about its folders ends, too
constexpr std::size_t MostFolders = 0x8000;

}  // namespace

ContactFolders::ContactFolders(PendingError& pendingErrors, const ObjectPtr& nameSpace)
    : errors(pendingErrors) {
    Enter(nameSpace, {});
}

void ContactFolders::Enter(const ObjectPtr& folder, const Text& path) {
    if (levels.size() >= DeepestLevel) return;
    errors.Clear();
    Level level;
    level.folders = AsObject(Get(errors, folder, u"Folders"));
    level.count = AsNumber(Get(errors, level.folders, u"Count"));
    level.path = path;
    if (errors) failed.push_back(path);
    levels.push_back(std::move(level));
}

bool ContactFolders::LookAtOne() {
    while (!levels.empty() && levels.back().next > levels.back().count) levels.pop_back();
    if (levels.empty()) return false;
    Level& level = levels.back();
    errors.Clear();
    const ObjectPtr folder = AsObject(Get(errors, level.folders, u"Item", {level.next++}));
    const Text path = level.path + OneLine(AsText(Get(errors, folder, u"Name")));
    const bool ofContacts =
        AsNumber(Get(errors, folder, u"DefaultItemType")) == outlook::ContactItemType;
    if (errors) {
        failed.push_back(path);
        return true;
    }
    if (ofContacts && found.size() < MostFolders) {
        Found contacts;
        contacts.folder = folder;
        contacts.toKeep.id = AsText(Get(errors, folder, u"EntryID"));
        contacts.toKeep.name = path;
        const ObjectPtr items = AsObject(Get(errors, folder, u"Items"));
        contacts.toKeep.count = std::uint32_t(AsNumber(Get(errors, items, u"Count")));
        found.push_back(std::move(contacts));
    }
    Enter(folder, path + u"\\");
    return true;
}

}  // namespace tellwick
