// Files and folders.
#pragma once

#include "platform/FileSystem.h"
#include "platform/Object.h"
#include "windows/Com.h"

namespace tellwick::windows {

class WindowsFileSystem : public FileSystem {
public:
    WindowsFileSystem(PendingError& errors, Automation& automation)
        : errors(errors), automation(automation) {}
    bool Exists(TextView path) override;
    bool FolderExists(TextView path) override;
    std::int64_t Length(TextView path) override;
    std::uint64_t ModifiedTime(TextView path) override;
    std::optional<std::string> Read(TextView path) override;
    bool Write(TextView path, std::string_view contents, WriteMode mode) override;
    SwapResult Swap(TextView path, std::string_view before, std::string_view contents) override;
    bool Rename(TextView from, TextView to) override;
    bool Delete(TextView path) override;
    bool CreateFolder(TextView path) override;
    bool DeleteFolder(TextView path) override;
    std::vector<Text> FileNames(TextView folder, TextView ending) override;
    std::optional<std::vector<Text>> FolderNames(TextView folder) override;
    Text ParentFolderName(TextView path) override;
    Text TempFolder() override;
    Text CreateTempFile(TextView folder, TextView prefix) override;
    Text ReadProfileString(TextView path, TextView section, TextView key,
                           TextView defaultValue) override;
    bool WriteProfileString(TextView path, TextView section, TextView key,
                            std::optional<TextView> value) override;

private:
    // Notes what the system said last. Always false.
    bool NoteLastError();
    bool WriteTo(HANDLE file, std::string_view contents);

    PendingError& errors;
    Automation& automation;
};

}  // namespace tellwick::windows
