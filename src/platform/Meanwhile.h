// A value that a variable has until the end of a scope, however that is left.
#pragma once

#include <utility>

namespace tellwick {

template <class Type>
class Meanwhile {
public:
    Meanwhile(Type& variable, Type value)
        : variable(variable), before(std::exchange(variable, std::move(value))) {}
    ~Meanwhile() { variable = std::move(before); }
    const Type& Before() const { return before; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    Type& variable;
    Type before;
};

}  // namespace tellwick
