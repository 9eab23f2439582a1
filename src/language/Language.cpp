#include "language/Language.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "language/BuiltInTexts.h"
#include "platform/Meanwhile.h"
#include "settings/Debug.h"
#include "settings/IniFile.h"
#include "settings/InifilesLite.h"
#include "settings/MessageBoxes.h"
#include "settings/Paths.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr TextView FileEnding = u".lng";
constexpr TextView EnglishFile = u"English.lng";

// Some names carry the ending and some do not: harmless, since it is appended where missing.
TextView LanguageOfLocale(TextView code) {
    struct Entry {
        TextView start, name;
    };
    static constexpr Entry table[] = {
        {u"FR", u"Francais"},     {u"ES", u"Espanol"},   {u"PO", u"Portugues-BR"},
        {u"PT", u"Portugues-BR"}, {u"CZ", u"Cesky.lng"}, {u"NL", u"Nederlands.lng"},
        {u"PL", u"Polski.lng"},
    };
    if (code == u"DEU") return u"Deutsch";
    for (const Entry& entry : table) {
        if (StartsWith(code, entry.start)) return entry.name;
    }
    return u"English";
}

Text WithoutAccents(TextView name) {
    Text plain(name);
    for (char16_t& letter : plain) {
        if (letter == 234) letter = u'e';
        if (letter == 241) letter = u'n';
        if (letter == 231) letter = u'c';
    }
    return plain;
}

Text WithoutEnding(TextView file) {
    return Text(file.substr(0, file.size() - std::min(file.size(), FileEnding.size())));
}

}  // namespace

Language::Language(Debug& debug, RegEdit& regEdit, IniFile& iniFile, InifilesLite& inifilesLite,
                   Paths& paths, MessageBoxes& messageBoxes, FileSystem& fileSystem, Locale& locale)
    : debug(debug),
      regEdit(regEdit),
      iniFile(iniFile),
      inifilesLite(inifilesLite),
      paths(paths),
      messageBoxes(messageBoxes),
      fileSystem(fileSystem),
      locale(locale) {}

Text Language::WindowsLocaleCode() {
    const auto read = [this](TextView key, TextView name) {
        return regEdit.ReadValue(Hive::CurrentUser, key, name);
    };
    Text code = read(u"Control Panel\\International", u"sLanguage");
    if (!code.empty()) return code;
    code = read(u"Control Panel\\Microsoft Input Devices\\Mouse", u"Language");
    if (!code.empty()) return code;
    code = read(u"Control Panel\\International", u"Locale");
    // The value is hexadecimal and read as decimal, so that only German is recognised.
    // Deliberate: "The language that Windows names last".
    constexpr std::uint32_t AbbreviatedLanguageName = 3;
    if (const auto name =
            locale.LocaleInfo(std::uint32_t(LeadingNumber32(code)), AbbreviatedLanguageName)) {
        code = *name;
    }
    return LeadingNumber(code) == 407 ? Text(u"DE") : code;
}

// Of the language files, the program folder's sub-folder "lang" where there is one.
Text Language::LanguageFolder() {
    const Text folder = paths.ProgramFolder() + u"lang\\";
    return fileSystem.FolderExists(folder) ? folder : paths.ProgramFolder();
}

Text Language::ChosenName() {
    Text name = inifilesLite.GetIniSetting(u"Settings", u"Language");
    if (name.empty()) {
        Text sibling = ReplaceAll(inifilesLite.BaseFile(), u"settings.ini", u"corvane.ini");
        sibling = ReplaceAll(sibling, u"\\Tellwick\\", u"\\Corvane\\");
        name = iniFile.ReadFromIniFile(sibling, u"Settings", u"Language");
    }
    return name.empty() ? Text(LanguageOfLocale(WindowsLocaleCode())) : name;
}

// The file of a language in that folder; empty when there is none.
Text Language::FileOf(TextView language, const Text& folder) {
    Text name(language);
    if (!EndsWithFolded(name, FileEnding)) name += FileEnding;
    if (fileSystem.Exists(folder + name)) return name;
    name = WithoutAccents(name);
    return fileSystem.Exists(folder + name) ? name : Text();
}

Text Language::LanguageName(TextView setting) {
    return WithoutEnding(FileOf(setting, LanguageFolder()));
}

