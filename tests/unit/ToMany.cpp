// One text to many, each by name: the fields, who a recipient is, and what is queued.
#include <doctest.h>

#include "compose/PersonalTexts.h"
#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

// Outlook with people in it, whom the address list knows, and a form that is open.
struct ToMany : Host {
    explicit ToMany(bool read = true) {
        anna = Add(u"Anna Berger", u"Berger, Anna", u"+49 171 1000001", u"Nordwerk");
        hans = Add(u"Dr. Hans von der Heide", u"von der Heide, Hans", u"+49 172 2000002", u"");
        Add(u"Eva Ost", u"", u"+49 173 3000003", u"");
        Add(u"Ida Ost", u"", u"0173 3000003", u"");
        const auto list = outlook.AddItem(outlook::DistributionListClass, {{u"DLName", u"Skat"}});
        list->people = {{u"Ida Ost", u"i@x"}, {u"Anna Berger", u"a@x"}};
        StartSender();
        SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
        Connect();
        if (read) program.addresses.Refresh();
        Settle();
    }
    std::shared_ptr<standin::Item> Add(TextView name, TextView fileAs, TextView mobile,
                                       TextView company) {
        return outlook.AddItem(outlook::ContactClass, {{u"FullName", name},
                                                       {u"FileAs", fileAs},
                                                       {u"MobileTelephoneNumber", mobile},
                                                       {u"CompanyName", company}});
    }
    void Write(TextView recipients, TextView text) {
        program.formSmsSend.Open({});
        view.TextTo().SetText(recipients);
        view.Message().SetText(text);
    }
    std::size_t TempFiles() { return platform.fileSystem.FileNames(u"C:\\Temp\\", u".tmp").size(); }
    std::shared_ptr<standin::Item> anna, hans;
};

const Text Both = u"01711000001;01722000002";

FilledText Fill(TextView text, const std::vector<FieldPlace>& places, const Person& person) {
    return TextFields::FillWith(text, places,
                                [&](Field field) { return TextFields::NameOf(person, field); });
}

}  // namespace

TEST_CASE("first and last name are told from a name as it is written") {
    struct Case {
        TextView name, fileAs, company, first, last;
    };
    for (const Case& c :
         {Case{u"Anna Berger", u"Berger, Anna", u"", u"Anna", u"Berger"},
          {u"Anna Maria Berger", u"", u"", u"Anna", u"Berger"},
          {u"Dr. Anna Berger Jr.", u"", u"", u"Anna", u"Berger"},
          {u"Frau Anna Berger", u"", u"", u"Anna", u"Berger"},
          {u"Ludwig van Beethoven", u"", u"", u"Ludwig", u"van Beethoven"},
          {u"Juan García López", u"García López, Juan", u"", u"Juan", u"García López"},
          {u"Berger, Anna", u"", u"", u"Anna", u"Berger"},
          {u"Anna Berger", u"Nordwerk (Berger, Anna)", u"Nordwerk", u"Anna", u"Berger"},
          {u"Anna Berger", u"Berger, Anna  Nordwerk", u"Nordwerk", u"Anna", u"Berger"},
          // Filed under another name.
          {u"Anna Berger", u"Klempner, der gute", u"", u"Anna", u"Berger"},
          {u"Mama", u"", u"", u"Mama", u""},
          {u"Nordwerk", u"", u"nordwerk", u"", u""},
          {u"", u",", u"", u"", u""}}) {
        CAPTURE(Text(c.name));
        const Person person = PersonNamed(c.name, c.fileAs, c.company);
        CHECK(person.firstName == c.first);
        CHECK(person.lastName == c.last);
        CHECK(person.fullName == c.name);
    }
}

