// Reminders of appointments by SMS: what they say, to whom they go, and how they are reached.
#include <doctest.h>

#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

constexpr double Ten = 10.0 / 24;
constexpr double Today = 46000;  // Tuesday, the 9th of December 2025

struct ReminderHost : Host {
    explicit ReminderHost(std::int32_t version, bool redemption = false) : Host(version) {
        if (redemption) {
            platform.automation.factories[u"Redemption.SafeAppointmentItem"] = [this] {
                return outlook.CreateSafeItem(outlook::AppointmentClass);
            };
        }
        platform.clock.now = Today + 0.5;
        Formats(u"dd.MM.yyyy", u"HH:mm:ss");
        eva = Contact(u"Eva Maier", u"0171 1");
        ole = Contact(u"Ole Berg", u"0172 2");
        jo = Contact(u"Jo", u"030 3");
        Contact(u"Me", u"0170 0");
        Contact(u"Berg", u"0179 9");
        item = outlook.AddItem(outlook::AppointmentClass,
                               {{u"Subject", u"Zahnarzt"}, {u"Location", u"Weg 1"}});
        item->appointment->start = Today + 2 + Ten;
        Host::Connect(version >= 12);
    }
    std::shared_ptr<standin::Item> Contact(TextView name, TextView number) {
        return outlook.AddItem(outlook::ContactClass,
                               {{u"FullName", name}, {u"MobileTelephoneNumber", number}});
    }
    void Formats(const Text& date, const Text& time) {
        platform.locale.information[{0x400, 0x1F}] = date + Text(1, u'\0');
        platform.locale.information[{0x400, 0x1003}] = time + Text(1, u'\0');
    }
    // By the appointment's own window, where that has a button, else as the one that is selected.
    void Click() {
        if (outlook.version >= 12) {
            const auto entries = outlook.ribbons.Entries(outlook.OpenInspector(item));
            REQUIRE(entries.size() == 1);
            entries[0].click();
        } else {
            outlook.Select(first, {item});
            outlook.ClickButton(Button(first));
        }
        Settle();
    }
    Text Reminder() {
        Click();
        CHECK(view.Loaded());
        recipients = view.TextTo().GetText();
        const Text text = view.Message().GetText();
        view.TextTo().SetText(u"0999");  // of the last SMS, for the next one
        program.formSmsSend.Unload();
        return text;
    }
    Text Recipients() {
        Reminder();
        return recipients;
    }

    Text recipients;  // of the last reminder
    std::shared_ptr<standin::Item> eva, ole, jo, item;
};

}  // namespace

TEST_CASE("a reminder says what the appointment is, when and where") {
    for (const std::int32_t version : {9, 12, 16}) {
        CAPTURE(version);
        ReminderHost host(version);
        standin::Appointment& appointment = *host.item->appointment;
        CHECK(host.Reminder() == u"Erinnerung: Zahnarzt\r\n11.12.2025 10:00\r\nWeg 1");
        // Asked for its pattern it would have become a series.
        CHECK(appointment.recurrence == standin::NotRecurring);
        for (const std::int32_t sensitivity : {2, 3}) {
            appointment.sensitivity = sensitivity;
            CHECK(host.Reminder() == u"Erinnerung:\r\n11.12.2025 10:00\r\nWeg 1");
        }
        appointment.sensitivity = 1;
        host.item->SetField(u"Location", u"");
        CHECK(host.Reminder() == u"Erinnerung: Zahnarzt\r\n11.12.2025 10:00");
        appointment.allDay = true;
        CHECK(host.Reminder() == u"Erinnerung: Zahnarzt\r\n11.12.2025");
        for (const std::int32_t status : {5, 7}) {
            appointment.meetingStatus = status;
            CHECK(host.Reminder() == u"Abgesagt: Zahnarzt\r\n11.12.2025");
        }
        appointment.meetingStatus = 0;
        host.SetSetting(u"SMS", u"ReminderTextAllDay",
                        u"Hallo {Vorname},\\13\\10{subject} in {Ort} am { datum }, {Uhrzeit}");
        CHECK(host.Reminder() == u"Hallo {Vorname},\r\nZahnarzt in am 11.12.2025,");
        // What cannot be read is not there, and might be private.
        host.outlook.FailMember(u"AppointmentItem", u"Sensitivity", error::Automation);
        CHECK(host.Reminder() == u"Hallo {Vorname},\r\nin am 11.12.2025,");
        host.outlook.FailMember(u"AppointmentItem", u"Sensitivity", 0);
        host.item->SetField(u"Subject", Text(2000, u'x'));
        CHECK(host.Reminder().ends_with(u"..."));
    }
}

