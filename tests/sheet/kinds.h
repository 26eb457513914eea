/// \file
/// Every kind of sheet that is worth looking at: limits, altitudes, papers, crowds of points, mixtures, read-outs,
/// looks. The tests count on them what lies over what; `sheet_gallery` makes pictures of them.
#pragma once

#include "chart/reading.h"
#include "sheet/cases.h"

namespace moistair::test {

struct Kind {
  const char* name;
  ChartLimits limits = fullLimits;
  PressureEntry pressure = sea;
  PageSize page = letter;
  int points = 3;
  double spread = 8;  ///< of the points about a room [deg F]
  int mixtures = 0, pins = 0;
  bool lines = false;
  SheetColors colors = SheetColors::color;
  PointLabels labels = PointLabels::names;
  bool parts = true;  ///< table, title block and protractor
};

inline constexpr PageSize a4{1123, 794}, a4Upright{794, 1123}, tabloid{1632, 1056}, tabloidUpright{1056, 1632},
    a3Upright{1123, 1587}, slide{1920, 1080};

inline std::vector<Kind> kinds() {
  const auto feet = [](const char* text) { return PressureEntry{PressureUnit::elevation, text}; };
  using enum SheetColors;
  const ChartLimits cold{0, 60, 0, 0.03}, room{60, 90, 0.004, 0.02}, comfort{68, 78, 0.006, 0.012};
  return {
      {.name = "letter", .points = 0},
      {.name = "letter upright", .page = upright},
      {.name = "a4", .page = a4, .lines = true},
      {.name = "a4 upright", .page = a4Upright, .mixtures = 1},
      {.name = "tabloid", .page = tabloid},
      {.name = "tabloid upright", .page = tabloidUpright, .mixtures = 1},
      {.name = "a3", .page = a3, .mixtures = 1, .lines = true},
      {.name = "a3 upright", .page = a3Upright, .points = 10},
      {.name = "screen", .page = wide, .parts = false},
      {.name = "small screen", .page = {900, 500}, .parts = false},
      {.name = "slide", .page = slide, .mixtures = 1, .colors = dark},
      {.name = "poster", .page = {3456, 2304}, .points = 20},
      {.name = "2500 ft", .pressure = feet("2500")},
      {.name = "5000 ft", .pressure = mountain, .mixtures = 1},
      {.name = "7500 ft", .pressure = feet("7500"), .page = a4},
      {.name = "10000 ft", .pressure = feet("10000"), .lines = true},
      {.name = "20 in Hg upright", .pressure = low, .page = upright},
      {.name = "lowest pressure", .pressure = lowest},
      {.name = "highest pressure", .pressure = highest},
      {.name = "0 to 60", .limits = cold},
      {.name = "0 to 60 to 0.010", .limits = {0, 60, 0, 0.01}, .page = a4},
      {.name = "0 to 30", .limits = {0, 30, 0, 0.01}},
      {.name = "0 to 40 screen", .limits = {0, 40, 0, 0.03}, .page = wide, .parts = false},
      {.name = "32 to 120 to 0.028", .limits = {32, 120, 0, 0.028}, .mixtures = 1},
      {.name = "40 to 90", .limits = {40, 90, 0, 0.03}},
      {.name = "40 to 90 to 0.020", .limits = {40, 90, 0, 0.02}, .points = 10},
      {.name = "room", .limits = room, .mixtures = 1},
      {.name = "room a3", .limits = room, .page = a3, .points = 20},
      {.name = "comfort", .limits = comfort, .spread = 3},
      {.name = "70 to 80", .limits = {70, 80, 0, 0.03}, .spread = 3},
      {.name = "80 to 120 to 0.010", .limits = {80, 120, 0, 0.01}, .spread = 4},
      {.name = "from 0.010", .limits = {50, 110, 0.01, 0.03}, .pressure = low},
      {.name = "55 to 105 tabloid", .limits = {55, 105, 0, 0.03}, .page = tabloid, .points = 10, .lines = true},
      {.name = "6 points", .points = 6},
      {.name = "10 points", .points = 10},
      {.name = "20 points", .points = 20, .spread = 14},
      {.name = "20 close points", .points = 20, .spread = 3},
      {.name = "20 points in a spot", .points = 20, .spread = 0.8},
      {.name = "40 close points", .points = 40, .spread = 5, .lines = true},
      {.name = "60 points", .points = 60, .spread = 16},
      {.name = "60 close points", .points = 60, .spread = 4},
      {.name = "60 points a3", .page = a3, .points = 60, .spread = 12, .mixtures = 2},
      {.name = "60 numbers", .points = 60, .spread = 12, .labels = PointLabels::numbers},
      {.name = "1 mixture", .points = 0, .mixtures = 1},
      {.name = "2 mixtures", .points = 2, .mixtures = 2},
      {.name = "6 mixtures", .points = 0, .mixtures = 6},
      {.name = "mixtures by number", .points = 2, .mixtures = 3, .labels = PointLabels::numbers},
      {.name = "1 read-out", .points = 0, .pins = 1},
      {.name = "3 read-outs", .points = 1, .pins = 3},
      {.name = "8 read-outs", .points = 0, .pins = 8},
      {.name = "20 read-outs", .points = 5, .spread = 5, .mixtures = 1, .pins = 20},
      {.name = "gray", .mixtures = 1, .lines = true, .colors = gray},
      {.name = "gray crowd", .page = a4Upright, .points = 30, .spread = 5, .colors = gray},
      {.name = "dark", .mixtures = 1, .lines = true, .colors = dark},
      {.name = "dark tabloid", .pressure = mountain, .page = tabloid, .pins = 2, .colors = dark},
      {.name = "everything", .points = 12, .spread = 6, .mixtures = 2, .pins = 3, .lines = true},
      {.name = "everything a3", .page = a3, .points = 24, .mixtures = 3, .pins = 4, .lines = true},
  };
}

/// What is on a sheet of a kind, at places that are the same every time.
inline SheetContent contentOf(const Kind& kind) {
  Document document;
  const Setting setting{kind.limits, {kind.pressure, strictNumber(*pressureFor(kind.pressure).inhg)}};
  const double atm = setting.pressure.atm;
  document.pressure = setting.pressure;
  document.entries.push_back({setting, DrawnChart{ChartType::standard}});
  const auto add = [&](Content content) { document.entries.push_back({setting, std::move(content)}); };
  const double middle = (kind.limits.lowDb + kind.limits.highDb) / 2 + 0.1 * (kind.limits.highDb - kind.limits.lowDb);
  const auto air = [&](double db, double rh) {
    const double w = std::clamp(psychro_wrh(db, rh, atm), kind.limits.lowHr + 1e-4, kind.limits.highHr - 1e-4);
    return readingAt({-400, 500, -1, 5}, atm, {db, w}).state;
  };
  unsigned seed = 1;
  const auto drawn = [&] { return (seed = seed * 1664525U + 1013904223U) / 4294967296.0; };
  if (kind.lines) {
    for (const auto& [line, value] : {std::pair{LineKind::relativeHumidity, "55"},
                                      {LineKind::wetBulb, "66"},
                                      {LineKind::enthalpy, "33"},
                                      {LineKind::specificVolume, "14.1"}})
      add(PropertyLine{line, value});
  }
  const char* const names[] = {"Room", "Supply air", "Outdoor air, summer design day", "Zone", "Return", "", "Coil"};
  for (int i = 0; i < kind.points; ++i) {
    const auto state = air(middle + kind.spread * (2 * drawn() - 1), 45 + 4 * kind.spread * (drawn() - 0.5));
    const std::string number = i < 3 ? "" : " " + std::to_string(i + 1);
    const char* name = names[i % 7];
    if (state) {
      add(MarkedPoint{{{{PropertyKind::db, std::to_string(state->db)}, {PropertyKind::wb, std::to_string(state->wb)}}},
                      *state,
                      *name == 0 ? "" : name + number});
    }
  }
  for (int i = 0; i < kind.mixtures; ++i) {
    const double span = kind.limits.highDb - kind.limits.lowDb;
    const auto one = air(middle - span * (0.05 + 0.03 * i), 50 + 4 * i);
    const auto other = air(middle + span * (0.12 + 0.02 * i), 40 + 5 * i);
    if (!one || !other) continue;
    const auto text = [](double value) { return std::to_string(value); };
    const MixingProblem solved = mixture(text(one->db).c_str(), text(one->wb).c_str(), text(other->db).c_str(),
                                         text(other->wb).c_str(), {atm, {}});
    add(MixingLine{{solved.streams[0], solved.streams[1], solved.mixed}});
    if (i == 1)
      add(MarkedPoint{{{{PropertyKind::db, text(one->db)}, {PropertyKind::wb, text(one->wb)}}},
                      *one,
                      "Return air"});  // a stream that is a marked point as well
  }
  for (int i = 0; i < kind.pins; ++i) {
    const double span = kind.limits.highDb - kind.limits.lowDb;
    const auto state = air(middle + span * (0.4 * drawn() - 0.2), 30 + 50 * drawn());
    if (state) add(PinnedReading{*state});
  }
  return contentOf(document);
}

inline SheetOptions optionsOf(const Kind& kind) {
  SheetOptions options = looking(kind.page, kind.colors);
  options.title = "Air handling unit 3, summer";
  options.labels = kind.labels;
  options.enthalpyLines = false;
  options.table = options.titleBlock = options.protractor = kind.parts;
  if (!kind.parts) options.title.clear();
  return options;
}

}  // namespace moistair::test
