// The form's life: what it reads and when, what it shows, what it saves; and the help it opens.
#include <doctest.h>

#include "SettingsModules.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct Opened : TestProgram {
    FormSmsSend& form = program.formSmsSend;
    void Open() { form.Open({}); }
};

}  // namespace

TEST_CASE("settings choose the options, the first activation sets them up, later ones do not") {
    Opened test;
    test.Open();
    CHECK(test.form.Settings().numUsedNumber == 10);
    CHECK(test.form.Settings().areaCodeForOtherServiceCenter == u";");
    CHECK(test.view.BoxExpires().Count() == 0);
    test.form.Form_Activate();
    CHECK(test.view.BoxExpires().items ==
          std::vector<Text>{u"", u"0 Minuten", u"1 Stunde", u"8 Tage"});
    CHECK(test.view.BoxExpires().SelectedIndex() == 0);
    CHECK_FALSE(test.view.CheckLong().Checked());
    CHECK_FALSE(test.view.CheckSetNumber().Checked());
    CHECK(test.view.CheckSendAndQuit().Checked());
    test.view.BoxExpires().SetSelectedIndex(2);
    test.view.CheckLong().SetChecked(true);
    test.form.Form_Activate();
    CHECK(test.view.BoxExpires().SelectedIndex() == 2);
    CHECK(test.view.CheckLong().Checked());
    test.form.Unload();

    test.SetSetting(u"SMS", u"AreaCodeForOtherServiceCenter", u"49 43;41");
    test.SetSetting(u"SMS", u"ServiceCenterUseNotDefault", u"2");
    test.SetSetting(u"SMS", u"DoNotContactLong", u"-1");
    test.Open();
    test.form.Form_Activate();
    CHECK(test.form.Settings().areaCodeForOtherServiceCenter == u";49;43;41;");
    CHECK(test.view.CheckSetNumber().Checked());
    CHECK(test.view.CheckLong().Checked());
}

TEST_CASE("what is in the form comes back with the next one, each value in its place") {
    Opened test;
    test.SetSetting(u"SMS", u"LastText", u"a\\13\\10b");
    test.SetSetting(u"SMS", u"LastTextattachment", u"\\10b");
    test.Open();
    CHECK_FALSE(test.view.positioned);
    CHECK(test.view.Message().GetText() == u"a\r\nb");
    test.view.place = {-1200, 40, 500, 330};
    test.form.ButtonExpand_Click();
    CHECK(test.view.expanded);
    CHECK(test.view.ButtonBar1(BarButton::Template).Checked());
    test.view.CheckLong().SetChecked(true);
    CHECK(test.Setting(u"Positions", u"SMSExpanded").empty());
    test.form.Unload();
    for (const auto& setting : {std::array<TextView, 3>{u"Positions", u"SMSSendx", u"500"},
                                {u"Positions", u"SMSSendy", u"330"},
                                {u"Positions", u"SMSSendPosx", u"-1200"},
                                {u"Positions", u"SMSSendPosy", u"40"},
                                {u"Positions", u"SMSExpanded", u"-1"},
                                {u"SMS", u"LastText", u"a\\13\\10b"},
                                {u"SMS", u"LastTextattachment", u"\\10b"},
                                {u"SMS", u"DoNotContactLong", u"-1"}}) {
        CAPTURE(Text(setting[1]));
        CHECK(test.Setting(setting[0], setting[1]) == setting[2]);
    }
    test.Open();
    CHECK(test.view.positioned);
    CHECK(test.view.place.left == -1200);
    CHECK(test.view.expanded);
    // An attachment that the text no longer ends with is dropped.
    test.view.Message().SetText(u"c");
    test.form.Unload();
    test.Open();
    test.form.Unload();
    CHECK(test.Setting(u"SMS", u"LastTextattachment").empty());
}

TEST_CASE("a second \"New SMS\" changes nothing in the open form") {
    Opened test;
    test.Open();
    test.view.TextTo().SetText(u"0171");
    test.view.Message().SetText(u"halb");
    test.view.CheckLong().SetChecked(true);
    test.form.ButtonExpand_Click();
    test.view.ComboBoxTextbausteine().SetText(u"neu");
    test.program.textTemplates.ButtonAdd_Click();
    test.program.messageText.ButtonHex_Click();
    test.view.Message().Select(3, 0);
    test.form.Open(u"0171;0172");
    CHECK(test.view.shown == 2);
    CHECK(test.view.TextTo().GetText() == u"0171;0172");
    CHECK(test.view.Message().GetText() == u"68616C62");
    CHECK(test.view.Message().SelectionStart() == 3);
    CHECK(test.view.CheckLong().Checked());
    CHECK(test.view.expanded);
    CHECK(test.view.ComboBoxTextbausteine().items == std::vector<Text>{u"neu"});
    test.form.ButtonOK_Click();
    CHECK(test.Setting(u"SMS", u"LastText") == u"halb");
    CHECK(test.Setting(u"Texte", u"Text0") == u"neu");
}

