// What helps to find an error on another machine: versions, settings, add-ins and the trace,
// without numbers and texts of the user's.
#pragma once

#include <functional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/Object.h"
#include "platform/Programs.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class InifilesLite;
class RegEdit;

class SupportFile {
public:
    // `application` gives Outlook's application, or nothing.
    SupportFile(PendingError& errors, Debug& debug, RegEdit& regEdit, InifilesLite& inifilesLite,
                FileSystem& fileSystem, Programs& programs, std::function<ObjectPtr()> application);

    // Gathers everything anew; the text of all that is in the archive, with CR LF line ends.
    Text Gather();
    // Writes what was gathered as an archive to the user's desktop, in place of an earlier one. The
    // path is handed out also where that fails.
    bool Save(Text& path);

private:
    Text Versions();
    Text AddIns();
    Text MissingFunctions();
    Text Settings();
    Text Registration();

    Text about;
    std::string trace;

    PendingError& errors;
    Debug& debug;
    RegEdit& regEdit;
    InifilesLite& inifilesLite;
    FileSystem& fileSystem;
    Programs& programs;
    std::function<ObjectPtr()> application;
};

}  // namespace tellwick
