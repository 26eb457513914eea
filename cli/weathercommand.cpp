/// \file
/// `moistair-cli weather FILE bins|design|hours`: a weather file or a trend log.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/pressureoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
#include "cli/weatheroptions.h"
#include "cli/weatherreport.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

struct WeatherCommandOptions {
  std::string file;
  std::string action;
  WeatherOptions weather;
  PressureOption pressure;
  bool ownPressure = false;
  LimitsOption limits;
  Format format = Format::text;
  std::string width = "5";
  std::string by;
  std::string base = "65";
  std::string output;
};

WeatherReport reportOf(const WeatherFile& file, const WeatherCommandOptions& options, Oddities& oddities) {
  WeatherReport report{.file = file, .hours = {}, .where = conditionsOf(options.weather)};
  report.atm = pressureOf(options.pressure).atm;
  report.width = numberOf(options.width, "--width");
  if (!(report.width >= 0.1 && report.width <= 100)) throw badUsage("--width must be from 0.1 to 100 deg F");
  report.base = numberOf(options.base, "--base");
  report.byMonth = options.by == "month" || options.by == "both";
  report.byShift = options.by == "shift" || options.by == "both";
  report.hours = hoursOf(file, {report.atm, options.ownPressure, filterOf(options.weather)}, oddities);
  report.allHours = totalHours(report.hours);
  const ChartLimits limits = limitsOf(options.limits);
  countUnseen(report.hours, {limits.lowDb, limits.highDb, limits.lowHr, limits.highHr}, oddities);
  if (!report.where.empty()) {
    const StatePredicate holds = predicateOf(report.where);
    std::erase_if(report.hours, [&](const WeatherHour& hour) { return !holds(hour.state); });
  }
  return report;
}

/// What has been counted, on standard error.
void sayCounts(const WeatherReport& report, const Oddities& oddities) {
  reportOddities(oddities);
  if (report.file.format == WeatherFormat::designDays) return;
  const std::string counted = atMostDecimals(totalHours(report.hours), 1) + " h";
  const std::string all = atMostDecimals(report.allHours, 1) + " h";
  std::size_t leftOut = 0;
  for (const Oddity& oddity : oddities.all()) leftOut += leavesOut(oddity.kind) ? oddity.count : 0;
  say("rows read: " + std::to_string(report.file.rows.size()) + ", " + std::to_string(leftOut) +
      " left out; hours: " + (report.where.empty() ? all : counted + " of " + all));
}

void runWeather(const WeatherCommandOptions& options) {
  const WeatherFile file = weatherOf(options.file, options.weather);
  Oddities oddities = file.oddities;
  const WeatherReport report = reportOf(file, options, oddities);
  if (file.rows.empty() && options.action != "design") {
    throw failure(options.file + ": a file of design days has no hours");
  }
  std::string text;
  if (options.action == "bins") text = binsText(report, options.format);
  if (options.action == "design") text = designText(report, options.format);
  if (options.action == "hours") text = hoursText(report, options.format);
  Output output(options.output);
  output.write(text);
  output.close();
  sayCounts(report, oddities);
}

}  // namespace

void addWeatherCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("weather", "Bins, hours and design conditions of a weather file or trend log");
  const auto options = std::make_shared<WeatherCommandOptions>();
  command
      ->add_option("file", options->file,
                   "EPW, TMY3, DDY, or a table with a time and two properties; - for standard input")
      ->required()
      ->type_name("FILE");
  command->add_option("action", options->action, "bins, design or hours")
      ->required()
      ->check(CLI::IsMember({"bins", "design", "hours"}))
      ->type_name("ACTION");
  addFormat(*command, options->format);
  command->add_option("--width", options->width, "of bins, in deg F; 5 if not given")->type_name("NUMBER");
  command->add_option("--by", options->by, "bins for each month, 8-hour shift, or both")
      ->check(CLI::IsMember({"month", "shift", "both"}))
      ->type_name("WORD");
  command->add_option("--base", options->base, "of degree-hours, in deg F; 65 if not given")->type_name("NUMBER");
  command->add_option("-o,--output", options->output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  addWeatherOptions(*command, options->weather);
  addPressure(*command, options->pressure);
  command
      ->add_flag("--pressure-of-hour", options->ownPressure, "each hour at its own pressure, where the file gives one")
      ->group("Hours");
  addLimits(*command, options->limits,
            "limits of the chart beyond which hours are counted, 0,120,0,0.030 if not given");
  command->callback([options] { runWeather(*options); });
}

}  // namespace moistair
