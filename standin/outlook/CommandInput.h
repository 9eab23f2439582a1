// Where commands come from.
#pragma once

#include <windows.h>

#include <functional>

#include "outlook/Commands.h"

namespace tellwick::standin {

// Reads lines from a handle on a thread of its own and posts them as commands; `atEnd` is posted
// behind the last one.
void ReadCommands(HANDLE source, Dispatcher& dispatcher, Commands& commands,
                  std::function<void()> atEnd);

}  // namespace tellwick::standin
