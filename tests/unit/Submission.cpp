// From "SMS senden" to the queue and the sender application.
#include <doctest.h>

#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

// A form that is open, with the sender application running, switched on and listening.
struct OpenForm : TestProgram {
    OpenForm() {
        StartSender();
        program.formSmsSend.Open({});
    }
    void Fill(TextView recipient, TextView text) {
        view.TextTo().SetText(recipient);
        view.Message().SetText(text);
    }
    bool Send() { return program.submission.ButtonSend_Click_(false, true, {}, {}); }
    std::string QueuedFile(TextView number) {
        return platform.fileSystem.Read(Registry(QueueKey, number)).value_or("(missing)");
    }
};

}  // namespace

TEST_CASE("a submission writes file, entry and counter and tells the sender") {
    OpenForm form;
    SUBCASE("bytes in the ANSI code page, nothing added") {
        form.Fill(u"+491701; +431", u"Gr\u00FC\u00DFe\tan\r\nalle");
        CHECK(form.Send());
        CHECK(form.QueuedFile(u"1") ==
              "+491701; +431\tGr\xFC\xDF"
              "e\tan\r\nalle");
        CHECK(form.Registry(QueueKey, u"cOut") == u"1");
        CHECK(form.platform.messageLoop.posted ==
              std::vector<MemoryMessageLoop::Posted>{{4711, 0x101, 0, 0}});
        CHECK_FALSE(form.view.Loaded());
    }
    SUBCASE("storing queues like sending") {
        form.Fill(u"1", u"x");
        CHECK(form.program.submission.ButtonSend_Click_(false, false, {}, {}));
        CHECK(form.QueuedFile(u"1") == "1\tx");
    }
    SUBCASE("a number and a text handed over replace the form's") {
        form.Fill(u"1", u"x");
        CHECK(form.program.submission.ButtonSend_Click_(false, true, u"2", u"y"));
        CHECK(form.QueuedFile(u"1") == "2\ty");
    }
}

TEST_CASE("what fails leaves a form that can still send, and sends once") {
    OpenForm form;
    form.Fill(u"1", u"x");
    SUBCASE("before it is queued") {
        form.platform.fileSystem.onCreateTempFile = [] { throw std::bad_alloc(); };
        CHECK_THROWS_AS(form.Send(), std::bad_alloc);
        CHECK(form.Registry(QueueKey, u"1").empty());
        form.platform.fileSystem.onCreateTempFile = nullptr;
        CHECK(form.Send());
    }
    SUBCASE("while the sender is started") {
        form.SetRegistry(RootKey, u"hWnd", u"");
        form.platform.messageLoop.onDoEvents = [] { throw std::bad_alloc(); };
        CHECK(form.Send());
    }
    CHECK(form.QueuedFile(u"1") == "1\tx");
    CHECK(form.Registry(QueueKey, u"2").empty());
    CHECK_FALSE(form.view.Loaded());
}

TEST_CASE("an empty recipient or text is refused, and the form stays busy") {
    OpenForm form;
    using Case = std::tuple<TextView, TextView, TextView>;
    for (const auto& [recipient, text, told] :
         {Case{u"", u"x", u"MsgBox3"}, Case{u"1", u"", u"MsgBox4"}}) {
        form.program.formSmsSend.Form_Initialize_();
        form.Fill(recipient, text);
        CHECK_FALSE(form.Send());
        CHECK(form.platform.dialogs.shown.back().text ==
              form.program.language.TextOrBuiltIn(u"FormSmsSend", told));
        CHECK(form.platform.dialogs.shown.back().flags == box::IconInformation);
        CHECK((recipient.empty() ? form.view.TextTo().HasFocus() : form.view.Message().HasFocus()));
        CHECK(form.Registry(QueueKey, u"cOut").empty());
        CHECK(form.view.Loaded());
        // Still busy: neither a second submission nor the close button does anything.
        form.Fill(u"1", u"x");
        CHECK(form.Send());
        form.program.formSmsSend.ButtonOK_Click();
        CHECK(form.view.Loaded());
        CHECK(form.Registry(QueueKey, u"cOut").empty());
    }
    // Initialised anew, it works again.
    form.program.formSmsSend.Open({});
    form.Fill(u"1", u"x");
    CHECK(form.Send());
    CHECK(form.Registry(QueueKey, u"cOut") == u"1");
}

TEST_CASE("the number is remembered before the tests for emptiness, unless switched off") {
    for (const TextView store : {u"1", u"0"}) {
        OpenForm form;
        form.SetSetting(u"SMS", u"StoreNumbers", store);
        form.program.formSmsSend.Open({});
        form.Fill(u"+49170", u"");
        CHECK_FALSE(form.Send());
        form.program.formSmsSend.Unload();
        CHECK((form.Setting(u"SMSNumberList", u"Number1") == u"+49170") == (store == u"1"));
    }
}

