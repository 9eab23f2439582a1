// Functions of system libraries that not every system has.
#pragma once

#include <vector>

#include "windows/Com.h"

namespace tellwick::windows {

// A library of the system's own folder: one of that name that lies elsewhere, as beside a document
// on a share, is never taken. Null when there is none.
HMODULE SystemLibrary(const wchar_t* name);

// The address of a function; null when the library or the function is missing.
void* SystemAddress(const wchar_t* library, const char* name);

// What was missing up to now, as "library.dll Function", each once.
const std::vector<Text>& MissingFunctions();

template <class Function>
Function SystemFunction(const wchar_t* library, const char* name) {
    return reinterpret_cast<Function>(SystemAddress(library, name));
}

}  // namespace tellwick::windows
