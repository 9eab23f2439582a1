// The add-in's surroundings in memory: one implementation of every port, open for tests to look
// into and to make fail.
#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace tellwick::test {

inline const Text TraceFile = u"C:\\Program\\TellwickAddIn.dbg.xml";
inline const Text CurrentFile = u"C:\\Data\\Tellwick\\corvane.ini";

// Names of files, keys and values: letter case is ignored.
struct FoldedLess {
    bool operator()(const Text& left, const Text& right) const { return LessFolded(left, right); }
};

// The program's end in the middle of it.
struct Killed {};

// The calls into the system, counted; one of them can be made to fail, or to be the last one.
struct Faults {
    bool Hit() {
        if (++calls == killAt) throw Killed{};
        return calls == failAt;
    }
    int calls = 0;
    int failAt = 0;  // counted from 1; 0: none
    int killAt = 0;
};

class MemoryRegistry : public Registry {
public:
    explicit MemoryRegistry(Faults& faults) : faults(faults) {}
    std::optional<Text> Read(Hive hive, TextView key, TextView name) override {
        ++reads;
        if (faults.Hit()) return {};
        const auto found = values.find(ValuePath(hive, key, name));
        if (found == values.end()) return {};
        return found->second;
    }
    // Every value may hold the one variable there is, "%Programs%".
    std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) override {
        std::optional<Text> value = Read(hive, key, name);
        if (value) value = ReplaceAll(*value, u"%Programs%", u"C:\\Programs");
        return value;
    }
    std::optional<std::vector<RegistryValue>> Values(Hive hive, TextView key) override {
        if (faults.Hit()) return {};
        std::optional<std::vector<RegistryValue>> found;
        const Text path = ValuePath(hive, key, {});
        for (const auto& [name, value] : values) {
            if (!StartsWithFolded(name, path)) continue;
            if (!found) found.emplace();
            if (Contains(TextView(name).substr(path.size()), u"\\")) continue;
            found->push_back({name.substr(path.size()),
                              numbers.contains(name) ? RegistryType::Number : RegistryType::String,
                              value});
        }
        return found;
    }
    bool WriteString(Hive hive, TextView key, TextView name, TextView value) override {
        if (failWrites || faults.Hit()) return false;
        writes.push_back(Text(key).append(u"\\").append(name).append(u"=").append(value));
        values[ValuePath(hive, key, name)] = value;
        numbers.erase(ValuePath(hive, key, name));
        return true;
    }
    bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) override {
        const bool written = WriteString(hive, key, name, NumberText(value));
        if (written) numbers.insert(ValuePath(hive, key, name));
        return written;
    }
    bool DeleteValue(Hive hive, TextView key, TextView name) override {
        return !faults.Hit() && values.erase(ValuePath(hive, key, name)) != 0;
    }
    bool DeleteKey(Hive hive, TextView key, TextView subkey) override {
        if (faults.Hit()) return false;
        const Text path = ValuePath(hive, key, subkey) + u"\\";
        return std::erase_if(values, [&](const auto& entry) {
                   return StartsWithFolded(entry.first, path);
               }) != 0;
    }

    // Hive, key and name in one text, "80000001\Software\...\name".
    std::map<Text, Text, FoldedLess> values;
    std::set<Text, FoldedLess> numbers;  // the paths of those that are no strings
    std::vector<Text> writes;            // key, name and value of every write, "key\name=value"
    bool failWrites = false;
    int reads = 0;

private:
    static Text ValuePath(Hive hive, TextView key, TextView name) {
        return HexText(std::uint32_t(hive)).append(u"\\").append(key).append(u"\\").append(name);
    }

    Faults& faults;
};

