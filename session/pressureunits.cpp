#include "session/pressureunits.h"

#include "engine/moistair.h"
#include "engine/numbertext.h"
#include "engine/value.h"

namespace moistair {

namespace {

/// The two factors are rounded each for itself and are not inverses to the last digit.
constexpr double psiperinhg = 0.4911541;
constexpr double inhgperpsi = 2.036021;

enum Unit { standard, inhg, psi, elevation };

std::optional<std::string> textof(double number) {
  if (!hasvalue(number)) return std::nullopt;
  return numbertext(number);
}

}  // namespace

PressureReadouts pressurereadouts(int unit, std::string_view entry, PressureReadouts readouts) {
  switch (unit) {
    case standard:
    case inhg:
      readouts.inhg = entry;
      readouts.psi = numbertext(lenientnumber(entry) * psiperinhg);
      break;
    case psi:
      readouts.inhg = numbertext(strictnumber(entry) * inhgperpsi);
      if (!entry.empty()) readouts.psi = entry;
      break;
    case elevation: {
      NumberText pressure;
      pressure.set(psychro_atm(lenientnumber(entry)));
      readouts.inhg = pressure.text();
      readouts.psi = numbertext(pressure.strict() * psiperinhg);
      readouts.feet = entry;
      break;
    }
    default: break;
  }
  return readouts;
}

PressureSetting pressurefor(int unit, std::string_view entry) {
  if (unit < 0 || unit >= static_cast<int>(pressureunits.size())) return {};
  const double number = lenientnumber(entry);
  const PressureUnit& row = pressureunits[static_cast<std::size_t>(unit)];
  PressureSetting setting;
  setting.accepted = number >= row.low && number <= row.high;
  switch (unit) {
    case standard: setting.inhg = defaultpressuretext; break;
    case inhg: setting.inhg = entry; break;
    case psi: setting.inhg = textof(number * inhgperpsi); break;
    case elevation: setting.inhg = textof(psychro_atm(number)); break;
    default: break;
  }
  return setting;
}

}  // namespace moistair
