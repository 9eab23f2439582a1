// The settings window: what it shows, and what of it is written.
#include <doctest.h>

#include "SettingsModules.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;
using namespace std::string_literals;

namespace {

// The window over a machine with settings. The current settings file is not the base file.
struct Options : TestProgram {
    FormOptions& form = program.formOptions;
    MemoryFormOptionsView& window = optionsView;

    Options() {
        program.debug.DebugInit(false, true);
        for (const auto& [name, contents] : {std::pair{u"Francais.lng",
                                                       "[Misc]\r\nLanguage=Fran\xE7"
                                                       "ais"},
                                             {u"Deutsch.lng", "[x]"},
                                             {u"english.LNG", ""},
                                             {u"Cesky.lng",
                                              "[Misc]\r\nCodePage=1250\r\nLanguage=\xC8"
                                              "e\x9Atina"},
                                             {u"no.txt", "[x]"}}) {
            platform.fileSystem.Write(u"C:\\Program\\" + Text(name), contents, WriteMode::Replace);
        }
    }
    std::string Settings() { return platform.fileSystem.files[Text(CurrentFile)].contents; }
};

Text Chosen(const MemoryListBox& box) {
    return box.Item(box.selected);
}
using TwoTexts = std::pair<TextView, TextView>;

}  // namespace

TEST_CASE("the window shows the settings, or what holds without them") {
    Options options;
    MemoryFormOptionsView& window = options.window;
    const Text asWindows = u"(wie Windows)";
    options.form.Show();
    CHECK(window.caption == u"Corvane - Einstellungen");
    CHECK(window.BoxFont().items == std::vector<Text>{asWindows, u"Arial", u"Tahoma"});
    CHECK(window.BoxLanguage().items ==
          std::vector<Text>{asWindows, u"Deutsch", u"english", u"Français", u"Čeština"});
    CHECK(window.BoxFont().selected + window.BoxFontSize().selected +
              window.BoxLanguage().selected ==
          0);
    options.form.Unload();

    const auto numbers = [&] { return window.TextNumUsedNumber().GetText(); };
    const auto yes = [](const CheckBox& box) { return Text(box.Checked() ? u"yes" : u"no"); };
    const auto stores = [&] { return yes(window.CheckStoreNumbers()); };
    const auto counts = [&] { return yes(window.CheckAirCount()); };
    const auto asks = [&] { return yes(window.CheckAskLostCharacters()); };
    const auto font = [&] { return Chosen(window.BoxFont()); };
    const auto size = [&] { return Chosen(window.BoxFontSize()); };
    const auto chosen = [&] { return Chosen(window.BoxLanguage()); };
    struct Case {
        TextView section, key, value;
        std::function<Text()> shown;
        TextView expected;
    };
    for (const Case& c : {Case{u"SMS", u"NumUsedNumber", u"", numbers, u"10"},
                          {u"SMS", u"NumUsedNumber", u"abc", numbers, u"0"},
                          {u"SMS", u"NumUsedNumber", u"-3", numbers, u"0"},
                          {u"SMS", u"NumUsedNumber", u"99999", numbers, u"10000"},
                          {u"SMS", u"NumUsedNumber", u"25 or so", numbers, u"25"},
                          {u"SMS", u"StoreNumbers", u"", stores, u"yes"},
                          {u"SMS", u"StoreNumbers", u"-1", stores, u"yes"},
                          {u"SMS", u"StoreNumbers", u"x", stores, u"no"},
                          {u"SMS", u"AirCount", u"", counts, u"yes"},
                          {u"SMS", u"AirCount", u"0", counts, u"no"},
                          {u"SMS", u"AskLostCharacters", u"", asks, u"yes"},
                          {u"SMS", u"AskLostCharacters", u"0", asks, u"no"},
                          {u"Editor", u"Font", u"tahoma", font, u"Tahoma"},
                          {u"Editor", u"Font", u"Removed Sans", font, u"Removed Sans"},
                          {u"Editor", u"FontSize", u"13", size, u"13"},
                          {u"Editor", u"FontSize", u"big", size, asWindows},
                          {u"Settings", u"Language", u"DEUTSCH.lng", chosen, u"Deutsch"},
                          {u"Settings", u"Language", u"Fran\u00e7ais", chosen, u"Français"},
                          {u"Settings", u"Language", u"cesky.lng", chosen, u"Čeština"},
                          {u"Settings", u"Language", u"Klingon", chosen, u"Klingon"}}) {
        CAPTURE(Text(c.value));
        options.SetSetting(c.section, c.key, c.value);
        options.form.Show();
        CHECK(c.shown() == c.expected);
        CHECK(window.TextNumUsedNumber().Enabled() == (stores() == u"yes"));
        // What nobody changed stays as it is, even where the window shows it otherwise.
        options.form.ButtonOK_Click();
        CHECK(options.Setting(c.section, c.key) == c.value);
        options.SetSetting(c.section, c.key, u"");
    }
    // What another program wrote meanwhile; a size between its neighbours.
    options.platform.fileSystem.Write(CurrentFile, "[Editor]\r\nFontSize=13\r\n",
                                      WriteMode::Replace);
    options.form.Show();
    CHECK(size() == u"13");
    CHECK(window.BoxFontSize().selected == 6);
}

