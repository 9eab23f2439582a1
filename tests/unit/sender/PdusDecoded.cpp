// What a decoder that others wrote reads out of our units: every text, in parts and whole.
#include <doctest.h>

#include <array>
#include <cstdio>

#include "air/AirCount.h"
#include "carrier/PduWriter.h"
#include "platform/Utf8.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

std::vector<std::string> Decoded(const std::vector<Pdu>& pdus) {
    std::string command = "perl " SOURCE_FOLDER "/tests/unit/sender/decode-pdus.pl";
    for (const Pdu& pdu : pdus) command += " " + pdu.octets;
    FILE* const pipe = popen(command.c_str(), "r");
    REQUIRE(pipe != nullptr);
    std::vector<std::string> lines;
    std::array<char, 4096> line{};
    while (std::fgets(line.data(), int(line.size()), pipe)) {
        lines.emplace_back(line.data());
        lines.back().pop_back();
    }
    CHECK(pclose(pipe) == 0);
    return lines;
}

Text Times(TextView piece, std::size_t count) {
    Text text;
    for (; count > 0; --count) text += piece;
    return text;
}

}  // namespace

TEST_CASE("another's decoder reads what we wrote, part by part as the form cuts it") {
    const std::array texts{Text(u"Grüße aus Köln!\r\n{[~]} @£$¥èéùìòÇØøÅåÆæßÉ¡ÄÖÑÜ§¿äöñüà"),
                           Text(u"x"),
                           Times(u"0123456789", 16),
                           Times(u"abcdefg", 23),
                           Times(u"ab{c", 120),
                           Times(u"Привет ", 10),
                           Times(u"Привет ☺ ", 30)};
    for (const TextView recipient : {u"+491711234567", u"0171123", u"333", u"*100#"}) {
        for (const Text& text : texts) {
            for (const Concatenation kind :
                 {Concatenation::Reference8, Concatenation::Reference16, Concatenation::None}) {
                SubmitOptions options;
                options.concatenation = kind;
                options.validityMinutes = kind == Concatenation::None ? 60 : 0;
                options.serviceCentre = kind == Concatenation::Reference8 ? u"+49171" : u"";
                const std::vector<Pdu> pdus = WriteSubmit(recipient, text, 0xABCD, options);
                const bool wide = kind == Concatenation::Reference16;
                const AirCount count =
                    CountOnAir(text, wide ? ConcatReference::Bits16 : ConcatReference::Bits8);
                const std::vector<std::string> lines = Decoded(pdus);
                REQUIRE(lines.size() == count.parts.size());
                for (std::size_t part = 0; part < lines.size(); ++part) {
                    std::string header;
                    if (lines.size() > 1 && kind != Concatenation::None) {
                        char digits[20];
                        std::snprintf(digits, sizeof digits,
                                      wide ? "060804ABCD%02zX%02zX" : "050003CD%02zX%02zX",
                                      lines.size(), part + 1);
                        header = digits;
                    }
                    const Text own = ReplaceAll(ReplaceAll(count.parts[part].In(text), u"\r", u" "),
                                                u"\n", u" ");
                    CHECK(lines[part] == ToUtf8(recipient) + "|" + header + "|" + ToUtf8(own));
                }
            }
        }
    }
}
