#include "files/outputfile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <utility>

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr mode_t permissionBits = 07777;
constexpr mode_t newFile = 0666;      // less what the umask takes
constexpr mode_t privateFile = 0600;  // until it has the permissions of the file that it replaces
constexpr const char* accessList = "system.posix_acl_access";

/// The folder that holds a name.
fs::path folderOf(const fs::path& name) { return name.has_parent_path() ? name.parent_path() : fs::path("."); }

/// The descriptor of this process that a name such as /proc/self/fd/1 means, -1 for any other name.
int ownDescriptor(const fs::path& name) {
  std::error_code ignored;
  const fs::path folder = fs::canonical(folderOf(name), ignored);
  if (folder != "/proc/" + std::to_string(::getpid()) + "/fd") return -1;
  const std::string number = name.filename();
  int descriptor = -1;
  std::from_chars(number.data(), number.data() + number.size(), descriptor);
  return descriptor;
}

/// The descriptor of this process that a name leads to by links, as /dev/stdout does; -1 for none. Says only which of
/// our own it would be: what is opened is up to the kernel.
int descriptorNamed(fs::path name) {
  constexpr int longestChain = 40;  // as in the system
  for (int links = 0; links <= longestChain; ++links) {
    if (const int own = ownDescriptor(name); own >= 0) return own;
    std::error_code noLink;
    const fs::path next = fs::read_symlink(name, noLink);
    if (noLink) break;
    name = name.parent_path() / next;  // an absolute one replaces all
  }
  return -1;
}

bool isSame(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

/// Gives a new file the owner and the permissions of the one it replaces; false if it may not.
bool takeAccess(int file, const struct stat& former, const fs::path& name) {
  struct stat made;
  if (::fstat(file, &made) != 0) return false;
  const bool sameOwner = made.st_uid == former.st_uid && made.st_gid == former.st_gid;
  if (!sameOwner && ::fchown(file, former.st_uid, former.st_gid) != 0) return false;
  std::array<char, 4096> list;
  const ssize_t size = ::getxattr(name.c_str(), accessList, list.data(), list.size());
  if (size > 0) {
    if (::fsetxattr(file, accessList, list.data(), static_cast<std::size_t>(size), 0) != 0) return false;
  } else if (size < 0 && errno != ENODATA && errno != ENOTSUP) {
    return false;
  } else {
    ::fremovexattr(file, accessList);  // one that the folder gives to what is made in it
  }
  return ::fchmod(file, former.st_mode & permissionBits) == 0;
}

/// Whether a step failed because a folder is closed to it, or a file cannot have another in its place.
bool isForbidden(int error) { return error == EACCES || error == EPERM || error == EROFS; }

Descriptor duplicate(int descriptor) { return Descriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)); }

constexpr std::string_view temporaryStem = ".moistair-";  // the process and a number follow

/// Calls `take` with names for a new file until one is free; the number that it gave last, negative for a failure.
template <class Take>
int withNewName(std::string& name, const Take& take) {
  constexpr int mostTries = 1000;
  const std::string stem = std::string(temporaryStem) + std::to_string(::getpid()) + "-";
  int result = -1;
  for (int i = 0; i < mostTries && result < 0; ++i) {
    name = stem + std::to_string(i);
    result = take(name.c_str());
    if (result < 0 && errno != EEXIST) break;
  }
  if (result < 0) name.clear();
  return result;
}

/// The process whose new file this is by its name; 0 for any other name.
pid_t processOf(std::string_view name) {
  if (!name.starts_with(temporaryStem)) return 0;
  name.remove_prefix(temporaryStem.size());
  pid_t process = 0;
  const auto [rest, fault] = std::from_chars(name.data(), name.data() + name.size(), process);
  const bool numbered = fault == std::errc() && rest != name.data() + name.size() && *rest == '-';
  return numbered && process > 0 ? process : 0;
}

/// A file without a name, on the disk if there is room to be had there.
Descriptor spool() {
  std::error_code none;
  const fs::path folder = fs::temp_directory_path(none);
  Descriptor file(none ? -1 : ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, privateFile));
  return file.isOpen() ? std::move(file) : Descriptor(::memfd_create("moistair", MFD_CLOEXEC));
}

/// Brings a file to the disk; what has no disk needs none.
bool flush(int file) { return ::fsync(file) == 0 || errno == EINVAL; }

/// Waits for the reader of a pipe that must not be waited for long.
bool takesMore(int file) {
  constexpr int patience = 3000;  // milliseconds
  pollfd pipe{file, POLLOUT, 0};
  if (::poll(&pipe, 1, patience) > 0) return true;
  errno = ETIMEDOUT;
  return false;
}

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN ? !takesMore(file) : errno != EINTR) {
      return false;
    }
  }
  return true;
}

