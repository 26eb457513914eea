#include "chart/reading.h"

#include <algorithm>
#include <cmath>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/saturation.h"

namespace moistair {

namespace {

constexpr double degreeparts = 100;    // a place is read to one of a degree,
constexpr double ratioparts = 100000;  // and to one of a humidity ratio of 1
constexpr double shownparts = 1e7;     // seven decimals
constexpr double keyratio = 0.0005;    // step of the cross hair
constexpr double targetreach = 7;      // pixels
constexpr double saturationreach = 5;  // pixels

double rounded(double value, double parts) { return std::round(value * parts) / parts; }

Resolution resolved(const Place& place, double atm) {
  SolverFields fields;
  return resolvepair({PropertyKind::db, place.db}, {PropertyKind::w, place.w}, atm, openrangefinders(), fields);
}

/// With the decimals of a reading if it has no more, else with all that a state has.
std::string coordinatetext(double value, int decimals) {
  constexpr int most = 7;
  const double parts = std::pow(10, decimals);
  const bool isshort = std::abs(rounded(value, parts) - value) < 0.5 / shownparts;
  return fixeddecimals(value, isshort ? decimals : most);
}

std::string spokenrow(const ReadingRow& row, const StatePoint& state) {
  return std::string(row.caption) + ' ' + readingtext(row, state) + ' ' + row.unit;
}

/// Whether a pointer is as good as on the saturation line: the line is taken as straight about there.
bool nearsaturation(const PlotBox& box, double atm, double x, double y) {
  constexpr double about = 0.5;  // deg F
  const double db = box.placeat(x, y).db;
  const double low = box.y(saturationratio(db - about, atm));
  const double high = box.y(saturationratio(db + about, atm));
  const double across = box.y(saturationratio(db, atm)) - y;
  const double slope = (high - low) / (box.x(db + about) - box.x(db - about));
  return std::abs(across) / std::hypot(1, slope) <= saturationreach;
}

}  // namespace

double PlotBox::x(double db) const {
  return left + (db - limits.lowdb) / (limits.highdb - limits.lowdb) * (right - left);
}

double PlotBox::y(double w) const {
  return bottom - (w - limits.lowhr) / (limits.highhr - limits.lowhr) * (bottom - top);
}

Place PlotBox::placeat(double px, double py) const {
  return {limits.lowdb + (px - left) / (right - left) * (limits.highdb - limits.lowdb),
          limits.lowhr + (bottom - py) / (bottom - top) * (limits.highhr - limits.lowhr)};
}

PlotBox plotbox(const PlotArea& area) {
  return {area.limits, area.left() / twipsperpixel, area.top() / twipsperpixel, area.right() / twipsperpixel,
          area.bottom() / twipsperpixel};
}

Reading readingat(const ChartLimits& limits, double atm, Place place) {
  Reading reading{place, std::nullopt, nullptr};
  if (!limits.contain(place.db, place.w)) {
    reading.reason = outsidelimits;
    return reading;
  }
  const Resolution resolution = resolved(place, atm);
  if (resolution.resolved()) {
    reading.state = resolution.point;
  } else if (place.w > saturationratio(place.db, atm)) {
    reading.reason = abovesaturation;
  } else {
    reading.reason = nostatehere;  // as where there is no moisture at all
  }
  return reading;
}

Place readplace(Place place) { return {rounded(place.db, degreeparts), rounded(place.w, ratioparts)}; }

std::optional<Place> saturatedat(double db, double atm) {
  constexpr int patience =
      10;  // the search for a wet bulb ends within a tolerance, here on either side of the dry bulb
  Place place{db, std::floor(saturationratio(db, atm) * shownparts) / shownparts};
  for (int i = 0; i < patience && place.w > 0; ++i) {
    if (resolved(place, atm).resolved()) return place;
    place.w = rounded(place.w - 1 / shownparts, shownparts);
  }
  return std::nullopt;
}

std::optional<std::size_t> nearesttarget(const PlotBox& box, double x, double y, const std::vector<Place>& targets) {
  std::optional<std::size_t> found;
  double least = targetreach;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const double distance = std::hypot(box.x(targets[i].db) - x, box.y(targets[i].w) - y);
    if (distance <= least) {
      least = distance;
      found = i;
    }
  }
  return found;
}

