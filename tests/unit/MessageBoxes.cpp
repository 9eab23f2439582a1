// Message boxes and their remembered answers, whole files and folders, opening of documents.
#include <doctest.h>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;

using TwoTexts = std::pair<TextView, TextView>;

TEST_CASE("the system's box sees what it knows, and the part before the bar") {
    SettingsModules m("[Messages]\r\nMsg60=No %f, %f|hidden\r\n");
    Text title;
    CHECK(m.questionBox.MsgBoxEx(u"Saved.|And more", 4 | 32, title) == Answer::Yes);
    CHECK(title == u"Tellwick");
    CHECK(m.dialogs.shown.back().text == u"Saved.");
    CHECK(m.dialogs.shown.back().title == u"Tellwick");
    title = u"Mine";
    m.questionBox.MsgBoxEx(u"x", 0x90000000 | 128 | 16, title);
    CHECK(m.dialogs.shown.back().flags == 16);
    CHECK(m.dialogs.shown.back().title == u"Mine");
    m.questionBox.MsgBoxMessage(60, box::IconExclamation, u"%f", u"a%fb|c");
    CHECK(m.dialogs.shown.back().text == u"No a%fb");
    // The list question takes a Yes as 1.
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        m.dialogs.answers = {answer};
        CHECK(m.questionBox.MsgBoxMessage(52, 132) ==
              (answer == Answer::Yes ? Answer::Ok : answer));
        CHECK(m.dialogs.shown.back().flags == 4);
    }
    m.dialogs.inputs = {u"typed"};
    CHECK(m.questionBox.InputBox(u"Where?") == u"typed");
}

TEST_CASE("answers are remembered per message until they are taken back") {
    using Case = std::tuple<std::int32_t, std::uint32_t, std::uint32_t, Answer, TextView>;
    for (const auto& [number, style, shown, given, invalid] :
         {Case{126, 0x90000001, 4, Answer::Yes, u"1"}, Case{127, 0x90000002, 4, Answer::No, u"2"},
          Case{138, 0x90000010, 16, Answer::Ok, u"6"}}) {
        SettingsModules m(
            "[Messages]\r\nDoNotAskAgain=no more\r\nDoNotShowAgain=no more\r\nYes=Oui\r\nNo=Non\r\n"
            "OK=Bon\r\n");
        m.inifilesLite.GetIniFile();
        const Text key = u"Answer" + NumberText(number);
        m.inifilesLite.SetIniSetting(u"QuestionBox", key, invalid);
        const auto ask = [&m, number = number, style = style] {
            return m.questionBox.MsgBoxMessage(number, style);
        };
        m.dialogs.answers = {given, given};
        CHECK(ask() == given);  // the answer kept is none of this box
        CHECK(m.dialogs.shown.back().flags == shown);
        CHECK(m.dialogs.shown.back().checkBoxText == u"no more");
        // In the language of the question, not that of Windows.
        CHECK(m.dialogs.shown.back().choices.front().caption == (shown == 4 ? u"Oui" : u"Bon"));
        CHECK(m.dialogs.shown.back().choices.back().caption == (shown == 4 ? u"Non" : u"Bon"));
        m.dialogs.check = true;
        CHECK(ask() == given);
        CHECK(m.dialogs.shown.size() == 2);
        CHECK(ask() == given);
        CHECK(m.dialogs.shown.size() == 2);
        m.questionBox.ForgetAnswers();
        CHECK(m.inifilesLite.GetIniSetting(u"QuestionBox", key) == u"");
        ask();
        CHECK(m.dialogs.shown.size() == 3);
    }
}

TEST_CASE("whole files are written, with the folders they need") {
    using Case = std::tuple<TextView, TextView, bool, bool>;
    for (const auto& [asked, cleaned, written, told] :
         {Case{u"C:\\q\\a/b\\what?.txt", u"C:\\q\\a_b\\what_.txt", true, false},
          Case{u"M:\\x.txt", u"M:\\x.txt", false, false}, Case{u"m:x", u"m:x", false, false},
          Case{u"Z:\\x.txt", u"Z:\\x.txt", false, true},
          Case{u"C:\\Data", u"C:\\Data", false, true}, Case{u"", u"", false, false}}) {
        for (const bool showError : {false, true}) {
            SettingsModules m;
            Text path(asked);
            CHECK(m.files.WriteFileConents(path, u"Grüße €", false, 0, showError) == written);
            CHECK(path == cleaned);
            CHECK(m.dialogs.shown.size() == (told && showError ? 1 : 0));
            if (!written) continue;
            CHECK(m.File(path) ==
                  "Gr\xFC\xDF"
                  "e \x80");
            CHECK(m.files.WriteFileConents(path, u"+", true, 0, showError));
            CHECK(m.File(path) ==
                  "Gr\xFC\xDF"
                  "e \x80+");
            CHECK(m.errors.number == 0);
        }
    }
    SettingsModules m;
    Text path(u"Z:\\x.txt");
    m.files.WriteFileConents(path, u"", false, 0, true);
    CHECK(m.dialogs.shown.back().text == u"Error writing file: Z:\\x.txt, Path not found");
}

