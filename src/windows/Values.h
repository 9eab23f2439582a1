// Between the program's values and the variants of automation.
#pragma once

#include "platform/Object.h"
#include "windows/Com.h"

namespace tellwick::windows {

// A variant of any type, by reference or not; types the program has no use for become empty.
Value ToValue(PendingError& errors, const VARIANT& variant);

// Fills an empty variant. An empty value becomes a missing argument.
void ToVariant(const Value& value, VARIANT& variant);

// The dispatch interface behind an object of another program, borrowed; null for the empty
// reference and for objects that have none.
IDispatch* DispatchOf(const ObjectPtr& object);

}  // namespace tellwick::windows