TEST_CASE("of a series the next occurrence counts") {
    ReminderHost host(16);
    standin::Appointment& appointment = *host.item->appointment;
    const auto reminder = [&](const standin::Series& series, double start) {
        appointment.recurrence = standin::Master;
        appointment.start = start;
        appointment.series = series;
        return host.Reminder();
    };
    const auto on = [](const Text& date) {
        return u"Erinnerung: Zahnarzt\r\n" + date + u"\r\nWeg 1";
    };
    // Today's is over, and the next one was deleted.
    constexpr std::int32_t Tuesdays = 4;
    CHECK(reminder({standin::Weekly,
                    Tuesdays,
                    0,
                    0,
                    {Today - 7 + Ten, Today + Ten, Today + 14 + Ten},
                    true},
                   Today - 7 + Ten) == on(u"23.12.2025 10:00"));
    CHECK(reminder({standin::Daily, 0, 0, 0, {Today + 0.75}, true}, Today - 70.25) ==
          on(u"09.12.2025 18:00"));
    // The next ones were deleted and moved, one of them to before the others and one into the past.
    const auto tuesdays = [&](std::vector<standin::ChangedOccurrence> changes) {
        return reminder({standin::Weekly,
                         Tuesdays,
                         0,
                         0,
                         {Today + 7 + Ten, Today + 14 + Ten, Today + 21 + Ten},
                         true,
                         std::move(changes)},
                        Today - 7 + Ten);
    };
    CHECK(tuesdays({{Today + 7 + Ten, {}}}) == on(u"23.12.2025 10:00"));
    CHECK(tuesdays({{Today + 7 + Ten, {}}, {Today + 14 + Ten, Today + 15 + Ten}}) ==
          on(u"24.12.2025 10:00"));
    CHECK(tuesdays({{Today + 21 + Ten, Today + 3 + Ten}}) == on(u"12.12.2025 10:00"));
    CHECK(tuesdays({{Today + 7 + Ten, Today - 1}}) == on(u"23.12.2025 10:00"));
    CHECK(tuesdays({{Today + Ten, Today + 0.75}}) == on(u"09.12.2025 18:00"));
    // The last day of each month, a day in every March.
    CHECK(reminder({standin::Monthly, 0, 31, 0, {Today + 53 + Ten, Today + 81 + Ten}, true},
                   Today - 300 + Ten) == on(u"31.01.2026 10:00"));
    constexpr std::int32_t Yearly = 5;
    CHECK(reminder({Yearly, 0, 1, 3, {Today + 82 + Ten}, true}, Today - 300 + Ten) ==
          on(u"01.03.2026 10:00"));
    // One that begins only then, one that has ended, one that comes too late.
    CHECK(reminder({standin::Weekly, Tuesdays, 0, 0, {Today + 70 + Ten}, true}, Today + 70 + Ten) ==
          on(u"17.02.2026 10:00"));
    const Text without = u"Erinnerung: Zahnarzt\r\nWeg 1";
    CHECK(reminder({standin::Weekly, Tuesdays, 0, 0, {Today - 7 + Ten}, false}, Today - 70 + Ten) ==
          without);
    CHECK(reminder({Yearly, 0, 0, 0, {Today + 380 + Ten}, true}, Today - 300 + Ten) == without);
    CHECK_FALSE(Contains(host.Held(), u"RecurrencePattern"));
    CHECK_FALSE(Contains(host.Held(), u"AppointmentItem"));
}

