// What the form says of a text on air: the line in the status bar.
#include <doctest.h>

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
    struct Case {
        TextView to;
        Text text;
        TextView line, shortLine;
    };
    const Text x(160, u'x');
    for (const Case& c :
         {Case{u"", u"", u"GSM · 1 SMS · 160 frei", u"GSM · 1 SMS"},
          {u"0171", x + u"y", u"GSM · 2 SMS · 145 frei", u"GSM · 2 SMS"},
          // As the sender splits them; empty ones not.
          {u"0171;, 0172 ;Eva,;", x + u"y", u"GSM · 2 SMS × 3 = 6 · 145 frei", u"GSM · 6 SMS"},
          {u"1;2", u"— x", u"Unicode · 1 SMS × 2 = 2 · 67 frei", u"Unicode · 2 SMS"},
          // What the queue loses is counted as what arrives: here one "?" each.
          {u"1", u"Привет €", u"GSM · 1 SMS · 151 frei · verloren: 6", u"GSM · 1 SMS"},
          {u"1", u"ｘ\u2011", u"GSM · 1 SMS · 158 frei · verloren: 2", u"GSM · 1 SMS"}}) {
        OnAir form;
        form.view.TextTo().SetText(c.to);
        form.Type(c.text);
        CHECK(form.Line() == c.line);
        CHECK(form.view.StatusBar1().shortPane == c.shortLine);
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
