// The modules of settings and language, wired over the platform in memory.
#pragma once

#include "platform/MemoryPlatform.h"
#include "platform/Modules.h"
#include "platform/Product.h"

namespace tellwick::test {

struct SettingsModules : MemoryPlatform, Modules {
    MemoryPlatform& platform = *this;
    MemoryFileSystem& disk = fileSystem;

    // The language file in use holds the given bytes.
    explicit SettingsModules(std::string_view english = "[x]\r\n") : Modules(Ports()) {
        SetFile(u"C:\\Program\\English.lng", english);
        SetRegistry(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                    u"AppData", u"C:\\Data");
    }

    void SetRegistry(TextView key, TextView name, TextView value, Hive hive = Hive::CurrentUser) {
        platform.registry.WriteString(hive, key, name, value);
    }
    Text Registry(TextView key, TextView name) {
        return platform.registry.Read(Hive::CurrentUser, key, name).value_or(u"(missing)");
    }
    void SetFile(TextView path, std::string_view contents) {
        const Text folder = disk.ParentFolderName(path);
        if (!disk.FolderExists(folder)) disk.folders[folder] = true;
        disk.Write(path, contents, WriteMode::Replace);
    }
    std::string File(TextView path) {
        const auto file = disk.files.find(Text(path));
        return file == disk.files.end() ? "(missing)" : file->second.contents;
    }
};

}  // namespace tellwick::test

// Lets doctest show texts.
namespace doctest {
template <>
struct StringMaker<tellwick::Text> {
    static String convert(const tellwick::Text& text) {
        std::string shown;
        for (const char16_t unit : text) shown += unit < 0x80 ? char(unit) : '?';
        return shown.c_str();
    }
};
}  // namespace doctest