TEST_CASE("fields are words in braces, and what is not known goes with the blank beside it") {
    struct Case {
        TextView text;
        Text all, none;  // of somebody, and of nobody
        std::size_t fields;
    };
    TestProgram test;
    const TextFields& fields = test.program.textFields;
    const Person person{u"Anna", u"Berger", u"Anna Berger", u"Nordwerk"};
    for (const Case& c :
         {Case{u"Hallo {Vorname}!", u"Hallo Anna!", u"Hallo!", 1},
          {u"{vorname} {NACHNAME}, {Name} {Firma}", u"Anna Berger, Anna Berger Nordwerk", u",", 4},
          {u"{First name}{ lastname }", u"AnnaBerger", u"", 2},
          {u"Liebe {Vorname} {Nachname}", u"Liebe Anna Berger", u"Liebe", 2},
          {u"{Vorname} komm\r\n{Firma} x", u"Anna komm\r\nNordwerk x", u"komm\r\nx", 2},
          {u"{Firma} \r\na\r\n\r\n{Firma}", u"Nordwerk \r\na\r\n\r\nNordwerk", u"a\r\n", 2},
          {u"an{Vorname} b {Vorname}c", u"anAnna b Annac", u"an b c", 2},
          {u"{Vorname, {x} {} {Vor name} }{", u"{Vorname, {x} {} Anna }{", u"{Vorname, {x} {} }{",
           1},
          {u"{{Name}} Vorname}", u"{Anna Berger} Vorname}", u"{} Vorname}", 1},
          {u"{Anrede}", u"{Anrede}", u"{Anrede}", 0}}) {
        CAPTURE(Text(c.text));
        const std::vector<FieldPlace> places = fields.Find(c.text);
        CHECK(places.size() == c.fields);
        CHECK(Fill(c.text, places, person).text.text == c.all);
        const FilledText nobody = Fill(c.text, places, {});
        CHECK(nobody.text.text == c.none);
        CHECK(nobody.missing.empty() == places.empty());
    }
    const FilledText filled =
        Fill(u"Hi {Name} {Firma} {Firma}", fields.Find(u"Hi {Name} {Firma} {Firma}"),
             {u"", u"", u"Eva", u""});
    CHECK(filled.missing == std::vector<Field>{Field::Company});
    REQUIRE(filled.text.marks.size() == 1);
    CHECK(filled.text.marks[0].start == 3);
    CHECK(filled.text.marks[0].length == 3);
}

TEST_CASE("recipients are the people whom the user chose, or who alone have the number") {
    ToMany form;
    const auto names = [&] {
        Text all;
        for (const PersonalText& each : form.program.personalTexts.All())
            all += each.filled.text.text + u"|";
        return all;
    };
    // Typed: with its prefix or without, whoever is alone with it; another network's is nobody's.
    form.Write(u"0171 1000001, +491722000002; 01733000003; 01761000001;01722000002;112",
               u"{Vorname}-{Nachname}-{Firma}");
    CHECK(names() == u"Anna-Berger-Nordwerk|Hans-von der Heide-|--|--|Hans-von der Heide-|--|");
    // From the match list, by the name that was chosen.
    form.view.TextTo().SetText(u"ida");
    form.program.recipientField.TakeMatch(true);
    CHECK(form.view.TextTo().GetText() == u"01733000003");
    CHECK(names() == u"Ida-Ost-|");
    form.program.recipientField.Add(u"01733000003;01711000001");
    CHECK(names() == u"Ida-Ost-|Anna-Berger-Nordwerk|");
    // What was chosen goes with the form.
    form.program.formSmsSend.Unload();
    form.Write(u"01733000003", u"{Vorname}");
    CHECK(names() == u"|");
    // A distribution list's number is its member's.
    form.view.TextTo().SetText(u"skat");
    form.program.recipientField.TakeMatch(true);
    form.view.Message().SetText(u"{Name}");
    CHECK(names() == u"Ida Ost|Anna Berger|");
    form.program.formSmsSend.Unload();
    // Of a contact selected in Outlook, what it says itself.
    form.anna->SetField(u"FirstName", u"Annegret");
    form.outlook.Select(form.first, {form.anna});
    form.outlook.ClickButton(Host::Button(form.first));
    form.view.Message().SetText(u"{Vorname} {Nachname}");
    CHECK(names() == u"Annegret Berger|");
    // Chosen in the selection window.
    form.program.formSmsSend.ButtonTo_Click();
    form.selectAddressView.TextSearch().SetText(u"eva");
    form.program.formSmsSelectAddress.ButtonAdd_Click();
    form.program.formSmsSelectAddress.ButtonOK_Click();
    CHECK(names() == u"Annegret Berger|Eva Ost|");
    form.Disconnect();
}

