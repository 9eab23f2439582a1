// Port: who carries an SMS away. One at a time; everything it has to say comes to its listener,
// never from within a call of one of its functions.
#pragma once

#include <cstdint>

#include "platform/Text.h"
#include "spool/Reason.h"

namespace tellwick::sender {

struct OutgoingSms {
    Text recipient;  // can be dialled
    Text text;
    std::int32_t partsSent = 0;        // so many of its parts are not to be sent again
    std::int32_t concatReference = 0;  // that all its parts carry
};

// What came of an SMS that was handed over.
struct Outcome {
    enum class Kind {
        Sent,
        Transient,  // did not go; may go later
        Permanent,  // will never go
        Unsure,     // may have gone: no answer came
    };
    Kind kind = Kind::Sent;
    Reason reason;  // empty when sent
    // The carrier is away or would take no other either: an attempt that does not count.
    bool away = false;
};

class CarrierListener {
public:
    virtual ~CarrierListener() = default;

    // A part is with the network, which knows it by a reference (-1 for none). Comes before the
    // answer, once a part, in their order.
    virtual void PartSent(std::int32_t networkReference) = 0;
    // Exactly once for each SMS that was handed over.
    virtual void Answered(const Outcome& outcome) = 0;
    // Ready or away now.
    virtual void ReadinessChanged() = 0;
};

class Carrier {
public:
    virtual ~Carrier() = default;

    virtual void SetListener(CarrierListener* listener) = 0;

    // Whether an SMS can be handed over now. Not while one is under way.
    virtual bool Ready() const = 0;
    // Why it is away; empty while it is ready, busy or about to be.
    virtual Reason Away() const = 0;

    // Only while ready.
    virtual void HandOver(const OutgoingSms& sms) = 0;
};

}  // namespace tellwick::sender
