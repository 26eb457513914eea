#include "log/mixingblock.h"

#include "text/printzones.h"

namespace moistair {

namespace {

void addColumn(std::vector<std::string>& lines, const char* head, const AirStream& stream,
               const MixingProblem& problem) {
  lines.emplace_back(head);
  for (std::size_t row = 0; row < shownReadouts; ++row) {
    const ReadoutRow& readout = readoutRows[row];
    lines.push_back(zoneLine(captionOf(readout, problem), readout.zoneSteps, stream.*readout.text));
  }
}

}  // namespace

std::vector<std::string> mixingBlock(const MixingProblem& problem) {
  std::vector<std::string> lines{std::string(34, '-')};
  addColumn(lines, columnHeads[0], problem.streams[0], problem);
  lines.emplace_back();
  addColumn(lines, columnHeads[1], problem.streams[1], problem);
  lines.emplace_back();
  addColumn(lines, columnHeads[2], problem.mixed, problem);
  lines.emplace_back(29, '-');
  return lines;
}

}  // namespace moistair
