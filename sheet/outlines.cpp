#include "sheet/outlines.h"

#include "sheet/curves.h"
#include "sheet/geometry.h"

namespace moistair {

std::vector<std::vector<SheetPoint>> outlinesOf(const SheetContent& content, const SheetPlot& plot, std::size_t entry) {
  constexpr double radius = 4;  // pixels
  constexpr int corners = 16;
  std::vector<std::vector<SheetPoint>> outlines;
  for (const SheetLine& line : content.lines) {
    if (line.entry != entry) continue;
    for (auto& piece : visibleLine(plot, line.kind, line.value, line.atm)) outlines.push_back(std::move(piece));
  }
  const auto place = [&](std::size_t state) { return plot.at(content.states[state].db(), content.states[state].w()); };
  for (std::size_t i = 0; i < content.states.size(); ++i) {
    const SheetState& state = content.states[i];
    if (state.entry != entry || !plot.limits.contain(state.db(), state.w())) continue;
    std::vector<SheetPoint> rim;
    for (int turn = 0; turn <= corners; ++turn) rim.push_back(place(i) + direction(360.0 * turn / corners) * radius);
    outlines.push_back(std::move(rim));
  }
  for (const SheetMixture& mixture : content.mixtures) {
    if (content.states[mixture.one].entry == entry && outlines.size() == 3) {
      outlines.push_back({place(mixture.one), place(mixture.mixed), place(mixture.other)});
    }
  }
  return outlines;
}

}  // namespace moistair