Pointing pointedat(const PlotBox& box, double atm, double x, double y, const std::vector<Place>& targets, bool whole) {
  const Place place = box.placeat(x, y);
  if (whole) return {{std::round(place.db), rounded(std::round(place.w / keyratio) * keyratio, ratioparts)}, {}};
  if (const auto target = nearesttarget(box, x, y, targets)) return {targets[*target], target};
  const Place read = readplace(place);
  if (nearsaturation(box, atm, x, y)) {
    const auto saturated = saturatedat(read.db, atm);
    if (saturated && box.limits.contain(saturated->db, saturated->w)) return {*saturated, {}};
  }
  return {read, {}};
}

std::optional<std::size_t> targetAt(const Place& place, const std::vector<Place>& targets) {
  const auto on = [&](const Place& target) {
    return std::abs(target.db - place.db) < 0.5 / degreeparts && std::abs(target.w - place.w) < 0.5 / ratioparts;
  };
  const auto last = std::find_if(targets.rbegin(), targets.rend(), on);
  if (last == targets.rend()) return std::nullopt;
  return static_cast<std::size_t>(targets.rend() - last) - 1;
}

Place caughtBy(const std::vector<Place>& targets, const Place& place, bool tenths) {
  const double step = tenths ? 0.1 : 1;
  Place caught = place;
  double least = 0.5;  // of a step, in either direction
  for (const Place& target : targets) {
    const double away = std::max(std::abs(target.db - place.db), std::abs(target.w - place.w) / keyratio) / step;
    if (away <= least) {
      least = away;
      caught = target;
    }
  }
  return caught;
}

Place stepped(const ChartLimits& limits, Place place, int degrees, int ratios, bool tenths) {
  const double part = tenths ? 0.1 : 1;
  const Place next = readplace({place.db + degrees * part, place.w + ratios * keyratio * part});
  return {degrees == 0 ? place.db : std::clamp(next.db, limits.lowdb, limits.highdb),
          ratios == 0 ? place.w : std::clamp(next.w, limits.lowhr, limits.highhr)};
}

std::vector<Place> wetbulbcurve(const ChartLimits& limits, double atm, const StatePoint& state) {
  constexpr int steps = 24;
  std::vector<Place> places;
  const double ps = pvsat(state.wb);
  const double first = std::max(limits.lowdb, state.wb);
  for (int i = 0; i <= steps; ++i) {
    const double db = first + (limits.highdb - first) * i / steps;
    const double w = ratioof(vaporpressureof(db, state.wb, atm, ps), atm);
    if (!hasvalue(w)) break;
    places.push_back({db, w});
    if (w < limits.lowhr) break;
  }
  return places;
}

std::vector<Place> humiditycurve(const ChartLimits& limits, double atm, const StatePoint& state) {
  constexpr int steps = 60;
  std::vector<Place> places;
  for (int i = 0; i <= steps; ++i) {
    const double db = limits.lowdb + (limits.highdb - limits.lowdb) * i / steps;
    const double pv = saturationnear(db).pvs * state.rh / 100;
    if (!(pv < atm)) break;
    places.push_back({db, ratioof(pv, atm)});
    if (places.back().w > limits.highhr) break;
  }
  return places;
}

const ReadingRow& rowof(double StatePoint::*value) {
  return *std::find_if(readingrows.begin(), readingrows.end(),
                       [&](const ReadingRow& row) { return row.value == value; });
}

std::string readingtext(const ReadingRow& row, const StatePoint& state) {
  const bool given = row.value == &StatePoint::db || row.value == &StatePoint::w;
  return given ? coordinatetext(state.*row.value, row.decimals) : fixeddecimals(state.*row.value, row.decimals);
}

std::string drybulbtext(const Place& place) {
  StatePoint state;
  state.db = place.db;
  return readingtext(rowof(&StatePoint::db), state);
}

std::string ratiotext(const Place& place) {
  StatePoint state;
  state.w = place.w;
  return readingtext(rowof(&StatePoint::w), state);
}

std::string spokenreading(const Reading& reading) {
  if (!reading.state) {
    StatePoint place;
    place.db = reading.place.db;
    place.w = reading.place.w;
    return std::string(reading.reason) + ": " + spokenrow(rowof(&StatePoint::db), place) + ", " +
           spokenrow(rowof(&StatePoint::w), place);
  }
  std::string text;
  for (const ReadingRow& row : readingrows) text += (text.empty() ? "" : ", ") + spokenrow(row, *reading.state);
  return text;
}

}  // namespace moistair
