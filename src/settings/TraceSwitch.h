// The trace's switch: whether it is on, what the user is asked about it, and the beginning of its
// file.
#pragma once

#include <cstdint>

#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/Programs.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;
class InifilesLite;
class LanguageTexts;
class Paths;
class QuestionBox;
class RegEdit;
struct TraceState;

class TraceSwitch {
public:
    // From now on the trace asks here when it finds that it may have been switched on.
    TraceSwitch(Debug& debug, RegEdit& regEdit, InifilesLite& inifilesLite, Paths& paths,
                LanguageTexts& language, QuestionBox& questionBox, FileSystem& fileSystem,
                Programs& programs, Locale& locale);
    ~TraceSwitch();
    TraceSwitch(const TraceSwitch&) = delete;
    TraceSwitch& operator=(const TraceSwitch&) = delete;

    // Whether registry or settings have it switched on, whatever it does now. Both functions are
    // of use once DebugInit has named the registry key.
    bool SwitchedOn();
    // Switches it on, which is noticed while the program runs, or off from the next start on. A
    // trace that is on keeps its mode.
    void SwitchOn(bool on);

private:
    void DebugInit(bool force, bool keyOnly);
    std::int32_t ReadNumber(TextView name);
    std::int32_t ReadMode();
    bool AskFirstSwitchOn(bool force);
    void AskWhetherToStayOn();
    void StartFile();
    void CheckVirusScanner();
    Text MessageText(TextView key);

    Debug& debug;
    TraceState& state;
    RegEdit& regEdit;
    InifilesLite& inifilesLite;
    Paths& paths;
    LanguageTexts& language;
    QuestionBox& questionBox;
    FileSystem& fileSystem;
    Programs& programs;
    Locale& locale;
};

}  // namespace tellwick
