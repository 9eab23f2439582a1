// The settings store: where the files are, what a read yields, where a write goes; the registry.
#include <doctest.h>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

constexpr TextView BaseFile = u"C:\\Data\\Tellwick\\settings.ini";
constexpr TextView ShellFolders =
    u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

}  // namespace

TEST_CASE("registry access is forgiving") {
    SettingsModules m;
    m.SetRegistry(u"Software\\K", u"v", u"text");
    CHECK(m.regEdit.ReadValue(Hive::CurrentUser, u"\\Software\\K", u"v") == u"text");
    CHECK(m.regEdit.ReadValue(Hive::CurrentUser, u"Software\\K", u"none") == u"");
    CHECK(m.regEdit.DeleteValue(Hive::CurrentUser, u"\\Software\\K", u"v"));
    CHECK_FALSE(m.regEdit.WriteValue(Hive::CurrentUser, u"\\", u"v", u"x"));
    using Case = std::tuple<TextView, bool, TextView>;
    for (const auto& [value, written, stored] :
         {Case{u"12.9x", true, u"12"}, Case{u"x", true, u"0"}, Case{u"-1", true, u"4294967295"},
          Case{u"99999999999", false, u""}}) {
        CHECK(m.regEdit.WriteValue(Hive::CurrentUser, u"\\K", u"n", value, RegistryType::Number) ==
              written);
        if (written) CHECK(m.Registry(u"K", u"n") == stored);
    }
    CHECK_FALSE(
        m.regEdit.WriteValue(Hive::CurrentUser, u"K", u"e", u"x", RegistryType::ExpandString));
}

TEST_CASE("the settings folder and the base file") {
    struct Case {
        TextView saveIn, applicationData, localData, iniFiles;
        TextView base, stored;
    };
    const Case cases[] = {
        {u"", u"C:\\Data", u"", u"", BaseFile, u"C:\\Data\\Tellwick\\"},
        {u"0", u"C:\\Data\\", u"", u"", BaseFile, u"C:\\Data\\Tellwick\\"},
        {u"0", u"", u"C:\\Data", u"", BaseFile, u"C:\\Data\\Tellwick\\"},
        {u"0", u"", u"", u"", u"C:\\Program\\corvane.ini", u"C:\\Program\\"},
        {u"1", u"C:\\Data", u"", u"", u"C:\\Program\\corvane.ini", u"C:\\Program\\"},
        {u"0", u"C:\\Data", u"", u"D:\\Mine", u"D:\\Mine\\corvane.ini", u"D:\\Mine"},
        {u"0", u"C:\\Data", u"", u"D:\\TELLWICK\\", u"D:\\TELLWICK\\settings.ini",
         u"D:\\TELLWICK\\"},
        {u"0", u"C:\\Data", u"", u"Mine\\", BaseFile, u"C:\\Data\\Tellwick\\"},
        {u"2", u"C:\\Data", u"", u"D:\\Mine", BaseFile, u"C:\\Data\\Tellwick\\"},
    };
    for (const Case& c : cases) {
        CAPTURE(c.saveIn);
        SettingsModules m;
        m.SetRegistry(ShellFolders, u"AppData", c.applicationData);
        m.SetRegistry(ShellFolders, u"Local AppData", c.localData);
        if (!c.saveIn.empty()) m.SetRegistry(Text(RootKey) + u"\\Settings", u"SaveIn", c.saveIn);
        m.SetRegistry(RootKey, u"IniFiles", c.iniFiles);
        m.inifilesLite.GetIniFile();
        CHECK(m.inifilesLite.BaseFile() == c.base);
        CHECK(m.Registry(RootKey, u"IniFiles") == c.stored);
        CHECK(m.Registry(Text(RootKey) + u"\\Settings", u"SaveIn") ==
              (c.saveIn.empty() ? TextView(u"0") : c.saveIn));
    }
}

