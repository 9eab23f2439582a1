// What the form says of a text on air: the line in the status bar, and the question before a
// character gets lost.
#include <doctest.h>

#include "compose/QueueText.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct OnAir : TestProgram {
    OnAir() { program.formSmsSend.Open({}); }
    Text Line() { return view.StatusBar1().pane; }
    void Type(TextView text) { view.Message().SetText(text); }
};

}  // namespace

TEST_CASE("the line in the status bar follows text and recipients") {
    using Case = std::tuple<TextView, Text, TextView, TextView>;
    const Text x(160, u'x');
    for (const auto& [to, text, line, shortLine] :
         {Case{u"", u"", u"GSM · 1 SMS · 160 frei", u"GSM · 1 SMS"},
          {u"0171", x + u"y", u"GSM · 2 SMS · 145 frei", u"GSM · 2 SMS"},
          // As the sender splits them; empty ones not.
          {u"0171;, 0172 ;Eva,;", x + u"y", u"GSM · 2 SMS × 3 = 6 · 145 frei", u"GSM · 6 SMS"},
          {u"1;2", u"— x", u"Unicode · 1 SMS × 2 = 2 · 67 frei", u"Unicode · 2 SMS"},
          // A long text is counted as the form cuts it.
          {u"1", Text(0x10000, u'x'), u"GSM · 6 SMS · 119 frei", u"GSM · 6 SMS"},
          {u"1", Text(u"a\0b", 3), u"Unicode · 1 SMS · 67 frei", u"Unicode · 1 SMS"},
          {u"1", u"\xDE00\u05D0", u"GSM · 1 SMS · 158 frei · verloren: 2", u"GSM · 1 SMS"},
          // What the queue loses is counted as what arrives: here one "?" each.
          {u"1", u"Привет €", u"GSM · 1 SMS · 151 frei · verloren: 6", u"GSM · 1 SMS"},
          // The nearest one is a loss where it reads otherwise: "l", not "-".
          {u"1", u"ł\u2011", u"GSM · 1 SMS · 158 frei · verloren: 1", u"GSM · 1 SMS"}}) {
        OnAir form;
        form.view.TextTo().SetText(to);
        form.Type(text);
        CHECK(form.Line() == line);
        CHECK(form.view.StatusBar1().shortPane == shortLine);
    }
}

TEST_CASE("the line comes with the form, whatever changes it, and goes with its setting") {
    OnAir form;
    form.Type(u"Grüße");
    form.program.recipientField.Add(u"0171;0172");
    CHECK(form.Line() == u"GSM · 1 SMS × 2 = 2 · 155 frei");
    // In the hexadecimal view the digits are what is sent.
    form.program.messageText.ButtonHex_Click();
    CHECK(form.Line() == u"GSM · 1 SMS × 2 = 2 · 150 frei");
    form.program.formSmsSend.Unload();
    form.program.formSmsSend.Open({});
    CHECK(form.Line() == u"GSM · 1 SMS × 2 = 2 · 155 frei");
    // A chosen item of the list takes the field's place.
    form.view.TextTo().items = {u"0173"};
    form.view.TextTo().Choose(0);
    CHECK(form.Line() == u"GSM · 1 SMS · 155 frei");
    form.program.messageText.Replace(u"");
    CHECK(form.Line() == u"GSM · 1 SMS · 160 frei");
    form.SetSetting(u"SMS", u"AirCount", u"0");
    form.program.formSmsSend.ApplySettings();
    form.Type(u"x");
    CHECK(form.Line().empty());
    CHECK(form.view.LabelStatus().Caption() == u"Zeichen: 1/160");
}

