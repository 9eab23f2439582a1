// Values that depend on how a scope is left.
#pragma once

#include <exception>
#include <utility>

namespace tellwick {

// A value that a variable has until the end of the scope, however that is left.
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

// Sets a flag for good, unless the scope is left by an exception: what is done once is then done
// anew the next time.
class Once {
public:
    explicit Once(bool& flag) : flag(flag) { flag = true; }
    ~Once() {
        if (std::uncaught_exceptions() > exceptions) flag = false;
    }
    Once(const Once&) = delete;
    Once& operator=(const Once&) = delete;

private:
    bool& flag;
    int exceptions = std::uncaught_exceptions();
};

}  // namespace tellwick