TEST_CASE("a folder that cannot be written is asked for until one can, or none is given") {
    SettingsModules m;
    m.disk.files[u"C:\\Data\\Tellwick"];  // a file stands where the folder should be
    m.disk.folders[u"D:"] = true;
    m.SetRegistry(RootKey, u"IniFiles", u"x");
    SUBCASE("given at last") {
        m.dialogs.inputs = {u"X:\\nowhere", u"D:\\here"};
        m.inifilesLite.GetIniFile();
        CHECK(m.inifilesLite.BaseFile() == u"D:\\here\\corvane.ini");
        REQUIRE(m.dialogs.shown.size() == 2);
        CHECK(m.dialogs.shown[0].text ==
              u"Unable to write the file  'C:\\Data\\Tellwick\\corvane.ini'.\r\r"
              u"Please enter an valid path:");
        CHECK(m.Registry(RootKey, u"IniFiles") == u"D:\\here\\");
        CHECK(m.File(u"D:\\here\\corvane.ini") == "");
    }
    SUBCASE("given, with the language chosen there") {
        m.SetFile(u"C:\\Program\\Deutsch.lng", "[Misc]\r\nno=kein\r\n");
        m.SetFile(u"D:\\here\\corvane.ini", "[Settings]\r\nLanguage=Deutsch\r\n");
        m.dialogs.inputs = {u"D:\\here"};
        m.inifilesLite.GetIniFile();
        CHECK(m.language.GetLanguageString(u"Misc", u"no") == u"kein");
    }
    SUBCASE("the sibling's own folder takes the override back") {
        m.dialogs.inputs = {u"C:\\Data\\Corvane"};
        m.inifilesLite.GetIniFile();
        CHECK(m.inifilesLite.BaseFile() == u"C:\\Data\\Corvane\\corvane.ini");
        CHECK(m.Registry(RootKey, u"IniFiles") == u"(missing)");
    }
    SUBCASE("given up") {
        CHECK(m.settingsLocator.GetIniFilename_(2) == u"");
        CHECK(m.Registry(RootKey, u"IniFiles") == u"x");
    }
}

TEST_CASE("the profile in use") {
    struct Case {
        TextView current, last, expected;
        bool warns;
    };
    constexpr TextView work = u"C:\\Data\\Tellwick\\Work.ini";
    const Case cases[] = {
        {u"", u"", CurrentFile, false},
        {u"Standard", u"", CurrentFile, false},
        {u"STANDARD.INI", u"Work", CurrentFile, false},
        {u"Basic", u"", CurrentFile, false},  // the language's word for it
        {u"Work", u"", work, false},
        {u"", u"work.INI", work, false},
        {u".\\x\\..\\Work.ini", u"", work, false},
        {u"D:\\P\\Home", u"", u"D:\\P\\Home.ini", false},
        {u"Gone", u"", BaseFile, true},
        {u"D:\\none\\corvane.ini", u"", BaseFile, false},
    };
    for (const Case& c : cases) {
        SettingsModules m("[Misc]\r\nDefault=Basic\r\n[Messages]\r\nMsg60=No %f\r\n");
        m.SetFile(work, "[S]\r\nk=work\r\n");
        m.SetFile(u"D:\\P\\Home.ini", "");
        m.SetFile(BaseFile, "[S]\r\nk=base\r\n");
        m.iniFile.WriteToIniFile(BaseFile, u"Settings", u"CurProfile", c.current);
        m.iniFile.WriteToIniFile(BaseFile, u"Settings", u"LastProfile", c.last);
        m.inifilesLite.GetIniFile();
        CHECK(EqualFolded(m.inifilesLite.CurrentFile(), c.expected));
        CHECK(m.inifilesLite.BaseFile() == BaseFile);
        m.inifilesLite.GetIniFile();  // the warning comes once
        REQUIRE(m.dialogs.shown.size() == (c.warns ? 1 : 0));
        if (c.warns) CHECK(m.dialogs.shown[0].text == u"No C:\\Data\\Tellwick\\Gone.ini");
        // The base file is read and written around the profile.
        CHECK(m.inifilesLite.GetBaseIniSetting(u"S", u"k") == u"base");
        CHECK(m.inifilesLite.SetIniSettingWithTest(u"S", u"t", u"1"));
        CHECK(m.File(BaseFile).find("\r\nt=1\r\n") != std::string::npos);
        CHECK(EqualFolded(m.inifilesLite.CurrentFile(), c.expected));
    }
}

TEST_CASE("the other files") {
    SettingsModules m;
    m.SetRegistry(ShellFolders, u"Common AppData", u"C:\\Common");
    m.SetRegistry(RootKey, u"IniFiles", u"C:\\Duplane\\");
    m.inifilesLite.GetIniFile();
    CHECK(m.inifilesLite.ConfigFile() == u"");
    CHECK(m.inifilesLite.CurrentFile() == u"C:\\Duplane\\corvane.ini");
    m.SetFile(u"C:\\Common\\config.ini", "");
    m.inifilesLite.GetIniFile();
    CHECK(m.inifilesLite.ConfigFile() == u"C:\\Common\\config.ini");
    m.SetFile(u"C:\\Program\\config.ini", "");
    m.inifilesLite.GetIniFile();
    CHECK(m.inifilesLite.ConfigFile() == u"C:\\Program\\config.ini");
}

