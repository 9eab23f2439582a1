#include "settings/InifilesLite.h"

#include <optional>

#include "platform/Meanwhile.h"
#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/Files.h"
#include "settings/IniFile.h"
#include "settings/LanguageTexts.h"
#include "settings/Paths.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int32_t InRegistry = 2;
constexpr std::int32_t InApplicationData = 0;
constexpr TextView SiblingFileName = u"corvane.ini";

TextView WithoutTrailingBackslash(TextView section) {
    return section.ends_with(u'\\') ? section.substr(0, section.size() - 1) : section;
}

Text RegistryKey(TextView root, TextView section) {
    return Text(root).append(u"\\").append(section);
}

}  // namespace

Text ToSetting(TextView text) {
    return ReplaceAll(ReplaceAll(text, u"\r", u"\\13"), u"\n", u"\\10");
}

Text FromSetting(TextView value) {
    return ReplaceAll(ReplaceAll(value, u"\\13", u"\r"), u"\\10", u"\n");
}

InifilesLite::InifilesLite(Debug& debug, RegEdit& regEdit, IniFile& iniFile, Files& files,
                           Paths& paths, LanguageTexts& language, QuestionBox& questionBox,
                           FileSystem& fileSystem)
    : debug(debug),
      regEdit(regEdit),
      iniFile(iniFile),
      files(files),
      paths(paths),
      language(language),
      questionBox(questionBox),
      fileSystem(fileSystem) {}

void InifilesLite::GetIniFile() {
    Procedure procedure{debug, u"GetIniFile"};
    Once locating(located);
    const Text settingsKey = RegistryKey(RootKey, u"Settings");
    const Text kind = regEdit.ReadValue(Hive::CurrentUser, settingsKey, u"SaveIn");
    if (kind.empty()) regEdit.WriteValue(Hive::CurrentUser, settingsKey, u"SaveIn", u"0");
    saveIn = LeadingNumber32(kind);
    debug.DebugTrace(u" SaveSettingIn:" + NumberText(saveIn), trace::FreeText);
    currentFile = LocateFile(saveIn);
    if (Contains(currentFile, u"\\Duplane")) {
        currentFile = GetIniFilename_(saveIn).append(SiblingFileName);
    }
    configFile.clear();
    for (const Text& folder : {paths.ProgramFolder(), paths.commonApplicationData}) {
        const Text file = folder + u"config.ini";
        if (configFile.empty() && !folder.empty() && fileSystem.Exists(file)) configFile = file;
    }
    debug.DebugTrace(NumberText(saveIn) + u": " + currentFile, trace::FreeText);
    defaultsFile = paths.ProgramFolder() + u"defaults.ini";
    language.LoadLanguageFile();
    locating.Done();
}

// The file that reads and writes go to; names the base file on the way.
Text InifilesLite::LocateFile(std::int32_t kind) {
    const Text folder = GetIniFilename_(kind);
    const Text ownFolder = LowerCase(u"\\" + Text(ApplicationName) + u"\\");
    baseFile = folder;
    baseFile.append(EndsWith(LowerCase(folder), ownFolder) ? u"settings.ini" : SiblingFileName);
    currentFile = baseFile;
    iniFile.SetMaxSize(LeadingNumber32(GetBaseIniSetting(u"Files", u"MaxSize")));

    Text profile = GetIniSetting(u"Settings", u"CurProfile", {}, true);
    if (profile.empty()) profile = GetIniSetting(u"Settings", u"LastProfile", {}, true);
    // Without a profile an existing "corvane.ini" is used, also where the base file is another.
    if (profile.empty() || EqualFolded(profile, u"standard") ||
        EqualFolded(profile, u"standard.ini") ||
        profile == language.TextOrBuiltIn(u"Misc", u"Default")) {
        profile = SiblingFileName;
    }
    if (!Contains(profile, u":\\")) profile.insert(0, folder);
    if (!EndsWithFolded(profile, u".ini")) profile += u".ini";
    profile = Files::NormalisePath(profile);
    if (fileSystem.Exists(profile)) return profile;
    if (!profileWarned && !EndsWithFolded(profile, SiblingFileName)) {
        profileWarned = true;
        questionBox.MsgBoxMessage(60, box::IconExclamation, u"%f", profile);
    }
    return baseFile;
}

Text InifilesLite::DefaultFolder(std::int32_t kind) {
    if (paths.applicationData.empty()) paths.PathsInit();
    if (kind != InApplicationData && kind != InRegistry) return paths.ProgramFolder();
    const Text& folder =
        paths.applicationData.empty() ? paths.localApplicationData : paths.applicationData;
    return folder.empty() ? paths.ProgramFolder() : folder + Text(ApplicationName) + u"\\";
}

