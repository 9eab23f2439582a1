// What a phone network makes of a text (of any text: the fuzz target "air"): alphabet, encoding,
// parts, and the look-alikes of characters that it lacks.
#include <doctest.h>

#include "air/AirCount.h"
#include "compose/LookAlikes.h"

using namespace tellwick;

namespace {

// "aaa" from {"a", 3}.
Text Times(TextView piece, std::size_t count) {
    Text text;
    for (; count > 0; --count) text += piece;
    return text;
}

std::vector<std::int32_t> UnitsOfParts(const AirCount& count) {
    std::vector<std::int32_t> units;
    for (const AirPart& part : count.parts) units.push_back(part.units);
    return units;
}

bool InGsm(TextView character) {
    return character.size() == 1 && SeptetsOf(character[0]) > 0;
}

using TwoTexts = std::pair<TextView, TextView>;

}  // namespace

TEST_CASE("the default alphabet and its extension table, and no other character") {
    // By the codes 0 to 127 of the alphabet, 27 being the escape.
    constexpr char16_t Rows[] = {
        0x40,  0xA3,  0x24,  0xA5, 0xE8,  0xE9, 0xF9,  0xEC,  0xF2,  0xC7,  0x0A,  0xD8,
        0xF8,  0x0D,  0xC5,  0xE5, 0x394, 0x5F, 0x3A6, 0x393, 0x39B, 0x3A9, 0x3A0, 0x3A8,
        0x3A3, 0x398, 0x39E, 0xC6, 0xE6,  0xDF, 0xC9,  0x20,  0x21,  0x22,  0x23,  0xA4,
        0xA1,  0xC4,  0xD6,  0xD1, 0xDC,  0xA7, 0xBF,  0xE4,  0xF6,  0xF1,  0xFC,  0xE0};
    constexpr char16_t Extension[] = {0x0C, 0x5E, 0x7B, 0x7D, 0x5C, 0x5B, 0x7E, 0x5D, 0x7C, 0x20AC};
    std::vector<std::int32_t> expected(0x10000);
    for (char16_t unit = 0x25; unit <= 0x3F; ++unit) expected[unit] = 1;
    for (char16_t unit = u'a'; unit <= u'z'; ++unit) expected[unit] = expected[unit - 32] = 1;
    for (const char16_t unit : Rows) expected[unit] = 1;
    for (const char16_t unit : Extension) expected[unit] = 2;
    std::size_t known = 0;
    for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
        CAPTURE(unit);
        REQUIRE(SeptetsOf(char16_t(unit)) == expected[unit]);
        const auto text = char16_t(unit);
        const AirCount count = CountOnAir({&text, 1});
        REQUIRE(count.units == std::max(expected[unit], 1));
        REQUIRE((count.encoding == AirEncoding::Gsm7) == (expected[unit] > 0));
        known += expected[unit] > 0;
    }
    CHECK(known == 127 + 10);
}

TEST_CASE("a text on its edges: units, parts and what is left") {
    const Text pair = u"\xD83D\xDE00";
    struct Case {
        Text text;
        bool unicode;
        std::vector<std::int32_t> parts;  // units of each
        std::int32_t free;
        std::vector<std::size_t> forcing = {};
    };
    const Text x159 = Times(u"x", 159);
    const Text x152 = Times(u"x", 152);
    const Text x66 = Times(u"x", 66);
    for (const Case& c : {
             Case{u"", false, {0}, 160},
             {Times(u"x", 160), false, {160}, 0},
             {Times(u"x", 161), false, {153, 8}, 145},
             {Times(u"x", 307), false, {153, 153, 1}, 152},
             // A line break counts two.
             {x159 + u"\n", false, {160}, 0},
             {x159 + u"\r\n", false, {153, 8}, 145},
             // An escape and its character: alone, on the edge of one SMS, of a part.
             {Times(u"€", 80), false, {160}, 0},
             {x159 + u"€", false, {153, 8}, 145},
             {x152 + u"€" + x152, false, {152, 153, 1}, 152},
             {Times(u"x", 151) + u"€" + x152, false, {153, 152}, 1},
             // One character turns the text into another kind.
             {u"—" + Times(u"x", 69), true, {70}, 0, {0}},
             {Times(u"x", 70) + u"—", true, {67, 4}, 63, {70}},
             {Times(u"x", 134) + u"—", true, {67, 67, 1}, 66, {134}},
             {Times(u"€", 70) + u"ж", true, {67, 4}, 63, {70}},
             // A pair of surrogates, on the edges; one that stands alone.
             {Times(u"x", 69) + pair, true, {67, 4}, 63, {69}},
             {x66 + pair + x66, true, {66, 67, 1}, 66, {66}},
             {Times(u"x", 65) + pair + x66, true, {67, 66}, 1, {65}},
             {x66 + u"\xD83D" + x66, true, {67, 66}, 1, {66}},
             {Text(u"\0\x1B\t", 3), true, {3}, 67, {0, 1, 2}},
         }) {
        CAPTURE(c.text);
        const AirCount count = CountOnAir(c.text);
        CHECK((count.encoding == AirEncoding::Ucs2) == c.unicode);
        CHECK(UnitsOfParts(count) == c.parts);
        CHECK(count.free == c.free);
        CHECK(count.forcing == c.forcing);
    }
}

