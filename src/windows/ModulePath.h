// Where a loaded library or program lies.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows {

// Its full path, however long; empty when the system gives none.
Text ModulePath(HMODULE module);

}  // namespace tellwick::windows
