#include "process/units.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "text/numbertext.h"
#include "text/value.h"
#include "text/words.h"

namespace moistair {

namespace {

struct UnitRow {
  Quantity quantity;
  const char* name;
  double factor = 1;       ///< base units to the unit
  double offset = 0;       ///< the unit's zero [base units]
  const char* other = "";  ///< another name, not listed in messages
  double divisor = 1;      ///< 70 % is .7 to the last digit, and 70 times .01 is not
};

constexpr double kelvin = 1.8;
constexpr double btuhPerWatt = 3.412141633;
constexpr double hpPerKilowatt = 1.341022090;
constexpr double poundPerKilogram = 2.2046226218;
constexpr double cubicFootPerCubicMeter = 35.314666721;
constexpr double lbhPerGpm = 500;

/// The base unit of each quantity comes first. Factors: NIST Special Publication 811, appendix B; Btu of the
/// international table, inch of water at 4 deg C; a gallon of water a minute counts 500 lb/h, as results do.
constexpr UnitRow unitRows[] = {
    {Quantity::temperature, "F"},
    {Quantity::temperature, "C", kelvin, 32},
    {Quantity::temperature, "K", kelvin, -459.67},
    {Quantity::temperature, "R", 1, -459.67},
    {Quantity::temperatureRise, "F", 1, 0, "R"},
    {Quantity::temperatureRise, "C", kelvin},
    {Quantity::temperatureRise, "K", kelvin},
    {Quantity::percent, "%"},
    {Quantity::ratio, "lb/lb"},
    {Quantity::ratio, "gr/lb", 1, 0, "gr", 7000},
    {Quantity::ratio, "g/kg", 1, 0, "", 1000},
    {Quantity::ratio, "kg/kg"},
    {Quantity::enthalpy, "Btu/lb"},
    {Quantity::volume, "cuft/lb", 1, 0, "ft3/lb"},
    {Quantity::volume, "m3/kg", cubicFootPerCubicMeter / poundPerKilogram},
    {Quantity::airVolume, "cfm", 1, 0, "cuft/min"},
    {Quantity::airVolume, "L/s", cubicFootPerCubicMeter * .06},
    {Quantity::airVolume, "m3/h", cubicFootPerCubicMeter / 60},
    {Quantity::airVolume, "m3/s", cubicFootPerCubicMeter * 60},
    {Quantity::airMass, "lb/h", 1, 0, "lbh"},
    {Quantity::airMass, "lb/min", 60},
    {Quantity::airMass, "kg/h", poundPerKilogram},
    {Quantity::airMass, "kg/s", poundPerKilogram * 3600},
    {Quantity::waterMass, "lb/h", 1, 0, "lbh"},
    {Quantity::waterMass, "lb/min", 60},
    {Quantity::waterMass, "gpm", lbhPerGpm, 0, "gal/min"},
    {Quantity::waterMass, "gal/h", lbhPerGpm / 60, 0, "gph"},
    {Quantity::waterMass, "kg/h", poundPerKilogram},
    {Quantity::waterMass, "kg/s", poundPerKilogram * 3600},
    {Quantity::waterMass, "g/s", poundPerKilogram * 3.6},
    {Quantity::heat, "Btu/h", 1, 0, "Btuh"},
    {Quantity::heat, "tons", 12000, 0, "ton"},
    {Quantity::heat, "MBH", 1000, 0, "kBtu/h"},
    {Quantity::heat, "kW", 1000 * btuhPerWatt},
    {Quantity::heat, "W", btuhPerWatt},
    {Quantity::heat, "hp", 2544.43},
    {Quantity::fraction, "%", 1, 0, "", 100},
    {Quantity::fanPressure, "inwg", 1, 0, "in"},
    {Quantity::fanPressure, "Pa", 1 / 249.08891},
    {Quantity::fanPressure, "kPa", 1 / .24908891},
    {Quantity::fanPressure, "mmwg", 1 / 25.4},
    {Quantity::gaugePressure, "psi", 1, 0, "psig"},
    {Quantity::gaugePressure, "kPa", .14503773773},
    {Quantity::gaugePressure, "bar", 14.503773773},
    {Quantity::power, "hp", 1, 0, "bhp"},
    {Quantity::power, "kW", hpPerKilowatt},
    {Quantity::power, "W", hpPerKilowatt / 1000},
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// How much of the text is a number; an exponent counts only if it is complete.
std::size_t numberEnd(std::string_view text) {
  const auto digits = [&](std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
  };
  const auto sign = [&](std::size_t at) { return at + (at < text.size() && (text[at] == '-' || text[at] == '+')); };
  std::size_t end = digits(sign(0));
  if (end < text.size() && text[end] == '.') end = digits(end + 1);
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const std::size_t first = sign(end + 1);
    if (digits(first) > first) end = digits(first);
  }
  return end;
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

/// A unit in the letters of the table, as far as people write it otherwise.
std::string plainUnit(std::string_view typed) {
  std::string unit = lowercase(typed);
  replaceAll(unit, "\u00b0", "");
  replaceAll(unit, "\u00b3", "3");
  if (unit.starts_with("deg")) unit.erase(0, 3);
  return unit;
}

const UnitRow* unitNamed(std::string_view typed, Quantity quantity) {
  const std::string unit = plainUnit(typed);
  const auto named = [&](const UnitRow& row) {
    return row.quantity == quantity && (lowercase(row.name) == unit || lowercase(row.other) == unit);
  };
  const auto* const found = std::find_if(std::begin(unitRows), std::end(unitRows), named);
  return found == std::end(unitRows) ? nullptr : found;
}

Error unknownUnit(std::string_view text, std::string_view unit, Quantity quantity) {
  const std::string known = unitWords(quantity);
  if (known.empty()) {
    return {ErrorCode::unreadable, {}, inQuotes(text) + " is not a number; it takes no unit"};
  }
  ClosestWord closest(plainUnit(unit));
  for (const UnitRow& row : unitRows) {
    if (row.quantity == quantity) closest.offer(row.name);
  }
  return {ErrorCode::unreadable,
          {},
          "unknown unit " + inQuotes(unit) + " in " + inQuotes(text) + closest.question() + "; it takes " + known};
}

}  // namespace

Result<double> readValue(std::string_view text, Quantity quantity) {
  const std::size_t end = numberEnd(text);
  const double number = strictNumber(text.substr(0, end));
  if (!hasValue(number)) {
    return Error{ErrorCode::unreadable, {}, inQuotes(text) + " is not a number"};
  }
  if (end == text.size()) return number;
  const std::string_view unit = text.substr(end);
  const UnitRow* const row = unitNamed(unit, quantity);
  if (row == nullptr) return unknownUnit(text, unit, quantity);
  const double value = valueOf(number * row->factor / row->divisor + row->offset);
  if (!hasValue(value)) return Error{ErrorCode::outOfRange, {}, inQuotes(text) + " is too large"};
  return value;
}

std::string unitWords(Quantity quantity) {
  if (quantity == Quantity::fraction) return "no unit or %";
  std::string words;
  std::string_view last;
  for (const UnitRow& row : unitRows) {
    if (row.quantity != quantity) continue;
    if (!last.empty()) words += (words.empty() ? "" : ", ") + std::string(last);
    last = row.name;
  }
  if (!words.empty()) words += " or ";
  return words + std::string(last);
}

}  // namespace moistair
