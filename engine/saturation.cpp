#include "engine/saturation.h"

#include <cmath>

#include "engine/vaporterms.h"

namespace moistair {

SaturationTable::SaturationTable() {
  constexpr double reach = 0.01;
  double temp = lowest;
  for (Entry& entry : entries) {
    entry.pvs = psychro_pvs(temp);
    const double change = temp == 32  // the step lies a hair below it
                              ? 4 * psychro_pvs(temp + reach) - psychro_pvs(temp + 2 * reach) - 3 * entry.pvs
                              : psychro_pvs(temp + reach) - psychro_pvs(temp - reach);
    entry.rise = change / (2 * reach * perDegree);
    temp += 1 / perDegree;
  }
}

const SaturationTable saturations;

const FreezingStep& freezingStep() {
  static const FreezingStep step = [] {
    FreezingStep found{31.99, iceWetBulb};
    while (std::nextafter(found.before, found.after) < found.after) {
      const double middle = found.before + (found.after - found.before) / 2;
      (kelvinOf(middle) < icePoint ? found.before : found.after) = middle;
    }
    return found;
  }();
  return step;
}

}  // namespace moistair
