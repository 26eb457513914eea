#include "weather/designconditions.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/words.h"
#include "weather/calendar.h"
#include "weather/fields.h"

namespace moistair {

namespace {

/// The values of a keyword, up to the next one; none where the keyword is missing.
struct KeywordValues {
  bool found = false;
  std::vector<double> values;  ///< no value for a blank
};

bool isKeyword(std::string_view field) {
  const std::string word = lowercase(field);
  return word == "heating" || word == "cooling" || word == "extremes";
}

KeywordValues valuesOf(const std::vector<std::string_view>& fields, std::string_view keyword) {
  KeywordValues found;
  auto field = std::find_if(fields.begin(), fields.end(), [&](auto word) { return lowercase(word) == keyword; });
  if (field == fields.end()) return found;
  found.found = true;
  for (++field; field != fields.end() && !isKeyword(*field); ++field) found.values.push_back(strictNumber(*field));
  while (!found.values.empty() && !hasValue(found.values.back())) found.values.pop_back();
  return found;
}

/// Three rare values of falling height, each with what it comes with `stride` places on.
struct Block {
  std::size_t start;
  std::size_t stride;   ///< from one value to the next
  std::size_t partner;  ///< from a value to what it comes with
};

bool falls(const std::vector<double>& values, const Block& block) {
  const auto at = [&](std::size_t i) { return values[block.start + i * block.stride]; };
  return block.start + 2 * block.stride + block.partner < values.size() && at(0) >= at(1) && at(1) >= at(2);
}

/// Whether partners lie below (dry bulbs and their wet bulbs) or above (wet bulbs, dew points and their dry bulbs).
bool partnersBelow(const std::vector<double>& values, const Block& block, bool below) {
  for (std::size_t i = 0; i < 3; ++i) {
    const double value = values[block.start + i * block.stride];
    const double partner = values[block.start + i * block.stride + block.partner];
    if (!(below ? partner <= value : partner >= value)) return false;
  }
  return true;
}

constexpr std::array<double, 3> coolingPercents = {0.4, 1, 2};

/// Enthalpy of the tables [kJ/kg, 0 at 0 deg C] in the program's scale, which has dry air at 0 deg F as 0.
double enthalpyOfTable(double kilojoules) { return kilojoules / 2.326 + dryAirHeat * 32; }

std::string countWords(const char* keyword, const std::vector<double>& values) {
  return std::string(keyword) + " with " + std::to_string(values.size()) + " values";
}

struct Reader {
  const std::string& source;
  std::vector<DesignCondition>& found;
  std::string unknown{};  ///< keywords whose values are in no known order

  void add(DesignBasis basis, double percent, double db, std::optional<Given> second) const {
    found.push_back({basis, percent, 0, fahrenheit(db), second, source});
  }

