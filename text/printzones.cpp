#include "text/printzones.h"

namespace moistair {

std::string zoneline(std::string_view caption, int zonesteps, std::string_view value) {
  std::string line(caption);
  for (int step = 0; step < zonesteps; ++step) line.append(zonewidth - line.size() % zonewidth, ' ');
  line += value;
  return line;
}

}  // namespace moistair
