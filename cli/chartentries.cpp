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
Entry lineentry(const Setting& setting, WindowSize, const std::string& value, const ExactOptions&) {
  numberof(value, "value");
  return {setting, PropertyLine{kind, value}};
}

/// Takes "id" out of what a point is given by; none is empty.
std::string takeidentification(std::vector<TypedValue>& assignments) {
  const auto isid = [](const TypedValue& assignment) { return assignment.name == "id"; };
  const auto id = std::find_if(assignments.begin(), assignments.end(), isid);
  if (id == assignments.end()) return {};
  std::string text = std::move(id->text);
  assignments.erase(id);
  if (!isutf8(text)) throw badusage("id must be text in UTF-8");
  return text;
}

/// Takes the word "exact" out of the parts of a point.
bool takeExact(std::string& value) {
  std::string rest;
  bool exact = false;
  for (const std::string_view part : splitat(value, ',')) {
    if (lowercase(part) == "exact") {
      exact = true;
    } else {
      rest += (rest.empty() ? "" : ",") + std::string(part);
    }
  }
  if (exact) value = rest;
  return exact;
}

Entry pointentry(const Setting& setting, WindowSize window, const std::string& value, const ExactOptions& options) {
  std::string parts = value;
  MarkedPoint point;
  point.exact = takeExact(parts) || options.exact;
  std::vector<TypedValue> assignments = assignmentsof(parts);
  point.identification = takeidentification(assignments);
  const GivenPair pair = pairof(assignments);
  const PairOfGiven given{pair.first, pair.second};
  const double atm = setting.pressure.atm;
  Resolution resolution = resolve(pair, atm, findersof(plotarea(setting.limits, window)));
  if (point.exact) resolution = exactResolution("--point " + value, given, atm, resolution);
  if (!resolution.resolved()) throw failure(whynot(given, atm, resolution));
  point.given = {{{pair.first.kind, assignments[0].text}, {pair.second.kind, assignments[1].text}}};
  point.state = readreport(fillreport(resolution.point, point.identification, setting.pressure.entry));
  return {setting, point};
}

Entry mixtureentry(const Setting& setting, WindowSize, const std::string& value, const ExactOptions& options) {
  const auto streams = splitat(value, ';');
  if (streams.size() != 2) throw badusage("a mixture takes two streams with a semicolon between them");
  const MixingProblem problem =
      solvedmixing(std::string(streams[0]), std::string(streams[1]), setting.pressure, options.exact);
  return {setting, MixingLine{{problem.streams[0], problem.streams[1], problem.mixed}}};
}

constexpr const char* lineoutside = "the line is either out of chart limits or is not feasible";
constexpr const char* pointoutside = "the point is out of chart limits";

}  // namespace

const std::array<EntryOption, 6> entryoptions = {{
    {"--rh", "PERCENT", "line of constant relative humidity", lineentry<LineKind::relativehumidity>, lineoutside},
    {"--wb", "DEGF", "line of constant wet bulb", lineentry<LineKind::wetbulb>, lineoutside},
    {"--h", "BTU/LB", "line of constant enthalpy", lineentry<LineKind::enthalpy>, lineoutside},
    {"--v", "CUF/LB", "line of constant specific volume", lineentry<LineKind::specificvolume>, lineoutside},
    {"--point", "KIND=VALUE,KIND=VALUE,id=TEXT,exact",
     "a point, with its identification if it has one; exact as by --exact", pointentry, pointoutside},
    {"--mix", "STREAM;STREAM", "two streams as in the command mix, their mixture and the line between them",
     mixtureentry, nullptr},
}};

}  // namespace moistair
