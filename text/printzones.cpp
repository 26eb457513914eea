#include "text/printzones.h"

namespace moistair {

std::string zoneLine(std::string_view caption, int zoneSteps, std::string_view value) {
  std::string line(caption);
  for (int step = 0; step < zoneSteps; ++step) line.append(zoneWidth - line.size() % zoneWidth, ' ');
  line += value;
  return line;
}

}  // namespace moistair
