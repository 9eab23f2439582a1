// The settings window: what it shows, and what of it is written.
#include <doctest.h>

#include "SettingsModules.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

using Field = FormOptions::Field;

// A machine with settings, on which the window is opened.
struct Options : TestProgram {
    MemoryFormOptionsView window;
    int applied = 0;
    FormOptions form{program.services, window,          program.forms,
                     program.prefixes, platform.locale, [this] { ++applied; }};

    Options() {
        program.debug.DebugInit(false, true);
        for (const TextView name : {u"Francais.lng", u"Deutsch.lng", u"english.LNG", u"no.txt"}) {
            platform.fileSystem.Write(u"C:\\Program\\" + Text(name), "[x]", WriteMode::Replace);
        }
    }
    std::string Settings() { return platform.fileSystem.files[Text(CurrentFile)].contents; }
};

struct Box {
    Text chosen;
    std::vector<Text> items;
    bool operator==(const Box&) const = default;
};
Box Content(const MemoryListBox& box) {
    return {box.Item(box.selected), box.items};
}
void Choose(MemoryListBox& box, TextView item) {
    box.selected =
        std::int32_t(std::find(box.items.begin(), box.items.end(), item) - box.items.begin());
    REQUIRE(box.selected < box.Count());
}

}  // namespace

