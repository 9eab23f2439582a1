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

// The messages that are shown with RememberedAnswer.
constexpr std::array<std::int32_t, 3> RememberedMessages = {126, 127, 138};

Text AnswerKey(std::int32_t number) {
    return u"Answer" + NumberText(number);
}

TextView ShownPart(TextView message) {
    return message.substr(0, message.find(u'|'));
}

}  // namespace

QuestionBox::QuestionBox(Debug& debug, LanguageTexts& language, InifilesLite& inifilesLite,
                         Dialogs& dialogs)
    : debug(debug), language(language), inifilesLite(inifilesLite), dialogs(dialogs) {}

Answer QuestionBox::MsgBoxEx(TextView message, std::uint32_t flags, Text& title) {
    if (title.empty()) title = ApplicationName;
    return dialogs.MessageBox(ShownPart(message), flags & ~(RememberedAnswer | AffirmativeIsOne),
                              title);
}

Answer QuestionBox::MsgBoxEx(TextView message, std::uint32_t flags) {
    Text title;
    return MsgBoxEx(message, flags, title);
}

Answer QuestionBox::MsgBoxMessage(std::int32_t number, std::uint32_t flags, TextView placeholder,
                                  TextView replacement, Text title) {
    debug.DebugTrace(u"MsgBoxMessage:", number);
    Text text = language.TextOrBuiltIn(Messages, u"Msg" + NumberText(number));
    text = ReplaceAll(text, placeholder, replacement);
    if ((flags & RememberedAnswer) == RememberedAnswer) {
        return AskRemembered(number, flags, text, title);
    }
    const Answer answer = MsgBoxEx(text, flags, title);
    return (flags & AffirmativeIsOne) && answer == Answer::Yes ? Answer::Ok : answer;
}

// The buttons in these flags are the program's own: 0 offers OK, everything else Yes and No.
Answer QuestionBox::AskRemembered(std::int32_t number, std::uint32_t flags, TextView text,
                                  TextView title) {
    const bool question = (flags & box::ButtonMask) != box::Ok;
    const auto answer = Answer(inifilesLite.GetIniSettingNum(AnswerSection, AnswerKey(number)));
    if (question ? answer == Answer::Yes || answer == Answer::No : answer == Answer::Ok) {
        return answer;
    }
    bool checked = false;
    const Answer given = dialogs.CheckedMessageBox(
        ShownPart(text), question ? box::YesNo : box::Ok, flags & box::IconMask,
        title.empty() ? ApplicationName : title,
        language.TextOrBuiltIn(Messages, question ? u"DoNotAskAgain" : u"DoNotShowAgain"), checked);
    if (checked) {
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
    return dialogs.InputBox(prompt, ApplicationName, {}, language.TextOrBuiltIn(Messages, u"OK"),
                            language.TextOrBuiltIn(Messages, u"Cancel"));
}

}  // namespace tellwick
