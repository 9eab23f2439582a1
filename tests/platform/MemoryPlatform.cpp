#include "platform/MemoryPlatform.h"

#include <algorithm>
#include <array>

namespace tellwick::test {

namespace {

Text ValuePath(Hive hive, TextView key, TextView name) {
    return HexText(std::uint32_t(hive)).append(u"\\").append(key).append(u"\\").append(name);
}

Text WithoutSlash(TextView folder) {
    return Text(folder.ends_with(u'\\') ? folder.substr(0, folder.size() - 1) : folder);
}

// Code page 1252 from 0x80 to 0x9F; the undefined bytes stand for themselves.
constexpr std::array<char16_t, 32> Upper1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

}  // namespace

std::optional<Text> MemoryRegistry::Read(Hive hive, TextView key, TextView name) {
    ++reads;
    if (faults.Hit()) return {};
    const auto found = values.find(ValuePath(hive, key, name));
    if (found == values.end()) return {};
    return found->second;
}

std::optional<Text> MemoryRegistry::ReadExpanded(Hive hive, TextView key, TextView name) {
    std::optional<Text> value = Read(hive, key, name);
    if (value) value = ReplaceAll(*value, u"%Programs%", u"C:\\Programs");
    return value;
}

bool MemoryRegistry::WriteString(Hive hive, TextView key, TextView name, TextView value) {
    if (failWrites || faults.Hit()) return false;
    writes.push_back(Text(key).append(u"\\").append(name).append(u"=").append(value));
    values[ValuePath(hive, key, name)] = value;
    return true;
}

bool MemoryRegistry::WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) {
    return WriteString(hive, key, name, NumberText(value));
}

bool MemoryRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
    return !faults.Hit() && values.erase(ValuePath(hive, key, name)) != 0;
}

bool MemoryRegistry::DeleteKey(Hive hive, TextView key, TextView subkey) {
    if (faults.Hit()) return false;
    const Text path = ValuePath(hive, key, subkey) + u"\\";
    return std::erase_if(
               values, [&](const auto& entry) { return StartsWithFolded(entry.first, path); }) != 0;
}

bool MemoryFileSystem::Fails(std::int32_t error) {
    if (!faults.Hit()) return false;
    if (error != 0) errors.Note(error, u"Failed on purpose");
    return true;
}

bool MemoryFileSystem::Exists(TextView path) {
    if (Fails(0)) return false;
    return files.contains(Text(path)) || FolderExists(path);
}

bool MemoryFileSystem::FolderExists(TextView path) {
    return folders.contains(WithoutSlash(path));
}

std::int64_t MemoryFileSystem::Length(TextView path) {
    const auto found = files.find(Text(path));
    return found == files.end() || Fails(0) ? -1 : std::int64_t(found->second.contents.size());
}

std::uint64_t MemoryFileSystem::ModifiedTime(TextView path) {
    const auto found = files.find(Text(path));
    return found == files.end() || Fails(0) ? 0 : found->second.modified;
}

std::optional<std::string> MemoryFileSystem::Read(TextView path) {
    ++reads;
    if (Fails(error::PathFileAccess)) return {};
    const auto found = files.find(Text(path));
    if (found != files.end() && !failReads) return found->second.contents;
    errors.Note(FolderExists(path) ? error::PathFileAccess : error::FileNotFound,
                u"File not found");
    return {};
}

