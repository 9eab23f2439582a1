#include "spool/Recipients.h"

#include <algorithm>

namespace tellwick::sender {

namespace {

constexpr std::size_t FewestDigits = 3;
constexpr std::size_t MostDigits = 20;

}  // namespace

bool CanBeDialled(TextView number) {
    if (number.starts_with(u'+')) number.remove_prefix(1);
    const auto digits = std::size_t(std::count_if(number.begin(), number.end(), IsDigit));
    return digits >= FewestDigits && number.size() <= MostDigits &&
           number.find_first_not_of(u"0123456789*#") == TextView::npos;
}

}  // namespace tellwick::sender
