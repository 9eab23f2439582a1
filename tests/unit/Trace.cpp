// The trace: its records, its switching on, and its file.
#include <doctest.h>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct Traced : SettingsModules {
    explicit Traced(TextView debugMode, TextView active = u"1",
                    std::string_view english = "[x]\r\n")
        : SettingsModules(english) {
        SetRegistry(AddInKey, u"DebugMode", debugMode);
        SetRegistry(AddInKey, u"Active", active);
        SetRegistry(RootKey, u"Debug\\x", u"");  // so that the key is there to be deleted
        inifilesLite.GetIniFile();
    }
    // What the trace file gained since the last call.
    std::string Gained() {
        std::string contents = File(TraceFile);
        const std::string gained = contents == "(missing)" ? contents : contents.substr(seen);
        seen = contents == "(missing)" ? 0 : contents.size();
        return gained;
    }
    std::size_t seen = 0;
};

}  // namespace

TEST_CASE("records nest") {
    Traced traced(u"1");
    traced.debug.DebugInit(false, false);
    CHECK(traced.Gained() == "<start>_\r\n\r\n");
    {
        Procedure outer{traced.debug, u"Outer"};
        traced.debug.DebugTrace(u"Outer", 7);
        traced.errors.Note(53, u"File not found");
    }
    CHECK(traced.Gained() == " <Outer>_\r\n  Outer7\r\n 53:File not found\r\n </Outer>\r\n");
    CHECK(traced.errors.number == 53);
    // The indent never falls below nothing and starts again with one blank beyond 50.
    traced.errors.Clear();
    for (int i = 0; i < 3; ++i) traced.debug.DebugTrace(u"x", trace::Exit);
    CHECK(traced.Gained() == "</x>\r\n</x>\r\n</x>\r\n");
    for (int i = 0; i < 51; ++i) traced.debug.DebugTrace(u"n", trace::Enter);
    traced.Gained();
    traced.debug.DebugTrace(u"n", trace::Enter);
    CHECK(traced.Gained() == " <n>_\r\n");
}

TEST_CASE("a free text is folded in place, crossed and only once a letter") {
    Traced traced(u"1");
    traced.debug.DebugInit(false, false);
    traced.Gained();
    Text text = u"Größe über Maß, öäÄÖÜß";
    traced.debug.DebugTrace(text, trace::FreeText);
    CHECK(text == u"Graesse uaber Maß, öoeAeOeUeß");
    CHECK(traced.Gained() == " Graesse uaber Ma\xDF, \xF6oeAeOeUe\xDF\r\n");
}

TEST_CASE("modes") {
    struct Case {
        TextView mode;
        bool cancel;
        TextView active;
        const char* record;
    };
    const Case cases[] = {
        {u"1", false, u"1", " <a>_\r\n"},
        {u"17", false, u"1", "49512.31: <a>_\r\n"},
        {u"16", false, u"1", "49512.31: <a>_\r\n"},
        {u"17", true, u"1", "49512.31:<a>_\r\n"},  // recorded, but the file was not begun
        {u"16", false, u"0", "49512.31: <a>_\r\n"},
        {u"0", false, u"1", "(missing)"},
        {u"x", false, u"1", "(missing)"},
    };
    for (const Case& c : cases) {
        Traced traced(c.mode, c.active);
        traced.platform.clock.seconds = 49512.31f;
        if (c.cancel) traced.dialogs.answers = {Answer::Cancel};
        traced.debug.DebugInit(false, false);
        traced.Gained();
        traced.debug.DebugTrace(u"a", trace::Enter);
        CHECK(traced.Gained() == c.record);
        CHECK(traced.dialogs.shown.size() == (traced.debug.Active() ? 1 : 0));
    }
}

