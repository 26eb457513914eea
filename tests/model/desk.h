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
inline constexpr ChartLimits fullLimits{0, 120, 0, 0.03};

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
    resolveStream(problem, number);
  }
  mixStreams(problem);
  return problem;
}

struct Desk {
  RecordingCanvas canvas;
  ChartCommands commands{canvas};
  LimitTexts lists{"0", "120", "0", "0.030"};

  Desk() { commands.start(window); }

  const Document& document() const { return commands.document(); }
  double atm() const { return document().atm(); }
  std::string pressure() const { return document().current.pressure.text(); }

  bool draw(ChartType type = ChartType::blank) {
    if (!commands.startDraw(lists)) return false;
    commands.chooseType(type);
    commands.drawChart(window);
    return true;
  }

  bool line(LineKind kind, const char* value) { return bool(commands.drawLine(kind, lists, value, window)); }
  bool rhLine(const char* value) { return line(LineKind::relativeHumidity, value); }

  /// Marks the point of a dry and a wet bulb, as the report shows it.
  bool point(const char* db, const char* wb, const char* identification) {
    const PairInput input{PropertyKind::db, PropertyKind::wb, db, wb};
    SolverFields fields;
    const Location location = locatePoint(
        input, [] { return true; }, atm(), {}, fields);
    const PointReport report = fillReport(location.resolution.point, identification, document().pressure.entry);
    return commands.markPoint(input, readReport(report), lists, identification, window);
  }

  /// Marks a point whose dew point the search misses.
  bool missing(const char* identification) {
    const PairInput input{PropertyKind::h, PropertyKind::dp, "13.68", "27.65"};
    SolverFields fields;
    const Resolution found =
        resolvePair(input.kind1, input.value1, input.kind2, input.value2, atm(), openRangeFinders(), fields);
    return commands.markPoint(input, readReport(fillReport(found.point, {}, {})), lists, identification, window);
  }

  bool mix(const char* db1 = "75", const char* wb1 = "62.5", const char* db2 = "95", const char* wb2 = "75") {
    ChartLimits limits;
    readLimits(lists, limits);
    const MixingPressure pressure{atm(), document().pressure.entry};
    return commands.drawMixture(mixture(db1, wb1, db2, wb2, pressure), limits, window) == nullptr;
  }

  bool pin(const ChartCoordinates& place = {80, 0.0101}) {
    const Setting setting{fullLimits, {document().pressure.entry, atm()}};
    const auto pinned = readingToKeep(setting, place);
    return pinned && commands.add({setting, *pinned}, window) == nullptr;
  }

  /// The pressure window is opened, which makes the default current, and left.
  void lookAtPressure() { commands.setCurrentPressure(defaultPressureText); }

  void setPressure(const PressureEntry& entry) {
    lookAtPressure();
    if (const auto inhg = pressureFor(entry).inhg) commands.setCurrentPressure(*inhg);
    commands.changePressure(entry, window);
  }
};

}  // namespace moistair::test
