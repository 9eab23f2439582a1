// The records of the trace: every procedure reports its entry and exit here; when tracing is on,
// each record becomes a line of the trace file (or, in registry mode, the one record kept in the
// registry).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/PendingError.h"
#include "platform/Registry.h"
#include "platform/Text.h"

namespace tellwick {

class ErrorBoxes;

// Levels of DebugTrace; any other number is a checkpoint inside the procedure.
namespace trace {
inline constexpr std::int32_t Enter = 0;
inline constexpr std::int32_t Exit = 999;
inline constexpr std::int32_t FreeText = -1;

inline constexpr TextView ModeName = u"DebugMode";  // in the registry and in the settings
inline constexpr std::int32_t RegistryMode = -1;
inline constexpr std::int32_t TimeStampBit = 16;
}  // namespace trace

// Whether records are made, and how.
struct TraceState {
    bool active = false;
    std::int32_t mode = 0;
    bool timeStamps = false;  // split off the mode
    bool silent = false;      // records are dropped: a text is being looked up for the trace itself
    Text traceFile;           // full path; empty until DebugInit names it
    Text indent;
    Text addInKey;
};

class Debug {
public:
    Debug(PendingError& errors, Registry& registry, ErrorBoxes& errorBoxes, FileSystem& fileSystem,
          Clock& clock, Locale& locale);

    // Writes one record. While tracing is off and no error is pending it counts, and every 256th
    // call looks whether tracing was switched on meanwhile. Never raises, never clears the error.
    void DebugTrace(TextView name, std::int32_t level) {
        if (!state.active && !errors.number) {
            if ((++idleCount & 0xFF) == 0xFF) LookForSwitchOn();
        } else {
            TraceCopy(name, level);
        }
    }
    // The length of a literal is known at once; a text view would count it at every call.
    template <std::size_t Size>
    void DebugTrace(const char16_t (&name)[Size], std::int32_t level) {
        DebugTrace(TextView(name, Size - 1), level);
    }
    // The same; while tracing is on, a free text has its German letters folded in place.
    void DebugTrace(Text& name, std::int32_t level);

    // Decides whether tracing is on, asks the user, and begins the trace file. With keyOnly it
    // only switches off and names the registry key. With force it decides anew although a trace
    // file is named already, and takes the question of a first switch-on as answered with OK.
    void DebugInit(bool force, bool keyOnly) {
        if (decide) decide(force, keyOnly);
    }
    // What DebugInit calls. It needs settings and texts, which report here and so are made later.
    void DecideWith(std::function<void(bool force, bool keyOnly)> newDecide) {
        decide = std::move(newDecide);
    }

    // Runs a step that the next ones must not depend on. What it throws is traced as the error it
    // stands for and goes no further; false then.
    template <class Action>
    bool Guarded(const Action& action) noexcept {
        try {
            action();
            return true;
        } catch (...) {
            TraceException();
            return false;
        }
    }

    // Inside a catch: traces what was caught as the error it stands for.
    void TraceException() noexcept;

    bool Active() const { return state.active; }
    std::int32_t Mode() const { return state.mode; }
    TraceState& State() { return state; }

    // The pending error of the procedure that runs now.
    PendingError& Errors() { return errors; }

private:
    void LookForSwitchOn() noexcept;
    void TraceCopy(TextView name, std::int32_t level) noexcept;
    void Trace(Text& name, std::int32_t level) noexcept;
    void ShowAndRecord(const PendingError& pending, Text& name, std::int32_t level);
    void Record(const PendingError& pending, Text& name, std::int32_t level);

    TraceState state;
    std::uint32_t idleCount = 0;
    std::function<void(bool force, bool keyOnly)> decide;

    PendingError& errors;
    Registry& registry;
    ErrorBoxes& errorBoxes;
    FileSystem& fileSystem;
    Clock& clock;
    Locale& locale;
};

// First line of every traced procedure: clears the pending error and writes the entry record; the
// exit record follows when the procedure is left, with the error that is pending then.
class Procedure {
public:
    Procedure(Debug& debug, TextView name) : debug(debug), name(name) {
        debug.Errors().Clear();
        debug.DebugTrace(name, trace::Enter);
    }
    template <std::size_t Size>
    Procedure(Debug& debug, const char16_t (&name)[Size])
        : Procedure(debug, TextView(name, Size - 1)) {}
    ~Procedure() { debug.DebugTrace(name, trace::Exit); }
    Procedure(const Procedure&) = delete;
    Procedure& operator=(const Procedure&) = delete;

private:
    Debug& debug;
    TextView name;
};

}  // namespace tellwick
