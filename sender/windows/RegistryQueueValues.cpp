#include "windows/RegistryQueueValues.h"

#include <iterator>

#include "platform/Product.h"
#include "windows/WindowsRegistry.h"

namespace tellwick::sender {

std::optional<std::vector<Text>> RegistryQueueValues::Names() {
    key.reset();
    HKEY opened = nullptr;
    const LSTATUS status =
        RegOpenKeyExW(HKEY_CURRENT_USER, windows::Wide(Text(RootKey) + u"\\SMSQueue"), 0,
                      MAXIMUM_ALLOWED, &opened);
    if (status == ERROR_FILE_NOT_FOUND) return std::vector<Text>();
    if (status != ERROR_SUCCESS) return {};
    key.reset(opened);
    return windows::ValueNames(key);
}

std::optional<Text> RegistryQueueValues::Read(TextView name) {
    return windows::ReadText(key, name);
}

bool RegistryQueueValues::Delete(TextView name) {
    return key && RegDeleteValueW(key.get(), windows::Wide(Text(name))) == ERROR_SUCCESS;
}

}  // namespace tellwick::sender
