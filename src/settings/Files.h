// Whole text files, and folders with their missing levels.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/PendingError.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class MessageBoxes;

class Files {
public:
    Files(PendingError& errors, Debug& debug, MessageBoxes& messageBoxes, FileSystem& fileSystem,
          Locale& locale);

    // Writes (or appends) the contents in the ANSI code page, nothing added, creating missing
    // folders. "?" and "/" in the path become "_"; the path is handed back so cleaned. False on
    // failure, which the user is told when showError is set.
    bool WriteFileConents(Text& path, TextView contents, bool append, std::int32_t mode,
                          bool showError);

    // Tells the user that the file could not be written, with the pending error's description.
    void ReportFailure(TextView path);

    // Creates the folder with every missing level above it.
    void MkDir_(TextView folder);

    // The path without doubled "\", "." and ".." levels.
    static Text NormalisePath(TextView path);

private:
    PendingError& errors;
    Debug& debug;
    MessageBoxes& messageBoxes;
    FileSystem& fileSystem;
    Locale& locale;
};

}  // namespace tellwick
