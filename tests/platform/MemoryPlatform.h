// The add-in's surroundings in memory: one implementation of every port, open for tests to look
// into and to make fail.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace tellwick::test {

// Names of files, keys and values: letter case is ignored.
struct FoldedLess {
    bool operator()(const Text& left, const Text& right) const { return LessFolded(left, right); }
};

// The calls into the system, counted; one of them can be made to fail.
struct Faults {
    bool Hit() { return ++calls == failAt; }
    int calls = 0;
    int failAt = 0;  // counted from 1; 0: none
};

class MemoryRegistry : public Registry {
public:
    explicit MemoryRegistry(Faults& faults) : faults(faults) {}
    std::optional<Text> Read(Hive hive, TextView key, TextView name) override;
    // Every value may hold the one variable there is, "%Programs%".
    std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) override;
    bool WriteString(Hive hive, TextView key, TextView name, TextView value) override;
    bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) override;
    bool DeleteValue(Hive hive, TextView key, TextView name) override;
    bool DeleteKey(Hive hive, TextView key, TextView subkey) override;

    // Hive, key and name in one text, "80000001\Software\...\name".
    std::map<Text, Text, FoldedLess> values;
    std::vector<Text> writes;  // key, name and value of every write, "key\name=value"
    bool failWrites = false;
    int reads = 0;

private:
    Faults& faults;
};

class MemoryFileSystem : public FileSystem {
public:
    MemoryFileSystem(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
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
    std::vector<Text> FileNames(TextView folder, TextView ending) override;
    Text ParentFolderName(TextView path) override;
    Text TempFolder() override { return faults.Hit() ? u"" : u"C:\\Temp\\"; }
    Text CreateTempFile(TextView folder, TextView prefix) override;
    Text ReadProfileString(TextView path, TextView section, TextView key,
                           TextView defaultValue) override;
    bool WriteProfileString(TextView path, TextView section, TextView key,
                            std::optional<TextView> value) override;

    struct File {
        std::string contents;
        std::uint64_t modified = 0;
        bool readOnly = false;
    };
    std::map<Text, File, FoldedLess> files;
    std::map<Text, bool, FoldedLess> folders{
        {u"C:", true}, {u"C:\\Temp", true}, {u"C:\\Program", true}, {u"C:\\Data", true}};
    bool failWrites = false;
    bool failReads = false;
    int reads = 0;
    int writes = 0;
    std::vector<Text> profileCalls;  // path, section and key of every profile call
    std::function<void()> onSwap;    // before the file is looked at: another program's turn

private:
    bool Fails(std::int32_t error);
    bool MayWrite(TextView path);

    PendingError& errors;
    Faults& faults;
    std::uint64_t time = 0;
    int tempFiles = 0;
};

class MemoryPrograms : public Programs {
public:
    MemoryPrograms(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
    Text LibraryFolder() override { return u"C:\\Program\\"; }
    Text WindowsFolder() override { return u"C:\\Windows\\"; }
    Text CommandLine() override { return commandLine; }
    std::int32_t PlatformId() override { return platformId; }
    std::vector<Text> SnapshotNames() override {
        return faults.Hit() ? std::vector<Text>() : snapshot;
    }
    std::vector<std::uint32_t> ProcessIdentifiers(std::size_t entries) override;
    Text FirstModulePath(std::uint32_t process) override;
    bool Start(TextView application, TextView startLine, WindowStyle style) override;
    bool OpenAssociated(TextView document) override;

    struct Started {
        Text application;
        Text commandLine;
        WindowStyle style;
    };
    Text commandLine;
    std::int32_t platformId = 2;
    std::vector<Text> snapshot;
    std::vector<Text> paths;       // of the first module of each process
    std::vector<Started> started;  // or tried to
    std::vector<Text> opened;
    bool failStart = false;
    bool failOpen = false;  // nothing is associated

private:
    PendingError& errors;
    Faults& faults;
};

class MemoryMessageLoop : public MessageLoop {
public:
    explicit MemoryMessageLoop(Faults& faults) : faults(faults) {}
    void DoEvents() override {
        if (onDoEvents) onDoEvents();
    }
    bool Waiting() override { return waiting; }
    void Sleep(std::uint32_t milliseconds) override { slept += milliseconds; }
    bool Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
              std::uint64_t second) override {
        if (faults.Hit()) return false;
        posted.push_back({window, message, first, second});
        return true;
    }

