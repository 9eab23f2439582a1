// Objects of other programs over IDispatch, and the sink for their events.
#pragma once

#include "platform/Object.h"
#include "windows/Com.h"

namespace tellwick::windows {

// The object behind a dispatch interface; empty for a null one.
ObjectPtr WrapDispatch(PendingError& errors, IDispatch* dispatch);

// Notes what a failed call says of itself.
void NoteFailure(PendingError& errors, HRESULT result, const EXCEPINFO* exception = nullptr);

class WindowsAutomation : public Automation {
public:
    explicit WindowsAutomation(PendingError& errors) : errors(errors) {}
    ObjectPtr Create(TextView programmaticIdentifier) override;
    ObjectPtr Running(TextView programmaticIdentifier) override;

private:
    PendingError& errors;
};

}  // namespace tellwick::windows
