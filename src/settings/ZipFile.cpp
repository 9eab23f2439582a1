#include "settings/ZipFile.h"

namespace tellwick {

namespace {

constexpr std::uint16_t Version = 20;     // of the format: 2.0
constexpr std::uint16_t FirstDay = 0x21;  // of the format's calendar
constexpr std::uint32_t FileMark = 0x04034b50;
constexpr std::uint32_t EntryMark = 0x02014b50;
constexpr std::uint32_t EndMark = 0x06054b50;

void Put16(std::string& bytes, std::uint32_t number) {
    bytes += char(number & 0xFF);
    bytes += char(number >> 8 & 0xFF);
}

void Put32(std::string& bytes, std::uint32_t number) {
    Put16(bytes, number);
    Put16(bytes, number >> 16);
}

// CRC-32 as the format wants it.
std::uint32_t Checksum(std::string_view contents) {
    constexpr std::uint32_t Polynomial = 0xEDB88320;
    std::uint32_t sum = ~0u;
    for (const char byte : contents) {
        sum ^= std::uint8_t(byte);
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ (sum & 1 ? Polynomial : 0);
    }
    return ~sum;
}

// What a file's own header and its entry in the directory have in common.
std::string Description(std::string_view name, std::string_view contents) {
    std::string fields;
    Put16(fields, Version);
    Put16(fields, 0);  // no flags
    Put16(fields, 0);  // stored
    Put16(fields, 0);  // midnight
    Put16(fields, FirstDay);
    Put32(fields, Checksum(contents));
    Put32(fields, std::uint32_t(contents.size()));
    Put32(fields, std::uint32_t(contents.size()));
    Put16(fields, std::uint32_t(name.size()));
    Put16(fields, 0);  // nothing more
    return fields;
}

}  // namespace

void ZipFile::Add(std::string_view name, std::string_view contents) {
    const std::string description = Description(name, contents);
    Put32(directory, EntryMark);
    Put16(directory, Version);  // of the maker
    directory += description;
    Put16(directory, 0);  // no comment
    Put16(directory, 0);  // the first disk
    Put16(directory, 0);
    Put32(directory, 0);
    Put32(directory, std::uint32_t(files.size()));
    directory += name;

    Put32(files, FileMark);
    files.append(description).append(name).append(contents);
    ++count;
}

std::string ZipFile::Bytes() const {
    std::string bytes = files + directory;
    Put32(bytes, EndMark);
    Put32(bytes, 0);  // one disk
    Put16(bytes, count);
    Put16(bytes, count);
    Put32(bytes, std::uint32_t(directory.size()));
    Put32(bytes, std::uint32_t(files.size()));
    Put16(bytes, 0);  // no comment
    return bytes;
}

}  // namespace tellwick
