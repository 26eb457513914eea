#include "cli/picture.h"

#include <dlfcn.h>

#include <algorithm>
#include <filesystem>

#include "cli/fault.h"
#include "cli/programfolder.h"
#include "cli/properties.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

bool isPicture(std::string_view name) {
  const std::string lower = lowercase(std::string(name));
  return std::any_of(pictureEndings.begin(), pictureEndings.end(),
                     [&](const char* ending) { return lower.ends_with(ending); });
}

/// Why the module cannot be loaded. A FIFO in its place would be waited for.
Fault unloadable(const std::string& reason) { return failure("the part that paints cannot be loaded: " + reason); }

}  // namespace

Painter painterOfName(std::string_view name) {
  if (!isPicture(name)) return {};
  const fs::path folder = programFolder();
  if (!folder.is_absolute()) throw unloadable("the program cannot find its own file");
  const fs::path place = folder / MOISTAIR_PAINTER;
  std::error_code ignored;
  if (!fs::is_regular_file(place, ignored)) throw unloadable(place.lexically_normal().string() + " is not a file");
  void* module = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);  // once loaded it stays
  void* function = module == nullptr ? nullptr : ::dlsym(module, painterFunction);
  if (function == nullptr) throw unloadable(::dlerror());
  return reinterpret_cast<PainterFunction>(function)(name);
}

}  // namespace moistair
