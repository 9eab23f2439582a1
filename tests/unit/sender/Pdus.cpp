// Units for and from a modem: units that others published, options, and what is no unit.
#include <doctest.h>

#include "air/AirCount.h"
#include "carrier/PduReader.h"
#include "carrier/PduWriter.h"
#include "unit/SettingsModules.h"
#include "unit/sender/Units.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

constexpr std::size_t MostOfAll = 39'015;  // 255 parts of 153

std::string Octets(TextView to, TextView text, const SubmitOptions& options) {
    return WriteSubmit(to, text, 1, options).at(0).octets;
}

ReceivedPart Part(std::string_view digits) {
    const ReceivedUnit unit = ReadPdu(digits);
    REQUIRE(std::holds_alternative<ReceivedPart>(unit));
    return std::get<ReceivedPart>(unit);
}

}  // namespace

TEST_CASE("units as the documents and others have them") {
    SubmitOptions options;
    options.validityMinutes = 4 * 24 * 60;
    CHECK(Octets(u"+46708251358", u"hellohello", options) ==
          "0011000B916407281553F80000AA0AE8329BFD4697D9EC37");
    CHECK(WriteSubmit(u"+46708251358", u"hellohello", 1, options)[0].length == 23);
    options = {};
    options.serviceCentre = u"+358501234";
    options.flash = options.statusReport = true;
    // Class 0 in both alphabets; a report is asked for; the centre with its own octets.
    CHECK(Octets(u"333", u"A", options) == "069153581032F42100038133F300100141");
    CHECK(Octets(u"333", u"ж", options) == "069153581032F42100038133F30018020436");
    const ReceivedPart hello =
        Part("07917283010010F5040BC87238880900F10000993092516195800AE8329BFD4697D9EC37");
    CHECK(hello.from == u"27838890001");
    CHECK(hello.text == u"hellohello");
    CHECK(hello.parts == 1);
    // A report that an SMS with the reference 0x17 has arrived.
    const ReceivedUnit unit = ReadPdu("0006170B919471214365F7621122317000046211223180000400");
    const auto* report = std::get_if<StatusReport>(&unit);
    REQUIRE(report != nullptr);
    CHECK(report->networkReference == 0x17);
    CHECK(report->recipient == u"+49171234567");
    CHECK(report->kind == StatusReport::Kind::Delivered);
}

TEST_CASE("validity is rounded up to what the network can be told") {
    for (const auto& [given, octet] :
         std::vector<std::pair<int, std::string>>{{1, "00"},
                                                  {5, "00"},
                                                  {6, "01"},
                                                  {720, "8F"},
                                                  {721, "90"},
                                                  {1440, "A7"},
                                                  {1441, "A8"},
                                                  {2880, "A8"},
                                                  {43200, "C4"},
                                                  {43201, "C5"},
                                                  {10'000'000, "FF"}}) {
        const int minutes = given;
        CAPTURE(minutes);
        SubmitOptions options;
        options.validityMinutes = minutes;
        CHECK(Octets(u"333", u"A", options).substr(18, 2) == octet);
    }
}

TEST_CASE("what is written is read again, part by part") {
    Text every;
    for (char16_t unit = 0; unit < 0x3FF; ++unit) {
        if (SeptetsOf(unit) > 0) every += unit;
    }
    every += u"€";
    for (const Text& text : {Text(u""), every, every + every + every, Text(u"ж\xD83D\xDE00 \xD83D"),
                             Text(400, u'ж'), Text(MostOfAll, u'x')}) {
        for (const Concatenation kind : {Concatenation::Reference8, Concatenation::Reference16}) {
            SubmitOptions options;
            options.concatenation = kind;
            const std::vector<Pdu> pdus = WriteSubmit(u"+49171234567", text, 0x1234, options);
            if (text.size() == MostOfAll && kind == Concatenation::Reference16) {
                CHECK(pdus.empty());
                continue;
            }
            Text whole;
            for (std::size_t part = 0; part < pdus.size(); ++part) {
                const ReceivedPart one = Part(test::Delivered(pdus[part]));
                CHECK(one.parts == std::int32_t(pdus.size()));
                CHECK(one.part == std::int32_t(part) + 1);
                CHECK(one.from == u"+49171234567");
                whole += one.text;
            }
            CHECK(whole == text);
        }
    }
}

TEST_CASE("what is no unit, or the beginning of one, is none") {
    const std::string unit =
        test::Delivered(WriteSubmit(u"+49171234567", Text(300, u'x'), 7, {})[0]);
    for (std::size_t length = 0; length + 1 < unit.size(); ++length) {
        REQUIRE(std::holds_alternative<std::monostate>(ReadPdu(unit.substr(0, length))));
    }
    for (std::size_t at = 0; at < unit.size(); ++at) {
        for (const char digit : {'0', '7', 'F', 'x'}) {
            std::string changed = unit;
            changed[at] = digit;
            ReadPdu(changed);
        }
    }
    // A service by its name, eight bits a character.
    const ReceivedPart service = Part("00040AD0D3E61424AD00046211223170000403414243");
    CHECK(service.from.size() == 5);
    CHECK(service.text == u"ABC");
}
