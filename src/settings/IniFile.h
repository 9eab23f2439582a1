// The INI file engine: holds one file's text in memory, finds entries in it, and writes changes
// back. Files at or above a size limit go through the system's own profile functions instead.
//
// A section begins with "[name]", wherever that stands in the text, and ends where a line begins
// with "[". An entry is a line that begins with the key and "=", no blank between; its value is the
// rest of the line, untrimmed. Letter case of section and key is ignored. There are no comments.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/Text.h"
#include "settings/SectionEntries.h"

namespace tellwick {

class Debug;
class Files;
class Locks;

class IniFile {
public:
    IniFile(Debug& debug, Files& files, FileSystem& fileSystem, Locks& locks, Locale& locale);

    // Files of so many bytes or more are not held. A limit that is too low becomes the usual one.
    void SetMaxSize(std::int32_t bytes);

    // The value; the default when file, section or key is missing or unreadable. Never raises.
    // Flags other than 0 look first whether the file changed on disk, unless changes are waiting to
    // be written.
    Text ReadFromIniFile(TextView file, TextView section, TextView key, TextView defaultValue = {},
                         std::int16_t flags = 0);

    // An empty value removes the entry, unless keepEmpty is set. With writeNow the file is written
    // at once, else by a later flush. False when the file cannot be read or written; the change
    // then waits in memory and a later flush tries again. What other programs have changed in the
    // file meanwhile stays, but for the entry itself.
    bool WriteToIniFile(TextView file, TextView section, TextView key, TextView value,
                        bool writeNow = true, bool keepEmpty = false);

    // Writes the changes that are in memory only. False when that fails.
    bool Flush();

    // Every read looks whether the file changed on disk and reads it anew if so; changes not yet
    // written are lost then.
    bool checkFileTime = false;

private:
    static constexpr std::int32_t UsualMaxSize = 512000;  // bytes
    static constexpr std::int32_t LeastMaxSize = 10240;

    enum class Held { Yes, TooBig, Unreadable };
    using FoldTable = std::array<char, 256>;
    struct Fold {
        const FoldTable* table;
        char operator()(char byte) const { return (*table)[std::uint8_t(byte)]; }
    };
    using Section = SectionEntries<char, Fold>;

    void ReadLetterCase();
    // One change that is not on disk yet.
    struct Waiting {
        Text file;
        std::string section;
        std::string key;
        std::string value;
        bool keepEmpty;
    };

    void DropCache();
    bool ChangedOnDisk();
    bool Waits(TextView file) const;
    void Wait(Waiting change);
    bool WriteOut(const Text& file);
    bool WriteOutBig(const Text& file);
    Held Load(TextView file);
    Section* FindSection(const std::string& name);
    std::size_t FindHeader(std::string_view name) const;
    std::size_t LineEnd(std::size_t position) const;
    void Change(const Waiting& change);
    void AppendEntry(const std::string& entry);
    std::string ToBytes(TextView text);
    Text ToText(std::string_view bytes);

    Text cacheFile;         // empty when no file is held
    std::string cacheText;  // the file's bytes; empty when it is missing or empty
    std::string diskText;   // the same as it is on disk
    std::uint64_t cacheTime = 0;
    std::vector<Waiting> waiting;
    // The sections found so far, by the name they were asked for with.
    std::unordered_map<std::string, Section> sections;
    std::int32_t maxSize = UsualMaxSize;
    bool letterCaseRead = false;
    FoldTable lowerCase{};  // of the bytes of the code page

    Debug& debug;
    Files& files;
    FileSystem& fileSystem;
    Locks& locks;
    Locale& locale;
};

}  // namespace tellwick
