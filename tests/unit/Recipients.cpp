// Phone numbers, prefixes, the number list and the templates.
#include <doctest.h>

#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct OpenedForm : TestProgram {
    void Open() { program.formSmsSend.Open({}); }
    Text Number(int position) {
        return Setting(u"SMSNumberList", u"Number" + NumberText(position));
    }
    void SetNumbers(int first, int last) {
        for (int position = first; position <= last; ++position) {
            SetSetting(u"SMSNumberList", u"Number" + NumberText(position), NumberText(position));
        }
    }
    MemoryComboBox& To() { return view.TextTo(); }
};

std::vector<Text> List(TestProgram& test, TextView text, TextView separator, bool keepEmpty,
                       bool quoted) {
    std::vector<Text> list;
    const std::int32_t bound =
        test.program.prefixes.GetList(list, text, separator, keepEmpty, false, quoted);
    CHECK(bound == std::int32_t(list.size()) - 1);
    return list;
}

using TwoTexts = std::pair<TextView, TextView>;

}  // namespace

TEST_CASE("ConvertPhoneNumber keeps what a phone can dial") {
    TestProgram test;
    for (const auto& [number, converted] :
         {TwoTexts{u"(0049) 171-234 56 78", u"491712345678"},
          TwoTexts{u"0049 171 2345678", u"+491712345678"}, TwoTexts{u"0 0 49 171", u"+49171"},
          TwoTexts{u"+ +49 171", u"+49171"}, TwoTexts{u"+++49", u"++49"}, TwoTexts{u"++++", u"++"},
          TwoTexts{u"0171/2345678 p 12", u"01712345678p12"}, TwoTexts{u"Tel. 0171 P 3", u"0171P3"},
          TwoTexts{u"#31#0171", u"#31#0171"}, TwoTexts{u"*100#", u"*100#"}, TwoTexts{u"", u""},
          TwoTexts{u"abc xyz", u""}, TwoTexts{u"((0000", u"+"}, TwoTexts{u"(00(00", u""},
          TwoTexts{u"000", u"+0"}, TwoTexts{u"0000", u"+00"}, TwoTexts{u"\uFF11\u00E412", u"12"}}) {
        CHECK(test.program.prefixes.ConvertPhoneNumber(number) == converted);
    }
}

TEST_CASE("GetNumber takes the number at the end and makes it national") {
    struct Case {
        TextView setting, entry, number;
    };
    for (const Case& c :
         {Case{u"+49", u"Meier, Hans  (+491712345678)", u"01712345678"},
          Case{u"+49", u"Meier, Hans  (+4901712345678)", u"01712345678"},
          Case{u"+49 +43", u"Hans (0171 2345678)", u"2345678"},
          Case{u"49", u"Anna  (+4930123)", u"030123"}, Case{u"49", u"Anna  (+49030123)", u"030123"},
          Case{u"49", u"Anna  (+4330123)", u"+4330123"}, Case{u"49 43", u"(+4330123)", u"030123"},
          // An empty setting gives the one entry "+".
          Case{u"", u"+491712345678", u"0491712345678"},
          Case{u"", u"+4901712345678", u"04901712345678"}, Case{u"", u"0171", u"0171"},
          Case{u"+49  +43", u"+4330", u"030"}, Case{u"+49", u"", u""},
          Case{u"+49", u"Anna", u""}}) {
        CAPTURE(c.setting);
        CAPTURE(c.entry);
        TestProgram test;
        if (!c.setting.empty()) test.SetSetting(u"Prefixes", u"Remove0InPrefixes", c.setting);
        CHECK(test.program.prefixes.GetNumber(c.entry) == c.number);
    }
    // A list of one entry is read again at every call, a longer one is kept.
    TestProgram test;
    test.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    CHECK(test.program.prefixes.GetNumber(u"+431") == u"+431");
    test.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+43 +41");
    CHECK(test.program.prefixes.GetNumber(u"+431") == u"01");
    test.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    CHECK(test.program.prefixes.GetNumber(u"+431") == u"01");
}

