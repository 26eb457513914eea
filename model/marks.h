/// \file
/// What on the chart can be pointed at: the chart that is read, the marks on it, and a point put elsewhere.
#pragma once

#include <optional>
#include <vector>

#include "chart/reading.h"
#include "model/document.h"

namespace moistair {

/// Limits and pressure of the current chart if it can be seen; none while there is none.
std::optional<Setting> currentChart(const Document& document);

/// A mark: a point, one of the three of a mixture, or a reading that was kept.
struct Mark {
  ChartCoordinates place;
  std::size_t entry = 0;  ///< its place in the document
};

/// Marks whose place the axes of the chart give: those that were made with its limits.
std::vector<Mark> marksOf(const Document& document);

/// The reading at a place of a chart, to be kept on it; none where there is no air.
std::optional<PinnedReading> readingToKeep(const Setting& chart, const ChartCoordinates& place);

/// The corner of a place where a label covers no mark of the document and no label of another reading; the first if
/// there is none.
LabelCorner freeCorner(const Document& document, const PinnedReading& pinned, WindowSize window);

/// Whether an entry is a point, which can be put elsewhere.
bool isPoint(const Entry& entry);

/// A point put at another place. It keeps its identification, its pressure and the two kinds of property that it was
/// given by, whose values become those of the new place; its state is what these two then resolve to, as if they had
/// been typed. None where there is no air at that place and at its pressure.
std::optional<Entry> movedTo(const Entry& point, const ChartCoordinates& place, WindowSize window);

}  // namespace moistair
