#include "process/words.h"

#include <array>
#include <charconv>
#include <cmath>

namespace moistair {

std::string figure(double number) {
  std::array<char, 400> buffer;
  const bool large = std::abs(number) >= 1e5 && std::abs(number) < 1e15;
  const auto end =
      large ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed, 0)
            : std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::general, 5);
  return {buffer.data(), end.ptr};
}

std::string wordsOf(const Note& note, bool flowKnown) {
  const std::string first = figure(note.first);
  const std::string second = figure(note.second);
  const std::string pounds = flowKnown ? " lb/h" : " lb per lb of dry air";
  switch (note.code) {
    case NoteCode::off: return "off: not needed, the air passes unchanged";
    case NoteCode::dryCoil: return "dry: the coil stays above the dew point";
    case NoteCode::frostingCoil: return "apparatus dew point " + first + " deg F is below freezing: frost";
    case NoteCode::otherSolution: return "another solution leaves at " + first + " deg F with " + second + " lb/lb";
    case NoteCode::noApparatusDewPoint:
      return "no apparatus dew point: the straight line is above saturation from " + first + " to " + second + " deg F";
    case NoteCode::atFreezingStep: return "in the step of the saturation pressure at 32 deg F";
    case NoteCode::fog: return "fog: " + first + pounds + " leave as water at " + second + " deg F";
    case NoteCode::condensate: return "condensate: " + first + pounds + " at " + second + " deg F";
    case NoteCode::exhaustCondensate:
      return "condensate in the exhaust: " + first + pounds + " at " + second + " deg F";
    case NoteCode::frost: return "frost: " + first + pounds + " of it below 32 deg F, counted as liquid water";
    case NoteCode::wetBulbTerm:
      return "the wet-bulb equation leaves " + first + (flowKnown ? " Btu/h" : " Btu per lb of dry air") + " open" +
             (hasValue(note.second) ? " (" + second + " % of the enthalpy)" : "");
    case NoteCode::sprayWater: return "water: " + first + pounds + (flowKnown ? ", " + second + " gal/h" : "");
    case NoteCode::indirectWater:
      return "water evaporated on the other side: " + first + pounds + (flowKnown ? ", " + second + " gal/h" : "") +
             ", if all the heat goes into it";
    case NoteCode::idealized: return "idealized drying with heat factor " + first;
    case NoteCode::motorOutside: return "the motor gives " + first + " Btu/h off outside of the air";
  }
  return {};
}

std::vector<std::string> noteWords(const StepResult& result) {
  std::vector<std::string> all;
  for (const Note& note : result.notes) all.push_back(wordsOf(note, result.leaving.flowKnown()));
  return all;
}

std::string wordsOf(const StreamReadout& readout) {
  switch (readout.wetBulb) {
    case WetBulbRemark::twoExist:
      return "two wet bulbs near 32 deg F: over water, and " + figure(readout.wetBulbOverIce) + " over ice";
    case WetBulbRemark::noneExists: return "no wet bulb: the equations leave a gap near 32 deg F";
    default: return {};
  }
}

}  // namespace moistair
