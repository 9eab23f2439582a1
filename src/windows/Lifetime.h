// What keeps the library loaded: everything of the add-in that the system or Outlook can still
// call counts itself here.
#pragma once

namespace tellwick::windows {

class Lifetime {
public:
    Lifetime() { ++count; }
    Lifetime(const Lifetime&) { ++count; }
    Lifetime& operator=(const Lifetime&) = default;
    ~Lifetime() { --count; }
    static bool AnythingAlive() { return count != 0; }

private:
    static inline long count = 0;  // one thread only, Outlook's
};

}  // namespace tellwick::windows