TEST_CASE("a time stamp is the shortest text of its seconds") {
    Traced traced(u"17");
    traced.debug.DebugInit(false, false);
    const char* const texts[] = {"0",         "0.001",   "0.016",    "7",
                                 "59.999",    "1000.5",  "4095.999", "16384.062",
                                 "16384.188", "60000.1", "86399.99"};
    for (const char* text : texts) {
        traced.Gained();
        traced.platform.clock.seconds = std::stof(text);
        traced.debug.DebugTrace(u"a", 7);
        const std::string gained = traced.Gained();
        CHECK(gained.substr(0, gained.find(':')) == text);
    }
}

TEST_CASE("registry mode keeps the last record in the registry only") {
    Traced traced(u"-1");
    traced.debug.DebugInit(false, false);
    const Text key = Text(RootKey) + u"\\Debug";
    traced.errors.Note(53, u"x");
    traced.debug.DebugTrace(u"a", trace::Enter);
    CHECK(traced.Registry(key, u"") == u"<a>_");
    CHECK(traced.Gained() == "(missing)");
    CHECK(traced.debug.Mode() == -1);
}

TEST_CASE("what the modules record of their own") {
    Traced traced(u"1");
    traced.debug.DebugInit(false, false);
    struct Case {
        std::function<void()> action;
        const char* record;
    };
    const auto registry = [&] {
        traced.regEdit.ReadValue(Hive::CurrentUser, u"none", u"none");
        traced.regEdit.DeleteValue(Hive::CurrentUser, u"none", u"none");
        traced.platform.registry.failWrites = true;
        CHECK_FALSE(traced.regEdit.WriteValue(Hive::CurrentUser, u"\\Software\\K", u"v", u"x"));
        CHECK_FALSE(traced.regEdit.DeleteKey(Hive::LocalMachine, u"\\Software", u"None"));
    };
    for (const Case& c : {Case{[&] { traced.language.GetLanguageString(u"A", u"k"); },
                               " <GetLanguageString>_\r\n  A k\r\n </GetLanguageString>\r\n"},
                          Case{[&] { traced.inifilesLite.SetIniSetting(u"S", u"k", u"1"); },
                               " <SetIniSetting>_\r\n  <WriteToIniFile>_\r\n  </WriteToIniFile>\r\n"
                               " </SetIniSetting>\r\n"},
                          Case{[&] { traced.inifilesLite.GetIniSetting(u"S", u"k"); }, ""},
                          Case{registry,
                               " RegEdit error: 80000001: Software\\K v\r\n"
                               " RegEdit error: 80000002: Software None\r\n"}}) {
        traced.Gained();
        c.action();
        CHECK(traced.Gained() == c.record);
    }
    traced.questionBox.MsgBoxMessage(60, 0);
    CHECK(traced.Gained().find(" MsgBoxMessage:60\r\n") != std::string::npos);
}

TEST_CASE("what is asked at the start") {
    SUBCASE("a first switch-on, with the path in the text") {
        Traced traced(u"1", u"1", "[Messages]\r\nDebug1=Tellwick: %f.%e|unseen\r\n");
        traced.debug.DebugInit(false, false);
        REQUIRE(traced.dialogs.shown.size() == 1);
        CHECK(traced.dialogs.shown[0].text ==
              u"Tellwick AddIn: C:\\Program\\Tellwick AddInAddIn.dbg.xml.");
        CHECK(traced.dialogs.shown[0].flags == 49);
        CHECK(traced.dialogs.shown[0].title == u"Tellwick");
    }
    SUBCASE("whether to stay on, which no answer denies") {
        for (const bool restarted : {false, true}) {
            for (const Answer answer : {Answer::Yes, Answer::No, Answer::None}) {
                Traced traced(u"1", restarted ? u"1" : u"");
                if (restarted) traced.platform.programs.commandLine = u"restart";
                traced.dialogs.answers = {answer};
                traced.debug.DebugInit(false, false);
                CHECK(traced.debug.Active());
                CHECK(traced.Gained() == "<start>_\r\n\r\n");
                REQUIRE(traced.dialogs.shown.size() == 1);
                CHECK(traced.dialogs.shown[0].flags == box::YesNo);
                CHECK(traced.dialogs.shown[0].text ==
                      traced.language.TextOrBuiltIn(u"Messages", u"Debug2"));
            }
        }
    }
    SUBCASE("the anti-virus product") {
        Traced traced(u"1");
        traced.SetRegistry(
            u"SOFTWARE\\KasperskyLab\\InstalledProducts\\Kaspersky Anti-Virus Personal", u"Folder",
            u"C:\\", Hive::LocalMachine);
        traced.debug.DebugInit(false, false);
        REQUIRE(traced.dialogs.shown.size() == 2);
        CHECK(traced.dialogs.shown[1].flags == box::IconInformation);
    }
}

