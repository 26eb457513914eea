#include "chart/reading.h"

#include <algorithm>
#include <cmath>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/saturation.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr int degreeDecimals = 2;  // that a place is read to
constexpr int ratioDecimals = 5;
constexpr int shownDecimals = 7;
constexpr double shownParts = 1e7;
constexpr double keyRatio = 0.0005;    // step of the cross hair
constexpr double targetReach = 7;      // pixels
constexpr double saturationReach = 5;  // pixels

Resolution resolved(const ChartCoordinates& place, double atm) {
  SolverFields fields;
  return resolvePair({PropertyKind::db, place.db}, {PropertyKind::w, place.w}, atm, openRangeFinders(), fields);
}

/// With the decimals of a reading if it has no more, else with all that a state has.
std::string coordinateText(double value, int decimals) {
  const bool isShort = std::abs(roundedTo(value, decimals) - value) < 0.5 / shownParts;
  return fixedDecimals(value, isShort ? decimals : shownDecimals);
}

std::string rowDescription(PropertyKind kind, const StatePoint& state) {
  const Property& property = propertyOf(kind);
  return std::string(property.shortCaption) + ' ' + readingText(kind, state) + ' ' + property.unit;
}

/// What is known of the state at a place by the place alone.
StatePoint stateOf(const ChartCoordinates& place) {
  StatePoint state;
  state.db = place.db;
  state.w = place.w;
  return state;
}

/// Whether a pointer is as good as on the saturation line: the line is taken as straight about there.
bool nearSaturation(const PlotBox& box, double atm, double x, double y) {
  constexpr double about = 0.5;  // deg F
  const double db = box.placeAt(x, y).db;
  const double low = box.y(saturationRatio(db - about, atm));
  const double high = box.y(saturationRatio(db + about, atm));
  const double across = box.y(saturationRatio(db, atm)) - y;
  const double slope = (high - low) / (box.x(db + about) - box.x(db - about));
  return std::abs(across) / std::hypot(1, slope) <= saturationReach;
}

}  // namespace

double PlotBox::x(double db) const {
  return left + (db - limits.lowDb) / (limits.highDb - limits.lowDb) * (right - left);
}

double PlotBox::y(double w) const {
  return bottom - (w - limits.lowHr) / (limits.highHr - limits.lowHr) * (bottom - top);
}

ChartCoordinates PlotBox::placeAt(double px, double py) const {
  return {limits.lowDb + (px - left) / (right - left) * (limits.highDb - limits.lowDb),
          limits.lowHr + (bottom - py) / (bottom - top) * (limits.highHr - limits.lowHr)};
}

PlotBox plotBox(const PlotArea& area) {
  return {area.limits, area.left() / twipsPerPixel, area.top() / twipsPerPixel, area.right() / twipsPerPixel,
          area.bottom() / twipsPerPixel};
}

Reading readingAt(const ChartLimits& limits, double atm, ChartCoordinates place) {
  Reading reading{place, std::nullopt};
  if (!limits.contain(place.db, place.w)) {
    reading.reason = NoReading::outsideLimits;
    return reading;
  }
  const Resolution resolution = resolved(place, atm);
  if (resolution.resolved()) {
    reading.state = resolution.point;
  } else if (place.w > saturationRatio(place.db, atm)) {
    reading.reason = NoReading::aboveSaturation;
  } else {
    reading.reason = NoReading::noAir;
  }
  return reading;
}

const char* wordsOf(NoReading reason) {
  switch (reason) {
    case NoReading::outsideLimits: return "Outside the limits";
    case NoReading::aboveSaturation: return "Above saturation";
    case NoReading::noAir: return "No state of air";
    case NoReading::none: break;
  }
  return "";
}

ChartCoordinates readPlace(ChartCoordinates place) {
  return {roundedTo(place.db, degreeDecimals), roundedTo(place.w, ratioDecimals)};
}

std::optional<ChartCoordinates> saturatedAt(double db, double atm) {
  constexpr int patience =
      10;  // the search for a wet bulb ends within a tolerance, here on either side of the dry bulb
  ChartCoordinates place{db, std::floor(saturationRatio(db, atm) * shownParts) / shownParts};
  for (int i = 0; i < patience && place.w > 0; ++i) {
    if (resolved(place, atm).resolved()) return place;
    place.w = roundedTo(place.w - 1 / shownParts, shownDecimals);
  }
  return std::nullopt;
}

std::optional<std::size_t> nearestTarget(const PlotBox& box, double x, double y,
                                         const std::vector<ChartCoordinates>& targets) {
  std::optional<std::size_t> found;
  double least = targetReach;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const double distance = std::hypot(box.x(targets[i].db) - x, box.y(targets[i].w) - y);
    if (distance <= least) {
      least = distance;
      found = i;
    }
  }
  return found;
}

