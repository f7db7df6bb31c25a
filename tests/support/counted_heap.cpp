// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/counted_heap.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> taken{0};
std::atomic<long> live{0};
std::atomic<long> bytes{0};

long sizeOf(void* memory) {
#if defined(_WIN32)
    return static_cast<long>(_msize(memory));
#else
    return static_cast<long>(malloc_usable_size(memory));
#endif
}

void giveBack(void* memory) {
    if (!memory) return;
    live.fetch_sub(1, std::memory_order_relaxed);
    bytes.fetch_sub(sizeOf(memory), std::memory_order_relaxed);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    void* memory = std::malloc(size ? size : 1);
    if (!memory) throw std::bad_alloc();
    taken.fetch_add(1, std::memory_order_relaxed);
    live.fetch_add(1, std::memory_order_relaxed);
    bytes.fetch_add(sizeOf(memory), std::memory_order_relaxed);
    return memory;
}
// The array operators and those that do not throw too, since a sanitizer brings its own.
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
void* operator new[](std::size_t size, const std::nothrow_t& none) noexcept {
    return operator new(size, none);
}
void operator delete(void* memory) noexcept {
    giveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    giveBack(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}

namespace hmonitor::test {

CountedHeap CountedHeap::now() {
    return {::taken, ::live, ::bytes};
}

}  // namespace hmonitor::test
