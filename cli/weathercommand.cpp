/// \file
/// `moistair-cli weather FILE bins|design|hours|chart|sheet`: a weather file or a trend log.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "cli/sheetoptions.h"
#include "cli/weatheroptions.h"
#include "cli/weatherreport.h"
#include "cli/zoneoptions.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

struct WeatherCommandOptions {
  std::string file;
  std::string action;
  WeatherOptions weather;
  bool ownPressure = false;
  Format format = Format::text;
  std::string width = "5";
  std::string by;
  std::string base = "65";
  SheetCommandOptions sheet;  ///< its output, pressure and limits are those of all actions
  WeatherLayer layer;         ///< how the hours are shown
};

VisibleRange rangeOf(const ChartLimits& limits) { return {limits.lowDb, limits.highDb, limits.lowHr, limits.highHr}; }

WeatherReport reportOf(const WeatherFile& file, const WeatherCommandOptions& options, Oddities& oddities) {
  WeatherReport report{.file = file, .hours = {}, .where = conditionsOf(options.weather)};
  report.atm = pressureOf(options.sheet.document.pressure).atm;
  report.width = numberOf(options.width, "--width");
  if (!(report.width >= 0.1 && report.width <= 100)) throw badUsage("--width must be from 0.1 to 100 deg F");
  report.base = numberOf(options.base, "--base");
  report.byMonth = options.by == "month" || options.by == "both";
  report.byShift = options.by == "shift" || options.by == "both";
  report.hours = hoursOf(file, {report.atm, options.ownPressure, filterOf(options.weather)}, oddities);
  report.allHours = totalHours(report.hours);
  const ChartLimits limits = limitsOf(options.sheet.document.limits);
  countUnseen(report.hours, rangeOf(limits), oddities);
  if (!report.where.empty()) {
    const StatePredicate holds = predicateOf(report.where);
    std::erase_if(report.hours, [&](const WeatherHour& hour) { return !holds(hour.state); });
  }
  report.inZones = !options.sheet.zones.empty();
  if (report.inZones) {
    const ZonePredicate inside = insideOf(options.sheet.zones);
    std::erase_if(report.hours,
                  [&](const WeatherHour& hour) { return !inside(hour.state.db, hour.state.w, hour.atm); });
  }
  return report;
}

/// What has been counted, on standard error.
void sayCounts(const WeatherReport& report, const Oddities& oddities, bool all) {
  reportOddities(oddities);
  if (report.file.format == WeatherFormat::designDays) return;
  const std::string counted = atMostDecimals(totalHours(report.hours), 1) + " h";
  const std::string whole = atMostDecimals(report.allHours, 1) + " h";
  std::size_t leftOut = 0;
  for (const Oddity& oddity : oddities.all()) leftOut += leavesOut(oddity.kind) ? oddity.count : 0;
  say("rows read: " + std::to_string(report.file.rows.size()) + ", " + std::to_string(leftOut) +
      " left out; hours: " + (all ? whole : counted + " of " + whole));
}

/// The sheet of a document with the hours on it; a chart is a sheet of the chart alone.
void runPicture(const CLI::App& command, const WeatherFile& file, const WeatherCommandOptions& options) {
  if (options.sheet.output.empty()) throw badUsage(options.action + " takes -o with a file, .pdf .svg .png or .bmp");
  SheetCommandOptions sheet = options.sheet;
  if (options.action == "chart") {
    sheet.sheet.table = sheet.sheet.titleBlock = sheet.sheet.protractor = false;
    const bool sized = command.get_option("--page")->count() > 0 || command.get_option("--size")->count() > 0;
    if (!sized) sheet.page = std::to_string(defaultWidth) + "x" + std::to_string(defaultHeight);
  }
  Oddities oddities = file.oddities;
  runSheet(command, sheet, [&](Document& document) {
    const SheetContent content = contentOf(document);
    WeatherLayer layer = options.layer;
    layer.file = options.file;
    layer.atm = content.pressure.atm;
    layer.filter = filterOf(options.weather);
    const VisibleRange range = rangeOf(content.limits);
    countUnseen(hoursOf(file, {.atm = layer.atm, .filter = layer.filter}, oddities), range, oddities);
    document.weather = layerOf(file, layer);
    return contentOf(document);
  });
  reportOddities(oddities);
}

