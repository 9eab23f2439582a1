// Where the settings are: looked for at the start and handed to the store. The user is asked when
// their folder cannot be written.
#pragma once

#include <cstdint>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class Files;
class InifilesLite;
class LanguageTexts;
class Paths;
class QuestionBox;
class RegEdit;

class SettingsLocator {
public:
    // From now on the store asks here.
    SettingsLocator(Debug& debug, RegEdit& regEdit, InifilesLite& inifilesLite, Files& files,
                    Paths& paths, LanguageTexts& language, QuestionBox& questionBox,
                    FileSystem& fileSystem);
    ~SettingsLocator();
    SettingsLocator(const SettingsLocator&) = delete;
    SettingsLocator& operator=(const SettingsLocator&) = delete;

    // The settings folder for a storage kind, ending in "\"; empty when the user gave up.
    Text GetIniFilename_(std::int32_t kind);

private:
    void Locate();
    Text LocateFile(std::int32_t kind);
    Text DefaultFolder(std::int32_t kind);

    Text iniFolderOverride;  // settings folder chosen by the user
    bool profileWarned = false;

    Debug& debug;
    RegEdit& regEdit;
    InifilesLite& inifilesLite;
    Files& files;
    Paths& paths;
    LanguageTexts& language;
    QuestionBox& questionBox;
    FileSystem& fileSystem;
};

}  // namespace tellwick
