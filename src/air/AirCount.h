// What a phone network makes of a text (3GPP TS 23.038 and 23.040): in which encoding it goes on
// air, how many SMS it makes, and where it is cut.
//
// A line break counts as the two characters that it is, CR and LF: both are in the default
// alphabet, and the text is handed on with both. The national language tables (Turkish, Spanish,
// Portuguese and ten languages of India) are not counted with: few networks and phones use them,
// and a text that needs one of them goes as UCS-2 everywhere else.
#pragma once

#include <cstdint>
#include <vector>

#include "air/GsmAlphabet.h"
#include "platform/Text.h"

namespace tellwick {

// The GSM 7-bit default alphabet with its extension table, or 16 bits a unit.
enum class AirEncoding { Gsm7, Ucs2 };

// One SMS of a text.
struct AirPart {
    std::size_t start = 0;   // in the text, in UTF-16 units
    std::size_t length = 0;  // in UTF-16 units
    std::int32_t units = 0;  // septets or 16-bit units that it takes

    TextView In(TextView text) const { return text.substr(start, length); }
};

struct AirCount {
    AirEncoding encoding = AirEncoding::Gsm7;
    std::int32_t units = 0;      // septets or 16-bit units of the whole text
    std::vector<AirPart> parts;  // in order; an empty text makes one
    std::int32_t free = 0;       // units left in the last part
    // Where the characters stand that force UCS-2, ascending; a surrogate pair by its first unit.
    std::vector<std::size_t> forcing;
};

// By which a phone joins the parts. The form counts with 8 bits; 16 take another octet of each.
enum class ConcatReference { Bits8, Bits16 };

// Several parts have a header with such a reference each. An extension character is never split
// from its escape, nor a surrogate pair; a surrogate that stands alone is a unit like any other.
AirCount CountOnAir(TextView text, ConcatReference reference = ConcatReference::Bits8);

// Length of the character at a position before the end: 2 for a surrogate pair, else 1.
std::size_t CharacterLength(TextView text, std::size_t position);

// Whether a position lies within what a reader sees as one character though it is several: a letter
// and its combining marks, an emoji made of several, a flag.
bool CutsCharacter(TextView text, std::size_t position);

}  // namespace tellwick