TEST_CASE("a number that no prefix of the settings accounts for is told of, until that changes") {
    Opened test;
    const auto hint = [&] { return !test.view.StatusBar1().GetText().empty(); };
    const auto toldAt = [&](TextView prefixes, TextView entry) {
        test.form.Unload();
        test.SetSetting(u"Prefixes", u"Remove0InPrefixes", prefixes);
        test.Open();
        test.view.TextTo().SetText(u"");
        test.program.recipientField.Add(test.program.prefixes.GetNumber(entry));
        return hint();
    };
    test.Open();
    CHECK_FALSE(toldAt(u"", u"Eva  (0171)"));
    CHECK_FALSE(toldAt(u"+49", u"Eva  (+49171)"));
    CHECK_FALSE(toldAt(u"+49", u"Eva  (+43664)"));
    CHECK(toldAt(u"", u"Eva  (+49171)"));
    test.program.recipientField.TextTo_LostFocus();
    CHECK(hint());
    test.view.TextTo().SetText(u"x");
    CHECK_FALSE(hint());
    CHECK(toldAt(u"", u"Eva  (+49172)"));
    test.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    test.form.ApplySettings();
    CHECK_FALSE(hint());
    CHECK(toldAt(u"", u"Eva  (+49173)"));
    test.form.Unload();
    test.Open();
    test.program.recipientField.TextTo_LostFocus();
    CHECK_FALSE(hint());
}

TEST_CASE("help opens as compiled help, or what there is instead") {
    const auto help = [](SettingsModules& m) {
        const Services services{m.debug, m.inifilesLite, m.language, m.questionBox};
        HelpViewer(services, m.documents, m.platform.fileSystem, m.platform.programs)
            .CallHelp(u"SMSCenterNew.htm", u"smsnew.htm", 0);
    };
    SettingsModules m("[Messages]\r\nMsg138=No help for %m\r\n");
    auto& programs = m.platform.programs;
    m.SetFile(u"C:\\Program\\Francais.lng", "[Messages]\r\nMsg138=Rien pour %m\r\n");
    m.SetFile(CurrentFile, "[Settings]\r\nLanguage=Francais\r\n");
    m.inifilesLite.GetIniFile();

    SUBCASE("no compiled help: the page, and no word") {
        SettingsModules other("[x]\r\n");
        other.inifilesLite.GetIniFile();
        other.dialogs.shown.clear();
        help(other);
        CHECK(other.platform.programs.opened ==
              std::vector<Text>{u"C:\\Program\\Manual\\English\\smsnew.htm"});
        CHECK(other.dialogs.shown.empty());
    }
    SUBCASE("the English help for a French user: told, then opened at the topic") {
        m.SetFile(u"C:\\Program\\cven.chm", "x");
        help(m);
        REQUIRE(m.dialogs.shown.size() == 1);
        CHECK(m.dialogs.shown[0].text == u"Rien pour Tellwick");
        CHECK(m.dialogs.shown[0].flags == (box::Ok | box::IconError));
        REQUIRE(programs.started.size() == 1);
        CHECK(programs.started[0].application == u"C:\\Windows\\hh.exe");
        CHECK(programs.started[0].commandLine ==
              u"hh.exe \"C:\\Program\\cven.chm::/SMSCenterNew.htm\"");
        CHECK((programs.started[0].style == WindowStyle::Normal));
    }
    SUBCASE("no viewer: the associated one, and the five lines where there is none either") {
        m.SetFile(u"C:\\Program\\cven.chm", "x");
        programs.failStart = true;
        help(m);
        CHECK(m.dialogs.shown.back().text ==
              u"Unable to start the help!\r\n\r\nPlease open the file\r\n"
              u"C:\\Program\\cven.chm\r\nmanually or open the help via the start menu.");
        CHECK(m.dialogs.shown.back().flags == box::IconExclamation);
        CHECK(programs.started.size() == 1);
        m.SetRegistry(u".chm", u"", u"chm", Hive::ClassesRoot);
        m.SetRegistry(u"chm\\shell\\open\\command", u"", u"viewer %1", Hive::ClassesRoot);
        help(m);
        CHECK(programs.started.back().commandLine ==
              u"viewer \"C:\\Program\\cven.chm::/SMSCenterNew.htm\"");
        CHECK((programs.started.back().style == WindowStyle::MinimisedWithFocus));
    }
}