TEST_CASE("dates and times as the user writes them") {
    ReminderHost host(16);
    auto& information = host.platform.locale.information;
    information[{0x400, 0x29}] = Text(u"PM") + Text(1, u'\0');
    information[{0x400, 0x34}] = Text(u"Do") + Text(1, u'\0');
    information[{0x400, 0x43}] = Text(u"Dezember") + Text(1, u'\0');
    host.item->appointment->start = Today + 2 + 21.0 / 24 + 5.0 / 1440;
    for (const auto& [date, time, text] :
         {std::tuple<Text, Text, Text>{u"M/d/yy", u"h:mm:ss tt", u"12/11/25 9:05 PM"},
          {u"ddd d. MMMM yyyy", u"H.mm'h'", u"Do 11. Dezember 2025 21.05h"},
          {u"yyyy'd'MM", u"tt h:mm", u"2025d12 PM 9:05"},
          {u"", u"", u"2025-12-11 21:05"}}) {
        host.Formats(date, time);
        CHECK(host.Reminder() == u"Erinnerung: Zahnarzt\r\n" + text + u"\r\nWeg 1");
    }
}

TEST_CASE("a reminder goes to linked contacts and attendees, and to nobody else") {
    struct Case {
        std::int32_t version;
        bool redemption;
        TextView recipients;
    };
    // Links went with Outlook 2013, contacts of addresses came with Outlook 2007.
    for (const Case& c :
         {Case{9, true, u"0303;01722"}, Case{9, false, u"0303"}, Case{10, false, u"0303"},
          Case{11, false, u"0303;01722"}, Case{12, false, u"0303;01711;01722"},
          Case{16, false, u"01711;01722"}, Case{16, true, u"01711;01722"}}) {
        CAPTURE(c.version);
        CAPTURE(c.redemption);
        ReminderHost host(c.version, c.redemption);
        standin::Appointment& appointment = *host.item->appointment;
        appointment.links = {host.jo};
        appointment.attendees = {{u"Me", standin::Organizer, {}},
                                 {u"evi@example.org", standin::Required, host.eva},
                                 {u"Berg, Ole (ole@example.org)", standin::Required, {}},
                                 {u"Berg Senior", standin::Required, {}},
                                 {u"Jo", standin::Resource, {}}};
        CHECK(host.Recipients() == c.recipients);
        appointment.links.clear();
        appointment.attendees = {{u"Ole Berg", standin::Required, {}}};
        if (c.version >= 11) CHECK(host.Recipients() == u"01722");
        appointment.attendees.clear();
        host.item->SetField(u"Subject", u"Haare Ole Berg");
        CHECK(host.Recipients() == u"01722");
        // Nobody who got the last SMS gets this one.
        host.item->SetField(u"Subject", u"Urlaub");
        CHECK(host.Recipients() == u"");
    }
}

TEST_CASE("every door of the calendar leads to the reminder") {
    ReminderHost host(16);
    const auto& first = host.first;
    host.item->appointment->attendees = {{u"Ole Berg", standin::Required, {}}};
    const auto opened = [&] {
        host.Settle();
        const Text text = host.view.TextTo().GetText() + u" " + host.view.Message().GetText();
        host.view.TextTo().SetText(u"0999");
        host.view.Message().SetText({});
        host.program.formSmsSend.Unload();
        return text.substr(0, text.find(u'\r'));
    };
    const Text expected = u"01722 Erinnerung: Zahnarzt";
    host.outlook.SwitchFolder(first, host.outlook.DefaultFolder(standin::CalendarFolder));
    host.outlook.Select(first, {host.item});
    host.outlook.ribbons.MenuEntries(first)[0].click();
    CHECK(opened() == expected);
    host.outlook.ribbons.Entries(first)[0].click();
    CHECK(opened() == expected);
    // Where nothing is selected it is an ordinary SMS, but for versions without the other doors.
    host.outlook.OpenInspector(host.item);
    host.outlook.Select(first, {});
    host.outlook.ribbons.Entries(first)[0].click();
    CHECK(opened() == u"0999 ");
    ReminderHost old(9);
    old.outlook.OpenInspector(old.item);
    old.outlook.Select(old.first, {});
    old.outlook.ClickButton(Host::Button(old.first));
    CHECK(old.view.Message().GetText().starts_with(u"Erinnerung: Zahnarzt"));
    // An open form keeps its recipients.
    old.view.TextTo().SetText(u"0888");
    old.item->appointment->links = {old.eva};
    old.Click();
    CHECK(old.view.TextTo().GetText() == u"0888;01711");
}

