#include "log/mixingblock.h"

#include "text/printzones.h"

namespace moistair {

namespace {

void addcolumn(std::vector<std::string>& lines, const char* head, const AirStream& stream,
               const MixingProblem& problem) {
  lines.emplace_back(head);
  for (std::size_t row = 0; row < shownreadouts; ++row) {
    const ReadoutRow& readout = readoutrows[row];
    lines.push_back(zoneline(captionof(readout, problem), readout.zonesteps, stream.*readout.text));
  }
}

}  // namespace

std::vector<std::string> mixingblock(const MixingProblem& problem) {
  std::vector<std::string> lines{std::string(34, '-')};
  addcolumn(lines, columnheads[0], problem.streams[0], problem);
  lines.emplace_back();
  addcolumn(lines, columnheads[1], problem.streams[1], problem);
  lines.emplace_back();
  addcolumn(lines, columnheads[2], problem.mixed, problem);
  lines.emplace_back(29, '-');
  return lines;
}

}  // namespace moistair