TEST_CASE("a text with fields becomes one entry for each recipient, any other one for all") {
    ToMany form;
    form.Write(Both + u";01711000001", u"Hallo {Vorname}, Grüße");
    CHECK(form.Send());
    CHECK(form.Queued() == std::vector<std::string>{"01711000001\tHallo Anna, Gr\xFC\xDF"
                                                    "e",
                                                    "01722000002\tHallo Hans, Gr\xFC\xDF"
                                                    "e"});
    CHECK(form.Registry(QueueKey, u"cOut") == u"2");
    CHECK(form.platform.messageLoop.posted.size() == 1);
    CHECK_FALSE(form.view.Loaded());
    CHECK(form.Setting(u"SMS", u"LastText") == u"Hallo {Vorname}, Grüße");
    CHECK(form.Setting(u"SMSNumberList", u"Number1") == Both + u";01711000001");
    // The last run can be seen.
    form.platform.clock.now = 46348.25;
    form.Write(Both, u"{Name}");
    CHECK(form.Send());
    CHECK(form.platform.fileSystem.files[u"C:\\Data\\Tellwick\\lastrun.txt"].contents ==
          "\xEF\xBB\xBF"
          "2026-11-22 06:00: 2 SMS mit Feldern an Tellwick \xC3\xBC"
          "bergeben\r\n\r\nAnna Berger (01711000001)\r\nDr. Hans von der Heide (01722000002)\r\n");
    form.Write(Both, u"{Vornam} }{");
    CHECK(form.Send());
    CHECK(form.Queued().back() == "01711000001;01722000002\t{Vornam} }{");
    // Digits are sent as they stand.
    form.Write(u"1", u"{Name}");
    form.program.messageText.ButtonHex_Click();
    CHECK(form.Send());
    CHECK(form.Queued().back() == "1\t7B4E616D657D");
    // Where numbers are not to be remembered, nobody is.
    form.SetSetting(u"SMS", u"StoreNumbers", u"0");
    form.Write(Both, u"{Name}");
    CHECK(form.Send());
    CHECK_FALSE(form.program.lastRun.Known());
    // No recipient between the separators.
    form.Write(u" ; ", u"{Name}");
    CHECK_FALSE(form.Send());
    CHECK(form.platform.dialogs.shown.back().text == u"Bitte geben Sie einen Empfänger ein.");
    form.Disconnect();
}

TEST_CASE("whom a name is missing of is asked for once, and a text that does not fit is refused") {
    struct Case {
        Text to, text;
        std::deque<Answer> answers;
        Text told;  // the last lines of the last box
        std::size_t choices;
        std::vector<std::string> queued;  // empty: the form stays open
    };
    const Text hans = u"Dr. Hans von der Heide (01722000002)";
    for (const Case& c :
         {Case{Both,
               u"An {Firma}!",
               {Answer::Yes},
               hans + u": Firma",
               3,
               {"01711000001\tAn Nordwerk!", "01722000002\tAn!"}},
          {Both, u"An {Firma}!", {Answer::No}, hans + u": Firma", 3, {"01711000001\tAn Nordwerk!"}},
          {Both, u"An {Firma}!", {Answer::Cancel}, hans + u": Firma", 3, {}},
          // Nobody would be left.
          {u"112", u"{Vorname} {Firma} x", {Answer::No}, u"112: Vorname, Firma", 2, {}},
          {u"112;01711000001",
           u"{Firma}",
           {Answer::Yes},
           u"112\r\rEs wurde nichts gesendet.",
           0,
           {}},
          {Both,
           Text(760, u'x') + u"{Nachname}",
           {},
           hans + u"\r\rEs wurde nichts gesendet.",
           0,
           {}},
          {u"01711000001",
           Text(750, u'x') + u"{Nachname}",
           {},
           {},
           0,
           {"01711000001\t" + std::string(750, 'x') + "Berger"}}}) {
        CAPTURE(c.text);
        ToMany form;
        form.platform.dialogs.shown.clear();
        form.Write(c.to, c.text);
        CHECK(form.Send(c.answers) == !c.queued.empty());
        CHECK(form.Queued() == c.queued);
        CHECK(form.TempFiles() == c.queued.size());
        CHECK(form.view.Loaded() == c.queued.empty());
        if (!c.told.empty()) {
            REQUIRE(!form.platform.dialogs.shown.empty());
            CHECK(EndsWith(form.platform.dialogs.shown.back().text, c.told));
            CHECK(form.platform.dialogs.shown.back().choices.size() == c.choices);
            CHECK(form.platform.dialogs.shown.back().checkBoxText.empty());
        }
        if (c.queued.empty()) {
            CHECK(form.view.Message().HasFocus());
            // Corrected, it goes.
            form.view.Message().SetText(u"x");
            CHECK(form.Send());
        }
        form.Disconnect();
    }
}

TEST_CASE("names that would lose characters are asked for like any text") {
    ToMany form;
    form.Add(u"Zbyłut Ost", u"", u"0174 4000004", u"");
    form.program.addresses.Refresh();
    form.Settle();
    form.Write(u"01744000004", u"{Vorname} €");
    CHECK_FALSE(form.Send({Answer::Cancel}));
    CHECK(EndsWith(form.platform.dialogs.shown.back().text, u"\r\rł → l"));
    CHECK(form.Send({Answer::Yes}));
    CHECK(form.Queued() == std::vector<std::string>{"01744000004\tZbylut \x80"});
    form.Disconnect();
}