/// The first bytes of a file over those of another.
bool copyBytes(const Descriptor& from, const Descriptor& to, off_t size) {
  std::array<char, 65536> chunk;
  for (off_t at = 0; at < size;) {
    const auto most = static_cast<std::size_t>(std::min<off_t>(size - at, chunk.size()));
    const ssize_t got = ::pread(from.number(), chunk.data(), most, at);
    if (got == 0) errno = EIO;
    if (got <= 0 || ::lseek(to.number(), at, SEEK_SET) != at) return false;
    if (!writeAll(to.number(), {chunk.data(), static_cast<std::size_t>(got)})) return false;
    at += got;
  }
  return true;
}

}  // namespace

OutputFile::OutputFile(const fs::path& name, Reader reader) : name_(name) { open(reader); }

OutputFile OutputFile::own(const fs::path& name) {
  OutputFile file;
  file.name_ = name;
  file.own_ = true;
  if (!file.openNew()) file.fail(errno);
  return file;
}

OutputFile OutputFile::through(int descriptor) {
  OutputFile file;
  file.file_ = duplicate(descriptor);
  if (!file.file_.isOpen()) file.fail(errno);
  return file;
}

OutputFile::~OutputFile() { dropName(); }

bool OutputFile::fail(int error, std::string words) {
  const ErrorCode code = error == EPIPE   ? ErrorCode::readerGone
                         : file_.isOpen() ? ErrorCode::notWritten
                                          : ErrorCode::notOpened;
  if (outcome_) outcome_ = Error{code, {}, words.empty() ? std::strerror(error) : std::move(words)};
  return false;
}

void OutputFile::dropName() {
  if (!temporary_.empty()) ::unlinkat(folder_.number(), temporary_.c_str(), 0);
  temporary_.clear();
}

void OutputFile::open(Reader reader) {
  const Descriptor found(::open(name_.c_str(), O_PATH | O_CLOEXEC));
  if (!found.isOpen()) {
    struct stat link;
    const bool dangling = errno == ENOENT && ::lstat(name_.c_str(), &link) == 0;
    if (dangling) fail(ENOENT, "It is a link to a file that does not exist");
    if (outcome_ && !(errno == ENOENT && openNew())) fail(errno);
    return;
  }
  struct stat former;
  if (::fstat(found.number(), &former) != 0 || S_ISDIR(former.st_mode)) {
    fail(S_ISDIR(former.st_mode) ? EISDIR : errno);
    return;
  }
  device_ = former.st_dev;
  node_ = former.st_ino;
  const int number = descriptorNamed(name_);
  const bool opened = !S_ISREG(former.st_mode) || number >= 0 ? openSpecial(former, number, reader)
                      : !findPlace(found, former)             ? openSpool()
                      // A file that may not be written is protected, though its folder would let it be replaced.
                      : ::faccessat(folder_.number(), filename_.c_str(), W_OK, AT_EACCESS) != 0
                          ? false
                          : openTemporary(&former) || (isForbidden(errno) && openSpool());
  if (!opened) fail(errno);
}

