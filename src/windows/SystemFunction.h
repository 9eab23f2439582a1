// Functions of system libraries that not every system has.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows {

// A library of the system's own folder: one of that name that lies elsewhere, as beside a document
// on a share, is never taken. Null when there is none.
HMODULE SystemLibrary(const wchar_t* name);

// Null when the library or the function is missing.
template <class Function>
Function SystemFunction(const wchar_t* library, const char* name) {
    const HMODULE module = SystemLibrary(library);
    if (!module) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace tellwick::windows
