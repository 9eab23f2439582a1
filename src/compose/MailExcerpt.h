// What an SMS can tell of a mail: the words of whoever wrote it, and no more than fits.
#pragma once

#include <functional>

#include "platform/Text.h"

namespace tellwick {

// The plain text of a mail without what is not its writer's, or is of no use on a phone: quoted
// mails, the signature, the long addresses of links, blanks at line ends, empty lines beside
// others.
Text OwnWords(TextView body);

// The whole text where it fits; else as much of it as does with "..." behind, cut between words
// where there are some. Of a text that fits, every beginning is to fit, too.
Text CutToFit(TextView text, const std::function<bool(TextView)>& fits);

}  // namespace tellwick
