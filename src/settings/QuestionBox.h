// Message boxes: the one wrapper for all of them, and the numbered messages whose texts live in
// the language file.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class InifilesLite;
class LanguageTexts;

class QuestionBox {
public:
    // Style bits of the program's own, which the system's box never sees.
    static constexpr std::uint32_t RememberedAnswer = 0x90000000;
    static constexpr std::uint32_t AffirmativeIsOne = 0x80;

    QuestionBox(Debug& debug, LanguageTexts& language, InifilesLite& inifilesLite,
                Dialogs& dialogs);

    // Shows the part of the message before its first "|". An empty title becomes the
    // application's and is handed back.
    Answer MsgBoxEx(TextView message, std::uint32_t flags, Text& title);
    Answer MsgBoxEx(TextView message, std::uint32_t flags);

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
    Dialogs& dialogs;
};

}  // namespace tellwick
