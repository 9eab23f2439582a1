#include "platform/Grid.h"

namespace tellwick {

void Grid::Add(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) {
        AddText(*text);
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        cells.emplace_back(*truth);
    } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
        cells.emplace_back(*number);
    } else if (const auto* real = std::get_if<double>(&value)) {
        cells.emplace_back(*real);
    } else {
        cells.emplace_back();
    }
}

void Grid::AddText(TextView text) {
    cells.emplace_back(Span{texts.size(), text.size()});
    texts += text;
}

TextView Grid::TextAt(std::size_t cell) const {
    const auto* span = std::get_if<Span>(&cells[cell]);
    return span ? TextView(texts).substr(span->at, span->length) : TextView();
}

Value Grid::At(std::size_t cell) const {
    if (IsText(cell)) return Text(TextAt(cell));
    if (const auto* truth = std::get_if<bool>(&cells[cell])) return *truth;
    if (const auto* number = std::get_if<std::int32_t>(&cells[cell])) return *number;
    if (const auto* real = std::get_if<double>(&cells[cell])) return *real;
    return {};
}

}  // namespace tellwick