std::vector<LanguageChoice> Language::Languages() {
    const Text folder = LanguageFolder();
    std::vector<LanguageChoice> languages;
    for (const Text& file : fileSystem.FileNames(folder, FileEnding)) {
        LanguageText text(fileSystem.Read(folder + file).value_or(std::string()), locale);
        const Text name = WithoutEnding(file);
        const Text ownName = text.Find(u"[Misc]", u"Language");
        languages.push_back({name, ownName.empty() ? name : ownName});
    }
    std::sort(languages.begin(), languages.end(),
              [this](const LanguageChoice& one, const LanguageChoice& other) {
                  return locale.SortKey(one.ownName) < locale.SortKey(other.ownName);
              });
    return languages;
}

void Language::LoadLanguageFile() {
    // While the settings are being located the user's choice is not known: the one load waits.
    if (loaded || inifilesLite.Locating()) return;
    Once loading(loaded);
    Procedure procedure{debug, u"LoadLanguageFile"};
    if (!inifilesLite.Located()) inifilesLite.GetIniFile();

    const Text folder = LanguageFolder();
    Text name = FileOf(ChosenName(), folder);
    if (name.empty()) name = EnglishFile;

    std::string contents = fileSystem.Read(folder + name).value_or(std::string());
    if (contents.empty()) {
        contents = fileSystem.Read(folder + Text(EnglishFile)).value_or(std::string());
    }
    languageText = LanguageText(contents, locale);
    NameManualAndHelp(WithoutEnding(name));
    if (languageText.Empty() &&
        !inifilesLite.GetIniSettingBool(u"Settings", u"NoLanguageFileMessage")) {
        messageBoxes.MsgBoxEx(u"The language file '" + name + u"' seems to be empty!",
                              box::IconExclamation);
    }
    ReadLoadedTexts(folder);
    loading.Done();
}

void Language::NameManualAndHelp(TextView name) {
    const Text& folder = paths.ProgramFolder();
    manual.folder = folder + u"Manual\\" + Text(name) + u"\\";
    if (!fileSystem.FolderExists(manual.folder)) manual.folder = folder + u"Manual\\English\\";

    Text letters = LowerCase(name.substr(0, 2));
    if (letters == u"po") letters = u"pt";
    if (letters == u"ne") letters = u"nl";
    manual.languageHelpFile = folder + u"cv" + letters + u".chm";
    manual.helpFile = manual.languageHelpFile;
    if (!fileSystem.Exists(manual.helpFile)) manual.helpFile = folder + u"cven.chm";
}

void Language::ReadLoadedTexts(const Text& folder) {
    const auto orEnglish = [&](TextView key) {
        const Text text = GetLanguageString(u"Calendar", key);
        if (!text.empty()) return text;
        return iniFile.ReadFromIniFile(folder + u"english.lng", u"Calendar", key);
    };
    loadedTexts.infrared = GetLanguageString(u"Misc", u"Infrared");
    loadedTexts.outlook = GetLanguageString(u"Misc", u"Outlook");
    loadedTexts.anniversary = orEnglish(u"Anniversary");
    loadedTexts.birthday = orEnglish(u"Birthday");
}

Text Language::GetLanguageString(TextView section, TextView key, bool warn) {
    std::optional<Procedure> procedure;
    if (debug.Active()) {
        procedure.emplace(debug, u"GetLanguageString");
        debug.DebugTrace(Text(section).append(u" ").append(key), trace::FreeText);
    }
    if (languageText.Empty()) LoadLanguageFile();
    const Text bracketed = section.starts_with(u'[') ? Text(section) : u"[" + Text(section) + u"]";
    const Text value = languageText.Find(bracketed, key);
    if (warn && value.empty() && !languageText.Empty()) {
        messageBoxes.MsgBoxEx(
            u"Missing '" + Text(key) + u"' in " + bracketed + u" in the language file!",
            box::IconExclamation);
    }
    return value;
}

Text Language::TextOrBuiltIn(TextView section, TextView key) {
    const Text text = GetLanguageString(section, key);
    return text.empty() ? Text(BuiltInText(section, key)) : text;
}

void Language::GetLanguageStringsForForm(TextView formName, FormView& view) {
    Procedure procedure{debug, u"GetLanguageStringsForForm"};
    const Text caption = TextOrBuiltIn(formName, u"Caption");
    if (!caption.empty()) view.SetCaption(caption);
    view.ForEachControl([&](TextView name, Control& control) {
        const Text text = TextOrBuiltIn(formName, name);
        if (!text.empty()) control.SetCaption(text);
        const Text toolTip = TextOrBuiltIn(formName, Text(name) + u".ToolTip");
        if (!toolTip.empty()) control.SetToolTip(toolTip);
    });
}

}  // namespace tellwick
