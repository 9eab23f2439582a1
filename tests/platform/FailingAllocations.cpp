#include "platform/FailingAllocations.h"

#include <cstdlib>
#include <new>

tellwick::test::FailingAllocations tellwick::test::failingAllocations;

namespace {

void* Allocate(std::size_t size) {
    auto& failing = tellwick::test::failingAllocations;
    if (failing.watching && failing.left == 0) {
        ++failing.failed;
        if (!failing.forGood) failing.left = -1;
        throw std::bad_alloc();
    }
    if (failing.watching && failing.left > 0) --failing.left;
    if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return Allocate(size);
    } catch (...) {
        return nullptr;
    }
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
