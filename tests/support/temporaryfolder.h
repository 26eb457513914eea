// An empty folder for a test, and what is in its files.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace moistair::sessiontest {

namespace fs = std::filesystem;

struct TemporaryFolder {
  TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "moistair-test-XXXXXX").string();
    path = ::mkdtemp(name.data());
  }
  ~TemporaryFolder() { fs::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  fs::path path;
};

/// A variable of the environment that is another one, or none, while this lives.
class Environment {
public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  ~Environment() { set(before_ ? before_->c_str() : nullptr); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

private:
  void set(const char* value) const { value == nullptr ? ::unsetenv(name_) : ::setenv(name_, value, 1); }

  const char* name_;
  std::optional<std::string> before_;
};

inline std::string bytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void make(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

/// Names in a folder, in their order.
inline std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace moistair::sessiontest
