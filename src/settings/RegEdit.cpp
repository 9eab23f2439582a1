#include "settings/RegEdit.h"

#include <limits>

#include "settings/Debug.h"

namespace tellwick {

namespace {

TextView WithoutLeadingBackslash(TextView key) {
    return key.starts_with(u'\\') ? key.substr(1) : key;
}

}  // namespace

RegEdit::RegEdit(Registry& registry, Debug& debug) : registry(registry), debug(debug) {}

Text RegEdit::ReadValue(Hive hive, TextView key, TextView name) {
    return registry.Read(hive, WithoutLeadingBackslash(key), name).value_or(Text());
}

Text RegEdit::ReadExpandedValue(Hive hive, TextView key, TextView name) {
    return registry.ReadExpanded(hive, WithoutLeadingBackslash(key), name).value_or(Text());
}

bool RegEdit::WriteValue(Hive hive, TextView key, TextView name, TextView value,
                         RegistryType type) {
    key = WithoutLeadingBackslash(key);
    if (key.empty()) return false;
    bool written = false;
    if (type == RegistryType::String) {
        written = registry.WriteString(hive, key, name, value);
    } else if (type == RegistryType::Number) {
        const std::int64_t number = LeadingNumber(value);
        written = number >= std::numeric_limits<std::int32_t>::min() &&
                  number <= std::numeric_limits<std::uint32_t>::max() &&
                  registry.WriteNumber(hive, key, name, std::uint32_t(number));
    } else {
        return false;
    }
    if (!written) TraceFailure(hive, key, name);
    ReadValue(hive, key, name);
    return written;
}

bool RegEdit::DeleteValue(Hive hive, TextView key, TextView name) {
    return registry.DeleteValue(hive, WithoutLeadingBackslash(key), name);
}

bool RegEdit::DeleteKey(Hive hive, TextView key, TextView subkey) {
    key = WithoutLeadingBackslash(key);
    if (registry.DeleteKey(hive, key, subkey)) return true;
    TraceFailure(hive, key, subkey);
    return false;
}

void RegEdit::TraceFailure(Hive hive, TextView key, TextView name) {
    Text line = u"RegEdit error: " + HexText(std::uint32_t(hive)) + u": ";
    line.append(key).append(u" ").append(name);
    debug.DebugTrace(line, trace::FreeText);
}

}  // namespace tellwick