class MemoryFileSystem : public FileSystem {
public:
    MemoryFileSystem(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
    bool Exists(TextView path) override {
        if (Fails(0)) return false;
        return files.contains(Text(path)) || FolderExists(path);
    }
    bool FolderExists(TextView path) override { return folders.contains(WithoutSlash(path)); }
    std::int64_t Length(TextView path) override {
        const auto found = files.find(Text(path));
        return found == files.end() || Fails(0) ? -1 : std::int64_t(found->second.contents.size());
    }
    std::uint64_t ModifiedTime(TextView path) override {
        const auto found = files.find(Text(path));
        return found == files.end() || Fails(0) ? 0 : found->second.modified;
    }
    std::optional<std::string> Read(TextView path) override {
        ++reads;
        if (Fails(error::PathFileAccess)) return {};
        const auto found = files.find(Text(path));
        if (found != files.end() && !failReads) return found->second.contents;
        errors.Note(FolderExists(path) ? error::PathFileAccess : error::FileNotFound,
                    u"File not found");
        return {};
    }
    bool Write(TextView path, std::string_view contents, WriteMode mode) override {
        if (!MayWrite(path)) return false;
        File& file = files[Text(path)];
        if (mode == WriteMode::Replace) file.contents.clear();
        file.modified = ++time;
        // What a full disk has taken before it was full stays, and what was written before the end.
        const std::size_t taken = contents.size() * std::size_t(faults.calls % 5) / 4;
        file.contents.append(contents.substr(0, taken));
        if (Fails(error::PathFileAccess)) return false;
        file.contents.append(contents.substr(taken));
        return true;
    }
    SwapResult Swap(TextView path, std::string_view before, std::string_view contents) override {
        if (onSwap) onSwap();
        const auto found = files.find(Text(path));
        const std::string now = found == files.end() ? std::string() : found->second.contents;
        if (now != before) return SwapResult::Changed;
        if (Fails(error::PathFileAccess) || !MayWrite(path)) return SwapResult::Failed;
        files[Text(path)].contents = contents;
        files[Text(path)].modified = ++time;
        return SwapResult::Done;
    }
    bool Rename(TextView from, TextView to) override {
        if (Fails(error::PathFileAccess)) return false;
        if (!files.contains(Text(from))) {
            errors.Note(error::FileNotFound, u"File not found");
            return false;
        }
        if (!MayWrite(to)) return false;
        const auto file = files.extract(Text(from));
        files[Text(to)] = std::move(file.mapped());
        return true;
    }
    bool Delete(TextView path) override {
        if (Fails(error::PathFileAccess)) return false;
        if (files.erase(Text(path))) return true;
        errors.Note(error::FileNotFound, u"File not found");
        return false;
    }
    bool CreateFolder(TextView path) override {
        const Text parent = ParentFolderName(path);
        if (Fails(error::PathNotFound)) return false;
        if (failWrites || files.contains(Text(path)) || !FolderExists(parent)) {
            errors.Note(error::PathNotFound, u"Path not found");
            return false;
        }
        folders[WithoutSlash(path)] = true;
        return true;
    }
    bool DeleteFolder(TextView path) override {
        const Text inside = WithoutSlash(path) + u"\\";
        const auto isInside = [&](const auto& entry) {
            return StartsWithFolded(entry.first, inside);
        };
        if (Fails(error::PathFileAccess)) return false;
        if (std::ranges::none_of(files, isInside) && std::ranges::none_of(folders, isInside) &&
            folders.erase(WithoutSlash(path)) != 0) {
            return true;
        }
        errors.Note(error::PathFileAccess, u"Path/File access error");
        return false;
    }
    std::vector<Text> FileNames(TextView folder, TextView ending) override {
        std::vector<Text> names;
        if (Fails(0)) return names;
        for (const auto& [path, file] : files) {
            const std::size_t name = path.rfind(u'\\') + 1;
            if (EqualFolded(TextView(path).substr(0, name), folder) &&
                EndsWithFolded(path, ending)) {
                names.push_back(path.substr(name));
            }
        }
        return names;
    }
    std::optional<std::vector<Text>> FolderNames(TextView folder) override {
        if (Fails(0) || !FolderExists(folder)) return {};
        std::vector<Text> names;
        for (const auto& [path, exists] : folders) {
            const std::size_t name = path.rfind(u'\\') + 1;
            if (EqualFolded(TextView(path).substr(0, name), folder)) {
                names.push_back(path.substr(name));
            }
        }
        return names;
    }
    Text ParentFolderName(TextView path) override {
        const Text whole = WithoutSlash(path);
        const std::size_t slash = whole.rfind(u'\\');
        return slash == Text::npos ? Text() : whole.substr(0, slash);
    }
    Text TempFolder() override { return faults.Hit() ? u"" : u"C:\\Temp\\"; }
    Text CreateTempFile(TextView folder, TextView prefix) override {
        if (onCreateTempFile) onCreateTempFile();
        if (Fails(error::PathFileAccess)) return {};
        const Text path =
            Text(folder).append(prefix) + HexText(std::uint32_t(++tempFiles)) + u".tmp";
        files[path].modified = ++time;
        return path;
    }
    Text ReadProfileString(TextView path, TextView section, TextView key, TextView) override {
        profileCalls.push_back(Text(path).append(u"|").append(section).append(u"|").append(key));
        return u"from the system";
    }
    bool WriteProfileString(TextView path, TextView section, TextView key,
                            std::optional<TextView> value) override {
        profileCalls.push_back(Text(path).append(u"|").append(section).append(u"|").append(key) +
                               u"=" + Text(value.value_or(u"(removed)")));
        return true;
    }

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
    std::function<void()> onCreateTempFile;
    std::function<void()> onSwap;  // before the file is looked at: another program's turn

private:
    static Text WithoutSlash(TextView folder) {
        return Text(folder.ends_with(u'\\') ? folder.substr(0, folder.size() - 1) : folder);
    }
    bool Fails(std::int32_t error) {
        if (!faults.Hit()) return false;
        if (error != 0) errors.Note(error, u"Failed on purpose");
        return true;
    }
    bool MayWrite(TextView path) {
        const auto found = files.find(Text(path));
        const bool readOnly = found != files.end() && found->second.readOnly;
        if (failWrites || readOnly || FolderExists(path)) {
            errors.Note(error::PathFileAccess, u"Path/File access error");
        } else if (path.empty() || !FolderExists(ParentFolderName(path))) {
            errors.Note(error::PathNotFound, u"Path not found");
        } else {
            ++writes;
            return true;
        }
        return false;
    }

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
    std::int32_t PlatformId() override { return 2; }
    std::vector<Text> SnapshotNames() override {
        return faults.Hit() ? std::vector<Text>() : snapshot;
    }
    std::vector<std::uint32_t> ProcessIdentifiers(std::size_t) override {
        std::vector<std::uint32_t> identifiers;
        if (faults.Hit()) return identifiers;
        for (std::uint32_t process = 0; process < paths.size(); ++process) {
            identifiers.push_back(process);
        }
        return identifiers;
    }
    Text FirstModulePath(std::uint32_t process) override {
        return faults.Hit() ? Text() : paths.at(process);
    }
    std::vector<Text> MissingFunctions() override { return {u"user32.dll GetDpiForWindow"}; }
    bool Start(TextView application, TextView startLine, WindowStyle style) override {
        started.push_back({Text(application), Text(startLine), style});
        const bool fails = failStart || faults.Hit();
        if (fails) errors.Note(error::FileNotFound, u"File not found");
        return !fails;
    }
    bool OpenAssociated(TextView document) override {
        opened.emplace_back(document);
        if (!failOpen) return true;
        errors.Note(error::FileNotFound, u"File not found");
        return false;
    }

    struct Started {
        Text application;
        Text commandLine;
        WindowStyle style;
    };
    Text commandLine;
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

// Answers come from the queue; with none left, a box is answered with its first button.
class MemoryDialogs : public Dialogs {
public:
    Answer MessageBox(TextView text, std::uint32_t flags, TextView title) override {
        shown.push_back({Text(text), flags, Text(title), {}});
        return Next(flags);
    }
    Answer CheckedMessageBox(TextView text, const std::vector<Choice>& choices, std::uint32_t icon,
                             TextView title, TextView checkBoxText, bool& checked) override {
        const std::uint32_t buttons = choices.size() > 1 ? box::YesNo : box::Ok;
        shown.push_back({Text(text), buttons | icon, Text(title), Text(checkBoxText), choices});
        checked = check;
        return answers.empty() ? choices.front().answer : Next(buttons);
    }
    Text InputBox(TextView prompt, TextView title) override {
        shown.push_back({Text(prompt), 0, Text(title), {}});
        if (inputs.empty()) return {};
        const Text input = inputs.front();
        inputs.pop_front();
        return input;
    }

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
    bool check = false;            // the user ticks the check box
    std::function<void()> onShow;  // while a box is open

private:
    Answer Next(std::uint32_t flags) {
        if (onShow) onShow();
        if (answers.empty())
            return (flags & box::ButtonMask) == box::YesNo ? Answer::Yes : Answer::Ok;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
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
    Text FromAnsi(std::string_view bytes) override {
        Text text;
        for (std::size_t at = 0; holdsAll && at + 1 < bytes.size(); at += 2) {
            text += char16_t(std::uint8_t(bytes[at]) | std::uint8_t(bytes[at + 1]) << 8);
        }
        if (holdsAll) return text;
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            text += code >= 0x80 && code < 0xA0 ? Upper1252[code - 0x80u] : char16_t(code);
        }
        return text;
    }
    std::string ToAnsi(TextView text) override {
        std::string bytes;
        for (char16_t unit : text) {
            if (holdsAll) {
                bytes += {char(unit & 0xFF), char(unit >> 8)};
                continue;
            }
            // Two of the system's nearest ones.
            if (unit == 0x0142) unit = u'l';
            if (unit == 0x2011) unit = u'-';
            const auto upper = std::find(Upper1252.begin(), Upper1252.end(), unit);
            if (upper != Upper1252.end()) {
                bytes += char(0x80 + (upper - Upper1252.begin()));
            } else {
                bytes += unit < 0x80 || (unit >= 0xA0 && unit < 0x100) ? char(unit) : '?';
            }
        }
        return bytes;
    }
    std::optional<Text> FromCodePage(std::uint32_t codePage, std::string_view bytes) override {
        if (codePage != 1250 && codePage != 1252) return {};
        if (codePage == 1252) return MemoryLocale().FromAnsi(bytes);
        Text text;
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            text += code < 0x80 ? char16_t(code) : Upper1250[code - 0x80u];
        }
        return text;
    }
    std::optional<Text> LocaleInfo(std::uint32_t locale, std::uint32_t type) override {
        const auto found = information.find({locale, type});
        if (found == information.end()) return {};
        return found->second;
    }
    Text Country() override { return country; }
    void AppendSortKey(TextView text, std::string& keys) override {
        ++sortKeys;
        for (const char16_t unit : LowerCase(text)) {
            keys += char(unit >> 8);
            keys += char(unit & 0xFF);
        }
    }
    int sortKeys = 0;  // that were made
    // One that holds every character, with two bytes for each unit, as newer systems can have it.
    bool holdsAll = false;
    Text country;
    // By locale and type, as the system returns them.
    std::map<std::pair<std::uint32_t, std::uint32_t>, Text> information;

private:
    // Code page 1250 from 0x80 on; the undefined bytes stand for themselves.
    static constexpr TextView Upper1250 =
        u"€\x81‚\x83„…†‡\x88‰Š‹ŚŤŽŹ\x90‘’“”•–—\x98™š›śťžź\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż°±˛ł´µ¶·¸ąş»Ľ˝ľż"
        u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙";
    // Code page 1252 from 0x80 to 0x9F; the undefined bytes stand for themselves.
    static constexpr std::array<char16_t, 32> Upper1252 = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
};

class MemoryAutomation : public Automation {
public:
    MemoryAutomation(PendingError& errors, Faults& faults) : errors(errors), faults(faults) {}
    ObjectPtr Create(TextView programmaticIdentifier) override {
        const auto found = factories.find(Text(programmaticIdentifier));
        if (found != factories.end() && !faults.Hit()) return found->second();
        errors.Note(error::CannotCreateObject, u"ActiveX component can't create object");
        return nullptr;
    }
    ObjectPtr Running(TextView programmaticIdentifier) override {
        const auto found = running.find(Text(programmaticIdentifier));
        if (found != running.end() && !faults.Hit()) return found->second;
        errors.Note(error::CannotCreateObject, u"ActiveX component can't create object");
        return nullptr;
    }
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
    BitmapHandle CreateMapped(std::int32_t resource, SystemColour lightGrey) override {
        if (Fails()) return 0;
        return BitmapHandle(resource) + (lightGrey == SystemColour::Number0 ? 2000 : 3000);
    }
    BitmapHandle Load(std::int32_t resource) override {
        return Fails() ? 0 : 1000 + BitmapHandle(resource);
    }
    ObjectPtr CreatePicture(BitmapHandle bitmap) override {
        if (Fails()) return nullptr;
        return std::make_shared<MemoryPicture>(bitmap);
    }
    ObjectPtr CreateIconPicture(std::int32_t resource, std::int32_t size) override {
        return CreatePicture(BitmapHandle(resource) * 10000 + BitmapHandle(size * resolution / 96));
    }
    std::int32_t Resolution() override { return resolution; }
    void ClearClipboard() override {
        if (!Fails()) clipboard = 0;
    }
    void PutOnClipboard(const ObjectPtr& picture) override {
        if (!Fails()) clipboard = BitmapOf(picture);
    }
    static BitmapHandle BitmapOf(const ObjectPtr& picture) {
        const auto memoryPicture = std::dynamic_pointer_cast<MemoryPicture>(picture);
        return memoryPicture ? memoryPicture->bitmap : 0;
    }
    BitmapHandle clipboard = 0;
    std::int32_t resolution = 96;

private:
    struct MemoryPicture : Object {
        explicit MemoryPicture(BitmapHandle bitmap) : bitmap(bitmap) {}
        Value Get(TextView, const std::vector<Value>&) override { return {}; }
        void Put(TextView, const Value&) override {}
        Value Call(TextView, const std::vector<Value>&, const std::vector<NamedValue>&) override {
            return {};
        }
        Text TypeName() override { return u"Picture"; }
        SubscriptionPtr Advise(const EventInterface&, EventHandler) override { return nullptr; }
        BitmapHandle bitmap;
    };
    bool Fails() {
        const bool fails = faults.Hit();
        if (fails) errors.Note(error::Automation, u"Failed on purpose");
        return fails;
    }

