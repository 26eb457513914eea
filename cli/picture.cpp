#include "cli/picture.h"

#include <dlfcn.h>
#include <sys/auxv.h>

#include <filesystem>

#include "cli/fault.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

/// The file of this program. Where nothing is mounted on /proc, the name that it was started by has to do.
fs::path ownfile() {
  std::error_code none;
  const fs::path own = fs::read_symlink("/proc/self/exe", none);
  return none ? fs::canonical(reinterpret_cast<const char*>(::getauxval(AT_EXECFN)), none) : own;
}

}  // namespace

Painter painterofname(std::string_view name) {
  const fs::path place = ownfile().parent_path() / MOISTAIR_PAINTER;
  void* module = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);  // once loaded it stays
  void* function = module == nullptr ? nullptr : ::dlsym(module, painterfunction);
  if (function == nullptr) throw failure(std::string("the part that paints cannot be loaded: ") + ::dlerror());
  return reinterpret_cast<PainterFunction>(function)(name);
}

}  // namespace moistair
