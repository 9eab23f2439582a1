// The message box: counting, cutting, the hexadecimal view, word-wise keys.
#include <doctest.h>

#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct OpenedForm : TestProgram {
    OpenedForm() {
        program.formSmsSend.Open({});
        view.CheckLong().SetEnabled(false);
    }
    void Type(const Text& text) { Box().SetText(text); }
    MemoryTextBox& Box() { return view.Message(); }
    MessageText& Events() { return program.messageText; }
    Text Status() { return view.LabelStatus().Caption(); }
    Text StatusFor(TextView counted) {
        return ReplaceAll(program.language.TextOrBuiltIn(u"FormSmsSend", u"7"), u"%n", counted);
    }
};

Text Letters(std::size_t count) {
    return Text(count, u'x');
}

}  // namespace

TEST_CASE("the status line counts characters and parts") {
    struct Case {
        std::size_t length;
        TextView counted, parts;
        bool flash;
    };
    for (const Case& c :
         {Case{0, u"0/160", u"", true}, Case{1, u"1/160", u"", true},
          Case{160, u"160/160", u"", true}, Case{161, u"161/307", u" ,2 SMS", false},
          Case{170, u"170/307", u" ,2 SMS", false}, Case{306, u"306/307", u" ,2 SMS", false},
          Case{307, u"307/461", u" ,3 SMS", false}, Case{765, u"765/769", u" ,5 SMS", false},
          Case{766, u"766/923", u" ,6 SMS", false}, Case{800, u"800/923", u" ,6 SMS", false}}) {
        CAPTURE(c.length);
        OpenedForm form;
        form.view.CheckFlash().SetChecked(true);
        form.Type(Letters(c.length));
        CHECK(form.Status() == form.StatusFor(c.counted) + Text(c.parts));
        CHECK(form.view.CheckFlash().Enabled() == c.flash);
        CHECK(form.view.CheckFlash().Checked() == c.flash);
        CHECK(form.view.CheckLong().Enabled() == (c.length > 160));
    }
    CHECK(OpenedForm().platform.dialogs.shown.empty());
}

TEST_CASE("a text above five parts is cut one character short, the caret stays") {
    using Case = std::tuple<bool, std::size_t, std::size_t>;
    for (const auto& [concatenate, typed, left] :
         {Case{false, 1000, 799}, Case{true, 1000, 764}, Case{false, 801, 799},
          Case{true, 766, 764}, Case{true, 765, 765}, Case{false, 65536, 799}}) {
        OpenedForm form;
        form.view.CheckLong().SetChecked(concatenate);
        form.Type(Letters(10));
        form.Box().Select(5, 0);
        form.Box().ReplaceSelection(Letters(typed - 10));
        CHECK(form.Box().GetText().size() == left);
        CHECK(form.Box().SelectionStart() == std::int32_t(std::min(typed - 5, left)));
        CHECK(StartsWith(form.Status(), form.StatusFor(NumberText(std::int64_t(left)) + u"/")));
    }
}

TEST_CASE("characters of code 127 are removed, the caret goes back by one") {
    using Case = std::tuple<TextView, std::int32_t, TextView, std::int32_t>;
    for (const auto& [text, caret, left, caretAfter] :
         {Case{u"a\u007Fb", 2, u"ab", 1}, Case{u"\u007F\u007Fabc", 4, u"abc", 3},
          Case{u"\u007Fab", 0, u"ab", 0}}) {
        OpenedForm form;
        form.Box().text = text;
        form.Box().Select(caret, 0);
        form.Events().Message_Change();
        CHECK(form.Box().GetText() == left);
        CHECK(form.Box().SelectionStart() == caretAfter);
        CHECK(form.Status() == form.StatusFor(NumberText(std::int64_t(left.size())) + u"/160"));
    }
}

TEST_CASE("crossing 160 looks a text up once and shows nothing") {
    OpenedForm form;
    form.SwitchTraceOn();
    const auto lookUps = [&] {
        return Split(form.platform.locale.FromAnsi(form.Trace()), u"MsgBox12").size() - 1;
    };
    form.platform.dialogs.shown.clear();
    form.Type(Letters(161));
    form.Type(Letters(170));
    CHECK(lookUps() == 1);
    form.Type(Letters(160));
    form.Type(Letters(161));
    CHECK(lookUps() == 2);
    CHECK(form.platform.dialogs.shown.empty());
}