TEST_CASE("OK writes what was changed, at once, and the SMS form follows") {
    Options options;
    options.SetSetting(u"Other", u"Kept", u"yes");
    options.program.formSmsSend.Open({});
    options.program.formSmsSend.ButtonOptions_Click();
    options.window.CheckStoreNumbers().SetChecked(false);
    options.form.CheckStoreNumbers_Click();
    CHECK_FALSE(options.window.TextNumUsedNumber().Enabled());
    CHECK_FALSE(options.window.LabelNumUsedNumber().Enabled());
    options.window.BoxFont().ChooseItem(u"Arial");
    options.window.BoxFontSize().ChooseItem(u"12");
    options.window.BoxLanguage().ChooseItem(u"Français");
    options.window.CheckAirCount().SetChecked(false);
    options.window.CheckAskLostCharacters().SetChecked(false);
    const int writes = options.platform.fileSystem.writes;
    options.form.ButtonOK_Click();
    CHECK(options.platform.fileSystem.writes == writes + 1);
    CHECK(options.Settings() ==
          "[Other]\r\nKept=yes\r\n[SMS]\r\nStoreNumbers=0\r\nAirCount=0\r\nAskLostCharacters=0\r\n"
          "[Prefixes]\r\nRemove0InPrefixes=+999\r\n[Editor]\r\nFont=Arial\r\nFontSize=12\r\n["
          "Settings]\r\nLanguage=Francais\r\n");
    CHECK(options.view.messageFont == u"Arial 12");
    CHECK_FALSE(options.program.formSmsSend.Settings().storeNumbers);
    CHECK_FALSE(options.program.formSmsSend.Settings().askLostCharacters);
    CHECK(options.view.StatusBar1().pane.empty());

    // "As in Windows" is the absence of the setting.
    options.form.Show();
    options.window.BoxFont().selected = 0;
    options.window.BoxFontSize().selected = 0;
    options.window.BoxLanguage().selected = 0;
    options.form.ButtonOK_Click();
    CHECK(options.Settings() ==
          "[Other]\r\nKept=yes\r\n[SMS]\r\nStoreNumbers=0\r\nAirCount=0\r\nAskLostCharacters=0\r\n"
          "[Prefixes]\r\nRemove0InPrefixes=+999\r\n[Editor]\r\n[Settings]\r\n");
    CHECK(options.program.forms.Count() == 1);
}

TEST_CASE("without OK nothing is written") {
    Options options;
    options.SetSetting(u"QuestionBox", u"Answer126", u"6");
    const std::string before = options.Settings();
    options.program.formSmsSend.Open({});
    options.form.Show();
    options.window.TextNumUsedNumber().SetText(u"3");
    options.window.TextPrefixes().SetText(u"+49");
    options.window.CheckForgetAnswers().SetChecked(true);
    options.window.CheckTrace().SetChecked(true);
    SUBCASE("cancelled") {
        options.form.ButtonCancel_Click();
        CHECK(options.Settings() == before);
    }
    SUBCASE("gone with the SMS form") {
        options.program.formSmsSend.Unload();
    }
    CHECK_FALSE(options.window.Loaded());
    CHECK(options.Setting(u"SMS", u"NumUsedNumber") == u"");
    CHECK(options.Setting(u"QuestionBox", u"Answer126") == u"6");
    CHECK(options.Registry(AddInKey, u"DebugMode") == u"");
    options.form.Show();
    CHECK(options.window.TextNumUsedNumber().GetText() == u"10");
    CHECK_FALSE(options.window.CheckForgetAnswers().Checked());
}

