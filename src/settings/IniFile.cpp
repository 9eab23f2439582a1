#include "settings/IniFile.h"

#include <algorithm>
#include <optional>

#include "settings/Debug.h"
#include "settings/Files.h"
#include "settings/InifilesLite.h"

namespace tellwick {

namespace {

constexpr std::string_view LineBreakBytes = "\r\n";
constexpr std::string_view SectionBreak = "\r\n[";
constexpr std::int32_t DefaultMaxSize = 512000;
constexpr std::int32_t LeastMaxSize = 10240;

bool IsAscii(char16_t unit) {
    return unit < 0x80;
}

void RemoveTrailingLineBreaks(std::string& text) {
    while (text.ends_with(LineBreakBytes)) text.resize(text.size() - LineBreakBytes.size());
}

}  // namespace

IniFile::IniFile(Debug& debug, InifilesLite& inifilesLite, Files& files, FileSystem& fileSystem,
                 Locale& locale)
    : debug(debug),
      inifilesLite(inifilesLite),
      files(files),
      fileSystem(fileSystem),
      locale(locale) {}

void IniFile::SetUp() {
    setUp = true;
    Flush();
    DropCache();
    ReadLetterCase();
    maxSize = DefaultMaxSize;
    const std::int32_t wanted =
        LeadingNumber32(inifilesLite.GetBaseIniSetting(u"Files", u"MaxSize", u"512000"));
    if (wanted >= LeastMaxSize) maxSize = wanted;
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
}

void IniFile::DropCache() {
    cacheFile.clear();
    cacheText.clear();
    cacheDirty = false;
    sections.clear();
}

bool IniFile::ChangedOnDisk() {
    return !cacheFile.empty() && fileSystem.ModifiedTime(cacheFile) != cacheTime;
}

IniFile::Held IniFile::Load(TextView file) {
    if (!setUp) SetUp();
    if (cacheFile == file) return Held::Yes;
    if (cacheDirty) Flush();
    const std::int64_t length = fileSystem.Length(file);
    if (length >= maxSize) return Held::TooBig;
    DropCache();
    cacheTime = fileSystem.ModifiedTime(file);
    if (length > 0) {
        std::optional<std::string> contents = fileSystem.Read(file);
        // Not held as an empty file: the next write would wipe it.
        if (!contents) return Held::Unreadable;
        cacheText = std::move(*contents);
    }
    cacheFile = file;
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
    if ((checkFileTime || (flags != 0 && !cacheDirty)) && ChangedOnDisk()) DropCache();
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
    // Another program shares the file: what it wrote meanwhile must not be put back.
    if (cacheFile == file && !cacheDirty && ChangedOnDisk()) DropCache();
    switch (Load(file)) {
        case Held::TooBig: {
            debug.DebugTrace(u"WriteToIniFile big", trace::FreeText);
            const bool remove = value.empty() && !keepEmpty;
            return fileSystem.WriteProfileString(
                file, section, key, remove ? std::nullopt : std::optional<TextView>(value));
        }
        case Held::Unreadable:
            return false;
        case Held::Yes:
            break;
    }
    if (!fileSystem.Exists(file)) files.MkDir_(fileSystem.ParentFolderName(file));
    if (Change(ToBytes(section), ToBytes(key), ToBytes(value), keepEmpty)) {
        cacheDirty = true;
        sections.clear();
    }
    return !writeNow || Flush();
}

// False when there is nothing to change.
bool IniFile::Change(std::string_view section, std::string_view key, std::string_view value,
                     bool keepEmpty) {
    const bool remove = value.empty() && !keepEmpty;
    const std::string entry = std::string(key).append("=").append(value);
    Section* found = FindSection(std::string(section));
    if (!found) {
        if (remove) return false;
        RemoveTrailingLineBreaks(cacheText);
        AppendEntry(std::string("[").append(section).append("]").append(LineBreakBytes) + entry);
        return true;
    }
    const std::size_t at = found->Find(cacheText, LineBreakBytes, key, Fold{&lowerCase});
    if (at != Section::NotFound) {
        const std::size_t valueAt = at + LineBreakBytes.size() + key.size() + 1;
        const std::size_t lineEnd = LineEnd(valueAt);
        if (remove) {
            cacheText.erase(at, lineEnd - at);
        } else {
            cacheText.replace(valueAt, lineEnd - valueAt, value);
        }
        return true;
    }
    if (remove) return false;
    std::size_t end = found->End();
    if (end < cacheText.size()) {
        // Blank lines at the section's end stay below the new entry. Every character below the
        // blank is passed over, tabs included; that is deliberate.
        while (end > 2 && std::uint8_t(cacheText[end - 1]) < u' ') --end;
        cacheText.insert(end, std::string(LineBreakBytes) + entry);
    } else {
        if (cacheText.size() > 4) RemoveTrailingLineBreaks(cacheText);
        AppendEntry(entry);
    }
    return true;
}

// Adds lines at the end of the text, on a new line unless they are the first.
void IniFile::AppendEntry(const std::string& entry) {
    if (!cacheText.empty()) cacheText += LineBreakBytes;
    cacheText.append(entry).append(LineBreakBytes);
}

bool IniFile::Flush() {
    if (!cacheDirty) return true;
    if (!fileSystem.Swap(cacheFile, cacheText)) return false;
    cacheDirty = false;
    cacheTime = fileSystem.ModifiedTime(cacheFile);
    return true;
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
