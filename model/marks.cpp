#include "model/marks.h"

#include <algorithm>
#include <cmath>

#include "chart/chartfinders.h"
#include "chart/pointmark.h"
#include "model/exactentry.h"

namespace moistair {

namespace {

/// Whether a chart's axes show the two as one.
bool sameCoordinates(const StatePoint& one, const ChartCoordinates& other) {
  return std::abs(one.db - other.db) < 0.005 && std::abs(one.w - other.w) < 5e-06;
}

/// Appends the marks of an entry.
struct Marker {
  std::vector<Mark>& marks;
  std::size_t entry;

  void operator()(const MarkedPoint& point) const { marks.push_back({{point.state.db, point.state.w}, entry}); }
  void operator()(const MixingLine& line) const {
    for (const AirStream& column : line.columns) {
      marks.push_back({{lenientNumber(column.db), lenientNumber(column.w)}, entry});
    }
  }
  void operator()(const PinnedReading& pinned) const { marks.push_back({{pinned.state.db, pinned.state.w}, entry}); }
  template <class Unmarked>
  void operator()(const Unmarked&) const {}
};

}  // namespace

std::optional<Setting> currentChart(const Document& document) {
  const auto limits = currentLimits(document);
  const Entry* chart = lastChart(document);
  if (!limits || chart == nullptr || chart->setting.limits != *limits) return std::nullopt;
  return chart->setting;
}

std::vector<Mark> marksOf(const Document& document) {
  std::vector<Mark> marks;
  const auto chart = currentChart(document);
  for (std::size_t i = 0; chart && i < document.entries.size(); ++i) {
    const Entry& entry = document.entries[i];
    if (entry.setting.limits == chart->limits) std::visit(Marker{marks, i}, entry.content);
  }
  return marks;
}

std::optional<PinnedReading> readingToKeep(const Setting& chart, const ChartCoordinates& place) {
  const Reading reading = readingAt(chart.limits, chart.pressure.atm, place);
  if (!reading.state) return std::nullopt;
  return PinnedReading{asReported(*reading.state)};
}

LabelCorner freeCorner(const Document& document, const PinnedReading& pinned, WindowSize window) {
  const auto chart = currentChart(document);
  if (!chart) return corners.front();
  const PlotArea area = plotArea(chart->limits, window);
  constexpr double markRoom = 2 * pointMarkRadius;
  std::vector<LabelBox> taken;
  for (const Mark& mark : marksOf(document)) {
    const double x = area.plotX(mark.place.db);
    const double y = area.plotY(mark.place.w);
    taken.push_back({x - markRoom, y - markRoom, x + markRoom, y + markRoom});
    const auto* other = std::get_if<PinnedReading>(&document.entries[mark.entry].content);
    if (other != nullptr) taken.push_back(labelBox(other->state, other->corner, area));
  }
  const auto covered = [&](LabelCorner corner) {
    const LabelBox label = labelBox(pinned.state, corner, area);
    double sum = 0;
    for (const LabelBox& box : taken) sum += label.covered(box);
    return sum;
  };
  return *std::min_element(corners.begin(), corners.end(),
                           [&](LabelCorner one, LabelCorner other) { return covered(one) < covered(other); });
}

bool isPoint(const Entry& entry) { return std::holds_alternative<MarkedPoint>(entry.content); }

std::optional<Entry> movedTo(const Entry& point, const ChartCoordinates& place, WindowSize window) {
  const Setting& setting = point.setting;
  const Reading reading = readingAt(setting.limits, setting.pressure.atm, place);
  if (!reading.state) return std::nullopt;
  Entry entry = point;
  auto& moved = std::get<MarkedPoint>(entry.content);
  moved.state = asReported(*reading.state);
  for (TypedProperty& given : moved.given) given.value = numberText(moved.state.at(given.kind));
  const PlotArea area = plotArea(setting.limits, window);
  SolverFields fields;
  const auto& [one, two] = moved.given;
  Resolution again = resolvePair(one.kind, one.value, two.kind, two.value, setting.pressure.atm,
                                 chartRangeFinders([area] { return area; }), fields);
  if (moved.exact) {
    const auto exact = exactChoice(givenOf(moved), setting.pressure.atm, resolutionOf(moved.state)).state;
    if (exact) again = resolutionOf(*exact);
  }
  if (again.resolved() && sameCoordinates(again.point, place)) moved.state = asReported(again.point);
  RecordingCanvas scratch;
  if (draw(entry, scratch, window) != nullptr) return std::nullopt;
  return entry;
}

}  // namespace moistair
