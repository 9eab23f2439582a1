#include "windows/RegistryQueueValues.h"

#include <iterator>

#include "platform/Product.h"
#include "windows/Com.h"

namespace tellwick::sender {

std::optional<std::vector<Text>> RegistryQueueValues::Names() {
    constexpr DWORD LongestName = 16'383;
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(
        HKEY_CURRENT_USER, windows::Wide(Text(RootKey) + u"\\SMSQueue"), 0, KEY_READ, &opened);
    std::vector<Text> names;
    if (status == ERROR_FILE_NOT_FOUND) return names;
    if (status != ERROR_SUCCESS) return {};
    const windows::RegistryKey key(opened);
    Text name(LongestName + 1, u'\0');
    for (DWORD index = 0;; ++index) {
        auto length = DWORD(name.size());
        const LSTATUS listed =
            RegEnumValueW(key.get(), index, reinterpret_cast<wchar_t*>(name.data()), &length,
                          nullptr, nullptr, nullptr, nullptr);
        if (listed == ERROR_NO_MORE_ITEMS) return names;
        if (listed != ERROR_SUCCESS) return {};
        names.push_back(name.substr(0, length));
    }
}

}  // namespace tellwick::sender
