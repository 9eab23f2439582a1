// Takes the entries of the queue that the add-in fills: numbered registry values, each the path of
// a file with recipients, TAB, text in the system's code page.
//
// An entry is durable in the spool, whole, before its value is removed, and then its file. That is
// done once all entries are in the spool: a file system may take long to make files where it has
// just deleted many. One that is seen again is known by its file's name and time, and taken no
// second time. No entry stops the queue; what can be sent to nobody becomes a failed SMS with the
// reason.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/Text.h"
#include "spool/QueueValues.h"
#include "spool/Spool.h"

namespace tellwick {
class Prefixes;
}

namespace tellwick::sender {

class QueueReader {
public:
    QueueReader(QueueValues& queueValues, FileSystem& fileSystem, Locale& locale, Clock& clock,
                Prefixes& prefixes, Spool& spool);

    enum class Look {
        Done,   // the queue is empty
        More,   // there is more to be taken at once
        Again,  // something is to be looked at again in a second or so
    };

    // Takes as many entries as given, in their order.
    Look Take(std::size_t most);

    // Whether every entry was looked at since the start. Nothing may be sent before: that look
    // finds what a former run has taken already, and what it has taken in part.
    bool LookedThrough() const { return lookedThrough; }

private:
    struct Entry {
        std::uint32_t number = 0;
        Text name;  // of the value
    };
    // An entry that is taken in part: what of it is in the spool.
    struct Progress {
        std::set<std::size_t> accepted;
        bool complete = false;
        bool remembered = false;  // by the spool
    };
    // A file that was missing or could not be read.
    struct Miss {
        int looks = 0;
        double last = 0;  // Clock::Milliseconds
    };
    // An entry that is in the spool and still in the queue.
    struct Accepted {
        Text name;  // of the value
        Text path;
        Text origin;
    };

    std::optional<std::vector<Entry>> Entries();
    bool KnowFormerOnes();
    // False for one that is to be looked at again.
    bool TakeEntry(const Entry& entry);
    bool TakeMissing(const Entry& entry, const Text& path);
    bool Accept(const Text& origin, std::string_view contents);
    bool AcceptOne(const Text& origin, Progress& progress, std::size_t number,
                   const SpooledSms& sms);
    bool Remove(const Accepted& taken);
    SpooledSms Refused(TextView recipient, TextView text, TextView why, TextView detail = {});

    QueueValues& queueValues;
    FileSystem& fileSystem;
    Locale& locale;
    Clock& clock;
    Prefixes& prefixes;
    Spool& spool;

    bool knowsFormerOnes = false;
    bool lookedThrough = false;
    std::deque<Entry> pending;          // of this look: to list the names takes long
    std::deque<Accepted> accepted;      // likewise: to be removed
    bool lookAgain = false;             // one of this look could not be taken
    std::map<Text, Text> former;        // what is in the spool, until the first look has passed
    std::map<Text, Progress> progress;  // by origin: not removed yet
    std::map<Text, Miss> misses;        // by the value's name
    std::vector<Text> leftFiles;        // of removed entries, that could not be deleted
};

}  // namespace tellwick::sender
