// The language files that ship with the add-in, against each other and the texts built in.
#include <doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "SettingsModules.h"
#include "language/BuiltInTexts.h"
#include "spool/SenderTexts.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

// Looked up with another fallback than a built-in text, or none.
constexpr std::array<std::array<TextView, 2>, 8> NotBuiltIn = {
    {{u"TellwickOutlookAddIn", u"mNewSMS"},
     {u"Misc", u"CodePage"},
     {u"Misc", u"Language"},
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

std::set<Text> TextsOfTheSender() {
    std::set<Text> names;
    for (const auto& text : sender::SenderTexts()) names.insert(Name(u"Sender", text.name));
    return names;
}

// What a language's readers have on their Windows, and what its texts hold beside ASCII: a file in
// another encoding decodes into other characters.
struct ShippedLanguage {
    TextView file;
    std::uint32_t codePage;
    TextView letters;
};
constexpr ShippedLanguage Languages[] = {
    {u"Cesky.lng", 1250, u"áčďéěíňóřšťúůýžČŠŽ„“"},
    {u"Deutsch.lng", 1252, u"äöüßÄÖÜ„“"},
    {u"English.lng", 1252, u"“”"},
    {u"Espanol.lng", 1252, u"áéíñóúüÚ¿“”"},
    {u"Francais.lng", 1252, u"àâçèéêîôùûÀÉ«»\u00A0"},
    {u"Nederlands.lng", 1252, u"éëï"},
    {u"Polski.lng", 1250, u"ąćęłńóśźżŁŚŻ„”"},
    {u"Portugues-BR.lng", 1252, u"áâãçéêíóôõúÚ“”"},
};

struct ShippedFile {
    ShippedLanguage language;
    std::string bytes;
    std::map<Text, Text> texts;  // by section and key

    explicit ShippedFile(const ShippedLanguage& shipped) : language(shipped) {
        std::ifstream stream(std::filesystem::path(SOURCE_FOLDER "/lang") / Text(shipped.file),
                             std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(stream), {});
        Text section;
        for (const Text& line :
             Split(*MemoryLocale().FromCodePage(shipped.codePage, bytes), LineBreak)) {
            const std::size_t equals = line.find(u'=');
            if (line.starts_with(u'[')) section = line.substr(1, line.size() - 2);
            if (equals == Text::npos) continue;
            const Text name = Name(section, line.substr(0, equals));
            CAPTURE(name);
            CHECK(texts.emplace(name, line.substr(equals + 1)).second);
        }
    }

    bool Knows(char16_t character) const {
        return character < 0x7F || language.letters.find(character) != TextView::npos;
    }
    // Whether every sign that a line must not begin with is held at its word as the language wants
    // it: in French by a blank that does not break, elsewhere without one.
    bool SignsHold(TextView text) const {
        const bool blank = Knows(0x00A0);
        for (std::size_t at = 1; at < text.size(); ++at) {
            const bool behindBlank = text[at - 1] == u' ';
            const bool held = text[at - 1] == 0x00A0;
            if (TextView(u":;?!»").find(text[at]) == TextView::npos) {
                if (blank && text.substr(at - 1, 2) == u"« ") return false;
                if (blank && behindBlank && text.substr(at, 2) == u"%)") return false;
            } else if (behindBlank || held != blank) {
                return false;
            }
        }
        return true;
    }
    // The letter behind "&", in lower case; 0 when there is none.
    char16_t Mnemonic(TextView text) const {
        const std::size_t mark = text.find(u'&');
        if (mark == TextView::npos) return 0;
        REQUIRE(mark + 1 < text.size());
        const char16_t letter = LowerCase(text[mark + 1]);
        CHECK(((letter >= u'a' && letter <= u'z') || letter > 0x7F));
        return letter;
    }
};

std::vector<ShippedFile> ShippedFiles() {
    return {std::begin(Languages), std::end(Languages)};
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
    std::set<Text> shipped;
    for (const auto& entry : std::filesystem::directory_iterator(SOURCE_FOLDER "/lang")) {
        shipped.insert(entry.path().filename().u16string());
    }
    std::set<Text> wanted = TextsLookedUp();
    wanted.merge(TextsOfTheSender());
    for (const ShippedFile& file : ShippedFiles()) {
        CAPTURE(Text(file.language.file));
        CHECK(shipped.erase(Text(file.language.file)) == 1);
        for (const Text& name : wanted) {
            CAPTURE(name);
            CHECK(file.texts.contains(name));
        }
        CHECK(file.texts.at(u"Misc/CodePage") == NumberText(file.language.codePage));
        for (const auto& text : file.texts) {
            CAPTURE(text.first);
            CHECK(wanted.contains(text.first));
        }
        CHECK(file.bytes.starts_with("["));
        CHECK(file.bytes.ends_with("\r\n"));
        std::size_t loose = 0;
        for (std::size_t i = 0; i < file.bytes.size(); ++i) {
            loose += file.bytes[i] == '\n' && (i == 0 || file.bytes[i - 1] != '\r');
        }
        CHECK(loose == 0);
    }
    CHECK(shipped.empty());
}

TEST_CASE("the texts of every language file fit their places") {
    for (ShippedFile& file : ShippedFiles()) {
        CAPTURE(Text(file.language.file));
        std::set<Text> mnemonics;
        for (const BuiltInTextEntry& builtIn : BuiltInTexts()) {
            const Text text =
                ReplaceAll(file.texts[Name(builtIn.section, builtIn.key)], u"\\n", u"\r");
            CAPTURE(text);
            CHECK(!text.empty());
            CHECK(std::all_of(text.begin(), text.end(),
                              [&](char16_t character) { return file.Knows(character); }));
            // The program calls concatenation by its English name where there is no language file.
            if (file.language.file == u"Deutsch.lng") {
                CHECK(builtIn.text == (builtIn.key == u"CheckLong" ? u"concatenate" : text));
            }
            CHECK(Placeholders(text) == Placeholders(builtIn.text));
            CHECK(file.SignsHold(text));
            const char16_t mnemonic = file.Mnemonic(text);
            CHECK((mnemonic != 0 || builtIn.text.find(u'&') == TextView::npos));
            // This one stands in boxes without other letters.
            if (mnemonic == 0 || builtIn.key == u"DoNotShowAgain") continue;
            // These stand in boxes of their own, with one check box.
            if (builtIn.key == u"Yes" || builtIn.key == u"No") {
                CHECK(mnemonic != file.Mnemonic(file.texts[u"Messages/DoNotAskAgain"]));
                continue;
            }
            // One letter for one control of a form or a box; a control's second caption keeps the
            // letter.
            const std::size_t second = builtIn.key.rfind(u".On");
            if (second != TextView::npos) {
                const Text first = Name(builtIn.section, builtIn.key.substr(0, second));
                CHECK(file.Mnemonic(file.texts[first]) == mnemonic);
            } else {
                CHECK(mnemonics.insert(Name(builtIn.section, {&mnemonic, 1})).second);
            }
        }
    }
}

TEST_CASE("the sender's texts fit their places in every language, one access key for one control") {
    using Entry = sender::SenderTextEntry;
    for (ShippedFile& file : ShippedFiles()) {
        CAPTURE(Text(file.language.file));
        std::set<std::pair<Entry::Place, char16_t>> mnemonics;
        for (const Entry& builtIn : sender::SenderTexts()) {
            const Text text = file.texts[Name(u"Sender", builtIn.name)];
            CAPTURE(text);
            CHECK(!text.empty());
            CHECK(std::all_of(text.begin(), text.end(),
                              [&](char16_t character) { return file.Knows(character); }));
            CHECK(Placeholders(text) == Placeholders(builtIn.text));
            CHECK(file.SignsHold(text));
            if (file.language.file == u"English.lng") CHECK(text == builtIn.text);
            const char16_t mnemonic = file.Mnemonic(text);
            CHECK((mnemonic != 0) == (builtIn.place != Entry::Said));
            if (mnemonic == 0) continue;
            CHECK(mnemonics.emplace(builtIn.place, mnemonic).second);
            if (builtIn.place == Entry::Settings) {
                for (const auto page : {Entry::ModemSettings, Entry::GatewaySettings}) {
                    CHECK(mnemonics.emplace(page, mnemonic).second);
                }
            }
        }
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
