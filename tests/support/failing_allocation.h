#pragma once

namespace quorvale {

// Lets one allocation of the test program fail with std::bad_alloc: the `number`th of this thread from now on, counted
// from 1, unless it is destroyed before. One at a time.
class FailingAllocation {
 public:
  explicit FailingAllocation(int number);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  bool HasFailed() const;
};

}  // namespace quorvale
