// Everything the sender has to send and has sent: a file for each SMS and recipient, in one of four
// folders below the settings folder, moved from one to the next by renaming.
//
// The program can end between any two calls into the system, and nothing is lost, and nothing that
// a carrier may have is sent again without the user's word: an SMS is in `sending` before the
// carrier gets it, and its file there says what came of it before it leaves. What a start finds in
// `sending` without such a word is unsure. One program at a time works on a spool.
//
// The disk is not waited for: ten thousand SMS would take minutes. A machine that loses its power
// can lose the last seconds, as it does of the queue itself.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "platform/Clock.h"
#include "platform/Text.h"
#include "spool/SpoolFiles.h"

namespace tellwick::sender {

// What is kept of what was sent: the settings StoreSentSMS and MaxSentSMS.
struct SentLimits {
    bool store = true;
    std::int32_t most = 999;
};

// An SMS is known by its id, the same in every folder: ids in alphabetical order are in that of
// their acceptance. An id ends with the SMS' key: its origin and its number among those of the same
// origin. Functions that fail change nothing that counts, and can be called again.
class Spool {
public:
    // The settings folder ends in "\". No more waiting ones lie in one folder than given.
    Spool(FileSystem& fileSystem, Clock& clock, TextView settingsFolder,
          std::size_t mostInFolder = 128);

    // Makes the folders, finds out what is there, and brings to its place what was answered when
    // the program ended. False when the folders cannot be made or read: nothing else may be called
    // then but this again.
    bool Open();

    // Accepts an SMS to be sent, or, where it has failed already, to be shown. Durable when this
    // returns. The origin has letters, digits and "." only. Returns the id; empty when the file
    // cannot be written.
    Text Add(const SpooledSms& sms, TextView origin, std::size_t number = 1,
             NewFile how = NewFile::Aside);
    // The same for one whose text is too long to be kept as such: its bytes go into a file of their
    // own, which the SMS names.
    Text AddFailed(SpooledSms sms, TextView origin, std::string_view wholeText);

    // All that is in the spool: its keys, and the id of each. Empty optional when it cannot be
    // read.
    std::optional<std::map<Text, Text>> Keys();
    static Text Key(TextView origin, std::size_t number);
    // False for what was being added in place when the program ended, and waits in part. Empty
    // optional when it cannot be read.
    std::optional<bool> IsWhole(const Text& id);
    // Nothing waits in part any more: what is damaged now is so for another reason. Until then
    // Begin leaves it where it is.
    void NoneIsInPart() { inPart = false; }

    // What has this origin is not sent until it is released: its acceptance is not complete.
    void Hold(TextView origin) { held.emplace(origin); }
    void Release(TextView origin);

    // Origins that stay known although nothing of them may be left. False when that cannot be
    // written; empty optional when they cannot be read.
    bool Remember(TextView origin) { return files.Remember(origin); }
    void Forget(TextView origin) { files.Forget(origin); }
    std::optional<std::vector<Text>> Remembered() { return files.Remembered(); }

    // The first one that is to be sent now; empty when none is.
    Text Next() const;
    // Days until one is to be tried again; empty when none waits for a later try.
    std::optional<double> UntilNextTry() const;

    // The steps of sending, for the id that Next gave. Begin moves it to `sending` and returns it;
    // empty when that fails: it is not to be handed over, and Next gives others for a minute. A
    // damaged one becomes a failed one.
    std::optional<SpooledSms> Begin(const Text& id);
    // Writes down what has become known of one behind its last step.
    bool Update(State state, const Text& id, const SpooledSms& sms);
    // Writes down what has been sent of it. What cannot be written is kept for Finish.
    bool Record(const Text& id, const SpooledSms& sms);
    // Moves it according to its result: Sent, Failed, TryAgain to `waiting`; Unsure stays. What
    // cannot be moved or written is kept in memory as being sent, and Settle tries again.
    void Finish(const Text& id, SpooledSms sms);
    // False while there is something left to be settled.
    bool Settle();

    // Ids in that state, in order. Waiting, Sending and Unsure are known; the others are looked up.
    std::vector<Text> Ids(State state);
    std::size_t Waiting() const { return waiting.size(); }
    // Empty when the file cannot be read. A damaged one comes with the reason, its text being what
    // the file holds.
    std::optional<SpooledSms> Load(State state, const Text& id) { return files.Read(state, id); }

    // The user's wishes, for failed and unsure ones; of one that was sent a new one is made. False
    // when the file cannot be written.
    bool SendAgain(State state, const Text& id);
    bool Delete(State state, const Text& id);

    void SetLimits(const SentLimits& newLimits);

    // Hears of every change, with the id and the state it is in now; empty for one that is gone.
    using Listener = std::function<void(const Text& id, std::optional<State> state)>;
    void SetListener(Listener newListener) { listener = std::move(newListener); }

private:
    bool Move(const Text& id, State from, State to);
    bool TrySettle(const Text& id, const SpooledSms& sms);
    void Recover(const Text& id);
    Text NewId(TextView origin, std::size_t number);
    void TrimSent();
    void Tell(const Text& id, std::optional<State> state);

    SpoolFiles files;
    Clock& clock;
    SentLimits limits;
    Listener listener;

    std::map<Text, double> waiting;        // and when each is to be tried; 0: now
    std::set<Text> unsure;                 // in `sending`, without an answer
    Text inFlight;                         // in `sending`, with the carrier
    std::map<Text, SpooledSms> unsettled;  // in `sending`, answered, and not moved yet
    std::set<Text> held;                   // origins
    bool inPart = true;                    // something may be waiting in part
    std::optional<std::size_t> sentCount;  // empty: not counted yet
    std::vector<Text> oldestSent;          // some of them, the oldest one last
    std::int64_t lastMoment = 0;           // of the newest id
};

}  // namespace tellwick::sender
