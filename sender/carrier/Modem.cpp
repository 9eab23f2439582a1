#include "carrier/Modem.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "carrier/ModemErrors.h"

namespace tellwick::sender {

namespace {

constexpr std::uint32_t Quick = 5'000;  // milliseconds a modem has for an answer
constexpr std::uint32_t Slow = 20'000;  // where it looks at the SIM
constexpr std::uint32_t Sending = 120'000;
constexpr std::uint32_t AfterSilence = 2'000;
constexpr std::uint32_t Retry = 5'000;
constexpr std::uint32_t BetweenLooks = 30'000;  // at the network, while there is nothing to do

std::int32_t NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::int32_t number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// The fields of "1,0,,24"; quotes go.
std::vector<std::string> Fields(std::string_view text) {
    std::vector<std::string> fields(1);
    for (const char unit : text) {
        if (unit == ',') {
            fields.emplace_back();
        } else if (unit != '"' && unit != ' ') {
            fields.back() += unit;
        }
    }
    return fields;
}

}  // namespace

Modem::Modem(Timers& timers, ModemListener& modemListener)
    : dialogue(timers,
               [this](std::string_view line, std::string_view unit) { Unasked(line, unit); }),
      modemListener(modemListener),
      timer(timers.Create()),
      away{Text(reason::Unplugged), {}} {}

void Modem::Plugged(BytePort& newPort) {
    plugged = true;
    if (pin.empty()) pin = goodPin;
    dialogue.Use(&newPort);
    step = 0;
    NextStep();
}

void Modem::Unplugged() {
    plugged = ready = false;
    away = {Text(reason::Unplugged), {}};
    timer->Stop();
    stored.clear();
    toDelete.clear();
    memory.clear();
    dialogue.Use(nullptr);
    if (listener) listener->ReadinessChanged();
}

bool Modem::SetPin(TextView newPin) {
    if (newPin.size() < 4 || newPin.size() > 8 ||
        !std::all_of(newPin.begin(), newPin.end(), IsDigit))
        return false;
    pin.assign(newPin.begin(), newPin.end());
    if (away.name == reason::NeedsPin || away.name == reason::WrongPin) away = {};
    if (plugged && !ready && !dialogue.Busy()) Start(1);
    return true;
}

void Modem::Start(std::uint32_t milliseconds) {
    step = 0;
    timer->Start(milliseconds, [this] { NextStep(); });
}

void Modem::GoAway(const Reason& reason, std::uint32_t startAgain) {
    const bool changed = ready || away != reason;
    ready = false;
    away = reason;
    Start(startAgain);
    if (changed && listener) listener->ReadinessChanged();
}

void Modem::NextStep() {
    static const std::array<Step, 9> Steps{{
        {"AT", Quick, &Modem::AcceptsOk},
        {"ATE0", Quick, &Modem::Any},
        {"AT+CMEE=1", Quick, &Modem::Any},
        {"AT+CPIN?", Slow, &Modem::AcceptsPin},
        {NetworkCommand, Quick, &Modem::AcceptsNetwork},
        {"AT+CSQ", Quick, &Modem::AcceptsSignal},
        {"AT+CMGF=0", Quick, &Modem::AcceptsOk},
        // SMS are stored and announced, reports come by themselves.
        {"AT+CNMI=2,1,0,1,0", Quick, &Modem::Any},
        {"AT+CMGL=4", Slow, &Modem::AcceptsStored},
    }};
    timer->Stop();
    if (step == Steps.size()) {
        BecomeReady();
        return;
    }
    const Step& next = Steps[step];
    dialogue.Ask(next.command, next.milliseconds, [this, &next](const AtAnswer& answer) {
        if (answer.final == AtAnswer::Final::Gone || !(this->*next.accepts)(answer)) return;
        ++step;
        NextStep();
    });
}

bool Modem::Any(const AtAnswer& answer) {
    if (answer.final != AtAnswer::Final::Silence) return true;
    GoAway({Text(reason::NoAnswer), {}}, AfterSilence);
    return false;
}

bool Modem::AcceptsOk(const AtAnswer& answer) {
    if (answer.final == AtAnswer::Final::Ok) return true;
    if (Any(answer)) GoAway(OutcomeOf(answer).reason, Retry);
    return false;
}

bool Modem::AcceptsPin(const AtAnswer& answer) {
    if (!Any(answer)) return false;
    const std::vector<std::string> state = Fields(answer.Behind("+CPIN:"));
    // Modems without the command have no PIN.
    if (state[0] == "READY" || answer.final == AtAnswer::Final::Error) return true;
    const Reason sim = SimReason(answer);
    // Others ask for other PINs.
    if (state[0] != "SIMPIN" || pin.empty()) {
        const bool wrong = state[0] == "SIMPIN" && away.name == reason::WrongPin;
        GoAway(sim.name.empty() || wrong ? Reason(away) : sim, Retry);
        return false;
    }
    const std::string tried = std::exchange(pin, {});
    goodPin.clear();
    dialogue.Ask("AT+CPIN=\"" + tried + "\"", Slow, [this, tried](const AtAnswer& last) {
        if (last.final == AtAnswer::Final::Gone) return;
        if (last.final == AtAnswer::Final::Ok) {
            goodPin = tried;
            Start(AfterSilence);  // the SIM takes its time
        } else {
            GoAway({Text(reason::WrongPin), {}}, Retry);
        }
    });
    return false;
}

bool Modem::AcceptsNetwork(const AtAnswer& answer) {
    if (!Any(answer)) return false;
    const std::vector<std::string> fields = Fields(answer.Behind("+CREG:"));
    // Registered at home, or roaming; modems that cannot tell are believed.
    if (fields.size() < 2 || fields[1] == "1" || fields[1] == "5") return true;
    GoAway({Text(reason::NoNetwork), {}}, Retry);
    return false;
}

bool Modem::AcceptsSignal(const AtAnswer& answer) {
    if (answer.Has("+CSQ:")) signalStrength = NumberIn(answer.Behind("+CSQ:"));
    return Any(answer);
}

bool Modem::AcceptsStored(const AtAnswer& answer) {
    if (!Any(answer)) return false;
    for (std::size_t line = 0; line + 1 < answer.lines.size(); ++line) {
        constexpr std::string_view Beginning = "+CMGL:";
        if (!answer.lines[line].starts_with(Beginning)) continue;
        const std::vector<std::string> fields =
            Fields(std::string_view(answer.lines[line]).substr(Beginning.size()));
        // 0 and 1 are those that came, unread and read.
        const bool came = fields.size() > 1 && (fields[1] == "0" || fields[1] == "1");
        if (came && TakeUnit(answer.lines[line + 1])) toDelete.push_back({{}, NumberIn(fields[0])});
    }
    return true;
}

void Modem::BecomeReady() {
    ready = true;
    away = {};
    timer->Start(BetweenLooks, [this] { Idle(); });
    Proceed();
}

void Modem::Idle() {
    if (!Ready()) return;
    dialogue.Ask(NetworkCommand, Quick, [this](const AtAnswer& answer) {
        if (answer.final != AtAnswer::Final::Gone && AcceptsNetwork(answer)) Proceed();
    });
}

void Modem::Proceed() {
    if (!ready || dialogue.Busy()) return;
    if (!toDelete.empty()) {
        DeleteStored();
    } else if (!stored.empty()) {
        ReadStored();
    } else if (listener) {
        listener->ReadinessChanged();
    }
}

void Modem::HandOver(const OutgoingSms& sms) {
    units = WriteSubmit(sms.recipient, sms.text, sms.concatReference, options);
    part = std::size_t(sms.partsSent);
    if (part < units.size()) {
        SendPart();
        return;
    }
    // Nothing is left to be sent, or nothing can be: said behind an answer, as everything is.
    const bool tooLong = units.empty();
    units.resize(1);
    dialogue.Ask("AT", Quick, [this, tooLong](const AtAnswer&) {
        Answer({tooLong ? Outcome::Kind::Permanent : Outcome::Kind::Sent,
                tooLong ? Reason{Text(reason::TooLong), {}} : Reason{}});
    });
}

void Modem::SendPart() {
    const Pdu& unit = units[part];
    dialogue.AskWithUnit("AT+CMGS=" + std::to_string(unit.length), unit.octets, Sending,
                         [this](const AtAnswer& answer) { PartAnswered(answer); });
}

void Modem::PartAnswered(const AtAnswer& answer) {
    using Final = AtAnswer::Final;
    const bool lost = answer.final == Final::Silence || answer.final == Final::Gone;
    const Reason why{Text(answer.final == Final::Gone ? reason::Unplugged : reason::NoAnswer), {}};
    if (lost && plugged) {
        // Late answers are not to be taken for those of the next commands.
        ready = false;
        away = why;
        Start(AfterSilence);
    }
    if (answer.final == Final::Ok || answer.Has("+CMGS:")) {
        ++part;
        if (listener) listener->PartSent(NumberIn(answer.Behind("+CMGS:")));
        if (part == units.size()) {
            Answer({Outcome::Kind::Sent, {}});
        } else if (lost) {
            Answer({Outcome::Kind::Transient, why, true});
        } else {
            SendPart();
        }
    } else if (lost) {
        Answer({answer.unitOut ? Outcome::Kind::Unsure : Outcome::Kind::Transient, why, true});
    } else {
        const Outcome outcome = OutcomeOf(answer);
        if (outcome.away) GoAway(outcome.reason, Retry);
        Answer(outcome);
    }
}

void Modem::Answer(const Outcome& outcome) {
    units.clear();
    if (listener) listener->Answered(outcome);
    Proceed();
}

void Modem::Unasked(std::string_view line, std::string_view unit) {
    if (!unit.empty()) {
        TakeUnit(unit);
        return;
    }
    const std::vector<std::string> place =
        Fields(line.substr(std::min(line.find(':'), line.size() - 1) + 1));
    const std::int32_t index = place.size() == 2 ? NumberIn(place[1]) : -1;
    if (index < 0) return;
    stored.push_back({place[0], index});
    if (units.empty()) Proceed();
}

bool Modem::TakeUnit(std::string_view unit) {
    const ReceivedUnit received = ReadPdu(unit);
    if (const auto* one = std::get_if<ReceivedPart>(&received)) {
        return modemListener.Arrived(*one, unit);
    }
    const auto* report = std::get_if<StatusReport>(&received);
    if (report) modemListener.Reported(*report);
    return report != nullptr;
}

void Modem::ReadStored() {
    const Stored next = stored.front();
    if (next.memory != memory) {
        dialogue.Ask("AT+CPMS=\"" + next.memory + "\"", Slow, [this, next](const AtAnswer& answer) {
            if (answer.final == AtAnswer::Final::Gone || !Any(answer)) return;
            // Where it cannot be chosen it is the only one there is.
            memory = next.memory;
            Proceed();
        });
        return;
    }
    stored.pop_front();
    dialogue.Ask("AT+CMGR=" + std::to_string(next.index), Slow,
                 [this, next](const AtAnswer& answer) {
                     if (answer.final == AtAnswer::Final::Gone || !Any(answer)) return;
                     if (answer.lines.size() > 1 && answer.lines[0].starts_with("+CMGR:") &&
                         TakeUnit(answer.lines[1])) {
                         toDelete.push_back(next);
                     }
                     Proceed();
                 });
}

void Modem::DeleteStored() {
    const Stored next = toDelete.front();
    toDelete.pop_front();
    dialogue.Ask("AT+CMGD=" + std::to_string(next.index), Slow, [this](const AtAnswer& answer) {
        if (answer.final != AtAnswer::Final::Gone && Any(answer)) Proceed();
    });
}

}  // namespace tellwick::sender
