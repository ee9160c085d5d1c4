#pragma once

#include <objbase.h>

#include "platform/win32/windows_api.h"

namespace quorvale {

// The thread's entry to the system's components, in the manner that windows ask for. Entries nest.
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

}  // namespace quorvale
