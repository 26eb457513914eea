#include "session/sessionlog.h"

#include <array>
#include <fstream>
#include <system_error>

#include "session/outputfile.h"
#include "session/singlebyte.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view lineend = "\r\n";

bool write(const fs::path& path, std::ios::openmode mode, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | mode);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

std::optional<std::string> readbytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes;
  std::array<char, 65536> chunk;
  while (file) {
    file.read(chunk.data(), chunk.size());
    bytes.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
  }
  if (!file.eof()) return std::nullopt;
  return bytes;
}

/// Takes back what a failed append has written.
void restore(const fs::path& path, bool existed, std::uintmax_t size) {
  std::error_code ignored;
  if (existed) {
    fs::resize_file(path, size, ignored);
  } else {
    fs::remove(path, ignored);
  }
}

}  // namespace

bool SessionLog::newlog() const { return write(path_, std::ios::trunc, lineend); }

bool SessionLog::append(const std::vector<std::string>& lines) const {
  std::string block;
  for (const std::string& line : lines) {
    block += tosinglebyte(line);
    block += lineend;
  }
  std::error_code error;
  const bool existed = fs::exists(path_, error);
  const std::uintmax_t size = existed ? fs::file_size(path_, error) : 0;
  if (error) return false;
  if (write(path_, std::ios::app, block)) return true;
  restore(path_, existed, size);
  return false;
}

std::optional<std::string> SessionLog::read() const {
  const std::optional<std::string> bytes = readbytes(path_);
  if (!bytes) return std::nullopt;
  std::string text = fromsinglebyte(*bytes);
  if (!text.empty() && !text.ends_with('\n')) text += lineend;
  return text;
}

bool SessionLog::isat(const std::filesystem::path& other) const {
  std::error_code ignored;
  return fs::equivalent(path_, other, ignored);
}

bool SessionLog::copyto(const std::filesystem::path& target) const {
  if (isat(target)) return true;
  const std::optional<std::string> bytes = readbytes(path_);
  return bytes && !writefile(target, *bytes);
}

bool SessionLog::remove() const {
  std::error_code error;
  fs::remove(path_, error);
  return !error;
}

}  // namespace moistair
