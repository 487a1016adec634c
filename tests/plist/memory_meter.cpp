#include "tests/plist/memory_meter.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocated = 0;
std::atomic<std::size_t> mostAllocated = 0;
std::atomic<std::size_t> everAllocated = 0;

/// Precedes each allocation and has the size that keeps it aligned.
struct alignas(std::max_align_t) Header {
    std::size_t size;
};

} // namespace

void* operator new(std::size_t size) {
    auto* const header = static_cast<Header*>(std::malloc(size + sizeof(Header)));
    if (!header)
        throw std::bad_alloc();
    header->size = size;
    allocated += size;
    everAllocated += size;
    mostAllocated = std::max(mostAllocated.load(), allocated.load());
    return header + 1;
}

// The sanitizers have one of their own, whose memory the operator below could not free.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept try {
    return operator new(size);
} catch (const std::bad_alloc&) {
    return nullptr;
}

void operator delete(void* memory) noexcept {
    if (!memory)
        return;
    auto* const header = static_cast<Header*>(memory) - 1;
    allocated -= header->size;
    std::free(header);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }

namespace frimbolate::test {

MemoryMeter::MemoryMeter() : before_(allocated), totalBefore_(everAllocated) {
    mostAllocated = before_;
}

std::size_t MemoryMeter::peak() const { return mostAllocated - before_; }

std::size_t MemoryMeter::total() const { return everAllocated - totalBefore_; }

} // namespace frimbolate::test
