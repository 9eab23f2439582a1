#include "windows/SystemFunction.h"

#include <algorithm>
#include <string_view>

namespace tellwick::windows {

namespace {

std::vector<Text> missing;

}  // namespace

HMODULE SystemLibrary(const wchar_t* name) {
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    return LoadLibraryW(Wide(FromWide(folder, length) + u"\\" + FromWide(name)));
}

void* SystemAddress(const wchar_t* library, const char* name) {
    const HMODULE module = SystemLibrary(library);
    void* const address = module ? reinterpret_cast<void*>(GetProcAddress(module, name)) : nullptr;
    if (address) return address;
    const std::string_view letters(name);
    Text function = FromWide(library) + u" ";
    function.append(letters.begin(), letters.end());
    if (std::find(missing.begin(), missing.end(), function) == missing.end()) {
        missing.push_back(std::move(function));
    }
    return nullptr;
}

const std::vector<Text>& MissingFunctions() {
    return missing;
}

}  // namespace tellwick::windows
