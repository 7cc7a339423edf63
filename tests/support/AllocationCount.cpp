#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local long allocations = 0;

void* counted(std::size_t size) noexcept {
    ++allocations;
    return std::malloc(size ? size : 1);
}

void* countedOrThrow(std::size_t size) {
    if (void* memory = counted(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// Every form that ordinary code uses: a sanitizer objects to memory that one allocator gave and
// another takes back.
void* operator new(std::size_t size) {
    return countedOrThrow(size);
}
void* operator new[](std::size_t size) {
    return countedOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return counted(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return counted(size);
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
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

long brimlow::test::allocationsOfThisThread() {
    return allocations;
}
