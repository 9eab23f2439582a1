// The object model as COM objects: which of them are alive, and values in COM's types.
#pragma once

#include <map>
#include <vector>

#include "model/OutlookModel.h"
#include "outlook/Com.h"

namespace tellwick::standin {

class ComObject;

// All COM objects of the model that somebody holds.
class ComObjects {
public:
    explicit ComObjects(OutlookModel& outlook) : outlook(outlook) {}
    ComObjects(const ComObjects&) = delete;
    ComObjects& operator=(const ComObjects&) = delete;

    // The COM object of a model object, one and the same as long as somebody holds it. Objects of
    // others come back as they came in; null stays null.
    ComPtr<IDispatch> Wrap(const ObjectPtr& object);
    // Values by reference are followed; types that automation has and the model lacks are empty.
    Value ToValue(const VARIANT& variant);
    void ToVariant(const Value& value, VARIANT& variant);

    struct Living {
        Text className;
        ULONG references;
        std::size_t advised;  // sinks that nobody has unadvised
    };
    std::vector<Living> Alive() const;
    // Takes away what other programs still hold.
    void Disconnect();

    OutlookModel& outlook;

private:
    friend class ComObject;
    std::map<const Object*, ComObject*> alive;
};

// Keeps what is pending outside a call from being mixed up with what the call notes.
class ErrorScope {
public:
    explicit ErrorScope(PendingError& errors) : errors(errors), before(errors) { errors.Clear(); }
    ~ErrorScope() { errors = before; }
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;

private:
    PendingError& errors;
    PendingError before;
};

// The code that stands for a pending error in a COM call's result.
HRESULT AutomationCode(const PendingError& errors);

// The IDispatch behind an object of others that was put into the model; null when it is ours.
ComPtr<IDispatch> ForeignDispatch(const ObjectPtr& object);

}  // namespace tellwick::standin
