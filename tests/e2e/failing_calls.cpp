// Preloaded by scripts/failures.py: lets one call of the program fail, the QUORVALE_FAIL_AT-th of the family
// QUORVALE_FAIL. Counts only calls by the program itself and by the libraries that do its reading and storing. Their
// number so far stands in the file QUORVALE_FAIL_COUNT, as a long.

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

struct Range {
  std::uintptr_t begin;
  std::uintptr_t end;
};

std::array<Range, 32> callers;
std::size_t caller_count = 0;
std::atomic<long> calls = 0;
long fail_at = 0;
const char* family = "";

int AddCaller(dl_phdr_info* info, std::size_t /*size*/, void* /*data*/) {
  static constexpr const char* kNames[] = {"libstdc++", "libsqlite3", "libjpeg", "libpng", "libgif", "liblcms2"};
  bool is_caller = info->dlpi_name[0] == '\0';
  for (const char* name : kNames) is_caller = is_caller || std::strstr(info->dlpi_name, name) != nullptr;
  for (int i = 0; is_caller && i < info->dlpi_phnum; ++i) {
    const auto& part = info->dlpi_phdr[i];
    if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0 || caller_count == callers.size()) continue;
    const std::uintptr_t begin = info->dlpi_addr + part.p_vaddr;
    callers.at(caller_count++) = {begin, begin + part.p_memsz};
  }
  return 0;
}

__attribute__((constructor)) void Begin() {
  const char* const wanted = std::getenv("QUORVALE_FAIL");
  const char* const number = std::getenv("QUORVALE_FAIL_AT");
  if (wanted == nullptr) return;
  fail_at = number == nullptr ? 0 : std::atol(number);
  dl_iterate_phdr(&AddCaller, nullptr);
  family = wanted;
}

// Of the calls so far, in the file itself, so that it is right however the program ends.
long* SharedCount() {
  static long* const shared = [] {
    static long none = 0;
    const char* const path = std::getenv("QUORVALE_FAIL_COUNT");
    if (path == nullptr) return &none;
    static auto* const real_open = reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open"));
    const int file = real_open(path, O_RDWR);
    void* const page = mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    return page == MAP_FAILED ? &none : static_cast<long*>(page);
  }();
  return shared;
}

thread_local bool is_inside = false;

bool Fails(const char* of, const void* caller) {
  if (is_inside || std::strcmp(family, of) != 0) return false;
  const auto address = reinterpret_cast<std::uintptr_t>(caller);
  bool counts = false;
  for (std::size_t i = 0; i < caller_count; ++i) {
    counts = counts || (address >= callers.at(i).begin && address < callers.at(i).end);
  }
  if (!counts) return false;
  is_inside = true;
  const long number = ++calls;
  *SharedCount() = number;
  is_inside = false;
  return number == fail_at;
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define CALLER __builtin_return_address(0)
// NAME fails with ERROR and gives BAD.
#define FAILING(FAMILY, TYPE, NAME, PARAMETERS, ARGUMENTS, ERROR, BAD) \
  extern "C" TYPE NAME PARAMETERS {                                    \
    static auto* const real = Real<TYPE PARAMETERS>(#NAME);            \
    if (!Fails(FAMILY, CALLER)) return real ARGUMENTS;                 \
    errno = ERROR;                                                     \
    return BAD;                                                        \
  }

FAILING("memory", void*, malloc, (std::size_t size), (size), ENOMEM, nullptr)
FAILING("memory", void*, realloc, (void* old, std::size_t size), (old, size), ENOMEM, nullptr)
FAILING("memory", int, posix_memalign, (void** to, std::size_t alignment, std::size_t size), (to, alignment, size),
        ENOMEM, ENOMEM)

// The usual operator frees it.
// NOLINTNEXTLINE(misc-new-delete-overloads)
void* operator new(std::size_t size) {
  static auto* const real = Real<void*(std::size_t)>("malloc");
  if (Fails("memory", CALLER)) throw std::bad_alloc();
  void* const memory = real(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

FAILING("files", ssize_t, read, (int file, void* to, std::size_t size), (file, to, size), EIO, -1)
FAILING("files", ssize_t, pread64, (int file, void* to, std::size_t size, off64_t at), (file, to, size, at), EIO, -1)
FAILING("files", ssize_t, pread, (int file, void* to, std::size_t size, off_t at), (file, to, size, at), EIO, -1)
FAILING("files", ssize_t, write, (int file, const void* from, std::size_t size), (file, from, size), ENOSPC, -1)
FAILING("files", ssize_t, pwrite64, (int file, const void* from, std::size_t size, off64_t at), (file, from, size, at),
        ENOSPC, -1)
FAILING("files", int, fsync, (int file), (file), EIO, -1)
FAILING("files", int, fdatasync, (int file), (file), EIO, -1)
FAILING("files", int, ftruncate64, (int file, off64_t size), (file, size), EIO, -1)
FAILING("files", int, stat64, (const char* path, struct stat64* to), (path, to), EACCES, -1)
FAILING("files", int, stat, (const char* path, struct stat* to), (path, to), EACCES, -1)
FAILING("files", int, lstat, (const char* path, struct stat* to), (path, to), EACCES, -1)
FAILING("files", int, fstat64, (int file, struct stat64* to), (file, to), EIO, -1)
FAILING("files", int, fstat, (int file, struct stat* to), (file, to), EIO, -1)
FAILING("files", int, access, (const char* path, int mode), (path, mode), EACCES, -1)
FAILING("files", int, mkdir, (const char* path, mode_t mode), (path, mode), EACCES, -1)
FAILING("files", int, unlink, (const char* path), (path), EACCES, -1)
FAILING("files", int, rename, (const char* from, const char* to), (from, to), EACCES, -1)

FAILING("system", void*, mmap, (void* at, std::size_t size, int access, int flags, int file, off_t from),
        (at, size, access, flags, file, from), ENOMEM, MAP_FAILED)
FAILING("system", int, memfd_create, (const char* name, unsigned flags), (name, flags), EMFILE, -1)
FAILING("system", int, pthread_create,
        (pthread_t * thread, const pthread_attr_t* attributes, void* (*body)(void*), void* data),
        (thread, attributes, body, data), EAGAIN, EAGAIN)
FAILING("system", int, socket, (int domain, int type, int protocol), (domain, type, protocol), EMFILE, -1)
FAILING("system", int, pipe2, (int* ends, int flags), (ends, flags), EMFILE, -1)
FAILING("system", int, eventfd, (unsigned start, int flags), (start, flags), EMFILE, -1)

// The third parameter counts only where a file is made.
#define FAILING_OPEN(NAME)                                                                 \
  extern "C" int NAME(const char* path, int flags, ...) {                                  \
    static auto* const real = Real<int(const char*, int, ...)>(#NAME);                     \
    va_list more;                                                                          \
    va_start(more, flags);                                                                 \
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0; \
    va_end(more);                                                                          \
    if (!Fails("files", CALLER)) return real(path, flags, mode);                           \
    errno = EACCES;                                                                        \
    return -1;                                                                             \
  }
FAILING_OPEN(open)
FAILING_OPEN(open64)
