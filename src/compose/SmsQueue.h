// The queue that the add-in shares with the sender application: one message file and one numbered
// registry value per entry.
#pragma once

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace tellwick {

class Files;
class Locks;
class RegEdit;

class SmsQueue {
public:
    SmsQueue(RegEdit& regEdit, Files& files, FileSystem& fileSystem, Locks& locks);

    // Writes recipient, TAB and message into a new file and enters it under the next number. A
    // file that cannot be written is reported to the user and entered all the same.
    void AddEntry(TextView recipient, TextView message);

private:
    RegEdit& regEdit;
    Files& files;
    FileSystem& fileSystem;
    Locks& locks;
};

}  // namespace tellwick