TEST_CASE("when one file of many cannot be written, none is queued, and nothing is left behind") {
    Text recipients;
    for (int number = 0; number < 40; ++number)
        recipients += u"0171100" + NumberText(1000 + number) + u";";
    for (const int failing : {1, 3, 40, 0}) {
        CAPTURE(failing);
        ToMany form;
        int created = 0, pumped = 0;
        form.platform.fileSystem.onCreateTempFile = [&] {
            form.platform.clock.milliseconds += 10;
            form.platform.fileSystem.failWrites = ++created == failing;
        };
        // A second click, Escape and the window's frame while it works: the form closes at its end.
        form.platform.messageLoop.onDoEvents = [&] {
            if (created == 40) return;  // told to the sender
            ++pumped;
            CHECK(form.Send());
            CHECK(form.program.formSmsSend.Form_KeyDown(key::Escape, 0));
            form.program.formSmsSend.Form_Close();
            CHECK(form.view.Loaded());
            CHECK(form.Queued().empty());
        };
        form.Write(recipients, u"Hallo {Vorname}!");
        form.platform.dialogs.answers = {Answer::Yes};
        CHECK(form.Send({Answer::Yes}) == (failing == 0));
        CHECK(form.Queued().size() == (failing == 0 ? 40 : 0));
        CHECK(form.TempFiles() == (failing == 0 ? 40 : 0));
        CHECK(form.view.Loaded() == (failing != 0));
        CHECK((pumped > 3) == (failing == 0 || failing == 40));
        if (failing != 0) {
            CHECK(StartsWith(form.platform.dialogs.shown.back().text, u"Error writing file: "));
            form.platform.fileSystem.onCreateTempFile = nullptr;
            form.platform.fileSystem.failWrites = false;
            form.platform.messageLoop.onDoEvents = nullptr;
            CHECK(form.Send({Answer::Yes}));
            CHECK(form.Queued().size() == 40);
        }
        form.Disconnect();
    }
    // Outlook goes in the middle of it: what is typed is saved, and all are queued.
    ToMany form;
    form.platform.fileSystem.onCreateTempFile = [&] { form.platform.clock.milliseconds += 10; };
    bool gone = false;
    form.platform.messageLoop.onDoEvents = [&] {
        if (!std::exchange(gone, true)) form.Disconnect();
    };
    form.Write(recipients, u"Hallo {Vorname}!");
    CHECK(form.Send({Answer::Yes}));
    CHECK(gone);
    CHECK(form.Queued().size() == 40);
    CHECK(form.Setting(u"SMS", u"LastText") == u"Hallo {Vorname}!");
}

TEST_CASE("the status bar sums up what each person gets, and the preview shows it one by one") {
    ToMany form;
    const Text text = u"Liebe/r {Name}, {Firma}: " + Text(128, u'x');
    form.Write(Both + u";112", text);
    CHECK(form.view.StatusBar1().pane == u"GSM · 1–2 SMS × 3 = 4 · 1 frei");
    CHECK(form.view.StatusBar1().shortPane == u"GSM · 4 SMS");
    CHECK(form.program.formSmsSend.Form_KeyDown(u'P', key::Control));
    auto& preview = form.previewView;
    auto& window = form.program.formSmsPreview;
    CHECK(preview.personal);
    CHECK(preview.LabelCount().Caption() == form.view.StatusBar1().pane);
    CHECK(preview.LabelPerson().Caption() == u"Empfänger 1 von 3: Anna Berger (01711000001)");
    CHECK(Contains(preview.TextParts().text, u"Liebe/r [Anna Berger], [Nordwerk]: xxx"));
    CHECK(preview.ListMissing().items ==
          std::vector<Text>{u"Dr. Hans von der Heide (01722000002)\tFirma", u"112\tName, Firma"});
    CHECK_FALSE(preview.ButtonBack().Enabled());
    window.ButtonBack_Click();
    window.ButtonForward_Click();
    CHECK(Contains(preview.TextParts().text, u"Liebe/r [Dr. Hans von der Heide],: xxx"));
    CHECK(preview.ListMissing().selected == 0);
    preview.ListMissing().selected = 1;
    window.ListMissing_Click();
    CHECK(preview.LabelPerson().Caption() == u"Empfänger 3 von 3: 112");
    CHECK_FALSE(preview.ButtonForward().Enabled());
    window.ButtonForward_Click();
    CHECK(Contains(preview.TextParts().text, u"Liebe/r,: xxx"));
    window.ButtonOK_Click();
    // A name's own characters have no replacement in the text.
    form.Add(u"Zbyłut Ost", u"", u"0174 4000004", u"");
    form.program.addresses.Refresh();
    form.Settle();
    form.view.TextTo().SetText(u"01744000004;01711000001");
    form.view.Message().SetText(u"{Vorname} —");
    CHECK(form.view.StatusBar1().pane == u"Unicode · 1 SMS × 2 = 2 · 62 frei · verloren: 1");
    form.program.formSmsSend.AirCount_Click();
    CHECK(EndsWith(preview.TextParts().text, u"[Zby]<l>[ut] <—>"));
    CHECK(preview.ListCharacters().items ==
          std::vector<Text>{u"ł\tkommt an als l\tkein Ersatz",
                            u"—\tnur in Unicode\tersetzbar durch -"});
    // Without a field it is as it was.
    form.view.Message().SetText(u"x");
    CHECK_FALSE(preview.personal);
    CHECK(form.view.StatusBar1().pane == u"GSM · 1 SMS × 2 = 2 · 159 frei");
    form.Disconnect();
}

