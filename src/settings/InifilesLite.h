// The settings store: one setting by section and key, in the shared INI files or in the registry.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/Text.h"

namespace tellwick {

class Debug;
class IniFile;
class Policies;
class RegEdit;

// A text of several lines as the value of a setting, which is one line, and back: its line breaks
// become "\13" and "\10".
Text ToSetting(TextView text);
Text FromSetting(TextView value);

// Where settings are.
struct SettingsPlaces {
    static constexpr std::int32_t InRegistry = 2;
    static constexpr std::int32_t InApplicationData = 0;

    // 2: in the registry; 0: in INI files in the user's application-data folder; anything else: in
    // INI files in the program folder.
    std::int32_t saveIn = 0;
    // Full paths.
    Text baseFile;
    Text currentFile;   // the profile file, or the base file
    Text defaultsFile;  // of the phone models
    Text configFile;    // empty when there is none
};

class InifilesLite {
public:
    // A section below that of the program's settings is named so, followed by its own name.
    static constexpr TextView NestedPrefix = u"SETTINGS\\";

    InifilesLite(Debug& debug, RegEdit& regEdit, IniFile& iniFile, Policies& policies);

    // Locates all settings files and loads the language. Until then reads yield their defaults.
    void GetIniFile();
    // What GetIniFile calls, and what calls Use. Its texts and boxes read settings from here.
    void LocateWith(std::function<void()> newLocate) { locate = std::move(newLocate); }
    // From now on settings are read and written there.
    void Use(SettingsPlaces newPlaces);
    const SettingsPlaces& Places() const { return places; }

    // Whether GetIniFile has run, or runs now.
    bool Located() const { return located; }
    // Whether GetIniFile still looks for the files: no setting can be read yet.
    bool Locating() const { return located && places.currentFile.empty(); }

    // The folder of the base file, ending in "\"; empty when there is none.
    Text SettingsFolder();

    // What an administrator has fixed wins over every file; what he has given as a default holds
    // where the user has set nothing.
    const Policies& Given() const { return policies; }
    // Whether the user's own setting counts for nothing.
    bool IsFixed(TextView section, TextView key) const;
    // Looks whether an administrator has given other ones.
    void LookForPolicies();

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
    const Text& BaseFile() const { return places.baseFile; }
    const Text& CurrentFile() const { return places.currentFile; }
    const Text& ConfigFile() const { return places.configFile; }

private:
    friend class SettingsBatch;

    Text Read(const Text& file, TextView section, TextView key, TextView defaultValue,
              bool registryFallback, std::int16_t flags);
    bool Write(const Text& file, TextView section, TextView key, TextView value);

    SettingsPlaces places;
    std::function<void()> locate;
    bool located = false;
    int batches = 0;

    Debug& debug;
    RegEdit& regEdit;
    IniFile& iniFile;
    Policies& policies;
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
