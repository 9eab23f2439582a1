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

// The program's own code, without the table of built-in texts.
std::string Code() {
    std::string code;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER "/src")) {
        if (!entry.is_regular_file() || entry.path().filename() == "BuiltInTexts.cpp") continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        code.append(std::istreambuf_iterator<char>(stream), {});
    }
    return code;
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
            // The program calls concatenation by its English name where there is no language file.
            if (file.name == u"Deutsch.lng" && builtIn.key != u"CheckLong") {
                CHECK(text == builtIn.text);
            }
            CHECK(Placeholders(text) == Placeholders(builtIn.text));
            // One letter for one control of a form.
            const std::size_t mark = text.find(u'&');
            CHECK((mark != Text::npos || builtIn.text.find(u'&') == TextView::npos));
            // The second caption of a control that has two shares the first one's letter.
            if (mark == Text::npos || builtIn.section == u"Messages" ||
                builtIn.key.ends_with(u".On")) {
                continue;
            }
            CHECK(mnemonics.insert(Name(builtIn.section, LowerCase(text.substr(mark + 1, 1))))
                      .second);
        }
    }
}

TEST_CASE("without a language file the form has the captions it has always had") {
    for (const auto& [key, caption] :
         {std::pair<TextView, TextView>{u"Caption", u"Corvane - SMS erstellen"},
          {u"ButtonTo", u"A&n:"},
          {u"CheckFlash", u"Fl&ash SMS"},
          {u"CheckLong", u"concatenate"},
          {u"FrameTextbausteine", u"Textbausteine"},
          {u"ButtonSend", u"SMS senden"},
          {u"ButtonStore", u"SMS speichern"},
          {u"ButtonOK", u"&Ende"},
          {u"ButtonOptions", u"Eins&tellungen"},
          {u"ButtonExpand", u"E&rweitern >>"},
          {u"FrameOptions", u"Optionen"},
          {u"CheckStatus", u"Stat&us-Report"},
          {u"LabelExpires", u"&Gültigkeit:"},
          {u"ButtonHex", u"Hex"},
          {u"ButtonUcs2", u"Unicode"}}) {
        CAPTURE(Text(key));
        CHECK(BuiltInText(u"FormSmsSend", key) == caption);
    }
}

TEST_CASE("code and language files know the same keys") {
    const std::string code = Code();
    std::set<std::string> keys;
    for (const Text& name : TextsLookedUp()) {
        const Text key = name.substr(name.find(u'/') + 1);
        keys.emplace(key.begin(), key.end());
    }
    // Every key that is looked up as a literal has a text...
    int found = 0;
    for (const char* lookup :
         {"GetLanguageString(", "TextOrBuiltIn(", "FormText(", "MessageText("}) {
        for (std::size_t at = code.find(lookup); at != code.npos; at = code.find(lookup, at + 1)) {
            const std::string call = code.substr(at, code.find(';', at) - at);
            const std::string argument = call.substr(call.find_last_of(",(", call.find(')')) + 1);
            const std::string alone = argument.substr(0, argument.find(')'));
            if (alone.find('+') != alone.npos) continue;
            for (std::size_t quote = alone.find("u\""); quote != alone.npos;
                 quote = alone.find("u\"", alone.find('"', quote + 2))) {
                const std::string key =
                    alone.substr(quote + 2, alone.find('"', quote + 2) - quote - 2);
                CAPTURE(key);
                CHECK(keys.contains(key));
                ++found;
            }
        }
    }
    CHECK(found >= 10);
    // ... and every text is looked up: by its key, its control's name, or its message's number.
    for (const std::string& key : keys) {
        const bool message = key.starts_with("Msg");
        const std::string number =
            key.substr(std::min(key.size(), key.find_first_of("0123456789")));
        CAPTURE(key);
        CHECK((code.find("u\"" + key + "\"") != code.npos ||
               code.find("u\"" + key.substr(0, key.find('.')) + "\"") != code.npos ||
               (message && (code.find("= " + number + ";") != code.npos ||
                            code.find(", " + number + "}") != code.npos ||
                            code.find("Message(" + number + ",") != code.npos))));
    }
}