TEST_CASE("before characters get lost the user is asked, and can replace them or go back") {
    struct Case {
        TextView text;
        std::deque<Answer> answers;
        std::vector<TextView> named;  // one question each
        const char* queued;           // null: the form stays open
        TextView left;                // in the box then, or the text of the next form
    };
    const TextView zazolc = u"Zażółć — ж";
    const TextView all = u"ż → ?    ł → l    ć → ?    ж → ?";
    for (const Case& c :
         {Case{u"Grüße — €\u2011",
               {},
               {},
               "1\tGr\xFC\xDF"
               "e \x97 \x80-",
               u"Grüße — €\u2011"},
          {zazolc, {Answer::No}, {all}, "1\tZa?\xF3l? \x97 ?", zazolc},
          {zazolc, {Answer::Cancel}, {all}, nullptr, zazolc},
          {zazolc,
           {Answer::Yes, Answer::No},
           {all, u"ж → ?"},
           "1\tZaz\xF3lc \x97 ?",
           u"Zazólc — ж"},
          {zazolc, {Answer::Yes, Answer::Cancel}, {all, u"ж → ?"}, nullptr, u"Zazólc — ж"},
          {u"e\u0301 \u2009ł",
           {Answer::Yes},
           {u"U+0301 → ?    Leerzeichen (U+2009) → ?    ł → l"},
           "1\t\xE9  l",
           u"é  l"},
          {u"абвгдежзийкл",
           {Answer::No},
           {u"а → ?    б → ?    в → ?    г → ?    д → ?    е → ?    "
            u"ж → ?    з → ?    и → ?    й → ?    …"},
           "1\t????????????",
           u"абвгдежзийкл"}}) {
        CAPTURE(Text(c.text));
        OnAir form;
        form.StartSender();
        form.view.TextTo().SetText(u"1");
        form.Type(c.text);
        form.platform.dialogs.answers = c.answers;
        CHECK(form.program.submission.ButtonSend_Click_(false, true, {}, {}) == !!c.queued);
        auto& shown = form.platform.dialogs.shown;
        REQUIRE(shown.size() == c.named.size());
        for (std::size_t i = 0; i < shown.size(); ++i) {
            CHECK(EndsWith(shown[i].text, Text(u"\r\r").append(c.named[i])));
            const bool replaceable = c.named[i].find(u'→') != c.named[i].rfind(u'→');
            CHECK(shown[i].choices.size() == (replaceable && c.text[0] != u'а' ? 3 : 2));
        }
        CHECK(form.view.Loaded() == !c.queued);
        if (c.queued) {
            CHECK(form.platform.fileSystem.files[u"C:\\Temp\\sms1.tmp"].contents == c.queued);
            form.program.formSmsSend.Open({});
            // The settings file is in the code page, too.
            CHECK(form.view.Message().GetText() ==
                  ThroughQueue(c.left, form.platform.locale).arrives);
            continue;
        }
        CHECK(form.view.Message().GetText() == c.left);
        CHECK(form.view.Message().HasFocus());
        form.view.Message().Undo();
        CHECK(form.view.Message().GetText() == c.text);
        // It is sent later, or closed.
        form.platform.dialogs.answers = {Answer::No};
        CHECK(form.program.submission.ButtonSend_Click_(false, false, {}, {}));
        CHECK_FALSE(form.view.Loaded());
    }
}

TEST_CASE("a replacement that does not fit is said to be none, and nothing is queued") {
    OnAir form;
    form.platform.dialogs.answers = {Answer::Yes};
    const Text text = Text(797, u'x') + u"→→";
    form.Type(text);
    CHECK_FALSE(form.program.submission.ButtonSend_Click_(false, true, u"1", {}));
    CHECK(StartsWith(form.platform.dialogs.shown.back().text,
                     u"Mit den Ersatzzeichen wird der Text zu lang"));
    CHECK(form.view.Message().GetText() == text);
    CHECK(form.Registry(QueueKey, u"cOut").empty());
}

TEST_CASE("nothing is asked of digits, without the setting, or once the answer is remembered") {
    OnAir form;
    const auto asked = [&](TextView text, std::deque<Answer> answers) {
        form.platform.dialogs.shown.clear();
        form.platform.dialogs.answers = std::move(answers);
        form.program.formSmsSend.Open({});
        form.Type(text);
        form.program.submission.ButtonSend_Click_(false, true, u"1", {});
        std::size_t count = 0;
        for (const auto& box : form.platform.dialogs.shown)
            count += box.text.find(u'→') != Text::npos;
        return count;
    };
    form.program.messageText.ButtonHex_Click();
    CHECK(asked(u"ж", {}) == 0);
    form.platform.dialogs.check = true;
    // To go back is no answer for ever.
    CHECK(asked(u"ł", {Answer::Cancel}) == 1);
    CHECK(asked(u"ł", {Answer::Yes}) == 1);
    CHECK(asked(u"ł", {}) == 0);
    // What cannot be replaced is asked for all the same.
    CHECK(asked(u"łж", {Answer::No}) == 1);
    CHECK(asked(u"łж", {}) == 0);
    form.program.questionBox.ForgetAnswers();
    CHECK(asked(u"ж", {Answer::No}) == 1);
    form.program.questionBox.ForgetAnswers();
    form.SetSetting(u"SMS", u"AskLostCharacters", u"0");
    CHECK(asked(u"ж", {}) == 0);
}

