#include "platform/MemoryPlatform.h"

#include <algorithm>
#include <array>

namespace tellwick::test {

namespace {

// Code page 1252 from 0x80 to 0x9F; the undefined bytes stand for themselves.
constexpr std::array<char16_t, 32> Upper1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

}  // namespace

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

bool MemoryFileSystem::WriteProfileString(TextView path, TextView section, TextView key,
                                          std::optional<TextView> value) {
    profileCalls.push_back(Text(path).append(u"|").append(section).append(u"|").append(key) + u"=" +
                           Text(value.value_or(u"(removed)")));
    return true;
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

// "46000 17:05", which the model of Outlook reads.
Text MemoryLocale::DateText(double date) {
    const auto minutes = std::int64_t(date * 1440 + 1e-6);
    const auto twoDigits = [](std::int64_t number) {
        return (number < 10 ? u"0" : u"") + NumberText(number);
    };
    return NumberText(minutes / 1440) + u" " + twoDigits(minutes / 60 % 24) + u":" +
           twoDigits(minutes % 60);
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

ObjectPtr MemoryBitmaps::CreatePicture(BitmapHandle bitmap) {
    if (Fails()) return nullptr;
    return std::make_shared<MemoryPicture>(bitmap);
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
