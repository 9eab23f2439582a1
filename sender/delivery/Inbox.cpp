#include "delivery/Inbox.h"

#include <algorithm>
#include <string>

#include "platform/Utf8.h"
#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr TextView Unit = u".pdu";
constexpr TextView DoneEnding = u".done";  // when it was, and the names of the parts
constexpr TextView ReadEnding = u".txt";
constexpr double LongestWaitForParts = 1;  // days
constexpr double Remembered = 30;
constexpr TextView Missing = u"[...]";

// A name that the same unit always gets (FNV-1a, 64 bits).
Text NameOf(std::string_view unit) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char digit : unit) {
        hash = (hash ^ static_cast<unsigned char>(digit)) * 0x100000001B3;
    }
    return HexText(std::uint32_t(hash >> 32)) + u"." + HexText(std::uint32_t(hash));
}

}  // namespace

Inbox::Inbox(FileSystem& fileSystem, Clock& clock, TextView settingsFolder)
    : fileSystem(fileSystem),
      clock(clock),
      folder(Text(settingsFolder) + u"Spool\\received\\"),
      readFolder(Text(settingsFolder) + u"Spool\\read\\") {}

bool Inbox::Open() {
    kept.clear();
    known.clear();
    const Text above = fileSystem.ParentFolderName(folder);
    if (!fileSystem.FolderExists(above)) fileSystem.CreateFolder(above);
    if (!fileSystem.FolderExists(folder) && !fileSystem.CreateFolder(folder)) return false;
    for (const Text& name : fileSystem.FileNames(folder, DoneEnding)) {
        const Text done = FromUtf8(fileSystem.Read(folder + name).value_or(std::string()));
        std::vector<Text> files = Split(done, LineBreak);
        const double since = clock.Now() - FromTimeStamp(ToUtf8(files[0]));
        files.erase(files.begin());
        for (const Text& file : files) fileSystem.Delete(folder + file + Text(Unit));
        if (!done.empty() && since > Remembered && fileSystem.Delete(folder + name)) continue;
        known.insert(files.begin(), files.end());
    }
    for (const Text& name : fileSystem.FileNames(folder, Unit)) {
        const Text file = name.substr(0, name.size() - Unit.size());
        const std::optional<std::string> unit = fileSystem.Read(folder + name);
        if (!unit) return false;
        const ReceivedUnit received = ReadPdu(*unit);
        const auto* part = std::get_if<ReceivedPart>(&received);
        if (part && known.insert(file).second) Add(file, *part);
    }
    return true;
}

void Inbox::Add(const Text& file, const ReceivedPart& part) {
    const Key key{part.from, part.concatReference, part.parts, Text()};
    auto& parts = kept[key];
    parts.emplace(part.part, Kept{{}, part}).first->second.files.push_back(file);
    if (parts.size() < std::size_t(part.parts)) return;
    auto whole = kept.extract(key);
    std::get<3>(whole.key()) = file;
    kept.insert(std::move(whole));
}

bool Inbox::Keep(const ReceivedPart& part, std::string_view unit) {
    const Text file = NameOf(unit);
    if (known.contains(file)) return true;
    if (fileSystem.Swap(folder + file + Text(Unit), {}, unit) != SwapResult::Done) return false;
    known.insert(file);
    Add(file, part);
    return true;
}

std::vector<ReceivedSms> Inbox::Whole() const {
    std::vector<ReceivedSms> whole;
    for (const auto& [key, parts] : kept) {
        const ReceivedPart& first = parts.begin()->second.part;
        const bool complete = parts.size() == std::size_t(first.parts);
        if (!complete && clock.Now() - first.sent < LongestWaitForParts) continue;
        ReceivedSms sms{first.from, {}, first.sent, {}};
        for (std::int32_t number = 1; number <= first.parts; ++number) {
            const auto found = parts.find(number);
            if (found == parts.end()) {
                sms.text += Missing;
                continue;
            }
            const Kept& one = found->second;
            sms.text += one.part.text;
            sms.files.insert(sms.files.end(), one.files.begin(), one.files.end());
        }
        whole.push_back(std::move(sms));
    }
    std::stable_sort(whole.begin(), whole.end(),
                     [](const auto& left, const auto& right) { return left.sent < right.sent; });
    return whole;
}

bool Inbox::Done(const ReceivedSms& sms) {
    std::string done = TimeStamp(clock.Now());
    for (const Text& file : sms.files) done += "\r\n" + ToUtf8(file);
    const Text& first = sms.files.front();
    if (fileSystem.Swap(folder + first + Text(DoneEnding), {}, done) != SwapResult::Done) {
        return false;
    }
    KeepRead(sms);
    // What cannot be deleted goes at the next start.
    for (const Text& file : sms.files) fileSystem.Delete(folder + file + Text(Unit));
    std::erase_if(kept, [&](const auto& entry) {
        return entry.second.begin()->second.files.front() == first;
    });
    return true;
}

// For the user to look up; the program never reads it. Names are in the order of their arrival.
void Inbox::KeepRead(const ReceivedSms& sms) {
    const auto most = std::size_t(limits.store ? std::max(limits.most, 0) : 0);
    std::vector<Text> names = fileSystem.FileNames(readFolder, ReadEnding);
    if (most > 0) {
        const std::string now = TimeStamp(clock.Now());
        Text name;
        for (const char unit : now) {
            if (unit >= '0' && unit <= '9') name += char16_t(unit);
        }
        name.append(u"-").append(sms.files.front()).append(ReadEnding);
        if (!fileSystem.FolderExists(readFolder)) fileSystem.CreateFolder(readFolder);
        const std::string contents = "From=" + ToUtf8(sms.from) +
                                     "\r\nSent=" + TimeStamp(sms.sent) + "\r\nArrived=" + now +
                                     "\r\n\r\n" + ToUtf8(sms.text);
        if (fileSystem.Write(readFolder + name, contents, WriteMode::Replace))
            names.push_back(name);
    }
    if (names.size() <= most) return;
    std::sort(names.begin(), names.end());
    names.resize(names.size() - most);
    for (const Text& oldest : names) fileSystem.Delete(readFolder + oldest);
}

}  // namespace tellwick::sender
