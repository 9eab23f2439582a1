#include "recipients/RecipientList.h"

namespace tellwick {

std::vector<Text> RecipientsIn(TextView field) {
    std::vector<Text> recipients;
    for (const Text& part : Split(ReplaceAll(field, u",", u";"), u";")) {
        Text recipient = Trimmed(part);
        if (!recipient.empty()) recipients.push_back(std::move(recipient));
    }
    return recipients;
}

}  // namespace tellwick
