#include "cli/programfolder.h"

#include <sys/auxv.h>

namespace moistair {

namespace fs = std::filesystem;

namespace {

/// The file of this program. Where nothing is mounted on /proc, the name that it was started by has to do.
fs::path ownFile() {
  std::error_code none;
  const fs::path own = fs::read_symlink("/proc/self/exe", none);
  if (!none) return own;
  const auto* name = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  return name == nullptr ? fs::path() : fs::canonical(name, none);
}

}  // namespace

fs::path programFolder() { return ownFile().parent_path(); }

}  // namespace moistair