TEST_CASE("settings in INI files") {
    SettingsModules m;
    CHECK(m.inifilesLite.GetIniSetting(u"S", u"k", u"early") == u"early");
    CHECK_FALSE(m.inifilesLite.SetIniSetting(u"S", u"k", u"early"));
    m.SetFile(CurrentFile,
              "[S]\r\nk=v\r\nempty=\r\nn=12x\r\nminus=-1\r\nbig=99999999999\r\n"
              "[Nested]\r\nk=n\r\n[SETTINGS\\]\r\nk=short\r\n[SETTINGS\\A]\r\nk=whole\r\n");
    m.inifilesLite.GetIniFile();
    InifilesLite& store = m.inifilesLite;
    CHECK(store.GetIniSetting(u"S\\", u"k", u"d") == u"v");
    CHECK(store.GetIniSetting(u"S", u"empty", u"d") == u"d");
    CHECK(store.GetIniSetting(u"Settings\\Nested", u"k") == u"n");
    CHECK(store.GetIniSetting(u"SETTINGS\\A", u"k") == u"whole");
    CHECK(store.GetIniSettingNum(u"S", u"n") == 12);
    CHECK(store.GetIniSettingNum(u"S", u"big") == 0);
    CHECK(store.GetIniSettingNum(u"S", u"none", u"7") == 7);
    CHECK(store.GetIniSettingBool(u"S", u"minus"));
    CHECK(store.GetIniSettingBool(u"S", u"big"));
    CHECK_FALSE(store.GetIniSettingBool(u"S", u"k"));
    CHECK(store.SetIniSetting(u"S\\", u"k", std::int16_t(-5)));
    CHECK(store.SetIniSetting(u"S", u"n", std::int32_t(100000)));
    CHECK(m.File(CurrentFile).starts_with("[S]\r\nk=-5\r\nempty=\r\nn=100000\r\n"));
    m.disk.failWrites = true;
    CHECK_FALSE(store.SetIniSetting(u"S", u"k", u"x"));
    m.disk.failWrites = false;
    const int writes = m.disk.writes;
    {
        SettingsBatch outer(store);
        SettingsBatch inner(store);
        for (int i = 0; i < 9; ++i) CHECK(store.SetIniSetting(u"S", NumberText(i), u"x"));
    }
    CHECK(m.disk.writes == writes + 1);
}

TEST_CASE("settings in the registry") {
    SettingsModules m;
    m.SetRegistry(Text(RootKey) + u"\\Settings", u"SaveIn", u"2");
    m.SetRegistry(u"Software\\Kelp\\Vistrand Tool\\S", u"k", u"fallback");
    m.inifilesLite.GetIniFile();
    CHECK(m.inifilesLite.GetIniSetting(u"S", u"k", u"d") == u"d");
    CHECK(m.inifilesLite.GetIniSetting(u"S", u"k", u"d", true) == u"fallback");
    CHECK(m.inifilesLite.SetIniSetting(u"S", u"k", u"own"));
    CHECK(m.Registry(Text(RootKey) + u"\\S", u"k") == u"own");
    CHECK(m.inifilesLite.GetIniSetting(u"S", u"k", u"d", true) == u"own");
}

TEST_CASE("phone models inherit by SameAs") {
    SettingsModules m;
    std::string models =
        "[N\\Base]\r\nk=base\r\nminus=-\r\nempty=\r\n[N\\Sub]\r\nSameAs=N\\Base\r\nown=1\r\n"
        "[Plain]\r\nSameAs=N\\Base\r\nmarked=-x-\r\n[N\\Loop]\r\nSameAs=N\\Loop\r\n"
        "[Mark]\r\nSameAs=N\\Base\r\nk=-x-\r\n";
    for (char i = '1'; i <= '5'; ++i) {
        models += std::string("[N\\") + i + "]\r\nSameAs=N\\" + char(i + 1) + "\r\n";
    }
    m.SetFile(u"C:\\Program\\defaults.ini", models + "[N\\6]\r\nk=far\r\n[N\\5x]\r\n");
    m.inifilesLite.GetIniFile();
    struct Case {
        TextView section, key, value;
        bool inherited;
    };
    const Case cases[] = {
        {u"N\\Base", u"k", u"base", false},
        {u"N\\Sub", u"own", u"1", false},
        {u"N\\Sub", u"k", u"base", true},
        {u"N\\Sub", u"k", u"base", true},  // cached
        {u"SETTINGS\\N\\Sub", u"k", u"base", true},
        {u"settings\\N\\Sub", u"minus", u"", true},
        {u"N\\Sub", u"empty", u"default", true},
        {u"N\\Sub", u"none", u"default", true},
        {u"Plain", u"k", u"default", false},
        {u"Plain", u"marked", u"default", true},
        {u"Mark", u"k", u"base", true},
        {u"N\\Loop", u"k", u"default", true},
        {u"N\\1", u"k", u"default", true},
        {u"N\\2", u"k", u"far", true},
        {u"N\\2", u"k", u"far", true},
        {u"Settings", u"k", u"default", false},
    };
    for (const Case& c : cases) {
        for (const bool userFileFirst : {false, true}) {
            CAPTURE(c.section);
            CHECK(m.phoneModels.GetMobileSetting(c.section, c.key, u"default", userFileFirst, 0,
                                                 false) == c.value);
            CHECK(m.phoneModels.ModelInherited() == c.inherited);
        }
    }
}
