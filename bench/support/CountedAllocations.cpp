#include "bench/support/CountedAllocations.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;
}  // namespace

namespace tarnlog::bench {
std::size_t allocationCount() { return allocations; }
}  // namespace tarnlog::bench

void* operator new(std::size_t bytes) {
  ++allocations;
  if (void* const memory = std::malloc(bytes)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
