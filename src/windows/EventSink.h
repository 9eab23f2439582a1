// The one sink for every event interface.
#pragma once

#include "platform/Object.h"
#include "windows/Com.h"
#include "windows/Lifetime.h"

namespace tellwick::windows {

// Advises a handler at the object's connection point for the events. Empty, with an error noted,
// when it has none.
SubscriptionPtr AdviseEvents(PendingError& errors, IDispatch* source, const EventInterface& events,
                             EventHandler handler);

}  // namespace tellwick::windows
