#include "cli/paintfonts.h"

#include <fontconfig/fontconfig.h>

#include <QString>
#include <algorithm>
#include <memory>

#include "paint/replay.h"

namespace moistair {

namespace {

/// The folder alone, and where the system may keep what it has read of it.
constexpr const char* configuration = R"(<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
</fontconfig>)";

template <auto destroy>
struct Destroyer {
  void operator()(auto* object) const { destroy(object); }
};
using Config = std::unique_ptr<FcConfig, Destroyer<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;

/// The chart's font; null if it is not in the folder.
Pattern canvaspattern(FcConfig* config) {
  const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, canvasfamily, nullptr));
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  Pattern found(FcFontMatch(config, wanted.get(), &result));
  FcChar8* family = nullptr;
  const bool right = found && FcPatternGetString(found.get(), FC_FAMILY, 0, &family) == FcResultMatch &&
                     std::string_view(reinterpret_cast<const char*>(family)) == canvasfamily;
  return right ? std::move(found) : nullptr;
}

bool hasletters(const FcCharSet* letters, const std::string& text) {
  const auto characters = QString::fromStdString(text).toUcs4();
  return std::all_of(characters.begin(), characters.end(),
                     [&](uint c) { return FcCharSetHasChar(letters, c) == FcTrue; });
}

}  // namespace

void preparefonts(const std::vector<std::string>& texts) {
  const Config config(FcConfigCreate());
  const auto* read = reinterpret_cast<const FcChar8*>(configuration);
  if (!config || !FcConfigParseAndLoadFromMemory(config.get(), read, FcTrue) || !FcConfigBuildFonts(config.get()))
    return;
  const Pattern font = canvaspattern(config.get());
  FcCharSet* letters = nullptr;
  if (!font || FcPatternGetCharSet(font.get(), FC_CHARSET, 0, &letters) != FcResultMatch) return;
  const bool enough =
      std::all_of(texts.begin(), texts.end(), [&](const std::string& text) { return hasletters(letters, text); });
  if (enough) FcConfigSetCurrent(config.get());  // which takes a reference of its own
}

}  // namespace moistair
