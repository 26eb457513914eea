#include "process/coilline.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/crossing.h"

namespace moistair {

namespace {

/// The line less the saturation curve.
struct Excess {
  AirState start;
  double slope;
  const Site& site;

  Excess(const AirState& entering, const AirState& leaving, const Site& where)
      : start(leaving), slope((entering.w - leaving.w) / (entering.db - leaving.db)), site(where) {}

  double ratioAt(double temp) const { return start.w + slope * (temp - start.db); }
  double at(double temp) const { return ratioAt(temp) - site.saturationRatio(temp); }
  double slopeAt(double temp) const { return slope - site.air->saturationSlope(temp, site.atm); }
};

/// The first root from `from` on toward `to`, both on one side of the step; f(from) is below 0. No value if there is
/// none.
double firstRoot(const Excess& line, double from, double to) {
  const double direction = to < from ? -1 : 1;
  double x = from;
  for (int count = 0; count < 200; ++count) {
    const double f = line.at(x);
    if (f >= 0) return x;
    const double step = -f / line.slopeAt(x);
    if (!(step * direction > 0)) return noValue;  // the line turns away
    const double next = x + step;
    if ((to - next) * direction < 0) return line.at(to) >= 0 ? to : noValue;
    if (!(std::abs(step) > 1e-13 * (1 + std::abs(x)))) return next;
    x = next;
  }
  return x;
}

double warmSide(const Site& site) {
  return std::nextafter(site.air->freezing, std::numeric_limits<double>::infinity());
}

/// firstRoot over both sides of the step.
double firstMeeting(const Excess& line, double from, double to) {
  const double before = line.site.air->freezing;
  const double after = warmSide(line.site);
  const bool down = to < from;
  const double nearSide = down ? after : before;
  const double farSide = down ? before : after;
  const bool crosses = down ? from >= after && to <= before : from <= before && to >= after;
  if (!crosses) return firstRoot(line, from, to);
  const double first = firstRoot(line, from, nearSide);
  if (hasValue(first)) return first;
  return line.at(farSide) >= 0 ? before : firstRoot(line, farSide, to);
}

/// Whether a state is saturated, but for rounding.
bool saturated(const AirState& state, const Site& site) {
  return state.w >= site.saturationRatio(state.db) * (1 - 1e-12);
}

}  // namespace

double apparatusDewPoint(const AirState& entering, const AirState& leaving, const Site& site) {
  if (saturated(leaving, site)) return leaving.db;
  return firstMeeting(Excess(entering, leaving, site), leaving.db, lowestDryBulb);
}

Passage passageThroughFog(const AirState& entering, const AirState& leaving, const Site& site) {
  const Excess line(entering, leaving, site);
  const double cold = saturated(leaving, site) ? leaving.db : firstMeeting(line, leaving.db, entering.db);
  const double warm = saturated(entering, site) ? entering.db : firstMeeting(line, entering.db, leaving.db);
  return hasValue(cold) && hasValue(warm) && warm > cold ? Passage{warm, cold} : Passage{};
}

AirState touchingPoint(const AirState& entering, const Site& site) {
  const double dewPoint = site.saturationTemperature(entering.w);
  const auto steepness = [&](double temp) { return (entering.w - site.saturationRatio(temp)) / (entering.db - temp); };
  // Falls with the temperature; 0 where the line touches.
  const auto shortOfTouching = [&](double temp) {
    return entering.w - site.saturationRatio(temp) - site.air->saturationSlope(temp, site.atm) * (entering.db - temp);
  };
  const auto touchWithin = [&](double low, double high) {
    const double atLow = shortOfTouching(low);
    const double atHigh = shortOfTouching(high);
    if (atLow <= 0) return low;
    return atHigh >= 0 ? high : crossing(shortOfTouching, low, atLow, high, atHigh);
  };
  const double before = site.air->freezing;
  double best = touchWithin(lowestDryBulb, std::min(before, dewPoint));
  if (dewPoint > warmSide(site)) {
    const double warm = touchWithin(warmSide(site), dewPoint);
    if (steepness(warm) >= steepness(best)) best = warm;
  }
  return {best, site.saturationRatio(best)};
}

}  // namespace moistair
