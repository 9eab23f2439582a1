#include "settings/Debug.h"

#include <array>
#include <charconv>
#include <exception>
#include <new>

#include "platform/Meanwhile.h"
#include "platform/Product.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/Paths.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int32_t RegistryMode = -1;
constexpr std::int32_t LevelBits = 15;
constexpr std::int32_t TimeStampBit = 16;
constexpr std::size_t MaxIndent = 50;
constexpr TextView FileEnding = u".xml";
constexpr TextView SettingsSection = u"Debug";
constexpr TextView ModeName = u"DebugMode";  // in the registry and in the settings

// The pairs of the first three letters are crossed, and only the first occurrence of each letter
// is replaced; both are deliberate.
void FoldLetters(Text& text) {
    constexpr TextView letters = u"äöüÄÖÜß";
    constexpr TextView pairs = u"oeaeuaAeOeUess";
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const std::size_t found = text.find(letters[i]);
        if (found != Text::npos) text.replace(found, 1, pairs.substr(2 * i, 2));
    }
}

Text ErrorText(const PendingError& error) {
    return NumberText(error.number) + u":" + error.description;
}

// The shortest decimal text of the number, without an exponent.
Text ShortestText(float number) {
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed);
    return Text(digits.begin(), end.ptr);
}

}  // namespace

Debug::Debug(PendingError& errors, RegEdit& regEdit, InifilesLite& inifilesLite, Paths& paths,
             LanguageTexts& language, QuestionBox& questionBox, FileSystem& fileSystem,
             Programs& programs, Clock& clock, Locale& locale)
    : errors(errors),
      regEdit(regEdit),
      inifilesLite(inifilesLite),
      paths(paths),
      language(language),
      questionBox(questionBox),
      fileSystem(fileSystem),
      programs(programs),
      clock(clock),
      locale(locale) {}