namespace {

// Several selected: of one with two people, without a place, all day long, private, cancelled, with
// nobody who has a number, and no appointment at all.
struct SeveralHost : ReminderHost {
    explicit SeveralHost(std::int32_t version = 16) : ReminderHost(version, version < 11) {
        StartSender();
        const standin::Attendee withEva{u"Eva Maier", standin::Required, eva};
        const standin::Attendee withOle{u"Ole Berg", standin::Required, {}};
        item->appointment->attendees = {withEva, withOle};
        Add(u"Friseur", 3).attendees = {withOle, {u"Ida", standin::Required, {}}};
        standin::Appointment& trip = Add(u"Ausflug", 4);
        trip.allDay = true;
        trip.attendees = {withEva};
        standin::Appointment& hidden = Add(u"Geheim", 5);
        hidden.sensitivity = 2;
        hidden.attendees = {withOle};
        standin::Appointment& off = Add(u"Abgesagt: Chor", 6);
        off.meetingStatus = 5;
        off.attendees = {withEva};
        Add(u"Urlaub", 7);
        all.push_back(jo);
    }
    standin::Appointment& Add(TextView subject, double days) {
        all.push_back(outlook.AddItem(outlook::AppointmentClass, {{u"Subject", subject}}));
        all.back()->appointment->start = Today + days + Ten;
        return *all.back()->appointment;
    }
    void ClickAll(const std::vector<std::shared_ptr<standin::Item>>& items) {
        outlook.Select(first, items);
        if (outlook.version >= 14) {
            outlook.ribbons.MenuEntries(first)[0].click();
        } else {
            outlook.ClickButton(Button(first));
        }
    }
    std::vector<std::shared_ptr<standin::Item>> all{item};
};

using Entries = std::vector<std::string>;
const Text Fields = u"Erinnerung: {Betreff}\r\n{Datum} {Uhrzeit}\r\n{Ort}";

}  // namespace

TEST_CASE("several appointments become an SMS for each person of each") {
    for (const std::int32_t version : {9, 11, 12, 16}) {
        CAPTURE(version);
        SeveralHost host(version);
        host.ClickAll(host.all);
        CHECK(host.view.Message().GetText() == Fields);
        CHECK(host.view.TextTo().GetText() == u"");
        host.Settle();
        CHECK(host.view.TextTo().GetText() == u"01711;01722");
        CHECK(host.view.Message().GetText() == Fields);
        CHECK(Contains(host.view.StatusBar1().pane, u"1 SMS × 5 = 5"));
        CHECK(host.view.StatusBar1().GetText() == u"Ohne SMS: Ida; Urlaub; Abgesagt: Chor");
        host.program.formSmsSend.AirCount_Click();
        CHECK(host.previewView.LabelPerson().caption ==
              u"Empfänger 1 von 5: Eva Maier (01711), 11.12.2025 10:00 Zahnarzt");
        host.program.formSmsPreview.ButtonForward_Click();
        CHECK(host.previewView.LabelPerson().caption ==
              u"Empfänger 2 von 5: Eva Maier (01711), 13.12.2025 Ausflug");
        CHECK(host.previewView.ListMissing().items ==
              std::vector<Text>{u"keine Nummer: Ida, 12.12.2025 10:00 Friseur",
                                u"keine Nummer: 16.12.2025 10:00 Urlaub",
                                u"abgesagt: 15.12.2025 10:00 Abgesagt: Chor"});
        CHECK(host.Send());
        // Each as its own reminder would say it.
        CHECK(host.Queued() == Entries{"01711\tErinnerung: Zahnarzt\r\n11.12.2025 10:00\r\nWeg 1",
                                       "01711\tErinnerung: Ausflug\r\n13.12.2025",
                                       "01722\tErinnerung: Zahnarzt\r\n11.12.2025 10:00\r\nWeg 1",
                                       "01722\tErinnerung: Friseur\r\n12.12.2025 10:00",
                                       "01722\tErinnerung:\r\n14.12.2025 10:00"});
        CHECK_FALSE(host.view.Loaded());
        CHECK(host.platform.dialogs.shown.empty());
        // What the next form begins with is nobody's.
        host.program.formSmsSend.Open({});
        CHECK(host.view.Message().GetText() == Fields);
        CHECK_FALSE(host.Send({Answer::Cancel}));
        CHECK(EndsWith(host.platform.dialogs.shown.back().text,
                       u"Ole Berg (01722): Betreff, Datum, Uhrzeit, Ort"));
        CHECK(host.platform.messageLoop.posted.size() == 1);
        CHECK_FALSE(Contains(host.Held(), u"AppointmentItem"));
        CHECK_FALSE(Contains(host.Held(), u"Selection"));
    }
}

