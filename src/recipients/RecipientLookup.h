// Looks up who the recipients are of what is selected in Outlook: what is at hand at once, the rest
// in slices, so that nobody waits for it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Outlook.h"
#include "platform/ProcessValues.h"
#include "platform/Timer.h"
#include "recipients/AppointmentPeople.h"
#include "recipients/AppointmentReminders.h"
#include "recipients/Conversation.h"

namespace tellwick {

class Addresses;
class Automation;
class Clock;
class Contacts;
class Debug;
class MessageLoop;
class RecipientPeople;

class RecipientLookup {
public:
    // So many items of a selection become recipients.
    static constexpr std::int32_t MostItems = 200;
    // Hears new recipients, separated by ";", and with an empty text that the looking goes on or
    // has ended.
    using Listener = std::function<void(TextView found)>;

    RecipientLookup(PendingError& errors, Debug& debug, Automation& automation,
                    const ProcessValues& processValues, Contacts& contacts, Addresses& addresses,
                    RecipientPeople& recipientPeople, AppointmentReminders& reminders, Clock& clock,
                    Timers& timers, MessageLoop& messageLoop);

    void SetListener(Listener newListener) { listener = std::move(newListener); }

    // Whether Outlook trusts the program with what it reaches from there.
    enum class Origin { Connection, RunningObject };

    // Each of these ends a look that is going on and begins its own. It returns those who are
    // known at once, without doubles, separated by ";"; the listener hears the others.
    // What is selected in the active window of the application, or of the running Outlook:
    Text LookInSelection(const ObjectPtr& application);
    // A collection of items, such as a selection:
    Text LookInItems(const ObjectPtr& items);
    // One item:
    Text LookInItem(const ObjectPtr& item);
    // An appointment: the contacts linked to it and its attendees; where it has none, or Outlook
    // would ask the user for them, the person whom its subject names first.
    Text LookInAppointment(const ObjectPtr& appointment, Origin origin);
    // The appointments of a collection: who is to be reminded of which. All of them are heard at
    // the end, when it is known which of them one text goes for.
    void LookInAppointments(const ObjectPtr& items, Origin origin);

    bool Looking() const { return looking; }
    // Whether more was selected than became recipients.
    bool Cut() const { return cut; }
    // Whether the look, also one that has ended, is for reminders of several appointments.
    bool ForReminders() const { return forReminders; }
    // Lets everything of Outlook's go.
    void Stop();

private:
    enum class Step { Item, Reply, Person, Attendee };

    Text Begin(const ObjectPtr& collection, Origin newOrigin, bool single = false);
    void Take(const ObjectPtr& collection, Origin newOrigin);
    // One step; false when there is nothing left, or it has to be waited.
    bool DoStep();
    void LookAtNext();
    void LookAtMail(const ObjectPtr& item);
    void ReadReply();
    void BeginAppointment(const ObjectPtr& appointment);
    void ReadAppointmentOf(const ObjectPtr& item);
    void LookAtAttendee();
    void NobodyFound(const Text& name);
    void EndReading();
    bool FindPerson();
    bool IsTrusted() const;
    bool Found(const Text& number);
    void End();
    void GoOnLater();
    void Tick();
    void LendApplicationOf(const ObjectPtr& object);

    ObjectPtr items;                  // a collection, or one item
    NewestOfConversations following;  // behind those
    bool single = false;
    std::int32_t next = 1;
    std::int32_t count = 0;
    Origin origin = Origin::Connection;
    Step step = Step::Item;
    ObjectPtr mail;  // whose reply is to be read
    ObjectPtr safeMail;
    Text body;              // of the reply, or whatever else names a person
    bool onlyName = false;  // it is nothing but a name
    AppointmentPeople appointmentPeople;
    bool inAppointment = false;
    bool inSeveral = false;                       // appointments
    std::vector<AppointmentReminders::One> read;  // of those, the last one not to its end
    std::vector<Text> taken;                      // each recipient once
    Text found;                                   // and not told yet
    bool looking = false;
    bool cut = false;
    bool forReminders = false;
    bool working = false;  // a slice runs: Outlook may call in between
    Listener listener;
    std::unique_ptr<Timer> timer;

    PendingError& errors;
    Debug& debug;
    Automation& automation;
    const ProcessValues& processValues;
    Contacts& contacts;
    Addresses& addresses;
    RecipientPeople& recipientPeople;
    AppointmentReminders& reminders;
    Clock& clock;
    Timers& timers;
    MessageLoop& messageLoop;
};

}  // namespace tellwick
