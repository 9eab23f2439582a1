// Finds the contact folders, one folder at a time: those of the user's open stores, and those that
// others share with the user, as the navigation pane shows them. Left alone are stores that are
// closed (opening one may ask the user for its password), public folders, archives, and what is
// deleted or hidden. No more folders are held than those on the way to the one at hand.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "platform/Object.h"
#include "recipients/AddressBook.h"
#include "recipients/TimedCalls.h"

namespace tellwick {

class ContactFolders {
public:
    struct Found {
        KeptFolder toKeep;
        std::uint32_t count;  // items
        std::size_t source;   // as PutOff has it
    };

    // The version is Outlook's major one.
    ContactFolders(TimedCalls& calls, ObjectPtr application, ObjectPtr nameSpace,
                   std::int32_t version);

    // Looks at one more folder; false when there is none.
    bool LookAtOne();

    // The last look made Outlook wait. Its source, which is a store or what somebody shares, is put
    // off: the first time until all others were looked at, the second time to another day; it then
    // counts as failed.
    void PutOff();
    // The same when Outlook waited while a folder was read, given by its index in `found`. It and
    // the folders of its source behind it go to the end; the second time they are forgotten.
    void PutOff(std::size_t current);

    // Whether a folder that was not found may be there all the same: its store was not looked
    // through to the end.
    bool MayReturn(const KeptFolder& folder) const;

    std::vector<Found> found;
    // Names, with those above them, of what could not be read; of a store that cannot be reached
    // it may be "".
    std::vector<Text> failed;

private:
    enum class Kind { Store, Shared };
    enum class State { Whole, Unsure, LeftAlone };
    struct SourceState {
        Kind kind;
        std::int32_t index;    // among the stores, or the groups of the navigation pane
        std::int32_t inGroup;  // of the latter
        bool slow = false;     // was put off
        State state = State::Whole;
        Text storeId, name;
    };
    struct Level {
        ObjectPtr folders;
        std::int32_t count = 0;
        std::int32_t next = 1;
        Text path;  // with "\" at the end
    };

    void List();
    void ListShared();
    void EnterStore(SourceState& store);
    void LookAtShared(SourceState& shared);
    void LookAt(const ObjectPtr& folder, const Text& above);
    void AddFound(const ObjectPtr& folder, const Text& id, const Text& path);
    bool IsHidden(const ObjectPtr& folder);
    void Enter(const ObjectPtr& folder, const Text& path);
    void Fail(const Text& name);
    void SetFailed(std::size_t source, const Text& name);

    TimedCalls& calls;
    ObjectPtr application;
    ObjectPtr nameSpace;
    const std::int32_t version;
    bool listed = false;
    bool listIsWhole = true;  // every source is known
    ObjectPtr stores;         // objects of Outlook 2007 and later, or roots
    ObjectPtr groups;         // of the navigation pane
    Text publicStore;         // before Outlook 2007
    std::vector<Text> deleted;
    std::vector<SourceState> sources;
    std::deque<std::size_t> waiting;
    std::optional<std::size_t> source;
    std::vector<Level> levels;
};

}  // namespace tellwick
