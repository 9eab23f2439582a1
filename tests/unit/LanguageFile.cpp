// The language: which file is loaded, and what a lookup in it yields.
#include <doctest.h>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;
using namespace std::string_literals;

// What is found in all kinds of files is compared with the plainest search by the fuzz target
// "language".
TEST_CASE("a file that names its code page is read by it, any other by the system's") {
    const std::string word =
        "k=Wy\x9C"
        "lij za\xBF\xF3\xB3\xE6\r\n";
    using Case = std::pair<std::string, TextView>;
    for (const Case& c : {Case{"1250", u"Wyślij zażółć"},
                          {"1252", u"Wyœlij za¿ó³æ"},
                          {"", u"Wyœlij za¿ó³æ"},
                          {"99999", u"Wyœlij za¿ó³æ"},
                          {"-1", u"Wyœlij za¿ó³æ"}}) {
        CAPTURE(c.first);
        SettingsModules m("[A]\r\n" + word + "[Misc]\r\nCodePage=" + c.first + "\r\n");
        CHECK(m.language.GetLanguageString(u"A", u"k") == c.second);
    }
}

TEST_CASE("a missing text is told on demand, and only while there is a file") {
    SettingsModules m("[A]\r\nk=1\r\n");
    CHECK((m.language.GetLanguageString(u"A", u"k", true) == u"1"));
    CHECK(m.dialogs.shown.empty());
    m.language.GetLanguageString(u"[B]", u"j", true);
    REQUIRE(m.dialogs.shown.size() == 1);
    CHECK((m.dialogs.shown[0].text == u"Missing 'j' in [B] in the language file!"));

    SettingsModules without("");
    without.language.GetLanguageString(u"A", u"k", true);
    REQUIRE(without.dialogs.shown.size() == 1);
    CHECK((without.dialogs.shown[0].text == u"The language file 'English.lng' seems to be empty!"));
    CHECK((without.language.TextOrBuiltIn(u"Misc", u"Default") == u"Standard"));
    CHECK(without.dialogs.shown.size() == 1);
}

TEST_CASE("the language that is chosen") {
    constexpr TextView international = u"Control Panel\\International";
    struct Case {
        TextView setting, sibling, sLanguage, mouse, locale, file;
    };
    const Case cases[] = {
        {u"Deutsch", u"", u"", u"", u"", u"Deutsch"},
        {u"DEUTSCH.LNG", u"Polski", u"", u"", u"", u"Deutsch"},
        {u"Fran\u00E7ais", u"", u"", u"", u"", u"Francais"},
        {u"Klingon", u"", u"DEU", u"", u"", u"English"},
        {u"", u"Cesky.lng", u"DEU", u"", u"", u"Cesky"},
        {u"", u"", u"DEU", u"", u"", u"Deutsch"},
        {u"", u"", u"DEA", u"", u"", u"English"},
        {u"", u"", u"FRA", u"ENU", u"", u"Francais"},
        {u"", u"", u"", u"PTB", u"00000409", u"Portugues-BR"},
        {u"", u"", u"POR", u"", u"", u"Portugues-BR"},
        {u"", u"", u"NLD", u"", u"", u"Nederlands"},
        {u"", u"", u"ENU", u"", u"", u"English"},
        // "00000407" is read as 407, which no locale has, and gives "DE", which is no "DEU".
        {u"", u"", u"", u"", u"00000407", u"English"},
        {u"", u"", u"", u"", u"0000040c", u"Polski"},
        {u"", u"", u"", u"", u"", u"English"},
    };
    for (const Case& c : cases) {
        CAPTURE(Text(c.file));
        SettingsModules m;
        for (const std::string name :
             {"Deutsch", "Francais", "Cesky", "Portugues-BR", "Nederlands", "Polski", "English"}) {
            m.SetFile(u"C:\\Program\\lang\\" + Text(name.begin(), name.end()) + u".lng",
                      "[F]\r\nname=" + name);
        }
        const auto setting = [&](TextView language) {
            return "[Settings]\r\nLanguage=" + m.platform.locale.ToAnsi(language) + "\r\n";
        };
        m.SetFile(u"C:\\Data\\Corvane\\corvane.ini", setting(c.sibling));
        m.SetFile(CurrentFile, setting(c.setting));
        m.SetRegistry(international, u"sLanguage", c.sLanguage);
        m.SetRegistry(u"Control Panel\\Microsoft Input Devices\\Mouse", u"Language", c.mouse);
        m.SetRegistry(international, u"Locale", c.locale);
        m.platform.locale.information[{40, 3}] = u"PLK\0"s;
        CHECK((m.language.GetLanguageString(u"F", u"name") == c.file));
        CHECK(m.dialogs.shown.empty());
    }
    SettingsModules german;
    german.SetRegistry(international, u"Locale", u"00000407");
    CHECK((german.language.WindowsLocaleCode() == u"DE"));
}

