#include "engine/solvers.h"

#include <algorithm>

#include "engine/moistair.h"

namespace moistair {

namespace {

double saturationenthalpy(double temp, double atm) { return psychro_h(temp, temp, atm); }

/// Walks down from temp until the saturation enthalpy is below h. Returns the first such temperature, no value if the
/// walk reaches absolute zero or a temperature too large for the step to change it.
double walkdown(double temp, double step, double h, double atm) {
  while (temp > absolutezero) {
    if (saturationenthalpy(temp, atm) < h) return temp;
    const double next = temp - step;
    if (next == temp) break;
    temp = next;
  }
  return novalue;
}

}  // namespace

double leapdown(double temp, double stop) {
  constexpr double exact = 9007199254740992.0;
  return temp > stop && temp < exact ? temp - std::floor(temp - stop) : temp;
}

/// From 10000 deg F up the saturation pressure is below the smallest double and hs is 0.24 T exactly, so that no step
/// between there, or h / 0.24, and a higher dry bulb has an hs below h.
double psychro_wb(double db, double h, double atm) {
  if (!hasvalue(db) || !hasvalue(h) || !hasvalue(atm)) return novalue;
  constexpr double dry = 10000;
  const double coarse = walkdown(leapdown(db, std::max(dry, h / 0.24) + 2), 1, h, atm) - 1;
  const double fine = walkdown(coarse + 2, 0.1, h, atm) - 0.1;
  return valueof(fine + 0.1);
}

double psychro_h1(double db, double rh, double atm) {
  const auto f = [&](double wb) { return psychro_rh(db, wb, atm); };
  const Bracket bracket{.tolerance = 1e-06};
  const SearchResult wb = bracketsearch(f, rh, bracket, liesbetween(f, rh));
  return wb.failed() ? novalue : psychro_h(db, wb.x, atm);
}

double dbwithrhandhr(double rh, double hr, double atm) {
  const auto f = [&](double db) { return psychro_wrh(db, rh, atm); };
  const SearchResult db = bracketsearch(f, hr, Bracket{}, rh <= 100 && rh >= 0);
  return db.failed() ? novalue : db.x;
}

SearchResult wbwithdbandhr(double db, double hr, double atm) {
  const auto f = [&](double wb) { return psychro_w(db, wb, atm); };
  return bracketsearch(f, hr, Bracket{}, liesbetween(f, hr));
}

SearchResult wbwithdbandspvol(double db, double v, double atm) {
  const auto f = [&](double wb) { return psychro_v(db, wb, atm); };
  return bracketsearch(f, v, Bracket{}, liesbetween(f, v));
}

double spvolwithdbandhr(double db, double hr, double atm) {
  const SearchResult wb = wbwithdbandhr(db, hr, atm);
  return wb.failed() ? novalue : psychro_v(db, wb.x, atm);
}

}  // namespace moistair
