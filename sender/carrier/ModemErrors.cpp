#include "carrier/ModemErrors.h"

#include <algorithm>
#include <array>

namespace tellwick::sender {

namespace {

// Congestion and failures that pass; 192 is a service centre that is busy.
constexpr std::array TransientCms{17,  22,  38,  41,  42,  47,  192, 193, 194, 300, 301, 313, 314,
                                  320, 322, 331, 332, 500, 512, 513, 514, 515, 516, 517, 518, 532};
constexpr std::array TransientCme{14, 30, 31, 32, 100};

// By number, as both kinds of errors have them.
struct Sim {
    std::int32_t cms, cme;
    TextView name;
};
constexpr std::array<Sim, 6> Sims{{{310, 10, reason::NoSim},
                                   {311, 11, reason::NeedsPin},
                                   {312, 5, reason::NeedsPin},
                                   {315, 15, reason::NoSim},
                                   {316, 12, reason::NeedsPuk},
                                   {317, 17, reason::NeedsPin}}};

template <std::size_t Size>
bool In(const std::array<int, Size>& numbers, std::int32_t number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

Text Words(const AtAnswer& answer) {
    if (answer.final == AtAnswer::Final::Error) return u"ERROR";
    return u"CME ERROR " + NumberText(answer.number);
}

}  // namespace

Reason SimReason(const AtAnswer& answer) {
    for (const Sim& sim : Sims) {
        const bool cms = answer.final == AtAnswer::Final::CmsError && answer.number == sim.cms;
        const bool cme = answer.final == AtAnswer::Final::CmeError && answer.number == sim.cme;
        if (cms || cme) return {Text(sim.name), {}};
    }
    const std::string_view state = answer.Behind("+CPIN:");
    if (state.find("PUK") != std::string_view::npos) return {Text(reason::NeedsPuk), {}};
    if (state.find("PIN") != std::string_view::npos) return {Text(reason::NeedsPin), {}};
    return {};
}

Outcome OutcomeOf(const AtAnswer& answer) {
    if (const Reason sim = SimReason(answer); !sim.name.empty()) {
        return {Outcome::Kind::Transient, sim, true};
    }
    if (answer.final == AtAnswer::Final::CmsError) {
        const Reason why{Text(reason::Network), NumberText(answer.number)};
        // A modem without network has none for the others either.
        const bool away = answer.number == 331;
        return {
            In(TransientCms, answer.number) ? Outcome::Kind::Transient : Outcome::Kind::Permanent,
            why, away};
    }
    const bool passes = answer.final == AtAnswer::Final::Error || In(TransientCme, answer.number);
    return {passes ? Outcome::Kind::Transient : Outcome::Kind::Permanent,
            {Text(reason::Modem), Words(answer)},
            false};
}

}  // namespace tellwick::sender