void printReport(const WeatherFile& file, const WeatherCommandOptions& options) {
  Oddities oddities = file.oddities;
  const WeatherReport report = reportOf(file, options, oddities);
  std::string text;
  if (options.action == "bins") text = binsText(report, options.format);
  if (options.action == "design") text = designText(report, options.format);
  if (options.action == "hours") text = hoursText(report, options.format);
  Output output(options.sheet.output);
  output.write(text);
  output.close();
  sayCounts(report, oddities, report.where.empty() && !report.inZones);
}

/// Bad usage for an option that would have no effect.
void checkOptions(const CLI::App& command, bool picture) {
  constexpr std::array ofAll = {"file",     "action", "--output", "--columns",   "--units",  "--months",
                                "--of-day", "--inhg", "--psi",    "--elevation", "--limits", "--zone"};
  constexpr std::array ofReports = {"--format", "--width", "--by", "--base", "--where", "--pressure-of-hour"};
  const auto has = [](const auto& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  for (const CLI::Option* option : command.get_options()) {
    const std::string name = option->get_name();
    if (option->count() == 0 || has(ofAll, name)) continue;
    if (has(ofReports, name) == picture) {
      throw badUsage(name + (picture ? " is for bins, design and hours" : " is for chart and sheet"));
    }
  }
}

void runWeather(const CLI::App& command, const WeatherCommandOptions& options) {
  const bool picture = options.action == "chart" || options.action == "sheet";
  checkOptions(command, picture);
  const WeatherFile file = weatherOf(options.file, options.weather);
  if (file.rows.empty() && options.action != "design" && !picture) {
    throw failure(options.file + ": a file of design days has no hours");
  }
  if (picture) {
    runPicture(command, file, options);
  } else {
    printReport(file, options);
  }
}

void addShow(CLI::App& command, WeatherLayer& layer) {
  static const std::map<std::string, WeatherShow> shows = {
      {"density", WeatherShow::density}, {"months", WeatherShow::byMonth}, {"hours", WeatherShow::byHour}};
  command
      .add_option_function<std::string>(
          "--show", [&layer](const std::string& word) { layer.show = shows.at(word); },
          "of chart and sheet: density in cells, or a dot an hour colored by months or hours of the day; density if "
          "not "
          "given")
      ->check(CLI::IsMember({"density", "months", "hours"}))
      ->type_name("WORD")
      ->group("Hours");
  command.add_flag("--counts", layer.counts, "of chart and sheet: the hours in each cell as numbers")->group("Hours");
  command
      .add_flag("--design-points", layer.designPoints, "of chart and sheet: design conditions of the file as points")
      ->group("Hours");
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
  command->add_option("action", options->action, "bins, design, hours, chart or sheet")
      ->required()
      ->check(CLI::IsMember({"bins", "design", "hours", "chart", "sheet"}))
      ->type_name("ACTION");
  addFormat(*command, options->format);
  command->add_option("--width", options->width, "of bins, in deg F; 5 if not given")->type_name("NUMBER");
  command->add_option("--by", options->by, "bins for each month, 8-hour shift, or both")
      ->check(CLI::IsMember({"month", "shift", "both"}))
      ->type_name("WORD");
  command->add_option("--base", options->base, "of degree-hours, in deg F; 65 if not given")->type_name("NUMBER");
  command
      ->add_option(
          "-o,--output", options->sheet.output,
          "where to write it; standard output if not given, and for -; for chart and sheet a .pdf .svg .png or "
          ".bmp file")
      ->type_name("FILE");
  addWeatherOptions(*command, options->weather);
  command
      ->add_flag("--pressure-of-hour", options->ownPressure,
                 "of bins, design and hours: each hour at its own pressure, where the file gives one")
      ->group("Hours");
  addShow(*command, options->layer);
  options->sheet.sheet.title = "Weather";
  addChartDocument(*command, options->sheet.document);
  addSheetLook(*command, options->sheet);
  command->callback([options, command] { runWeather(*command, *options); });
}

}  // namespace moistair
