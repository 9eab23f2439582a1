// The last SMS to many, each with their own text: how many, when, and to whom, in a file that the
// user can open.
#pragma once

#include <vector>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class Clock;
class Documents;
class FileSystem;
struct PersonalText;

class LastRun : private Services {
public:
    LastRun(const Services& services, FileSystem& fileSystem, Clock& clock, Documents& documents);

    // They are in the queue. Where numbers are not to be remembered nothing is kept.
    void Keep(const std::vector<PersonalText>& sent, bool mayRemember);
    bool Known();
    // Opens it with the program that the user reads texts with.
    void Show();

private:
    Text Path();

    FileSystem& fileSystem;
    Clock& clock;
    Documents& documents;
};

}  // namespace tellwick