TEST_CASE("a number is cleaned before it is written") {
    // Nothing left stands for the default.
    for (const auto& [typed, expected] :
         {TwoTexts{u"25", u"25"}, TwoTexts{u"10001", u"10000"}, TwoTexts{u"1x2", u"12"},
          TwoTexts{u"0", u"0"}, TwoTexts{u"99999999999999999999", u"10000"}, TwoTexts{u"", u""},
          TwoTexts{u"x", u""}}) {
        Options options;
        options.SetSetting(u"SMS", u"NumUsedNumber", u"5");
        options.form.Show();
        options.window.TextNumUsedNumber().SetText(typed);
        options.form.ButtonOK_Click();
        CHECK(options.Setting(u"SMS", u"NumUsedNumber") == expected);
    }
}

TEST_CASE("the window answers for the file whether numbers begin with 0, and for none by country") {
    struct Case {
        TextView country, setting;
        bool national;
        TextView field, afterOk;
    };
    for (const Case& c :
         {Case{u"DE", u"", true, u"+49", u"+49"}, Case{u"es", u"", false, u"", u"+999"},
          Case{u"ZZ", u"", false, u"", u"+999"}, Case{u"DE", u"+999", false, u"+49", u"+999"},
          // As somebody wrote it; what nobody changes stays so, whatever it is.
          Case{u"DE", u"999", false, u"+49", u"999"}, Case{u"ES", u"34", true, u"34", u"34"},
          Case{u"DE", u"+43 +999", true, u"+43 +999", u"+43 +999"},
          Case{u"DE", u"+49  x,0", true, u"+49  x,0", u"+49  x,0"}}) {
        CAPTURE(Text(c.setting));
        Options options;
        options.platform.locale.country = c.country;
        options.SetSetting(u"Prefixes", u"Remove0InPrefixes", c.setting);
        options.form.Show();
        CHECK(options.window.OptionNational().Checked() == c.national);
        CHECK(options.window.OptionInternational().Checked() != c.national);
        CHECK(options.window.TextPrefixes().GetText() == c.field);
        CHECK(options.window.TextPrefixes().Enabled() == c.national);
        options.form.ButtonOK_Click();
        CHECK(options.Setting(u"Prefixes", u"Remove0InPrefixes") == c.afterOk);
    }
}

TEST_CASE("an answer to it is written when it is one, and else said to be none with all kept") {
    Options options;
    MemoryFormOptionsView& window = options.window;
    const auto choose = [&](bool national) {
        window.OptionNational().SetChecked(national);
        window.OptionInternational().SetChecked(!national);
        national ? options.form.OptionNational_Click() : options.form.OptionInternational_Click();
        CHECK(window.TextPrefixes().Enabled() == national);
    };
    const auto setting = [&] { return options.Setting(u"Prefixes", u"Remove0InPrefixes"); };
    options.platform.locale.country = u"ES";
    const auto& boxes = options.platform.dialogs.shown;
    options.form.Show();
    choose(true);
    window.TextNumUsedNumber().SetText(u"3");
    for (const TextView none : {u"", u" ", u"+", u"0", u"+049", u"+49 x", u"x49", u"+49+43", u"p49",
                                u"+49170", u"[SMS]=\u4e00"}) {
        CAPTURE(Text(none));
        window.TextPrefixes().SetText(none);
        const std::size_t before = boxes.size();
        options.form.ButtonOK_Click();
        CHECK(boxes.size() == before + 1);
        CHECK(window.TextPrefixes().GetText() == none);
        CHECK(window.TextPrefixes().HasFocus());
        CHECK(setting() == u"");
        CHECK(options.Setting(u"SMS", u"NumUsedNumber") == u"");
    }
    // What was typed is there again when he comes back to it.
    choose(false);
    CHECK(window.TextPrefixes().GetText() == u"[SMS]=\u4e00");
    options.form.ButtonOK_Click();
    CHECK(setting() == u"+999");
    for (const auto& [typed, expected] :
         {TwoTexts{u" +49,+43;;41\t+1 ", u"+49 +43 +41 +1"}, TwoTexts{u"0049", u"+49"},
          TwoTexts{u"00 (49)", u"+49"}, TwoTexts{u"+ 1-684", u"+1684"},
          TwoTexts{u"999", u"+999"}}) {
        options.form.Show();
        choose(true);
        window.TextPrefixes().SetText(typed);
        options.form.ButtonOK_Click();
        CHECK_FALSE(window.Loaded());
        CHECK(setting() == expected);
    }
}

