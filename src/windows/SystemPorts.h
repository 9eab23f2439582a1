// The small ports straight over the system: registry, files, programs, message loop, clock, locale,
// timers, locks.
#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/Locks.h"
#include "platform/MessageLoop.h"
#include "platform/PendingError.h"
#include "platform/Programs.h"
#include "platform/Registry.h"
#include "platform/Timer.h"
#include "windows/Com.h"

namespace tellwick::windows {

Text FromAnsi(std::string_view bytes);
std::string ToAnsi(TextView text);

class WindowsLocale : public Locale {
public:
    Text FromAnsi(std::string_view bytes) override { return windows::FromAnsi(bytes); }
    std::string ToAnsi(TextView text) override { return windows::ToAnsi(text); }
    std::optional<Text> LocaleInfo(std::uint32_t locale, std::uint32_t type) override;
    std::string SortKey(TextView text) override;
};

class WindowsRegistry : public Registry {
public:
    std::optional<Text> Read(Hive hive, TextView key, TextView name) override;
    std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) override;
    bool WriteString(Hive hive, TextView key, TextView name, TextView value) override;
    bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) override;
    bool DeleteValue(Hive hive, TextView key, TextView name) override;
    bool DeleteKey(Hive hive, TextView key, TextView subkey) override;
};

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
    bool Start(TextView application, TextView commandLine, WindowStyle style) override;
    bool OpenAssociated(TextView document) override;

private:
    PendingError& errors;
    HMODULE library;
};

class WindowsMessageLoop : public MessageLoop {
public:
    void DoEvents() override;
    bool Waiting() override;
    void Sleep(std::uint32_t milliseconds) override { ::Sleep(milliseconds); }
    bool Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
              std::uint64_t second) override;
};

class WindowsClock : public Clock {
public:
    float SecondsSinceMidnight() override;
    double Now() override;
    double Milliseconds() override;
};

class WindowsTimers : public Timers {
public:
    std::unique_ptr<Timer> Create() override;
};

class WindowsLocks : public Locks {
public:
    std::unique_ptr<Lock> Take(TextView name) override;
};

}  // namespace tellwick::windows
