// Settings and language files of random bytes: the readers agree with the plainest reading of the
// rules, and nothing breaks. The seed is fixed.
#include <doctest.h>

#include <array>
#include <random>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;
using namespace std::string_view_literals;

namespace {

constexpr TextView Fuzzed = u"C:\\Data\\fuzz.ini";

struct Random {
    std::mt19937 engine{20031};
    std::size_t Below(std::size_t bound) { return engine() % bound; }
    template <class Array>
    auto Pick(const Array& array) {
        return array[Below(array.size())];
    }
    std::string File() {
        static constexpr std::array pieces = {
            "\r\n"sv, "\r\n"sv,        "["sv,    "]"sv,      "="sv,      "a"sv,          "B"sv,
            "\xC4"sv, "\r\n[a]\r\n"sv, "\n"sv,   "\r"sv,     " "sv,      "\t"sv,         "\\n"sv,
            "\0"sv,   "[="sv,          "\x81"sv, "\r\na="sv, "\r\nB="sv, "\r\n[B]\r\n"sv};
        std::string text;
        for (std::size_t i = Below(40); i > 0; --i) text += Pick(pieces);
        return text;
    }
    Text Name() {
        static constexpr std::array names = {u"a"sv, u"b"sv,  u"\u00E4"sv, u""sv,  u"a="sv,
                                             u"["sv, u"a]"sv, u"a\r"sv,    u"\n"sv};
        return Text(Pick(names));
    }
};

std::size_t Within(std::size_t position, TextView text) {
    return std::min(position, text.size());
}

// The whole text folded, and searched from the front each time.
Text PlainIniRead(const Text& text, const Text& section, const Text& key, const Text& other) {
    const Text folded = LowerCase(text);
    const std::size_t begin = folded.find(LowerCase(u"[" + section + u"]"));
    if (begin == Text::npos) return other;
    const std::size_t end = Within(folded.find(u"\r\n[", begin), text);
    const std::size_t at = folded.find(LowerCase(u"\r\n" + key + u"="), begin);
    if (at >= end) return other;
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
    const Text found = text.substr(value, Within(text.find(u"\r", value), text) - value);
    return ReplaceAll(ReplaceAll(found, u"\\n", u"\r"), u"\\t", u"\t");
}

}  // namespace

TEST_CASE("settings files of random bytes") {
    Random random;
    SettingsModules warm;
    for (int file = 0; file < 4000; ++file) {
        warm.SetFile(Fuzzed, random.File());
        for (int step = 0; step < 8; ++step) {
            const Text section = random.Name(), key = random.Name();
            if (random.Below(4) == 0) {
                CHECK(warm.iniFile.WriteToIniFile(Fuzzed, section, key, random.Name(),
                                                  random.Below(2) == 0, random.Below(2) == 0));
                warm.iniFile.Flush();
                continue;
            }
            const Text expected = PlainIniRead(warm.platform.locale.FromAnsi(warm.File(Fuzzed)),
                                               section, key, u"other");
            REQUIRE((warm.iniFile.ReadFromIniFile(Fuzzed, section, key, u"other", step == 0) ==
                     expected));
        }
    }
}

TEST_CASE("language files of random bytes") {
    Random random;
    for (int file = 0; file < 1500; ++file) {
        const std::string bytes = random.File();
        SettingsModules m(bytes);
        for (int step = 0; step < 12; ++step) {
            const Text section = random.Name(), key = random.Name();
            REQUIRE((m.language.GetLanguageString(section, key) ==
                     PlainLanguageRead(m.platform.locale.FromAnsi(bytes), section, key)));
        }
    }
}
