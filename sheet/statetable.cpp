// The table of the states of a sheet.
#include <algorithm>
#include <array>
#include <numeric>

#include "sheet/parts.h"
#include "sheet/steps.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr double rowHeight = 1.6;   // em
constexpr double headHeight = 2.7;  // two lines
constexpr double cellGap = 0.5;

/// A state worked out at another pressure than the chart's says so, and one that is not on the chart.
std::string nameIn(const SheetContent& content, const SheetState& state) {
  std::string name = state.pinned ? "Read-out" : state.name;
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : " ") + text; };
  if (!samePressure(state.atm, content.pressure.atm)) add("(at " + typeset(state.atm, 3) + " in Hg)");
  if (!content.limits.contain(state.db(), state.w())) add("(not on the chart)");
  return name;
}

std::string numberIn(const SheetState& state) { return std::to_string(state.number) + state.mark(); }

std::string textOf(const SheetState& state, std::size_t property) {
  return typeset(state.properties[property], propertyOf(columnOrder[property]).sheetDecimals);
}

/// The letters of a table, and the widths of its columns: of all its pages the same.
struct TableLook {
  double em;  ///< smaller than elsewhere where the numbers have no room otherwise [pixels]
  TextStyle head, unit, number, cell;
  double gap;
  double numbers = 0, names = 0;  ///< of the first two columns [pixels]
  std::array<double, columnOrder.size()> widths{};

  TableLook(const Theme& theme, double letters)
      : em(letters),
        head(theme.bold(0.85 * em)),
        unit(theme.small(std::max(0.8 * em, smallestFor(letters)))),
        number(theme.bold(em)),
        cell(theme.text(em)),
        gap(cellGap * em) {}

  double sum() const { return std::accumulate(widths.begin(), widths.end(), numbers + names); }

  /// As wide as their content, except for the identifications, which may be cut off.
  void measure(const SheetCanvas& canvas, const SheetContent& content) {
    const double leastName = 9 * em;
    numbers = canvas.widthOf("No.", head);
    names = canvas.widthOf("Identification", head);
    for (std::size_t i = 0; i < columnOrder.size(); ++i) {
      const Property& property = propertyOf(columnOrder[i]);
      widths[i] = std::max(canvas.widthOf(property.sheetHead, head), canvas.widthOf(property.sheetUnit, unit));
    }
    for (const SheetState& state : content.states) {
      numbers = std::max(numbers, canvas.widthOf(numberIn(state), number));
      names = std::max(names, std::min(leastName, measured(canvas, nameIn(content, state), cell)));
      for (std::size_t i = 0; i < columnOrder.size(); ++i) {
        widths[i] = std::max(widths[i], canvas.widthOf(textOf(state, i), cell));
      }
    }
    for (double* width : {&numbers, &names}) *width += 2 * gap;
    for (double& width : widths) width += 1.5 * gap;
  }

  /// What is left of the table's width goes to the identifications as far as they need it, then to all columns.
  void spread(const SheetCanvas& canvas, const SheetContent& content, double width) {
    double wanted = names;
    for (const SheetState& state : content.states) {
      wanted = std::max(wanted, measured(canvas, nameIn(content, state), cell) + 2 * gap);
    }
    names = std::min(wanted, names + std::max(0.0, width - sum()));
    const double share = std::max(0.0, width - sum()) / static_cast<double>(columnOrder.size() + 1);
    names += share;
    for (double& column : widths) column += share;
  }
};

TableLook lookOf(const SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width) {
  const Theme& theme = themeOf(options.colors);
  TableLook look(theme, options.letterSize);
  look.measure(canvas, content);
  if (look.sum() > width) {
    look = TableLook(theme, options.letterSize * width / look.sum());
    look.measure(canvas, content);
  }
  look.spread(canvas, content, width);
  return look;
}

/// The notes on states with a mark, each a row that is as wide as the table.
void drawNotes(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const TableLook& look,
               const Box& area, std::size_t first, std::size_t rows, double top) {
  const double left = area.corners()[0].x + look.gap;
  for (std::size_t i = 0; i < rows; ++i) {
    const double y = top + options.letterSize * (rowHeight * static_cast<double>(i) + 1.15);
    const auto [text, style] = shrunk(canvas, content.notes[first + i], look.cell, 2 * (area.halfLength - look.gap),
                                      smallestFor(options.letterSize));
    canvas.text({left, y}, text, style);
  }
}

void drawTable(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const TableLook& look,
               const Box& area, std::size_t first, std::size_t count) {
  canvas.begin(SheetPart::table);
  const Theme& theme = themeOf(options.colors);
  const std::size_t rows = std::min(count, content.states.size() - std::min(first, content.states.size()));
  const double em = options.letterSize;
  const double width = 2 * area.halfLength;
  const SheetPoint corner = area.corners()[0];
  const double right = corner.x + width;
  const double bottom = corner.y + tableHeight(options, count);
  const double gap = look.gap;
  const double headBottom = corner.y + headHeight * em;
  canvas.area({corner, {right, corner.y}, {right, headBottom}, {corner.x, headBottom}}, theme.shade);
  const double nameX = corner.x + look.numbers;
  const double headline = corner.y + 1.2 * em;
  if (rows > 0) {
    canvas.text({nameX - gap, headline}, "No.", look.head, Anchor::end);
    canvas.text({nameX + gap, headline}, "Identification", look.head);
  } else {
    canvas.text({corner.x + gap, headline}, "Notes", look.head);
  }
  double x = nameX + look.names;
  for (std::size_t i = 0; i < columnOrder.size() && rows > 0; ++i) {
    x += look.widths[i];
    const Property& property = propertyOf(columnOrder[i]);
    canvas.text({x - gap, headline}, property.sheetHead, look.head, Anchor::end);
    canvas.text({x - gap, corner.y + 2.3 * em}, property.sheetUnit, look.unit, Anchor::end);
  }
  for (std::size_t i = 0; i < rows; ++i) {
    const SheetState& state = content.states[first + i];
    const double top = headBottom + rowHeight * em * static_cast<double>(i);
    const double y = top + 1.15 * em;
    if (i > 0) canvas.polyline({{corner.x, top}, {right, top}}, theme.grid.width, theme.grid.color);
    canvas.text({nameX - gap, y}, numberIn(state), look.number, Anchor::end);
    const auto [name, style] =
        shrunk(canvas, nameIn(content, state), look.cell, look.names - 2 * gap, smallestFor(options.letterSize));
    canvas.text({nameX + gap, y}, name, style);
    x = nameX + look.names;
    for (std::size_t property = 0; property < columnOrder.size(); ++property) {
      x += look.widths[property];
      canvas.text({x - gap, y}, textOf(state, property), look.cell, Anchor::end);
    }
  }
  const double notesTop = headBottom + rowHeight * em * static_cast<double>(rows);
  if (count > rows) {
    drawNotes(canvas, content, options, look, area, first + rows - content.states.size(), count - rows, notesTop);
  }
  for (const double y : {corner.y, headBottom, notesTop, bottom}) {
    canvas.polyline({{corner.x, y}, {right, y}}, theme.scale.width, theme.scale.color);
  }
}

}  // namespace

double tableHeight(const SheetOptions& options, std::size_t rows) {
  return options.letterSize * (headHeight + rowHeight * static_cast<double>(rows));
}

TableDrawer tableDrawer(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width) {
  return [&canvas, &content, &options, look = lookOf(canvas, content, options, width)](
             const Box& area, std::size_t first, std::size_t rows) {
    drawTable(canvas, content, options, look, area, first, rows);
  };
}

}  // namespace moistair
