#include "engine/saturation.h"

namespace moistair {

SaturationTable::SaturationTable() {
  constexpr double reach = 0.01;
  double temp = lowest;
  for (Entry& entry : entries) {
    entry.pvs = psychro_pvs(temp);
    entry.rise = (psychro_pvs(temp + reach) - psychro_pvs(temp - reach)) / (2 * reach * perdegree);
    temp += 1 / perdegree;
  }
}

const SaturationTable saturations;

}  // namespace moistair
