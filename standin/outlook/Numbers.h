// Numbers that never change: objects count from 1, in the order in which they were first seen.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace tellwick::standin {

template <class Type>
class Numbers {
public:
    // Gives those that have none yet their numbers. Of objects that have gone nothing is kept: a
    // weak reference alone would hold their memory.
    void Add(const std::vector<std::shared_ptr<Type>>& all) {
        std::erase_if(living, [](const auto& entry) { return entry.second.expired(); });
        for (const auto& object : all) {
            if (Of(object) == 0) living.emplace(++last, object);
        }
    }
    // 0 when it has none.
    std::int64_t Of(const std::shared_ptr<Type>& object) const {
        const auto found = std::find_if(living.begin(), living.end(), [&](const auto& entry) {
            return object && entry.second.lock() == object;
        });
        return found == living.end() ? 0 : found->first;
    }
    // Null when the object has gone, or no object has that number.
    std::shared_ptr<Type> At(std::int64_t number) const {
        const auto found = living.find(number);
        return found == living.end() ? nullptr : found->second.lock();
    }
    // Calls visit(number, object) for each that lives, by number.
    template <class Visit>
    void ForEach(const Visit& visit) const {
        for (const auto& [number, weak] : living) {
            if (const auto object = weak.lock()) visit(number, *object);
        }
    }
    // The next one is 1 again.
    void Clear() {
        living.clear();
        last = 0;
    }

private:
    std::map<std::int64_t, std::weak_ptr<Type>> living;
    std::int64_t last = 0;
};

}  // namespace tellwick::standin
