#include "compose/CharacterName.h"

#include <algorithm>

#include "air/AirCount.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView Section = u"Characters";

struct Named {
    TextView key;
    char16_t first, last;
    bool withCode;  // several characters share the name
};
constexpr Named names[] = {{u"Tab", u'\t', u'\t', false},
                           {u"LineBreak", u'\n', u'\r', false},
                           {u"Space", u' ', u' ', false},
                           {u"LineBreak", 0x0085, 0x0085, false},
                           {u"NoBreakSpace", 0x00A0, 0x00A0, false},
                           {u"SoftHyphen", 0x00AD, 0x00AD, false},
                           {u"Space", 0x2000, 0x200A, true},
                           {u"Invisible", 0x200B, 0x200F, true},
                           {u"LineBreak", 0x2028, 0x2029, false},
                           {u"Invisible", 0x202A, 0x202E, true},
                           {u"Space", 0x202F, 0x202F, true},
                           {u"Space", 0x205F, 0x205F, true},
                           {u"Invisible", 0x2060, 0x206F, true},
                           {u"Space", 0x3000, 0x3000, true},
                           {u"Invisible", 0xFEFF, 0xFEFF, true}};

Text CodeOf(char16_t unit) {
    const Text code = HexText(unit);
    return u"U+" + Text(4 - std::min(code.size(), std::size_t(4)), u'0') + code;
}

// Control characters, halves of a pair, and accents, which need a letter.
bool CannotStandAlone(char16_t unit) {
    return unit < u' ' || (unit >= 0x7F && unit < 0xA0) || (unit >= 0xD800 && unit < 0xE000) ||
           CutsCharacter(Text(u"x") + unit, 1);
}

}  // namespace

Text CharacterName(LanguageTexts& language, TextView character) {
    const char16_t unit = character[0];
    const auto* const named =
        std::find_if(std::begin(names), std::end(names),
                     [unit](const Named& one) { return unit >= one.first && unit <= one.last; });
    if (named != std::end(names)) {
        const Text name = language.TextOrBuiltIn(Section, named->key);
        return named->withCode ? name + u" (" + CodeOf(unit) + u")" : name;
    }
    return character.size() == 1 && CannotStandAlone(unit) ? CodeOf(unit) : Text(character);
}

}  // namespace tellwick