TEST_CASE("a text with fields has the contacts read, and what it says of them follows") {
    ToMany form(false);
    form.program.formSmsSend.Open(u"01711000001");
    CHECK(form.program.addresses.List().Size() == 0);
    form.view.Message().SetText(u"{Vorname}");
    form.program.formSmsSend.AirCount_Click();
    // Few are read at once.
    CHECK(form.view.StatusBar1().pane == u"GSM · 1 SMS · 156 frei");
    CHECK(form.previewView.LabelCount().Caption() == form.view.StatusBar1().pane);
    CHECK(EndsWith(form.previewView.TextParts().text, u"[Anna]"));
    form.Disconnect();
}

TEST_CASE("the menu puts a field in at the caret, and opens the last run when there is one") {
    ToMany form;
    form.Write(u"01711000001", u"Hallo !");
    form.view.Message().Select(6, 0);
    form.program.fieldMenu.ButtonFields_Click();
    CHECK(form.view.menu == std::vector<Text>{u"{Vorname}", u"{Nachname}", u"{Name}", u"{Firma}"});
    CHECK(form.view.Message().GetText() == u"Hallo !");
    form.view.chosen = 0;
    form.program.fieldMenu.ButtonFields_Click();
    CHECK(form.view.Message().GetText() == u"Hallo {Vorname}!");
    CHECK(form.view.Message().HasFocus());
    // A template may have fields.
    form.view.ComboBoxTextbausteine().text = u"\\13\\10{Name}";
    form.program.textTemplates.ButtonInsert_Click();
    CHECK(form.Send());
    CHECK(form.Queued() == std::vector<std::string>{"01711000001\tHallo Anna\r\nAnna Berger!"});
    form.Write(u"1", u"");
    form.view.chosen = 5;
    form.program.fieldMenu.ButtonFields_Click();
    CHECK(form.view.menu.back() == u"Letzter Versand ...");
    CHECK(form.platform.programs.opened == std::vector<Text>{u"C:\\Data\\Tellwick\\lastrun.txt"});
    form.Disconnect();
}

TEST_CASE("of several distribution lists marked at once each number is shown as its member's") {
    ToMany host;
    const auto choir = host.outlook.AddItem(outlook::DistributionListClass, {{u"DLName", u"Chor"}});
    choir->people = {{u"Dr. Hans von der Heide", u"h@x"}, {u"Eva Ost", u"e@x"}};
    host.outlook.now += 1;
    host.program.addresses.Refresh();
    host.Settle();
    host.program.formSmsSend.Open({});
    host.program.formSmsSend.ButtonTo_Click();
    MemoryListView& rows = host.selectAddressView.ListAddresses();
    for (std::size_t row = 0; row < rows.rows; ++row) {
        if (rows.Cell(row, 1).find(u';') != Text::npos) rows.chosen.push_back(row);
    }
    REQUIRE(rows.chosen.size() == 2);
    host.program.formSmsSelectAddress.ButtonAdd_Click();
    CHECK(host.selectAddressView.ListChosen().items ==
          std::vector<Text>{u"Dr. Hans von der Heide  (01722000002)", u"Eva Ost  (01733000003)",
                            u"Anna Berger  (01711000001)"});
}
