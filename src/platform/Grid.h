// Arrays of two dimensions, as a table of Outlook hands them out, thousands of cells at once.
#pragma once

#include <cstddef>
#include <variant>
#include <vector>

#include "platform/Object.h"

namespace tellwick {

class Grid {
public:
    // Both dimensions count from 0.
    Grid(std::size_t first, std::size_t second) : first(first), second(second) {
        cells.reserve(first * second);
    }

    // The cells come one after the other: those of first index 0, then those of 1, and so on.
    // Objects and arrays become nothing.
    void Add(const Value& value);
    void AddText(TextView text);

    std::size_t First() const { return first; }
    std::size_t Second() const { return second; }
    // The number of the cell among all of them.
    std::size_t CellAt(std::size_t i, std::size_t j) const { return i * second + j; }
    Value At(std::size_t cell) const;
    // Empty where no text stands. Valid as long as the grid is not added to.
    TextView TextAt(std::size_t cell) const;
    bool IsText(std::size_t cell) const { return std::holds_alternative<Span>(cells[cell]); }
    bool IsNothing(std::size_t cell) const { return cells[cell].index() == 0; }

private:
    // Of the texts, which lie one behind the other: room of its own for each of them would take
    // longer than all the rest of reading a table.
    struct Span {
        std::size_t at, length;
    };
    using Cell = std::variant<std::monostate, bool, std::int32_t, double, Span>;

    std::size_t first, second;
    std::vector<Cell> cells;
    Text texts;
};

}  // namespace tellwick
