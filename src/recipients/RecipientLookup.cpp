#include "recipients/RecipientLookup.h"

#include <algorithm>
#include <utility>

#include "platform/Clock.h"
#include "platform/Meanwhile.h"
#include "platform/MessageLoop.h"
#include "platform/OutlookEvents.h"
#include "recipients/Addresses.h"
#include "recipients/Contacts.h"
#include "recipients/NumberInText.h"
#include "recipients/RecipientPeople.h"
#include "settings/Debug.h"

namespace tellwick {

namespace {

// Outlook 2003: from then on what comes from the application that a connection hands over is
// trusted.
constexpr std::int32_t FirstTrusting = 11;
constexpr std::int32_t MostConversations = 20;
// Milliseconds.
constexpr double Slice = 5;
constexpr std::uint32_t Interval = 20;

// False when it is there already.
bool AddOnce(std::vector<Text>& texts, const Text& text) {
    const bool isNew = std::ranges::find(texts, text) == texts.end();
    if (isNew) texts.push_back(text);
    return isNew;
}

}  // namespace

RecipientLookup::RecipientLookup(PendingError& errors, Debug& debug, Automation& automation,
                                 const ProcessValues& processValues, Contacts& contacts,
                                 Addresses& addresses, RecipientPeople& recipientPeople,
                                 AppointmentReminders& reminders, Clock& clock, Timers& timers,
                                 MessageLoop& messageLoop)
    : following(errors),
      appointmentPeople(errors, automation),
      errors(errors),
      debug(debug),
      automation(automation),
      processValues(processValues),
      contacts(contacts),
      addresses(addresses),
      recipientPeople(recipientPeople),
      reminders(reminders),
      clock(clock),
      timers(timers),
      messageLoop(messageLoop) {}

Text RecipientLookup::LookInSelection(const ObjectPtr& outlookApplication) {
    const ObjectPtr application =
        outlookApplication ? outlookApplication : automation.Running(u"Outlook.Application");
    LendApplicationOf(outlookApplication);
    return Begin(outlook::Application(errors, application).ActiveExplorer().Selection().Reference(),
                 outlookApplication ? Origin::Connection : Origin::RunningObject);
}

Text RecipientLookup::LookInItems(const ObjectPtr& collection) {
    LendApplicationOf(collection);
    return Begin(collection, Origin::Connection);
}

Text RecipientLookup::LookInItem(const ObjectPtr& item) {
    LendApplicationOf(item);
    return Begin(item, Origin::Connection, true);
}

Text RecipientLookup::LookInAppointment(const ObjectPtr& appointment, Origin newOrigin) {
    LendApplicationOf(appointment);
    Stop();
    if (!appointment) return {};
    origin = newOrigin;
    looking = true;
    BeginAppointment(appointment);
    if (looking) GoOnLater();
    return {};
}

void RecipientLookup::BeginAppointment(const ObjectPtr& appointment) {
    appointmentPeople.Begin(
        appointment,
        IsTrusted() ? AppointmentPeople::Access::Straight : AppointmentPeople::Access::Redemption,
        processValues.outlookVersion);
    if (!looking) {  // Outlook may have ended meanwhile
        appointmentPeople.Clear();
        return;
    }
    inAppointment = true;
    step = Step::Attendee;
    if (!appointmentPeople.HasAttendees())
        body = OneLine(AsText(Get(errors, appointment, u"Subject")));
}

void RecipientLookup::LookInAppointments(const ObjectPtr& collection, Origin newOrigin) {
    LendApplicationOf(collection);
    Stop();
    if (!collection) return;
    Take(collection, newOrigin);
    looking = inSeveral = forReminders = true;
    GoOnLater();
}

void RecipientLookup::ReadAppointmentOf(const ObjectPtr& item) {
    const auto appointment =
        std::make_shared<const Appointment>(ReadAppointment(errors, item, clock.Now()));
    if (!looking) return;  // Outlook may have ended meanwhile
    read.push_back({appointment, {}, {}});
    BeginAppointment(item);
}

void RecipientLookup::EndReading() {
    if (!inSeveral) return;
    for (const Text& number : reminders.Take(std::move(read))) {
        if (!found.empty()) found += u';';
        found += number;
    }
}

// A connection without a window handed no application over that contacts could be read from.
void RecipientLookup::LendApplicationOf(const ObjectPtr& object) {
    if (!object || addresses.HasApplication()) return;
    addresses.LendApplication(AsObject(Get(errors, object, u"Application")));
}

Text RecipientLookup::Begin(const ObjectPtr& collection, Origin newOrigin, bool isSingle) {
    Stop();
    if (!collection) return {};
    single = isSingle;
    Take(collection, newOrigin);
    if (count == 0 && processValues.outlookVersion >= FirstWithConversations)
        following.Begin(outlook::Selection(errors, items), MostConversations);
    looking = true;
    const double end = clock.Milliseconds() + Slice;
    {
        const Meanwhile slicing(working, true);
        // Outlook may take its time to prepare a reply: the form is not to wait for that.
        while (looking && step == Step::Item && clock.Milliseconds() < end && DoStep()) {
        }
    }
    if (looking) GoOnLater();
    return std::exchange(found, {});
}

void RecipientLookup::Take(const ObjectPtr& collection, Origin newOrigin) {
    items = collection;
    origin = newOrigin;
    const std::int32_t all = single ? 1 : outlook::Selection(errors, items).Count();
    count = std::min(all, MostItems);
    cut = count < all;
}

void RecipientLookup::GoOnLater() {
    timer = timers.Create();
    timer->Start(Interval, [this] { Tick(); });
}

bool RecipientLookup::IsTrusted() const {
    return origin == Origin::Connection && processValues.outlookVersion >= FirstTrusting;
}

void RecipientLookup::Stop() {
    End();
    taken.clear();
    found.clear();
    cut = forReminders = false;
}

void RecipientLookup::End() {
    looking = false;
    timer.reset();
    items.reset();
    following.Clear();
    mail.reset();
    safeMail.reset();
    body.clear();
    onlyName = inAppointment = inSeveral = single = false;
    read.clear();
    appointmentPeople.Clear();
    next = 1;
    count = 0;
    step = Step::Item;
}

void RecipientLookup::Tick() {
    if (working || messageLoop.InDoEvents()) return;
    Procedure procedure{debug, u"TimerRecipients_Timer"};
    const double end = clock.Milliseconds() + Slice;
    {
        const Meanwhile slicing(working, true);
        while (looking && DoStep() && clock.Milliseconds() < end) {
        }
    }
    if (listener) listener(std::exchange(found, {}));
}

bool RecipientLookup::DoStep() {
    switch (step) {
        case Step::Item:
            LookAtNext();
            return looking;
        case Step::Reply:
            ReadReply();
            return looking;
        case Step::Person:
            return FindPerson();
        case Step::Attendee:
            LookAtAttendee();
            return looking;
    }
    return false;
}

void RecipientLookup::LookAtNext() {
    if (next > count && !following.More()) {
        EndReading();
        End();
        return;
    }
    outlook::Item item(errors, nullptr);
    if (next <= count) {
        item = single ? outlook::Item(errors, items) : outlook::Selection(errors, items).Item(next);
        ++next;
    } else {
        item = following.Next();
        if (!item) return;
    }
    const std::int32_t itemClass = item.Class();
    if (inSeveral) {
        if (itemClass == outlook::AppointmentClass) ReadAppointmentOf(item.Reference());
        return;
    }
    if (itemClass == outlook::ContactClass) {
        const Text number = contacts.NumberOfContact(item.Reference());
        if (Found(number))
            recipientPeople.Choose(number, contacts.PersonOfContact(item.Reference()));
    }
    if (itemClass == outlook::MailClass) LookAtMail(item.Reference());
}

// The sender's own number, as messages from a telephone have it. Without Redemption only where
// Outlook does not ask the user before it hands out sender and body.
void RecipientLookup::LookAtMail(const ObjectPtr& item) {
    safeMail = contacts.SafeMail(item);
    if (!safeMail && !IsTrusted()) return;
    const Text own =
        NumberInText(AsText(Get(errors, safeMail ? safeMail : item, u"SentOnBehalfOfName")));
    if (!own.empty()) {
        Found(contacts.Dialable(own));
        return;
    }
    if (!looking) return;  // Outlook may have ended meanwhile
    mail = item;
    step = Step::Reply;
}

// Else that of the first contact whom a reply to the mail names.
void RecipientLookup::ReadReply() {
    const ObjectPtr reply = contacts.ReplyOf(std::exchange(mail, nullptr));
    if (!looking) return;
    if (safeMail) safeMail->Put(u"Item", reply);
    body = AsText(Get(errors, safeMail ? safeMail : reply, u"Body"));
    safeMail.reset();
    step = Step::Person;
}

void RecipientLookup::LookAtAttendee() {
    const std::optional<AppointmentPeople::One> one = appointmentPeople.Next();
    if (!looking) return;  // Outlook may have ended meanwhile
    if (!one) {
        step = body.empty() ? Step::Item : Step::Person;
        onlyName = inAppointment = false;
        return;
    }
    if (one->contact) {
        const Text number = contacts.NumberOfContact(one->contact);
        if (Found(number)) recipientPeople.Choose(number, contacts.PersonOfContact(one->contact));
        if (!number.empty()) return;
        // A link says no name.
        if (one->name.empty()) NobodyFound(contacts.PersonOfContact(one->contact).fullName);
    }
    if (one->name.empty()) return;
    body = one->name;
    onlyName = true;
    step = Step::Person;
}

bool RecipientLookup::FindPerson() {
    if (!addresses.Known()) {
        addresses.Refresh();
        if (!addresses.Known() && addresses.Reading()) return false;
    }
    const AddressList& list = addresses.List();
    const auto row = list.RowNamedFirstIn(body);
    if (row && (!onlyName || EqualFolded(list.Row(*row).name, body))) {
        const Text number = contacts.Dialable(list.Row(*row).number);
        if (Found(number)) recipientPeople.ChooseRow(*row, {number});
    } else if (onlyName) {
        NobodyFound(body);
    }
    body.clear();
    step = inAppointment ? Step::Attendee : Step::Item;
    return true;
}

// False when it is none, or was found before.
bool RecipientLookup::Found(const Text& number) {
    if (number.empty()) return false;
    if (!read.empty()) AddOnce(read.back().numbers, number);
    if (!AddOnce(taken, number)) return false;
    if (inSeveral) return true;
    if (!found.empty()) found += u';';
    found += number;
    return true;
}

void RecipientLookup::NobodyFound(const Text& name) {
    if (!read.empty() && !name.empty()) AddOnce(read.back().without, name);
}

}  // namespace tellwick
