#include "settings/SettingsLocator.h"

#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/Files.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/Paths.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr TextView SiblingFileName = u"corvane.ini";

}  // namespace

SettingsLocator::SettingsLocator(Debug& debug, RegEdit& regEdit, InifilesLite& inifilesLite,
                                 Files& files, Paths& paths, LanguageTexts& language,
                                 QuestionBox& questionBox, FileSystem& fileSystem)
    : debug(debug),
      regEdit(regEdit),
      inifilesLite(inifilesLite),
      files(files),
      paths(paths),
      language(language),
      questionBox(questionBox),
      fileSystem(fileSystem) {
    inifilesLite.LocateWith([this] { Locate(); });
}

SettingsLocator::~SettingsLocator() {
    inifilesLite.LocateWith({});
}

void SettingsLocator::Locate() {
    const Text settingsKey = Text(RootKey) + u"\\Settings";
    const Text kind = regEdit.ReadValue(Hive::CurrentUser, settingsKey, u"SaveIn");
    if (kind.empty()) regEdit.WriteValue(Hive::CurrentUser, settingsKey, u"SaveIn", u"0");
    const std::int32_t saveIn = LeadingNumber32(kind);
    debug.DebugTrace(u" SaveSettingIn:" + NumberText(saveIn), trace::FreeText);
    const Text file = LocateFile(saveIn);
    SettingsPlaces places = inifilesLite.Places();
    places.currentFile = file;
    if (Contains(file, u"\\Duplane")) {
        places.currentFile = GetIniFilename_(saveIn).append(SiblingFileName);
    }
    places.configFile.clear();
    for (const Text& folder : {paths.ProgramFolder(), paths.commonApplicationData}) {
        const Text config = folder + u"config.ini";
        if (places.configFile.empty() && !folder.empty() && fileSystem.Exists(config)) {
            places.configFile = config;
        }
    }
    places.defaultsFile = paths.ProgramFolder() + u"defaults.ini";
    debug.DebugTrace(NumberText(saveIn) + u": " + places.currentFile, trace::FreeText);
    inifilesLite.Use(std::move(places));
    language.LoadLanguageFile();
}

// The file that reads and writes go to; names the base file on the way.
Text SettingsLocator::LocateFile(std::int32_t kind) {
    const Text folder = GetIniFilename_(kind);
    const Text ownFolder = LowerCase(u"\\" + Text(ApplicationName) + u"\\");
    SettingsPlaces places = inifilesLite.Places();
    places.saveIn = kind;
    places.baseFile = folder;
    places.baseFile.append(EndsWith(LowerCase(folder), ownFolder) ? u"settings.ini"
                                                                  : SiblingFileName);
    places.currentFile = places.baseFile;
    inifilesLite.Use(places);

    Text profile = inifilesLite.GetIniSetting(u"Settings", u"CurProfile", {}, true);
    if (profile.empty())
        profile = inifilesLite.GetIniSetting(u"Settings", u"LastProfile", {}, true);
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
    return places.baseFile;
}

Text SettingsLocator::DefaultFolder(std::int32_t kind) {
    if (paths.applicationData.empty()) paths.PathsInit();
    if (kind != SettingsPlaces::InApplicationData && kind != SettingsPlaces::InRegistry)
        return paths.ProgramFolder();
    const Text& folder =
        paths.applicationData.empty() ? paths.localApplicationData : paths.applicationData;
    return folder.empty() ? paths.ProgramFolder() : folder + Text(ApplicationName) + u"\\";
}

Text SettingsLocator::GetIniFilename_(std::int32_t kind) {
    Procedure procedure{debug, u"GetIniFilename_"};
    paths.ProgramFolder();
    if (kind != SettingsPlaces::InRegistry && iniFolderOverride.empty()) {
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

}  // namespace tellwick