TEST_CASE("the window shows the settings, or what holds without them") {
    Options options;
    options.form.Show();
    CHECK(options.window.caption == u"Corvane - Einstellungen");
    CHECK(options.window.CheckStoreNumbers().Checked());
    CHECK(options.window.TextNumUsedNumber().GetText() == u"10");
    CHECK(options.window.TextPrefixes().GetText() == u"");
    CHECK((Content(options.window.BoxFont()) ==
           Box{u"(wie Windows)", {u"(wie Windows)", u"Arial", u"Tahoma"}}));
    CHECK(Content(options.window.BoxFontSize()).chosen == u"(wie Windows)");
    CHECK((Content(options.window.BoxLanguage()) ==
           Box{u"(wie Windows)", {u"(wie Windows)", u"Deutsch", u"english", u"Francais"}}));
    CHECK_FALSE(options.window.CheckTrace().Checked());
    options.form.ButtonCancel_Click();

    struct Case {
        TextView section, key, value;
        std::function<Text()> shown;
        TextView expected;
    };
    MemoryFormOptionsView& window = options.window;
    const auto number = [&] { return window.TextNumUsedNumber().GetText(); };
    const auto font = [&] { return Content(window.BoxFont()).chosen; };
    const auto size = [&] { return Content(window.BoxFontSize()).chosen; };
    const auto chosen = [&] { return Content(window.BoxLanguage()).chosen; };
    const auto stores = [&] { return Text(window.CheckStoreNumbers().Checked() ? u"yes" : u"no"); };
    for (const Case& c : {Case{u"SMS", u"NumUsedNumber", u"abc", number, u"0"},
                          {u"SMS", u"NumUsedNumber", u"-3", number, u"0"},
                          {u"SMS", u"NumUsedNumber", u"99999", number, u"10000"},
                          {u"SMS", u"NumUsedNumber", u"25 or so", number, u"25"},
                          {u"SMS", u"StoreNumbers", u"0", stores, u"no"},
                          {u"SMS", u"StoreNumbers", u"x", stores, u"no"},
                          {u"SMS", u"StoreNumbers", u"-1", stores, u"yes"},
                          {u"Editor", u"Font", u"tahoma", font, u"Tahoma"},
                          {u"Editor", u"Font", u"Removed Sans", font, u"Removed Sans"},
                          {u"Editor", u"FontSize", u"13", size, u"13"},
                          {u"Editor", u"FontSize", u"big", size, u"(wie Windows)"},
                          {u"Settings", u"Language", u"DEUTSCH.lng", chosen, u"Deutsch"},
                          {u"Settings", u"Language", u"Fran\u00e7ais", chosen, u"Francais"},
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
    // Between its neighbours.
    options.SetSetting(u"Editor", u"FontSize", u"13");
    options.form.Show();
    CHECK(Content(window.BoxFontSize()).items.at(6) == u"13");
}

TEST_CASE("what another program wrote meanwhile is shown") {
    Options options;
    CHECK(options.Setting(u"SMS", u"NumUsedNumber") == u"");
    options.platform.fileSystem.Write(CurrentFile, "[SMS]\r\nNumUsedNumber=7\r\n",
                                      WriteMode::Replace);
    options.form.Show();
    CHECK(options.window.TextNumUsedNumber().GetText() == u"7");
}

TEST_CASE("OK writes what was changed, all of it at once, to the current file") {
    Options options;
    options.SetSetting(u"Other", u"Kept", u"yes");
    options.form.Show();
    options.window.CheckStoreNumbers().SetChecked(false);
    options.form.CheckStoreNumbers_Click();
    CHECK_FALSE(options.window.TextNumUsedNumber().Enabled());
    CHECK_FALSE(options.window.LabelNumUsedNumber().Enabled());
    Choose(options.window.BoxFont(), u"Arial");
    Choose(options.window.BoxFontSize(), u"12");
    Choose(options.window.BoxLanguage(), u"Francais");
    const int writes = options.platform.fileSystem.writes;
    options.form.ButtonOK_Click();
    CHECK(options.platform.fileSystem.writes == writes + 1);
    CHECK(options.Settings() ==
          "[Other]\r\nKept=yes\r\n[SMS]\r\nStoreNumbers=0\r\n[Editor]\r\nFont=Arial\r\n"
          "FontSize=12\r\n[Settings]\r\nLanguage=Francais\r\n");
    CHECK(options.program.inifilesLite.BaseFile() != CurrentFile);
    CHECK_FALSE(options.window.Loaded());
    CHECK(options.program.forms.Count() == 0);
    CHECK(options.applied == 1);

    // "As in Windows" is the absence of the setting.
    options.form.Show();
    options.window.BoxFont().selected = 0;
    options.window.BoxFontSize().selected = 0;
    options.window.BoxLanguage().selected = 0;
    options.form.ButtonOK_Click();
    CHECK(options.Settings() ==
          "[Other]\r\nKept=yes\r\n[SMS]\r\nStoreNumbers=0\r\n[Editor]\r\n[Settings]\r\n");
}

TEST_CASE("Cancel, Escape and the frame change nothing") {
    Options options;
    options.SetSetting(u"QuestionBox", u"Answer126", u"6");
    const std::string before = options.Settings();
    options.form.Show();
    options.window.CheckStoreNumbers().SetChecked(false);
    options.window.TextNumUsedNumber().SetText(u"3");
    options.window.TextPrefixes().SetText(u"+49");
    Choose(options.window.BoxFont(), u"Arial");
    options.window.CheckForgetAnswers().SetChecked(true);
    options.window.CheckTrace().SetChecked(true);
    SUBCASE("cancelled") {
        options.form.ButtonCancel_Click();
    }
    SUBCASE("unloaded") {
        options.form.Unload();
    }
    CHECK_FALSE(options.window.Loaded());
    CHECK(options.Settings() == before);
    CHECK(options.Registry(AddInKey, u"DebugMode") == u"");
    CHECK(options.applied == 0);
    options.form.Show();
    CHECK(options.window.TextNumUsedNumber().GetText() == u"10");
    CHECK_FALSE(options.window.CheckForgetAnswers().Checked());
}

TEST_CASE("numbers and prefixes are cleaned before they are written") {
    struct Case {
        TextView typed, written;
    };
    for (const Case& c : {Case{u" +49,+43;;41\t+1 ", u"+49 +43 41 +1"}, Case{u"0049", u"+49"},
                          Case{u"+ 49", u"49"}, Case{u"[SMS]=\u4e00", u""}, Case{u"+", u""}}) {
        CAPTURE(Text(c.typed));
        Options options;
        options.form.Show();
        options.window.TextPrefixes().SetText(c.typed);
        options.form.ButtonOK_Click();
        CHECK(options.Setting(u"Prefixes", u"Remove0InPrefixes") == c.written);
    }
    for (const Case& c : {Case{u"25", u"25"}, Case{u"10001", u"10000"}, Case{u"1x2", u"12"},
                          Case{u"0", u"0"}, Case{u"99999999999999999999", u"10000"},
                          // The default is back.
                          Case{u"", u""}, Case{u"x", u""}}) {
        CAPTURE(Text(c.typed));
        Options options;
        options.SetSetting(u"SMS", u"NumUsedNumber", u"5");
        options.form.Show();
        options.window.TextNumUsedNumber().SetText(c.typed);
        options.form.ButtonOK_Click();
        CHECK(options.Setting(u"SMS", u"NumUsedNumber") == c.written);
    }
}

TEST_CASE("the user's own country code is proposed where Windows knows it") {
    using namespace std::string_literals;
    Options options;
    for (const Text& unusable : {Text(), u"\0"s, u"4x\0"s}) {
        options.platform.locale.information[{0x400, 5}] = unusable;
        options.form.Show();
        CHECK_FALSE(options.window.ButtonPrefix().Visible());
        options.form.Unload();
    }
    options.platform.locale.information[{0x400, 5}] = u"49\0"s;
    options.form.Show();
    CHECK(options.window.ButtonPrefix().Visible());
    CHECK(options.window.ButtonPrefix().Caption() == u"Vorsch&lag: +49");
    struct Case {
        TextView before, after;
    };
    for (const Case& c : {Case{u"", u"+49"}, Case{u"+43", u"+43 +49"}, Case{u"+43; 49", u"+43 49"},
                          Case{u"+49", u"+49"}, Case{u"+492", u"+492 +49"}}) {
        options.window.TextPrefixes().SetText(c.before);
        options.form.ButtonPrefix_Click();
        CHECK(options.window.TextPrefixes().GetText() == c.after);
    }
}

TEST_CASE("the trace is switched where its start looks for it") {
    struct Case {
        TextView registry, setting;
        bool on;
        bool switchTo;
        TextView registryAfter, settingAfter;
    };
    for (const Case& c :
         {Case{u"", u"", false, true, u"1", u""}, Case{u"0", u"", false, true, u"1", u""},
          Case{u"x", u"", false, true, u"1", u""},
          // A trace that is on keeps its mode.
          Case{u"17", u"", true, true, u"17", u""}, Case{u"-1", u"", true, true, u"-1", u""},
          Case{u"", u"3", true, true, u"", u"3"},
          // Off in both places.
          Case{u"17", u"", true, false, u"0", u""}, Case{u"", u"3", true, false, u"0", u""},
          Case{u"1", u"3", true, false, u"0", u""}}) {
        CAPTURE(Text(c.registry));
        CAPTURE(Text(c.setting));
        Options options;
        options.SetRegistry(AddInKey, u"Active", u"1");
        if (!c.registry.empty()) options.SetRegistry(AddInKey, u"DebugMode", c.registry);
        options.program.inifilesLite.SetIniSettingWithTest(u"Debug", u"DebugMode", c.setting);
        options.form.Show();
        CHECK(options.window.CheckTrace().Checked() == c.on);
        options.window.CheckTrace().SetChecked(c.switchTo);
        options.form.ButtonOK_Click();
        CHECK(options.Registry(AddInKey, u"DebugMode") == c.registryAfter);
        CHECK(options.program.inifilesLite.GetBaseIniSetting(u"Debug", u"DebugMode") ==
              c.settingAfter);
        CHECK(options.Registry(AddInKey, u"Active") == u"1");
        options.form.Show();
        CHECK(options.window.CheckTrace().Checked() == c.switchTo);
    }
}

TEST_CASE("remembered answers can be taken back where there are any") {
    Options options;
    options.form.Show();
    CHECK_FALSE(options.window.CheckForgetAnswers().Enabled());
    options.form.Unload();
    options.SetSetting(u"QuestionBox", u"Answer138", u"1");
    options.form.Show();
    CHECK(options.window.CheckForgetAnswers().Enabled());
    options.form.ButtonOK_Click();
    CHECK(options.Setting(u"QuestionBox", u"Answer138") == u"1");
    options.form.Show();
    options.window.CheckForgetAnswers().SetChecked(true);
    options.form.ButtonOK_Click();
    CHECK(options.Setting(u"QuestionBox", u"Answer138") == u"");
}

TEST_CASE("the window can be opened at the prefixes, also when it is open") {
    Options options;
    options.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    options.form.Show();
    CHECK_FALSE(options.window.TextPrefixes().HasFocus());
    options.window.TextNumUsedNumber().SetText(u"3");
    options.form.Show(Field::Prefixes);
    CHECK(options.window.TextPrefixes().HasFocus());
    CHECK(options.window.TextPrefixes().SelectionLength() == 3);
    CHECK(options.window.TextNumUsedNumber().GetText() == u"3");
    CHECK(options.window.shown == 2);
    CHECK(options.program.forms.Count() == 1);
}
