#include "cli/weatheroptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/fault.h"
#include "cli/stream.h"
#include "cli/warning.h"

namespace moistair {

namespace {

TableColumns columnsOf(const WeatherOptions& options) {
  TableColumns columns;
  if (options.units == "F") columns.units = TableUnits::fahrenheit;
  if (options.units == "C") columns.units = TableUnits::celsius;
  if (options.columns.empty()) return columns;
  auto named = readColumns(options.columns);
  if (!named) throw badUsage("--columns: " + named.error().words);
  columns.named = std::move(*named);
  return columns;
}

Result<WeatherFile> readStandardInput(const TableColumns& columns) {
  Input input("-");
  const std::string text = input.content(largestWeatherFile);
  if (text.size() > largestWeatherFile) return weatherTooLarge().within(input.name());
  auto file = readWeather(text, columns);
  return file ? std::move(file) : file.error().within(input.name());
}

}  // namespace

void addWeatherOptions(CLI::App& command, WeatherOptions& options, const char* columns) {
  command
      .add_option(columns, options.columns,
                  "heads of a table's columns, such as time=Stamp,db=OAT,rh=OA RH; found by themselves if not given")
      ->type_name("LIST")
      ->group("Hours");
  command.add_option("--units", options.units, "of temperatures in a table whose heads give none: F or C")
      ->check(CLI::IsMember({"F", "C"}))
      ->type_name("UNIT")
      ->group("Hours");
  command.add_option("--months", options.months, "months that count, such as 6-9 or 12,1,2")
      ->type_name("LIST")
      ->group("Hours");
  command.add_option("--of-day", options.ofDay, "hours of the day that count, such as 8-17")
      ->type_name("RANGE")
      ->group("Hours");
  command.add_option("--where", options.where, "conditions on the hours that count, such as wb<65,dp>50")
      ->type_name("LIST")
      ->group("Hours");
}

WeatherFile weatherOf(const std::string& path, const WeatherOptions& options) {
  const TableColumns columns = columnsOf(options);
  auto file = path == "-" ? readStandardInput(columns) : loadWeather(path, columns);
  if (file) return std::move(*file);
  const ErrorCode code = file.error().code;
  const bool usage = code == ErrorCode::notOpened || code == ErrorCode::unknownName;
  throw Fault(usage ? ExitCode::badUsage : ExitCode::failure, file.error().text());
}

HourFilter filterOf(const WeatherOptions& options) {
  HourFilter filter;
  if (!options.months.empty()) {
    const auto months = readMonths(options.months);
    if (!months) throw badUsage("--months: " + months.error().words);
    filter.months = *months;
  }
  if (!options.ofDay.empty()) {
    const Outcome outcome = readHourRange(options.ofDay, filter);
    if (!outcome) throw badUsage("--of-day: " + outcome.error().words);
  }
  return filter;
}

std::vector<Condition> conditionsOf(const WeatherOptions& options) {
  if (options.where.empty()) return {};
  auto conditions = readConditions(options.where);
  if (!conditions) throw badUsage("--where: " + conditions.error().words);
  return std::move(*conditions);
}

StatePredicate predicateOf(const std::vector<Condition>& conditions) {
  return [conditions](const StatePoint& state) {
    return std::all_of(conditions.begin(), conditions.end(),
                       [&](const Condition& condition) { return condition.holds(state); });
  };
}

void reportOddities(const Oddities& oddities) {
  for (const Oddity& oddity : oddities.all()) {
    if (leavesOut(oddity.kind) || oddity.kind == OddityKind::otherSite) {
      warn(wordsOf(oddity));
    } else {
      say("note: " + wordsOf(oddity));
    }
  }
}

}  // namespace moistair
