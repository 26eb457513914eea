#include "engine/solvers.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "engine/moistair.h"

namespace moistair {

namespace {

double saturationenthalpy(double temp, double atm) { return psychro_h(temp, temp, atm); }

/// Up to here the saturation enthalpy rises: to where water boils, or to the end of the table. Further up it jumps to
/// below 0.
double hottestbelowboiling(double atm) {
  constexpr double end = 122;
  if (!(atm >= 0.1 && atm <= 200)) return -end;
  return atm < 4 ? std::min(saturationwindow(atm, 0).low - 0.01, end) : end;
}

/// About where the saturation enthalpy reaches h, by Newton's steps. It rises with
/// the temperature, also at its small step near 32 deg F, next to which the table is coarse.
Window crossingnear(double h, double atm, double hottest) {
  constexpr double coldest = SaturationTable::lowest + 1;
  constexpr int patience = 14;
  if (!(hottest > coldest && hasvalue(h))) return Window{-beyond, beyond};
  double temp = std::clamp(49 * std::log(std::max(h, 0.0) + 8) - 114.5, coldest, hottest);  // at sea level
  double step = temp;
  for (int i = 0; i < patience && std::abs(step) > 1e-04; ++i) {
    const Saturation near = saturationnear(temp);
    const double dry = atm - near.pvs;
    const double vapour = massratio * near.pvs;
    const double missing = dryAirHeat * temp - h;
    const double heat = vaporEnthalpy(temp);
    const double slope = dryAirHeat * dry - missing * near.slope + vaporHeat * vapour + heat * massratio * near.slope;
    step = (missing * dry + heat * vapour) / slope;
    temp = std::clamp(temp - step, coldest, hottest);
  }
  const double width = std::abs(temp - 32) < 0.5 ? 0.01 : 1e-07;
  const Window window{temp - width, temp + width};
  const bool certain = saturationenthalpy(window.low, atm) < h && saturationenthalpy(window.high, atm) >= h;
  return certain ? window : Window{-beyond, beyond};
}

}  // namespace

/// On the bracket 0 to 120 midpoints are binary fractions of the bracket, without rounding. The digits that both ends
/// of the window share are the halvings then: a 1 where x lies below the window, a 0 where it lies above. An iteration
/// is a halving by an f above the target or one by an f below it, or both in that order.
void halveoutside(Halving& at, const Window& window) {
  constexpr int digits = 44;
  if (at.low == 0 && at.high == 120 && window.high <= 0) {
    const double end = std::ldexp(120, -iterationlimit);
    at = {0, end, end / 2, iterationlimit, window.rises};
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
  double before = novalue;
  while (at.iterations < iterationlimit && at.x != before && (at.x <= window.low || at.x >= window.high)) {
    before = at.x;
    const bool right = at.x >= window.high;
    const bool above = right == window.rises;
    at.iterations += static_cast<int>(above) | static_cast<int>(!at.above);
    at.above = above;
    (right ? at.high : at.low) = at.x;
    at.x = (at.high + at.low) / 2;
  }
}

double leapdown(double temp, double stop) {
  constexpr double exact = 9007199254740992.0;
  return temp > stop && temp < exact ? temp - std::floor(temp - stop) : temp;
}

WetBulbWalk::WetBulbWalk(double h, double atm, Way way) : h_(h), atm_(atm) {
  if (way == Way::plain) return;
  hottest_ = hottestbelowboiling(atm);
  crossing_ = crossingnear(h, atm, hottest_);
}

bool WetBulbWalk::below(double temp) const {
  if (temp <= crossing_.low) return true;
  if (temp >= crossing_.high && temp <= hottest_) return false;
  return saturationenthalpy(temp, atm_) < h_;
}

/// Walks down from temp until the saturation enthalpy is below h. Returns the first such temperature, no value if the
/// walk reaches absolute zero or a temperature too large for the step to change it.
double WetBulbWalk::walkdown(double temp, double step) const {
  while (temp > absolutezero) {
    if (below(temp)) return temp;
    const double next = temp - step;
    if (next == temp) break;
    temp = next;
  }
  return novalue;
}

/// From 10000 deg F up the saturation pressure is below the smallest double and hs is 0.24 T exactly, so that no step
/// between there, or h / 0.24, and a higher dry bulb has an hs below h. Up to the hottest none above the crossing has.
double WetBulbWalk::operator()(double db) const {
  if (!hasvalue(db) || !hasvalue(h_) || !hasvalue(atm_)) return novalue;
  constexpr double dry = 10000;
  const bool told = db <= hottest_ - 1 && crossing_.high < hottest_;
  const double start =
      told ? leapdown(db, std::max(crossing_.high, 0.0)) : leapdown(db, std::max(dry, h_ / dryAirHeat) + 2);
  const double coarse = walkdown(start, 1) - 1;
  const double fine = walkdown(coarse + 2, 0.1) - 0.1;
  return valueof(fine + 0.1);
}

double psychro_wb(double db, double h, double atm, Way way) { return WetBulbWalk(h, atm, way)(db); }

double psychro_h1(double db, double rh, double atm, Way way) {
  const RhOfWb f(db, atm);
  const Bracket bracket{.tolerance = 1e-06};
  const SearchResult wb = bracketsearch(f, rh, bracket, liesbetween(f, rh), way);
  return wb.failed() ? novalue : psychro_h(db, wb.x, atm);
}

double dbwithrhandhr(double rh, double hr, double atm, Way way) {
  const SearchResult db = bracketsearch(WrhOfDb(rh, atm), hr, Bracket{}, rh <= 100 && rh >= 0, way);
  return db.failed() ? novalue : db.x;
}

SearchResult wbwithdbandhr(double db, double hr, double atm, Way way) {
  const WOfWb f(db, atm);
  return bracketsearch(f, hr, Bracket{}, liesbetween(f, hr), way);
}

SearchResult wbwithdbandspvol(double db, double v, double atm, Way way) {
  const VOfWb f(db, atm);
  return bracketsearch(f, v, Bracket{}, liesbetween(f, v), way);
}

NearResult wbofairwithdbandspvol(double db, double v, double atm, Way way) {
  const VOfWb f(db, atm);
  const Bracket bracket;
  if (!liesbetween(f, v)) return {{(bracket.low + bracket.high) / 2, 0}};
  if (way == Way::quick) {
    const Window window = f.window(v, bracket.tolerance);
    const double w = f.ratioat(v);
    const bool dry = w < -1e-05;
    const bool oversaturated = humidityof(atm * w / (massratio + w), pvsat(db)) > 100.5;
    if (hasvalue(window.low) && (dry || oversaturated)) return {{(window.low + window.high) / 2, 1}, true};
  }
  return {bracketsearch(f, v, bracket, true, way)};
}

double spvolwithdbandhr(double db, double hr, double atm, Way way) {
  const SearchResult wb = wbwithdbandhr(db, hr, atm, way);
  return wb.failed() ? novalue : psychro_v(db, wb.x, atm);
}

}  // namespace moistair
