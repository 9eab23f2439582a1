#include "windows/SmsActions.h"

#include <algorithm>

#include "spool/SenderTexts.h"

namespace tellwick::sender {

bool SmsActions::AnyChosen(std::initializer_list<State> states) const {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    return std::any_of(chosen.begin(), chosen.end(), [states](const SmsList::Row& row) {
        return std::find(states.begin(), states.end(), row.state) != states.end();
    });
}

bool SmsActions::CanSendAgain() const {
    return AnyChosen({State::Failed, State::Unsure, State::Sent});
}

bool SmsActions::CanDelete() const {
    return AnyChosen({State::Failed, State::Unsure, State::Sent, State::Waiting});
}

bool SmsActions::Asked(TextView name) const {
    return MessageBoxW(owner, windows::Wide(SenderText(sender.Texts(), name)), L"Tellwick",
                       MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void SmsActions::SendAgain() const {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    if (AnyChosen({State::Unsure}) && !Asked(u"AskAgain")) return;
    // The oldest one goes first. One that has changed meanwhile is no longer what was chosen.
    std::for_each(chosen.rbegin(), chosen.rend(), [this](const SmsList::Row& row) {
        sender.TheSpool().SendAgain(row.state, row.id);
    });
    sender.Look();
}

void SmsActions::Delete() const {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    if (chosen.empty() || !Asked(u"AskDelete")) return;
    for (const SmsList::Row& row : chosen) sender.TheSpool().Delete(row.state, row.id);
}

void SmsActions::ShowDetails() const {
    const std::vector<SmsList::Row> chosen = list.Chosen();
    const Text details = chosen.size() == 1 ? list.Details(chosen.front()) : Text();
    if (!details.empty()) MessageBoxW(owner, windows::Wide(details), L"Tellwick", MB_OK);
}

}  // namespace tellwick::sender
