#include "settings/QuestionBox.h"

#include <algorithm>
#include <array>

#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView Messages = u"Messages";
constexpr TextView AnswerSection = u"QuestionBox";

// The messages whose answers can be remembered.
constexpr std::array<std::int32_t, 4> RememberedMessages = {126, 127, 138, 301};

Text AnswerKey(std::int32_t number) {
    return u"Answer" + NumberText(number);
}

}  // namespace

QuestionBox::QuestionBox(Debug& debug, LanguageTexts& language, InifilesLite& inifilesLite,
                         Dialogs& dialogs)
    : MessageBoxes(dialogs), debug(debug), language(language), inifilesLite(inifilesLite) {}

Text QuestionBox::MessageText(std::int32_t number, TextView placeholder, TextView replacement) {
    debug.DebugTrace(u"MsgBoxMessage:", number);
    const Text text = language.TextOrBuiltIn(Messages, u"Msg" + NumberText(number));
    return ReplaceAll(text, placeholder, replacement);
}

Answer QuestionBox::MsgBoxMessage(std::int32_t number, std::uint32_t flags, TextView placeholder,
                                  TextView replacement, Text title) {
    const Text text = MessageText(number, placeholder, replacement);
    if ((flags & RememberedAnswer) == RememberedAnswer) {
        // The buttons in these flags are the program's own: 0 offers OK, everything else Yes and
        // No.
        const bool question = (flags & box::ButtonMask) != box::Ok;
        std::vector<Choice> choices;
        const auto offer = [&](Answer answer, TextView key) {
            choices.push_back({answer, language.TextOrBuiltIn(Messages, key)});
        };
        if (question) {
            offer(Answer::Yes, u"Yes");
            offer(Answer::No, u"No");
        } else {
            offer(Answer::Ok, u"OK");
        }
        return AskRemembered(number, flags & box::IconMask, text, title, choices);
    }
    const Answer answer = MsgBoxEx(text, flags, title);
    return (flags & AffirmativeIsOne) && answer == Answer::Yes ? Answer::Ok : answer;
}

Answer QuestionBox::MsgBoxChoice(std::int32_t number, std::uint32_t icon, TextView placeholder,
                                 TextView replacement, const std::vector<Choice>& choices) {
    return AskRemembered(number, icon, MessageText(number, placeholder, replacement), {}, choices);
}

Answer QuestionBox::MsgBoxAsk(std::int32_t number, std::uint32_t icon, TextView placeholder,
                              TextView replacement, const std::vector<Choice>& choices) {
    bool unchecked = false;
    return dialogs.CheckedMessageBox(ShownPart(MessageText(number, placeholder, replacement)),
                                     choices, icon, ApplicationName, {}, unchecked);
}

Answer QuestionBox::AskRemembered(std::int32_t number, std::uint32_t icon, TextView text,
                                  TextView title, const std::vector<Choice>& choices) {
    const auto remembered = Answer(inifilesLite.GetIniSettingNum(AnswerSection, AnswerKey(number)));
    const bool offered = std::any_of(choices.begin(), choices.end(), [=](const Choice& choice) {
        return choice.answer == remembered;
    });
    if (offered && remembered != Answer::Cancel) return remembered;
    bool checked = false;
    const Answer given = dialogs.CheckedMessageBox(
        ShownPart(text), choices, icon, title.empty() ? ApplicationName : title,
        language.TextOrBuiltIn(Messages, choices.size() > 1 ? u"DoNotAskAgain" : u"DoNotShowAgain"),
        checked);
    if (checked && given != Answer::Cancel) {
        inifilesLite.SetIniSetting(AnswerSection, AnswerKey(number), std::int32_t(given));
    }
    return given;
}

bool QuestionBox::HasAnswer(std::int32_t number) {
    return !inifilesLite.GetIniSetting(AnswerSection, AnswerKey(number)).empty();
}

bool QuestionBox::AnswersRemembered() {
    return std::any_of(RememberedMessages.begin(), RememberedMessages.end(),
                       [this](std::int32_t number) { return HasAnswer(number); });
}

void QuestionBox::ForgetAnswers() {
    for (const std::int32_t number : RememberedMessages) {
        if (HasAnswer(number)) {
            inifilesLite.SetIniSetting(AnswerSection, AnswerKey(number), TextView());
        }
    }
}

Text QuestionBox::InputBox(TextView prompt) {
    return dialogs.InputBox(prompt, ApplicationName);
}

}  // namespace tellwick
