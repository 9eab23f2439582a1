// Allocations of the add-in's library that fail when the stand-in Outlook says so.
#include <cstdlib>
#include <new>

namespace {

long left = -1;  // that still succeed; below 0 none fails
bool forGood = false;
long failed = 0;

void* Allocate(std::size_t size) {
    if (left == 0) {
        ++failed;
        if (!forGood) left = -1;
        throw std::bad_alloc();
    }
    if (left > 0) --left;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

// The next but so many fails, or that one and all behind it; below 0 none does. How many have
// failed since it was last said.
extern "C" __declspec(dllexport) long FailAllocations(long after, int all) {
    const long before = failed;
    left = after;
    forGood = all != 0;
    failed = 0;
    return before;
}

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
