// The errors that the user is told of when they pass through the trace.
#pragma once

#include "platform/PendingError.h"
#include "platform/Text.h"

namespace tellwick {

class MessageBoxes;

// Number and description, "53:File not found".
Text ErrorText(const PendingError& pending);

class ErrorBoxes {
public:
    explicit ErrorBoxes(MessageBoxes& messageBoxes) : messageBoxes(messageBoxes) {}

    // Tells of an error that is told of in any case; of others nothing is shown.
    void Show(const PendingError& pending);
    // Tells of one that is told of only where it is traced.
    void ShowTraced(const PendingError& pending);

private:
    MessageBoxes& messageBoxes;
};

}  // namespace tellwick
