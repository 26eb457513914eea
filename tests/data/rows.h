/// \file
/// The rows of the recorded tables: what is given, and behind it what the program makes of that.
///
/// The test and the generator share `completed`, which takes the given fields of a row and returns the whole row again.
#pragma once

#include <iomanip>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "chart/chartfinders.h"
#include "engine/mixingproblem.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "text/numberformat.h"
#include "text/value.h"

namespace moistair::data {

using Fields = std::vector<std::string>;

inline Fields fieldsOf(const std::string& line, char separator = ',') {
  Fields fields;
  std::istringstream stream(line + separator);
  for (std::string field; std::getline(stream, field, separator);) fields.push_back(field);
  return fields;
}

inline std::string joined(const Fields& fields) {
  std::string line;
  for (const std::string& field : fields) line += (line.empty() ? "" : ",") + field;
  return line;
}

inline constexpr std::array<const char*, kindCount> kindNames = {"db", "wb", "rh", "w", "h", "dp", "v"};

inline std::optional<PropertyKind> kindOf(const std::string& name) {
  for (int i = 0; i < kindCount; ++i) {
    if (kindNames[static_cast<std::size_t>(i)] == name) return kindAt(i);
  }
  return std::nullopt;
}

/// One table: its file, its columns, how many of them are given, and how the rest of a row comes about.
struct Table {
  const char* file;
  const char* columns;
  std::size_t given;
  void (*complete)(Fields& row);
};

inline std::string outcomeOf(const Resolution& resolution) {
  constexpr std::array<const char*, 8> reasons = {"found",  "samekind",   "wwithdp", "blank",
                                                  "nokind", "givenvalue", "search",  "state"};
  std::string outcome = reasons[static_cast<std::size_t>(resolution.reason)];
  if (resolution.reason >= Unresolved::givenValue) {
    outcome += std::string(" ") + kindNames[static_cast<std::size_t>(resolution.kind)];
  }
  if (resolution.reason == Unresolved::givenValue || resolution.reason == Unresolved::state) {
    outcome += " " + numberText(resolution.range.above) + " to " + numberText(resolution.range.upTo);
  }
  if (resolution.unseenLine) outcome += " unseen";
  return outcome;
}

/// Finders of a chart of these limits, "0:120:0:0.030", those that know no chart for none, and those before the first
/// chart is drawn for "undrawn".
inline RangeFinders findersOf(const std::string& chart) {
  if (chart.empty()) return openRangeFinders();
  if (chart == "undrawn") return chartRangeFinders([] { return PlotArea{{0, 120, 0, 0.03}, {}, {12000, 6000}}; });
  const Fields texts = fieldsOf(chart, ':');
  ChartLimits limits;
  readLimits({texts[0], texts[1], texts[2], texts[3]}, limits);
  return chartRangeFinders([=] { return plotArea(limits, {12000, 6000}); });
}

/// The digits of a state that is refused show where its search ended; of a refused value there are none.
inline void completeState(Fields& row) {
  SolverFields solverFields;
  const Resolution resolution = resolvePair(kindOf(row[2]), row[3], kindOf(row[4]), row[5], lenientNumber(row[0]),
                                            findersOf(row[1]), solverFields);
  row.push_back(outcomeOf(resolution));
  if (resolution.reason != Unresolved::none && resolution.reason < Unresolved::search) return;
  row.push_back(std::to_string(resolution.iterations));
  if (resolution.reason == Unresolved::search) return;
  for (int kind = 0; kind < kindCount; ++kind) row.push_back(showValue(resolution.point.at(*kindAt(kind))));
  row.push_back(showValue(resolution.point.pv));
}

/// The problem that a row gives: the pressure, and for each stream two kinds with their values and the flow.
inline MixingProblem mixtureOf(const Fields& row) {
  MixingProblem problem;
  problem.pressure = {lenientNumber(row[0]), {}};
  for (const std::size_t i : {0U, 1U}) {
    AirStream& stream = problem.streams[i];
    const std::size_t at = 1 + 5 * i;
    stream.kind1 = kindOf(row[at]);
    stream.value1 = row[at + 1];
    stream.kind2 = kindOf(row[at + 2]);
    stream.value2 = row[at + 3];
    stream.flow = row[at + 4];
    resolveStream(problem, i);
  }
  mixStreams(problem);
  return problem;
}

inline void completeMixture(Fields& row) {
  const MixingProblem problem = mixtureOf(row);
  row.push_back(problem.savable ? "savable" : "unfinished");
  for (const AirStream& stream : problem.streams) {
    for (const std::string& text : {stream.db, stream.wb, stream.dryRate, stream.vaporRate, stream.moistRate}) {
      row.push_back(text);
    }
  }
  for (const ReadoutRow& readout : readoutRows) {
    if (readout.caption != nullptr) row.push_back(problem.mixed.*readout.text);
  }
}

inline void completeRange(Fields& row) {
  const RangeFinders finders = findersOf(row[1]);
  const RangeFinder& finder = row[2] == "rh"  ? finders.dbRangeOfRh
                              : row[2] == "h" ? finders.dbRangeOfH
                                              : finders.dbRangeOfSpvol;
  const auto range = finder(strictNumber(row[3]), strictNumber(row[0]));
  row.push_back(range ? numberText(range->low) : "nothing");
  if (range) row.push_back(numberText(range->high));
}

/// A typed text read as a number, or a number shown as text.
inline void completeNumber(Fields& row) {
  const auto precise = [](double number) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(17) << number;
    return hasValue(number) ? text.str() : "none";
  };
  const auto written = [](void (*append)(std::string&, double), double value) {
    std::string text = "=";
    append(text, value);
    return text;
  };
  const std::string& way = row[0];
  const double number = strictNumber(row[1]);
  row.push_back(way == "strict"      ? precise(number)
                : way == "lenient"   ? precise(lenientNumber(row[1]))
                : way == "shown"     ? showValue(number)
                : way == "text"      ? numberText(number)
                : way == "four"      ? fixedDecimals(number, 4)
                : way == "seven"     ? written(appendSevenDecimals, number)
                : way == "roundtrip" ? written(appendRoundTrip, number)
                                     : printedNumber(number));
}

