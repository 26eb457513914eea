/// \file
/// The main window's chart as the tests use it: lists, canvas and commands, without a widget.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "engine/openfinders.h"
#include "model/chartcommands.h"
#include "model/documentfile.h"
#include "model/marks.h"
#include "model/pointreport.h"

namespace moistair::test {

inline constexpr WindowSize window{12000, 6000};
inline constexpr ChartLimits fulllimits{0, 120, 0, 0.03};

inline MixingProblem mixture(const char* db1, const char* wb1, const char* db2, const char* wb2,
                             const MixingPressure& pressure = {29.92126, {}}) {
  MixingProblem problem;
  problem.pressure = pressure;
  const char* const typed[2][3] = {{db1, wb1, "1000"}, {db2, wb2, "500"}};
  for (const std::size_t number : {std::size_t{0}, std::size_t{1}}) {
    AirStream& stream = problem.streams[number];
    stream.kind1 = PropertyKind::db;
    stream.kind2 = PropertyKind::wb;
    stream.value1 = typed[number][0];
    stream.value2 = typed[number][1];
    stream.flow = typed[number][2];
    resolvestream(problem, number);
  }
  mixstreams(problem);
  return problem;
}

struct Desk {
  RecordingCanvas canvas;
  SessionValues values;
  ChartLifecycle lifecycle{canvas, values};
  ChartCommands commands{canvas, values, lifecycle};
  LimitTexts lists{"0", "120", "0", "0.030"};

  Desk() {
    values.pressure.settext(defaultpressuretext);
    commands.start(window);
  }

  const Document& document() const { return commands.document(); }

  bool draw(ChartType type = ChartType::blank) {
    if (commands.startdraw(lists)) return false;
    values.charttype = type;
    commands.drawchart(window);
    return true;
  }

  bool line(LineKind kind, const char* value) { return !commands.drawline(kind, lists, value, window); }
  bool rhline(const char* value) { return line(LineKind::relativehumidity, value); }

  /// Marks the point of a dry and a wet bulb, as the report shows it.
  bool point(const char* db, const char* wb, const char* identification) {
    const PairInput input{PropertyKind::db, PropertyKind::wb, db, wb};
    SolverFields fields;
    const Location location = locatepoint(
        input, [] { return true; }, lifecycle.atmpressure(), {}, fields);
    const PointReport report = fillreport(location.resolution.point, identification, values.pressureentry);
    return commands.markpoint(input, readreport(report), lists, identification, window);
  }

  /// Marks a point whose dew point the search misses.
  bool missing(const char* identification) {
    const PairInput input{PropertyKind::h, PropertyKind::dp, "13.68", "27.65"};
    SolverFields fields;
    const Resolution found = resolvepair(input.kind1, input.value1, input.kind2, input.value2, lifecycle.atmpressure(),
                                         openrangefinders(), fields);
    return commands.markpoint(input, readreport(fillreport(found.point, {}, {})), lists, identification, window);
  }

  bool mix(const char* db1 = "75", const char* wb1 = "62.5", const char* db2 = "95", const char* wb2 = "75") {
    ChartLimits limits;
    readlimits(lists, limits);
    const MixingPressure pressure{lifecycle.atmpressure(), values.pressureentry};
    return commands.drawmixture(mixture(db1, wb1, db2, wb2, pressure), limits, window) == nullptr;
  }

  bool pin(const Place& place = {80, 0.0101}) {
    const Setting setting{fulllimits, {values.pressureentry, lifecycle.atmpressure()}};
    const auto pinned = readingtokeep(setting, place);
    return pinned && commands.add({setting, *pinned}, window) == nullptr;
  }

  /// The pressure window is opened, which puts the default in force, and left.
  void lookatpressure() { values.pressure.settext(defaultpressuretext); }

  void setpressure(const PressureEntry& entry) {
    lookatpressure();
    if (const auto inhg = pressurefor(entry).inhg) values.pressure.settext(*inhg);
    commands.changepressure(entry, window);
  }
};

}  // namespace moistair::test
