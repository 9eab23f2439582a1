#include "compose/PersonalSubmission.h"

#include <algorithm>
#include <utility>

#include "air/AirCount.h"
#include "compose/FormSmsSendView.h"
#include "compose/LastRun.h"
#include "compose/LostCharacters.h"
#include "compose/QueueText.h"
#include "compose/SmsQueue.h"
#include "compose/SmsSettings.h"
#include "platform/Clock.h"
#include "platform/Meanwhile.h"
#include "platform/MessageLoop.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr TextView Messages = u"Messages";
constexpr std::int32_t AskMissing = 302;
constexpr std::int32_t TooLong = 303;
constexpr std::size_t MostParts = 5;
constexpr std::size_t MostNamed = 10;
constexpr std::size_t FewestWithProgress = 20;
constexpr double ProgressInterval = 50;  // milliseconds

// One a line.
Text Lines(const std::vector<Text>& people) {
    Text lines;
    for (std::size_t at = 0; at < people.size(); ++at) {
        if (at > 0) lines += CarriageReturn;
        if (at == MostNamed) return lines.append(u"… (").append(NumberText(people.size())) + u")";
        lines += people[at];
    }
    return lines;
}

}  // namespace

PersonalSubmission::PersonalSubmission(const Services& services, FormSmsSendView& view,
                                       const TextFields& textFields, LostCharacters& lostCharacters,
                                       LastRun& lastRun, SmsQueue& queue, MessageLoop& messageLoop,
                                       Clock& clock, Locale& locale)
    : Services(services),
      view(view),
      textFields(textFields),
      lostCharacters(lostCharacters),
      lastRun(lastRun),
      queue(queue),
      messageLoop(messageLoop),
      clock(clock),
      locale(locale) {}

bool PersonalSubmission::Queue(std::vector<PersonalText> texts, const SmsSettings& settings) {
    Procedure procedure{debug, u"QueuePersonal"};
    if (!SettleMissing(texts)) return false;
    if (settings.askLostCharacters) {
        std::vector<Text*> all;
        all.reserve(texts.size());
        for (PersonalText& each : texts) all.push_back(&each.filled.text.text);
        if (!lostCharacters.SettleFilled(all)) return false;
    }
    if (!FitsAll(texts)) return false;
    std::vector<QueueEntry> entries;
    entries.reserve(texts.size());
    for (const PersonalText& each : texts)
        entries.push_back({each.recipient, each.filled.text.text});
    const Meanwhile writing(running, true);
    shown = clock.Milliseconds();
    const bool queued = queue.AddEntries(
        entries, [this, all = entries.size()](std::size_t done) { ShowProgress(done, all); });
    debug.Guarded([this] { view.ProgressBar1().SetValue(0); });
    if (queued) debug.Guarded([&] { lastRun.Keep(texts, settings.storeNumbers); });
    return queued;
}

bool PersonalSubmission::SettleMissing(std::vector<PersonalText>& texts) {
    const auto lacks = [](const PersonalText& each) { return !each.filled.missing.empty(); };
    std::vector<Text> people;
    for (const PersonalText& each : texts) {
        if (lacks(each))
            people.push_back(each.Named() + u": " + textFields.Words(each.filled.missing));
    }
    if (people.empty()) return true;
    std::vector<Choice> choices{{Answer::Yes, language.TextOrBuiltIn(Messages, u"LeaveFieldOut")},
                                {Answer::No, language.TextOrBuiltIn(Messages, u"LeavePeopleOut")},
                                {Answer::Cancel, language.TextOrBuiltIn(Messages, u"BackToText")}};
    // There would be nobody left.
    if (people.size() == texts.size()) choices.erase(choices.begin() + 1);
    const Answer answer =
        questionBox.MsgBoxAsk(AskMissing, box::IconQuestion, u"%c", Lines(people), choices);
    if (answer == Answer::No && people.size() < texts.size()) {
        std::erase_if(texts, lacks);
        return true;
    }
    return answer == Answer::Yes;
}

// Nor is an SMS empty.
bool PersonalSubmission::FitsAll(const std::vector<PersonalText>& texts) {
    std::vector<Text> people;
    for (const PersonalText& each : texts) {
        const Text& text = each.filled.text.text;
        if (Trimmed(text).empty() ||
            CountOnAir(ThroughQueue(text, locale).arrives).parts.size() > MostParts)
            people.push_back(each.Named());
    }
    if (people.empty()) return true;
    questionBox.MsgBoxMessage(TooLong, box::IconInformation, u"%c", Lines(people));
    return false;
}

void PersonalSubmission::ShowProgress(std::size_t done, std::size_t all) {
    const double now = clock.Milliseconds();
    if (all < FewestWithProgress || now - shown < ProgressInterval) return;
    shown = now;
    view.ProgressBar1().SetValue(std::int32_t(100 * done / all));
    // Outlook draws, and answers the system, meanwhile.
    messageLoop.DoEvents();
}

}  // namespace tellwick