TEST_CASE("a submission by key takes the line break before the caret back") {
    using Case = std::tuple<TextView, std::int32_t, const char*>;
    for (const auto& [text, caret, queued] :
         {Case{u"Hallo\r\n", 7, "1\tHallo"}, Case{u"a\r\nb", 3, "1\tab"},
          Case{u"a\r\nb", 2, "1\ta\r\nb"}, Case{u"ab", 1, "1\tab"}}) {
        OpenForm form;
        form.Fill(u"1", text);
        form.view.Message().Select(caret, 0);
        CHECK(form.program.formSmsSend.Form_KeyDown(key::Enter, key::Control));
        CHECK(form.QueuedFile(u"1") == queued);
    }
}

TEST_CASE("a file that cannot be written is reported and queued all the same") {
    OpenForm form;
    form.platform.fileSystem.failWrites = true;
    form.Fill(u"1", u"x");
    CHECK(form.Send());
    CHECK(StartsWith(form.platform.dialogs.shown.back().text, u"Error writing file: "));
    CHECK(form.Registry(QueueKey, u"cOut") == u"1");
    CHECK(form.platform.messageLoop.posted.size() == 1);
}

TEST_CASE("the sender application is switched on, started and told") {
    TestProgram test;
    auto& loop = test.platform.messageLoop;
    const auto start = [&](bool quiet) { test.program.tellwick.StartSenderApplication(quiet); };

    SUBCASE("running under a name of another case or with brackets counts, other names do not") {
        using Case = std::pair<TextView, bool>;
        for (const auto& [path, running] :
             {Case{u"C:\\x\\TELLWICK.exe", true}, Case{u"tellwick.EXE", true},
              Case{u"C:\\Tellwick.exe.exe", false}, Case{u"C:\\MyTellwick.exe", false},
              Case{u"", false}}) {
            test.platform.programs.paths = {Text(path)};
            CHECK(test.program.process.CheckIfRunning(u"Tellwick.exe", true, false) == running);
        }
        test.platform.programs.snapshot = {Text(u"[C:\\x\\Tellwick.exe]\0rest", 24)};
        CHECK(test.program.process.CheckIfRunning(u"Tellwick.exe", true, true));
        // Of another bitness, or with more rights: no path, but a name.
        test.platform.programs.paths = {u"C:\\other.exe", u""};
        CHECK(test.program.process.CheckIfRunning(u"Tellwick.exe", true, false));
    }
    SUBCASE("switched off: asked, and told whatever the answer") {
        test.platform.programs.paths = {u"C:\\Tellwick.exe"};
        test.SetRegistry(RootKey, u"hWnd", u"99");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            test.platform.dialogs.answers = {answer};
            start(false);
            CHECK(test.platform.dialogs.shown.back().flags == box::YesNo);
            CHECK((test.Registry(RootKey, u"On") == u"1") == (answer == Answer::Yes));
            CHECK(loop.posted.back().window == 99);
        }
        CHECK(loop.posted.size() == 2);
        start(false);
        CHECK(test.platform.dialogs.shown.size() == 2);
    }
    SUBCASE("not running: started after a Yes, and not told") {
        test.platform.dialogs.answers = {Answer::Yes};
        test.SetRegistry(RootKey, u"hWnd", u"99");
        start(false);
        REQUIRE(test.platform.programs.started.size() == 1);
        const auto& started = test.platform.programs.started[0];
        const Text folder = test.platform.programs.LibraryFolder();
        CHECK(started.application == folder + u"Tellwick.exe");
        CHECK(started.commandLine == folder + u"Tellwick.exe nocheck");
        CHECK(started.style == WindowStyle::MinimisedWithFocus);
        CHECK(test.Registry(RootKey, u"On") == u"1");
        CHECK(loop.posted.empty());
    }
    SUBCASE("not running and No: waits for a window all the same") {
        test.platform.dialogs.answers = {Answer::No};
        int rounds = 0;
        loop.onDoEvents = [&] {
            if (++rounds == 20) test.SetRegistry(RootKey, u"hWnd", u"5");
        };
        start(false);
        CHECK(test.platform.programs.started.empty());
        CHECK(test.Registry(RootKey, u"On").empty());
        CHECK(rounds == 20);
        CHECK(loop.posted.size() == 1);
    }
    SUBCASE("quiet: no question; a failed start is skipped") {
        test.platform.programs.failStart = true;
        start(true);
        CHECK(test.platform.dialogs.shown.empty());
        CHECK(test.Registry(RootKey, u"On") == u"1");
    }
}
