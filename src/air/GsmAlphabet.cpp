#include "air/GsmAlphabet.h"

#include <array>

namespace tellwick {

namespace {

constexpr char16_t EuroSign = 0x20AC;
constexpr char Escape = 0x1B;

// By code; the escape's own place is empty.
constexpr TextView DefaultAlphabet{
    u"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\0ÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
    u"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà",
    128};

struct Extended {
    char16_t unit;
    char code;
};
constexpr std::array<Extended, 10> ExtensionTable{{{u'\f', 0x0A},
                                                   {u'^', 0x14},
                                                   {u'{', 0x28},
                                                   {u'}', 0x29},
                                                   {u'\\', 0x2F},
                                                   {u'[', 0x3C},
                                                   {u'~', 0x3D},
                                                   {u']', 0x3E},
                                                   {u'|', 0x40},
                                                   {EuroSign, 0x65}}};

// What a unit is coded as.
struct Code {
    std::uint8_t septets = 0;
    char code = 0;
};

// By unit, up to the last letter of the alphabet; the euro sign stands by itself.
constexpr std::array<Code, 0x400> Codes = [] {
    std::array<Code, 0x400> codes{};
    for (std::size_t code = 0; code < DefaultAlphabet.size(); ++code) {
        if (code != std::size_t(Escape)) codes[DefaultAlphabet[code]] = {1, char(code)};
    }
    for (const Extended& extended : ExtensionTable) {
        if (extended.unit < codes.size()) codes[extended.unit] = {2, extended.code};
    }
    return codes;
}();

Code CodeOf(char16_t unit) {
    if (unit < Codes.size()) return Codes[unit];
    return unit == EuroSign ? Code{2, ExtensionTable.back().code} : Code{};
}

}  // namespace

std::int32_t SeptetsOf(char16_t unit) {
    return CodeOf(unit).septets;
}

std::string ToSeptets(TextView text) {
    std::string septets;
    septets.reserve(text.size());
    for (const char16_t unit : text) {
        const Code code = CodeOf(unit);
        if (code.septets == 2) septets += Escape;
        septets += code.septets == 0 ? '?' : code.code;
    }
    return septets;
}

Text FromSeptets(std::string_view septets) {
    Text text;
    text.reserve(septets.size());
    for (std::size_t at = 0; at < septets.size(); ++at) {
        bool escaped = false;
        while (septets[at] == Escape && at + 1 < septets.size()) {
            escaped = true;
            ++at;
        }
        char16_t unit = DefaultAlphabet[std::size_t(septets[at]) & 0x7F];
        for (const Extended& extended : ExtensionTable) {
            if (escaped && extended.code == septets[at]) unit = extended.unit;
        }
        text += unit == 0 ? u' ' : unit;
    }
    return text;
}

}  // namespace tellwick