TEST_CASE("paths are normalised") {
    for (const auto& [path, normal] :
         {TwoTexts{u"C:\\a\\\\b\\.\\c", u"C:\\a\\b\\c"}, TwoTexts{u"C:\\a\\..\\b", u"C:\\b"},
          TwoTexts{u"C:\\..\\..\\b", u"C:\\b"}, TwoTexts{u"C:\\a\\", u"C:\\a\\"},
          TwoTexts{u"\\\\server\\share\\..\\x", u"\\\\server\\share\\x"},
          TwoTexts{u"\\a\\..\\b", u"\\b"}, TwoTexts{u"..\\a", u"..\\a"},
          TwoTexts{u"a\\..\\b", u"b"}, TwoTexts{u"", u""}}) {
        CHECK(Files::NormalisePath(path) == normal);
    }
}

TEST_CASE("the command of an extension") {
    for (const auto& [command, found] :
         {TwoTexts{u"hh.exe %1", u"hh.exe \"%l\""},
          TwoTexts{u"\"C:\\h h.exe\" \"%1\" -x", u"\"C:\\h h.exe\" \"%l\" -x"},
          TwoTexts{u"%LocalAppData%\\a %L", u"%LocalAppData%\\a \"%l\""},
          TwoTexts{u"%Programs%\\a %1", u"C:\\Programs\\a \"%l\""},
          TwoTexts{u"a \"%l\"", u"a \"%l\""}, TwoTexts{u"a", u"a \"%l\""},
          TwoTexts{u"%x% a", u"%x% a \"%l\""}, TwoTexts{u"", u""}}) {
        SettingsModules m;
        m.SetRegistry(u".chm", u"", u"machine", Hive::ClassesRoot);
        m.SetRegistry(u"machine\\shell\\open\\command", u"", command, Hive::ClassesRoot);
        CHECK(m.documents.GetApplForExt(u"chm") == found);
        m.SetRegistry(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.chm",
                      u"ProgID", u"user");
        CHECK(m.documents.GetApplForExt(u"chm") == found);
        m.SetRegistry(u"user\\shell\\open\\command", u"", u"own %1", Hive::ClassesRoot);
        CHECK(m.documents.GetApplForExt(u"chm") == u"own \"%l\"");
    }
}

TEST_CASE("documents and addresses are opened as well as the machine can") {
    SettingsModules m;
    CHECK(m.documents.ExecApp(u"C:\\a.htm", -1));
    CHECK(m.platform.programs.opened.back() == u"C:\\a.htm");
    CHECK_FALSE(m.documents.ExecApp(u"", -1));
    CHECK_FALSE(m.documents.ExecApp(u"a\" & b", -1));
    m.platform.programs.failOpen = true;
    m.SetRegistry(u".htm", u"", u"html", Hive::ClassesRoot);
    m.SetRegistry(u"html\\shell\\open\\command", u"", u"browse \"%1\"", Hive::ClassesRoot);
    for (const auto& [document, commandLine] :
         {TwoTexts{u"C:\\a b.htm", u"browse \"C:\\a b.htm\""},
          TwoTexts{u"http://x/y", u"browse \"http://x/y\""},
          TwoTexts{u"mailto:a@b", u"cmd /c start \"\" \"mailto:a@b\""},
          TwoTexts{u"C:\\a.doc", u"cmd /c start \"\" \"C:\\a.doc\""}}) {
        CHECK(m.documents.ExecApp(document, -1));
        CHECK(m.platform.programs.started.back().commandLine == commandLine);
        // Named by its folder, so that none beside the document is taken.
        CHECK(m.platform.programs.started.back().application ==
              (StartsWith(commandLine, u"cmd ") ? u"C:\\Windows\\System32\\cmd.exe" : u""));
    }
}
