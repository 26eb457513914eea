/// \file
/// How a system of processes is run by a command: its options, once or for every row of a table, and what is printed.
/// The commands differ in where the system comes from.
#pragma once

#include <string>
#include <vector>

#include "cli/fault.h"
#include "cli/format.h"
#include "cli/mistakes.h"
#include "cli/pressureoption.h"
#include "cli/processhours.h"
#include "cli/processreport.h"
#include "cli/processrows.h"
#include "cli/stream.h"

namespace moistair {

struct RunOptions {
  PressureOption pressure;
  Format format = Format::text;
  std::string output;
  std::string rows;
  std::string columns;
  std::string jobs = "1";
  bool full = false;
  CLI::Option* formatOption = nullptr;
  CLI::Option* rowsOption = nullptr;
  std::vector<CLI::Option*> ofRows;  ///< those that say something of a table
  HoursOptions hours;
  CLI::Option* hoursOption = nullptr;
  std::vector<CLI::Option*> ofHours;  ///< those that say something of hours
};

void addRunOptions(CLI::App& command, RunOptions& options);

/// Whether a table is to be run. Bad usage for options that are not for what is run.
bool runsRows(const RunOptions& options);

/// Where the rows come from, as CSV: the one place that knows. Each row gives parameters (OA.db) and, if it likes, a
/// pressure (inhg, psi, elevation).
Input rowsOf(const RunOptions& options);

/// Writes what a system came to in the format asked for, then fails for steps without a result.
void writeReport(const SolvedSystem& solved, const Pressure& pressure, const RunOptions& options,
                 const std::string& file = "");

/// Runs a system for every row: opens the table, has `plan` made with its first record, and writes the result.
void runTable(const RunOptions& options, const std::function<ProcessPlan(const CsvRecord&, const Input&)>& planOf);

}  // namespace moistair
