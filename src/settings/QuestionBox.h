// The numbered messages, whose texts live in the language file, and what the user types into a box.
#pragma once

#include <cstdint>
#include <vector>

#include "settings/MessageBoxes.h"

namespace tellwick {

class Debug;
class InifilesLite;
class LanguageTexts;

class QuestionBox : public MessageBoxes {
public:
    QuestionBox(Debug& debug, LanguageTexts& language, InifilesLite& inifilesLite,
                Dialogs& dialogs);

    // Shows text "Msg" + number of section "Messages", every occurrence of the placeholder
    // replaced. With RememberedAnswer in the flags the user may have the answer remembered and is
    // then not asked again; with AffirmativeIsOne a Yes comes back as Answer::Ok (1).
    Answer MsgBoxMessage(std::int32_t number, std::uint32_t flags, TextView placeholder = {},
                         TextView replacement = {}, Text title = {});

    // The same question with an answer of its own on each button, the last one for closing the box;
    // the user may have any but Cancel remembered. An answer that is remembered but not on offer is
    // none.
    Answer MsgBoxChoice(std::int32_t number, std::uint32_t icon, TextView placeholder,
                        TextView replacement, const std::vector<Choice>& choices);

    // The same, asked each time.
    Answer MsgBoxAsk(std::int32_t number, std::uint32_t icon, TextView placeholder,
                     TextView replacement, const std::vector<Choice>& choices);

    // Whether any answer is remembered.
    bool AnswersRemembered();
    // Takes back every remembered answer.
    void ForgetAnswers();

    // A box with a text field; Cancel gives the empty text.
    Text InputBox(TextView prompt);

private:
    bool HasAnswer(std::int32_t number);
    Answer AskRemembered(std::int32_t number, std::uint32_t icon, TextView text, TextView title,
                         const std::vector<Choice>& choices);
    Text MessageText(std::int32_t number, TextView placeholder, TextView replacement);

    Debug& debug;
    LanguageTexts& language;
    InifilesLite& inifilesLite;
};

}  // namespace tellwick
