#include "cli/mixoptions.h"

#include <algorithm>
#include <utility>

#include "cli/fault.h"
#include "cli/properties.h"
#include "cli/warning.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Takes "flow" out of what a stream is given by.
std::string takeFlow(std::vector<TypedValue>& assignments) {
  const auto isFlow = [](const TypedValue& assignment) { return assignment.name == "flow"; };
  const auto flow = std::find_if(assignments.begin(), assignments.end(), isFlow);
  if (flow == assignments.end()) throw badUsage("the flow is missing, such as flow=1000");
  std::string text = std::move(flow->text);
  assignments.erase(flow);
  if (!(numberOf(text, "flow") > 0)) throw badUsage("flow must be above 0");
  return text;
}

void giveStream(AirStream& stream, const std::string& text) {
  std::vector<TypedValue> assignments = assignmentsOf(text);
  stream.flow = takeFlow(assignments);
  const GivenPair pair = pairOf(assignments);
  stream.kind1 = pair.first.kind;
  stream.kind2 = pair.second.kind;
  stream.value1 = assignments[0].text;
  stream.value2 = assignments[1].text;
}

/// Resolves a stream, from scratch.
void resolve(MixingProblem& problem, std::size_t number, bool exact) {
  AirStream& stream = problem.streams[number];
  const double atm = problem.pressure.atm;
  problem.solverFields = {};  // the other stream leaves nothing behind
  Resolution resolution = resolveStream(problem, number);
  const PairOfGiven given = *givenOf(stream);
  if (exact) {
    exactResolution("stream " + std::to_string(number + 1), given, atm, resolution);
    stream.exact = true;
    problem.solverFields = {};
    resolution = resolveStream(problem, number);
  }
  if (!resolution.resolved()) throw failure(whyNot(given, atm, resolution));
}

/// Whether the sums that the mixture follows from can be worked out.
bool canBeSummed(const std::array<AirStream, 2>& streams) {
  const auto flow = [](const AirStream& stream) { return lenientNumber(stream.flow); };
  const auto heat = [](const AirStream& stream) { return lenientNumber(stream.h) * lenientNumber(stream.moistRate); };
  return hasValue(flow(streams[0]) + flow(streams[1])) && hasValue(heat(streams[0]) + heat(streams[1]));
}

}  // namespace

MixingProblem solvedMixing(const std::string& stream1, const std::string& stream2, const Pressure& pressure,
                           bool exact) {
  MixingProblem problem;
  problem.pressure = {pressure.atm, pressure.entry};
  for (const std::size_t stream : {std::size_t{0}, std::size_t{1}}) {
    try {
      giveStream(problem.streams[stream], stream == 0 ? stream1 : stream2);
      resolve(problem, stream, exact);
    } catch (const Fault& fault) {
      throw Fault(fault.code(), "stream " + std::to_string(stream + 1) + ": " + fault.what());
    }
  }
  if (!canBeSummed(problem.streams)) throw failure("the flows are too large for a mixture");
  problem.exactMixture = exact;
  mixStreams(problem);
  if (!problem.savable) throw failure("the flows are too small for a mixture");
  return problem;
}

}  // namespace moistair
