// What nearly every module works with: the trace, the settings, the texts and the message boxes.
#pragma once

namespace tellwick {

class Debug;
class InifilesLite;
class LanguageTexts;
class QuestionBox;

// A module takes them as one and has them as its own, by private inheritance.
struct Services {
    Debug& debug;
    InifilesLite& inifilesLite;
    LanguageTexts& language;
    QuestionBox& questionBox;
};

}  // namespace tellwick
