// Files, pages and addresses opened with the applications associated with them.
#pragma once

#include <cstdint>

#include "platform/Programs.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class RegEdit;

class Documents {
public:
    Documents(Debug& debug, RegEdit& regEdit, Programs& programs);

    // Opens a path or an address ("mailto:", "http://") with the application associated with it;
    // pages and addresses that have none go to the browser. False when nothing could be started.
    bool ExecApp(TextView document, std::int32_t flag);

    // The file's place in a command of GetApplForExt, with its quotes.
    static constexpr TextView FilePlace = u"\"%l\"";

    // The command that opens files with the extension (given without the dot): the user's choice
    // before the machine's. The place of the file in it reads as FilePlace. Empty when none is
    // registered.
    Text GetApplForExt(TextView extension);

private:
    Text OpenCommand(TextView progId);

    Debug& debug;
    RegEdit& regEdit;
    Programs& programs;
};

}  // namespace tellwick
