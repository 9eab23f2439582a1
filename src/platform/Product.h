// The names under which the add-in, the sender application and the user know each other.
#pragma once

#include "platform/Text.h"

namespace tellwick {

inline constexpr TextView ApplicationName = u"Tellwick";
inline constexpr TextView ComponentTitle = u"TellwickOutlookAddIn";
inline constexpr TextView ProgrammaticIdentifier = u"TellwickOutlookAddIn.Connect";

// Registry keys under HKEY_CURRENT_USER.
inline constexpr TextView RootKey = u"Software\\Omberline\\Tellwick";
inline constexpr TextView AddInKey = u"Software\\Omberline\\Tellwick\\OlAddIn";

}  // namespace tellwick
