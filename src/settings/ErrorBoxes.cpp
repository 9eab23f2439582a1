#include "settings/ErrorBoxes.h"

#include "settings/MessageBoxes.h"

namespace tellwick {

Text ErrorText(const PendingError& pending) {
    return NumberText(pending.number) + u":" + pending.description;
}

void ErrorBoxes::Show(const PendingError& pending) {
    switch (pending.number) {
        case error::OutOfMemory:
        case error::ControlNotLoaded:
        case error::ControlNotLoadedHere:
            messageBoxes.MsgBoxEx(ErrorText(pending), box::IconExclamation);
            break;
        default:
            break;
    }
}

void ErrorBoxes::ShowTraced(const PendingError& pending) {
    if (pending.number == error::ComponentMissing) {
        messageBoxes.MsgBoxEx(u"E#" + ErrorText(pending), box::IconExclamation);
    }
}

}  // namespace tellwick
