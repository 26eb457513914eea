#include "cli/stream.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "cli/fault.h"

namespace moistair {

namespace {

bool isStandard(const std::string& path) { return path.empty() || path == "-"; }

std::string because() { return std::string(": ") + std::strerror(errno); }

int opened(const std::string& path) {
  const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (number < 0) throw badUsage(path + because());
  return number;
}

/// Whether a file to write is the one that is read; pipes and terminals may be shared.
bool sameFile(const struct stat& written, const Input& reading) {
  struct stat read;
  return ::fstat(reading.descriptor(), &read) == 0 && S_ISREG(read.st_mode) && read.st_dev == written.st_dev &&
         read.st_ino == written.st_ino;
}

OutputFile openedForWriting(const std::string& path, const Input* reading) {
  const bool standard = isStandard(path);
  struct stat written;
  const bool exists = (standard ? ::fstat(STDOUT_FILENO, &written) : ::stat(path.c_str(), &written)) == 0;
  if (reading != nullptr && exists && sameFile(written, *reading)) {
    throw badUsage(reading->name() + " is read and cannot be written at the same time");
  }
  return standard ? OutputFile::through(STDOUT_FILENO) : OutputFile(path);
}

}  // namespace

Input::Input(const std::string& path)
    : name_(isStandard(path) ? "standard input" : path), descriptor_(isStandard(path) ? STDIN_FILENO : opened(path)) {}

bool Input::read(std::string& to, std::size_t size) {
  const std::size_t before = to.size();
  to.resize(before + size);
  ssize_t got;
  do {
    got = ::read(descriptor_.number(), to.data() + before, size);
  } while (got < 0 && errno == EINTR);
  if (got < 0) throw failure(name_ + " cannot be read" + because());
  to.resize(before + static_cast<std::size_t>(got));
  return got > 0;
}

Input Input::holding(const std::string& name, std::string_view text) {
  Input input(name, ::memfd_create("moistair", MFD_CLOEXEC));
  while (input.descriptor() >= 0 && !text.empty()) {
    const ssize_t written = ::write(input.descriptor(), text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw failure(name + because());
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  if (input.descriptor() < 0 || ::lseek(input.descriptor(), 0, SEEK_SET) != 0) throw failure(name + because());
  return input;
}

std::string Input::content(std::size_t longest) {
  constexpr std::size_t readSize = 64u << 10;
  std::string content;
  while (content.size() <= longest && read(content, readSize)) {
  }
  return content;
}

Output::Output(const std::string& path, const Input* reading)
    : name_(isStandard(path) ? "standard output" : path), file_(openedForWriting(path, reading)) {
  check();
}

void Output::check() const {
  if (file_.outcome()) return;
  const Error& error = file_.outcome().error();
  if (error.code == ErrorCode::notOpened) throw badUsage(name_ + ": " + error.words);
  if (error.code == ErrorCode::readerGone) throw failure(name_ + " was closed by its reader before all was written");
  throw failure(name_ + " cannot be written: " + error.words);
}

void Output::write(std::string_view text) {
  file_.write(text);
  check();
}

void Output::close() {
  file_.commit();
  check();
}

bool Output::isTerminal() const { return ::isatty(file_.descriptor()) == 1; }

void writeResult(std::string_view text) {
  Output out("");
  out.write(text);
  out.close();
}

}  // namespace moistair