TEST_CASE("manual and help are named by the language") {
    using Case = std::tuple<TextView, TextView, TextView>;
    for (const auto& [language, code, manual] :
         {Case{u"Deutsch", u"de", u"Deutsch"}, Case{u"Polski", u"pt", u"English"},
          Case{u"Portugues-BR", u"pt", u"English"}, Case{u"Nederlands.lng", u"nl", u"English"}}) {
        SettingsModules m;
        m.SetFile(u"C:\\Program\\" + Text(language.substr(0, language.find(u'.'))) + u".lng",
                  "[x]");
        m.disk.folders[u"C:\\Program\\Manual\\Deutsch"] = true;
        m.SetFile(u"C:\\Program\\cvde.chm", "help");
        m.SetFile(CurrentFile, "");
        m.iniFile.WriteToIniFile(CurrentFile, u"Settings", u"Language", language);
        m.language.LoadLanguageFile();
        const Text own = u"C:\\Program\\cv" + Text(code) + u".chm";
        CHECK((m.language.Manual().languageHelpFile == own));
        CHECK((m.language.Manual().helpFile == (code == u"de" ? own : u"C:\\Program\\cven.chm")));
        CHECK((m.language.Manual().folder == u"C:\\Program\\Manual\\" + Text(manual) + u"\\"));
    }
}

TEST_CASE("texts read once fall back on English") {
    SettingsModules m;
    m.SetFile(u"C:\\Program\\Deutsch.lng",
              "[Misc]\r\nInfrared=Infrarot\r\n[Calendar]\r\nBirthday=Geburtstag\r\n");
    m.SetFile(u"C:\\Program\\English.lng", "[Calendar]\r\nAnniversary=Anniversary\r\n");
    m.SetRegistry(u"Control Panel\\International", u"sLanguage", u"DEU");
    m.inifilesLite.GetIniFile();
    CHECK((m.language.Loaded().infrared == u"Infrarot"));
    CHECK(m.language.Loaded().outlook.empty());
    CHECK((m.language.Loaded().anniversary == u"Anniversary"));
    CHECK((m.language.Loaded().birthday == u"Geburtstag"));
}

TEST_CASE(
    "an empty language file gives way to the English one; when that is empty, too, it is told") {
    using Case = std::tuple<const char*, const char*, TextView, std::size_t>;
    for (const auto& [english, settings, found, told] :
         {Case{"[F]\r\nname=English\r\n", "", u"English", 0}, Case{"", "", u"", 1},
          Case{"", "[Settings]\r\nNoLanguageFileMessage=1\r\n", u"", 0}}) {
        SettingsModules m(english);
        m.SetFile(u"C:\\Program\\Deutsch.lng", "");
        m.SetRegistry(u"Control Panel\\International", u"sLanguage", u"DEU");
        m.SetFile(CurrentFile, settings);
        CHECK((m.language.GetLanguageString(u"F", u"name") == found));
        REQUIRE(m.dialogs.shown.size() == told);
        if (told == 0) continue;
        CHECK((m.dialogs.shown[0].text == u"The language file 'Deutsch.lng' seems to be empty!"));
    }
}