TEST_CASE("the country table is one column short") {
    struct Case {
        TextView four, three;
        std::vector<Text> rowFour, rowThree;
    };
    for (const Case& c :
         {Case{u"+49 +43 +41", u"", {u"+49", u"+43"}, {u"", u""}},
          Case{u"49 43", u"33", {u"+49"}, {u"+33"}}, Case{u"49", u"", {u"+49"}, {u""}},
          Case{u"", u"", {u""}, {u""}},
          Case{u"49  43", u"31 32 33 34", {u"+49", u"+", u"+43"}, {u"+31", u"+32", u"+33"}}}) {
        TestProgram test;
        test.SetSetting(u"Prefixes", u"Countrycodes4", c.four);
        test.SetSetting(u"Prefixes", u"Countrycodes3", c.three);
        Prefixes::Table table;
        CHECK(test.program.prefixes.ReadPrefixes(table) == std::int32_t(c.rowFour.size()) - 1);
        CHECK(table[4] == c.rowFour);
        CHECK(table[3] == c.rowThree);
        CHECK(table[0] == std::vector<Text>(c.rowFour.size()));
    }
}

TEST_CASE("GetList splits, replaces and drops as it always did") {
    TestProgram test;
    using Texts = std::vector<Text>;
    CHECK(List(test, u"a b", u" ", false, false) == Texts{u"a", u"b"});
    CHECK(List(test, u"", u" ", true, false) == Texts{u""});
    CHECK(List(test, u"a  b", u" ", true, false) == Texts{u"a", u"(no)", u"b"});
    CHECK(List(test, u"a,", u",", true, false) == Texts{u"a"});
    CHECK(List(test, u"a,,", u",", false, false) == Texts{u"a"});
    CHECK(List(test, u",a", u",", false, false) == Texts{u"", u"a"});
    CHECK(List(test, u"a,x+CGMIy,b", u",", false, false) == Texts{u"a", u"b"});
    CHECK(List(test, u"\"a,b\",c", u",", false, true) == Texts{u"\"a,b\"", u"c"});
    CHECK(List(test, u"c,\"a,b", u",", false, true) == Texts{u"c", u"\"a", u"b"});
    Text many;
    for (int element = 0; element < 300; ++element) many += u"x;";
    CHECK(List(test, many, u";", false, false).size() == 201);
}

// The lists are read to their first gap: the fuzz targets "numbers" and "templates".
TEST_CASE("AddNumberToList: cells, shown items and growth") {
    OpenedForm form;
    form.SetRegistry(Text(RootKey) + u"\\Settings", u"SaveIn", u"2");
    form.program.inifilesLite.GetIniFile();
    form.Open();
    auto& log = form.To().items;
    RecipientField field(form.program.services, form.program.prefixes, form.program.addresses,
                         form.program.recipientPeople, form.To(), form.view.ListBoxNumbers(),
                         form.view.StatusBar1(), form.view.ProgressBar1(), [](std::int32_t) {});
    field.NumUsedNumber = 2;
    field.GetListNumbers();
    using Texts = std::vector<Text>;
    struct Step {
        TextView number;
        Texts shown;
    };
    for (const Step& step : {Step{u"a", {u"a"}}, Step{u"b", {u"b", u"a"}},
                             Step{u"c", {u"c", u"b"}},        // the third cell is not shown
                             Step{u"b", {u"c", u"b"}},        // known: stays where it is
                             Step{u"d", {u"d", u"c", u"b"}},  // all full: grows by one
                             Step{u"e", {u"e", u"d", u"c", u"b"}}}) {
        field.AddNumberToList(step.number);
        CHECK(log == step.shown);
    }
    field.Save();
    CHECK(form.Number(5) == u"a");
    CHECK(form.Number(6).empty());
    // Nothing is written for the ten thousand cells without a number that a setting may want.
    field.NumUsedNumber = 10000;
    field.AddNumberToList(u"f");
    field.Save();
    CHECK(form.Number(6) == u"a");
    CHECK(form.platform.registry.writes.size() < 100);
}

