// The readers of settings files, language files and trace settings, against the plainest reading
// of their rules.
#include "fuzz/Targets.h"
#include "platform/Modules.h"
#include "platform/Product.h"

namespace tellwick::test {

namespace {

constexpr TextView Fuzzed = u"C:\\Data\\fuzz.ini";
constexpr TextView None = u"(none)";

struct FileModules : MemoryPlatform, Modules {
    FileModules() : Modules(Ports()) {}
    void SetFile(TextView path, std::string_view contents) {
        fileSystem.Write(path, contents, WriteMode::Replace);
    }
    const std::string& File(TextView path) { return fileSystem.files[Text(path)].contents; }
};

std::size_t Within(std::size_t position, TextView text) {
    return std::min(position, text.size());
}

// The whole text folded, and searched from the front each time.
Text PlainIniRead(const Text& text, const Text& section, const Text& key) {
    const Text folded = LowerCase(text);
    const std::size_t begin = folded.find(LowerCase(u"[" + section + u"]"));
    if (begin == Text::npos) return Text(None);
    const std::size_t end = Within(folded.find(u"\r\n[", begin), text);
    const std::size_t at = folded.find(LowerCase(u"\r\n" + key + u"="), begin);
    if (at >= end) return Text(None);
    const std::size_t value = at + 2 + key.size() + 1;
    return text.substr(value, Within(text.find(u"\r\n", value), text) - value);
}

Text PlainLanguageRead(Text text, const Text& section, const Text& key) {
    text = ReplaceAll(ReplaceAll(text, u"\r\n", u"\r"), u"\n", u"\r");
    const std::size_t begin =
        text.find(section.starts_with(u'[') ? section : u"[" + section + u"]");
    if (begin == Text::npos) return {};
    std::size_t end = text.find(u"\r[", begin);
    if (end != Text::npos && text.substr(end + 2, 1) == u"=") end = text.find(u"\r[", end + 1);
    const std::size_t at = text.find(u"\r" + key + u"=", begin);
    if (at >= Within(end, text)) return {};
    const std::size_t value = at + 1 + key.size() + 1;
    const Text found = text.substr(value, Within(text.find(u'\r', value), text) - value);
    return ReplaceAll(ReplaceAll(found, u"\\n", u"\r"), u"\\t", u"\t");
}

// What differs between the lines of two files, blank ones left out: so many lines of the first
// stand in place of so many of the second.
std::pair<std::ptrdiff_t, std::ptrdiff_t> Difference(TextView before, TextView after) {
    std::vector<Text> from = Split(before, LineBreak), to = Split(after, LineBreak);
    std::erase(from, Text());
    std::erase(to, Text());
    const auto shorter = std::ptrdiff_t(std::min(from.size(), to.size()));
    const auto head = std::mismatch(from.begin(), from.begin() + shorter, to.begin());
    const std::ptrdiff_t left = shorter - (head.first - from.begin());
    const auto tail = std::mismatch(from.rbegin(), from.rbegin() + left, to.rbegin());
    return {tail.first.base() - head.first, tail.second.base() - head.second};
}

struct Step {
    char what;  // 'r' reads, 'w' writes, 'e' writes and keeps an empty value, 'f' forgets
    Text section, key, value;
};

// The steps in front of a file, up to an empty field.
std::vector<Step> Steps(Input& input) {
    std::vector<Step> steps;
    for (;;) {
        const Text head = input.TextField();
        if (head.empty()) return steps;
        Step& step = steps.emplace_back(Step{char(head[0]), head.substr(1), input.TextField(), {}});
        if (step.what != 'r') step.value = input.TextField();
    }
}

}  // namespace

// Steps over one file that stays in memory between them.
void FuzzIni(Input input) {
    FileModules m;
    const std::vector<Step> steps = Steps(input);
    m.SetFile(Fuzzed, input.Rest());
    const auto text = [&m] { return m.locale.FromAnsi(m.File(Fuzzed)); };
    for (const Step& step : steps) {
        const Text before = text();
        if (step.what == 'r') {
            Require(m.iniFile.ReadFromIniFile(Fuzzed, step.section, step.key, None) ==
                        PlainIniRead(before, step.section, step.key),
                    "an entry is read as the plainest search finds it");
            continue;
        }
        if (step.what == 'f') {
            m.SetFile(Fuzzed, m.File(Fuzzed) + "\r\n");
            m.iniFile.ReadFromIniFile(Fuzzed, step.section, step.key, None, 1);
            continue;
        }
        Require(m.iniFile.WriteToIniFile(Fuzzed, step.section, step.key, step.value, true,
                                         step.what == 'e'),
                "a file that can be written is written");
        if (!IsWellFormed(before) || !IsPlain(step.section + step.key + step.value) ||
            Contains(step.key, u"=")) {
            continue;
        }
        const Text after = text();
        Require(IsWellFormed(after), "a well-formed file stays one");
        const auto [removed, added] = Difference(before, after);
        const bool removes = step.value.empty() && step.what != 'e';
        Require(removed <= 1 && added <= (removes        ? 0
                                          : removed == 1 ? 1
                                                         : 2),
                "a write changes its own line and no other");
        if (removes) continue;
        Require(PlainIniRead(after, step.section, step.key) == step.value,
                "what was written is read back");
    }
}

void FuzzLanguage(Input input) {
    const std::vector<Step> steps = Steps(input);
    FileModules m;
    m.SetFile(u"C:\\Program\\English.lng", input.Rest());
    for (const Step& step : steps) {
        Require(m.language.GetLanguageString(step.section, step.key) ==
                    PlainLanguageRead(input.RestText(), step.section, step.key),
                "a text is found as the plainest search finds it");
    }
}

// Fields: how the user answers, "Active" and "DebugMode" of the registry, a procedure's name; then
// the settings file.
void FuzzTrace(Input input) {
    constexpr TextView baseFile = u"C:\\Program\\corvane.ini";
    constexpr TextView traceFile = u"C:\\Program\\TellwickAddIn.dbg.xml";
    constexpr std::array<std::int32_t, 4> levels = {trace::FreeText, 7, trace::Exit, trace::Enter};
    const std::string_view answers = input.Field();
    FileModules m;
    for (const TextView name : {u"Active", u"DebugMode"}) {
        m.registry.WriteString(Hive::CurrentUser, AddInKey, name, input.TextField());
    }
    Text name = input.TextField();
    for (const char answer : answers) m.dialogs.answers.push_back(Answer(answer & 7));
    const bool refused = !answers.empty();
    m.SetFile(baseFile, input.Rest());
    m.SetFile(traceFile, "older records");
    m.inifilesLite.GetIniFile();
    const std::int32_t maxSize = m.inifilesLite.GetIniSettingNum(u"Debug", u"MaxSize", u"4000000");

    m.debug.DebugInit(false, false);
    Require(m.debug.Active() == (m.debug.Mode() != 0), "tracing is on in every mode but 0");
    const bool inFile = m.debug.Active() && m.debug.Mode() != -1;
    if (inFile && !refused) {
        Require(m.File(traceFile).starts_with("older") == (maxSize >= 13),
                "a file above its limit begins anew, any other is continued");
    }
    std::size_t length = m.File(traceFile).size();
    const bool oneLine = !Contains(name, u"\r") && !Contains(name, u"\n");
    for (int depth = 0; depth < 80; ++depth) {
        m.errors.Note(depth % 2 ? error::FileNotFound : 0, u"description");
        m.debug.DebugTrace(name, depth < 60 ? trace::Enter : levels[std::size_t(depth % 4)]);
        Require(m.errors.number == (depth % 2 ? error::FileNotFound : 0),
                "the pending error stays as it was");
        const std::string gained = m.File(traceFile).substr(length);
        length += gained.size();
        Require(gained.empty() != inFile, "a record goes to the file when it is to");
        Require(!inFile || gained.ends_with("\r\n"), "a record is a line");
        Require(!inFile || !oneLine ||
                    std::count(gained.begin(), gained.end(), '\n') == (m.errors ? 2 : 1),
                "a record is one line, and one more for an error");
    }
    for (const bool on : {true, false}) {
        m.traceSwitch.SwitchOn(on);
        Require(m.traceSwitch.SwitchedOn() == on || !HasNothingTwice(input.RestText()),
                "tracing can be switched on and off");
    }
}

}  // namespace tellwick::test
