// Zones of comfort and of equipment: a light area under everything else, its outline, a label and a line of the
// heading.
#include <algorithm>
#include <cmath>

#include "sheet/parts.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr double fill = 0.14;  // of the zone's color in its area
constexpr double outlineWidth = 1.1;

struct Piece {
  std::vector<SheetPoint> outline;
  std::size_t zone;
  double area;
};

/// Colors by the place of a zone in the list, from the first again after the last.
Color colorOf(const SheetWork& work, std::size_t zone) {
  if (work.options.colors == SheetColors::gray) return work.theme.faded;
  const std::array<Color, 4> colors = {work.theme.humidity.color, work.theme.enthalpy.color, work.theme.wetBulb.color,
                                       work.theme.volume.color};
  return colors[zone % colors.size()];
}

Color mixed(Color color, Color paper) {
  const auto part = [](std::uint8_t one, std::uint8_t other) {
    return static_cast<std::uint8_t>(std::lround(fill * one + (1 - fill) * other));
  };
  return {part(color.red, paper.red), part(color.green, paper.green), part(color.blue, paper.blue)};
}

double areaOf(const std::vector<SheetPoint>& outline) {
  double twice = cross(outline.back(), outline.front());
  for (std::size_t i = 1; i < outline.size(); ++i) twice += cross(outline[i - 1], outline[i]);
  return std::abs(twice) / 2;
}

std::vector<Piece> piecesOf(const SheetWork& work) {
  const ChartLimits& limits = work.plot.limits;
  const ZoneWindow window{limits.lowDb, limits.highDb, limits.lowHr, limits.highHr};
  std::vector<Piece> pieces;
  for (std::size_t zone = 0; zone < work.content.zones.size(); ++zone) {
    for (const Outline& outline : outlinesOf(work.content.zones[zone], window, work.plot.atm)) {
      Piece piece{{}, zone, 0};
      for (const OutlinePoint& point : outline) piece.outline.push_back(work.plot.at(point.db, point.w));
      piece.area = areaOf(piece.outline);
      pieces.push_back(std::move(piece));
    }
  }
  std::stable_sort(pieces.begin(), pieces.end(),
                   [](const Piece& one, const Piece& two) { return one.area > two.area; });
  return pieces;
}

bool surrounds(const std::vector<SheetPoint>& outline, SheetPoint place) {
  bool inside = false;
  for (std::size_t i = 0, before = outline.size() - 1; i < outline.size(); before = i++) {
    const SheetPoint one = outline[i];
    const SheetPoint two = outline[before];
    if ((one.y > place.y) == (two.y > place.y)) continue;
    if (place.x < one.x + (place.y - one.y) / (two.y - one.y) * (two.x - one.x)) inside = !inside;
  }
  return inside;
}

/// Places next to the outline of a piece that is too small or too full for its label, with a line from the outline.
void addPlacesOutside(const SheetWork& work, const Piece& piece, const TextStyle& style, Label& label) {
  constexpr double outside = 6;  // what speaks against it
  constexpr int places = 48;
  std::vector<SheetPoint> outline = piece.outline;
  outline.push_back(outline.front());
  const double whole = lengthOf(outline);
  if (!(whole > 0)) return;
  for (int i = 0; i < places; ++i) {
    const auto [at, along] = pointOnLine(outline, whole * i / places);
    SheetPoint outward{along.y, -along.x};
    if (surrounds(piece.outline, at + outward)) outward = outward * -1;
    for (const double away : {1.0, 2.5, 4.5}) {
      LabelPlace place{
          textNextTo(work.canvas, at, outward, away * work.em(), labelOf(work.content.zones[piece.zone]), style),
          outside + away,
          {at, at + outward * (away * work.em() - 0.2 * work.em())}};
      if (withinPlot(work, place)) label.places.push_back(std::move(place));
    }
  }
}

/// Places within a piece, those near its upper edge first; turned where it is too narrow.
Label pieceLabel(const SheetWork& work, const Piece& piece) {
  constexpr int across = 9;
  constexpr int down = 24;
  constexpr double upright = 2;  // what speaks against a text that is turned
  const auto compareX = [](SheetPoint one, SheetPoint other) { return one.x < other.x; };
  const auto compareY = [](SheetPoint one, SheetPoint other) { return one.y < other.y; };
  const auto [left, right] = std::minmax_element(piece.outline.begin(), piece.outline.end(), compareX);
  const auto [top, bottom] = std::minmax_element(piece.outline.begin(), piece.outline.end(), compareY);
  const TextStyle style{0.85 * work.em(), true, colorOf(work, piece.zone)};
  Label label{importance::share, {}, true, SheetPart::zones};
  for (int row = 1; row < down; ++row) {
    for (int column = 1; column < across; ++column) {
      const SheetPoint center{left->x + (right->x - left->x) * column / across,
                              top->y + (bottom->y - top->y) * row / down};
      for (const double angle : {0.0, -90.0}) {
        LabelPlace place;
        place.text = centered(work.canvas, center, labelOf(work.content.zones[piece.zone]), style, angle);
        place.cost = 0.05 * row + 0.05 * std::abs(column - across / 2) + (angle < 0 ? upright : 0);
        const auto corners = grown(boxOf(work.canvas, place), 0.15 * work.em()).corners();
        const auto within = [&](SheetPoint corner) { return surrounds(piece.outline, corner); };
        if (std::all_of(corners.begin(), corners.end(), within)) label.places.push_back(std::move(place));
      }
    }
  }
  addPlacesOutside(work, piece, style, label);
  return label;
}

}  // namespace

void drawZoneAreas(SheetWork& work) {
  work.canvas.begin(SheetPart::zones);
  for (const Piece& piece : piecesOf(work)) {
    work.canvas.area(piece.outline, mixed(colorOf(work, piece.zone), work.theme.paper));
  }
}

void drawZoneEdges(SheetWork& work) {
  if (work.content.weather) work.canvas.begin(SheetPart::zones);
  for (Piece& piece : piecesOf(work)) {
    Label label = pieceLabel(work, piece);
    piece.outline.push_back(piece.outline.front());
    work.canvas.polyline(piece.outline, outlineWidth, colorOf(work, piece.zone));
    work.board.line(piece.outline, 0.6);
    work.board.add(std::move(label));
  }
}

std::vector<std::string> zoneLegend(const SheetContent& content) {
  std::vector<std::string> lines;
  for (const Zone& zone : content.zones) {
    std::string line = labelOf(zone) + ": " + titleOf(zone);
    const auto* envelope = std::get_if<Envelope>(&zone);
    if (envelope != nullptr && envelope->derating) {
      line += ", up to " + typeset(dryBulbsOf(*envelope, content.pressure.atm).high, 1) + " °F at this pressure";
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace moistair
