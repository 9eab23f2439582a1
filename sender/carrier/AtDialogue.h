// Commands to a modem and its answers (3GPP TS 27.005 and 27.007), one at a time. Passes over the
// echo and what makes no sense; lines that the modem says unasked go to whoever listens.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "carrier/BytePort.h"
#include "platform/Timer.h"

namespace tellwick::sender {

struct AtAnswer {
    enum class Final {
        Ok,
        Error,     // "ERROR"
        CmsError,  // of the network or the SMS service, with its number
        CmeError,  // of the equipment, with its number
        Silence,   // nothing final in time
        Gone,      // the line was cut
    };
    Final final = Final::Ok;
    std::int32_t number = 0;
    std::vector<std::string> lines;  // before the final one
    // Of a command with a unit: whether its last byte has left, or may have.
    bool unitOut = false;

    // What follows such a beginning ("+CREG: ") in the first line that has it; empty when none has.
    std::string_view Behind(std::string_view beginning) const;
    bool Has(std::string_view beginning) const;
};

class AtDialogue {
public:
    using Done = std::function<void(const AtAnswer&)>;
    // A line that came unasked, and the unit in the line behind it, where one belongs to it.
    using Unasked = std::function<void(std::string_view line, std::string_view unit)>;

    AtDialogue(Timers& timers, Unasked unasked);

    // The line to speak on; null when it is cut, which ends the command that is under way.
    void Use(BytePort* newPort);

    bool Busy() const { return done != nullptr; }
    // The command has no line end. Not while busy. Done may ask again at once.
    void Ask(std::string newCommand, std::uint32_t milliseconds, Done newDone);
    // The same for a command that asks for a unit with "> ": its hexadecimal digits.
    void AskWithUnit(std::string newCommand, std::string newUnit, std::uint32_t milliseconds,
                     Done newDone);

    // What the modem says, in pieces as they come.
    void Received(std::string_view bytes);

private:
    void TakeLine(std::string line);
    bool TakeFinal(std::string_view line);
    void TakePrompt();
    void Finish(AtAnswer::Final final, std::int32_t number = 0);

    std::unique_ptr<Timer> timer;
    Unasked unasked;
    BytePort* port = nullptr;
    std::string buffer;  // of the line that is not complete
    std::string command;
    std::string unit;
    bool unitWritten = false;
    std::string unaskedLine;  // whose unit is to come
    AtAnswer answer;
    Done done;
};

}  // namespace tellwick::sender
