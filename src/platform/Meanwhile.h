// Values that depend on how a scope is left.
#pragma once

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

// Sets the flag of a step that is done only once. If an exception leaves the scope before Done, the
// flag is taken back, and the step is done anew the next time.
class Once {
public:
    explicit Once(bool& flag) : flag(flag) { flag = true; }
    ~Once() {
        if (!done) flag = false;
    }
    void Done() { done = true; }
    Once(const Once&) = delete;
    Once& operator=(const Once&) = delete;

private:
    bool& flag;
    bool done = false;
};

}  // namespace tellwick
