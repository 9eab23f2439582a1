// The language of the program's texts: chooses and loads the language file, and looks texts up.
//
// A section begins with a line "[name]"; an entry is a line "key=value". Letter case counts. In a
// value "\n" stands for a carriage return and "\t" for a tab.
#pragma once

#include <functional>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Forms.h"
#include "platform/Locale.h"
#include "platform/Text.h"
#include "settings/LanguageTexts.h"
#include "settings/SectionEntries.h"

namespace tellwick {

class Debug;
class IniFile;
class InifilesLite;
class Paths;
class MessageBoxes;
class RegEdit;

class Language : public LanguageTexts {
public:
    Language(Debug& debug, RegEdit& regEdit, IniFile& iniFile, InifilesLite& inifilesLite,
             Paths& paths, MessageBoxes& messageBoxes, FileSystem& fileSystem, Locale& locale);

    Text GetLanguageString(TextView section, TextView key, bool warn = false) override;
    Text TextOrBuiltIn(TextView section, TextView key) override;
    void LoadLanguageFile() override;
    std::vector<Text> LanguageNames() override;
    Text LanguageName(TextView setting) override;
    void GetLanguageStringsForForm(TextView formName, FormView& view) override;

    // The code of the user's language as Windows keeps it ("DEU"), or what stands in for it.
    Text WindowsLocaleCode();

    const ManualPlaces& Manual() const override { return manual; }

    // Texts that are read once, when the language is loaded.
    struct LoadedTexts {
        Text infrared;
        Text outlook;
        Text anniversary;
        Text birthday;
    };
    const LoadedTexts& Loaded() const { return loadedTexts; }

private:
    using Section = SectionEntries<char16_t, std::identity>;

    Text LanguageFolder();
    Text ChosenName();
    Text FileOf(TextView language);
    void SetText(std::string_view bytes);
    void NameManualAndHelp(TextView name);
    void ReadLoadedTexts(const Text& folder);
    Section* FindSection(const Text& bracketed);
    Text Lookup(const Text& bracketed, TextView key);

    bool loaded = false;
    Text languageText;                           // every line ends in one carriage return
    std::vector<std::size_t> brackets;           // positions of "[" in it
    std::unordered_map<Text, Section> sections;  // those found so far, by bracketed name
    ManualPlaces manual;
    LoadedTexts loadedTexts;

    Debug& debug;
    RegEdit& regEdit;
    IniFile& iniFile;
    InifilesLite& inifilesLite;
    Paths& paths;
    MessageBoxes& messageBoxes;
    FileSystem& fileSystem;
    Locale& locale;
};

}  // namespace tellwick
