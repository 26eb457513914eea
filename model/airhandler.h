/// \file
/// The air handler of a document: its steps and goals as lines of text, and the system that they come to.
///
/// A chart has one. It is an entry like the others, so that undo, the file, a new chart and the table treat it alike,
/// but it draws nothing by itself. Lines are kept as typed, mistakes included; what they say is worked out from the
/// document whenever it is needed. Besides the kinds of process/kinds.h a step may begin at a marked point:
///
///     OA: point Outside,scfm=2000        an `air` step of the point's two given properties, solved exactly
///     OA: point "North, roof"            a name with a comma, a quote (doubled), "#" or blanks around it
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/history.h"
#include "process/solvedsystem.h"

namespace moistair {

/// Its place in the document; none without an air handler. If there are several, the last counts.
std::optional<std::size_t> airHandlerPlace(const Document& document);

/// How many of its lines are steps, by their form alone.
std::size_t stepCount(const AirHandler& airHandler);

/// Its lines; none without one.
std::vector<std::string> airHandlerLines(const Document& document);

/// Where a line says "NAME: point WHICH".
struct PointReference {
  std::string step;       ///< name of the step
  std::string point;      ///< identification of the point
  std::size_t begin = 0;  ///< in the line, with its quotes
  std::size_t end = 0;
};

/// None for any other line.
Result<std::optional<PointReference>> pointReference(std::string_view line);

/// The identification as it is written in a line, with quotes if it needs any.
std::string pointWord(const std::string& identification);

/// Whether an identification can be written in a line: no line breaks or other control characters.
bool canBeReferred(const std::string& identification);

/// The lines as a system, with the points of the document in place of their names.
struct DocumentSystem {
  SystemText text;
  std::vector<std::optional<std::size_t>> points;  ///< by step: the place of the point that it begins at
  std::vector<Error> errors;                       ///< what could not be read, points that do not exist
};
DocumentSystem readLines(const std::vector<std::string>& lines, const Document& document);

/// The air handler solved at the pressure of its chart.
struct SolvedAirHandler {
  SolvedSystem system;
  std::vector<std::optional<std::size_t>> points;  ///< by step
};

/// @param near what it came to before a small change, to start from
/// @return nothing without an air handler
std::optional<SolvedAirHandler> solvedAirHandler(const Document& document, const SolvedAirHandler* near = nullptr);

/// Solves again only when lines, points or pressure have changed.
class AirHandlerCache {
public:
  /// Null without an air handler. Good until the next call.
  const SolvedAirHandler* of(const Document& document);

private:
  struct Input {
    std::vector<std::string> lines;
    std::vector<MarkedPoint> points;
    double atm;

    bool operator==(const Input&) const = default;
  };
  std::optional<Input> input_;
  std::optional<SolvedAirHandler> solved_;
};

/// Other lines in place of those that there are; an air handler if there was none, none if there are no lines. It takes
/// the limits and the pressure of the last chart, which there has to be.
/// @param name of the change for the user, such as "Air handler"
Change airHandlerChange(const Document& document, std::vector<std::string> lines, std::string name);

/// Takes the references of the air handler to a point along to the new identification; nothing if there are none, or
/// if another point has the same identification, so that they do not say which.
std::optional<Entry> followedRenaming(const Document& document, std::size_t point, const std::string& identification);

}  // namespace moistair
