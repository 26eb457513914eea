#include "cli/processrun.h"

#include <CLI/CLI.hpp>

#include "cli/picture.h"

namespace moistair {

namespace {

/// Adds what takes the outdoor air from a weather file.
void addHours(CLI::App& command, RunOptions& options) {
  HoursOptions& hours = options.hours;
  options.hoursOption =
      command
          .add_option(
              "--hours", hours.file,
              "a weather file or trend log; the system runs with its air for every hour and the loads are summed "
              "up, or written as --format csv")
          ->type_name("FILE")
          ->excludes(options.rowsOption);
  options.ofHours = {
      command.add_option("--outdoor", hours.stream, "the stream that has the air of the hours; OA if not given")
          ->type_name("NAME"),
      command.add_flag("--pressure-of-hour", hours.ownPressure,
                       "the whole system at the pressure of each hour, where the file gives one"),
      command.add_option("--plot", hours.plot, "load-duration curves as a picture, .svg .pdf .png or .bmp")
          ->type_name("FILE")};
  for (CLI::Option* option : options.ofHours) option->group("Hours");
  options.hoursOption->group("Hours");
  addWeatherOptions(command, hours.weather, "--hour-columns");
  for (const char* name : {"--hour-columns", "--units", "--months", "--of-day", "--where"}) {
    options.ofHours.push_back(command.get_option(name));
  }
}

}  // namespace

void addRunOptions(CLI::App& command, RunOptions& options) {
  addPressure(command, options.pressure);
  addFormat(command, options.format);
  options.formatOption = command.get_option("--format");
  command.add_option("-o,--output", options.output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  options.rowsOption =
      command
          .add_option("--rows", options.rows,
                      "a CSV table whose columns give parameters, such as OA.db; the system runs for every row")
          ->type_name("FILE");
  options.ofRows = {
      command
          .add_option("--columns", options.columns,
                      "what of each row to write, such as SA.db,CC.total; db, w, rh and acfm of each stream and "
                      "total, sensible and water of each process if not given")
          ->type_name("LIST"),
      command.add_flag("--full", options.full, "write numbers in full instead of with seven decimals"),
      command.add_option("--jobs", options.jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N")};
  addHours(command, options);
}

bool runsRows(const RunOptions& options) {
  if (options.hoursOption->count() > 0) {
    const bool columns = options.ofRows.front()->count() > 0;
    if (columns && options.format != Format::csv) throw badUsage("--columns is for a table: add --format csv");
    return true;
  }
  for (const CLI::Option* option : options.ofHours) {
    if (option->count() > 0) throw badUsage(option->get_name() + " is for hours of --hours");
  }
  if (options.rowsOption->count() == 0) {
    for (const CLI::Option* option : options.ofRows) {
      if (option->count() > 0) throw badUsage(option->get_name() + " is for a table of --rows");
    }
    return false;
  }
  if (options.formatOption->count() > 0 && options.format != Format::csv) {
    throw badUsage("--rows writes a table as CSV; --format is for a system that runs once");
  }
  return true;
}

Input rowsOf(const RunOptions& options) {
  if (options.hoursOption->count() == 0) return Input(options.rows);
  return Input::holding(options.hours.file, tableOfHours(options.hours, pressureOf(options.pressure).atm));
}

void writeReport(const SolvedSystem& solved, const Pressure& pressure, const RunOptions& options,
                 const std::string& file) {
  Output output(options.output);
  switch (options.format) {
    case Format::text: output.write(asTable(solved, pressure)); break;
    case Format::json: output.write(asJson(solved)); break;
    case Format::csv: output.write(asCsv(solved)); break;
  }
  output.close();
  std::vector<std::string> mistakes;
  addMistakes(mistakes, failures(solved), file);
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::failure);
}

namespace {

void writeText(const std::string& text, const std::string& path) {
  Output output(path);
  output.write(text);
  output.close();
}

void writePlot(const HourLoads& loads, const std::string& path) {
  const Painter painter = painterOfName(path);
  if (painter.format == nullptr) throw badUsage(path + ": the ending must be .svg .pdf .png or .bmp");
  std::string bytes;
  painter.contents(*painter.format, loads.plot(), {HourLoads::plotWidth, HourLoads::plotHeight}, 1, bytes);
  if (bytes.empty()) throw failure("there is not enough memory for the picture");
  writeText(bytes, path);
}

}  // namespace

void runTable(const RunOptions& options, const std::function<ProcessPlan(const CsvRecord&, const Input&)>& planOf) {
  const unsigned jobs = jobsOf(options.jobs);
  Input input = rowsOf(options);
  TableReader table(input, ',');
  const CsvRecord header = table.header();
  ProcessPlan plan = planOf(header, input);
  plan.full = options.full;
  plan.shape.selection = plan.first.input.selection;
  plan.shape.lineEnd = header.lineEnd.starts_with('\r') ? "\r\n" : "\n";
  plan.shape.results = plan.first.results.size() + (plan.designer != nullptr ? 1 : 0);
  const bool sums = options.hoursOption->count() > 0 && options.format != Format::csv;
  const std::string head = headerLine(header, plan);
  HourLoads loads(head);
  const bool counts = sums || !options.hours.plot.empty();
  Output output(sums ? "/dev/null" : options.output, &input);
  output.write(head);
  const RowCounts rows = table.run(
      plan.shape.selection.columns + plan.shape.results,
      [&](const std::string& block) {
        BatchResult result = processRows(block, plan);
        if (counts) loads.add(result.text);
        return result;
      },
      output, jobs);
  loads.finish();
  if (sums) writeText(loads.text(options.format), options.output);
  if (!options.hours.plot.empty()) writePlot(loads, options.hours.plot);
  checkRows(rows);
}

}  // namespace moistair
