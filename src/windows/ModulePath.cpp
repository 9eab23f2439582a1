#include "windows/ModulePath.h"

namespace tellwick::windows {

Text ModulePath(HMODULE module) {
    constexpr DWORD LongestPath = 0x8000;
    // A path that fills the buffer was cut, and Windows XP does not say so.
    for (DWORD size = MAX_PATH; size <= LongestPath; size *= 2) {
        Text path(size, u'\0');
        const DWORD length =
            GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()), size);
        if (length < size) {
            path.resize(length);
            return path;
        }
    }
    return {};
}

}  // namespace tellwick::windows
