#include "engine/pressureunits.h"

#include <cmath>

#include "engine/moistair.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Rounded for itself: it and `psiPerInhg` are not inverses to the last digit.
constexpr double inhgPerPsi = 2.036021;

bool accepts(const PressureUnitRow& row, double number) { return number >= row.low && number <= row.high; }

std::optional<std::string> textOf(double number) {
  if (!hasValue(number)) return std::nullopt;
  return numberText(number);
}

}  // namespace

double inhgOfInhg(double number) { return number; }
double inhgOfPsi(double number) { return number * inhgPerPsi; }
double inhgOfElevation(double number) { return psychro_atm(number); }

std::optional<PressureUnit> pressureUnitAt(int index) {
  if (index < 0 || index >= static_cast<int>(pressureUnits.size())) return std::nullopt;
  return static_cast<PressureUnit>(index);
}

std::string inhgWords(double atm) {
  constexpr std::size_t longest = 8;
  const std::string text = numberText(atm);
  return (text.size() <= longest ? text : fixedDecimals(atm, 3)) + " in Hg";
}

std::string entryWords(const Pressure& pressure) {
  const std::string number = numberText(lenientNumber(pressure.entry.text));
  if (pressure.entry.unit == PressureUnit::psi) return number + " psi";
  if (pressure.entry.unit == PressureUnit::elevation) return number + " ft";
  return inhgWords(pressure.atm);
}

bool samePressure(double one, double other) { return fifteenDigits(one) == fifteenDigits(other); }

std::string pressureCaption(const PressureEntry& entry) { return entry.unit ? rowOf(*entry.unit).caption : ""; }

std::string pressureShown(const PressureEntry& entry) {
  return lenientNumber(entry.text) == -1 ? std::string() : entry.text;
}

std::string headerLine(const PressureEntry& entry) {
  if (!entry.unit) return {};
  const PressureUnitRow& row = rowOf(*entry.unit);
  return row.headerWord + entry.text + " " + row.headerUnit;
}

std::string startHeaderLine(double atmPressure) {
  return headerLine({PressureUnit::standard, printedNumber(atmPressure)});
}

PressureReadouts pressureReadouts(const PressureEntry& entry, PressureReadouts readouts) {
  if (!entry.unit) return readouts;
  switch (*entry.unit) {
    case PressureUnit::standard:
    case PressureUnit::inhg:
      readouts.inhg = entry.text;
      readouts.psi = numberText(lenientNumber(entry.text) * psiPerInhg);
      break;
    case PressureUnit::psi:
      readouts.inhg = numberText(inhgOfPsi(strictNumber(entry.text)));
      if (!entry.text.empty()) readouts.psi = entry.text;
      break;
    case PressureUnit::elevation: {
      NumberText pressure;
      pressure.set(psychro_atm(lenientNumber(entry.text)));
      readouts.inhg = pressure.text();
      readouts.psi = numberText(pressure.strict() * psiPerInhg);
      readouts.feet = entry.text;
      break;
    }
  }
  return readouts;
}

PressureSetting pressureFor(const PressureEntry& entry) {
  if (!entry.unit) return {};
  const double number = lenientNumber(entry.text);
  const PressureUnitRow& row = rowOf(*entry.unit);
  switch (*entry.unit) {
    case PressureUnit::standard: return {defaultPressureText, true};
    case PressureUnit::inhg: return {entry.text, accepts(row, number)};
    case PressureUnit::psi:
    case PressureUnit::elevation: break;
  }
  return {textOf(row.inhg(number)), accepts(row, number)};
}

bool isOfEntry(const Pressure& pressure) {
  constexpr double slack = 1e-12;  // another machine's library may differ in the last bits
  const auto [inhg, accepted] = pressureFor(pressure.entry);
  const double entered = inhg ? lenientNumber(*inhg) : defaultPressure;
  const auto same = [&](double atm) { return std::abs(pressure.atm - atm) <= slack * std::abs(atm); };
  return accepted && (same(entered) || same(defaultPressure));
}

std::optional<double> pressureOf(PressureUnit unit, double number) {
  const PressureUnitRow& row = rowOf(unit);
  if (!accepts(row, number)) return std::nullopt;
  return fifteenDigits(row.inhg(number));
}

}  // namespace moistair
