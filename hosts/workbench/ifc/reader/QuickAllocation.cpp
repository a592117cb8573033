// Replaces operator new and delete in the reader. The reading library makes millions of small objects, shuffles strings
// and frees next to nothing before the process ends; free lists by size, refilled from large pieces, take a quarter off
// the import's time. Only one thread allocates here. Not used under the address sanitizer, which has its own.

#include <cstddef>
#include <cstdlib>
#include <new>
#include <unistd.h>

#include "workbench/ifc/ChildProcess.h"
#include "workbench/ifc/ImportAnswer.h"

#if !defined(KELVARNIX_ADDRESS_SANITIZER)

namespace {

constexpr std::size_t step = 16;
constexpr std::size_t largestSmall = 512;
constexpr std::size_t pieceSize = std::size_t(1) << 20;

/// Before each block, so that delete without a size knows the class; keeps the alignment of new.
struct alignas(step) Header {
    std::size_t sizeClass; ///< multiple of step, 0 for a block of malloc
};

struct FreeBlock {
    FreeBlock* next;
};

FreeBlock* freeBlocks[largestSmall / step + 1];
char* pieceAt = nullptr;
char* pieceEnd = nullptr;

void* FromMalloc(std::size_t size) {
    void* block = size <= std::size_t(-1) / 2 ? std::malloc(size) : nullptr;
    if (block == nullptr) _exit(workbench::ifc::exitOutOfMemory);
    return block;
}

void* Allocate(std::size_t size) {
    const std::size_t sizeClass = (size + step - 1) / step;
    if (sizeClass > largestSmall / step) {
        auto* header = static_cast<Header*>(FromMalloc(size + sizeof(Header)));
        header->sizeClass = 0;
        return header + 1;
    }
    const std::size_t index = sizeClass == 0 ? 1 : sizeClass;
    if (FreeBlock* block = freeBlocks[index]) {
        freeBlocks[index] = block->next;
        return block;
    }
    const std::size_t whole = index * step + sizeof(Header);
    if (static_cast<std::size_t>(pieceEnd - pieceAt) < whole) {
        pieceAt = static_cast<char*>(FromMalloc(pieceSize));
        pieceEnd = pieceAt + pieceSize;
    }
    auto* header = reinterpret_cast<Header*>(pieceAt);
    pieceAt += whole;
    header->sizeClass = index;
    return header + 1;
}

void Free(void* block) {
    if (block == nullptr) return;
    Header* header = static_cast<Header*>(block) - 1;
    if (header->sizeClass == 0) {
        std::free(header);
        return;
    }
    auto* freed = static_cast<FreeBlock*>(block);
    freed->next = freeBlocks[header->sizeClass];
    freeBlocks[header->sizeClass] = freed;
}

} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    Free(block);
}
void operator delete[](void* block) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    Free(block);
}

#endif
