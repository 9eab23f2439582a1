// Keeps the address list: what the files of the last time know at once, then what Outlook has now.
// Reads when somebody first needs it, in slices between which Outlook works on.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/MessageLoop.h"
#include "platform/Object.h"
#include "platform/Timer.h"
#include "recipients/AddressBook.h"
#include "recipients/ContactHarvest.h"
#include "recipients/NumberCache.h"
#include "settings/Services.h"

namespace tellwick {

class Addresses : private Services {
public:
    // Hears that the list changed, or how far the reading is.
    using Listener = std::function<void(bool listChanged)>;

    Addresses(const Services& services, const ContactHarvest::Surroundings& surroundings,
              FileSystem& fileSystem, Timers& timers, MessageLoop& messageLoop);

    // Outlook, as it handed itself over: objects reached otherwise make newer versions ask the
    // user.
    void SetApplication(const ObjectPtr& newApplication);
    bool HasApplication() const { return application != nullptr; }
    // The same until the reading stops, where a connection has handed none over.
    void LendApplication(const ObjectPtr& newApplication);
    // Lets Outlook go; the list stays.
    void Release();

    void AddListener(Listener listener) { listeners.push_back(std::move(listener)); }

    const AddressList& List() const { return book.list; }
    // "Personal Folders\Contacts\Club".
    Text FolderName(std::uint16_t folder) const { return book.folders[folder].name; }
    // The same with its own name first: "Club (Personal Folders\Contacts)".
    Text FolderTitle(std::uint16_t folder) const;
    // The names in a distribution list, by its item; empty when the item is none.
    const std::vector<Text>& MembersOf(std::uint32_t item) const;
    // Bytes that compare as the texts do in the user's language.
    std::string SortKey(TextView text) const { return surroundings.locale.SortKey(text); }
    std::size_t Folders() const { return book.folders.size(); }
    void SetRecent(const std::vector<Text>& numbers);

    // Begins to look for changes, unless it is at it. When nothing is known yet the first slice is
    // done at once.
    void Refresh();
    // The same, once for each time that the user comes to need the list.
    void RefreshOnce();
    void NeededAnew() { looked = false; }
    // The user types: a reading goes on when he has paused, if only as long as between two keys.
    void GiveWay();
    // Whether somebody is known, or it is known that nobody is there.
    bool Known() const { return book.list.Size() != 0 || harvested; }
    // Ends the reading; what is known stays. The next Refresh begins anew.
    void Stop();

    bool Reading() const { return stage != Stage::Idle && stage != Stage::Writing; }
    std::int32_t Progress() const { return harvest ? harvest->Progress() : 0; }
    // The folder being read; what could not be read the last time.
    const Text& FolderBeingRead() const;
    const std::vector<Text>& Failed() const { return failed; }

    // Deletes the files when the settings want none.
    void ApplySettings();

private:
    // What was read is put in the list's place in a slice of its own. After CacheRead, which is the
    // first stage where there is no cache to read, the harvest begins.
    enum class Stage { Idle, Cache, CacheRead, Harvest, HarvestRead, Writing };

    // Goes on for so many milliseconds; false when all is done.
    bool DoSlice(double milliseconds);
    bool DoStage(double milliseconds);
    bool IsRead() const { return stage == Stage::CacheRead || stage == Stage::HarvestRead; }
    void Drop();
    void BeginHarvest();
    void BeginWriting();
    void TakeBook();
    void GoOnAfter(std::uint32_t milliseconds);
    void Tick();
    void Tell(bool listChanged);
    bool Caches();

    ContactHarvest::Surroundings surroundings;
    FileSystem& fileSystem;
    Timers& timers;
    MessageLoop& messageLoop;
    std::unique_ptr<Timer> timer;  // while something is read or written
    std::uint32_t interval = 0;    // its own
    ObjectPtr application;
    bool lent = false;  // the application
    std::vector<Listener> listeners;
    std::vector<Text> recent;
    AddressBook book;
    Stage stage = Stage::Idle;
    std::unique_ptr<NumberCacheReader> reader;
    std::unique_ptr<ContactHarvest> harvest;
    std::unique_ptr<NumberCacheWriter> writer;
    std::optional<AddressBook> readBook;
    double told = 0;  // when the listeners heard how far the reading is
    std::vector<Text> failed;
    bool cacheRead = false;
    bool harvested = false;
    bool looked = false;
    bool working = false;  // a slice runs: Outlook may call in between
    bool stopped = false;  // and wants no further one
    bool anew = false;     // but the reading begun once more
};

}  // namespace tellwick
