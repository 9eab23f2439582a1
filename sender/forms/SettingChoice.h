// A setting that is chosen in a drop-down list.
#pragma once

#include <vector>

#include "platform/Controls.h"

namespace tellwick::sender {

class SettingChoice {
public:
    struct Item {
        Text value;
        Text words;
    };

    explicit SettingChoice(ItemList& box) : box(box) {}

    // Fills the list and chooses a value. One that is not among the items becomes another item: as
    // good as they are, or one that cannot be used.
    void Fill(std::vector<Item> newItems, const Text& value, bool othersAreGood = false);
    Text Value() const;
    // Whether what is chosen can be used.
    bool Good() const { return Chosen() < good; }
    ItemList& Box() const { return box; }

private:
    std::size_t Chosen() const;

    ItemList& box;
    std::vector<Item> items;
    std::size_t good = 0;  // so many of them, from the first on
};

}  // namespace tellwick::sender
