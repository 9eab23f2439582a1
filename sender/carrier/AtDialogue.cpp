#include "carrier/AtDialogue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tellwick::sender {

namespace {

constexpr char EndOfUnit = 0x1A;
constexpr std::string_view GiveUp = "\x1B";
constexpr std::size_t LongestLine = 4096;

struct UnaskedKind {
    std::string_view beginning;
    bool unit;  // one stands in the line behind it
};
constexpr std::array<UnaskedKind, 6> UnaskedKinds{{{"+CMTI:", false},
                                                   {"+CDSI:", false},
                                                   {"+CMT:", true},
                                                   {"+CDS:", true},
                                                   {"+CBM:", true},
                                                   {"RING", false}}};

bool IsUnit(std::string_view line) {
    return line.size() >= 2 && line.size() % 2 == 0 &&
           line.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

std::int32_t NumberBehind(std::string_view line, std::string_view beginning) {
    line.remove_prefix(std::min(line.find_first_not_of(' ', beginning.size()), line.size()));
    std::int32_t number = -1;
    std::from_chars(line.data(), line.data() + line.size(), number);
    return number;
}

}  // namespace

std::string_view AtAnswer::Behind(std::string_view beginning) const {
    for (const std::string_view line : lines) {
        if (line.starts_with(beginning)) return line.substr(beginning.size());
    }
    return {};
}

bool AtAnswer::Has(std::string_view beginning) const {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.starts_with(beginning); });
}

AtDialogue::AtDialogue(Timers& timers, Unasked unasked)
    : timer(timers.Create()), unasked(std::move(unasked)) {}

void AtDialogue::Use(BytePort* newPort) {
    if (Busy()) {
        answer.unitOut = unitWritten && port->Unsent() == 0;
        port = nullptr;
        Finish(AtAnswer::Final::Gone);
    }
    port = newPort;
    buffer.clear();
    unaskedLine.clear();
}

void AtDialogue::Ask(std::string newCommand, std::uint32_t milliseconds, Done newDone) {
    AskWithUnit(std::move(newCommand), {}, milliseconds, std::move(newDone));
}

void AtDialogue::AskWithUnit(std::string newCommand, std::string newUnit,
                             std::uint32_t milliseconds, Done newDone) {
    command = std::move(newCommand);
    unit = std::move(newUnit);
    unitWritten = false;
    answer = {};
    done = std::move(newDone);
    timer->Start(milliseconds, [this] {
        answer.unitOut = unitWritten;
        // A modem that waits for a unit, be it that of a program which has ended within its
        // command, is not to take the next command for it.
        if (!unitWritten && port) port->Write(GiveUp);
        Finish(AtAnswer::Final::Silence);
    });
    if (port) port->Write(command + "\r");
}

void AtDialogue::Received(std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte == '\r' || byte == '\n') {
            if (!buffer.empty()) TakeLine(std::exchange(buffer, {}));
        } else if (byte >= ' ' && byte <= '~' && buffer.size() < LongestLine) {
            // A blank at the beginning is the rest of a prompt.
            if (byte != ' ' || !buffer.empty()) buffer += byte;
            if (buffer == ">") TakePrompt();
        }
    }
}

void AtDialogue::TakePrompt() {
    if (!Busy() || unit.empty() || unitWritten) return;
    buffer.clear();
    unitWritten = true;
    port->Write(unit + EndOfUnit);
}

void AtDialogue::TakeLine(std::string line) {
    if (!unaskedLine.empty()) {
        const std::string before = std::exchange(unaskedLine, {});
        if (IsUnit(line)) {
            unasked(before, line);
            return;
        }
    }
    for (const UnaskedKind& kind : UnaskedKinds) {
        if (!line.starts_with(kind.beginning)) continue;
        if (kind.unit) {
            unaskedLine = std::move(line);
        } else {
            unasked(line, {});
        }
        return;
    }
    if (!Busy() || line == command || line == unit || line.starts_with('>')) return;
    if (!TakeFinal(line)) answer.lines.push_back(std::move(line));
}

bool AtDialogue::TakeFinal(std::string_view line) {
    constexpr std::string_view Cms = "+CMS ERROR:", Cme = "+CME ERROR:";
    if (line == "OK") {
        Finish(AtAnswer::Final::Ok);
    } else if (line == "ERROR") {
        Finish(AtAnswer::Final::Error);
    } else if (line.starts_with(Cms)) {
        Finish(AtAnswer::Final::CmsError, NumberBehind(line, Cms));
    } else if (line.starts_with(Cme)) {
        Finish(AtAnswer::Final::CmeError, NumberBehind(line, Cme));
    } else {
        return false;
    }
    return true;
}

void AtDialogue::Finish(AtAnswer::Final final, std::int32_t number) {
    timer->Stop();
    answer.final = final;
    answer.number = number;
    const Done finished = std::exchange(done, nullptr);
    const AtAnswer given = std::exchange(answer, {});
    if (finished) finished(given);
}

}  // namespace tellwick::sender
