#include "windows/RegistryQueueValues.h"

#include <iterator>

#include "platform/Product.h"
#include "windows/WindowsRegistry.h"

namespace tellwick::sender {

std::optional<std::vector<Text>> RegistryQueueValues::Names() {
    constexpr DWORD LongestName = 16'383;
    key.reset();
    HKEY opened = nullptr;
    const LSTATUS status =
        RegOpenKeyExW(HKEY_CURRENT_USER, windows::Wide(Text(RootKey) + u"\\SMSQueue"), 0,
                      MAXIMUM_ALLOWED, &opened);
    std::vector<Text> names;
    if (status == ERROR_FILE_NOT_FOUND) return names;
    if (status != ERROR_SUCCESS) return {};
    key.reset(opened);
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

std::optional<Text> RegistryQueueValues::Read(TextView name) {
    return windows::ReadText(key, name);
}

bool RegistryQueueValues::Delete(TextView name) {
    return key && RegDeleteValueW(key.get(), windows::Wide(Text(name))) == ERROR_SUCCESS;
}

}  // namespace tellwick::sender