  void addBlock(const std::vector<double>& values, const Block& block, DesignBasis basis) const {
    for (std::size_t i = 0; i < 3; ++i) {
      const double value = values[block.start + i * block.stride];
      const double partner = values[block.start + i * block.stride + block.partner];
      switch (basis) {
        case DesignBasis::coolingDryBulb:
          add(basis, coolingPercents[i], value, Given{PropertyKind::wb, fahrenheit(partner)});
          break;
        case DesignBasis::wetBulb:
          add(basis, coolingPercents[i], partner, Given{PropertyKind::wb, fahrenheit(value)});
          break;
        case DesignBasis::dewPoint:
          add(basis, coolingPercents[i], partner, Given{PropertyKind::dp, fahrenheit(value)});
          break;
        default: add(basis, coolingPercents[i], partner, Given{PropertyKind::h, enthalpyOfTable(value)}); break;
      }
    }
  }
};

/// Where the dry bulbs begin behind "Cooling": after the hottest month and the daily range, after the range alone, or
/// at once, as in the tables of 2001.
std::optional<std::size_t> coolingStart(const std::vector<double>& values) {
  for (const std::size_t start : {2U, 0U, 1U}) {
    const Block dryBulbs{start, 2, 1};
    const Block wetBulbs{start + 6, 2, 1};
    if (falls(values, dryBulbs) && partnersBelow(values, dryBulbs, true) && falls(values, wetBulbs) &&
        partnersBelow(values, wetBulbs, false)) {
      return start;
    }
  }
  return std::nullopt;
}

void readCooling(const std::vector<double>& values, Reader& reader, Oddities& oddities) {
  const auto start = coolingStart(values);
  if (!start) {
    reader.unknown += (reader.unknown.empty() ? "" : ", ") + countWords("Cooling", values);
    return;
  }
  reader.addBlock(values, {*start, 2, 1}, DesignBasis::coolingDryBulb);
  reader.addBlock(values, {*start + 6, 2, 1}, DesignBasis::wetBulb);
  // The wind with the 0.4 % dry bulb comes first, but not in the tables of 2001.
  for (const std::size_t wind : {2U, 0U}) {
    const Block dewPoints{*start + 12 + wind, 3, 2};
    if (!falls(values, dewPoints) || !partnersBelow(values, dewPoints, false)) continue;
    reader.addBlock(values, dewPoints, DesignBasis::dewPoint);
    const Block enthalpies{dewPoints.start + 9, 2, 1};
    const bool heat = falls(values, enthalpies) && partnersBelow(values, enthalpies, true);
    if (heat) reader.addBlock(values, enthalpies, DesignBasis::enthalpy);
    return;
  }
  oddities.add(OddityKind::designOutOfOrder, [] { return std::string("dew points"); });
}

void readHeating(const std::vector<double>& values, Reader& reader, Oddities& oddities) {
  // The coldest month comes first, a whole number from 1 to 12, but not in the tables of 2001, with fewer values.
  const bool month = values.size() >= 15 && values[0] >= 1 && values[0] <= 12 && std::floor(values[0]) == values[0];
  const std::size_t start = month ? 1 : 0;
  if (values.size() < start + 2 || !(values[start] <= values[start + 1])) {
    reader.unknown = countWords("Heating", values);
    return;
  }
  reader.add(DesignBasis::heatingDryBulb, 99.6, values[start], std::nullopt);
  reader.add(DesignBasis::heatingDryBulb, 99, values[start + 1], std::nullopt);
  if (!month) return;
  for (const std::size_t i : {3U, 6U}) {
    const bool order = values[i] <= values[i + 2];
    if (order) {
      reader.add(DesignBasis::humidificationDewPoint, i == 3 ? 99.6 : 99, values[i + 2],
                 Given{PropertyKind::dp, fahrenheit(values[i])});
    } else {
      oddities.add(OddityKind::designOutOfOrder, [] { return std::string("dew points of humidification"); });
    }
  }
}

}  // namespace

std::string nameOf(const DesignCondition& condition) {
  static constexpr std::array names = {"heating DB", "humidification DP",   "cooling DB",
                                       "cooling WB", "dehumidification DP", "cooling enthalpy"};
  std::string name = names[static_cast<std::size_t>(condition.basis)];
  if (condition.month > 0) name = std::string(monthNames[condition.month - 1]) + " " + name;
  return name + " " + atMostDecimals(condition.percent, 1) + "%";
}

std::vector<DesignCondition> designOfHeader(const std::vector<std::string_view>& fields, Oddities& oddities) {
  std::vector<DesignCondition> found;
  const KeywordValues heating = valuesOf(fields, "heating");
  const KeywordValues cooling = valuesOf(fields, "cooling");
  if (!heating.found && !cooling.found) {
    const bool announced = fields.size() > 1 && strictNumber(fields[1]) > 0;
    if (announced) {
      oddities.add(OddityKind::unknownDesignLayout, [] { return std::string("neither Heating nor Cooling is named"); });
    } else {
      oddities.add(OddityKind::noDesignData);
    }
    return found;
  }
  const std::string source = fields.size() > 2 && !isKeyword(fields[2]) ? shownField(fields[2]) : std::string();
  Reader reader{source, found};
  if (heating.found) readHeating(heating.values, reader, oddities);
  if (cooling.found) readCooling(cooling.values, reader, oddities);
  if (!reader.unknown.empty()) oddities.add(OddityKind::unknownDesignLayout, [&] { return reader.unknown; });
  return found;
}

}  // namespace moistair
