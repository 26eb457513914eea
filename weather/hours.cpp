#include "weather/hours.h"

#include <algorithm>
#include <cmath>

#include "engine/exactsolutions.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "engine/wetbulbs.h"
#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/words.h"

namespace moistair {

namespace {

/// States of weather and of process air, far beyond a chart.
constexpr StateBounds weatherBounds = {{
    {PropertyKind::rh, {-1e-5, 100}},
    {PropertyKind::w, {-1e-12, 0.2}},
    {PropertyKind::db, {-120, 300}},
    {PropertyKind::wb, {-200, 300}},
    {PropertyKind::h, {-unbounded, unbounded}},
    {PropertyKind::v, {0, unbounded}},
}};

/// All properties of a dry bulb and a vapor pressure.
StatePoint stateOf(double db, double pv, double atm) {
  StatePoint state;
  state.db = db;
  state.pv = pv;
  state.w = ratioOf(pv, atm);
  state.rh = humidityOf(pv, pvsAt(db));
  state.h = enthalpyOf(db, state.w);
  state.v = volumeOf(volumeFactor(db), state.w, atm);
  state.dp = psychro_dp(pv);
  state.wb = wetBulbsOf(db, state.w, atm).shown();
  return state;
}

/// The vapor pressure of a dry bulb and another property; no value where there is none.
double vaporPressure(double db, const Given& other, double atm) {
  switch (other.kind) {
    case PropertyKind::rh: return std::min(other.value, 100.0) / 100 * pvsAt(db);
    case PropertyKind::dp: return pressureOfDewPoint(other.value);
    case PropertyKind::wb: return vaporPressureOf(db, other.value, atm, psychro_pvs(other.value));
    case PropertyKind::w: return pressureOfRatio(other.value, atm);
    case PropertyKind::h: return pressureOfRatio(ratioOfEnthalpy(db, other.value), atm);
    default: return noValue;
  }
}

/// Counts moisture above saturation, but for what rounding of temperatures with one decimal does.
void countAboveSaturation(const WeatherRow& row, Oddities& oddities) {
  constexpr double rounding = 0.05;  // [deg F]
  if (row.kinds[0] != PropertyKind::db || !(row.values[1] > row.values[0] + rounding)) return;
  const auto at = [&] { return timeWords(row.time); };
  if (row.kinds[1] == PropertyKind::dp) oddities.add(OddityKind::dewPointAbove, at);
  if (row.kinds[1] == PropertyKind::wb) oddities.add(OddityKind::wetBulbAbove, at);
}

void compareSite(const WeatherFile& file, double atm, Oddities& oddities) {
  constexpr double tolerance = 0.015;
  const double mean = meanPressure(file);
  if (!(std::abs(mean / atm - 1) > tolerance)) return;
  oddities.add(OddityKind::otherSite, [&] {
    return atMostDecimals(mean, 2) + " in Hg, " + atMostDecimals(std::abs(mean / atm - 1) * 100, 1) + "% " +
           (mean < atm ? "below" : "above") + " the chart's " + atMostDecimals(atm, 2);
  });
}

/// "6-9" or "7"
bool readSpan(std::string_view text, int& first, int& last) {
  const std::size_t dash = text.find('-');
  const double low = strictNumber(text.substr(0, dash));
  const double high = dash == std::string_view::npos ? low : strictNumber(text.substr(dash + 1));
  const auto isSmall = [](double number) { return number >= 0 && number <= 24 && number == std::floor(number); };
  if (!isSmall(low) || !isSmall(high)) return false;
  first = static_cast<int>(low);
  last = static_cast<int>(high);
  return true;
}

}  // namespace

StatePoint weatherState(const Given& first, const Given& second, double atm) {
  const StatePoint none{.db = noValue};
  if (first.kind != PropertyKind::db) {
    const bool above = second.kind == PropertyKind::rh && second.value > 100;
    if (above && first.kind == PropertyKind::wb) return weatherState({PropertyKind::db, first.value}, second, atm);
    const Given other{second.kind, above ? 100 : second.value};
    const ExactSolutions found = solutionsWithoutWetBulb(first, other, atm, weatherBounds);
    if (found.states.size() != 1) return none;
    return stateOf(found.states.front().db, pressureOfRatio(found.states.front().w, atm), atm);
  }
  const double db = first.value, saturated = pvsAt(db);
  if (!(saturated < atm)) return none;
  double pv = vaporPressure(db, second, atm);
  const bool temperature = second.kind == PropertyKind::dp || second.kind == PropertyKind::wb;
  if (temperature && (second.value >= db || pv > saturated)) pv = saturated;
  if (!(pv >= 0) || pv > saturated * (1 + 1e-9)) return none;
  return stateOf(db, std::min(pv, saturated), atm);
}

StatePoint stateOf(const DesignCondition& condition, double atm) {
  return weatherState({PropertyKind::db, condition.db}, condition.second.value_or(Given{PropertyKind::rh, 100}), atm);
}

bool HourFilter::accepts(const LocalTime& time) const {
  if ((months >> static_cast<unsigned>(time.month - 1) & 1U) == 0) return false;
  const bool within = time.hour >= fromHour && time.hour < toHour;
  return fromHour < toHour ? within : time.hour >= fromHour || time.hour < toHour;
}

Result<std::uint16_t> readMonths(std::string_view text) {
  unsigned months = 0;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    int first = 0, last = 0;
    const std::string_view part = trimmed(text.substr(begin, end - begin));
    if (!readSpan(part, first, last) || first < 1 || first > 12 || last < 1 || last > 12) {
      return Error{ErrorCode::unreadable, {}, inQuotes(part) + " is not a month or a range of months, such as 6-9"};
    }
    for (int month = first;; month = month % 12 + 1) {
      months |= 1U << static_cast<unsigned>(month - 1);
      if (month == last) break;
    }
    begin = end + 1;
  }
  return static_cast<std::uint16_t>(months);
}

