#include "engine/solvers.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "engine/moistair.h"

namespace moistair {

namespace {

double saturationEnthalpy(double temp, double atm) { return psychro_h(temp, temp, atm); }

/// Up to here the saturation enthalpy rises: to where water boils, or to the end of the table. Further up it jumps to
/// below 0.
double hottestBelowBoiling(double atm) {
  constexpr double end = 122;
  if (!(atm >= 0.1 && atm <= 200)) return -end;
  return atm < 4 ? std::min(saturationWindow(atm, 0).low - 0.01, end) : end;
}

/// About where the saturation enthalpy reaches h, by Newton's steps. It rises with
/// the temperature, also at its small step near 32 deg F, next to which the table is coarse.
Window crossingNear(double h, double atm, double hottest) {
  constexpr double coldest = SaturationTable::lowest + 1;
  constexpr int patience = 14;
  if (!(hottest > coldest && hasValue(h))) return Window{-beyond, beyond};
  double temp = std::clamp(49 * std::log(std::max(h, 0.0) + 8) - 114.5, coldest, hottest);  // at sea level
  double step = temp;
  for (int i = 0; i < patience && std::abs(step) > 1e-04; ++i) {
    const Saturation near = saturationNear(temp);
    const double dry = atm - near.pvs;
    const double vapor = massRatio * near.pvs;
    const double missing = dryAirHeat * temp - h;
    const double heat = vaporEnthalpy(temp);
    const double slope = dryAirHeat * dry - missing * near.slope + vaporHeat * vapor + heat * massRatio * near.slope;
    step = (missing * dry + heat * vapor) / slope;
    temp = std::clamp(temp - step, coldest, hottest);
  }
  const double width = std::abs(temp - 32) < 0.5 ? 0.01 : 1e-07;
  const Window window{temp - width, temp + width};
  const bool certain = saturationEnthalpy(window.low, atm) < h && saturationEnthalpy(window.high, atm) >= h;
  return certain ? window : Window{-beyond, beyond};
}

}  // namespace

/// On the bracket 0 to 120 midpoints are binary fractions of the bracket, without rounding. The digits that both ends
/// of the window share are the halvings then: a 1 where x lies below the window, a 0 where it lies above. An iteration
/// is a halving by an f above the target or one by an f below it, or both in that order.
void halveOutside(Halving& at, const Window& window) {
  constexpr int digits = 44;
  if (at.low == 0 && at.high == 120 && window.high <= 0) {
    const double end = std::ldexp(120, -iterationLimit);
    at = {0, end, end / 2, iterationLimit, window.rises};
  } else if (at.low == 0 && at.high == 120) {
    const auto fraction = [](double x) {
      return static_cast<std::int64_t>(std::clamp(x / 120, 0.0, 1 - 0x1p-44) * 0x1p44);
    };
    const std::int64_t low = fraction(window.low);
    const int halvings = std::countl_zero(static_cast<std::uint64_t>(low ^ fraction(window.high))) - (64 - digits);
    if (halvings == 0) return;
    const std::int64_t places = low >> (digits - halvings);
    const std::int64_t above = window.rises ? ~places & ((std::int64_t{1} << halvings) - 1) : places;
    const double scale = std::ldexp(120, -halvings);
    at = {static_cast<double>(places) * scale, static_cast<double>(places + 1) * scale, 0};
    at.x = (at.high + at.low) / 2;
    at.iterations = halvings - std::popcount(static_cast<std::uint64_t>((above >> 1) & ~above));
    at.above = (above & 1) != 0;
  }
  double before = noValue;
  while (at.iterations < iterationLimit && at.x != before && (at.x <= window.low || at.x >= window.high)) {
    before = at.x;
    const bool right = at.x >= window.high;
    const bool above = right == window.rises;
    at.iterations += static_cast<int>(above) | static_cast<int>(!at.above);
    at.above = above;
    (right ? at.high : at.low) = at.x;
    at.x = (at.high + at.low) / 2;
  }
}

double leapDown(double temp, double stop) {
  constexpr double exact = 9007199254740992.0;
  return temp > stop && temp < exact ? temp - std::floor(temp - stop) : temp;
}

WetBulbWalk::WetBulbWalk(double h, double atm, SearchMode mode) : h_(h), atm_(atm) {
  if (mode == SearchMode::reference) return;
  hottest_ = hottestBelowBoiling(atm);
  crossing_ = crossingNear(h, atm, hottest_);
}

bool WetBulbWalk::below(double temp) const {
  if (temp <= crossing_.low) return true;
  if (temp >= crossing_.high && temp <= hottest_) return false;
  return saturationEnthalpy(temp, atm_) < h_;
}

/// Walks down from temp until the saturation enthalpy is below h. Returns the first such temperature, no value if the
/// walk reaches absolute zero or a temperature too large for the step to change it.
double WetBulbWalk::walkDown(double temp, double step) const {
  while (temp > absoluteZero) {
    if (below(temp)) return temp;
    const double next = temp - step;
    if (next == temp) break;
    temp = next;
  }
  return noValue;
}

/// From 10000 deg F up the saturation pressure is below the smallest double and hs is 0.24 T exactly, so that no step
/// between there, or h / 0.24, and a higher dry bulb has an hs below h. Up to the hottest none above the crossing has.
double WetBulbWalk::operator()(double db) const {
  if (!hasValue(db) || !hasValue(h_) || !hasValue(atm_)) return noValue;
  constexpr double dry = 10000;
  const bool forecast = db <= hottest_ - 1 && crossing_.high < hottest_;
  const double start =
      forecast ? leapDown(db, std::max(crossing_.high, 0.0)) : leapDown(db, std::max(dry, h_ / dryAirHeat) + 2);
  const double coarse = walkDown(start, 1) - 1;
  const double fine = walkDown(coarse + 2, 0.1) - 0.1;
  return valueOf(fine + 0.1);
}

double psychro_wb(double db, double h, double atm, SearchMode mode) { return WetBulbWalk(h, atm, mode)(db); }

double psychro_h1(double db, double rh, double atm, SearchMode mode) {
  const RhOfWb f(db, atm);
  const Bracket bracket{.tolerance = 1e-06};
  const SearchResult wb = bracketSearch(f, rh, bracket, liesBetween(f, rh), mode);
  return wb.failed() ? noValue : psychro_h(db, wb.x, atm);
}

double dbWithRhAndHr(double rh, double w, double atm, SearchMode mode) {
  const SearchResult db = bracketSearch(WrhOfDb(rh, atm), w, Bracket{}, rh <= 100 && rh >= 0, mode);
  return db.failed() ? noValue : db.x;
}

SearchResult wbWithDbAndW(double db, double w, double atm, SearchMode mode) {
  const WOfWb f(db, atm);
  return bracketSearch(f, w, Bracket{}, liesBetween(f, w), mode);
}

SearchResult wbWithDbAndV(double db, double v, double atm, SearchMode mode) {
  const VOfWb f(db, atm);
  return bracketSearch(f, v, Bracket{}, liesBetween(f, v), mode);
}

NearResult wbOfAirWithDbAndV(double db, double v, double atm, SearchMode mode) {
  const VOfWb f(db, atm);
  const Bracket bracket;
  if (!liesBetween(f, v)) return {{(bracket.low + bracket.high) / 2, 0}};
  if (mode == SearchMode::accelerated) {
    const Window window = f.window(v, bracket.tolerance);
    const double w = f.ratioAt(v);
    const bool dry = w < -1e-05;
    const bool overSaturated = humidityOf(atm * w / (massRatio + w), pvsAt(db)) > 100.5;
    if (hasValue(window.low) && (dry || overSaturated)) return {{(window.low + window.high) / 2, 1}, true};
  }
  return {bracketSearch(f, v, bracket, true, mode)};
}

double spvolWithDbAndHr(double db, double w, double atm, SearchMode mode) {
  const SearchResult wb = wbWithDbAndW(db, w, atm, mode);
  return wb.failed() ? noValue : psychro_v(db, wb.x, atm);
}

}  // namespace moistair
