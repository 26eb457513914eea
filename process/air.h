/// \file
/// What the processes need to know of moist air, and nothing else.
///
/// A state is a dry bulb and a humidity ratio at the pressure of the site; all else follows from these two. The
/// properties come through one table of functions, `AirModel`, so that another model of moist air can be put in.
/// `programAir` is the program's own: the equations of engine/moistair.h, in closed form or solved to the last digits
/// of a double. Saturation (fog, condensation, frost, the apparatus dew point) goes by the saturation pressure; the dew
/// point as a given or shown value is the correlation.
///
/// Units are those of engine/moistair.h: deg F, percent, lb/lb, Btu/lb and cu ft/lb of dry air, in Hg. Where there is
/// no value a function returns NaN (text/value.h).
#pragma once

#include <array>

#include "engine/moistair.h"
#include "engine/state.h"
#include "engine/wetbulbs.h"
#include "text/error.h"

namespace moistair {

/// The range of a state, on the chart or not: winter design days, gas heaters, desiccants. Limits included.
inline constexpr double lowestDryBulb = -60, highestDryBulb = 300;
inline constexpr double highestRatio = 0.1;

struct AirState {
  double db = noValue;  ///< dry bulb [deg F]
  double w = noValue;   ///< humidity ratio [lb/lb]

  bool operator==(const AirState&) const = default;
};

/// Whether a humidity ratio is above that of saturated air by more than rounding.
inline bool aboveSaturation(double w, double saturated) { return w > saturated * (1 + 1e-10); }

/// A model of moist air. The enthalpy is to be linear in the humidity ratio (perfect gases), the saturated humidity
/// ratio convex in the temperature but for one step, at `freezing`.
struct AirModel {
  double (*enthalpy)(double db, double w);
  double (*vaporEnthalpy)(double db);  ///< what one more lb of vapor adds to the enthalpy [Btu/lb]
  double (*dryBulbOfEnthalpy)(double h, double w);
  double (*volume)(double db, double w, double atm);
  double (*relativeHumidity)(double db, double w, double atm);
  double (*ratioOfHumidity)(double db, double rh, double atm);   ///< infinite where it would take more than all the air
  double (*dryBulbOfHumidity)(double rh, double w, double atm);  ///< no value for dry air and in the step at freezing
  /// Humidity ratio of saturated air; infinite where water boils.
  double (*saturationRatio)(double db, double atm);
  double (*saturationSlope)(double db, double atm);  ///< of saturationRatio by the dry bulb [1/deg F]
  /// Dry bulb at which air of this humidity ratio is saturated; within the step at freezing, the temperature of the
  /// step. No value for dry air.
  double (*saturationTemperature)(double w, double atm);
  double (*dewPoint)(double w, double atm);          ///< the correlation; no value for dry air
  double (*ratioOfDewPoint)(double dp, double atm);  ///< no value in the gap of the correlation near 32 deg F
  WetBulbs (*wetBulbs)(double db, double w, double atm);
  double (*ratioOfWetBulb)(double db, double wb, double atm);  ///< along a wet bulb; below 0 where no air is dry enough
  /// The one state of two properties, within the range above; an error where there is none, or two (both listed).
  Result<AirState> (*stateOf)(Given first, Given second, double atm);
  double freezing;  ///< the last temperature below the step of the saturated humidity ratio [deg F]
};

extern const AirModel programAir;

/// Where the processes take place.
struct Site {
  double atm = defaultPressure;  ///< [in Hg]
  const AirModel* air = &programAir;

  double enthalpy(const AirState& state) const { return air->enthalpy(state.db, state.w); }
  double volume(const AirState& state) const { return air->volume(state.db, state.w, atm); }
  double relativeHumidity(const AirState& state) const { return air->relativeHumidity(state.db, state.w, atm); }
  double saturationRatio(double db) const { return air->saturationRatio(db, atm); }
  double saturationTemperature(double w) const { return air->saturationTemperature(w, atm); }
};

/// Enthalpy of liquid water [Btu/lb], in the scale of the air's: 0 at 32 deg F. Also for water below freezing.
inline double waterEnthalpy(double temp) { return temp - 32; }

/// A value times a flow of `lbh` lb/h is one of Btu/h, lb/h; volumes are per minute.
inline double dryFlowOfAcfm(double acfm, double volume) { return quotient(acfm * 60, volume); }
inline double acfmOfDryFlow(double lbh, double volume) { return lbh * volume / 60; }
inline constexpr double lbhPerScfm = 4.5;  ///< standard air: 0.075 lb of dry air per cu ft

}  // namespace moistair
