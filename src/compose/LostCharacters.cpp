#include "compose/LostCharacters.h"

#include <algorithm>

#include "compose/CharacterName.h"
#include "compose/LookAlikes.h"
#include "compose/MessageText.h"
#include "compose/QueueText.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr TextView Messages = u"Messages";
constexpr std::int32_t AskLost = 301;
constexpr std::size_t MostNamed = 10;

// "ж → ?   ł → l", each character once.
Text Named(LanguageTexts& language, const std::vector<LostCharacter>& lost) {
    std::vector<Text> seen;
    Text names;
    for (const LostCharacter& one : lost) {
        if (std::find(seen.begin(), seen.end(), one.character) != seen.end()) continue;
        if (!seen.empty()) names += u"    ";
        if (seen.size() == MostNamed) return names + u"…";
        names.append(CharacterName(language, one.character)).append(u" → ").append(one.arrives);
        seen.push_back(one.character);
    }
    return names;
}

}  // namespace

LostCharacters::LostCharacters(const Services& services, MessageText& messageText, Locale& locale)
    : Services(services), messageText(messageText), locale(locale) {}

Answer LostCharacters::Ask(const std::vector<LostCharacter>& lost, bool replaceable) {
    std::vector<Choice> choices = {
        {Answer::No, language.TextOrBuiltIn(Messages, u"SendLost")},
        {Answer::Cancel, language.TextOrBuiltIn(Messages, u"BackToText")}};
    if (replaceable) {
        choices.insert(choices.begin(),
                       {Answer::Yes, language.TextOrBuiltIn(Messages, u"ReplaceLost")});
    }
    return questionBox.MsgBoxChoice(AskLost, box::IconExclamation, u"%c", Named(language, lost),
                                    choices);
}

bool LostCharacters::Settle(Text& text) {
    const Usable survives = [this](TextView character) { return SurvivesQueue(character, locale); };
    for (;;) {
        const QueueText through = ThroughQueue(text, locale);
        if (through.lost.empty()) return true;
        const Text replaced = WithLookAlikes(text, survives);
        const bool replaceable = replaced != text;
        const Answer answer = Ask(through.lost, replaceable);
        if (answer != Answer::Yes || !replaceable) return answer == Answer::No;
        if (!messageText.Exchange(replaced)) {
            questionBox.MsgBoxEx(language.TextOrBuiltIn(Messages, u"ReplacedTooLong"),
                                 box::IconInformation);
            return false;
        }
        // What has no look-alike is asked for anew.
        text = messageText.GetText();
    }
}

bool LostCharacters::SettleFilled(const std::vector<Text*>& texts) {
    const Usable survives = [this](TextView character) { return SurvivesQueue(character, locale); };
    for (;;) {
        std::vector<LostCharacter> lost;
        std::vector<std::pair<Text*, Text>> replaced;
        for (Text* const text : texts) {
            const QueueText through = ThroughQueue(*text, locale);
            if (through.lost.empty()) continue;
            lost.insert(lost.end(), through.lost.begin(), through.lost.end());
            Text other = WithLookAlikes(*text, survives);
            if (other != *text) replaced.emplace_back(text, std::move(other));
        }
        if (lost.empty()) return true;
        const Answer answer = Ask(lost, !replaced.empty());
        if (answer != Answer::Yes || replaced.empty()) return answer == Answer::No;
        for (auto& [text, other] : replaced) *text = std::move(other);
    }
}

}  // namespace tellwick
