#include "files/inputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "files/descriptor.h"

namespace moistair {

std::string sizeWords(std::size_t bytes) {
  constexpr std::size_t kilobyte = 1024;
  const bool mega = bytes >= kilobyte * kilobyte;
  return std::to_string(mega ? bytes / kilobyte / kilobyte : bytes / kilobyte) + (mega ? " MB" : " KB");
}

Result<std::string> readFile(const std::filesystem::path& path, Links links, std::size_t largest) {
  const auto failed = [](ErrorCode code) { return Error{code, {}, std::strerror(errno)}; };
  const int noLink = links == Links::refused ? O_NOFOLLOW : 0;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | noLink));
  struct stat opened;
  if (!file.isOpen() || ::fstat(file.number(), &opened) != 0) return failed(ErrorCode::notOpened);
  if (!S_ISREG(opened.st_mode)) return Error{ErrorCode::notOpened, {}, "It is not a regular file."};
  const auto tooLarge = [&] {
    return Error{ErrorCode::tooLarge, {}, "It is larger than " + sizeWords(largest) + ", the limit."};
  };
  if (static_cast<std::size_t>(opened.st_size) > largest) return tooLarge();
  std::string content;
  std::array<char, 65536> chunk;
  for (;;) {
    const ssize_t got = ::read(file.number(), chunk.data(), chunk.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return failed(ErrorCode::unreadable);
    if (got == 0) return content;
    content.append(chunk.data(), static_cast<std::size_t>(got));
    if (content.size() > largest) return tooLarge();  // it grows
  }
}

}  // namespace moistair