/// A file where there is none, or one at a name of our own.
bool OutputFile::openNew() {
  if (!name_.has_filename()) {
    errno = name_.empty() ? ENOENT : EISDIR;
    return false;
  }
  folder_ = Descriptor(::open(folderOf(name_).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  filename_ = name_.filename();
  return folder_.isOpen() && openTemporary(nullptr);
}

/// Opens what is written into. A descriptor is taken as it is, or a file behind it would be written from its start.
bool OutputFile::openSpecial(const struct stat& found, int number, Reader reader) {
  const int noWait = reader == Reader::present ? O_NONBLOCK : 0;
  Descriptor file =
      number >= 0 ? duplicate(number) : Descriptor(::open(name_.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC | noWait));
  struct stat opened;
  if (!file.isOpen() || ::fstat(file.number(), &opened) != 0) return false;
  errno = EAGAIN;  // another one by now
  if (!isSame(opened, found)) return false;
  file_ = std::move(file);
  return true;
}

/// Finds the folder and the name of an open file: as it was called, or, behind a link, what the kernel says.
bool OutputFile::findPlace(const Descriptor& found, const struct stat& former) {
  std::error_code ignored;
  const fs::path behind = fs::read_symlink("/proc/self/fd/" + std::to_string(found.number()), ignored);
  for (const fs::path& path : {name_, behind}) {
    Descriptor folder(::open(folderOf(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::string filename = path.filename();
    struct stat named;
    const bool there = folder.isOpen() &&
                       ::fstatat(folder.number(), filename.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
                       isSame(named, former);
    if (!there) continue;
    folder_ = std::move(folder);
    filename_ = filename;
    return true;
  }
  return false;
}

/// A file in the folder of the target, without a name where the system can make one and name it later. It is locked
/// while this process lives, wherever that is.
bool OutputFile::openTemporary(const struct stat* former) {
  const mode_t mode = former == nullptr && !own_ ? newFile : privateFile;
  const bool nameable = ::access("/proc/self/fd", X_OK) == 0;
  if (nameable) file_ = Descriptor(::openat(folder_.number(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
  if (!nameable || (!file_.isOpen() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL))) {
    removeAbandoned(folderOf(name_));  // here a kill leaves what was written
    file_ = Descriptor(withNewName(temporary_, [&](const char* free) {
      return ::openat(folder_.number(), free, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    }));
  }
  if (!file_.isOpen()) return false;
  ::flock(file_.number(), LOCK_EX | LOCK_NB);
  if (former == nullptr || takeAccess(file_.number(), *former, name_)) return true;
  dropName();
  file_ = Descriptor();
  errno = EPERM;
  return false;
}

/// The old file, to be copied into, and a file without a name to collect the new one in.
bool OutputFile::openSpool() {
  if (!openFormer()) return false;
  file_ = spool();
  return file_.isOpen();
}

/// Opens the file that was found at first, and no other that has its name by now. To be read too: what cannot be put
/// back is not written over.
bool OutputFile::openFormer() {
  Descriptor former(::open(name_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  struct stat opened;
  if (!former.isOpen() || ::fstat(former.number(), &opened) != 0) return false;
  errno = EAGAIN;
  if (opened.st_dev != device_ || opened.st_ino != node_) return false;
  former_ = std::move(former);
  return true;
}

bool OutputFile::write(std::string_view bytes) { return outcome_ && (writeAll(file_.number(), bytes) || fail(errno)); }

bool OutputFile::commit() {
  if (!outcome_) return false;
  if (former_.isOpen()) return copyOver() || fail(errno);
  if (!filename_.empty()) return replace() || fail(errno);
  const int closed = ::close(file_.release());
  if (closed != 0) outcome_ = Error{ErrorCode::notWritten, {}, std::strerror(errno)};
  return closed == 0;
}

bool OutputFile::replace() {
  if (!flush(file_.number()) || (temporary_.empty() && !giveName())) return false;
  if (::renameat(folder_.number(), temporary_.c_str(), folder_.number(), filename_.c_str()) != 0) {
    const int reason = errno;
    // A file that may be written and not replaced; one that was not there at first is another's.
    const bool copied = (reason == EBUSY || isForbidden(reason)) && node_ != 0 && openFormer();
    errno = reason;
    return copied && copyOver();
  }
  temporary_.clear();
  const Descriptor folder(::openat(folder_.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return !folder.isOpen() || flush(folder.number());
}

bool OutputFile::giveName() {
  const std::string unnamed = "/proc/self/fd/" + std::to_string(file_.number());
  return withNewName(temporary_, [&](const char* free) {
           return ::linkat(AT_FDCWD, unnamed.c_str(), folder_.number(), free, AT_SYMLINK_FOLLOW);
         }) >= 0;
}

/// The old file gets the bytes of the new one. Its own are kept until that has worked, and there is room for the new
/// ones before the first is written.
bool OutputFile::copyOver() {
  struct stat from, to;
  if (::fstat(file_.number(), &from) != 0 || ::fstat(former_.number(), &to) != 0) return false;
  const Descriptor kept = spool();
  if (!kept.isOpen() || !copyBytes(former_, kept, to.st_size)) return false;
  const bool grows = from.st_size > to.st_size;
  if (grows && ::fallocate(former_.number(), FALLOC_FL_KEEP_SIZE, 0, from.st_size) != 0 && errno != EOPNOTSUPP) {
    return false;
  }
  const bool copied = copyBytes(file_, former_, from.st_size);
  if (copied && (grows || ::ftruncate(former_.number(), from.st_size) == 0)) return flush(former_.number());
  const int reason = errno;
  const bool putBack =
      copyBytes(kept, former_, to.st_size) && (!grows || ::ftruncate(former_.number(), to.st_size) == 0);
  if (!putBack) fail(reason, std::string(std::strerror(reason)) + ". The former content could not be put back");
  errno = reason;
  return false;
}

namespace {

Outcome written(OutputFile file, std::string_view bytes) {
  file.write(bytes);
  file.commit();
  return file.outcome();
}

}  // namespace

Outcome writeFile(const fs::path& name, std::string_view bytes) {
  return written(OutputFile(name, Reader::present), bytes);
}

Outcome writeOwnFile(const fs::path& name, std::string_view bytes) { return written(OutputFile::own(name), bytes); }

void removeAbandoned(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const pid_t process = processOf(entry->path().filename().native());
    if (process == 0 || ::kill(process, 0) == 0 || errno != ESRCH) continue;
    const Descriptor file(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts;
    const bool ours =
        file.isOpen() && ::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_uid == ::geteuid();
    // One that is locked belongs to a process on another machine.
    const bool inUse = ours && ::flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (ours && !inUse) ::unlink(entry->path().c_str());
  }
}

}  // namespace moistair
