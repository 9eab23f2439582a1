// SMS that arrived: every part is kept in a file of its own, `Spool\received`, before the modem is
// told to forget it, until the whole SMS is where the user reads it. Then the text itself is kept,
// one SMS a file, in `Spool\read`.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include "carrier/PduReader.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace tellwick::sender {

struct ReceivedSms {
    Text from;  // "+491711234567", or the name of a service
    Text text;
    double sent = 0;  // by the service centre's clock
    // Of its parts; the first one's is its name.
    std::vector<Text> files;
};

// What is kept of those that are read: the settings StoreReadSMS and MaxReadSMS.
struct ReadLimits {
    bool store = true;
    std::int32_t most = 999;
};

class Inbox {
public:
    // The settings folder ends in "\".
    Inbox(FileSystem& fileSystem, Clock& clock, TextView settingsFolder);

    // Makes the folder and reads what is kept there. False when that fails.
    bool Open();

    // Keeps a unit, of which the part was read. Durable when it returns true; the modem may forget
    // it then. One that is kept, or was within the last month, is not kept again.
    bool Keep(const ReceivedPart& part, std::string_view unit);

    // Those that are whole, the first one sent first. One that misses parts is given up for whole
    // after a day, with "[...]" where they were.
    std::vector<ReceivedSms> Whole() const;

    // Nothing is kept that has still to be read, or waits for its other parts.
    bool Empty() const { return kept.empty(); }

    // It is where the user reads it. False when that cannot be noted: it then comes once more.
    bool Done(const ReceivedSms& sms);

    void SetLimits(const ReadLimits& newLimits) { limits = newLimits; }

private:
    // Sender, reference, number of parts; and of a whole SMS a file's name, since references come
    // again.
    using Key = std::tuple<Text, std::int32_t, std::int32_t, Text>;
    struct Kept {
        std::vector<Text> files;  // several where the network sent it again
        ReceivedPart part;
    };

    void Add(const Text& file, const ReceivedPart& part);
    void KeepRead(const ReceivedSms& sms);

    FileSystem& fileSystem;
    Clock& clock;
    Text folder;
    Text readFolder;
    ReadLimits limits;
    std::map<Key, std::map<std::int32_t, Kept>> kept;  // by number of the part
    std::set<Text> known;                              // files of units kept or done
};

}  // namespace tellwick::sender
