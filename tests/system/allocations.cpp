#include "system/allocations.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

long s_made = 0;
long s_live = 0;
long s_countdown = 0;
std::size_t s_largest = 0;
bool (*s_fails)() = nullptr;

void* allocate(std::size_t size) {
    s_largest = std::max(s_largest, size);
    if (s_countdown > 0 && --s_countdown == 0) return nullptr;
    if (s_fails && s_fails()) return nullptr;
    void* const memory = std::malloc(size ? size : 1);
    if (memory) {
        ++s_made;
        ++s_live;
    }
    return memory;
}

void* allocate_or_throw(std::size_t size) {
    if (void* const memory = allocate(size)) return memory;
    throw std::bad_alloc();
}

void release(void* memory) {
    if (!memory) return;
    --s_live;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return allocate_or_throw(size); }
void* operator new[](std::size_t size) { return allocate_or_throw(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }

namespace orvel_test {

long allocations_made() { return s_made; }
long allocations_live() { return s_live; }

std::size_t largest_allocation() { return s_largest; }
void forget_largest_allocation() { s_largest = 0; }

void ask_before_allocating(bool (*fails)()) { s_fails = fails; }

FailingAllocation::FailingAllocation(long number) { s_countdown = number; }
FailingAllocation::~FailingAllocation() { s_countdown = 0; }

}  // namespace orvel_test