TEST_CASE("the preview shows the SMS, marks what is dear or lost, and says what it costs") {
    struct Case {
        Text text;
        Text parts;
        std::vector<Text> rows;
    };
    for (const Case& c :
         {Case{u"Hallo", u"SMS 1 von 1 (5/160)\r\nHallo", {}},
          {Text(152, u'x') + u"€[€xxx",
           u"SMS 1 von 2 (152/153)\r\n" + Text(152, u'x') +
               u"\r\n\r\nSMS 2 von 2 (9/153)\r\n€[€xxx",
           {u"€\tzählt doppelt\tkein Ersatz", u"[\tzählt doppelt\tkein Ersatz"}},
          {Text(150, u'x') + u" — ‹ø›",
           u"SMS 1 von 3 (67/67)\r\n" + Text(67, u'x') + u"\r\n\r\nSMS 2 von 3 (67/67)\r\n" +
               Text(67, u'x') + u"\r\n\r\nSMS 3 von 3 (22/67)\r\n" + Text(16, u'x') +
               u" <—> <‹>ø<›>",
           {u"—\tmacht 3 SMS statt 1\tersetzbar durch -",
            u"‹\tmacht 3 SMS statt 1\tersetzbar durch '",
            u"›\tmacht 3 SMS statt 1\tersetzbar durch '"}},
          {u"½\u00A0l\u00AD",
           u"SMS 1 von 1 (4/70)\r\n<½\u00A0>l<\u00AD>",
           {u"½\tnur in Unicode\tkein Ersatz",
            u"geschütztes Leerzeichen\tnur in Unicode\tersetzbar durch Leerzeichen",
            u"bedingter Trennstrich\tnur in Unicode\tkann entfallen"}},
          {u"\u2009\u200B\u2028",
           u"SMS 1 von 1 (3/160)\r\n<???"
           u">",
           {u"Leerzeichen (U+2009)\tkommt an als ?\tersetzbar durch Leerzeichen",
            u"unsichtbar (U+200B)\tkommt an als ?\tkann entfallen",
            u"Zeilenwechsel\tkommt an als ?\tersetzbar durch Zeilenwechsel"}},
          {u"Zdjęć u\u0308 ł\xD83D\xDE00",
           u"SMS 1 von 1 (12/160)\r\nZdj<?"
           u"?> u<?> <l?"
           u"?>",
           {u"ę\tkommt an als ?\tersetzbar durch e", u"ć\tkommt an als ?\tersetzbar durch c",
            u"U+0308\tkommt an als ?\tersetzbar durch ü", u"ł\tkommt an als l\tersetzbar durch l",
            u"\xD83D\xDE00\tkommt an als ??\tkein Ersatz"}}}) {
        CAPTURE(c.text);
        OnAir form;
        form.Type(c.text);
        form.program.formSmsSend.AirCount_Click();
        CHECK(form.previewView.TextParts().text == c.parts);
        CHECK(form.previewView.ListCharacters().items == c.rows);
        CHECK(form.previewView.LabelCount().Caption() == form.Line());
        const auto replaceable = [](const Text& row) { return row.find(u"kein") == Text::npos; };
        CHECK(form.previewView.ButtonReplaceAll().Enabled() ==
              std::any_of(c.rows.begin(), c.rows.end(), replaceable));
        CHECK(form.previewView.ButtonReplace().Enabled() ==
              (!c.rows.empty() && replaceable(c.rows[0])));
        CHECK(form.view.Message().GetText() == c.text);
    }
}

TEST_CASE("the preview replaces what it is told to, and one undo brings all of it back") {
    OnAir form;
    FormSmsPreview& preview = form.program.formSmsPreview;
    const Text text = u"„a“ — „b“…ж";
    form.Type(text);
    form.view.Message().Select(4, 0);
    CHECK(form.program.formSmsSend.Form_KeyDown(u'P', key::Control));
    const auto choose = [&](TextView character) {
        form.previewView.ListCharacters().ChooseItem(character);
        preview.ListCharacters_Click();
    };
    choose(u"ж");
    CHECK_FALSE(form.previewView.ButtonReplace().Enabled());
    preview.ButtonReplace_Click();
    CHECK(form.view.Message().GetText() == text);
    choose(u"„");
    CHECK(form.previewView.ButtonReplace().Enabled());
    preview.ButtonReplace_Click();
    CHECK(form.view.Message().GetText() == u"\"a“ — \"b“…ж");
    CHECK(form.view.Message().SelectionStart() == 4);
    CHECK(form.previewView.ListCharacters().Count() == 4);
    preview.ButtonReplaceAll_Click();
    CHECK(form.view.Message().GetText() == u"\"a\" - \"b\"...ж");
    CHECK(form.previewView.ListCharacters().items.size() == 1);
    CHECK(form.Line() == u"GSM · 1 SMS · 147 frei · verloren: 1");
    preview.ButtonOK_Click();
    CHECK_FALSE(form.previewView.Loaded());
    form.view.Message().Undo();
    CHECK(form.view.Message().GetText() == text);

    // What is one character for a reader is cut where the SMS ends, and the preview says so.
    form.platform.locale.holdsAll = true;
    form.Type(Text(65, u'x') + u"\xD83D\xDC4D\xD83C\xDFFD" + Text(5, u'ж'));
    preview.Show();
    CHECK(form.previewView.TextParts().text ==
          u"SMS 1 von 2 (67/67)\r\n" + Text(65, u'x') +
              u"<\xD83D\xDC4D>\r\n(Hier wird ein Zeichen zerteilt.)\r\n\r\n"
              u"SMS 2 von 2 (7/67)\r\n<\xD83C\xDFFDжжжжж>");
    CHECK(form.previewView.ListCharacters().items.back() == u"ж\tmacht 2 SMS statt 1\tkein Ersatz");
    form.platform.locale.holdsAll = false;

    // A text that fills the box has no room for "...", but for the rest; nothing of it is cut.
    form.Type(Text(797, u'x') + u"—…");
    preview.Show();
    preview.ButtonReplaceAll_Click();
    CHECK(form.view.Message().GetText() == Text(797, u'x') + u"-…");
    // It goes with the form.
    form.program.formSmsSend.Unload();
    CHECK_FALSE(form.previewView.Loaded());
    CHECK(form.program.forms.Count() == 0);
}
