#include "recipients/Addresses.h"

#include <algorithm>
#include <utility>

#include "platform/Clock.h"
#include "platform/Meanwhile.h"
#include "platform/Outlook.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"

namespace tellwick {

namespace {

// Milliseconds. A slice's last step may take some more, so none begins where less than the least is
// left. As long as nothing waits, slices follow one another without a pause; then Outlook's message
// loop has a turn all the same, and time in which no timer is due: whoever takes out messages until
// there are none comes to an end.
constexpr double Slice = 4;
constexpr double LeastSlice = 2.5;
constexpr double WithoutPause = 12;
constexpr std::uint32_t Interval = 14;
constexpr std::uint32_t PauseAfterKey = 30;
constexpr double ProgressInterval = 100;
const Text NoFolder;
const std::vector<Text> NoMembers;

}  // namespace

Addresses::Addresses(const Services& services, const ContactHarvest::Surroundings& surroundings,
                     FileSystem& fileSystem, Timers& timers, MessageLoop& messageLoop)
    : Services(services),
      surroundings(surroundings),
      fileSystem(fileSystem),
      timers(timers),
      messageLoop(messageLoop) {}

void Addresses::SetApplication(const ObjectPtr& newApplication) {
    application = newApplication;
    lent = false;
}

void Addresses::LendApplication(const ObjectPtr& newApplication) {
    application = newApplication;
    lent = true;
}

void Addresses::Release() {
    Stop();
    application.reset();
    looked = false;
}

void Addresses::SetRecent(const std::vector<Text>& numbers) {
    recent = numbers;
    book.list.SetRecent(recent);
}

void Addresses::RefreshOnce() {
    if (std::exchange(looked, true)) return;
    Refresh();
}

void Addresses::Refresh() {
    // The slice that was to end the reading has not come to its end yet.
    anew = working && stopped;
    if (stage != Stage::Idle || working) return;
    stopped = false;
    if (cacheRead || !Caches()) {
        stage = Stage::CacheRead;
    } else {
        reader = std::make_unique<NumberCacheReader>(fileSystem, surroundings.locale,
                                                     inifilesLite.SettingsFolder());
        stage = Stage::Cache;
    }
    // Where nothing is known yet the user would like to see something at once.
    if (book.list.Size() == 0) {
        bool more = DoSlice(Slice);
        while (IsRead()) more = DoSlice(Slice);
        Tell(false);
        if (!more) return;
    }
    timer = timers.Create();
    GoOnAfter(Interval);
}

void Addresses::GoOnAfter(std::uint32_t milliseconds) {
    interval = milliseconds;
    timer->Start(interval, [this] { Tick(); });
}

void Addresses::GiveWay() {
    if (timer) GoOnAfter(PauseAfterKey);
}

void Addresses::Stop() {
    stopped = true;
    anew = false;
    timer.reset();
    if (std::exchange(lent, false)) application.reset();
    if (!working) Drop();  // else the slice that runs does it
}

void Addresses::Drop() {
    stage = Stage::Idle;
    reader.reset();
    harvest.reset();
    writer.reset();
    readBook.reset();
}

Text Addresses::FolderTitle(std::uint16_t folder) const {
    const Text& path = book.folders[folder].name;
    const std::size_t end = path.rfind(u'\\');
    if (end == Text::npos) return path;
    return path.substr(end + 1).append(u" (").append(path, 0, end).append(u")");
}

const std::vector<Text>& Addresses::MembersOf(std::uint32_t item) const {
    const auto members = book.members.find(item);
    return members == book.members.end() ? NoMembers : members->second;
}

const Text& Addresses::FolderBeingRead() const {
    return harvest ? harvest->FolderName() : NoFolder;
}

void Addresses::Tick() {
    // Somebody waits, who is to wait no longer than he has to.
    if (messageLoop.InDoEvents()) return;
    Procedure procedure{debug, u"TimerAddresses_Timer"};
    if (working) return;  // Outlook runs its message loop within a slice
    if (interval != Interval) GoOnAfter(Interval);
    const double end = surroundings.clock.Milliseconds() + WithoutPause;
    bool more = true;
    double left = WithoutPause;
    do {
        more = DoSlice(std::min(Slice, left));
        left = end - surroundings.clock.Milliseconds();
    } while (more && !IsRead() && !messageLoop.Waiting() && left > LeastSlice);
    if (!more) timer.reset();
    const double now = surroundings.clock.Milliseconds();
    if (more && now - told < ProgressInterval) return;
    told = now;
    Tell(false);
}

bool Addresses::DoSlice(double milliseconds) {
    if (working) return true;
    const double end = surroundings.clock.Milliseconds() + milliseconds;
    bool more = true;
    try {
        const Meanwhile slicing(working, true);
        do {
            more = DoStage(end - surroundings.clock.Milliseconds());
        } while (more && !IsRead() && !stopped && surroundings.clock.Milliseconds() < end);
    } catch (...) {
        // A step half done is not done again, and again, by a timer that goes on.
        Stop();
        throw;
    }
    if (stopped) {
        Drop();
        more = false;
    }
    if (!std::exchange(anew, false)) return more;
    Refresh();
    return stage != Stage::Idle;
}

bool Addresses::DoStage(double milliseconds) {
    switch (stage) {
        case Stage::Cache:
            if (reader->DoSome()) return true;
            cacheRead = true;
            readBook = reader->Take();
            reader.reset();
            stage = Stage::CacheRead;
            return true;
        case Stage::CacheRead:
            if (readBook) TakeBook();
            BeginHarvest();
            return stage != Stage::Idle;
        case Stage::Harvest:
            if (harvest->DoSlice(milliseconds)) return true;
            failed = harvest->Failed();
            readBook = harvest->TakeBook();
            harvest.reset();
            harvested = !readBook;
            stage = readBook ? Stage::HarvestRead : Stage::Idle;
            return stage != Stage::Idle;
        case Stage::HarvestRead:
            harvested = true;  // and not before: nobody would seem to be there
            stage = Stage::Idle;
            TakeBook();
            BeginWriting();
            return stage != Stage::Idle;
        case Stage::Writing:
            if (writer->DoSome()) return true;
            writer.reset();
            stage = Stage::Idle;
            return false;
        case Stage::Idle:
            break;
    }
    return false;
}

void Addresses::BeginHarvest() {
    stage = Stage::Idle;
    if (!application) return;
    const ObjectPtr nameSpace =
        AsObject(Call(surroundings.errors, application, u"GetNamespace", {Text(u"MAPI")}));
    // What Outlook can, and what it asks the user about, depends on it.
    const auto version = std::int32_t(
        LeadingNumber(outlook::Application(surroundings.errors, application).Version()));
    if (!nameSpace || version == 0) return;
    harvest = std::make_unique<ContactHarvest>(
        surroundings, ContactHarvest::Source{application, nameSpace, version}, book);
    stage = Stage::Harvest;
}

void Addresses::BeginWriting() {
    if (!Caches()) return;
    writer = std::make_unique<NumberCacheWriter>(fileSystem, surroundings.locale,
                                                 inifilesLite.SettingsFolder(), book);
    stage = Stage::Writing;
}

void Addresses::TakeBook() {
    book = *std::exchange(readBook, {});
    book.list.SetRecent(recent);
    Tell(true);
}

void Addresses::Tell(bool listChanged) {
    for (const Listener& listener : listeners) listener(listChanged);
}

bool Addresses::Caches() {
    return inifilesLite.GetIniSettingBool(u"SMS", u"NumberCache", u"1") &&
           !inifilesLite.SettingsFolder().empty();
}

void Addresses::ApplySettings() {
    if (Caches()) return;
    if (stage == Stage::Writing) Stop();
    cacheRead = true;
    DeleteNumberCache(fileSystem, inifilesLite.SettingsFolder());
}

}  // namespace tellwick
