#include "cli/paintfonts.h"

#include <fontconfig/fontconfig.h>

#include <QString>
#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>

#include "paint/replay.h"

namespace moistair {

namespace {

template <auto destroy>
struct Destroyer {
  void operator()(auto* object) const { destroy(object); }
};
using Config = std::unique_ptr<FcConfig, Destroyer<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using Text = std::unique_ptr<FcChar8, Destroyer<FcStrFree>>;

const FcChar8* bytesOf(const std::string& text) { return reinterpret_cast<const FcChar8*>(text.c_str()); }
std::string textOf(const FcChar8* bytes) { return reinterpret_cast<const char*>(bytes); }

/// A configuration by its text, with the fonts of its folders; null if there is none.
Config configOf(const std::string& text) {
  Config config(FcConfigCreate());
  const bool loaded = config && FcConfigParseAndLoadFromMemory(config.get(), bytesOf(text), FcTrue) == FcTrue &&
                      FcConfigBuildFonts(config.get()) == FcTrue;
  return loaded ? std::move(config) : nullptr;
}

/// The system's configuration without the many files that it includes: its folders of fonts and of what is known of
/// them. Empty where there is none.
std::string systemFolders() {
  const Config config(FcConfigCreate());
  const Text path(FcConfigGetFilename(config.get(), nullptr));
  if (!path) return {};
  std::ifstream file(textOf(path.get()));
  std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::string_view end = "</include>";
  for (std::size_t at = 0; (at = text.find("<include", at)) != std::string::npos;) {
    const std::size_t close = text.find(end, at);
    if (close == std::string::npos) return {};
    text.erase(at, close + end.size() - at);
  }
  return text;
}

/// One folder of fonts, and where another configuration keeps what it has read of it.
std::string oneFolder(const std::string& folder, FcConfig* other) {
  const auto escaped = [](const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
  };
  std::string text = "<fontconfig><dir>" + escaped(folder) + "</dir>";
  const std::unique_ptr<FcStrList, Destroyer<FcStrListDone>> caches(FcConfigGetCacheDirs(other));
  while (const FcChar8* cache = FcStrListNext(caches.get())) {
    text += "<cachedir>" + escaped(textOf(cache)) + "</cachedir>";
  }
  return text + "</fontconfig>";
}

/// The chart's font; null if a configuration has not got it.
Pattern canvasPattern(FcConfig* config) {
  const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, canvasFamily, nullptr));
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  Pattern found(FcFontMatch(config, wanted.get(), &result));
  FcChar8* family = nullptr;
  const bool right = found && FcPatternGetString(found.get(), FC_FAMILY, 0, &family) == FcResultMatch &&
                     textOf(family) == canvasFamily;
  return right ? std::move(found) : nullptr;
}

bool hasLetters(const FcCharSet* letters, const std::string& text) {
  const auto characters = QString::fromStdString(text).toUcs4();
  return std::all_of(characters.begin(), characters.end(),
                     [&](uint c) { return FcCharSetHasChar(letters, c) == FcTrue; });
}

}  // namespace

void prepareFonts(const std::vector<std::string>& texts) {
  const Config system = configOf(systemFolders());
  const Pattern font = system ? canvasPattern(system.get()) : nullptr;
  FcChar8* file = nullptr;
  FcCharSet* letters = nullptr;
  if (!font || FcPatternGetString(font.get(), FC_FILE, 0, &file) != FcResultMatch ||
      FcPatternGetCharSet(font.get(), FC_CHARSET, 0, &letters) != FcResultMatch) {
    return;
  }
  if (!std::all_of(texts.begin(), texts.end(), [&](const std::string& text) { return hasLetters(letters, text); })) {
    return;
  }
  const Text folder(FcStrDirname(file));
  const Config config = configOf(oneFolder(textOf(folder.get()), system.get()));
  if (config && canvasPattern(config.get())) FcConfigSetCurrent(config.get());  // which takes a reference of its own
}

}  // namespace moistair
