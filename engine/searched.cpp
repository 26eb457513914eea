#include "engine/searched.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/vaporterms.h"

namespace moistair {

namespace {

/// How far from its root, in tolerances, a window ends: far enough to be clear of the tolerance.
constexpr double reach = 1.2;

/// Below the first, steam at 120 deg F is near to boiling; above the second lies no place on earth.
bool ordinary(double atm) { return atm >= 4 && atm <= 200; }

bool wellBehaved(const PvOfDb& pv) { return ordinary(pv.atm) && pv.wb >= 0 && pv.wb <= 120; }

/// Holds the step of the saturation pressure below 32 deg F, so that nothing in it is straight.
bool holdsStep(const Window& window) { return window.low < 32 && window.high > 31.999; }

Window about(double root, double halfWidth, bool rises = true) {
  return {root - std::abs(halfWidth), root + std::abs(halfWidth), rises};
}

/// One step toward a root from a function's value, slope and curvature, good to the third order (Halley's).
double thirdOrder(double value, double slope, double curvature) {
  const double newton = value / slope;
  return newton * (1 + newton * curvature / (2 * slope));
}

/// Steps toward a root. No value if they do not come to rest.
/// @param step what leads from a place to the next, subtracted
/// @param rest a step that is short enough to be the last
template <class Step>
double rootNear(double x, double low, double high, const Step& step, double rest = 0.01) {
  constexpr int patience = 14;
  for (int i = 0; i < patience && x >= low && x <= high; ++i) {
    const double dx = step(x);
    x = std::clamp(x - dx, low, high);
    if (std::abs(dx) < rest) return x;
  }
  return noValue;
}

/// Root of a function of the dry bulb that is nearly straight and cheap, by secants from 0 and 120 deg F.
template <class F>
Window straightWindow(const F& f, double target, double tolerance) {
  constexpr int patience = 8;
  double x0 = 0, x1 = 120;
  double y0 = f(x0) - target, y1 = f(x1) - target;
  const bool rises = y1 > y0;
  if (y0 * y1 > 0) return (y0 > 0) == rises ? Window{-beyond, -beyond, rises} : Window{beyond, beyond, rises};
  for (int i = 0; i < patience; ++i) {
    const double slope = (y1 - y0) / (x1 - x0);
    x0 = std::exchange(x1, x1 - y1 / slope);
    y0 = std::exchange(y1, f(x1) - target);
    if (std::abs(y1) < tolerance / 8) return about(x1, reach * tolerance / slope, rises);
  }
  return {};
}

constexpr double lowest = SaturationTable::lowest + 1;
constexpr double highest = SaturationTable::highest - 1;

double dewPointNear(double pv) { return std::clamp(psychro_dp(std::max(pv, 1e-03)), lowest, highest); }

/// Wet bulb at which pv = ps - slope (db - wb), the balance over ice.
double wetBulbOverIce(double db, double pv, double slope, double start) {
  return rootNear(std::min(start, 32.0), lowest, 32, [&](double wb) {
    const Saturation near = saturationNear(wb);
    return thirdOrder(near.pvs - slope * (db - wb) - pv, near.slope + slope, near.curvature);
  });
}

/// Wet bulb at which (ws - w) d = c (db - wb), the balance over water of psychro_pv1, multiplied by atm - ps.
Window wetBulbOverWater(double db, double atm, double pv, double tolerance, double start) {
  const double w = massRatio * pv / (atm - pv);
  double halfWidth = 0;
  const double wb = rootNear(std::clamp(start, 32.0, highest), 32, highest, [&](double x) {
    const Saturation near = saturationNear(x);
    const double depression = db - x;
    const double dry = atm - near.pvs;
    const double missing = massRatio * near.pvs - w * dry;
    const double c = dryAirHeat * dry + balanceVaporHeat * massRatio * near.pvs;
    const double d = balanceHeat + balanceVaporHeat * depression;
    const double weight = (massRatio + w) * d - (balanceVaporHeat * massRatio - dryAirHeat) * depression;
    const double slope = near.slope * weight + c - balanceVaporHeat * missing;
    const double curvature = near.curvature * weight - 2 * near.slope * (dryAirHeat + balanceVaporHeat * w);
    halfWidth = dry * d / slope;
    return thirdOrder(missing * d - c * depression, slope, curvature);
  });
  return about(wb, reach * tolerance * (massRatio + w) * halfWidth / (atm - pv));
}

}  // namespace

/// psychro_pv1 rises with the wet bulb on either side of 32 deg F and steps down there if the dry bulb is above it. So
/// a root on one side counts if the other side begins beyond the target. Up to 0.3 degrees from the step a probe could
/// reach across.
Window wetBulbWindow(double db, double atm, double pv, double tolerance) {
  constexpr double step = 32;
  constexpr double clear = 0.3;
  if (!(atm >= 0.1 && atm <= 200 && db >= -10 && db <= highest && hasValue(pv) && pv != atm)) return {};
  const double slope = psychrometerTerm * atm / degreesPerKelvin;
  const double dp = dewPointNear(pv);
  const double rise = saturationNear(dp).slope;
  const double start = (slope * db + rise * dp) / (slope + rise);
  if (pv < pvsAt(step) - slope * (db - step)) {
    const double above = vaporPressureOf(db, step + 1e-12, atm, pvsAt(step));
    const double wb = wetBulbOverIce(db, pv, slope, start);
    if (!(wb < step - clear && above > pv + 2 * tolerance)) return {};
    return about(wb, reach * tolerance / (saturationNear(wb).slope + slope));
  }
  if (!(pv > pvsAt(step) - slope * (db - step) + 2 * tolerance)) return {};
  const Window window = wetBulbOverWater(db, atm, pv, tolerance, start);
  if (window.low > step + clear) return window;
  const bool outOfReach = pv > vaporPressureOf(db, highest, atm, pvsAt(highest));
  return outOfReach ? Window{beyond, beyond} : Window{};
}

/// Both branches rise above 1e-06 in Hg and leave a gap between them, at which a search for a dew point in the gap
/// ends.
Window vaporPressureWindow(double dp, double tolerance) {
  static const double before = std::nextafter(formsMeet, 0.0);
  const DewPointGap& gap = dewPointGap();
  if (!(dp > -60 && dp < 150)) return {};
  const bool lower = dp < gap.before - 2 * tolerance;
  const bool upper = dp > gap.after + 2 * tolerance;
  if (!lower && !upper) return {before, formsMeet};
  const DewPointForm& form = lower ? frostPoint : waterPoint;
  const double a = form.of(dp);
  const double pv = std::exp(a);
  return about(pv, reach * tolerance * pv / (form.linear + 2 * form.square * a));
}

Window saturationWindow(double ps, double tolerance) {
  if (ps > pvsAt(highest)) return {beyond, beyond};
  const double db = rootNear(dewPointNear(ps), lowest, highest, [&](double temp) {
    const Saturation near = saturationNear(temp);
    return thirdOrder(near.pvs - ps, near.slope, near.curvature);
  });
  if (!hasValue(db)) return {};
  const Window window = about(db, reach * tolerance / saturationNear(db).slope);
  return holdsStep(window) ? Window{} : window;
}

Window PvOfDb::window(double value, double tolerance) const {
  if (!wellBehaved(*this)) return {};
  return straightWindow(*this, value, tolerance);
}

Window WOfDb::window(double value, double tolerance) const {
  if (!wellBehaved(pv)) return {};
  return straightWindow(*this, value, tolerance);
}

/// The heat that dry air brings in a little outweighs the vapor that it costs.
Window VOfDb::window(double v, double tolerance) const {
  if (!wellBehaved(w.pv)) return {};
  return straightWindow(*this, v, tolerance);
}

/// Enthalpy hardly changes along a wet bulb. Over water its second derivative by the dry bulb keeps one sign, so that
/// it is monotonic if its slopes at both ends agree. Over ice it rises, at pressures that are not too low.
Window HOfDb::window(double h, double tolerance) const {
  constexpr double probe = 0.01;
  constexpr double noise = 1e-09;
  if (!wellBehaved(w.pv)) return {};
  if (w.pv.wb > 32) {
    const double atLow = (*this)(probe) - (*this)(0);
    const double atHigh = (*this)(120 + probe) - (*this)(120);
    const bool monotonic = (atLow > noise && atHigh > noise) || (atLow < -noise && atHigh < -noise);
    if (!monotonic) return {};
  } else if (w.pv.atm < 10) {
    return {};
  }
  return straightWindow(*this, h, tolerance);
}

/// It falls as long as there is vapor, and where there is none it is below any target above 0.
Window RhOfDb::window(double rh, double tolerance) const {
  if (!(wellBehaved(pv) && rh > 2 * tolerance)) return {};
  const double share = rh / 100;
  const double fall = (pv.ps - pv(pv.wb + 40)) / 40;
  const double wet = std::log(100 / rh) / 0.034;  // where the air held all the vapor that it has at the wet bulb
  const double dry = (1 - share) * pv.ps / fall;  // where air held as much as at the wet bulb
  const double start = std::clamp(pv.wb + (rh < 100 ? wet * dry / (wet + dry) : 0), lowest, highest);
  const double slope = (pv(start + 1) - pv(start - 1)) / 2;
  double halfWidth = 0;
  const auto step = [&](double x) {
    const Saturation near = saturationNear(x);
    halfWidth = near.pvs / (100 * (slope - share * near.slope));
    return thirdOrder(pv(x) - share * near.pvs, slope - share * near.slope, -share * near.curvature);
  };
  const double db = rootNear(start, lowest, highest, step, 1e-06);
  const Window window = about(db, reach * tolerance * halfWidth, false);
  if (hasValue(db)) return holdsStep(window) ? Window{} : window;
  return pv(highest) > share * pvsAt(highest) ? Window{beyond, beyond, false} : Window{};
}

Window WrhOfDb::window(double w, double tolerance) const {
  if (!(ordinary(atm) && rh > 0 && rh <= 100 && w > 0)) return {};
  const double ps = atm * w / (massRatio + w) * (100 / rh);
  return saturationWindow(ps, tolerance * ps * massRatio / (w * (massRatio + w)));
}

}  // namespace moistair
