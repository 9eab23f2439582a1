#include "settings/TraceSwitch.h"

#include "platform/Meanwhile.h"
#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/Paths.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int32_t LevelBits = 15;
constexpr TextView FileEnding = u".xml";
constexpr TextView SettingsSection = u"Debug";

}  // namespace

TraceSwitch::TraceSwitch(Debug& debug, RegEdit& regEdit, InifilesLite& inifilesLite, Paths& paths,
                         LanguageTexts& language, QuestionBox& questionBox, FileSystem& fileSystem,
                         Programs& programs, Locale& locale)
    : debug(debug),
      state(debug.State()),
      regEdit(regEdit),
      inifilesLite(inifilesLite),
      paths(paths),
      language(language),
      questionBox(questionBox),
      fileSystem(fileSystem),
      programs(programs),
      locale(locale) {
    debug.DecideWith([this](bool force, bool keyOnly) { DebugInit(force, keyOnly); });
}

TraceSwitch::~TraceSwitch() {
    debug.DecideWith({});
}

std::int32_t TraceSwitch::ReadNumber(TextView name) {
    return LeadingNumber32(regEdit.ReadValue(Hive::CurrentUser, state.addInKey, name));
}

std::int32_t TraceSwitch::ReadMode() {
    const std::int32_t inRegistry = ReadNumber(trace::ModeName);
    if (inRegistry != 0) return inRegistry;
    return LeadingNumber32(inifilesLite.GetBaseIniSetting(SettingsSection, trace::ModeName));
}

bool TraceSwitch::SwitchedOn() {
    return ReadMode() != 0;
}

void TraceSwitch::SwitchOn(bool on) {
    if (on == SwitchedOn()) return;
    regEdit.WriteValue(Hive::CurrentUser, state.addInKey, trace::ModeName, on ? u"1" : u"0");
    if (!on && !inifilesLite.GetBaseIniSetting(SettingsSection, trace::ModeName).empty()) {
        inifilesLite.SetIniSettingWithTest(SettingsSection, trace::ModeName, {});
    }
}

void TraceSwitch::DebugInit(bool force, bool keyOnly) {
    bool start = state.active;
    if (state.traceFile.empty() || force) {
        state.indent.clear();
        state.active = false;
        state.addInKey = AddInKey;
        if (keyOnly) return;

        const bool addInIsActive = ReadNumber(u"Active") != 0;
        state.timeStamps = false;
        state.mode = ReadMode();
        state.active = state.mode != 0;
        if (state.traceFile.empty()) {
            const Text name = Text(ApplicationName) + u"AddIn";
            state.traceFile =
                paths.ProgramFolder() + ReplaceAll(name, u" ", u"") + u".dbg" + Text(FileEnding);
        }
        start = state.active;
        if (!state.active) {
            // Nothing to ask and nothing to begin.
        } else if (programs.CommandLine() == u"restart" || !addInIsActive) {
            AskWhetherToStayOn();
            start = state.active;
        } else {
            start = AskFirstSwitchOn(force);
        }
    } else if (!state.active) {
        return;
    }
    if (start) StartFile();
    regEdit.DeleteKey(Hive::CurrentUser, RootKey, u"Debug");
}

// False when the user wants no trace file begun; tracing stays as the mode made it.
bool TraceSwitch::AskFirstSwitchOn(bool force) {
    // The last replacement also finds the name in the path. Deliberate: "The folder in the first
    // question".
    Text question = ReplaceAll(MessageText(u"Debug1"), u"%f", state.traceFile);
    question = ReplaceAll(question, u"%e", u"");
    question = ReplaceAll(question, ApplicationName, Text(ApplicationName) + u" AddIn");
    Text title(ApplicationName);
    if (!force &&
        questionBox.MsgBoxEx(question, box::OkCancel | box::IconExclamation, title) != Answer::Ok) {
        return false;
    }
    if (state.mode > 0) {
        CheckVirusScanner();
        state.timeStamps = (state.mode & trace::TimeStampBit) != 0;
        state.mode &= LevelBits;
        if (state.mode == 0) state.mode = 1;
    }
    state.active = true;
    return true;
}

void TraceSwitch::AskWhetherToStayOn() {
    // A box with Yes and No never gives OK. Deliberate: "The answer that changes nothing".
    if (questionBox.MsgBoxEx(MessageText(u"Debug2"), box::YesNo) == Answer::Ok) {
        regEdit.WriteValue(Hive::CurrentUser, state.addInKey, trace::ModeName, u"0");
        state.mode = 0;
        state.active = false;
    }
    if (state.mode > 0) CheckVirusScanner();
}

void TraceSwitch::StartFile() {
    state.active = true;
    if (state.mode == trace::RegistryMode) return;
    Text& file = state.traceFile;
    if (file.size() > 1 && file.front() == u'"' && file.back() == u'"') {
        file = file.substr(1, file.size() - 2);
    }
    const Text older = file.substr(0, file.size() - FileEnding.size());
    if (fileSystem.Exists(older)) fileSystem.Delete(older);
    const std::int64_t length = fileSystem.Length(file);
    const bool tooLong =
        length > inifilesLite.GetIniSettingNum(SettingsSection, u"MaxSize", u"4000000");
    if (tooLong) fileSystem.Delete(file);
    if (tooLong || length < 0) debug.DebugTrace(u"start", trace::Enter);
    fileSystem.Write(file, locale.ToAnsi(LineBreak), WriteMode::Append);
}

void TraceSwitch::CheckVirusScanner() {
    if (!regEdit
             .ReadValue(Hive::LocalMachine,
                        u"SOFTWARE\\KasperskyLab\\InstalledProducts\\Kaspersky Anti-Virus Personal",
                        u"Folder")
             .empty()) {
        questionBox.MsgBoxMessage(232, box::IconInformation);
    }
}

// Looked up without a record: the trace file has not been begun, and may be at its limit.
Text TraceSwitch::MessageText(TextView key) {
    const Meanwhile lookedUp(state.silent, true);
    return language.TextOrBuiltIn(u"Messages", key);
}

}  // namespace tellwick
