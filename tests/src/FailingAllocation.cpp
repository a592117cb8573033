#include "FailingAllocation.h"

#include <cstdlib>
#include <new>

long failAfter = -1;

void* operator new(std::size_t size) {
    if (failAfter == 0) {
        failAfter = -1;
        throw std::bad_alloc();
    }
    if (failAfter > 0) --failAfter;
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