TEST_CASE("the text for several appointments is the user's to change") {
    SeveralHost host;
    // One kind has its own; until that is known the box has the common one. Undone, both are gone.
    host.program.formSmsSend.Open({});
    host.view.Message().SetText(u"mine");
    host.all.pop_back();
    for (const auto& one : host.all) one->appointment->meetingStatus = 5;
    host.ClickAll(host.all);
    CHECK(host.view.Message().GetText() == Fields);
    host.Settle();
    CHECK(host.view.Message().GetText() == u"Abgesagt: {Betreff}\r\n{Datum} {Uhrzeit}");
    CHECK(host.program.personalTexts.All().size() == 6);
    host.view.Message().Undo();
    CHECK(host.view.Message().GetText() == u"mine");
    // Selected again it is the same SMS, even if its object is another one.
    host.ClickAll({host.all[0], host.all[0]});
    host.view.Message().SetText(u"{Betreff}");
    host.Settle();
    CHECK(host.view.Message().GetText() == u"{Betreff}");
    CHECK(host.program.personalTexts.All().size() == 6);
    // Whoever was put to it has no appointment, and whoever was taken out gets none.
    host.view.TextTo().SetText(u"01711;0199");
    host.program.fieldMenu.ButtonFields_Click();
    CHECK(host.view.menu.size() == 9);
    CHECK(host.Send({Answer::No}));
    CHECK(host.platform.dialogs.shown.back().text.ends_with(u"0199: Betreff"));
    CHECK(host.Queued() == Entries{"01711\tZahnarzt", "01711\tAusflug", "01711\tAbgesagt: Chor"});
    // A text that is the same for all appointments is sent once, one without fields to all.
    for (const auto& [text, entries] :
         {std::pair<Text, Entries>{u"{Vorname}!", {"01711\tEva!", "01722\tOle!"}},
          {u"Hallo", {"01711;01722\tHallo"}}}) {
        SeveralHost other;
        other.ClickAll(other.all);
        other.Settle();
        other.view.Message().SetText(text);
        CHECK(other.Send());
        CHECK(other.Queued() == entries);
    }
}

TEST_CASE("a form for hundreds of appointments opens at once") {
    SeveralHost host;
    while (host.all.size() < 201) host.Add(u"Friseur", double(host.all.size()));
    int calls = 0;
    host.outlook.failUse = [&](TextView, TextView) { return ++calls < 0; };
    host.ClickAll(host.all);
    CHECK(host.view.seen);
    CHECK(calls < 50);
    host.Settle();
    CHECK(host.view.StatusBar1().GetText() ==
          u"Zu viele Elemente ausgewählt: nur die ersten 200 wurden genommen.");
    CHECK(host.view.TextTo().GetText() == u"01711;01722");
}
