#pragma once

#include <objbase.h>

#include <utility>

namespace quorvale {

// Holds a reference to one of the system's components.
template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ~ComPointer() { Reset(); }
  ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPointer& operator=(ComPointer&& other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  Interface* Get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }

  // Where a call writes the reference that it gives.
  Interface** Out() {
    Reset();
    return &pointer_;
  }

  // Another interface of the same component; none where it lacks it.
  template <typename Other>
  ComPointer<Other> As() const {
    ComPointer<Other> other;
    pointer_->QueryInterface(IID_PPV_ARGS(other.Out()));
    return other;
  }

 private:
  void Reset() {
    if (pointer_ != nullptr) std::exchange(pointer_, nullptr)->Release();
  }

  Interface* pointer_ = nullptr;
};

}  // namespace quorvale
