// The settings store: one setting by section and key, in the shared INI files or in the registry.
#pragma once

#include <cstdint>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class Files;
class IniFile;
class LanguageTexts;
class Paths;
class QuestionBox;
class RegEdit;

// A text of several lines as the value of a setting, which is one line, and back: its line breaks
// become "\13" and "\10".
Text ToSetting(TextView text);
Text FromSetting(TextView value);

class InifilesLite {
public:
    // A section below that of the program's settings is named so, followed by its own name.
    static constexpr TextView NestedPrefix = u"SETTINGS\\";

    InifilesLite(Debug& debug, RegEdit& regEdit, IniFile& iniFile, Files& files, Paths& paths,
                 LanguageTexts& language, QuestionBox& questionBox, FileSystem& fileSystem);

    // Locates all settings files and loads the language. Until then reads yield their defaults.
    void GetIniFile();

    // Whether GetIniFile has run, or runs now.
    bool Located() const { return located; }
    // Whether GetIniFile still looks for the files: no setting can be read yet.
    bool Locating() const { return located && currentFile.empty(); }

    // The settings folder for a storage kind, ending in "\"; empty when the user gave up.
    Text GetIniFilename_(std::int32_t kind);

    // The folder of the base file, ending in "\"; empty when there is none.
    Text SettingsFolder();

    // A missing or empty entry yields the default. Never raises. Flags other than 0 look first
    // whether another program changed the settings file; else what is in memory answers.
    Text GetIniSetting(TextView section, TextView key, TextView defaultValue = {},
                       bool registryFallback = false, std::int16_t flags = 0);
    // 0 when the value begins with no number, or with one beyond 32 bits.
    std::int32_t GetIniSettingNum(TextView section, TextView key, TextView defaultValue = {},
                                  std::int16_t flags = 0);
    // Whether the value begins with a number other than 0.
    bool GetIniSettingBool(TextView section, TextView key, TextView defaultValue = {},
                           std::int16_t flags = 0);
    // Reads the base file even while a profile is in use.
    Text GetBaseIniSetting(TextView section, TextView key, TextView defaultValue = {},
                           bool registryFallback = false, std::int16_t flags = 0);

    // False when the value could not be written. An empty value removes the entry. The flags have
    // no meaning for writing.
    bool SetIniSetting(TextView section, TextView key, TextView value, std::int16_t flags = 0);
    bool SetIniSetting(TextView section, TextView key, std::int16_t value, std::int16_t flags = 0);
    bool SetIniSetting(TextView section, TextView key, std::int32_t value, std::int16_t flags = 0);
    // Writes the base file even while a profile is in use.
    bool SetIniSettingWithTest(TextView section, TextView key, TextView value,
                               std::int16_t flags = 0);

    // Writes what could not be written before; false when something still waits.
    bool Flush();

    // Full paths; empty before GetIniFile has run. ConfigFile stays empty when there is none.
    const Text& BaseFile() const { return baseFile; }
    const Text& CurrentFile() const { return currentFile; }
    const Text& ConfigFile() const { return configFile; }
    // Of the phone models.
    const Text& DefaultsFile() const { return defaultsFile; }

private:
    friend class SettingsBatch;

    Text LocateFile(std::int32_t kind);
    Text DefaultFolder(std::int32_t kind);
    Text Read(const Text& file, TextView section, TextView key, TextView defaultValue,
              bool registryFallback, std::int16_t flags);
    bool Write(const Text& file, TextView section, TextView key, TextView value);

    // Where settings live: 2 the registry, 0 INI files in the user's application-data folder,
    // anything else INI files in the program folder.
    std::int32_t saveIn = 0;
    Text baseFile;
    Text currentFile;  // the profile file, or the base file
    Text defaultsFile;
    Text configFile;
    Text iniFolderOverride;  // settings folder chosen by the user
    bool profileWarned = false;
    bool located = false;
    int batches = 0;

    Debug& debug;
    RegEdit& regEdit;
    IniFile& iniFile;
    Files& files;
    Paths& paths;
    LanguageTexts& language;
    QuestionBox& questionBox;
    FileSystem& fileSystem;
};

// While one exists, settings are written to memory only; the end of the last one writes the file
// once.
class SettingsBatch {
public:
    explicit SettingsBatch(InifilesLite& inifilesLite);
    ~SettingsBatch();
    SettingsBatch(const SettingsBatch&) = delete;
    SettingsBatch& operator=(const SettingsBatch&) = delete;

private:
    InifilesLite& inifilesLite;
};

}  // namespace tellwick
