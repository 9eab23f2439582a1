#include "recipients/EscapedText.h"

#include <algorithm>

namespace tellwick {

namespace {

bool IsPlain(char16_t unit) {
    return unit >= u' ' && unit < 0x7F && unit != u'\\';
}

}  // namespace

bool EscapedText::Survives(char16_t unit) {
    if (unit < 0x80) return IsPlain(unit);
    const auto [at, isNew] = survives.try_emplace(unit);
    if (isNew) at->second = locale.FromAnsi(locale.ToAnsi({&unit, 1})) == TextView(&unit, 1);
    return at->second;
}

void EscapedText::Append(std::string& line, TextView text) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    for (const char16_t unit : text) {
        if (IsPlain(unit)) {
            line += char(unit);
        } else if (unit == u'\\') {
            line += "\\\\";
        } else if (Survives(unit)) {
            line += locale.ToAnsi({&unit, 1});
        } else {
            line += "\\x";
            for (int shift = 12; shift >= 0; shift -= 4) line += Digits[unit >> shift & 15];
        }
    }
}

Text EscapedText::Read(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(),
                    [](char byte) { return IsPlain(char16_t(std::uint8_t(byte))); })) {
        return {bytes.begin(), bytes.end()};
    }
    const Text text = locale.FromAnsi(bytes);
    Text read;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != u'\\') {
            read += text[at];
        } else if (at + 5 < text.size() && text[at + 1] == u'x') {
            unsigned unit = 0;
            for (std::size_t digit = at + 2; digit < at + 6; ++digit) {
                const char16_t of = text[digit];
                unit = unit * 16 + (of >= u'A' ? unsigned(of - u'A') + 10 : unsigned(of - u'0'));
            }
            read += char16_t(unit);
            at += 5;
        } else {
            read += u'\\';
            ++at;  // the second of two
        }
    }
    return read;
}

}  // namespace tellwick
