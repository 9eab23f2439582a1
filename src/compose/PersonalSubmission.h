// The submission of a text with fields: one entry of the queue for each recipient, all of them or
// none.
#pragma once

#include <cstddef>
#include <vector>

#include "compose/PersonalTexts.h"
#include "settings/Services.h"

namespace tellwick {

class Clock;
class FormSmsSendView;
class LastRun;
class Locale;
class LostCharacters;
class MessageLoop;
class SmsQueue;
struct SmsSettings;

class PersonalSubmission : private Services {
public:
    PersonalSubmission(const Services& services, FormSmsSendView& view,
                       const TextFields& textFields, LostCharacters& lostCharacters,
                       LastRun& lastRun, SmsQueue& queue, MessageLoop& messageLoop, Clock& clock,
                       Locale& locale);

    // Asks what to do with people of whom something is not known that stands in the text, says for
    // whom it becomes too long, and queues it for the others. False, with nothing queued, when the
    // user goes back to the text or has to, or not all of it could be written.
    bool Queue(std::vector<PersonalText> texts, const SmsSettings& settings);

    // While entries are written, and window messages run in between.
    bool Running() const { return running; }

private:
    bool SettleMissing(std::vector<PersonalText>& texts);
    bool FitsAll(const std::vector<PersonalText>& texts);
    void ShowProgress(std::size_t done, std::size_t all);

    bool running = false;
    double shown = 0;  // milliseconds: when the progress was

    FormSmsSendView& view;
    const TextFields& textFields;
    LostCharacters& lostCharacters;
    LastRun& lastRun;
    SmsQueue& queue;
    MessageLoop& messageLoop;
    Clock& clock;
    Locale& locale;
};

}  // namespace tellwick
