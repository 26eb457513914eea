/// \file
/// What of a document goes on a sheet.
///
/// A sheet has one chart: the last one in the document, or all that there is if there is none. What was put on the
/// charts before it is shown on that one too, as the list of entries does. Points are numbered in their order, the
/// streams of a mixture among them. Nothing here knows a page.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "engine/property.h"
#include "model/document.h"
#include "process/solvedsystem.h"
#include "sheet/weather.h"

namespace moistair {

/// A line of constant property that was asked for.
struct SheetLine {
  LineKind kind = LineKind::relativeHumidity;
  double value = 0;
  double atm = 0;         ///< that it is traced at [in Hg]
  std::size_t entry = 0;  ///< its place in the document
};

/// A state with its mark. Properties are in the order of the columns, no value where there is none.
struct SheetState {
  int number = 0;
  std::string name;  ///< empty for none
  std::array<double, propertyCount> properties{};
  double atm = 0;         ///< that it was worked out at [in Hg]
  std::size_t entry = 0;  ///< its place in the document
  bool pinned = false;    ///< a reading kept on the chart, which shows all of itself there
  bool missed = false;    ///< whether it visibly misses a given value: it has a mark, and a note

  double db() const { return properties[columnOf(PropertyKind::db)]; }
  double w() const { return properties[columnOf(PropertyKind::w)]; }
  const char* mark() const { return missed ? "*" : ""; }
};

/// Two streams and their mixture, as places in the list of states.
struct SheetMixture {
  std::size_t one = 0, mixed = 0, other = 0;
  double share = 0;  ///< of the first stream in the moist air; no value if it is not known
};

struct SheetContent {
  ChartLimits limits;
  Pressure pressure;
  bool families = true;     ///< of a standard chart
  std::size_t omitted = 0;  ///< entries of the previous chart, which are not on this one
  std::vector<SheetLine> lines;
  std::vector<SheetState> states;
  std::vector<SheetMixture> mixtures;
  std::optional<SheetWeather> weather{};
  std::optional<SolvedSystem> system{};  ///< the air handler, if there is one
  std::vector<Zone> zones{};             ///< those that are shown
  std::vector<std::string> notes;        ///< on the states with a mark: "* 2 Supply: this state has ..."
};

SheetContent contentOf(const Document& document);

/// "29.921 in Hg (14.696 psi), sea level": a pressure with the elevation that has it; one that the pressure
/// window has refused is marked.
std::string pressureText(const Pressure& pressure);

/// "0 to 120 °F, 0 to 0.030 lb/lb".
std::string limitsText(const ChartLimits& limits);

/// Every text of a content that a person has typed.
std::vector<std::string> typedTexts(const SheetContent& content);

}  // namespace moistair
