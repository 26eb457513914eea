/// \file
/// Saturation pressures at hand: a table of psychro_pvs at every quarter of a degree.
///
/// A search spends its time on exponentials and logarithms. Where only the neighborhood of its end is wanted, a cubic
/// through two entries of the table does, and at the temperatures of the table itself the entry is the value.
#pragma once

#include <array>
#include <limits>

#include "engine/moistair.h"

namespace moistair {

struct SaturationTable {
  static constexpr double lowest = -20;   ///< [deg F]
  static constexpr double highest = 125;  ///< [deg F]
  static constexpr double perDegree = 4;
  static constexpr std::size_t size = static_cast<std::size_t>((highest - lowest) * perDegree) + 1;

  static constexpr std::size_t steps = static_cast<std::size_t>((32 - lowest) * perDegree) - 1;  ///< over the step

  struct Entry {
    double pvs;   ///< psychro_pvs to the last bit [in Hg]
    double rise;  ///< from the tangent here, over one step of the table [in Hg]
  };
  std::array<Entry, size> entries;

  SaturationTable();
};

/// Filled before main begins, and of no use before that.
extern const SaturationTable saturations;

/// psychro_pvs, the same to the last bit.
inline double pvsAt(double temp) {
  constexpr double last = SaturationTable::size - 1;
  const double place = (temp - SaturationTable::lowest) * SaturationTable::perDegree;
  if (!(place >= 0 && place <= last)) return psychro_pvs(temp);
  const auto index = static_cast<std::size_t>(place);
  const double nodeTemp = SaturationTable::lowest + static_cast<double>(index) / SaturationTable::perDegree;
  return nodeTemp == temp ? saturations.entries[index].pvs : psychro_pvs(temp);
}

/// Humidity ratio of saturated air [lb/lb]; infinite where water boils.
inline double saturationRatio(double db, double atm) {
  const double ps = pvsAt(db);
  return ps < atm ? ratioOf(ps, atm) : std::numeric_limits<double>::infinity();
}

/// The temperatures on either side of the step of the saturation pressure: the last over ice, the first over water.
struct FreezingStep {
  double before, after;
};
const FreezingStep& freezingStep();

/// A saturation pressure [in Hg], its slope and its curvature by the temperature in deg F.
struct Saturation {
  double pvs, slope, curvature;
};

/// Near psychro_pvs, within some 1e-10 of it. The cubic below the step at 32 deg F is carried on up to there.
/// @param temp within the table
inline Saturation saturationNear(double temp) {
  const double place = (temp - SaturationTable::lowest) * SaturationTable::perDegree;
  auto index = static_cast<std::size_t>(place);
  if (index == SaturationTable::steps) --index;
  const double s = place - static_cast<double>(index);
  const SaturationTable::Entry* at = &saturations.entries[index];
  const double difference = at[1].pvs - at[0].pvs;
  const double c = 3 * difference - 2 * at[0].rise - at[1].rise;
  const double d = at[0].rise + at[1].rise - 2 * difference;
  constexpr double perDegree = SaturationTable::perDegree;
  return {at[0].pvs + s * (at[0].rise + s * (c + s * d)), (at[0].rise + s * (2 * c + 3 * s * d)) * perDegree,
          (2 * c + 6 * s * d) * (perDegree * perDegree)};
}

}  // namespace moistair