TEST_CASE("the trace file is begun anew beyond its limit") {
    for (const std::size_t size : {20u, 21u}) {
        Traced traced(u"1");
        traced.inifilesLite.SetIniSetting(u"Debug", u"MaxSize", u"20");
        traced.SetFile(TraceFile, std::string(size, 'x'));
        traced.SetFile(u"C:\\Program\\TellwickAddIn.dbg", "older");
        traced.SetRegistry(Text(RootKey) + u"\\Debug", u"", u"<crashed>_");
        traced.debug.DebugInit(false, false);
        CHECK(traced.Gained() ==
              (size > 20 ? "<start>_\r\n\r\n" : std::string(size, 'x') + "\r\n"));
        CHECK(traced.File(u"C:\\Program\\TellwickAddIn.dbg") == "(missing)");
        CHECK(traced.Registry(Text(RootKey) + u"\\Debug", u"") == u"(missing)");
        // A second call while tracing is on only sees to the file again.
        traced.debug.DebugInit(false, false);
        CHECK(traced.dialogs.shown.size() == 1);
    }
}

TEST_CASE("every 256th idle call looks whether tracing was switched on") {
    SettingsModules fresh;
    fresh.debug.DebugInit(false, true);
    fresh.SetRegistry(AddInKey, u"DebugMode", u"1");
    fresh.SetRegistry(AddInKey, u"Active", u"1");
    for (int call = 1; call <= 254; ++call) fresh.debug.DebugTrace(u"x", 1);
    CHECK_FALSE(fresh.debug.Active());
    fresh.debug.DebugTrace(u"x", 1);
    CHECK(fresh.debug.Active());
    CHECK(fresh.dialogs.shown.empty());
    CHECK(fresh.platform.registry.reads < 20);

    // The setting of the INI file counts, too, but only when asked at the start.
    Traced set(u"0");
    set.inifilesLite.SetIniSettingWithTest(u"Debug", u"DebugMode", u"1");
    set.debug.DebugInit(false, false);
    CHECK(set.debug.Active());
}

TEST_CASE("errors that reach the user") {
    using Case = std::tuple<std::int32_t, TextView, TextView>;
    for (const auto& [number, whileOff, whileOn] :
         {Case{7, u"7:why", u"7:why"}, Case{372, u"372:why", u"372:why"},
          Case{374, u"374:why", u"374:why"}, Case{339, u"", u"E#339:why"}, Case{53, u"", u""}}) {
        for (const bool on : {false, true}) {
            Traced traced(on ? u"1" : u"0");
            traced.debug.DebugInit(false, false);
            traced.dialogs.shown.clear();
            traced.errors.Note(number, u"why");
            traced.debug.DebugTrace(u"x", trace::Exit);
            const TextView expected = on ? whileOn : whileOff;
            REQUIRE(traced.dialogs.shown.size() == (expected.empty() ? 0 : 1));
            if (!expected.empty()) {
                CHECK(traced.dialogs.shown[0].text == expected);
                CHECK(traced.dialogs.shown[0].flags == box::IconExclamation);
            }
            CHECK(traced.errors.number == number);
        }
    }
}
