// The language files that ship with the add-in, against each other and the texts built in.
#include <doctest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "SettingsModules.h"
#include "language/BuiltInTexts.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

// Looked up with another fallback than a built-in text, or none.
constexpr std::array<std::array<TextView, 2>, 7> NotBuiltIn = {
    {{u"TellwickOutlookAddIn", u"mNewSMS"},
     {u"TellwickOutlookAddIn", u"ButtonSMS"},
     {u"Misc", u"Infrared"},
     {u"Misc", u"Outlook"},
     {u"Misc", u"no"},
     {u"Calendar", u"Anniversary"},
     {u"Calendar", u"Birthday"}}};

Text Name(TextView section, TextView key) {
    return Text(section).append(u"/").append(key);
}

std::set<Text> TextsLookedUp() {
    std::set<Text> names;
    for (const BuiltInTextEntry& text : BuiltInTexts()) names.insert(Name(text.section, text.key));
    for (const auto& text : NotBuiltIn) names.insert(Name(text[0], text[1]));
    return names;
}

struct ShippedFile {
    Text name;
    std::string bytes;
    std::vector<Text> names;  // of its texts, in their order
};

std::vector<ShippedFile> ShippedFiles() {
    std::vector<ShippedFile> files;
    MemoryLocale locale;
    for (const auto& entry : std::filesystem::directory_iterator(SOURCE_FOLDER "/lang")) {
        std::ifstream stream(entry.path(), std::ios::binary);
        ShippedFile file{entry.path().filename().u16string(),
                         std::string(std::istreambuf_iterator<char>(stream), {}),
                         {}};
        Text section;
        for (const Text& line : Split(locale.FromAnsi(file.bytes), LineBreak)) {
            const std::size_t equals = line.find(u'=');
            if (line.starts_with(u'[')) section = line.substr(1, line.size() - 2);
            if (equals != Text::npos) file.names.push_back(Name(section, line.substr(0, equals)));
        }
        files.push_back(std::move(file));
    }
    return files;
}

std::multiset<Text> Placeholders(TextView text) {
    std::multiset<Text> found;
    for (std::size_t at = text.find(u'%'); at != text.npos; at = text.find(u'%', at + 1)) {
        found.insert(Text(text.substr(at, 2)));
    }
    return found;
}

}  // namespace

TEST_CASE("every language file has the texts that are looked up, once each, and no other") {
    const std::vector<ShippedFile> files = ShippedFiles();
    REQUIRE(files.size() >= 2);
    for (const ShippedFile& file : files) {
        CAPTURE(file.name);
        const std::set<Text> names(file.names.begin(), file.names.end());
        CHECK(names.size() == file.names.size());
        for (const Text& name : TextsLookedUp()) {
            CAPTURE(name);
            CHECK(names.contains(name));
        }
        for (const Text& name : names) {
            CAPTURE(name);
            CHECK(TextsLookedUp().contains(name));
        }
        CHECK(file.name.ends_with(u".lng"));
        CHECK(file.bytes.starts_with("["));
        CHECK(file.bytes.ends_with("\r\n"));
        std::size_t loose = 0;
        for (std::size_t i = 0; i < file.bytes.size(); ++i) {
            loose += file.bytes[i] == '\n' && (i == 0 || file.bytes[i - 1] != '\r');
        }
        CHECK(loose == 0);
    }
}

TEST_CASE("the texts of every language file fit their places") {
    for (const ShippedFile& file : ShippedFiles()) {
        CAPTURE(file.name);
        SettingsModules m(file.bytes);
        std::set<Text> mnemonics;
        for (const BuiltInTextEntry& builtIn : BuiltInTexts()) {
            const Text text = m.language.GetLanguageString(builtIn.section, builtIn.key);
            CAPTURE(text);
            CHECK(!text.empty());
            if (file.name == u"Deutsch.lng") CHECK(text == builtIn.text);
            CHECK(Placeholders(text) == Placeholders(builtIn.text));
            // One letter for one control of a form.
            const std::size_t mark = text.find(u'&');
            CHECK((mark == Text::npos) == (builtIn.text.find(u'&') == TextView::npos));
            if (mark == Text::npos || builtIn.section == u"Messages") continue;
            CHECK(mnemonics.insert(Name(builtIn.section, LowerCase(text.substr(mark + 1, 1))))
                      .second);
        }
    }
}
