#include "cli/limitsoption.h"

#include <CLI/CLI.hpp>

#include "chart/chartfinders.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "engine/openfinders.h"

namespace moistair {

void addlimits(CLI::App& command, LimitsOption& option, const std::string& description) {
  option.option = command.add_option("--limits", option.text, description)->type_name("LOWDB,HIGHDB,LOWHR,HIGHHR");
}

ChartLimits limitsof(const LimitsOption& option) {
  if (option.option->count() == 0) return wholeChart;
  const auto parts = splitat(option.text, ',');
  if (parts.size() != 4) throw badusage("limits must be four numbers such as 0,120,0,0.030");
  for (const std::string_view part : parts) numberof(part, "limits");
  const LimitTexts texts{std::string(parts[0]), std::string(parts[1]), std::string(parts[2]), std::string(parts[3])};
  ChartLimits limits;
  if (validatelimits(texts, limits) != nullptr) {
    throw badusage(
        "limits must be dry bulbs from 0 to 120 in tens and humidity ratios of 0 0.010 0.020 or 0.030, each "
        "pair rising");
  }
  return limits;
}

RangeFinders findersof(const PlotArea& area) {
  return chartrangefinders([area] { return area; });
}

RangeFinders findersof(const LimitsOption& option) {
  if (option.option->count() == 0) return openrangefinders();
  return findersof(plotarea(limitsof(option), {defaultwidth * twipsperpixel, defaultheight * twipsperpixel}));
}

}  // namespace moistair
