// The table of the states that stand on a sheet.
#include <algorithm>
#include <array>

#include "engine/value.h"
#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

constexpr double rowheight = 1.6;   // em
constexpr double headheight = 2.7;  // two lines
constexpr double cellgap = 0.5;

/// A column with a property: its head in two lines, and the decimals that an engineer reads.
struct Column {
  const char* head;
  const char* unit;
  int decimals;
  double part;  ///< of the table's width
};

/// In the order of the report.
constexpr std::array<Column, reportrows.size()> columns = {{
    {"Dry bulb", "°F", 1, 0.085},
    {"Wet bulb", "°F", 1, 0.085},
    {"Rel. hum.", "%", 1, 0.085},
    {"Enthalpy", "Btu/lb", 2, 0.09},
    {"Sp. volume", "cu ft/lb", 2, 0.095},
    {"Hum. ratio", "lb/lb", 5, 0.095},
    {"Dew point", "°F", 1, 0.09},
    {"Vapor pr.", "in Hg", 3, 0.09},
}};
constexpr double numberpart = 0.04;
constexpr double namepart = 0.245;

/// A state worked out at another pressure than the chart's says so, and one that is not on the chart.
std::string namein(const SheetContent& content, const SheetState& state) {
  std::string name = state.pinned ? "Read-out" : state.name;
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : " ") + text; };
  if (state.atm != content.pressure.atm) add("(at " + numeral(state.atm, 3) + " in Hg)");
  if (!content.limits.contain(state.db(), state.w())) add("(not on the chart)");
  return name;
}

}  // namespace

double tableheight(const SheetOptions& options, std::size_t rows) {
  return options.lettersize * (headheight + rowheight * static_cast<double>(rows));
}

void drawtable(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const Box& area,
               std::size_t first, std::size_t rows) {
  const Theme& theme = themeof(options.colors);
  const double em = options.lettersize;
  const double width = 2 * area.halflength;
  const SheetPoint corner = area.corners()[0];
  const double right = corner.x + width;
  const double bottom = corner.y + tableheight(options, rows);
  const TextStyle head = theme.bold(0.85 * em);
  const TextStyle unit = theme.small(0.8 * em);
  const TextStyle cell = theme.text(em);
  const double gap = cellgap * em;
  const double headbottom = corner.y + headheight * em;
  canvas.area({corner, {right, corner.y}, {right, headbottom}, {corner.x, headbottom}}, theme.shade);
  const auto text = [&](double x, double y, const std::string& words, const TextStyle& style, double room,
                        Anchor anchor) {
    canvas.text({x, y}, fitted(canvas, words, style, room), style, anchor);
  };
  const double namex = corner.x + numberpart * width;
  text(namex - gap, corner.y + 1.2 * em, "No.", head, numberpart * width - gap, Anchor::end);
  text(namex + gap, corner.y + 1.2 * em, "Identification", head, namepart * width - 2 * gap, Anchor::start);
  double x = namex + namepart * width;
  for (const Column& column : columns) {
    x += column.part * width;
    const double room = column.part * width - gap;
    text(x - gap, corner.y + 1.2 * em, column.head, head, room, Anchor::end);
    text(x - gap, corner.y + 2.3 * em, column.unit, unit, room, Anchor::end);
  }
  for (std::size_t i = 0; i < rows; ++i) {
    const SheetState& state = content.states[first + i];
    const double top = headbottom + rowheight * em * static_cast<double>(i);
    const double y = top + 1.15 * em;
    if (i > 0) canvas.polyline({{corner.x, top}, {right, top}}, theme.grid.width, theme.grid.color);
    text(namex - gap, y, std::to_string(state.number), theme.bold(em), numberpart * width, Anchor::end);
    text(namex + gap, y, namein(content, state), cell, namepart * width - 2 * gap, Anchor::start);
    x = namex + namepart * width;
    for (std::size_t property = 0; property < columns.size(); ++property) {
      x += columns[property].part * width;
      const std::string number = numeral(state.properties[property], columns[property].decimals);
      text(x - gap, y, number, cell, columns[property].part * width - gap, Anchor::end);
    }
  }
  for (const double y : {corner.y, headbottom, bottom}) {
    canvas.polyline({{corner.x, y}, {right, y}}, theme.scale.width, theme.scale.color);
  }
}

}  // namespace moistair
