// The queue that the add-in shares with the sender application: one message file and one numbered
// registry value per entry.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace tellwick {

class Files;
class Locks;
class RegEdit;

struct QueueEntry {
    Text recipient, message;
};

class SmsQueue {
public:
    SmsQueue(RegEdit& regEdit, Files& files, FileSystem& fileSystem, Locks& locks);

    // Writes recipient, TAB and message into a new file and enters it under the next number. A
    // file that cannot be written is reported to the user and entered all the same.
    void AddEntry(TextView recipient, TextView message);

    // All of them or none: enters the files when all are written. Those of a run that fails are
    // taken away again; the user is told, and false comes back. `written` hears after each file how
    // many there are.
    bool AddEntries(const std::vector<QueueEntry>& entries,
                    const std::function<void(std::size_t)>& written);

private:
    class Unfinished;

    std::optional<Text> TryEntries(const std::vector<QueueEntry>& entries,
                                   const std::function<void(std::size_t)>& written);
    bool Enter(TextView path, Text& number, TextView before = {});

    RegEdit& regEdit;
    Files& files;
    FileSystem& fileSystem;
    Locks& locks;
};

}  // namespace tellwick
