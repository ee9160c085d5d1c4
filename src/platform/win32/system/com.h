#pragma once

#include <utility>

#include "platform/win32/windows_api.h"
// Needs the header above.
#include <objbase.h>

namespace quorvale {

// Initialises COM for this thread as windows need it: in a single-threaded apartment. May be nested.
class ComApartment {
 public:
  ComApartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
  ~ComApartment() {
    if (SUCCEEDED(result_)) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  HRESULT result_;
};

// Owns one reference to a COM object, or none.
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

  // For a call that returns a reference through a parameter. Releases the one held so far.
  Interface** Out() {
    Reset();
    return &pointer_;
  }

  // Another interface of the same object. Empty if the object does not have it.
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
