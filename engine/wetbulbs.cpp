#include "engine/wetbulbs.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/saturation.h"

namespace moistair {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

/// Newton's steps from x until they no longer change it; `step` gives the next one. The functions below are convex or
/// concave, so the steps come in from one side; the count is for values beyond all measure.
template <class Step>
double newton(double x, double low, double high, const Step& step) {
  for (int count = 0; count < 60; ++count) {
    const double next = std::clamp(x - step(x), low, high);
    const double change = std::abs(next - x);
    x = next;
    if (!(change > 1e-13 * (1 + std::abs(x)))) break;
  }
  return x;
}

}  // namespace

double temperatureOfSaturation(double pvs) {
  const auto& [before, after] = freezingStep();
  static const double ice = psychro_pvs(before);
  static const double water = psychro_pvs(after);
  if (!(pvs > 0) || !hasValue(pvs)) return noValue;
  if (pvs >= ice && pvs < water) return before;
  constexpr double coldest = -400;
  const bool overWater = pvs >= water;
  const double target = std::log(pvs);
  const double guess = target < -10 ? -100 : psychro_dp(pvs);
  const double low = overWater ? after : coldest;
  const double high = overWater ? 1000 : before;
  return newton(std::clamp(guess, low, high), low, high,
                [&](double x) { return (std::log(psychro_pvs(x)) - target) / lnSaturationSlope(x); });
}

double saturationSlopeOf(double db, double atm) {
  const double ps = psychro_pvs(db);
  return ps < atm ? massRatio * atm / ((atm - ps) * (atm - ps)) * ps * lnSaturationSlope(db) : infinite;
}

namespace {

/// The balance over water is 1093.049 (ws - w) = (0.24 + 0.441 w)(t - x), convex in the wet bulb x.
double wetBulbOverWater(double db, double ratio, double atm) {
  const double low = std::nextafter(iceWetBulb, infinite);
  if (!(db >= low)) return noValue;
  const double capacity = dryAirHeat + balanceVaporHeat * ratio;
  const auto excess = [&](double x) { return balanceHeat * (saturationRatio(x, atm) - ratio) - capacity * (db - x); };
  // Far from boiling the saturated ratio is finite and Newton's steps are short.
  const double high = psychro_pvs(db) < atm / 2 ? db : temperatureOfSaturation(atm / 2);
  if (!(low < high) || !(excess(low) <= 0) || !(excess(high) >= -1e-12)) return noValue;
  return newton(high, low, high,
                [&](double x) { return excess(x) / (balanceHeat * saturationSlopeOf(x, atm) + capacity); });
}

/// Over ice the saturation pressure less a multiple of the depression is the vapor pressure.
double wetBulbOverIce(double db, double ratio, double atm) {
  const auto& [before, after] = freezingStep();
  const double pv = pressureOfRatio(ratio, atm);
  const auto excess = [&](double x) { return vaporPressureOf(db, x, atm, psychro_pvs(x)) - pv; };
  const auto step = [&](double x) {
    return excess(x) / (psychro_pvs(x) * lnSaturationSlope(x) + psychrometerTerm * atm / degreesPerKelvin);
  };
  const double top = std::min(db, iceWetBulb);
  if (top >= after && excess(after) <= 0) return excess(top) >= -1e-15 ? newton(top, after, top, step) : noValue;
  const double high = std::min(db, before);
  return excess(high) >= -1e-15 ? newton(high, -400, high, step) : noValue;
}

}  // namespace

WetBulbs wetBulbsOf(double db, double w, double atm) {
  return {wetBulbOverIce(db, w, atm), wetBulbOverWater(db, w, atm)};
}

}  // namespace moistair
