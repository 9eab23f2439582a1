#include "forms/SettingChoice.h"

#include <algorithm>

namespace tellwick::sender {

void SettingChoice::Fill(std::vector<Item> newItems, const Text& value, bool othersAreGood) {
    items = std::move(newItems);
    good = items.size();
    auto chosen = std::find_if(items.begin(), items.end(),
                               [&](const Item& item) { return EqualFolded(item.value, value); });
    if (chosen == items.end()) {
        chosen = items.insert(chosen, {value, value});
        good += othersAreGood;
    }
    box.Clear();
    for (const Item& item : items) box.Add(item.words);
    box.SetSelectedIndex(std::int32_t(chosen - items.begin()));
}

std::size_t SettingChoice::Chosen() const {
    const std::int32_t index = box.SelectedIndex();
    return index < 0 ? items.size() : std::size_t(index);
}

Text SettingChoice::Value() const {
    return Chosen() < items.size() ? items[Chosen()].value : Text();
}

}  // namespace tellwick::sender
