#include "cli/chartentries.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/mixoptions.h"
#include "cli/properties.h"
#include "model/pointreport.h"
#include "text/utf8.h"

namespace moistair {

namespace {

template <LineKind kind>
Entry lineEntry(const Setting& setting, WindowSize, const std::string& value, const ExactOptions&) {
  numberOf(value, "value");
  return {setting, PropertyLine{kind, value}};
}

/// Takes "id" out of what a point is given by; none is empty.
std::string takeIdentification(std::vector<TypedValue>& assignments) {
  const auto isId = [](const TypedValue& assignment) { return assignment.name == "id"; };
  const auto id = std::find_if(assignments.begin(), assignments.end(), isId);
  if (id == assignments.end()) return {};
  std::string text = std::move(id->text);
  assignments.erase(id);
  if (!isUtf8(text)) throw badUsage("id must be text in UTF-8");
  return text;
}

/// Takes the word "exact" out of the parts of a point.
bool takeExact(std::string& value) {
  std::string rest;
  bool exact = false;
  for (const std::string_view part : splitAt(value, ',')) {
    if (lowercase(part) == "exact") {
      exact = true;
    } else {
      rest += (rest.empty() ? "" : ",") + std::string(part);
    }
  }
  if (exact) value = rest;
  return exact;
}

Entry pointEntry(const Setting& setting, WindowSize window, const std::string& value, const ExactOptions& options) {
  std::string parts = value;
  MarkedPoint point;
  point.exact = takeExact(parts) || options.exact;
  std::vector<TypedValue> assignments = assignmentsOf(parts);
  point.identification = takeIdentification(assignments);
  const GivenPair pair = pairOf(assignments);
  const PairOfGiven given{pair.first, pair.second};
  const double atm = setting.pressure.atm;
  Resolution resolution = resolve(pair, atm, findersOf(plotArea(setting.limits, window)));
  if (point.exact) resolution = exactResolution("--point " + value, given, atm, resolution);
  if (!resolution.resolved()) throw failure(whyNot(given, atm, resolution));
  point.given = {{{pair.first.kind, assignments[0].text}, {pair.second.kind, assignments[1].text}}};
  point.state = readReport(fillReport(resolution.point, point.identification, setting.pressure.entry));
  return {setting, point};
}

Entry mixtureEntry(const Setting& setting, WindowSize, const std::string& value, const ExactOptions& options) {
  const auto streams = splitAt(value, ';');
  if (streams.size() != 2) throw badUsage("a mixture takes two streams with a semicolon between them");
  const MixingProblem problem =
      solvedMixing(std::string(streams[0]), std::string(streams[1]), setting.pressure, options.exact);
  return {setting, MixingLine{{problem.streams[0], problem.streams[1], problem.mixed}}};
}

constexpr const char* lineOutside = "the line is either out of chart limits or is not feasible";
constexpr const char* pointOutside = "the point is out of chart limits";

}  // namespace

const std::array<EntryOption, 6> entryOptions = {{
    {"--rh", "PERCENT", "line of constant relative humidity", lineEntry<LineKind::relativeHumidity>, lineOutside},
    {"--wb", "DEGF", "line of constant wet bulb", lineEntry<LineKind::wetBulb>, lineOutside},
    {"--h", "BTU/LB", "line of constant enthalpy", lineEntry<LineKind::enthalpy>, lineOutside},
    {"--v", "CUF/LB", "line of constant specific volume", lineEntry<LineKind::specificVolume>, lineOutside},
    {"--point", "KIND=VALUE,KIND=VALUE,id=TEXT,exact",
     "a point, with its identification if it has one; exact as by --exact", pointEntry, pointOutside},
    {"--mix", "STREAM;STREAM", "two streams as in the command mix, their mixture and the line between them",
     mixtureEntry, nullptr},
}};

}  // namespace moistair