TEST_CASE("clearing the list asks, empties one key more than items, and starts anew") {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        OpenedForm form;
        form.SetNumbers(1, 3);
        form.SetNumbers(5, 7);
        form.Open();
        const Text clear = form.program.language.TextOrBuiltIn(u"FormSmsSend", u"ListClear");
        CHECK(form.To().items == std::vector<Text>{u"1", u"2", u"3", clear});
        CHECK(form.To().selected == 0);
        CHECK(form.To().GetText().empty());  // the last recipient, of which there is none
        form.To().SetText(u"0171");
        form.platform.dialogs.shown.clear();
        form.platform.dialogs.answers = {answer};
        form.To().Choose(3);
        REQUIRE(form.platform.dialogs.shown.size() == 1);
        CHECK(form.platform.dialogs.shown[0].flags == box::YesNo);
        const bool cleared = answer == Answer::Yes;
        CHECK(form.To().items.size() == (cleared ? 0 : 4));
        CHECK(form.Number(1).empty() == cleared);
        CHECK(form.Number(5).empty() == cleared);
        CHECK(form.Number(6) == u"6");
        CHECK(form.To().GetText() == u"0171");
        if (!cleared) continue;
        form.view.Message().SetText(u"x");
        form.platform.dialogs.answers = {Answer::No};
        form.program.submission.ButtonSend_Click();
        CHECK(form.Number(1) == u"0171");
        CHECK(form.Number(2).empty());
    }
}

TEST_CASE("templates are added once each, inserted over what is marked, deleted and saved") {
    OpenedForm form;
    form.Open();
    auto& box = form.view.ComboBoxTextbausteine();
    auto& events = form.program.textTemplates;
    for (const TextView text : {u"b", u"", u"A", u"c\\13\\10d", u"b", u"B", u"Z"}) {
        box.SetText(text);
        events.ButtonAdd_Click();
    }
    CHECK(box.items == std::vector<Text>{u"A", u"b", u"B", u"c\\13\\10d", u"Z"});
    CHECK(box.selected == 4);
    form.view.Message().SetText(u"x12y");
    form.view.Message().Select(1, 2);
    box.SetSelectedIndex(3);
    box.SetFocus();
    CHECK(form.program.formSmsSendRouter.Form_KeyDown(key::Enter, 0));
    CHECK(form.view.Message().GetText() == u"xc\r\ndy");
    form.program.formSmsSend.Unload();
    form.Open();
    form.program.formSmsSend.ButtonExpand_Click();
    CHECK(box.items.size() == 5);
    for (int left = 5; left > 0; --left) {
        box.SetSelectedIndex(0);
        events.ButtonDel_Click();
    }
    CHECK(box.items.empty());
    events.ButtonDel_Click();
    form.program.formSmsSend.Unload();
    CHECK(form.Setting(u"Texte", u"Text0").empty());
    CHECK(form.Setting(u"Texte", u"Text4").empty());
}

TEST_CASE("SortList orders by lower-cased character codes and keeps the letters") {
    TestProgram test;
    std::vector<Text> list{u"\u00E4", u"z", u"B", u"a", u"", u"A", u"_"};
    SortList(test.program.debug, list, -1);
    CHECK(list == std::vector<Text>{u"", u"_", u"a", u"A", u"B", u"z", u"\u00E4"});
    list = {u"c", u"b", u"a"};  // up to a bound
    SortList(test.program.debug, list, 1);
    CHECK(list == std::vector<Text>{u"b", u"c", u"a"});
    list.clear();
    SortList(test.program.debug, list, -1);
    CHECK(list.empty());
}
