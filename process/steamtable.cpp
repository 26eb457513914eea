#include "process/steamtable.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "engine/crossing.h"
#include "engine/moistair.h"

namespace moistair {

namespace {

struct Entry {
  double temp, enthalpy;
};

constexpr Entry entries[] = {
    {32, 1075.4},  {40, 1078.9},  {50, 1083.3},  {60, 1087.7},  {70, 1092.0},  {80, 1096.4},  {90, 1100.7},
    {100, 1105.0}, {110, 1109.3}, {120, 1113.5}, {130, 1117.8}, {140, 1121.9}, {150, 1126.1}, {160, 1130.1},
    {170, 1134.2}, {180, 1138.2}, {190, 1142.1}, {200, 1145.9}, {212, 1150.5}, {220, 1153.5}, {230, 1157.1},
    {240, 1160.7}, {250, 1164.2}, {260, 1167.6}, {270, 1170.9}, {280, 1174.1}, {290, 1177.2}, {300, 1180.2},
    {310, 1183.0}, {320, 1185.8}, {330, 1188.4}, {340, 1190.8}, {350, 1193.1},
};

}  // namespace

double steamEnthalpy(double temp) {
  if (!(temp >= lowestSteam && temp <= highestSteam)) return noValue;
  const Entry* above = std::upper_bound(std::begin(entries), std::end(entries) - 1, temp,
                                        [](double value, const Entry& entry) { return value < entry.temp; });
  const Entry& below = above[-1];
  return below.enthalpy + (above->enthalpy - below.enthalpy) * (temp - below.temp) / (above->temp - below.temp);
}

double steamTemperature(double pressure) {
  const auto excess = [&](double temp) { return psychro_pvs(temp) - pressure; };
  const double low = excess(lowestSteam);
  const double high = excess(highestSteam);
  return low <= 0 && high >= 0 ? crossing(excess, lowestSteam, low, highestSteam, high) : noValue;
}

}  // namespace moistair
