// The language of the program's texts: chooses and loads the language file, and looks texts up.
#pragma once

#include <vector>

#include "language/LanguageText.h"
#include "platform/FileSystem.h"
#include "platform/Forms.h"
#include "platform/Locale.h"
#include "platform/Text.h"
#include "settings/LanguageTexts.h"

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
    std::vector<LanguageChoice> Languages() override;
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
    Text LanguageFolder();
    Text ChosenName();
    Text FileOf(TextView language, const Text& folder);
    void NameManualAndHelp(TextView name);
    void ReadLoadedTexts(const Text& folder);

    bool loaded = false;
    LanguageText languageText;
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