bool MemoryFileSystem::MayWrite(TextView path) {
    const auto found = files.find(Text(path));
    if (Fails(error::PathFileAccess)) return false;
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

bool MemoryFileSystem::Write(TextView path, std::string_view contents, WriteMode mode) {
    if (!MayWrite(path)) return false;
    File& file = files[Text(path)];
    if (mode == WriteMode::Replace) file.contents.clear();
    file.contents.append(contents);
    file.modified = ++time;
    return true;
}

SwapResult MemoryFileSystem::Swap(TextView path, std::string_view before,
                                  std::string_view contents) {
    if (onSwap) onSwap();
    const auto found = files.find(Text(path));
    const std::string now = found == files.end() ? std::string() : found->second.contents;
    if (now != before) return SwapResult::Changed;
    return Write(path, contents, WriteMode::Replace) ? SwapResult::Done : SwapResult::Failed;
}

bool MemoryFileSystem::Rename(TextView from, TextView to) {
    if (Fails(error::PathFileAccess)) return false;
    const auto file = files.extract(Text(from));
    if (file.empty()) {
        errors.Note(error::FileNotFound, u"File not found");
        return false;
    }
    files[Text(to)] = std::move(file.mapped());
    return true;
}

bool MemoryFileSystem::Delete(TextView path) {
    if (Fails(error::PathFileAccess)) return false;
    if (files.erase(Text(path))) return true;
    errors.Note(error::FileNotFound, u"File not found");
    return false;
}

bool MemoryFileSystem::CreateFolder(TextView path) {
    const Text parent = ParentFolderName(path);
    if (Fails(error::PathNotFound)) return false;
    if (failWrites || files.contains(Text(path)) || !FolderExists(parent)) {
        errors.Note(error::PathNotFound, u"Path not found");
        return false;
    }
    folders[WithoutSlash(path)] = true;
    return true;
}

std::vector<Text> MemoryFileSystem::FileNames(TextView folder, TextView ending) {
    std::vector<Text> names;
    if (Fails(0)) return names;
    for (const auto& [path, file] : files) {
        const std::size_t name = path.rfind(u'\\') + 1;
        if (EqualFolded(TextView(path).substr(0, name), folder) && EndsWithFolded(path, ending)) {
            names.push_back(path.substr(name));
        }
    }
    return names;
}

Text MemoryFileSystem::ParentFolderName(TextView path) {
    const Text whole = WithoutSlash(path);
    const std::size_t slash = whole.rfind(u'\\');
    return slash == Text::npos ? Text() : whole.substr(0, slash);
}

Text MemoryFileSystem::CreateTempFile(TextView folder, TextView prefix) {
    if (Fails(error::PathFileAccess)) return {};
    const Text path = Text(folder).append(prefix) + HexText(std::uint32_t(++tempFiles)) + u".tmp";
    files[path].modified = ++time;
    return path;
}

Text MemoryFileSystem::ReadProfileString(TextView path, TextView section, TextView key, TextView) {
    profileCalls.push_back(Text(path).append(u"|").append(section).append(u"|").append(key));
    return u"from the system";
}

bool MemoryFileSystem::WriteProfileString(TextView path, TextView section, TextView key,
                                          std::optional<TextView> value) {
    profileCalls.push_back(Text(path).append(u"|").append(section).append(u"|").append(key) + u"=" +
                           Text(value.value_or(u"(removed)")));
    return true;
}

std::vector<std::uint32_t> MemoryPrograms::ProcessIdentifiers(std::size_t) {
    std::vector<std::uint32_t> identifiers;
    if (faults.Hit()) return identifiers;
    for (std::uint32_t process = 0; process < paths.size(); ++process) {
        identifiers.push_back(process);
    }
    return identifiers;
}

Text MemoryPrograms::FirstModulePath(std::uint32_t process) {
    return faults.Hit() ? Text() : paths.at(process);
}

bool MemoryPrograms::Start(TextView application, TextView startLine, WindowStyle style) {
    started.push_back({Text(application), Text(startLine), style});
    const bool fails = failStart || faults.Hit();
    if (fails) errors.Note(error::FileNotFound, u"File not found");
    return !fails;
}

bool MemoryPrograms::OpenAssociated(TextView document) {
    opened.emplace_back(document);
    if (!failOpen) return true;
    errors.Note(error::FileNotFound, u"File not found");
    return false;
}

Answer MemoryDialogs::Next(std::uint32_t flags) {
    if (answers.empty()) return (flags & box::ButtonMask) == box::YesNo ? Answer::Yes : Answer::Ok;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

Answer MemoryDialogs::MessageBox(TextView text, std::uint32_t flags, TextView title) {
    shown.push_back({Text(text), flags, Text(title), {}});
    return Next(flags);
}

Answer MemoryDialogs::CheckedMessageBox(TextView text, const std::vector<Choice>& choices,
                                        std::uint32_t icon, TextView title, TextView checkBoxText,
                                        bool& checked) {
    const std::uint32_t buttons = choices.size() > 1 ? box::YesNo : box::Ok;
    shown.push_back({Text(text), buttons | icon, Text(title), Text(checkBoxText), choices});
    checked = check;
    return answers.empty() ? choices.front().answer : Next(buttons);
}

Text MemoryDialogs::InputBox(TextView prompt, TextView title, TextView, TextView, TextView) {
    shown.push_back({Text(prompt), 0, Text(title), {}});
    if (inputs.empty()) return {};
    const Text input = inputs.front();
    inputs.pop_front();
    return input;
}

Text MemoryLocale::FromAnsi(std::string_view bytes) {
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

std::string MemoryLocale::ToAnsi(TextView text) {
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

std::optional<Text> MemoryLocale::LocaleInfo(std::uint32_t locale, std::uint32_t type) {
    const auto found = information.find({locale, type});
    if (found == information.end()) return {};
    return found->second;
}

std::string MemoryLocale::SortKey(TextView text) {
    std::string key;
    for (const char16_t unit : LowerCase(text)) {
        key += char(unit >> 8);
        key += char(unit & 0xFF);
    }
    return key;
}

// "46000 17:05", which the model of Outlook reads.
Text MemoryLocale::DateText(double date) {
    const auto minutes = std::int64_t(date * 1440 + 1e-6);
    const auto twoDigits = [](std::int64_t number) {
        return (number < 10 ? u"0" : u"") + NumberText(number);
    };
    return NumberText(minutes / 1440) + u" " + twoDigits(minutes / 60 % 24) + u":" +
           twoDigits(minutes % 60);
}

ObjectPtr MemoryAutomation::Create(TextView programmaticIdentifier) {
    const auto found = factories.find(Text(programmaticIdentifier));
    if (found != factories.end() && !faults.Hit()) return found->second();
    errors.Note(error::CannotCreateObject, u"ActiveX component can't create object");
    return nullptr;
}

ObjectPtr MemoryAutomation::Running(TextView programmaticIdentifier) {
    const auto found = running.find(Text(programmaticIdentifier));
    if (found != running.end() && !faults.Hit()) return found->second;
    errors.Note(error::CannotCreateObject, u"ActiveX component can't create object");
    return nullptr;
}

namespace {

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

}  // namespace

bool MemoryBitmaps::Fails() {
    const bool fails = faults.Hit();
    if (fails) errors.Note(error::Automation, u"Failed on purpose");
    return fails;
}

BitmapHandle MemoryBitmaps::Load(std::int32_t resource) {
    return Fails() ? 0 : 1000 + BitmapHandle(resource);
}

void MemoryBitmaps::ClearClipboard() {
    if (!Fails()) clipboard = 0;
}

void MemoryBitmaps::PutOnClipboard(const ObjectPtr& picture) {
    if (!Fails()) clipboard = BitmapOf(picture);
}

BitmapHandle MemoryBitmaps::CreateMapped(std::int32_t resource, SystemColour lightGrey) {
    if (Fails()) return 0;
    return BitmapHandle(resource) + (lightGrey == SystemColour::Number0 ? 2000 : 3000);
}

ObjectPtr MemoryBitmaps::CreatePicture(BitmapHandle bitmap) {
    if (Fails()) return nullptr;
    return std::make_shared<MemoryPicture>(bitmap);
}

ObjectPtr MemoryBitmaps::CreateIconPicture(std::int32_t resource, std::int32_t size) {
    return CreatePicture(BitmapHandle(resource) * 10000 + BitmapHandle(size * resolution / 96));
}

BitmapHandle MemoryBitmaps::BitmapOf(const ObjectPtr& picture) {
    const auto memoryPicture = std::dynamic_pointer_cast<MemoryPicture>(picture);
    return memoryPicture ? memoryPicture->bitmap : 0;
}

std::unique_ptr<Lock> MemoryLocks::Take(TextView name) {
    struct Held : Lock {
        Held(std::vector<Text>& held, TextView name) : held(held) { held.emplace_back(name); }
        ~Held() override { held.pop_back(); }
        std::vector<Text>& held;
    };
    if (faults.Hit()) return nullptr;
    return std::make_unique<Held>(held, name);
}

class MemoryTimer : public Timer {
public:
    explicit MemoryTimer(MemoryTimers& owner) : owner(owner) { owner.timers.push_back(this); }
    ~MemoryTimer() override { std::erase(owner.timers, this); }
    void Start(std::uint32_t, std::function<void()> newTick) override { tick = std::move(newTick); }
    void Stop() override { tick = nullptr; }

    std::function<void()> tick;

private:
    MemoryTimers& owner;
};

std::unique_ptr<Timer> MemoryTimers::Create() {
    return std::make_unique<MemoryTimer>(*this);
}

int MemoryTimers::Tick() {
    int ticked = 0;
    for (MemoryTimer* timer : std::vector<MemoryTimer*>(timers)) {
        if (std::find(timers.begin(), timers.end(), timer) == timers.end()) continue;
        if (const auto tick = timer->tick) {
            tick();
            ++ticked;
        }
    }
    return ticked;
}

}  // namespace tellwick::test
