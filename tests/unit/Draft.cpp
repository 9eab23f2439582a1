// What is typed outlives an Outlook that ends without closing the form.
#include "compose/Draft.h"

#include <doctest.h>

#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

const Text Path = u"C:\\Data\\Tellwick\\draft.txt";
constexpr TextView Restored = u"Wiederhergestellt: diese SMS war noch offen, als Outlook endete.";

struct Typing : TestProgram {
    explicit Typing(TextView recipients = {}) { program.formSmsSend.Open(recipients); }
    // After the death of another.
    explicit Typing(const Typing& dead, TextView recipients = {}) {
        platform.fileSystem.files = dead.platform.fileSystem.files;
        program.formSmsSend.Open(recipients);
    }
    void Type(TextView recipient, TextView text) {
        view.TextTo().SetText(recipient);
        view.Message().SetText(text);
    }
    // So many milliseconds without a key.
    void Pass(double milliseconds) {
        platform.clock.milliseconds += milliseconds;
        platform.timers.RunDue();
    }
    bool Kept() { return platform.fileSystem.files.contains(Path); }
    Text Shown() { return view.TextTo().GetText() + u"|" + view.Message().GetText(); }
};

}  // namespace

TEST_CASE("two seconds after the last key, or when the user leaves it, the form is kept") {
    Typing form;
    form.Pass(5000);
    CHECK_FALSE(form.Kept());
    form.Type(u"0171", u"zwei\r\nZeilen \u0416 \\");
    form.Pass(1500);
    form.view.Message().SetText(u"zwei\r\nZeilen \u0416 \\x");
    form.Pass(1500);
    CHECK_FALSE(form.Kept());
    form.Pass(500);
    CHECK(form.Kept());
    // The settings are written when the form closes, and only then.
    CHECK(form.Setting(u"SMS", u"LastText").empty());
    form.view.TextTo().SetText(u"0171;0172");
    form.program.formSmsSend.Form_Deactivate();

    Typing next(form);
    CHECK(next.Shown() == u"0171;0172|zwei\r\nZeilen \u0416 \\x");
    CHECK(next.view.StatusBar1().GetText() == Restored);
    // It is still there should this one die, too; recipients of a click join those typed.
    Typing third(next, u"0173");
    CHECK(third.view.TextTo().GetText() == u"0171;0172;0173");
    CHECK(third.view.StatusBar1().GetText() == Restored);
    third.program.formSmsSend.Unload();
    CHECK_FALSE(third.Kept());
    CHECK(third.Setting(u"SMS", u"LastText") == u"zwei\\13\\10Zeilen ? \\x");
}

TEST_CASE("digits are kept as the text that they stand for") {
    Typing form;
    form.Type(u"1", u"Hi");
    form.program.messageText.ButtonHex_Click();
    form.program.formSmsSend.Form_Deactivate();
    CHECK(Typing(form).Shown() == u"1|Hi");
}

TEST_CASE("what is queued is not offered again, even while the sender is waited for") {
    Typing form;
    form.platform.programs.paths = {u"C:\\Tellwick.exe"};
    form.SetRegistry(RootKey, u"On", u"1");
    form.Type(u"1", u"x");
    form.program.formSmsSend.Form_Deactivate();
    int pauses = 0;
    form.platform.messageLoop.onDoEvents = [&] {
        ++pauses;
        form.program.formSmsSend.Form_Deactivate();
        CHECK_FALSE(form.Kept());
    };
    form.program.submission.ButtonSend_Click();
    CHECK(pauses == 50);
}

TEST_CASE("what cannot be saved stays a draft, what cannot be read is none") {
    Typing form;
    form.Type(u"1", u"x");
    form.platform.fileSystem.failWrites = true;
    form.program.formSmsSend.Form_Deactivate();
    CHECK_FALSE(form.Kept());
    form.platform.fileSystem.failWrites = false;
    form.program.formSmsSend.Form_Deactivate();
    CHECK(form.Kept());
    form.view.Message().SetText(u"y");
    form.platform.fileSystem.files[form.program.inifilesLite.CurrentFile()].readOnly = true;
    form.program.formSmsSend.Unload();
    CHECK(form.Kept());
    CHECK(Typing(form).Shown() == u"1|y");
    for (const char* damaged :
         {"", "Tellwick draft 1\r\n1\r\n", "Tellwick draft 2\r\n1\r\nx\r\n"}) {
        form.platform.fileSystem.files[Path].contents = damaged;
        CHECK(Typing(form).view.StatusBar1().GetText().empty());
    }
}
