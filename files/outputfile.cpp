#include "files/outputfile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <utility>

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr mode_t permissionbits = 07777;
constexpr mode_t newfile = 0666;      // less what the umask takes
constexpr mode_t privatefile = 0600;  // until it has the permissions of the file that it replaces
constexpr const char* accesslist = "system.posix_acl_access";

/// The folder that holds a name.
fs::path folderof(const fs::path& name) { return name.has_parent_path() ? name.parent_path() : fs::path("."); }

/// The descriptor of this process that a name such as /proc/self/fd/1 stands for, -1 for any other name.
int owndescriptor(const fs::path& name) {
  std::error_code ignored;
  const fs::path folder = fs::canonical(folderof(name), ignored);
  if (folder != "/proc/" + std::to_string(::getpid()) + "/fd") return -1;
  const std::string number = name.filename();
  int descriptor = -1;
  std::from_chars(number.data(), number.data() + number.size(), descriptor);
  return descriptor;
}

/// Where a name leads once all its links are followed, as far as something is there or could be made there. Stops at a
/// descriptor of this process, whose link leads to no name that could be opened instead. Empty for a loop.
fs::path followed(fs::path name) {
  constexpr int longestchain = 40;  // as in the system
  for (int links = 0; links <= longestchain; ++links) {
    std::error_code nolink;
    const fs::path next = fs::read_symlink(name, nolink);
    if (nolink || owndescriptor(name) >= 0) return name;
    name = name.parent_path() / next;  // an absolute one replaces all
  }
  return {};
}

/// Gives a new file the owner and the permissions of the one it replaces; false if it may not.
bool takeaccess(int file, const struct stat& former, const fs::path& name) {
  struct stat made;
  if (::fstat(file, &made) != 0) return false;
  const bool sameowner = made.st_uid == former.st_uid && made.st_gid == former.st_gid;
  if (!sameowner && ::fchown(file, former.st_uid, former.st_gid) != 0) return false;
  std::array<char, 4096> list;
  const ssize_t size = ::getxattr(name.c_str(), accesslist, list.data(), list.size());
  if (size > 0) {
    if (::fsetxattr(file, accesslist, list.data(), static_cast<std::size_t>(size), 0) != 0) return false;
  } else if (size < 0 && errno != ENODATA && errno != ENOTSUP) {
    return false;
  } else {
    ::fremovexattr(file, accesslist);  // one that the folder gives to what is made in it
  }
  return ::fchmod(file, former.st_mode & permissionbits) == 0;
}

/// Whether a step failed because a folder is closed to it, or a file cannot have another in its place.
bool isforbidden(int error) { return error == EACCES || error == EPERM || error == EROFS; }

Descriptor duplicate(int descriptor) { return Descriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)); }

/// Calls `take` with names beside the target until one is free; the number that it gave last, negative for a failure.
template <class Take>
int withnewname(const fs::path& target, fs::path& name, const Take& take) {
  constexpr int mosttries = 1000;
  const std::string stem = ".moistair-" + std::to_string(::getpid()) + "-";
  int result = -1;
  for (int i = 0; i < mosttries && result < 0; ++i) {
    name = folderof(target) / (stem + std::to_string(i));
    result = take(name.c_str());
    if (result < 0 && errno != EEXIST) break;
  }
  if (result < 0) name.clear();
  return result;
}

/// Brings a file to the disk; what has no disk needs none.
bool flush(int file) { return ::fsync(file) == 0 || errno == EINVAL; }

/// Waits for the reader of a pipe that must not be waited for long.
bool takesmore(int file) {
  constexpr int patience = 3000;  // milliseconds
  pollfd pipe{file, POLLOUT, 0};
  if (::poll(&pipe, 1, patience) > 0) return true;
  errno = ETIMEDOUT;
  return false;
}

