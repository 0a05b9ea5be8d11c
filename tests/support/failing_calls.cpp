// A library that is put in front of the system's: it counts the calls that can fail, and lets the one fail
// that it was told. Variables: FAILING_CALL, the number of the call, from 1; FAILING_ERROR, the error number;
// and FAILING_COUNT, a file that takes the count of all calls at the process's end.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

int calls = 0;

long Setting(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? 0 : std::atol(value);
}

// Whether this call is the one; then the error number is set.
bool Fails() {
  static const long wanted = Setting("FAILING_CALL");
  if (++calls != wanted) return false;
  errno = static_cast<int>(Setting("FAILING_ERROR"));
  return true;
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

struct Report {
  ~Report() {
    const char* path = std::getenv("FAILING_COUNT");
    std::FILE* file = path == nullptr ? nullptr : std::fopen(path, "w");
    if (file == nullptr) return;
    std::fprintf(file, "%d", calls);
    std::fclose(file);
  }
} report;

}  // namespace

// NAME(parameters)(arguments): a call of that result that fails with `failure`.
#define FAILING(result, name, failure, parameters, arguments) \
  extern "C" result name parameters {                         \
    if (Fails()) return failure;                              \
    static auto* const real = Real<result parameters>(#name); \
    return real arguments;                                    \
  }

FAILING(ssize_t, read, -1, (int file, void* bytes, size_t count), (file, bytes, count))
FAILING(ssize_t, write, -1, (int file, const void* bytes, size_t count), (file, bytes, count))
FAILING(ssize_t, pread, -1, (int file, void* bytes, size_t count, off_t at), (file, bytes, count, at))
FAILING(ssize_t, pwrite, -1, (int file, const void* bytes, size_t count, off_t at), (file, bytes, count, at))
FAILING(ssize_t, readlink, -1, (const char* path, char* bytes, size_t count), (path, bytes, count))
FAILING(int, fsync, -1, (int file), (file))
FAILING(int, ftruncate, -1, (int file, off_t length), (file, length))
FAILING(int, fchmod, -1, (int file, mode_t mode), (file, mode))
FAILING(int, rename, -1, (const char* from, const char* to), (from, to))
FAILING(int, unlink, -1, (const char* path), (path))
FAILING(int, mkdir, -1, (const char* path, mode_t mode), (path, mode))
FAILING(int, access, -1, (const char* path, int mode), (path, mode))
FAILING(int, stat, -1, (const char* path, struct stat* status), (path, status))
FAILING(int, lstat, -1, (const char* path, struct stat* status), (path, status))
FAILING(int, fstat, -1, (int file, struct stat* status), (file, status))
FAILING(int, linkat, -1, (int from, const char* old, int to, const char* name, int flags),
        (from, old, to, name, flags))
FAILING(int, mkostemp, -1, (char* pattern, int flags), (pattern, flags))
FAILING(int, memfd_create, -1, (const char* name, unsigned flags), (name, flags))
FAILING(DIR*, opendir, nullptr, (const char* path), (path))
FAILING(struct dirent*, readdir, nullptr, (DIR * folder), (folder))
FAILING(void*, mmap, MAP_FAILED,
        (void* address, size_t length, int protection, int flags, int file, off_t at),
        (address, length, protection, flags, file, at))

// The mode is there only where a file may be made.
#define FAILING_OPEN(name)                                             \
  extern "C" int name(const char* path, int flags, ...) {              \
    if (Fails()) return -1;                                            \
    va_list more;                                                      \
    va_start(more, flags);                                             \
    const auto mode = static_cast<mode_t>(va_arg(more, unsigned));     \
    va_end(more);                                                      \
    static auto* const real = Real<int(const char*, int, ...)>(#name); \
    return real(path, flags, mode);                                    \
  }
FAILING_OPEN(open)
FAILING_OPEN(open64)

extern "C" int fcntl(int file, int command, ...) {
  if (Fails()) return -1;
  va_list more;
  va_start(more, command);
  void* const argument = va_arg(more, void*);
  va_end(more);
  static auto* const real = Real<int(int, int, ...)>("fcntl");
  return real(file, command, argument);
}
