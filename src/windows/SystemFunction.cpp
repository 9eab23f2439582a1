#include "windows/SystemFunction.h"

namespace tellwick::windows {

HMODULE SystemLibrary(const wchar_t* name) {
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    return LoadLibraryW(Wide(FromWide(folder, length) + u"\\" + FromWide(name)));
}

}  // namespace tellwick::windows
