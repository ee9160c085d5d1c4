#include "support/failing_allocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

// The allocations until the one that fails. Below 0 it has failed, or none should.
constexpr int kNone = -1;
thread_local int allocations_left = kNone;

// Null if the memory should fail, or does.
void* Allocate(std::size_t size) {
  if (allocations_left >= 0 && allocations_left-- == 0) return nullptr;
  return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

// The sanitizers have the other forms of these operators, all but this one in pairs of their own.
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept { return Allocate(size); }
void* operator new(std::size_t size) {
  void* const memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace quorvale {

FailingAllocation::FailingAllocation(int number) { allocations_left = number - 1; }
FailingAllocation::~FailingAllocation() { allocations_left = kNone; }
bool FailingAllocation::HasFailed() const { return allocations_left < 0; }

}  // namespace quorvale
