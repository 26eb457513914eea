#include "files/inputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "files/descriptor.h"

namespace moistair {

FileContent readfile(const std::filesystem::path& path, Links links, std::size_t largest) {
  const auto failed = [] { return FileContent{{}, std::strerror(errno)}; };
  const int nolink = links == Links::refused ? O_NOFOLLOW : 0;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | nolink));
  struct stat opened;
  if (!file.isopen() || ::fstat(file.number(), &opened) != 0) return failed();
  if (!S_ISREG(opened.st_mode)) return {{}, "It is no regular file."};
  if (static_cast<std::size_t>(opened.st_size) > largest) return {{}, "It is too large."};
  FileContent content;
  std::array<char, 65536> chunk;
  for (;;) {
    const ssize_t got = ::read(file.number(), chunk.data(), chunk.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return failed();
    if (got == 0) return content;
    content.bytes.append(chunk.data(), static_cast<std::size_t>(got));
  }
}

}  // namespace moistair
