#include "platform/Utf8.h"

namespace tellwick {

namespace {

bool IsHigh(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLow(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The character at the beginning of the bytes and how many it takes; 0 when they begin with none.
struct Decoded {
    char32_t character = 0;
    std::size_t length = 0;
};

Decoded Decode(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return {};
    char32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        const auto next = static_cast<unsigned char>(bytes[at]);
        if ((next & 0xC0) != 0x80) return {};
        character = character << 6 | (next & 0x3F);
    }
    const bool shorter = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    return shorter || character > 0x10FFFF ? Decoded{} : Decoded{character, length};
}

}  // namespace

std::string ToUtf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = text[at];
        if (IsHigh(character) && at + 1 < text.size() && IsLow(text[at + 1])) {
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++at] - 0xDC00);
        }
        const auto tail = [&](int shift) { bytes += char(0x80 | ((character >> shift) & 0x3F)); };
        if (character < 0x80) {
            bytes += char(character);
        } else if (character < 0x800) {
            bytes += char(0xC0 | character >> 6);
            tail(0);
        } else if (character < 0x10000) {
            bytes += char(0xE0 | character >> 12);
            tail(6);
            tail(0);
        } else {
            bytes += char(0xF0 | character >> 18);
            tail(12);
            tail(6);
            tail(0);
        }
    }
    return bytes;
}

Text FromUtf8(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Decoded decoded = Decode(bytes.substr(at));
        if (decoded.length == 0) {
            text += char16_t(0xFFFD);
        } else if (decoded.character < 0x10000) {
            text += char16_t(decoded.character);
        } else {
            text += char16_t(0xD800 + ((decoded.character - 0x10000) >> 10));
            text += char16_t(0xDC00 + (decoded.character & 0x3FF));
        }
        at += decoded.length == 0 ? 1 : decoded.length;
    }
    return text;
}

}  // namespace tellwick
