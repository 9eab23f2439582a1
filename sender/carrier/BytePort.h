// Port: a serial line that is open.
#pragma once

#include <cstddef>
#include <string_view>

namespace tellwick::sender {

class BytePort {
public:
    virtual ~BytePort() = default;

    // Takes all bytes and lets them out in their order; never waits. What the other side says comes
    // later, and not from within this call.
    virtual void Write(std::string_view bytes) = 0;

    // How many of the last bytes written have certainly not left. Where that cannot be known they
    // count as having left.
    virtual std::size_t Unsent() const = 0;
};

}  // namespace tellwick::sender
