// Port: the running program, the other processes, and the start of programs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

enum class WindowStyle { Normal = 1, MinimisedWithFocus = 2 };

class Programs {
public:
    virtual ~Programs() = default;

    // The folder of the add-in's own library, with a trailing "\".
    virtual Text LibraryFolder() = 0;

    // The system's own folder of programs ("C:\Windows\"), with a trailing "\".
    virtual Text WindowsFolder() = 0;

    // The command line of the host program behind its own name.
    virtual Text CommandLine() = 0;

    // The system's platform identifier: 1 the consumer line of Windows, 2 the NT line; 0 unknown.
    virtual std::int32_t PlatformId() = 0;

    // Process snapshot by the toolhelp functions: the executable name of each process as the
    // snapshot gives it, cut at its first NUL. Empty when the system lacks these functions.
    virtual std::vector<Text> SnapshotNames() = 0;

    // Process identifiers by the process-status functions; the buffer starts at `entries` and
    // grows until all fit. Empty when the system lacks these functions.
    virtual std::vector<std::uint32_t> ProcessIdentifiers(std::size_t entries) = 0;

    // Full path of the first module of a process; empty when it may not be opened.
    virtual Text FirstModulePath(std::uint32_t process) = 0;

    // The system's functions that were looked for in vain, as "library.dll Function".
    virtual std::vector<Text> MissingFunctions() = 0;

    // Starts a program. `application` is the full path of the executable and decides what is
    // started; an empty one leaves it to the command line. False, with 53 noted, when the start
    // fails.
    virtual bool Start(TextView application, TextView commandLine, WindowStyle style) = 0;

    // Opens a file, page or address with the application associated with it. False, with 53
    // noted, when there is none.
    virtual bool OpenAssociated(TextView document) = 0;
};

}  // namespace tellwick
