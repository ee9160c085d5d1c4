#include "support/failing_allocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

// The allocations until the one that fails. Below 0 it has failed, or none should.
constexpr int kNone = -1;
thread_local int allocations_left = kNone;

}  // namespace

// All other forms of the operators come down to these.
void* operator new(std::size_t size) {
  if (allocations_left >= 0 && allocations_left-- == 0) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
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
