// Port: automation objects of other programs, used late bound by member names.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <variant>
#include <vector>

#include "platform/PendingError.h"
#include "platform/Text.h"

namespace tellwick {

class Object;
// An empty pointer is the empty reference ("Nothing").
using ObjectPtr = std::shared_ptr<Object>;

// No value. It has a copy constructor of its own because libstdc++ takes a variant of trivial
// types, strings and shared pointers for one that always holds something, and destroys a text whose
// copy failed for want of memory.
struct Nothing {
    Nothing() = default;
    // NOLINTNEXTLINE(modernize-use-equals-default)
    Nothing(const Nothing&) noexcept {}
    // NOLINTNEXTLINE(modernize-use-equals-default)
    Nothing& operator=(const Nothing&) noexcept { return *this; }
};

class Grid;
using GridPtr = std::shared_ptr<const Grid>;

// A date is a number: the days since the end of 1899, with the time of day as a fraction.
using Value = std::variant<Nothing, bool, std::int32_t, double, Text, ObjectPtr, GridPtr>;

struct NamedValue {
    TextView name;
    Value value;
};

// A dispatch interface of events: its name and its identifier in registry form.
struct EventInterface {
    TextView name;
    TextView identifier;  // "{0006304E-0000-0000-C000-000000000046}"
};

// Called with the event's dispatch identifier and its arguments in their written order. A Boolean
// that the source passes by reference may be changed; the change reaches the source.
using EventHandler = std::function<void(std::int32_t event, std::vector<Value>& arguments)>;

// An advised handler; destroying it ends the advice. It may be destroyed while its handler runs.
class Subscription {
public:
    virtual ~Subscription() = default;
};
using SubscriptionPtr = std::unique_ptr<Subscription>;

// The name that stands for an object's default property.
inline constexpr TextView DefaultMember;

// One object. Every function that fails notes the error's number and description and yields an
// empty value.
class Object {
public:
    virtual ~Object() = default;

    // Property get; arguments for properties that take some (Item).
    virtual Value Get(TextView member, const std::vector<Value>& arguments = {}) = 0;

    // Property put, by reference for objects.
    virtual void Put(TextView member, const Value& value) = 0;

    // Method call: positional arguments first, then named ones.
    virtual Value Call(TextView member, const std::vector<Value>& arguments = {},
                       const std::vector<NamedValue>& named = {}) = 0;

    // The class name ("Explorer", "Application"); empty when the object tells none.
    virtual Text TypeName() = 0;

    // Sinks the object's events. Empty, with an error noted, when it has no such events.
    virtual SubscriptionPtr Advise(const EventInterface& events, EventHandler handler) = 0;
};

// An object held together with its events. Setting it fails, and leaves it as it was, when the new
// object does not offer the events.
class SunkObject {
public:
    bool Set(PendingError& errors, const ObjectPtr& object, const EventInterface& events,
             EventHandler handler);
    void Clear();
    explicit operator bool() const { return held != nullptr; }
    const ObjectPtr& Reference() const { return held; }

private:
    ObjectPtr held;
    SubscriptionPtr subscription;
};

// "Nothing" for the empty reference, else the object's own type name.
Text TypeName(const ObjectPtr& object);

// Member access that is safe on the empty reference: notes 91 and yields an empty value.
Value Get(PendingError& errors, const ObjectPtr& object, TextView member,
          const std::vector<Value>& arguments = {});
void Put(PendingError& errors, const ObjectPtr& object, TextView member, const Value& value);
Value Call(PendingError& errors, const ObjectPtr& object, TextView member,
           const std::vector<Value>& arguments = {}, const std::vector<NamedValue>& named = {});

// Conversions by the rules of automation: an empty value is "", 0, false, Nothing; what cannot be
// converted is the same. Numbers and Booleans become decimal text; text becomes its leading number.
Text AsText(const Value& value);
std::int32_t AsNumber(const Value& value);
bool AsBoolean(const Value& value);
ObjectPtr AsObject(const Value& value);
GridPtr AsGrid(const Value& value);
// The number with its fraction.
double AsReal(const Value& value);

// Port: where objects come from.
class Automation {
public:
    virtual ~Automation() = default;

    // Creates an object by its programmatic identifier; empty with 429 noted.
    virtual ObjectPtr Create(TextView programmaticIdentifier) = 0;

    // Attaches to a running object, never starting one; empty with 429 noted.
    virtual ObjectPtr Running(TextView programmaticIdentifier) = 0;
};

}  // namespace tellwick
