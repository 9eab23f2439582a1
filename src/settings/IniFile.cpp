#include "settings/IniFile.h"

#include <algorithm>
#include <optional>

#include "platform/Locks.h"
#include "settings/Debug.h"
#include "settings/Files.h"

namespace tellwick {

namespace {

constexpr std::string_view LineBreakBytes = "\r\n";
constexpr std::string_view SectionBreak = "\r\n[";
constexpr int MostAttempts = 20;  // to write a file that others keep changing

bool IsAscii(char16_t unit) {
    return unit < 0x80;
}

void RemoveTrailingLineBreaks(std::string& text) {
    while (text.ends_with(LineBreakBytes)) text.resize(text.size() - LineBreakBytes.size());
}

}  // namespace

IniFile::IniFile(Debug& debug, Files& files, FileSystem& fileSystem, Locks& locks, Locale& locale)
    : debug(debug), files(files), fileSystem(fileSystem), locks(locks), locale(locale) {}

void IniFile::SetMaxSize(std::int32_t bytes) {
    maxSize = bytes >= LeastMaxSize ? bytes : UsualMaxSize;
}

void IniFile::ReadLetterCase() {
    for (std::size_t i = 0; i < lowerCase.size(); ++i) {
        const char byte = char(i);
        lowerCase[i] = byte;
        const Text text = locale.FromAnsi(std::string_view(&byte, 1));
        if (text.size() != 1) continue;
        const Text lower(1, LowerCase(text[0]));
        const std::string bytes = locale.ToAnsi(lower);
        if (bytes.size() == 1 && locale.FromAnsi(bytes) == lower) lowerCase[i] = bytes[0];
    }
    letterCaseRead = true;
}

void IniFile::DropCache() {
    cacheFile.clear();
    cacheText.clear();
    diskText.clear();
    sections.clear();
}

bool IniFile::ChangedOnDisk() {
    return !cacheFile.empty() && fileSystem.ModifiedTime(cacheFile) != cacheTime;
}

bool IniFile::Waits(TextView file) const {
    return std::any_of(waiting.begin(), waiting.end(),
                       [&](const Waiting& change) { return change.file == file; });
}

IniFile::Held IniFile::Load(TextView file) {
    if (!letterCaseRead) ReadLetterCase();
    if (cacheFile == file) return Held::Yes;
    if (Waits(cacheFile)) WriteOut(Text(cacheFile));
    const std::int64_t length = fileSystem.Length(file);
    if (length >= maxSize) return Held::TooBig;
    DropCache();
    // What is not there is looked for once: Outlook's start waits for that.
    cacheTime = length < 0 ? 0 : fileSystem.ModifiedTime(file);
    if (length > 0) {
        std::optional<std::string> contents = fileSystem.Read(file);
        // Not held as an empty file: the next write would wipe it.
        if (!contents) return Held::Unreadable;
        diskText = std::move(*contents);
        cacheText = diskText;
    }
    cacheFile = file;
    for (const Waiting& change : waiting) {
        if (change.file == file) Change(change);
    }
    return Held::Yes;
}

std::size_t IniFile::FindHeader(std::string_view name) const {
    const Fold fold{&lowerCase};
    for (std::size_t at = cacheText.find('['); at != std::string::npos;
         at = cacheText.find('[', at + 1)) {
        const std::string_view rest = std::string_view(cacheText).substr(at + 1);
        if (rest.size() <= name.size()) return std::string::npos;
        if (rest[name.size()] == ']' &&
            std::equal(name.begin(), name.end(), rest.begin(),
                       [&](char a, char b) { return fold(a) == fold(b); })) {
            return at;
        }
    }
    return std::string::npos;
}

IniFile::Section* IniFile::FindSection(const std::string& name) {
    const auto known = sections.find(name);
    if (known != sections.end()) return &known->second;
    const std::size_t begin = FindHeader(name);
    if (begin == std::string::npos) return nullptr;
    const std::size_t end = std::min(cacheText.find(SectionBreak, begin), cacheText.size());
    return &sections.emplace(name, Section(begin, end)).first->second;
}

std::size_t IniFile::LineEnd(std::size_t position) const {
    return std::min(cacheText.find(LineBreakBytes, position), cacheText.size());
}

Text IniFile::ReadFromIniFile(TextView file, TextView section, TextView key, TextView defaultValue,
                              std::int16_t flags) {
    if (file.empty()) return Text(defaultValue);
    if (checkFileTime && ChangedOnDisk()) {
        std::erase_if(waiting, [this](const Waiting& change) { return change.file == cacheFile; });
        DropCache();
    } else if (flags != 0 && !Waits(cacheFile) && ChangedOnDisk()) {
        DropCache();
    }
    switch (Load(file)) {
        case Held::TooBig:
            return Text(CutAtNul(fileSystem.ReadProfileString(file, section, key, defaultValue)));
        case Held::Unreadable:
            return Text(defaultValue);
        case Held::Yes:
            break;
    }
    Section* found = FindSection(ToBytes(section));
    if (!found) return Text(defaultValue);
    const std::string keyBytes = ToBytes(key);
    const std::size_t entry = found->Find(cacheText, LineBreakBytes, keyBytes, Fold{&lowerCase});
    if (entry == Section::NotFound) return Text(defaultValue);
    const std::size_t value = entry + LineBreakBytes.size() + keyBytes.size() + 1;
    return ToText(std::string_view(cacheText).substr(value, LineEnd(value) - value));
}

bool IniFile::WriteToIniFile(TextView file, TextView section, TextView key, TextView value,
                             bool writeNow, bool keepEmpty) {
    std::optional<Procedure> procedure;
    if (debug.Mode() != 0) procedure.emplace(debug, u"WriteToIniFile");
    if (file.empty()) return false;
    // Another program shares the file, and may have what is to be removed.
    if (cacheFile == file && !Waits(file) && ChangedOnDisk()) DropCache();
    const Held held = Load(file);
    if (held != Held::TooBig && !fileSystem.Exists(file)) {
        files.MkDir_(fileSystem.ParentFolderName(file));
    }
    Wait({Text(file), ToBytes(section), ToBytes(key), ToBytes(value), keepEmpty});
    if (held == Held::TooBig) {
        debug.DebugTrace(u"WriteToIniFile big", trace::FreeText);
        return WriteOutBig(Text(file));
    }
    if (held == Held::Unreadable) return false;
    Change(waiting.back());
    return !writeNow || Flush();
}

// A later change of the same entry takes the place of an earlier one.
void IniFile::Wait(Waiting change) {
    std::erase_if(waiting, [&](const Waiting& earlier) {
        return earlier.file == change.file && earlier.section == change.section &&
               earlier.key == change.key;
    });
    waiting.push_back(std::move(change));
}

void IniFile::Change(const Waiting& change) {
    const bool remove = change.value.empty() && !change.keepEmpty;
    const std::string entry = std::string(change.key).append("=").append(change.value);
    Section* found = FindSection(change.section);
    if (!found) {
        if (remove) return;
        RemoveTrailingLineBreaks(cacheText);
        AppendEntry(std::string("[").append(change.section).append("]").append(LineBreakBytes) +
                    entry);
        sections.clear();
        return;
    }
    const std::size_t at = found->Find(cacheText, LineBreakBytes, change.key, Fold{&lowerCase});
    if (at != Section::NotFound) {
        const std::size_t valueAt = at + LineBreakBytes.size() + change.key.size() + 1;
        const std::size_t lineEnd = LineEnd(valueAt);
        if (remove) {
            cacheText.erase(at, lineEnd - at);
        } else {
            cacheText.replace(valueAt, lineEnd - valueAt, change.value);
        }
        sections.clear();
        return;
    }
    if (remove) return;
    std::size_t end = found->End();
    if (end < cacheText.size()) {
        // Blank lines at the section's end stay below the new entry, and so does every character
        // below the blank. Deliberate: "Where a new entry goes".
        while (end > 2 && std::uint8_t(cacheText[end - 1]) < u' ') --end;
        cacheText.insert(end, std::string(LineBreakBytes) + entry);
    } else {
        if (cacheText.size() > 4) RemoveTrailingLineBreaks(cacheText);
        AppendEntry(entry);
    }
    sections.clear();
}

// Adds lines at the end of the text, on a new line unless they are the first.
void IniFile::AppendEntry(const std::string& entry) {
    if (!cacheText.empty()) cacheText += LineBreakBytes;
    cacheText.append(entry).append(LineBreakBytes);
}

bool IniFile::Flush() {
    bool written = true;
    // Each file once: one that cannot be written goes on waiting.
    std::vector<Text> paths;
    for (const Waiting& change : waiting) {
        if (std::find(paths.begin(), paths.end(), change.file) == paths.end()) {
            paths.push_back(change.file);
        }
    }
    for (const Text& file : paths) written = WriteOut(file) && written;
    return written;
}

bool IniFile::WriteOut(const Text& file) {
    const std::unique_ptr<Lock> lock = locks.Take(u"Settings");
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        switch (Load(file)) {
            case Held::TooBig:
                return WriteOutBig(file);
            case Held::Unreadable:
                return false;
            case Held::Yes:
                break;
        }
        switch (cacheText == diskText ? SwapResult::Done
                                      : fileSystem.Swap(file, diskText, cacheText)) {
            case SwapResult::Done:
                diskText = cacheText;
                cacheTime = fileSystem.ModifiedTime(file);
                std::erase_if(waiting, [&](const Waiting& change) { return change.file == file; });
                return true;
            case SwapResult::Failed:
                return false;
            case SwapResult::Changed:
                // Another program shares the file: what it wrote must not be put back.
                DropCache();
                break;
        }
    }
    return false;
}

bool IniFile::WriteOutBig(const Text& file) {
    bool written = true;
    std::erase_if(waiting, [&](const Waiting& change) {
        if (change.file != file) return false;
        const bool remove = change.value.empty() && !change.keepEmpty;
        const Text value = ToText(change.value);
        const bool done =
            fileSystem.WriteProfileString(file, ToText(change.section), ToText(change.key),
                                          remove ? std::nullopt : std::optional<TextView>(value));
        written = written && done;
        return done;
    });
    return written;
}

// Every ANSI code page has the ASCII characters in their places.
std::string IniFile::ToBytes(TextView text) {
    if (std::all_of(text.begin(), text.end(), IsAscii)) return {text.begin(), text.end()};
    return locale.ToAnsi(text);
}

Text IniFile::ToText(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return std::uint8_t(c) < 0x80; })) {
        return {bytes.begin(), bytes.end()};
    }
    return locale.FromAnsi(bytes);
}

}  // namespace tellwick
