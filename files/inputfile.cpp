#include "files/inputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "files/descriptor.h"

namespace moistair {

std::string sizewords(std::size_t bytes) {
  constexpr std::size_t kilobyte = 1024;
  const bool mega = bytes >= kilobyte * kilobyte;
  return std::to_string(mega ? bytes / kilobyte / kilobyte : bytes / kilobyte) + (mega ? " MB" : " KB");
}

FileContent readfile(const std::filesystem::path& path, Links links, std::size_t largest) {
  const auto failed = [] { return FileContent{{}, std::strerror(errno)}; };
  const int nolink = links == Links::refused ? O_NOFOLLOW : 0;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | nolink));
  struct stat opened;
  if (!file.isopen() || ::fstat(file.number(), &opened) != 0) return failed();
  if (!S_ISREG(opened.st_mode)) return {{}, "It is not a regular file."};
  const auto toolarge = [&] { return FileContent{{}, "It is larger than " + sizewords(largest) + ", the limit."}; };
  if (static_cast<std::size_t>(opened.st_size) > largest) return toolarge();
  FileContent content;
  std::array<char, 65536> chunk;
  for (;;) {
    const ssize_t got = ::read(file.number(), chunk.data(), chunk.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return failed();
    if (got == 0) return content;
    content.bytes.append(chunk.data(), static_cast<std::size_t>(got));
    if (content.bytes.size() > largest) return toolarge();  // it grows
  }
}

}  // namespace moistair
