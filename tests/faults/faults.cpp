#include "tests/faults/faults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace moistair::faults {

namespace {

std::string failing;
int first = 0;
int times = 0;
int calls = 0;

/// How many calls of this kind are left before it fails, negative for one that fails at once; large if it never does.
int left(const char* call) {
  const int left = first == 0 || failing != call ? 1000000 : first - ++calls;
  return left <= -times ? 1000000 : left;
}

bool fails(const char* call, int error) {
  if (left(call) > 0) return false;
  errno = error;
  return true;
}

bool isPlain(int file) {
  struct stat facts;
  return ::fstat(file, &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace

void failFrom(const std::string& call, int n, int forTimes) {
  times = forTimes;
  failing = call;
  first = n;
  calls = 0;
}

namespace {

[[maybe_unused]] const bool configured = [] {
  const char* fault = std::getenv("FAULT");
  if (fault == nullptr) return false;
  const std::string text = fault;
  failFrom(text.substr(0, text.find(' ')), std::atoi(text.c_str() + text.find(' ')));
  return true;
}();

}  // namespace

}  // namespace moistair::faults

using namespace moistair::faults;

extern "C" {

int openat(int folder, const char* name, int flags, ...) {
  std::va_list further;
  va_start(further, flags);
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  const unsigned mode = makes ? va_arg(further, unsigned) : 0;
  va_end(further);
  if ((flags & O_TMPFILE) == O_TMPFILE && std::getenv("NOTMPFILE") != nullptr) {
    errno = EOPNOTSUPP;
    return -1;
  }
  struct stat named;
  const bool follows = ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(named.st_mode);
  if (follows && fails("follow", EACCES)) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, name, flags, mode));
}

int open(const char* name, int flags, ...) {
  std::va_list further;
  va_start(further, flags);
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  const unsigned mode = makes ? va_arg(further, unsigned) : 0;
  va_end(further);
  return openat(AT_FDCWD, name, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
  const int before = isPlain(file) ? left("write") : 1;
  if (before > 0) return ::syscall(SYS_write, file, bytes, size);
  if (before == 0 && size > 1) return ::syscall(SYS_write, file, bytes, size / 2);
  errno = ENOSPC;
  return -1;
}

int fsync(int file) { return fails("fsync", EIO) ? -1 : static_cast<int>(::syscall(SYS_fsync, file)); }

int fallocate(int file, int mode, off_t from, off_t size) {
  return fails("fallocate", ENOSPC) ? -1 : static_cast<int>(::syscall(SYS_fallocate, file, mode, from, size));
}

int ftruncate(int file, off_t size) noexcept {
  return fails("ftruncate", EIO) ? -1 : static_cast<int>(::syscall(SYS_ftruncate, file, size));
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
  return fails("rename", EIO) ? -1 : static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, 0));
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  if (fails("renameat2", EXDEV)) return -1;
  return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  if (fails("linkat", EIO)) return -1;
  return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}
}
