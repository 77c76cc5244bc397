#include "support/CountedMemory.h"

#include <cstdlib>
#include <new>

namespace velna::test {

std::atomic<std::size_t> CountedMemory::now = 0;
std::atomic<std::size_t> CountedMemory::most = 0;
std::atomic<int> CountedMemory::blocksLeft = -1;
std::atomic<bool> CountedMemory::refusesOne = false;

std::size_t CountedMemory::begin() {
    most = now.load();
    return now;
}

}  // namespace velna::test

namespace {

using velna::test::CountedMemory;

constexpr std::size_t headRoom = alignof(std::max_align_t);

/// Whether another block may be had.
bool granted() {
    int left = CountedMemory::blocksLeft;
    while (left > 0 && !CountedMemory::blocksLeft.compare_exchange_weak(left, left - 1)) {
    }
    if (left == 0 && CountedMemory::refusesOne) CountedMemory::blocksLeft = -1;
    return left != 0;
}

}  // namespace

// Before each block stands its size.
void* operator new(std::size_t size) {
    auto* block = granted() ? static_cast<std::byte*>(std::malloc(size + headRoom)) : nullptr;
    if (!block) throw std::bad_alloc();
    *reinterpret_cast<std::size_t*>(block) = size;
    const std::size_t inUse = CountedMemory::now += size;
    std::size_t most = CountedMemory::most;
    while (most < inUse && !CountedMemory::most.compare_exchange_weak(most, inUse)) {
    }
    return block + headRoom;
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* pointer) noexcept {
    if (!pointer) return;
    auto* block = static_cast<std::byte*>(pointer) - headRoom;
    CountedMemory::now -= *reinterpret_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* pointer, std::size_t) noexcept {
    operator delete(pointer);
}

void operator delete[](void* pointer) noexcept {
    operator delete(pointer);
}

void operator delete[](void* pointer, std::size_t) noexcept {
    operator delete(pointer);
}