Pointing pointedAt(const PlotBox& box, double atm, double x, double y, const std::vector<ChartCoordinates>& targets,
                   bool whole) {
  const ChartCoordinates place = box.placeAt(x, y);
  if (whole) return {{std::round(place.db), roundedTo(std::round(place.w / keyRatio) * keyRatio, ratioDecimals)}, {}};
  if (const auto target = nearestTarget(box, x, y, targets)) return {targets[*target], target};
  const ChartCoordinates read = readPlace(place);
  if (nearSaturation(box, atm, x, y)) {
    const auto saturated = saturatedAt(read.db, atm);
    if (saturated && box.limits.contain(saturated->db, saturated->w)) return {*saturated, {}};
  }
  return {read, {}};
}

std::optional<std::size_t> targetAt(const ChartCoordinates& place, const std::vector<ChartCoordinates>& targets) {
  const auto on = [&](const ChartCoordinates& target) {
    return std::abs(target.db - place.db) < 0.005 && std::abs(target.w - place.w) < 5e-06;  // half of what is read
  };
  const auto last = std::find_if(targets.rbegin(), targets.rend(), on);
  if (last == targets.rend()) return std::nullopt;
  return static_cast<std::size_t>(targets.rend() - last) - 1;
}

ChartCoordinates caughtBy(const std::vector<ChartCoordinates>& targets, const ChartCoordinates& place, bool tenths) {
  const double step = tenths ? 0.1 : 1;
  ChartCoordinates caught = place;
  double least = 0.5;  // of a step, in either direction
  for (const ChartCoordinates& target : targets) {
    const double away = std::max(std::abs(target.db - place.db), std::abs(target.w - place.w) / keyRatio) / step;
    if (away <= least) {
      least = away;
      caught = target;
    }
  }
  return caught;
}

ChartCoordinates stepped(const ChartLimits& limits, ChartCoordinates place, int degrees, int ratios, bool tenths) {
  const double part = tenths ? 0.1 : 1;
  const ChartCoordinates next = readPlace({place.db + degrees * part, place.w + ratios * keyRatio * part});
  return {degrees == 0 ? place.db : std::clamp(next.db, limits.lowDb, limits.highDb),
          ratios == 0 ? place.w : std::clamp(next.w, limits.lowHr, limits.highHr)};
}

std::vector<ChartCoordinates> wetBulbCurve(const ChartLimits& limits, double atm, const StatePoint& state) {
  constexpr int steps = 24;
  std::vector<ChartCoordinates> places;
  const double ps = pvsAt(state.wb);
  const double first = std::max(limits.lowDb, state.wb);
  for (int i = 0; i <= steps; ++i) {
    const double db = first + (limits.highDb - first) * i / steps;
    const double w = ratioOf(vaporPressureOf(db, state.wb, atm, ps), atm);
    if (!hasValue(w)) break;
    places.push_back({db, w});
    if (w < limits.lowHr) break;
  }
  return places;
}

std::vector<ChartCoordinates> humidityCurve(const ChartLimits& limits, double atm, const StatePoint& state) {
  constexpr int steps = 60;
  std::vector<ChartCoordinates> places;
  for (int i = 0; i <= steps; ++i) {
    const double db = limits.lowDb + (limits.highDb - limits.lowDb) * i / steps;
    const double pv = saturationNear(db).pvs * state.rh / 100;
    if (!(pv < atm)) break;
    places.push_back({db, ratioOf(pv, atm)});
    if (places.back().w > limits.highHr) break;
  }
  return places;
}

std::string readingText(PropertyKind kind, const StatePoint& state) {
  const bool given = kind == PropertyKind::db || kind == PropertyKind::w;
  return (given ? coordinateText : fixedDecimals)(state.at(kind), propertyOf(kind).decimals);
}

std::string dryBulbText(const ChartCoordinates& place) { return readingText(PropertyKind::db, stateOf(place)); }

std::string ratioText(const ChartCoordinates& place) { return readingText(PropertyKind::w, stateOf(place)); }

std::string readingDescription(const Reading& reading) {
  if (!reading.state) {
    const StatePoint place = stateOf(reading.place);
    return std::string(wordsOf(reading.reason)) + ": " + rowDescription(PropertyKind::db, place) + ", " +
           rowDescription(PropertyKind::w, place);
  }
  std::string text;
  for (const PropertyKind kind : shownOrder) text += (text.empty() ? "" : ", ") + rowDescription(kind, *reading.state);
  return text;
}

}  // namespace moistair
