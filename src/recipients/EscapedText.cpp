#include "recipients/EscapedText.h"

#include <cstdint>

namespace tellwick {

namespace {

bool IsPlain(char16_t unit) {
    return unit >= u' ' && unit < 0x7F && unit != u'\\';
}

}  // namespace

const std::string& EscapedText::Written(char16_t unit) {
    const auto [at, isNew] = written.try_emplace(unit);
    if (!isNew) return at->second;
    std::string& bytes = at->second;
    if (unit == u'\\') {
        bytes = "\\\\";
    } else if (unit >= 0x80 && locale.FromAnsi(locale.ToAnsi({&unit, 1})) == TextView(&unit, 1)) {
        bytes = locale.ToAnsi({&unit, 1});
    } else {
        constexpr std::string_view Digits = "0123456789ABCDEF";
        bytes = "\\x";
        for (int shift = 12; shift >= 0; shift -= 4) bytes += Digits[unit >> shift & 15];
    }
    return bytes;
}

void EscapedText::Append(std::string& line, TextView text) {
    const std::size_t before = line.size();
    line.resize(before + text.size());
    char* const bytes = line.data() + before;
    std::size_t plain = 0;
    for (; plain < text.size() && IsPlain(text[plain]); ++plain) bytes[plain] = char(text[plain]);
    line.resize(before + plain);
    for (const char16_t unit : text.substr(plain)) {
        if (IsPlain(unit)) {
            line += char(unit);
        } else {
            line += Written(unit);
        }
    }
}

Text EscapedText::Read(std::string_view bytes) {
    Text read;
    Read(bytes, read);
    return read;
}

void EscapedText::Read(std::string_view bytes, Text& read) {
    read.resize(bytes.size());
    bool plain = true;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        read[at] = std::uint8_t(bytes[at]);
        plain = plain && IsPlain(read[at]);
    }
    if (plain) return;
    const Text text = locale.FromAnsi(bytes);
    read.clear();
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
}

}  // namespace tellwick
