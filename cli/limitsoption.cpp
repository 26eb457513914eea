#include "cli/limitsoption.h"

#include <CLI/CLI.hpp>

#include "chart/chartfinders.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "engine/openfinders.h"
#include "sheet/options.h"

namespace moistair {

void addLimits(CLI::App& command, LimitsOption& option, const std::string& description) {
  option.option = command.add_option("--limits", option.text, description)->type_name("LOWDB,HIGHDB,LOWHR,HIGHHR");
}

namespace {

ChartLimits sheetLimits(const LimitTexts& texts) {
  ChartLimits limits;
  readLimits(texts, limits);
  if (!areSheetLimits(limits)) {
    throw badUsage(
        "limits must be dry bulbs from -40 to 200 in whole degrees and humidity ratios from 0 to 0.1 in thousandths, "
        "each pair rising");
  }
  return limits;
}

}  // namespace

ChartLimits limitsOf(const LimitsOption& option) {
  if (option.option->count() == 0) return wholeChart;
  const auto parts = splitAt(option.text, ',');
  if (parts.size() != 4) throw badUsage("limits must be four numbers such as 0,120,0,0.030");
  for (const std::string_view part : parts) numberOf(part, "limits");
  const LimitTexts texts{std::string(parts[0]), std::string(parts[1]), std::string(parts[2]), std::string(parts[3])};
  if (option.sheet) return sheetLimits(texts);
  ChartLimits limits;
  if (validateLimits(texts, limits) != nullptr) {
    throw badUsage(
        "limits must be dry bulbs from 0 to 120 in tens and humidity ratios of 0 0.010 0.020 or 0.030, each "
        "pair rising; the command sheet takes whole degrees and thousandths");
  }
  return limits;
}

RangeFinders findersOf(const PlotArea& area) {
  return chartRangeFinders([area] { return area; });
}

RangeFinders findersOf(const LimitsOption& option) {
  if (option.option->count() == 0) return openRangeFinders();
  return findersOf(plotArea(limitsOf(option), {defaultWidth * twipsPerPixel, defaultHeight * twipsPerPixel}));
}

}  // namespace moistair
