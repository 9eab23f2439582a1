// What is fuzzed: each target reads bytes that someone else may have written and checks what must
// hold for every one of them.
#pragma once

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MemoryPlatform.h"

namespace tellwick::test {

// The bytes of one run: fields that end with a NUL each, and what is left behind them.
class Input {
public:
    explicit Input(std::string_view bytes) : bytes(bytes) {}

    std::string_view Field() {
        const std::string_view field = bytes.substr(0, bytes.find('\0'));
        bytes.remove_prefix(std::min(field.size() + 1, bytes.size()));
        return field;
    }
    // In code page 1252.
    Text TextField() { return MemoryLocale().FromAnsi(Field()); }
    std::string_view Rest() const { return bytes; }
    Text RestText() const { return MemoryLocale().FromAnsi(bytes); }

private:
    std::string_view bytes;
};

struct FuzzTarget {
    std::string_view name;
    void (*run)(Input input);
};

// Settings
void FuzzIni(Input input);
void FuzzLanguage(Input input);
void FuzzTrace(Input input);
// Recipients and templates
void FuzzNumbers(Input input);
void FuzzKnown(Input input);
void FuzzTemplates(Input input);
void FuzzList(Input input);
void FuzzPhone(Input input);
// Composing
void FuzzHex(Input input);
void FuzzAir(Input input);
void FuzzQueue(Input input);
void FuzzFields(Input input);

inline const std::vector<FuzzTarget> FuzzTargets = {
    {"ini", FuzzIni},         {"language", FuzzLanguage}, {"trace", FuzzTrace},
    {"numbers", FuzzNumbers}, {"known", FuzzKnown},       {"templates", FuzzTemplates},
    {"list", FuzzList},       {"phone", FuzzPhone},       {"hex", FuzzHex},
    {"air", FuzzAir},         {"queue", FuzzQueue},       {"fields", FuzzFields}};

// Ends the run as a fault that was found.
inline void Require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

// Without control characters and brackets: such texts in a settings file leave the lines and
// sections around them what they are.
inline bool IsPlain(TextView text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit >= u' ' && unit != u'[' && unit != u']'; });
}

// A settings file as the engine itself leaves it: a bracket only where a line begins or behind it
// as the header's end, a control character only in a line break.
inline bool IsWellFormed(TextView file) {
    const std::vector<Text> lines = Split(file, LineBreak);
    return std::all_of(lines.begin(), lines.end(), [](TextView line) {
        if (!line.starts_with(u'[')) return IsPlain(line);
        return line.ends_with(u']') && IsPlain(line.substr(1, line.size() - 2));
    });
}

// Whether no section and no key stands twice in a settings file: only the first of several counts,
// and when that one is removed the next one comes to light.
inline bool HasNothingTwice(TextView file) {
    std::set<Text> seen;
    const std::vector<Text> lines = Split(LowerCase(file), LineBreak);
    return std::all_of(lines.begin(), lines.end(), [&](const Text& line) {
        return line.empty() || seen.insert(line.substr(0, line.find(u'='))).second;
    });
}

}  // namespace tellwick::test
