#include "weather/bins.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace moistair {

namespace {

/// Sums of a bin.
struct BinSum {
  double hours = 0, wetHours = 0, wetBulbs = 0;
};

bool isOf(const LocalTime& time, int month, int shift) {
  return (month == 0 || time.month == month) && (shift < 0 || time.hour / 8 == shift);
}

double meanNear(std::span<const WeatherHour> hours, PropertyKind of, double value, PropertyKind mean) {
  constexpr double near = 1;  // [deg F]
  double sum = 0, weight = 0;
  for (const WeatherHour& hour : hours) {
    const double found = hour.state.at(mean);
    if (!(std::abs(hour.state.at(of) - value) <= near) || !hasValue(found)) continue;
    sum += found * hour.hours;
    weight += hour.hours;
  }
  return quotient(sum, weight);
}

}  // namespace

std::vector<Bin> binsOf(std::span<const WeatherHour> hours, double width) { return binsOf(hours, width, 0, -1); }

std::vector<Bin> binsOf(std::span<const WeatherHour> hours, double width, int month, int shift) {
  constexpr double widest = 200, mostBins = 10000;
  if (hours.empty() || !(width > 0) || width > widest) return {};
  const auto placeOf = [&](const WeatherHour& hour) { return std::floor(hour.state.db / width); };
  double lowest = placeOf(hours.front()), highest = lowest;
  for (const WeatherHour& hour : hours) {
    lowest = std::min(lowest, placeOf(hour));
    highest = std::max(highest, placeOf(hour));
  }
  if (!(highest - lowest < mostBins)) return {};
  std::vector<BinSum> sums(static_cast<std::size_t>(highest - lowest) + 1);
  for (const WeatherHour& hour : hours) {
    if (!isOf(hour.time, month, shift)) continue;
    BinSum& sum = sums[static_cast<std::size_t>(placeOf(hour) - lowest)];
    sum.hours += hour.hours;
    if (!hasValue(hour.state.wb)) continue;
    sum.wetHours += hour.hours;
    sum.wetBulbs += hour.state.wb * hour.hours;
  }
  std::vector<Bin> bins;
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const double place = lowest + static_cast<double>(i);
    bins.push_back({place * width, (place + 1) * width, sums[i].hours, quotient(sums[i].wetBulbs, sums[i].wetHours)});
  }
  return bins;
}

DegreeHours degreeHours(std::span<const WeatherHour> hours, double base) {
  DegreeHours sums{base};
  for (const WeatherHour& hour : hours) {
    const double above = hour.state.db - base;
    (above > 0 ? sums.cooling : sums.heating) += std::abs(above) * hour.hours;
  }
  return sums;
}

std::vector<Percentile> percentilesOf(std::span<const WeatherHour> hours) {
  constexpr double almostYear = 8000;
  const double total = totalHours(hours);
  if (!(total >= almostYear)) return {};
  std::vector<Percentile> found;
  struct Weighed {
    double value, hours;
  };
  for (const PropertyKind kind : {PropertyKind::db, PropertyKind::wb, PropertyKind::dp}) {
    std::vector<Weighed> values;
    for (const WeatherHour& hour : hours) {
      if (hasValue(hour.state.at(kind))) values.push_back({hour.state.at(kind), hour.hours});
    }
    std::sort(values.begin(), values.end(), [](const Weighed& a, const Weighed& b) { return a.value > b.value; });
    auto at = values.begin();
    double beyond = 0;
    for (const double percent : {0.4, 1.0, 2.0, 99.0, 99.6}) {
      if (percent > 50 && kind != PropertyKind::db) break;
      while (at != values.end() && beyond + at->hours <= total * percent / 100) beyond += (at++)->hours;
      if (at == values.end()) break;
      const PropertyKind other = kind == PropertyKind::db ? PropertyKind::wb : PropertyKind::db;
      found.push_back({kind, percent, at->value, meanNear(hours, kind, at->value, other)});
    }
  }
  return found;
}

std::vector<WeatherCell> cellsOf(std::span<const WeatherHour> hours, const VisibleRange& range, const CellSize& size) {
  std::map<std::pair<int, int>, double> sums;
  for (const WeatherHour& hour : hours) {
    if (!range.has(hour.state)) continue;
    const auto place = [](double value, double step) { return static_cast<int>(std::floor(value / step)); };
    sums[{place(hour.state.w, size.w), place(hour.state.db, size.db)}] += hour.hours;
  }
  std::vector<WeatherCell> cells;
  for (const auto& [place, sum] : sums) cells.push_back({place.second, place.first, sum});
  return cells;
}

}  // namespace moistair
