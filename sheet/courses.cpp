#include "sheet/courses.h"

#include "sheet/curves.h"
#include "sheet/geometry.h"

namespace moistair {

std::vector<std::vector<SheetPoint>> coursesof(const SheetContent& content, const SheetPlot& plot, std::size_t entry) {
  constexpr double radius = 4;  // pixels
  constexpr int corners = 16;
  std::vector<std::vector<SheetPoint>> courses;
  for (const SheetLine& line : content.lines) {
    if (line.entry != entry) continue;
    for (auto& piece : visibleline(plot, line.kind, line.value, line.atm)) courses.push_back(std::move(piece));
  }
  const auto place = [&](std::size_t state) { return plot.at(content.states[state].db(), content.states[state].w()); };
  for (std::size_t i = 0; i < content.states.size(); ++i) {
    const SheetState& state = content.states[i];
    if (state.entry != entry || !plot.limits.contain(state.db(), state.w())) continue;
    std::vector<SheetPoint> rim;
    for (int turn = 0; turn <= corners; ++turn) rim.push_back(place(i) + direction(360.0 * turn / corners) * radius);
    courses.push_back(std::move(rim));
  }
  for (const SheetMixture& mixture : content.mixtures) {
    if (content.states[mixture.one].entry == entry && courses.size() == 3) {
      courses.push_back({place(mixture.one), place(mixture.mixed), place(mixture.other)});
    }
  }
  return courses;
}

}  // namespace moistair
