#include "cli/picture.h"

#include <dlfcn.h>

#include <filesystem>

#include "cli/fault.h"

namespace moistair {

Painter painterofname(std::string_view name) {
  std::error_code none;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", none);
  const auto place = program.parent_path() / MOISTAIR_PAINTER;
  void* module = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);  // once loaded it stays
  void* function = module == nullptr ? nullptr : ::dlsym(module, painterfunction);
  if (function == nullptr) throw failure(std::string("the part that paints cannot be loaded: ") + ::dlerror());
  return reinterpret_cast<PainterFunction>(function)(name);
}

}  // namespace moistair
