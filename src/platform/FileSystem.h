// Port: files and folders. Contents are bytes; paths are text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

enum class WriteMode { Replace, Append };
enum class SwapResult { Done, Changed, Failed };

// Functions that fail note the pending error named in their comment.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    // By the attributes: true for files and folders alike. Notes nothing.
    virtual bool Exists(TextView path) = 0;
    virtual bool FolderExists(TextView path) = 0;

    // Length in bytes; -1 when there is no such file (a folder has none). Notes nothing.
    virtual std::int64_t Length(TextView path) = 0;

    // Time of the last change as an opaque, growing number; 0 when there is no such file.
    virtual std::uint64_t ModifiedTime(TextView path) = 0;

    // The complete contents. Empty optional, with 53, 75 or 76 noted, when it cannot be read.
    virtual std::optional<std::string> Read(TextView path) = 0;

    // Opens (creating it), writes, closes. False, with 70, 75 or 76 noted, when that fails.
    // Never creates a folder.
    virtual bool Write(TextView path, std::string_view contents, WriteMode mode) = 0;

    // Replaces the contents `before`, empty or missing ones when that is empty, so that no reader
    // sees half of the new ones and a failure in the middle leaves the old file: makes a file
    // beside it, under a name that nobody has, and swaps the two. Changed, with nothing replaced,
    // when another program has written something else there meanwhile. Of a read-only file, or a
    // folder of that name, nothing is replaced: Failed, with 70 or 75 noted.
    virtual SwapResult Swap(TextView path, std::string_view before, std::string_view contents) = 0;

    // Puts a file in the place of another, which may be missing. False, with 53, 70 or 75 noted,
    // when that fails; then both stay.
    virtual bool Rename(TextView from, TextView to) = 0;

    // False, with 53 or 75 noted, when it cannot be deleted.
    virtual bool Delete(TextView path) = 0;

    // Creates the last level only. False, with 58, 75 or 76 noted, when that fails.
    virtual bool CreateFolder(TextView path) = 0;

    // False, with 70, 75 or 76 noted, when it cannot be deleted, or is not empty.
    virtual bool DeleteFolder(TextView path) = 0;

    // Names, without the folder, of the files in a folder (given with a trailing "\") that end so,
    // letter case ignored, in no order to rely on. Empty when the folder cannot be read. Notes
    // nothing.
    virtual std::vector<Text> FileNames(TextView folder, TextView ending) = 0;

    // Those of the folders in it. Empty optional when it cannot be read. Notes nothing.
    virtual std::optional<std::vector<Text>> FolderNames(TextView folder) = 0;

    // The folder a path lies in, without trailing "\"; empty for a root.
    virtual Text ParentFolderName(TextView path) = 0;

    // The user's temporary folder with a trailing "\"; empty when the system names none.
    virtual Text TempFolder() = 0;

    // Creates an empty file with a new name that begins with prefix; its full path, or the empty
    // text with 75 noted.
    virtual Text CreateTempFile(TextView folder, TextView prefix) = 0;

    // The system's own profile functions, for files too big to be held. The value is cut at 255
    // characters and at its first NUL.
    virtual Text ReadProfileString(TextView path, TextView section, TextView key,
                                   TextView defaultValue) = 0;

    // An empty optional removes the entry.
    virtual bool WriteProfileString(TextView path, TextView section, TextView key,
                                    std::optional<TextView> value) = 0;
};

}  // namespace tellwick
