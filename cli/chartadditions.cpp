#include "cli/chartadditions.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "chart/propertylines.h"
#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/mixoptions.h"
#include "cli/properties.h"
#include "mixing/mixingline.h"
#include "session/pointmark.h"
#include "session/pointreport.h"
#include "session/utf8.h"

namespace moistair {

namespace {

template <bool (*tracer)(const Chart&, double)>
void drawline(const ChartJob& job, const std::string& value) {
  if (!tracer(job.chart, numberof(value, "value"))) {
    throw failure("the line is either out of chart limits or is not feasible");
  }
}

/// Takes "id" out of what a point is given by; none is empty.
std::string takeidentification(std::vector<Assignment>& assignments) {
  const auto isid = [](const Assignment& assignment) { return assignment.name == "id"; };
  const auto id = std::find_if(assignments.begin(), assignments.end(), isid);
  if (id == assignments.end()) return {};
  std::string text = std::move(id->text);
  assignments.erase(id);
  if (!isutf8(text)) throw badusage("id must be text in UTF-8");
  return text;
}

void drawpoint(const ChartJob& job, const std::string& value) {
  std::vector<Assignment> assignments = assignmentsof(value);
  const std::string identification = takeidentification(assignments);
  const GivenPair pair = pairof(assignments);
  const Resolution resolution = resolve(pair, job.chart.atmpressure, findersof(job.chart.area));
  if (!resolution.resolved()) throw failure(whynot(resolution));
  const StatePoint seen = readreport(fillreport(resolution.point, identification, job.pressure.entry));
  if (!markpoint(job.chart.canvas, seen, job.chart.area, identification)) {
    throw failure("the point is out of chart limits");
  }
}

void drawmixture(const ChartJob& job, const std::string& value) {
  const auto streams = splitat(value, ';');
  if (streams.size() != 2) throw badusage("a mixture takes two streams with a semicolon between them");
  const MixingProblem problem = solvedmixing(std::string(streams[0]), std::string(streams[1]), job.pressure);
  if (const char* message = drawmixingline(job.chart.canvas, problem, job.chart.area)) throw failure(message);
}

}  // namespace

const std::array<Addition, 6> chartadditions = {{
    {"--rh", "PERCENT", "line of constant relative humidity", drawline<drawrhline>},
    {"--wb", "DEGF", "line of constant wet bulb", drawline<drawwbline>},
    {"--h", "BTU/LB", "line of constant enthalpy", drawline<traceenthline>},
    {"--v", "CUF/LB", "line of constant specific volume", drawline<tracevolline>},
    {"--point", "KIND=VALUE,KIND=VALUE,id=TEXT", "a point, with its identification if it has one", drawpoint},
    {"--mix", "STREAM;STREAM", "two streams as in the command mix, their mixture and the line between them",
     drawmixture},
}};

}  // namespace moistair