/// What the pressure window shows of an entry whose read-outs were "a", "b" and "c" before, and what it comes to.
inline void completePressure(Fields& row) {
  std::optional<PressureUnit> unit;
  for (int i = 0; i < 4; ++i) {
    if (row[0] == std::array{"default", "inhg", "psi", "elevation"}[static_cast<std::size_t>(i)])
      unit = pressureUnitAt(i);
  }
  const PressureEntry entry{unit, row[1]};
  const PressureReadouts readouts = pressureReadouts(entry, {"a", "b", "c"});
  const PressureSetting setting = pressureFor(entry);
  for (const std::string& text : {readouts.inhg, readouts.psi, readouts.feet}) row.push_back(text);
  row.push_back(setting.inhg.value_or("kept"));
  row.push_back(setting.accepted ? "accepted" : "refused");
  for (const std::string& text : {headerLine(entry), pressureCaption(entry), pressureShown(entry)}) row.push_back(text);
}

inline constexpr Table numbers{"numbers.csv", "way,given,result", 2, completeNumber};
inline constexpr Table pressures{"pressures.csv", "unit,entry,inhg,psi,feet,stored,outcome,header,caption,shown", 2,
                                 completePressure};
inline constexpr Table ranges{"ranges.csv", "pressure,chart,kind,line,low,high", 4, completeRange};
inline constexpr Table states{
    "states.csv", "pressure,chart,kind1,value1,kind2,value2,outcome,iterations,db,wb,rh,w,h,dp,v,pv", 6, completeState};
inline constexpr Table mixtures{"mixtures.csv",
                                "pressure,kind1,value1,kind2,value2,flow1,kind1,value1,kind2,value2,flow2,outcome,"
                                "db1,wb1,dryrate1,vaporrate1,moistrate1,db2,wb2,dryrate2,vaporrate2,moistrate2,"
                                "flow,db,wb,rh,h,v,w,dp,pv,pvsat,dryrate,vaporrate,moistrate",
                                11, completeMixture};

/// The row as the program completes it now; only the given fields are read.
inline std::string completed(const Table& table, Fields row) {
  row.resize(table.given);
  table.complete(row);
  return joined(row);
}

}  // namespace moistair::data
