// The table of the states that stand on a sheet.
#include <algorithm>
#include <array>
#include <numeric>

#include "sheet/parts.h"
#include "sheet/steps.h"
#include "text/value.h"

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
};

/// In the order of the report.
constexpr std::array<Column, reportrows.size()> columns = {{
    {"Dry bulb", "°F", 1},
    {"Wet bulb", "°F", 1},
    {"Rel. hum.", "%", 1},
    {"Enthalpy", "Btu/lb", 2},
    {"Sp. volume", "cu ft/lb", 2},
    {"Hum. ratio", "lb/lb", 5},
    {"Dew point", "°F", 1},
    {"Vapor pr.", "in Hg", 3},
}};
/// A state worked out at another pressure than the chart's says so, and one that is not on the chart.
std::string namein(const SheetContent& content, const SheetState& state) {
  std::string name = state.pinned ? "Read-out" : state.name;
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : " ") + text; };
  if (state.atm != content.pressure.atm) add("(at " + numeral(state.atm, 3) + " in Hg)");
  if (!content.limits.contain(state.db(), state.w())) add("(not on the chart)");
  return name;
}

std::string numberin(const SheetState& state) { return std::to_string(state.number) + state.mark(); }

std::string textof(const SheetState& state, std::size_t property) {
  return numeral(state.properties[property], columns[property].decimals);
}

/// The letters of a table, and the widths of its columns: of all its pages the same.
struct TableLook {
  double em;  ///< smaller than elsewhere where the numbers have no room otherwise [pixels]
  TextStyle head, unit, number, cell;
  double gap;
  double numbers = 0, names = 0;  ///< of the first two columns [pixels]
  std::array<double, columns.size()> widths{};

  TableLook(const Theme& theme, double letters)
      : em(letters),
        head(theme.bold(0.85 * em)),
        unit(theme.small(0.8 * em)),
        number(theme.bold(em)),
        cell(theme.text(em)),
        gap(cellgap * em) {}

  double sum() const { return std::accumulate(widths.begin(), widths.end(), numbers + names); }

  /// As wide as what stands in them; but for the identifications, which may be cut off.
  void measure(const SheetCanvas& canvas, const SheetContent& content) {
    const double leastname = 9 * em;
    numbers = canvas.widthof("No.", head);
    names = canvas.widthof("Identification", head);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      widths[i] = std::max(canvas.widthof(columns[i].head, head), canvas.widthof(columns[i].unit, unit));
    }
    for (const SheetState& state : content.states) {
      numbers = std::max(numbers, canvas.widthof(numberin(state), number));
      names = std::max(names, std::min(leastname, measured(canvas, namein(content, state), cell)));
      for (std::size_t i = 0; i < columns.size(); ++i) {
        widths[i] = std::max(widths[i], canvas.widthof(textof(state, i), cell));
      }
    }
    for (double* width : {&numbers, &names}) *width += 2 * gap;
    for (double& width : widths) width += 1.5 * gap;
  }

  /// What is left of the table's width goes to the identifications as far as they need it, then to all columns.
  void spread(const SheetCanvas& canvas, const SheetContent& content, double width) {
    double wanted = names;
    for (const SheetState& state : content.states) {
      wanted = std::max(wanted, measured(canvas, namein(content, state), cell) + 2 * gap);
    }
    names = std::min(wanted, names + std::max(0.0, width - sum()));
    const double share = std::max(0.0, width - sum()) / static_cast<double>(columns.size() + 1);
    names += share;
    for (double& column : widths) column += share;
  }
};

TableLook lookof(const SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width) {
  const Theme& theme = themeof(options.colors);
  TableLook look(theme, options.lettersize);
  look.measure(canvas, content);
  if (look.sum() > width) {
    look = TableLook(theme, options.lettersize * width / look.sum());
    look.measure(canvas, content);
  }
  look.spread(canvas, content, width);
  return look;
}

/// The notes on states with a mark, each a row that is as wide as the table.
void drawnotes(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const TableLook& look,
               const Box& area, std::size_t first, std::size_t rows, double top) {
  constexpr double least = 0.5;  // of their letters, before anything is cut off
  const double left = area.corners()[0].x + look.gap;
  for (std::size_t i = 0; i < rows; ++i) {
    const double y = top + options.lettersize * (rowheight * static_cast<double>(i) + 1.15);
    const auto [text, style] =
        shrunk(canvas, content.notes[first + i], look.cell, 2 * (area.halflength - look.gap), least);
    canvas.text({left, y}, text, style);
  }
}

void drawtable(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const TableLook& look,
               const Box& area, std::size_t first, std::size_t count) {
  const Theme& theme = themeof(options.colors);
  const std::size_t rows = std::min(count, content.states.size() - std::min(first, content.states.size()));
  const double em = options.lettersize;
  const double width = 2 * area.halflength;
  const SheetPoint corner = area.corners()[0];
  const double right = corner.x + width;
  const double bottom = corner.y + tableheight(options, count);
  const double gap = look.gap;
  const double headbottom = corner.y + headheight * em;
  canvas.area({corner, {right, corner.y}, {right, headbottom}, {corner.x, headbottom}}, theme.shade);
  const double namex = corner.x + look.numbers;
  const double headline = corner.y + 1.2 * em;
  if (rows > 0) {
    canvas.text({namex - gap, headline}, "No.", look.head, Anchor::end);
    canvas.text({namex + gap, headline}, "Identification", look.head);
  } else {
    canvas.text({corner.x + gap, headline}, "Notes", look.head);
  }
  double x = namex + look.names;
  for (std::size_t i = 0; i < columns.size() && rows > 0; ++i) {
    x += look.widths[i];
    canvas.text({x - gap, headline}, columns[i].head, look.head, Anchor::end);
    canvas.text({x - gap, corner.y + 2.3 * em}, columns[i].unit, look.unit, Anchor::end);
  }
  for (std::size_t i = 0; i < rows; ++i) {
    const SheetState& state = content.states[first + i];
    const double top = headbottom + rowheight * em * static_cast<double>(i);
    const double y = top + 1.15 * em;
    if (i > 0) canvas.polyline({{corner.x, top}, {right, top}}, theme.grid.width, theme.grid.color);
    canvas.text({namex - gap, y}, numberin(state), look.number, Anchor::end);
    const auto [name, style] = shrunk(canvas, namein(content, state), look.cell, look.names - 2 * gap);
    canvas.text({namex + gap, y}, name, style);
    x = namex + look.names;
    for (std::size_t property = 0; property < columns.size(); ++property) {
      x += look.widths[property];
      canvas.text({x - gap, y}, textof(state, property), look.cell, Anchor::end);
    }
  }
  const double notestop = headbottom + rowheight * em * static_cast<double>(rows);
  if (count > rows) {
    drawnotes(canvas, content, options, look, area, first + rows - content.states.size(), count - rows, notestop);
  }
  for (const double y : {corner.y, headbottom, notestop, bottom}) {
    canvas.polyline({{corner.x, y}, {right, y}}, theme.scale.width, theme.scale.color);
  }
}

}  // namespace

double tableheight(const SheetOptions& options, std::size_t rows) {
  return options.lettersize * (headheight + rowheight * static_cast<double>(rows));
}

TableDrawer tabledrawer(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width) {
  return [&canvas, &content, &options, look = lookof(canvas, content, options, width)](
             const Box& area, std::size_t first, std::size_t rows) {
    drawtable(canvas, content, options, look, area, first, rows);
  };
}

}  // namespace moistair
