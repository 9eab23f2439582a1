#include "settings/MessageBoxes.h"

#include "platform/Product.h"

namespace tellwick {

TextView MessageBoxes::ShownPart(TextView message) {
    return message.substr(0, message.find(u'|'));
}

Answer MessageBoxes::MsgBoxEx(TextView message, std::uint32_t flags, Text& title) {
    if (title.empty()) title = ApplicationName;
    return dialogs.MessageBox(ShownPart(message), flags & ~(RememberedAnswer | AffirmativeIsOne),
                              title);
}

Answer MessageBoxes::MsgBoxEx(TextView message, std::uint32_t flags) {
    Text title;
    return MsgBoxEx(message, flags, title);
}

}  // namespace tellwick
