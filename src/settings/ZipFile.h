// An archive whose files are stored as they are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tellwick {

class ZipFile {
public:
    // The name in ASCII. Files have no time of their own: all are of 1 January 1980.
    void Add(std::string_view name, std::string_view contents);
    // The whole archive.
    std::string Bytes() const;

private:
    std::string files;      // each with its header
    std::string directory;  // an entry for each
    std::uint16_t count = 0;
};

}  // namespace tellwick
