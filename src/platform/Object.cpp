#include "platform/Object.h"

#include <utility>

namespace tellwick {

namespace {

bool IsSet(PendingError& errors, const ObjectPtr& object) {
    if (object) return true;
    errors.Note(error::ObjectNotSet, u"Object variable or With block variable not set");
    return false;
}

}  // namespace

bool SunkObject::Set(PendingError& errors, const ObjectPtr& object, const EventInterface& events,
                     EventHandler handler) {
    if (!IsSet(errors, object)) return false;
    SubscriptionPtr advised = object->Advise(events, std::move(handler));
    if (!advised) return false;
    Clear();
    held = object;
    subscription = std::move(advised);
    return true;
}

void SunkObject::Clear() {
    subscription.reset();
    held.reset();
}

Text TypeName(const ObjectPtr& object) {
    return object ? object->TypeName() : Text(u"Nothing");
}

Value Get(PendingError& errors, const ObjectPtr& object, TextView member,
          const std::vector<Value>& arguments) {
    return IsSet(errors, object) ? object->Get(member, arguments) : Value();
}

void Put(PendingError& errors, const ObjectPtr& object, TextView member, const Value& value) {
    if (IsSet(errors, object)) object->Put(member, value);
}

Value Call(PendingError& errors, const ObjectPtr& object, TextView member,
           const std::vector<Value>& arguments, const std::vector<NamedValue>& named) {
    return IsSet(errors, object) ? object->Call(member, arguments, named) : Value();
}

Text AsText(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return NumberText(*number);
    if (const auto* number = std::get_if<double>(&value)) {
        // Neither what is no number nor what no integer holds.
        constexpr double Most = 9e18;
        return *number > -Most && *number < Most ? NumberText(std::int64_t(*number)) : Text();
    }
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? u"True" : u"False";
    return {};
}

std::int32_t AsNumber(const Value& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    if (const auto* number = std::get_if<double>(&value)) {
        return *number > -2147483648.0 && *number < 2147483648.0 ? std::int32_t(*number) : 0;
    }
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
    if (const auto* text = std::get_if<Text>(&value)) return LeadingNumber32(*text);
    return 0;
}

bool AsBoolean(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) {
        return EqualFolded(*text, u"True") || LeadingNumber(*text) != 0;
    }
    return AsNumber(value) != 0;
}

ObjectPtr AsObject(const Value& value) {
    const auto* object = std::get_if<ObjectPtr>(&value);
    return object ? *object : nullptr;
}

GridPtr AsGrid(const Value& value) {
    const auto* grid = std::get_if<GridPtr>(&value);
    return grid ? *grid : nullptr;
}

double AsReal(const Value& value) {
    const auto* real = std::get_if<double>(&value);
    return real ? *real : AsNumber(value);
}

}  // namespace tellwick