TEST_CASE("new country codes hold at once, also in place of several") {
    Options options;
    options.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49 +43");
    options.program.formSmsSend.Open({});
    CHECK(options.program.prefixes.GetNumber(u"(+49171)") == u"0171");
    options.form.Show();
    options.window.TextPrefixes().SetText(u"+41 +1");
    options.form.ButtonOK_Click();
    CHECK(options.program.prefixes.GetNumber(u"(+49171)") == u"+49171");
    CHECK(options.program.prefixes.GetNumber(u"(+4179)") == u"079");
}

TEST_CASE("a click on the hint leads to the answer that stands; what was typed meanwhile stays") {
    Options options;
    options.platform.locale.country = u"DE";
    options.program.formSmsSend.Open({});
    options.program.formSmsSend.StatusBar1_Click();
    CHECK_FALSE(options.window.Loaded());
    options.program.prefixes.GetNumber(u"Anna  (+49170)");
    options.program.recipientField.ShowPrefixHint();
    options.form.Show();
    options.window.TextNumUsedNumber().SetText(u"3");
    options.program.formSmsSend.StatusBar1_Click();
    CHECK(options.window.TextNumUsedNumber().GetText() == u"3");
    CHECK(options.window.OptionNational().HasFocus());
    options.window.OptionNational().SetChecked(false);
    options.window.OptionInternational().SetChecked(true);
    options.program.formSmsSend.StatusBar1_Click();
    CHECK(options.window.OptionInternational().HasFocus());
}

TEST_CASE("the trace is switched where its start looks for it") {
    struct Case {
        TextView registry, setting;
        bool on, switchTo;
        TextView registryAfter, settingAfter;
    };
    for (const Case& c :
         {Case{u"", u"", false, true, u"1", u""}, Case{u"x", u"", false, true, u"1", u""},
          // A trace that is on keeps its mode.
          Case{u"17", u"", true, true, u"17", u""}, Case{u"", u"3", true, true, u"", u"3"},
          // Off in both places.
          Case{u"-1", u"", true, false, u"0", u""}, Case{u"1", u"3", true, false, u"0", u""}}) {
        CAPTURE(Text(c.registry));
        CAPTURE(Text(c.setting));
        Options options;
        options.SetRegistry(AddInKey, u"Active", u"1");
        options.SetRegistry(AddInKey, u"DebugMode", c.registry);
        options.program.inifilesLite.SetIniSettingWithTest(u"Debug", u"DebugMode", c.setting);
        options.form.Show();
        CHECK(options.window.CheckTrace().Checked() == c.on);
        options.window.CheckTrace().SetChecked(c.switchTo);
        options.form.ButtonOK_Click();
        CHECK(options.Registry(AddInKey, u"DebugMode") == c.registryAfter);
        CHECK(options.program.inifilesLite.GetBaseIniSetting(u"Debug", u"DebugMode") ==
              c.settingAfter);
        CHECK(options.Registry(AddInKey, u"Active") == u"1");
    }
}

TEST_CASE("remembered answers can be taken back where there are any") {
    Options options;
    options.form.Show();
    CHECK_FALSE(options.window.CheckForgetAnswers().Enabled());
    options.form.Unload();
    options.SetSetting(u"QuestionBox", u"Answer138", u"1");
    for (const bool forget : {false, true}) {
        options.form.Show();
        CHECK(options.window.CheckForgetAnswers().Enabled());
        options.window.CheckForgetAnswers().SetChecked(forget);
        options.form.ButtonOK_Click();
        CHECK(options.Setting(u"QuestionBox", u"Answer138") == (forget ? u"" : u"1"));
    }
}
