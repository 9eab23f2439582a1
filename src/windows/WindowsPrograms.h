// The running program, the other processes, and the start of programs.
#pragma once

#include "platform/PendingError.h"
#include "platform/Programs.h"
#include "windows/Com.h"

namespace tellwick::windows {

class WindowsPrograms : public Programs {
public:
    // `library` is the add-in's own module.
    WindowsPrograms(PendingError& errors, HMODULE library) : errors(errors), library(library) {}
    Text LibraryFolder() override;
    Text WindowsFolder() override;
    Text CommandLine() override;
    std::int32_t PlatformId() override;
    std::vector<Text> SnapshotNames() override;
    std::vector<std::uint32_t> ProcessIdentifiers(std::size_t entries) override;
    Text FirstModulePath(std::uint32_t process) override;
    std::vector<Text> MissingFunctions() override;
    bool Start(TextView application, TextView commandLine, WindowStyle style) override;
    bool OpenAssociated(TextView document) override;

private:
    PendingError& errors;
    HMODULE library;
};

}  // namespace tellwick::windows
