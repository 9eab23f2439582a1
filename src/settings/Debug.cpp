#include "settings/Debug.h"

#include <cmath>
#include <exception>
#include <new>

#include "platform/Meanwhile.h"
#include "platform/Product.h"
#include "settings/ErrorBoxes.h"

namespace tellwick {

namespace {

constexpr std::size_t MaxIndent = 50;

// The pairs of the first three letters are crossed, and only the first of each letter is replaced.
// Deliberate: "Letters in free texts".
void FoldLetters(Text& text) {
    constexpr TextView letters = u"äöüÄÖÜß";
    constexpr TextView pairs = u"oeaeuaAeOeUess";
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const std::size_t found = text.find(letters[i]);
        if (found != Text::npos) text.replace(found, 1, pairs.substr(2 * i, 2));
    }
}

// The shortest decimal text that means these seconds of a day and no others. The standard library's
// function for all numbers would be an eighth of the whole add-in.
Text ShortestText(float seconds) {
    constexpr std::size_t MostDecimals = 9;
    double power = 1;
    double scaled = std::nearbyint(seconds);
    std::size_t decimals = 0;
    while (float(scaled / power) != seconds && decimals < MostDecimals) {
        power *= 10;
        ++decimals;
        scaled = std::nearbyint(double(seconds) * power);
    }
    Text digits = NumberText(std::int64_t(scaled));
    if (decimals == 0) return digits;
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), u'0');
    return digits.insert(digits.size() - decimals, 1, u'.');
}

}  // namespace

Debug::Debug(PendingError& errors, Registry& registry, ErrorBoxes& errorBoxes,
             FileSystem& fileSystem, Clock& clock, Locale& locale)
    : errors(errors),
      registry(registry),
      errorBoxes(errorBoxes),
      fileSystem(fileSystem),
      clock(clock),
      locale(locale) {}

void Debug::DebugTrace(Text& name, std::int32_t level) {
    if (state.active || errors.number) {
        Trace(name, level);
    } else {
        DebugTrace(TextView(name), level);
    }
}

void Debug::TraceCopy(TextView name, std::int32_t level) noexcept {
    try {
        Text copy(name);
        Trace(copy, level);
    } catch (...) {
        // No memory for a record: the program goes on without it.
    }
}

void Debug::LookForSwitchOn() noexcept {
    const Meanwhile pending(errors, PendingError());
    try {
        const auto mode = registry.Read(Hive::CurrentUser, state.addInKey, trace::ModeName);
        if (mode && LeadingNumber32(*mode) != 0) DebugInit(true, false);
    } catch (...) {
        // It is looked for again later.
    }
}

void Debug::Trace(Text& name, std::int32_t level) noexcept {
    // Kept for the caller: what runs in here neither adds to its error nor clears it.
    const Meanwhile pending(errors, PendingError());
    try {
        ShowAndRecord(pending.Before(), name, level);
    } catch (...) {
        // A record that cannot be made is left out.
    }
}

void Debug::TraceException() noexcept {
    try {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            errors.Note(error::OutOfMemory, u"Out of memory");
        } catch (const std::exception& thrown) {
            errors.Note(error::Automation, locale.FromAnsi(thrown.what()));
        } catch (...) {
            errors.Note(error::Automation, u"Automation error");
        }
        DebugTrace(u"Exception", trace::FreeText);
    } catch (...) {
        // Not even that: what was thrown has been caught, which is what counts.
    }
}

void Debug::ShowAndRecord(const PendingError& pending, Text& name, std::int32_t level) {
    errorBoxes.Show(pending);
    if (!state.active) {
        if ((++idleCount & 0xFF) == 0xFF) LookForSwitchOn();
    } else if (!state.silent) {
        Record(pending, name, level);
    }
}

void Debug::Record(const PendingError& pending, Text& name, std::int32_t level) {
    errorBoxes.ShowTraced(pending);
    if (level == trace::Exit && !state.indent.empty()) state.indent.pop_back();
    Text lines;
    if (pending) lines.append(state.indent).append(ErrorText(pending)).append(LineBreak);

    Text record;
    switch (level) {
        case trace::Enter:
            record.append(u"<").append(name).append(u">_");
            break;
        case trace::Exit:
            record.append(u"</").append(name).append(u">");
            break;
        case trace::FreeText:
            FoldLetters(name);
            record = name;
            break;
        default:
            record.append(name).append(NumberText(level));
    }

    if (state.mode == trace::RegistryMode) {
        registry.WriteString(Hive::CurrentUser, Text(RootKey) + u"\\Debug", u"", record);
    } else {
        if (state.timeStamps || (state.mode & trace::TimeStampBit)) {
            lines.append(ShortestText(clock.SecondsSinceMidnight())).append(u":");
        }
        lines.append(state.indent).append(record).append(LineBreak);
        fileSystem.Write(state.traceFile, locale.ToAnsi(lines), WriteMode::Append);
    }
    if (level == trace::Enter) {
        state.indent.insert(state.indent.begin(), u' ');
        if (state.indent.size() > MaxIndent) state.indent = u" ";
    }
}

}  // namespace tellwick