TEST_CASE("the hexadecimal view shows digits and gives the text back") {
    struct Case {
        TextView text;
        bool unicode;
        TextView digits, back;
    };
    for (const Case& c :
         {Case{u"Hi", false, u"4869", u"Hi"}, Case{u"Hi", true, u"48006900", u"Hi"},
          Case{u"\u00FC\r\n", false, u"FC0D0A", u"\u00FC\r\n"}, Case{u"", true, u"", u""},
          Case{u"\u20AC\xD83D\xDE00", true, u"AC203DD800DE", u"\u20AC\xD83D\xDE00"},
          // Above 255 the digits of the character before are repeated.
          Case{u"a\u20AC"
               u"b\u20AC",
               false, u"61616262", u"aabb"},
          Case{u"\u20AC", false, u"00", TextView(u"\0", 1)}}) {
        CAPTURE(c.text);
        OpenedForm form;
        form.Type(Text(c.text));
        if (c.unicode) form.Events().ButtonUcs2_Click();
        form.Events().ButtonHex_Click();
        CHECK(form.Box().GetText() == c.digits);
        CHECK(form.Box().HasFocus());
        form.Events().ButtonHex_Click();
        CHECK(form.Box().GetText() == c.back);
    }
    // In the byte mode a character is taken by its code in the code page.
    OpenedForm form;
    MessageText bytes(form.program.services, form.view, form.platform.locale);
    bytes.wideCharacters = false;
    CHECK(bytes.ConvertTextToHexText(u"\u20ACa") == u"8061");
    CHECK(bytes.ConvertHexTextToText(u"8061") == u"\u20ACa");
    CHECK(bytes.ConvertHexTextToText(u"61f") == u"a");
    CHECK(bytes.ConvertHexTextToText(u"6g61") == u"a");
}

TEST_CASE("in the hexadecimal view two digits count as one character, line feeds not at all") {
    OpenedForm form;
    form.Type(u"ab\r\nc");
    form.Events().ButtonHex_Click();
    CHECK(form.Status() == form.StatusFor(u"4/160"));
    form.Type(Letters(0));
    form.Type(Text(1800, u'4'));
    CHECK(form.Box().GetText().size() == 2 * 799);
}

TEST_CASE("keys of the hexadecimal view, and the buttons' captions") {
    OpenedForm form;
    const auto caption = [&](TextView key) {
        return form.program.language.TextOrBuiltIn(u"FormSmsSend", key);
    };
    for (const char16_t unit : Text(u"g \b\r\u00E4"))
        CHECK_FALSE(form.Events().Message_KeyPress(unit));
    form.Events().ButtonHex_Click();
    form.Events().ButtonUcs2_Click();
    CHECK(form.view.ButtonHex().Caption() == caption(u"ButtonHex.On"));
    CHECK(form.view.ButtonUcs2().Caption() == caption(u"ButtonUcs2.On"));
    FormSmsSendRouter& router = form.program.formSmsSendRouter;
    form.view.Message().SetFocus();
    for (const char16_t unit : Text(u"g \b\r\u00E4")) CHECK(router.Form_KeyPress(unit));
    for (const char16_t unit : Text(u"09afAF")) CHECK_FALSE(router.Form_KeyPress(unit));
    form.view.TextTo().SetFocus();
    CHECK_FALSE(router.Form_KeyPress(u'g'));
    form.Events().ButtonUcs2_Click();
    CHECK(form.view.ButtonUcs2().Caption() == caption(u"ButtonUcs2"));
}

TEST_CASE("closing saves the text, not the digits; a queued text stays digits") {
    OpenedForm form;
    form.Type(u"Hi");
    form.Events().ButtonHex_Click();
    form.program.formSmsSend.ButtonOK_Click();
    CHECK(form.Setting(u"SMS", u"LastText") == u"Hi");
    form.program.formSmsSend.Open(u"1");
    CHECK(form.Box().GetText() == u"Hi");
    form.Events().ButtonHex_Click();
    form.platform.dialogs.answers = {Answer::No};
    form.program.submission.ButtonSend_Click();
    CHECK(form.platform.fileSystem.files[u"C:\\Temp\\sms1.tmp"].contents == "1\t4869");
}

TEST_CASE("word-wise keys go by the separators") {
    using Case = std::tuple<std::int32_t, std::int32_t, TextView, std::int32_t>;
    constexpr TextView Text0 = u"eins, zwei-drei";
    for (const auto& [keyCode, caret, text, caretAfter] :
         {Case{key::Left, 15, Text0, 11}, Case{key::Left, 11, Text0, 6},
          Case{key::Left, 6, Text0, 0}, Case{key::Left, 0, Text0, 0}, Case{key::Right, 0, Text0, 6},
          Case{key::Right, 6, Text0, 11}, Case{key::Right, 15, Text0, 15},
          Case{key::Back, 10, u"eins, -drei", 6}, Case{key::Back, 0, Text0, 0}}) {
        OpenedForm form;
        form.Type(Text(Text0));
        form.Box().Select(caret, 0);
        CHECK(form.Events().Message_KeyDown(keyCode, key::Control));
        CHECK(form.Box().GetText() == text);
        CHECK(form.Box().SelectionStart() == caretAfter);
    }
    OpenedForm form;
    CHECK_FALSE(form.Events().Message_KeyDown(key::Left, 0));
}
