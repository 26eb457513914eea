/// \file
/// Two streams of moist air and their adiabatic mixture.
///
/// A problem is three columns of texts: two streams, each given by any two properties and an air flow rate, and the
/// mixed stream. The columns are the stores of their values: every step reads its inputs back from the texts, rounded
/// as shown, so the balance agrees with what the user can work out from the window. The mixture follows from the moist
/// air rates (dry air and vapor), not from the dry air rates.
///
/// The mixing window runs `resolveStream` and then `mixStreams` at every change; the mixing line and the block for the
/// log read the columns. Nothing here knows a chart, and nothing here is ever refused with a message: an unfinished
/// problem has blank texts.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "engine/exact.h"
#include "engine/pressureunits.h"
#include "engine/resolver.h"

namespace moistair {

/// One column of the mixing window. The mixed stream has no kinds and no values.
struct AirStream : StateTexts {              ///< its state in seven decimals
  std::optional<PropertyKind> kind1, kind2;  ///< none if the list shows a text that is no property
  std::string value1, value2;                ///< as typed, read strictly
  std::string flow;       ///< air flow rate [actual cu ft/min]: as typed; of the mixed stream the sum
  bool complete = false;  ///< whether the stream is resolved
  bool exact = false;     ///< whether its state is the exact one in place of what the search finds
  std::string pressure;   ///< pressure or elevation as the user entered it
  std::string pvsAt;      ///< saturation vapor pressure at the dry bulb [in Hg]
  std::string dryRate, vaporRate, moistRate;  ///< flow of dry air, of water vapor, of both [lb/min]

  bool operator==(const AirStream&) const = default;
};

/// The pressure a problem is solved at, taken over when its window opens.
struct MixingPressure {
  double atm = 0;       ///< current pressure [in Hg]
  PressureEntry entry;  ///< the pressure last set, as the user gave it
};

struct MixingProblem {
  MixingPressure pressure;
  std::array<AirStream, 2> streams;
  AirStream mixed;
  std::string pressureCaption;                ///< empty until the first stream is resolved, and never blanked again
  bool savable = false;                       ///< whether the mixed column is filled
  SolverFields solverFields;                  ///< shared by both streams, and by nothing else
  SearchMode mode = SearchMode::accelerated;  ///< of all searches
  bool exactMixture = false;                  ///< whether the mixed stream is to be the exact one where there is one
};

/// One row of the table: a caption, the print-zone steps that bring its value to column 57 of the log, and the text.
struct ReadoutRow {
  const char* key;      ///< in files and for programs
  const char* caption;  ///< null for the pressure, whose caption depends on its unit
  int zoneSteps;        ///< 0 for a row that is not saved
  std::string AirStream::*text;
};

inline constexpr std::size_t readoutCount = 14;
inline constexpr std::size_t enteredReadouts = 2;  ///< the first rows, which have the digits that were typed
inline constexpr std::size_t shownReadouts = enteredReadouts + heldCount;  ///< the rest is neither seen nor saved

/// All rows of the table from the flow downward, in the window and in the log.
inline constexpr std::array<ReadoutRow, readoutCount> readoutRows = [] {
  std::array<ReadoutRow, readoutCount> rows = {
      {{"flow", "Air flow rate (acfm)", 3, &AirStream::flow}, {"pressure", nullptr, 3, &AirStream::pressure}}};
  for (std::size_t i = 0; i < heldCount; ++i) {
    const Property& property = propertyOf(shownOrder[i]);
    rows[enteredReadouts + i] = {property.key, property.caption, property.zoneSteps, property.text};
  }
  rows[shownReadouts] = {"pvsat", "Vapor pr. at saturation (In Hg)", 0, &AirStream::pvsAt};
  rows[shownReadouts + 1] = {"dryrate", "Dry air fow rate (lb/min)", 0, &AirStream::dryRate};
  rows[shownReadouts + 2] = {"vaporrate", "Water vapor flow rate  (lb/min)", 0, &AirStream::vaporRate};
  rows[shownReadouts + 3] = {"moistrate", "Moist air flow rate (lb/min)", 0, &AirStream::moistRate};
  return rows;
}();

/// Heads of the columns: the two streams and the mixed stream.
inline constexpr std::array<const char*, 3> columnHeads = {"Stream 1", "Steram 2", "Mixed stream"};

/// The caption of a row as the window now shows it.
std::string captionOf(const ReadoutRow& row, const MixingProblem& problem);

/// Resolves a stream, 0 or 1, from its kinds, values and flow. Where it cannot be resolved it stays incomplete and its
/// read-outs blank; what comes back says why. The mixed column is blanked, the other stream not touched. `mixStreams`
/// must follow. A stream that is to be exact gets the exact state, by `exactChoice`, or stays incomplete.
Resolution resolveStream(MixingProblem& problem, std::size_t stream);

/// Fills the mixed column from the two streams, or blanks it when one of them is incomplete, a flow is not above 0, or
/// so little flows that the moist air rate reads 0. A mixture too dry to have a dew point has a blank one.
void mixStreams(MixingProblem& problem);

/// The given values of a stream as they are read, a text that is no number as 0; none if it has not two kinds.
std::optional<PairOfGiven> givenOf(const AirStream& stream);

/// The numbers that a column shows; no value where it is blank.
StatePoint shownState(const AirStream& column);

/// What the mixed stream visibly misses. Its wet bulb comes from a search in tenths; its enthalpy and humidity ratio
/// are those of the balance and fix the exact state. It misses what of that can be seen, and the wet bulb also where
/// that lies beyond those of both streams and the exact one does not.
Missed judgedMixture(const AirStream& one, const AirStream& two, const AirStream& mixed, double atm);

}  // namespace moistair