Text InifilesLite::GetIniFilename_(std::int32_t kind) {
    Procedure procedure{debug, u"GetIniFilename_"};
    paths.ProgramFolder();
    if (kind != InRegistry && iniFolderOverride.empty()) {
        const Text chosen = regEdit.ReadValue(Hive::CurrentUser, RootKey, u"IniFiles");
        if (Contains(chosen, u":") && Contains(chosen, u"\\")) {
            iniFolderOverride = WithBackslash(chosen);
        }
    }
    if (!iniFolderOverride.empty()) return iniFolderOverride;

    Text folder = DefaultFolder(kind);
    if (fileSystem.Exists(folder + Text(SiblingFileName))) return folder;
    for (;; folder = iniFolderOverride) {
        Text file = folder + Text(SiblingFileName);
        if (!fileSystem.Exists(file)) files.WriteFileConents(file, {}, false, 0, false);
        if (fileSystem.Exists(file)) {
            if (EqualFolded(folder, paths.applicationData + u"Corvane\\")) {
                regEdit.DeleteValue(Hive::CurrentUser, RootKey, u"IniFiles");
            } else {
                regEdit.WriteValue(Hive::CurrentUser, RootKey, u"IniFiles", folder);
            }
            return folder;
        }
        const Text answer = questionBox.InputBox(u"Unable to write the file  '" + file +
                                                 u"'.\r\rPlease enter an valid path:");
        if (answer.empty()) return {};
        iniFolderOverride = WithBackslash(answer);
    }
}

Text InifilesLite::SettingsFolder() {
    if (!located) GetIniFile();
    return baseFile.substr(0, baseFile.rfind(u'\\') + 1);
}

Text InifilesLite::Read(const Text& file, TextView section, TextView key, TextView defaultValue,
                        bool registryFallback, std::int16_t flags) {
    Text value;
    if (saveIn == InRegistry) {
        value = regEdit.ReadValue(Hive::CurrentUser, RegistryKey(RootKey, section), key);
        if (value.empty() && registryFallback) {
            value = regEdit.ReadValue(Hive::CurrentUser,
                                      RegistryKey(u"Software\\Kelp\\Vistrand Tool", section), key);
        }
    } else if (StartsWithFolded(section, NestedPrefix) && section.size() > 10) {
        value = iniFile.ReadFromIniFile(file, section.substr(NestedPrefix.size()), key, {}, flags);
    } else {
        value = iniFile.ReadFromIniFile(file, WithoutTrailingBackslash(section), key, {}, flags);
    }
    return value.empty() ? Text(defaultValue) : value;
}

Text InifilesLite::GetIniSetting(TextView section, TextView key, TextView defaultValue,
                                 bool registryFallback, std::int16_t flags) {
    return Read(currentFile, section, key, defaultValue, registryFallback, flags);
}

Text InifilesLite::GetBaseIniSetting(TextView section, TextView key, TextView defaultValue,
                                     bool registryFallback, std::int16_t flags) {
    return Read(baseFile, section, key, defaultValue, registryFallback, flags);
}

std::int32_t InifilesLite::GetIniSettingNum(TextView section, TextView key, TextView defaultValue,
                                            std::int16_t flags) {
    return LeadingNumber32(GetIniSetting(section, key, defaultValue, false, flags));
}

bool InifilesLite::GetIniSettingBool(TextView section, TextView key, TextView defaultValue,
                                     std::int16_t flags) {
    return LeadingNumber(GetIniSetting(section, key, defaultValue, false, flags)) != 0;
}

bool InifilesLite::Write(const Text& file, TextView section, TextView key, TextView value) {
    std::optional<Procedure> procedure;
    if (debug.Mode() != 0) procedure.emplace(debug, u"SetIniSetting");
    if (saveIn == InRegistry) {
        return regEdit.WriteValue(Hive::CurrentUser, RegistryKey(RootKey, section), key, value);
    }
    return iniFile.WriteToIniFile(file, WithoutTrailingBackslash(section), key, value,
                                  batches == 0);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, TextView value, std::int16_t) {
    return Write(currentFile, section, key, value);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, std::int16_t value,
                                 std::int16_t flags) {
    return SetIniSetting(section, key, NumberText(value), flags);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, std::int32_t value,
                                 std::int16_t flags) {
    return SetIniSetting(section, key, NumberText(value), flags);
}

bool InifilesLite::SetIniSettingWithTest(TextView section, TextView key, TextView value,
                                         std::int16_t) {
    return Write(baseFile, section, key, value);
}

bool InifilesLite::Flush() {
    return iniFile.Flush();
}

SettingsBatch::SettingsBatch(InifilesLite& inifilesLite) : inifilesLite(inifilesLite) {
    ++inifilesLite.batches;
}

SettingsBatch::~SettingsBatch() {
    // What cannot be written now stays in memory until the next write.
    if (--inifilesLite.batches == 0) {
        inifilesLite.debug.Guarded([this] { inifilesLite.Flush(); });
    }
}

}  // namespace tellwick