    PendingError& errors;
    Faults& faults;
};

// Ticks by hand.
class MemoryTimers : public Timers {
public:
    explicit MemoryTimers(MemoryClock& clock) : clock(clock) {}
    std::unique_ptr<Timer> Create() override { return std::make_unique<MemoryTimer>(*this); }
    // Lets every timer that is due tick once.
    void RunDue() {
        Tick([this](const MemoryTimer& timer) { return timer.due <= clock.milliseconds; });
    }
    // Lets every running timer tick once; the number of those that did.
    int Tick() {
        return Tick([](const auto&) { return true; });
    }

private:
    struct MemoryTimer : Timer {
        explicit MemoryTimer(MemoryTimers& owner) : owner(owner) { owner.timers.push_back(this); }
        ~MemoryTimer() override { std::erase(owner.timers, this); }
        void Start(std::uint32_t milliseconds, std::function<void()> newTick) override {
            tick = newTick;
            interval = milliseconds;
            due = owner.clock.milliseconds + interval;
        }
        void Stop() override { tick = nullptr; }
        MemoryTimers& owner;
        std::function<void()> tick;
        double interval = 0, due = 0;
    };
    template <class Wanted>
    int Tick(const Wanted& wanted) {
        int ticked = 0;
        for (MemoryTimer* timer : std::vector<MemoryTimer*>(timers)) {
            if (std::find(timers.begin(), timers.end(), timer) == timers.end()) continue;
            const auto tick = timer->tick;
            if (!tick || !wanted(*timer)) continue;
            timer->due = clock.milliseconds + timer->interval;
            tick();
            ++ticked;
        }
        return ticked;
    }
    MemoryClock& clock;
    std::vector<MemoryTimer*> timers;
};

// Events run when they are waited for; time passes while somebody sleeps.
class MemoryMessageLoop : public MessageLoop {
public:
    MemoryMessageLoop(Faults& faults, MemoryClock& clock, MemoryTimers& timers)
        : faults(faults), clock(clock), timers(timers) {}
    bool Waiting() override { return waiting; }
    void Sleep(std::uint32_t milliseconds) override {
        slept += milliseconds;
        clock.milliseconds += milliseconds;
    }
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
    void RunPending() override {
        if (onDoEvents) onDoEvents();
        timers.RunDue();
    }
    Faults& faults;
    MemoryClock& clock;
    MemoryTimers& timers;
};

// Everybody gets every lock.
class MemoryLocks : public Locks {
public:
    explicit MemoryLocks(Faults& faults) : faults(faults) {}
    std::unique_ptr<Lock> Take(TextView name) override {
        struct Held : Lock {
            Held(std::vector<Text>& held, TextView name) : held(held) { held.emplace_back(name); }
            ~Held() override { held.pop_back(); }
            std::vector<Text>& held;
        };
        if (faults.Hit()) return nullptr;
        return std::make_unique<Held>(held, name);
    }
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
    MemoryDialogs dialogs;
    MemoryClock clock;
    MemoryLocale locale;
    MemoryAutomation automation{errors, faults};
    MemoryBitmaps bitmaps{errors, faults};
    MemoryTimers timers{clock};
    MemoryMessageLoop messageLoop{faults, clock, timers};
    MemoryLocks locks{faults};

    Platform Ports() {
        return {errors, registry, fileSystem, programs, messageLoop, dialogs,
                clock,  locale,   automation, bitmaps,  timers,      locks};
    }
};

}  // namespace tellwick::test
