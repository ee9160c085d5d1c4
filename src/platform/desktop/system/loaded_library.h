#pragma once

namespace quorvale {

// A function of a library, as `dlsym` finds it. Null if it is missing.
class LibraryFunction {
 public:
  explicit LibraryFunction(void* address) : address_(address) {}

  // The caller knows the type.
  template <typename Function>
  operator Function*() const {
    return reinterpret_cast<Function*>(address_);
  }

 private:
  void* address_;
};

// A shared library that is loaded when it is needed, because loading it at the start would delay every run. It stays
// loaded: threads may still run in it.
class LoadedLibrary {
 public:
  // A name as `dlopen` takes it.
  explicit LoadedLibrary(const char* name);

  LibraryFunction Find(const char* name);

  // Whether the library and all that was looked for are there.
  bool IsWhole() const { return is_whole_; }

 private:
  void* handle_;
  bool is_whole_;
};

}  // namespace quorvale

// In a class derived from `LoadedLibrary`: a member that is the library's function of that name and type.
// NOLINTNEXTLINE(bugprone-macro-parentheses): a member's name takes none.
#define QUORVALE_IMPORT(name) decltype(&::name) name = Find(#name)