void Debug::DebugTrace(Text& name, std::int32_t level) {
    if (active || errors.number) {
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

std::int32_t Debug::ReadNumber(TextView name) {
    return LeadingNumber32(regEdit.ReadValue(Hive::CurrentUser, addInKey, name));
}

std::int32_t Debug::ReadMode() {
    const std::int32_t inRegistry = ReadNumber(ModeName);
    if (inRegistry != 0) return inRegistry;
    return LeadingNumber32(inifilesLite.GetBaseIniSetting(SettingsSection, ModeName));
}

bool Debug::SwitchedOn() {
    return ReadMode() != 0;
}

void Debug::SwitchOn(bool on) {
    if (on == SwitchedOn()) return;
    regEdit.WriteValue(Hive::CurrentUser, addInKey, ModeName, on ? u"1" : u"0");
    if (!on && !inifilesLite.GetBaseIniSetting(SettingsSection, ModeName).empty()) {
        inifilesLite.SetIniSettingWithTest(SettingsSection, ModeName, {});
    }
}

void Debug::LookForSwitchOn() noexcept {
    const Meanwhile pending(errors, PendingError());
    try {
        if (ReadNumber(ModeName) != 0) DebugInit(true, false);
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
    switch (pending.number) {
        case error::OutOfMemory:
        case error::ControlNotLoaded:
        case error::ControlNotLoadedHere:
            questionBox.MsgBoxEx(ErrorText(pending), box::IconExclamation);
            break;
        default:
            break;
    }
    if (!active) {
        if ((++idleCount & 0xFF) == 0xFF) LookForSwitchOn();
    } else if (!silent) {
        Record(pending, name, level);
    }
}

void Debug::Record(const PendingError& pending, Text& name, std::int32_t level) {
    if (pending.number == error::ComponentMissing) {
        questionBox.MsgBoxEx(u"E#" + ErrorText(pending), box::IconExclamation);
    }
    if (level == trace::Exit && !indent.empty()) indent.pop_back();
    Text lines;
    if (pending) lines.append(indent).append(ErrorText(pending)).append(LineBreak);

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

    // A registry value that cannot be written would be traced in its turn, without end.
    const Meanwhile recording(silent, true);
    if (mode == RegistryMode) {
        regEdit.WriteValue(Hive::CurrentUser, Text(RootKey) + u"\\Debug", u"", record);
    } else {
        if (timeStamps || (mode & TimeStampBit)) {
            lines.append(ShortestText(clock.SecondsSinceMidnight())).append(u":");
        }
        lines.append(indent).append(record).append(LineBreak);
        fileSystem.Write(traceFile, locale.ToAnsi(lines), WriteMode::Append);
    }
    if (level == trace::Enter) {
        indent.insert(indent.begin(), u' ');
        if (indent.size() > MaxIndent) indent = u" ";
    }
}

void Debug::DebugInit(bool force, bool keyOnly) {
    bool start = active;
    if (traceFile.empty() || force) {
        indent.clear();
        active = false;
        addInKey = AddInKey;
        if (keyOnly) return;

        const bool addInActive = ReadNumber(u"Active") != 0;
        timeStamps = false;
        mode = ReadMode();
        active = mode != 0;
        if (traceFile.empty()) {
            const Text name = Text(ApplicationName) + u"AddIn";
            traceFile =
                paths.ProgramFolder() + ReplaceAll(name, u" ", u"") + u".dbg" + Text(FileEnding);
        }
        start = active;
        if (!active) {
            // Nothing to ask and nothing to begin.
        } else if (programs.CommandLine() == u"restart" || !addInActive) {
            AskWhetherToStayOn();
            start = active;
        } else {
            start = AskFirstSwitchOn(force);
        }
    } else if (!active) {
        return;
    }
    if (start) StartFile();
    regEdit.DeleteKey(Hive::CurrentUser, RootKey, u"Debug");
}

// False when the user wants no trace file begun; tracing stays as the mode made it.
bool Debug::AskFirstSwitchOn(bool force) {
    // The file's own path takes part in the last replacement; that is deliberate.
    Text question = ReplaceAll(MessageText(u"Debug1"), u"%f", traceFile);
    question = ReplaceAll(question, u"%e", u"");
    question = ReplaceAll(question, ApplicationName, Text(ApplicationName) + u" AddIn");
    Text title(ApplicationName);
    if (!force &&
        questionBox.MsgBoxEx(question, box::OkCancel | box::IconExclamation, title) != Answer::Ok) {
        return false;
    }
    if (mode > 0) {
        CheckVirusScanner();
        timeStamps = (mode & TimeStampBit) != 0;
        mode &= LevelBits;
        if (mode == 0) mode = 1;
    }
    active = true;
    return true;
}

void Debug::AskWhetherToStayOn() {
    // A box with Yes and No never gives OK, so tracing is never switched off here; deliberate.
    if (questionBox.MsgBoxEx(MessageText(u"Debug2"), box::YesNo) == Answer::Ok) {
        regEdit.WriteValue(Hive::CurrentUser, addInKey, ModeName, u"0");
        mode = 0;
        active = false;
    }
    if (mode > 0) CheckVirusScanner();
}

void Debug::StartFile() {
    active = true;
    if (mode == RegistryMode) return;
    if (traceFile.size() > 1 && traceFile.front() == u'"' && traceFile.back() == u'"') {
        traceFile = traceFile.substr(1, traceFile.size() - 2);
    }
    const Text older = traceFile.substr(0, traceFile.size() - FileEnding.size());
    if (fileSystem.Exists(older)) fileSystem.Delete(older);
    const std::int64_t length = fileSystem.Length(traceFile);
    const bool tooLong =
        length > inifilesLite.GetIniSettingNum(SettingsSection, u"MaxSize", u"4000000");
    if (tooLong) fileSystem.Delete(traceFile);
    if (tooLong || length < 0) DebugTrace(u"start", trace::Enter);
    fileSystem.Write(traceFile, locale.ToAnsi(LineBreak), WriteMode::Append);
}

void Debug::CheckVirusScanner() {
    if (!regEdit
             .ReadValue(Hive::LocalMachine,
                        u"SOFTWARE\\KasperskyLab\\InstalledProducts\\Kaspersky Anti-Virus Personal",
                        u"Folder")
             .empty()) {
        questionBox.MsgBoxMessage(232, box::IconInformation);
    }
}

// Looked up without a record: the trace file has not been begun, and may be at its limit.
Text Debug::MessageText(TextView key) {
    const Meanwhile lookedUp(silent, true);
    return language.TextOrBuiltIn(u"Messages", key);
}

}  // namespace tellwick
