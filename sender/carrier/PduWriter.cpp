#include "carrier/PduWriter.h"

#include <algorithm>

#include "air/AirCount.h"
#include "spool/SpooledSms.h"

namespace tellwick::sender {

namespace {

// The first octet of a unit.
constexpr int Submit = 0x01;
constexpr int RelativeValidity = 0x10;
constexpr int StatusReportRequest = 0x20;
constexpr int UserDataHeader = 0x40;

constexpr int International = 0x91;
constexpr int Unknown = 0x81;

constexpr int Ucs2 = 0x08;
constexpr int ClassZero = 0x10;

void Put(std::string& octets, int octet) {
    octets += char(octet & 0xFF);
}

// Digits two by two, the first one in the lower half, filled up with F.
std::string SemiOctets(TextView digits) {
    std::string octets;
    const auto half = [&](std::size_t at) {
        if (at >= digits.size()) return 0xF;
        if (digits[at] == u'*') return 0xA;
        if (digits[at] == u'#') return 0xB;
        return IsDigit(digits[at]) ? int(digits[at] - u'0') : 0;
    };
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        Put(octets, half(at) | half(at + 1) << 4);
    }
    return octets;
}

struct Address {
    explicit Address(TextView number)
        : type(number.starts_with(u'+') ? International : Unknown),
          digits(number.starts_with(u'+') ? number.substr(1) : number),
          octets(SemiOctets(digits)) {}
    int type;
    TextView digits;
    std::string octets;
};

int ValidityOctet(std::int32_t minutes) {
    constexpr std::int32_t HalfDay = 12 * 60, Day = 24 * 60, Week = 7 * Day;
    const auto steps = [&](std::int32_t step) { return (minutes + step - 1) / step; };
    if (minutes <= HalfDay) return std::max(0, steps(5) - 1);
    if (minutes <= Day) return 143 + steps(30) - 24;
    if (minutes <= 30 * Day) return 166 + steps(Day);
    return std::min(255, 192 + std::max(5, steps(Week)));
}

// Behind a header of whole octets the septets begin at the next multiple of seven bits.
std::string PackSeptets(std::string_view septets, std::size_t headerOctets) {
    std::size_t bit = (headerOctets * 8 + 6) / 7 * 7 - headerOctets * 8;
    std::string octets((bit + septets.size() * 7 + 7) / 8, '\0');
    for (const char septet : septets) {
        const int shifted = (septet & 0x7F) << (bit % 8);
        octets[bit / 8] = char(octets[bit / 8] | shifted);
        if (shifted > 0xFF) octets[bit / 8 + 1] = char(shifted >> 8);
        bit += 7;
    }
    return octets;
}

std::string Utf16(TextView text) {
    std::string octets;
    for (const char16_t unit : text) {
        Put(octets, unit >> 8);
        Put(octets, unit);
    }
    return octets;
}

std::string Header(Concatenation concatenation, std::int32_t reference, std::size_t parts,
                   std::size_t part) {
    std::string header;
    if (parts == 1 || concatenation == Concatenation::None) return header;
    const bool wide = concatenation == Concatenation::Reference16;
    for (const int octet : {wide ? 6 : 5, wide ? 8 : 0, wide ? 4 : 3}) Put(header, octet);
    if (wide) Put(header, reference >> 8);
    for (const int octet : {int(reference), int(parts), int(part)}) Put(header, octet);
    return header;
}

std::string Hex(std::string_view octets) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string hex;
    for (const char octet : octets) {
        hex += Digits[(octet >> 4) & 0xF];
        hex += Digits[octet & 0xF];
    }
    return hex;
}

}  // namespace

std::vector<Pdu> WriteSubmit(TextView recipient, TextView text, std::int32_t concatReference,
                             const SubmitOptions& options) {
    std::vector<Pdu> pdus;
    const bool wide = options.concatenation == Concatenation::Reference16;
    const AirCount count =
        CountOnAir(text, wide ? ConcatReference::Bits16 : ConcatReference::Bits8);
    if (count.parts.size() > MostParts) return pdus;
    const bool gsm = count.encoding == AirEncoding::Gsm7;
    const bool flash = options.flash && count.parts.size() == 1;
    const Address to(recipient);
    for (std::size_t part = 0; part < count.parts.size(); ++part) {
        const std::string header =
            Header(options.concatenation, concatReference, count.parts.size(), part + 1);
        const TextView own = count.parts[part].In(text);
        const std::string septets = gsm ? ToSeptets(own) : std::string();
        const std::string data = header + (gsm ? PackSeptets(septets, header.size()) : Utf16(own));

        std::string unit;
        Put(unit, Submit | (header.empty() ? 0 : UserDataHeader) |
                      (options.validityMinutes > 0 ? RelativeValidity : 0) |
                      (options.statusReport ? StatusReportRequest : 0));
        Put(unit, 0);  // the modem counts the references itself
        Put(unit, int(to.digits.size()));
        Put(unit, to.type);
        unit += to.octets;
        Put(unit, 0);
        Put(unit, (gsm ? 0 : Ucs2) | (flash ? ClassZero : 0));
        if (options.validityMinutes > 0) Put(unit, ValidityOctet(options.validityMinutes));
        Put(unit, gsm ? int((header.size() * 8 + 6) / 7 + septets.size()) : int(data.size()));
        unit += data;

        std::string centre;
        if (!options.serviceCentre.empty()) {
            const Address number(options.serviceCentre);
            Put(centre, int(number.octets.size()) + 1);
            Put(centre, number.type);
            centre += number.octets;
        } else {
            Put(centre, 0);
        }
        pdus.push_back({Hex(centre + unit), std::int32_t(unit.size())});
    }
    return pdus;
}

}  // namespace tellwick::sender
