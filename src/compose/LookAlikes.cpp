#include "compose/LookAlikes.h"

#include <algorithm>

#include "air/AirCount.h"

namespace tellwick {

namespace {

// Each letter's plainer one, one accent less; "-" where there is none.
constexpr TextView Latin =  // from U+00C0
    u"AAAAAA-CEEEEIIIIDNOOOOO-OUUUUY--aaaaaa-ceeeeiiiidnooooo-ouuuuy-y"
    u"AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi--JjKkkLlLlLlL"
    u"lLlNnNnNn-NnOoOoÖö--RrRrRrSsSsSsSsTtTtTtUuUuUuUuÜüUuWwYyYZzZzZzs"
    u"bB-----CcDD------FfG---IKkl--NnOOo--Pp-----tTtTUu-VYyZz---------"
    u"-------------AaIiOoUuÜüÜüÜüÜü-ÄäȦȧÆæGgGgKkOoǪǫƷʒj---Gg--NnÅåÆæØø"
    u"AaAaEeEeIiIiOoOoRrRrUuUuSsTt--Hh----ZzAaEeÖöÕõOoȮȯYy------ACcLTs"
    u"z--BU-EeJj--RrYy";
constexpr TextView LatinAdditional =  // from U+1E00
    u"AaBbBbBbÇçDdDdDdDdDdĒēĒēEeEeȨȩFfGgHhHhHhHhHhIiÏïKkKkKkLlḶḷLlLlMm"
    u"MmMmNnNnNnNnÕõÕõŌōŌōPpPpRrRrṚṛRrSsSsŚśŠšṢṣTtTtTtTtUuUuUuŨũŪūVvVv"
    u"WwWwWwWwWwXxXxYyZzZzZzhtwy-ſ----AaAaÂâÂâÂâÂâẠạĂăĂăĂăĂăẠạEeEeEeÊê"
    u"ÊêÊêÊêẸẹIiIiOoOoÔôÔôÔôÔôỌọƠơƠơƠơƠơƠơUuUuƯưƯưƯưƯưƯưYyYyYyYy------";

struct Plainer {
    char16_t character;
    TextView plainer;
};

// Letters that become two.
constexpr Plainer Ligatures[] = {
    {u'Æ', u"AE"},   {u'Þ', u"Th"},    {u'ß', u"ss"},   {u'æ', u"ae"},   {u'þ', u"th"},
    {u'Ĳ', u"IJ"},   {u'ĳ', u"ij"},    {u'ŉ', u"'n"},   {u'Œ', u"OE"},   {u'œ', u"oe"},
    {u'Ǆ', u"DŽ"},   {u'ǅ', u"Dž"},    {u'ǆ', u"dž"},   {u'Ǉ', u"LJ"},   {u'ǈ', u"Lj"},
    {u'ǉ', u"lj"},   {u'Ǌ', u"NJ"},    {u'ǋ', u"Nj"},   {u'ǌ', u"nj"},   {u'Ǳ', u"DZ"},
    {u'ǲ', u"Dz"},   {u'ǳ', u"dz"},    {0x1E9E, u"SS"}, {0xFB00, u"ff"}, {0xFB01, u"fi"},
    {0xFB02, u"fl"}, {0xFB03, u"ffi"}, {0xFB04, u"ffl"}};

// The same character for the eye, in ascending order.
constexpr Plainer Typography[] = {
    {u'\t', u" "},    {u'`', u"'"},      {0x00A0, u" "},    {0x00A6, u"|"},    {0x00A9, u"(c)"},
    {0x00AB, u"\""},  {0x00AD, u""},     {0x00AE, u"(R)"},  {0x00B1, u"+/-"},  {0x00B2, u"^2"},
    {0x00B3, u"^3"},  {0x00B4, u"'"},    {0x00B5, u"u"},    {0x00B7, u"."},    {0x00BB, u"\""},
    {0x00D7, u"x"},   {0x02B9, u"'"},    {0x02BA, u"\""},   {0x02BB, u"'"},    {0x02BC, u"'"},
    {0x02C6, u"^"},   {0x02C8, u"'"},    {0x02DC, u"~"},    {0x037E, u";"},    {0x0391, u"A"},
    {0x0392, u"B"},   {0x0395, u"E"},    {0x0396, u"Z"},    {0x0397, u"H"},    {0x0399, u"I"},
    {0x039A, u"K"},   {0x039C, u"M"},    {0x039D, u"N"},    {0x039F, u"O"},    {0x03A1, u"P"},
    {0x03A4, u"T"},   {0x03A5, u"Y"},    {0x03A7, u"X"},    {0x03BC, u"u"},    {0x2000, u" "},
    {0x2001, u" "},   {0x2002, u" "},    {0x2003, u" "},    {0x2004, u" "},    {0x2005, u" "},
    {0x2006, u" "},   {0x2007, u" "},    {0x2008, u" "},    {0x2009, u" "},    {0x200A, u" "},
    {0x200B, u""},    {0x200E, u""},     {0x200F, u""},     {0x2010, u"-"},    {0x2011, u"-"},
    {0x2012, u"-"},   {0x2013, u"-"},    {0x2014, u"-"},    {0x2015, u"-"},    {0x2018, u"'"},
    {0x2019, u"'"},   {0x201A, u"'"},    {0x201B, u"'"},    {0x201C, u"\""},   {0x201D, u"\""},
    {0x201E, u"\""},  {0x201F, u"\""},   {0x2022, u"*"},    {0x2023, u"*"},    {0x2024, u"."},
    {0x2025, u".."},  {0x2026, u"..."},  {0x2028, u"\r\n"}, {0x2029, u"\r\n"}, {0x202F, u" "},
    {0x2032, u"'"},   {0x2033, u"\""},   {0x2035, u"'"},    {0x2036, u"\""},   {0x2039, u"'"},
    {0x203A, u"'"},   {0x203C, u"!!"},   {0x2044, u"/"},    {0x205F, u" "},    {0x2060, u""},
    {0x2116, u"No."}, {0x2122, u"(TM)"}, {0x2126, u"Ω"},    {0x212A, u"K"},    {0x212B, u"Å"},
    {0x2190, u"<-"},  {0x2192, u"->"},   {0x2206, u"Δ"},    {0x2212, u"-"},    {0x2215, u"/"},
    {0x2217, u"*"},   {0x2219, u"."},    {0x2223, u"|"},    {0x2236, u":"},    {0x223C, u"~"},
    {0x2264, u"<="},  {0x2265, u">="},   {0x25E6, u"*"},    {0x3000, u" "},    {0xFEFF, u""}};

// A letter, the accent behind it, and the two as one character, as the 7-bit alphabet has them.
constexpr TextView Composed[] = {u"e\u0300è", u"e\u0301é", u"u\u0300ù", u"i\u0300ì", u"o\u0300ò",
                                 u"C\u0327Ç", u"A\u030AÅ", u"a\u030Aå", u"E\u0301É", u"A\u0308Ä",
                                 u"O\u0308Ö", u"N\u0303Ñ", u"U\u0308Ü", u"a\u0308ä", u"o\u0308ö",
                                 u"n\u0303ñ", u"u\u0308ü", u"a\u0300à"};

bool IsAccent(TextView character) {
    return character[0] >= 0x0300 && character[0] <= 0x036F;
}

// Nothing when the table has it not.
template <std::size_t Size>
std::optional<TextView> Find(const Plainer (&table)[Size], char16_t unit) {
    const auto* const found = std::lower_bound(
        std::begin(table), std::end(table), unit,
        [](const Plainer& entry, char16_t wanted) { return entry.character < wanted; });
    if (found == std::end(table) || found->character != unit) return {};
    return found->plainer;
}

std::optional<Text> TypographicOf(char16_t unit) {
    if (unit > 0xFF00 && unit < 0xFF5F) return Text(1, char16_t(unit - 0xFEE0));  // full-width
    if (const auto found = Find(Typography, unit)) return Text(*found);
    return {};
}

// One step towards what every phone knows.
std::optional<Text> PlainerOf(char16_t unit) {
    const auto letter = [unit](TextView letters, char16_t first) {
        return unit >= first && unit - first < int(letters.size()) ? letters[unit - first] : u'-';
    };
    for (const char16_t plainer : {letter(Latin, 0x00C0), letter(LatinAdditional, 0x1E00)}) {
        if (plainer != u'-') return Text(1, plainer);
    }
    if (const auto found = Find(Ligatures, unit)) return Text(*found);
    return TypographicOf(unit);
}

// The one character of a letter with its accent; 0 when the table has it not.
char16_t Compose(char16_t letter, char16_t accent) {
    for (const TextView entry : Composed) {
        if (entry[0] == letter && entry[1] == accent) return entry[2];
    }
    return 0;
}

}  // namespace

std::optional<Text> LookAlike(TextView character, const Usable& usable) {
    if (character.size() != 1) return {};
    if (IsAccent(character)) return Text();
    const std::optional<Text> plainer = PlainerOf(character[0]);
    if (!plainer) return {};
    // What it is made of may have to be plainer still.
    Text result;
    for (std::size_t at = 0; at < plainer->size(); ++at) {
        const TextView unit = TextView(*plainer).substr(at, 1);
        const std::optional<Text> next = usable(unit) ? Text(unit) : LookAlike(unit, usable);
        if (!next) return {};
        result += *next;
    }
    return result;
}

bool OnlyTypography(TextView character, TextView plainer) {
    if (character.size() != 1) return false;
    const std::optional<Text> typographic = TypographicOf(character[0]);
    return typographic && *typographic == plainer;
}

Text WithLookAlikes(TextView text, const Usable& usable, TextView only) {
    Text result;
    result.reserve(text.size());
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at += length) {
        length = CharacterLength(text, at);
        const TextView character = text.substr(at, length);
        if ((!only.empty() && character != only) || usable(character)) {
            result += character;
            continue;
        }
        if (IsAccent(character) && !result.empty()) {
            const char16_t composed = Compose(result.back(), character[0]);
            if (composed != 0 && usable({&composed, 1})) result.back() = composed;
            continue;
        }
        result += LookAlike(character, usable).value_or(Text(character));
    }
    return result;
}

}  // namespace tellwick
