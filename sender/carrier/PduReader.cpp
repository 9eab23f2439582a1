#include "carrier/PduReader.h"

#include <algorithm>
#include <string>

#include "air/GsmAlphabet.h"
#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr int TypeMask = 0x03;
constexpr int Deliver = 0x00;
constexpr int StatusReportType = 0x02;
constexpr int UserDataHeader = 0x40;

constexpr int TypeOfNumber = 0x70;
constexpr int InternationalNumber = 0x10;
constexpr int AlphanumericName = 0x50;

enum class Coding { Gsm7, Octets, Ucs2 };

Coding CodingOf(int scheme) {
    const int group = scheme >> 4;
    const int alphabet = group < 8 ? (scheme >> 2) & 3 : group == 0xF ? (scheme >> 2) & 1 : 0;
    if (group == 0xE) return Coding::Ucs2;
    return alphabet == 1 ? Coding::Octets : alphabet == 2 ? Coding::Ucs2 : Coding::Gsm7;
}

int HexValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    const char lower = char(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The octets one after the other. Behind their end everything is 0, and `over` is set.
class Octets {
public:
    explicit Octets(std::string_view digits) {
        for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
            const int high = HexValue(digits[at]);
            const int low = HexValue(digits[at + 1]);
            if (high < 0 || low < 0) break;
            octets += char(high << 4 | low);
        }
    }
    int Next() {
        if (at < octets.size()) return static_cast<unsigned char>(octets[at++]);
        over = true;
        return 0;
    }
    std::string_view Next(std::size_t count) {
        over = over || count > octets.size() - at;
        const std::string_view taken = std::string_view(octets).substr(at, count);
        at += taken.size();
        return taken;
    }
    bool Over() const { return over; }

private:
    std::string octets;
    std::size_t at = 0;
    bool over = false;
};

std::string Septets(std::string_view octets, std::size_t firstBit, std::size_t count) {
    std::string septets;
    for (std::size_t bit = firstBit; septets.size() < count && bit + 7 <= octets.size() * 8;
         bit += 7) {
        const auto octet = [&](std::size_t index) {
            return index < octets.size() ? static_cast<unsigned char>(octets[index]) : 0U;
        };
        septets += char((octet(bit / 8) | octet(bit / 8 + 1) << 8) >> (bit % 8) & 0x7F);
    }
    return septets;
}

Text Digits(std::string_view octets, std::size_t count) {
    Text digits;
    for (const char octet : octets) {
        for (const int half : {octet & 0xF, (octet >> 4) & 0xF}) {
            if (digits.size() < count && half < 0xF) digits += u"0123456789*#abc"[half];
        }
    }
    return digits;
}

Text ReadAddress(Octets& octets) {
    const auto halves = std::size_t(octets.Next());
    const int type = octets.Next();
    const std::string_view value = octets.Next((halves + 1) / 2);
    if ((type & TypeOfNumber) == AlphanumericName) {
        return FromSeptets(Septets(value, 0, halves * 4 / 7));
    }
    const Text plus = (type & TypeOfNumber) == InternationalNumber ? u"+" : u"";
    return plus + Digits(value, halves);
}

// Year to second, two digits each with the halves swapped, and the zone, which is left out.
double ReadTime(Octets& octets) {
    int fields[7];
    for (int& field : fields) {
        const int octet = octets.Next();
        field = (octet & 0xF) * 10 + (octet >> 4);
    }
    return TimeOf(2000 + fields[0], unsigned(fields[1]), unsigned(fields[2]),
                  ((fields[3] * 60LL + fields[4]) * 60 + fields[5]) * 1000);
}

void ReadHeader(std::string_view header, ReceivedPart& part) {
    const auto octet = [&](std::size_t at) { return int(static_cast<unsigned char>(header[at])); };
    for (std::size_t at = 0; at + 1 < header.size();) {
        const int element = octet(at);
        const auto length = std::size_t(octet(at + 1));
        at += 2;
        if (length > header.size() - at) return;
        const bool wide = element == 8 && length == 4;
        if (wide || (element == 0 && length == 3)) {
            const std::size_t behind = at + (wide ? 2 : 1);
            const int reference = wide ? octet(at) << 8 | octet(at + 1) : octet(at);
            const int parts = octet(behind), number = octet(behind + 1);
            // Others are to be passed over.
            if (number > 0 && number <= parts) {
                part.concatReference = reference;
                part.parts = parts;
                part.part = number;
            }
        }
        at += length;
    }
}

void ReadUserData(Octets& octets, bool hasHeader, Coding coding, ReceivedPart& part) {
    const auto length = std::size_t(octets.Next());
    const std::size_t size = coding == Coding::Gsm7 ? (length * 7 + 7) / 8 : length;
    std::string_view data = octets.Next(size);
    std::size_t headerSize = 0;
    if (hasHeader && !data.empty()) {
        headerSize = std::min(std::size_t(static_cast<unsigned char>(data[0])) + 1, data.size());
        ReadHeader(data.substr(1, headerSize - 1), part);
    }
    if (coding == Coding::Gsm7) {
        const std::size_t skipped = (headerSize * 8 + 6) / 7;
        const std::size_t count = length > skipped ? length - skipped : 0;
        part.text = FromSeptets(Septets(data, skipped * 7, count));
        return;
    }
    data.remove_prefix(headerSize);
    const auto octet = [&](std::size_t at) { return static_cast<unsigned char>(data[at]); };
    const std::size_t step = coding == Coding::Ucs2 ? 2 : 1;
    for (std::size_t at = 0; at + step <= data.size(); at += step) {
        part.text += step == 2 ? char16_t(octet(at) << 8 | octet(at + 1)) : char16_t(octet(at));
    }
}

}  // namespace

ReceivedUnit ReadPdu(std::string_view digits) {
    Octets octets(digits);
    octets.Next(std::size_t(octets.Next()));  // the service centre
    const int first = octets.Next();
    if ((first & TypeMask) == StatusReportType) {
        StatusReport report;
        report.networkReference = octets.Next();
        report.recipient = ReadAddress(octets);
        octets.Next(14);  // when it was handed over, and when it was settled
        report.status = octets.Next();
        if (octets.Over()) return {};
        // Above are permanent failures, and temporary ones that the network has given up.
        report.kind = report.status < 0x20   ? StatusReport::Kind::Delivered
                      : report.status < 0x40 ? StatusReport::Kind::StillTrying
                                             : StatusReport::Kind::Failed;
        return report;
    }
    if ((first & TypeMask) != Deliver) return {};
    ReceivedPart part;
    part.from = ReadAddress(octets);
    octets.Next();
    const Coding coding = CodingOf(octets.Next());
    part.sent = ReadTime(octets);
    ReadUserData(octets, (first & UserDataHeader) != 0, coding, part);
    if (octets.Over()) return {};
    return part;
}

}  // namespace tellwick::sender