bool writeall(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN ? !takesmore(file) : errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::string WriteFailure::reason() const { return std::strerror(error); }

OutputFile::OutputFile(const fs::path& name, Reader reader) { open(name, reader); }

OutputFile OutputFile::through(int descriptor) {
  OutputFile file;
  file.file_ = duplicate(descriptor);
  if (!file.file_.isopen()) file.fail(errno);
  return file;
}

OutputFile::~OutputFile() { dropname(); }

bool OutputFile::fail(int error) {
  if (!failure_) failure_ = WriteFailure{error, file_.isopen()};
  return false;
}

void OutputFile::dropname() {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
  temporary_.clear();
}

bool OutputFile::open(const fs::path& name, Reader reader) {
  target_ = followed(name);
  if (target_.empty()) return fail(name.empty() ? ENOENT : ELOOP);
  struct stat former;
  const bool exists = ::stat(target_.c_str(), &former) == 0;
  if (!exists && errno != ENOENT) return fail(errno);
  if (exists ? S_ISDIR(former.st_mode) : !target_.has_filename()) return fail(EISDIR);
  if (!exists) return openbeside(nullptr) || fail(errno);
  if (!S_ISREG(former.st_mode) || owndescriptor(target_) >= 0) {
    return openspecial(std::exchange(target_, {}), reader) || fail(errno);
  }
  // A file that may not be written is protected, though its folder would let it be replaced.
  if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return fail(errno);
  return openbeside(&former) || (isforbidden(errno) && openspool()) || fail(errno);
}

/// Opens what is written into. A descriptor is taken as it stands, or a file behind it would be written from its start.
bool OutputFile::openspecial(const fs::path& name, Reader reader) {
  const int own = owndescriptor(name);
  const int nowait = reader == Reader::present ? O_NONBLOCK : 0;
  file_ = own >= 0 ? duplicate(own) : Descriptor(::open(name.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC | nowait));
  return file_.isopen();
}

/// A file in the folder of the target, without a name where the system can make one and name it later.
bool OutputFile::openbeside(const struct stat* former) {
  const mode_t mode = former == nullptr ? newfile : privatefile;
  const bool nameable = ::access("/proc/self/fd", X_OK) == 0;
  if (nameable) file_ = Descriptor(::open(folderof(target_).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
  if (!nameable || (!file_.isopen() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL))) {
    file_ = Descriptor(withnewname(target_, temporary_, [&](const char* free) {
      return ::open(free, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    }));
  }
  if (!file_.isopen()) return false;
  if (former == nullptr || takeaccess(file_.number(), *former, target_)) return true;
  dropname();
  file_ = Descriptor();
  errno = EPERM;
  return false;
}

/// The old file, to be copied into, and a file without a name to collect the new one in.
bool OutputFile::openspool() {
  former_ = Descriptor(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
  if (!former_.isopen()) return false;
  std::error_code none;
  const fs::path folder = fs::temp_directory_path(none);
  file_ = Descriptor(none ? -1 : ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, privatefile));
  if (!file_.isopen()) file_ = Descriptor(::memfd_create("moistair", MFD_CLOEXEC));
  return file_.isopen();
}

bool OutputFile::write(std::string_view bytes) { return !failure_ && (writeall(file_.number(), bytes) || fail(errno)); }

bool OutputFile::commit() {
  if (failure_) return false;
  if (target_.empty()) {
    if (::close(file_.release()) != 0) failure_ = WriteFailure{errno, true};
    return !failure_;
  }
  return (former_.isopen() ? copyover() : replace()) || fail(errno);
}

bool OutputFile::replace() {
  if (!flush(file_.number()) || (temporary_.empty() && !givename())) return false;
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
    if (errno != EBUSY && !isforbidden(errno)) return false;
    const int reason = errno;
    former_ = Descriptor(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));  // a file that may be written and not replaced
    errno = reason;
    return former_.isopen() && copyover();
  }
  temporary_.clear();
  const Descriptor folder(::open(folderof(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return !folder.isopen() || flush(folder.number());
}

bool OutputFile::givename() {
  const std::string unnamed = "/proc/self/fd/" + std::to_string(file_.number());
  return withnewname(target_, temporary_, [&](const char* free) {
           return ::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, free, AT_SYMLINK_FOLLOW);
         }) >= 0;
}

/// The old file gets the bytes of the new one. Room for all of them is made first, so that a full disk spoils nothing.
bool OutputFile::copyover() {
  struct stat from, to;
  if (::fstat(file_.number(), &from) != 0 || ::fstat(former_.number(), &to) != 0) return false;
  if (from.st_size > to.st_size && ::fallocate(former_.number(), 0, 0, from.st_size) != 0 && errno != EOPNOTSUPP) {
    const int reason = errno;
    if (::ftruncate(former_.number(), to.st_size) == 0) errno = reason;
    return false;
  }
  std::array<char, 65536> chunk;
  for (off_t at = 0; at < from.st_size;) {
    const ssize_t got = ::pread(file_.number(), chunk.data(), chunk.size(), at);
    if (got <= 0) return false;
    if (!writeall(former_.number(), {chunk.data(), static_cast<std::size_t>(got)})) return false;
    at += got;
  }
  return ::ftruncate(former_.number(), from.st_size) == 0 && flush(former_.number());
}

std::optional<WriteFailure> writefile(const fs::path& name, std::string_view bytes) {
  OutputFile file(name, Reader::present);
  file.write(bytes);
  file.commit();
  return file.failure();
}

}  // namespace moistair
