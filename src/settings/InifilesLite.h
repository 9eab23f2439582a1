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

class InifilesLite {
public:
    InifilesLite(Debug& debug, RegEdit& regEdit, IniFile& iniFile, Files& files, Paths& paths,
                 LanguageTexts& language, QuestionBox& questionBox, FileSystem& fileSystem);

    // Locates all settings files and loads the language. Until then reads yield their defaults.
    void GetIniFile();

    // The settings folder for a storage kind, ending in "\"; empty when the user gave up.
    Text GetIniFilename_(std::int32_t kind);

    // A missing or empty entry yields the default. Never raises.
    Text GetIniSetting(TextView section, TextView key, TextView defaultValue = {},
                       bool registryFallback = false, std::int16_t flags = 0);
    std::int32_t GetIniSettingNum(TextView section, TextView key, TextView defaultValue = {},
                                  std::int16_t flags = 0);
    bool GetIniSettingBool(TextView section, TextView key, TextView defaultValue = {},
                           std::int16_t flags = 0);
    // Reads the base file even while a profile is in use.
    Text GetBaseIniSetting(TextView section, TextView key, TextView defaultValue = {},
                           bool registryFallback = false, std::int16_t flags = 0);

    // False when the value could not be written.
    bool SetIniSetting(TextView section, TextView key, TextView value, std::int16_t flags = 0);
    bool SetIniSetting(TextView section, TextView key, std::int16_t value, std::int16_t flags = 0);
    bool SetIniSetting(TextView section, TextView key, std::int32_t value, std::int16_t flags = 0);
    // Writes the base file even while a profile is in use.
    bool SetIniSettingWithTest(TextView section, TextView key, TextView value,
                               std::int16_t flags = 0);

    // A phone model's setting, with the inheritance of "SameAs".
    Text GetMobileSetting(TextView section, TextView key, TextView defaultValue,
                          bool userFileFirst, std::int16_t flags, bool ignoreUserFile);

private:
    Debug& debug;
    RegEdit& regEdit;
    IniFile& iniFile;
    Files& files;
    Paths& paths;
    LanguageTexts& language;
    QuestionBox& questionBox;
    FileSystem& fileSystem;
};

}  // namespace tellwick
