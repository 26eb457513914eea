#include "engine/pressureunits.h"

#include <cmath>

#include "engine/moistair.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Rounded for itself: it and `psiperinhg` are not inverses to the last digit.
constexpr double inhgperpsi = 2.036021;

bool accepts(const PressureUnitRow& row, double number) { return number >= row.low && number <= row.high; }

std::optional<std::string> textof(double number) {
  if (!hasvalue(number)) return std::nullopt;
  return numbertext(number);
}

}  // namespace

double inhgofinhg(double number) { return number; }
double inhgofpsi(double number) { return number * inhgperpsi; }
double inhgofelevation(double number) { return psychro_atm(number); }

std::optional<PressureUnit> pressureunitat(int index) {
  if (index < 0 || index >= static_cast<int>(pressureunits.size())) return std::nullopt;
  return static_cast<PressureUnit>(index);
}

std::string inhgwords(double atm) {
  constexpr std::size_t longest = 8;
  const std::string text = numbertext(atm);
  return (text.size() <= longest ? text : fixeddecimals(atm, 3)) + " in Hg";
}

std::string entrywords(const Pressure& pressure) {
  const std::string number = numbertext(lenientnumber(pressure.entry.text));
  if (pressure.entry.unit == PressureUnit::psi) return number + " psi";
  if (pressure.entry.unit == PressureUnit::elevation) return number + " ft";
  return inhgwords(pressure.atm);
}

bool samepressure(double one, double other) { return fifteendigits(one) == fifteendigits(other); }

std::string pressurecaption(const PressureEntry& entry) { return entry.unit ? rowof(*entry.unit).caption : ""; }

std::string pressureshown(const PressureEntry& entry) {
  return lenientnumber(entry.text) == -1 ? std::string() : entry.text;
}

std::string headerline(const PressureEntry& entry) {
  if (!entry.unit) return {};
  const PressureUnitRow& row = rowof(*entry.unit);
  return row.headerword + entry.text + " " + row.headerunit;
}

std::string startheaderline(double atmpressure) {
  return headerline({PressureUnit::standard, printednumber(atmpressure)});
}

PressureReadouts pressurereadouts(const PressureEntry& entry, PressureReadouts readouts) {
  if (!entry.unit) return readouts;
  switch (*entry.unit) {
    case PressureUnit::standard:
    case PressureUnit::inhg:
      readouts.inhg = entry.text;
      readouts.psi = numbertext(lenientnumber(entry.text) * psiperinhg);
      break;
    case PressureUnit::psi:
      readouts.inhg = numbertext(inhgofpsi(strictnumber(entry.text)));
      if (!entry.text.empty()) readouts.psi = entry.text;
      break;
    case PressureUnit::elevation: {
      NumberText pressure;
      pressure.set(psychro_atm(lenientnumber(entry.text)));
      readouts.inhg = pressure.text();
      readouts.psi = numbertext(pressure.strict() * psiperinhg);
      readouts.feet = entry.text;
      break;
    }
  }
  return readouts;
}

PressureSetting pressurefor(const PressureEntry& entry) {
  if (!entry.unit) return {};
  const double number = lenientnumber(entry.text);
  const PressureUnitRow& row = rowof(*entry.unit);
  switch (*entry.unit) {
    case PressureUnit::standard: return {defaultpressuretext, true};
    case PressureUnit::inhg: return {entry.text, accepts(row, number)};
    case PressureUnit::psi:
    case PressureUnit::elevation: break;
  }
  return {textof(row.inhg(number)), accepts(row, number)};
}

bool isofentry(const Pressure& pressure) {
  constexpr double slack = 1e-12;  // another machine's library may differ in the last bits
  const auto [inhg, accepted] = pressurefor(pressure.entry);
  const double entered = inhg ? lenientnumber(*inhg) : defaultpressure;
  const auto same = [&](double atm) { return std::abs(pressure.atm - atm) <= slack * std::abs(atm); };
  return accepted && (same(entered) || same(defaultpressure));
}

std::optional<double> pressureof(PressureUnit unit, double number) {
  const PressureUnitRow& row = rowof(unit);
  if (!accepts(row, number)) return std::nullopt;
  return fifteendigits(row.inhg(number));
}

}  // namespace moistair
