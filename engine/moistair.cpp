#include "engine/moistair.h"

#include <cmath>

#include "engine/vaporterms.h"

namespace moistair {

namespace {

/// kPa to in Hg, as the standard atmosphere in both units.
constexpr double inhgOfKpa(double kilopascals) { return kilopascals * defaultPressure / 101.325; }

double lnPvsOverIce(double t) {
  return -5674.5359 / t - 0.51523058 - 0.009677843 * t + 6.2215701e-07 * (t * t) + 2.0747825e-09 * (t * t * t) -
         9.484024e-13 * (t * t * t * t) + 4.1635019 * std::log(t);
}

double lnPvsOverWater(double t) {
  return -5800.2206 / t - 5.516256 - 0.048640239 * t + 4.1764768e-05 * (t * t) - 1.4452093e-08 * (t * t * t) +
         6.5459673 * std::log(t);
}

double ln_slope_over_ice(double t) {
  return 5674.5359 / (t * t) - 0.009677843 + 2 * 6.2215701e-07 * t + 3 * 2.0747825e-09 * (t * t) -
         4 * 9.484024e-13 * (t * t * t) + 4.1635019 / t;
}

double ln_slope_over_water(double t) {
  return 5800.2206 / (t * t) - 0.048640239 + 2 * 4.1764768e-05 * t - 3 * 1.4452093e-08 * (t * t) + 6.5459673 / t;
}

}  // namespace

double log10(double number) {
  if (!(number > 0)) return noValue;
  return quotient(std::log(number), std::log(10.0));
}

double psychro_pvs(double temp) {
  const double kelvin = kelvinOf(temp);
  if (!(kelvin > 0)) return noValue;
  const double lnPvs = kelvin < icePoint ? lnPvsOverIce(kelvin) : lnPvsOverWater(kelvin);
  if (!hasValue(lnPvs)) return noValue;
  return valueOf(inhgOfKpa(std::exp(lnPvs)));
}

double lnSaturationSlope(double temp) {
  const double kelvin = kelvinOf(temp);
  if (!(kelvin > 0)) return noValue;
  return valueOf(kelvinsPerDegree * (kelvin < icePoint ? ln_slope_over_ice(kelvin) : ln_slope_over_water(kelvin)));
}

double psychro_pv1(double db, double wb, double atm) { return vaporPressureOf(db, wb, atm, psychro_pvs(wb)); }

double psychro_dp(double this_pv) {
  if (!(this_pv > 0)) return noValue;
  const double a = std::log(this_pv);
  return valueOf((this_pv < formsMeet ? frostPoint : waterPoint).at(a));
}

double psychro_w(double db, double wb, double atm) { return ratioOf(psychro_pv1(db, wb, atm), atm); }

double psychro_h(double db, double wb, double atm) { return enthalpyOf(db, psychro_w(db, wb, atm)); }

double psychro_rh(double db, double wb, double atm) { return humidityOf(psychro_pv1(db, wb, atm), psychro_pvs(db)); }

double psychro_v(double db, double wb, double atm) { return volumeOf(volumeFactor(db), psychro_w(db, wb, atm), atm); }

double psychro_wrh(double db, double rh, double atm) { return ratioOfRh(psychro_pvs(db), rh, atm); }

double psychro_atm(double elev) {
  const double psi = 14.696 * std::pow(1 - 6.8754e-06 * elev, 5.2559);
  return valueOf(psi * 2.03602);
}

}  // namespace moistair
