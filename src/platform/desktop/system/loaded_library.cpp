#include "platform/desktop/system/loaded_library.h"

#include <dlfcn.h>

namespace quorvale {

LoadedLibrary::LoadedLibrary(const char* name) : handle_(dlopen(name, RTLD_LAZY)), is_whole_(handle_ != nullptr) {}

LibraryFunction LoadedLibrary::Find(const char* name) {
  void* const address = handle_ != nullptr ? dlsym(handle_, name) : nullptr;
  is_whole_ = is_whole_ && address != nullptr;
  return LibraryFunction(address);
}

}  // namespace quorvale