TEST_CASE("a cut within what a reader sees as one character is noticed") {
    struct Case {
        TextView before, behind;
        bool cuts;
    };
    for (const Case& c :
         {Case{u"a", u"b", false}, Case{u"", u"\u0301", false}, Case{u"e", u"\u0301", true},
          Case{u"e\u0301", u"\u0301", true}, Case{u"\r\n", u"\u0301", false},
          Case{u"\xD83D\xDC68\u200D", u"\xD83D\xDC69", true},
          Case{u"\xD83D\xDC68", u"\u200D\xD83D\xDC69", true},
          Case{u"\xD83D\xDC4D", u"\xD83C\xDFFD", true}, Case{u"\u2764", u"\uFE0F", true},
          Case{u"\xD83D\xDE00", u"\xD83D\xDE00", false},
          // Flags are pairs of letters, from the first one on.
          Case{u"\xD83C\xDDE9", u"\xD83C\xDDEA", true},
          Case{u"\xD83C\xDDE9\xD83C\xDDEA", u"\xD83C\xDDE6\xD83C\xDDF9", false},
          Case{u"\xD83C\xDDE9\xD83C\xDDEA\xD83C\xDDE6", u"\xD83C\xDDF9", true},
          Case{u"\xD83D", u"x", false}, Case{u"\u05D0", u"\u05B7", true}}) {
        CAPTURE(Text(c.before) + u"|" + Text(c.behind));
        CHECK(CutsCharacter(Text(c.before).append(c.behind), c.before.size()) == c.cuts);
    }
}

TEST_CASE("look-alikes: what a reader takes for the same, as far as it can be used") {
    for (const auto& [text, replaced] :
         {TwoTexts{u"„a“ — ‘b’ – «c»…", u"\"a\" - 'b' - \"c\"..."},
          TwoTexts{u"1\u00A0km\u202F\u2009x\t\u200By", u"1 km  x y"},
          TwoTexts{u"çáŁódź œuvre ŐűÅé", u"caLodz oeuvre ÖüÅé"}, TwoTexts{u"ấẵǘ ﬁ Ǆ", u"aaü fi DZ"},
          TwoTexts{u"e\u0301u\u0308x\u0301ő\u0301 \u0301", u"éüxö "},
          TwoTexts{u"ＳＭＳ ΑΒ Ω", u"SMS AB Ω"}, TwoTexts{u"10² m", u"10^2 m"},
          TwoTexts{u"Привет \xD83D\xDE00 \xD83D ½°", u"Привет \xD83D\xDE00 \xD83D ½°"},
          TwoTexts{u"€{ü", u"€{ü"}}) {
        CHECK(WithLookAlikes(text, InGsm) == replaced);
    }
    CHECK(WithLookAlikes(u"— … —", InGsm, u"—") == u"- … -");
    // Only what can be used, as on a Russian Windows; letters by their plainer ones.
    const auto russian = [](TextView character) {
        return character[0] < 0x80 || character[0] == 0x2014;
    };
    CHECK(WithLookAlikes(u"Grüße — ﬁ", russian) == u"Grusse — fi");
    CHECK_FALSE(LookAlike(u"ж", InGsm));
    CHECK(OnlyTypography(u"\u2011", u"-"));
    CHECK_FALSE(OnlyTypography(u"\u2011", u"?"));
    CHECK_FALSE(OnlyTypography(u"ł", u"l"));
}