Outcome readHourRange(std::string_view text, HourFilter& filter) {
  int first = 0, last = 0;
  if (text.find('-') == std::string_view::npos || !readSpan(trimmed(text), first, last) || first == last ||
      first > 23) {
    return Error{ErrorCode::unreadable, {}, inQuotes(text) + " is not a range of hours from 0 to 24, such as 8-17"};
  }
  filter.fromHour = first;
  filter.toHour = last;
  return {};
}

std::vector<WeatherHour> hoursOf(const WeatherFile& file, const HourOptions& options, Oddities& oddities) {
  std::vector<WeatherHour> hours;
  hours.reserve(options.filter.all() ? file.rows.size() : 0);
  if (!options.ownPressure) compareSite(file, options.atm, oddities);
  for (const WeatherRow& row : file.rows) {
    if (!options.filter.accepts(row.time)) continue;
    const double atm = options.ownPressure && hasValue(row.atm) ? row.atm : options.atm;
    const StatePoint state = weatherState({row.kinds[0], row.values[0]}, {row.kinds[1], row.values[1]}, atm);
    const auto at = [&] { return timeWords(row.time); };
    if (!hasValue(state.db)) {
      oddities.add(OddityKind::noState, at);
      continue;
    }
    countAboveSaturation(row, oddities);
    if (!hasValue(state.wb)) oddities.add(OddityKind::noWetBulb, at);
    hours.push_back({row.time, row.hours, atm, state});
  }
  return hours;
}

void countUnseen(std::span<const WeatherHour> hours, const VisibleRange& range, Oddities& oddities) {
  std::size_t cold = 0, beyond = 0;
  double coldHours = 0, beyondHours = 0;
  for (const WeatherHour& hour : hours) {
    if (range.has(hour.state)) continue;
    const bool below = hour.state.db < 0;
    ++(below ? cold : beyond);
    (below ? coldHours : beyondHours) += hour.hours;
  }
  const auto inWords = [](double number) { return [number] { return atMostDecimals(number, 1); }; };
  if (cold > 0) oddities.add(OddityKind::belowZero, inWords(coldHours), cold);
  if (beyond > 0) oddities.add(OddityKind::offChart, inWords(beyondHours), beyond);
}

double meanPressure(const WeatherFile& file) {
  double sum = 0;
  std::size_t count = 0;
  for (const WeatherRow& row : file.rows) {
    if (!hasValue(row.atm)) continue;
    sum += row.atm;
    ++count;
  }
  return count == 0 ? noValue : sum / static_cast<double>(count);
}

double hoursWith(std::span<const WeatherHour> hours, const StatePredicate& holds) {
  double total = 0;
  for (const WeatherHour& hour : hours) total += holds(hour.state) ? hour.hours : 0;
  return total;
}

double totalHours(std::span<const WeatherHour> hours) {
  return hoursWith(hours, [](const StatePoint&) { return true; });
}

}  // namespace moistair