    struct Posted {
        std::uint64_t window;
        std::uint32_t message;
        std::uint64_t first, second;
        bool operator==(const Posted&) const = default;
    };
    std::function<void()> onDoEvents;
    bool waiting = true;
    std::uint32_t slept = 0;  // milliseconds
    std::vector<Posted> posted;

private:
    Faults& faults;
};

// Answers come from the queue; with none left, a box is answered with its first button.
class MemoryDialogs : public Dialogs {
public:
    Answer MessageBox(TextView text, std::uint32_t flags, TextView title) override;
    Answer CheckedMessageBox(TextView text, const std::vector<Choice>& choices, std::uint32_t icon,
                             TextView title, TextView checkBoxText, bool& checked) override;
    Text InputBox(TextView prompt, TextView title, TextView initialText, TextView okText,
                  TextView cancelText) override;

    struct Shown {
        Text text;
        std::uint32_t flags;
        Text title;
        Text checkBoxText;
        std::vector<Choice> choices = {};
    };
    std::vector<Shown> shown;
    std::deque<Answer> answers;
    std::deque<Text> inputs;
    bool check = false;  // the user ticks the check box

private:
    Answer Next(std::uint32_t flags);
};

class MemoryClock : public Clock {
public:
    float SecondsSinceMidnight() override { return seconds; }
    double Now() override { return now; }
    double Milliseconds() override { return milliseconds += step; }
    float seconds = 0;
    double now = 46000.5;
    double milliseconds = 0;
    double step = 0;  // what passes between two looks
};

// Code page 1252.
class MemoryLocale : public Locale {
public:
    Text FromAnsi(std::string_view bytes) override;
    std::string ToAnsi(TextView text) override;
    std::optional<Text> LocaleInfo(std::uint32_t locale, std::uint32_t type) override;
    std::string SortKey(TextView text) override;
    Text DateText(double date) override;
    // One that holds every character, with two bytes for each unit, as newer systems can have it.
    bool holdsAll = false;
    // By locale and type, as the system returns them.
    std::map<std::pair<std::uint32_t, std::uint32_t>, Text> information;
};

class MemoryAutomation : public Automation {
public:
    MemoryAutomation(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
    ObjectPtr Create(TextView programmaticIdentifier) override;
    ObjectPtr Running(TextView programmaticIdentifier) override;
    std::map<Text, std::function<ObjectPtr()>> factories;
    std::map<Text, ObjectPtr> running;

private:
    PendingError& errors;
    Faults& faults;
};

// Bitmaps are numbers: 1000 + resource, or 2000 + resource when light grey was replaced by the
// system colour 0, 3000 + resource by another one; of icons
// 10000 * resource + their side. Pictures remember theirs.
class MemoryBitmaps : public Bitmaps {
public:
    MemoryBitmaps(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
    BitmapHandle CreateMapped(std::int32_t resource, SystemColour lightGrey) override;
    BitmapHandle Load(std::int32_t resource) override;
    ObjectPtr CreatePicture(BitmapHandle bitmap) override;
    ObjectPtr CreateIconPicture(std::int32_t resource, std::int32_t size) override;
    std::int32_t Resolution() override { return resolution; }
    void ClearClipboard() override;
    void PutOnClipboard(const ObjectPtr& picture) override;
    static BitmapHandle BitmapOf(const ObjectPtr& picture);
    BitmapHandle clipboard = 0;
    std::int32_t resolution = 96;

private:
    bool Fails();

    PendingError& errors;
    Faults& faults;
};

// Ticks by hand.
class MemoryTimers : public Timers {
public:
    std::unique_ptr<Timer> Create() override;
    // Lets every running timer tick once; the number of those that did.
    int Tick();
    std::vector<class MemoryTimer*> timers;
};

// Everybody gets every lock.
class MemoryLocks : public Locks {
public:
    explicit MemoryLocks(Faults& faults) : faults(faults) {}
    std::unique_ptr<Lock> Take(TextView name) override;
    std::vector<Text> held;

private:
    Faults& faults;
};

struct MemoryPlatform {
    PendingError errors;
    Faults faults;
    MemoryRegistry registry{faults};
    MemoryFileSystem fileSystem{errors, faults};
    MemoryPrograms programs{errors, faults};
    MemoryMessageLoop messageLoop{faults};
    MemoryDialogs dialogs;
    MemoryClock clock;
    MemoryLocale locale;
    MemoryAutomation automation{errors, faults};
    MemoryBitmaps bitmaps{errors, faults};
    MemoryTimers timers;
    MemoryLocks locks{faults};

    Platform Ports() {
        return {errors, registry, fileSystem, programs, messageLoop, dialogs,
                clock,  locale,   automation, bitmaps,  timers,      locks};
    }
};

}  // namespace tellwick::test
