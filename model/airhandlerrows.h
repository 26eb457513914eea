/// \file
/// The air handler as rows to read and to edit: what a table or a form shows, and what its changes write.
///
/// A row is a line of the air handler with a step or a goal. A form edits the `TypedLine` of a row, whose values are as
/// typed ("15tons", "?", "55"), and writes the line from it; blank lines and comments in other lines stay as they are.
/// All functions take lines and return lines, so that a change is one step to undo (`airHandlerChange`).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/airhandler.h"

namespace moistair {

/// A line taken apart, values as typed.
struct TypedLine {
  bool goal = false;
  std::string name{};                  ///< of the step; of a goal the stream
  std::string kind{};                  ///< "coil", or "point" where it begins at a marked point; empty for a goal
  std::vector<std::string> sources{};  ///< names of streams; of kind "point" one, the identification
  std::vector<std::pair<std::string, std::string>> values{};  ///< parameters with their texts
  std::string comment{};                                      ///< with its "#"

  bool operator==(const TypedLine&) const = default;

  /// The text of a parameter; null if it is not given.
  const std::string* value(std::string_view parameter) const;
};

/// None for a blank line, a comment and what has not the form of a line.
std::optional<TypedLine> typedLine(std::string_view line);
std::string lineOf(const TypedLine& typed);

/// A box of the form of a row.
struct FormField {
  Parameter parameter = Parameter::db;
  std::string caption;               ///< "Dry bulb"
  std::string unit{};                ///< "deg F"; empty for none
  std::string text{};                ///< as typed; empty if it is not given
  std::vector<std::string> words{};  ///< of a parameter that is a word or a stream: what can be chosen
  bool canBeUnknown = false;
  double solved = noValue;  ///< what an unknown has come to, in the unit
};

/// "Dry bulb", "Airflow (actual)": a parameter in words.
const char* captionOf(Parameter parameter);
/// "Mixing box", "Cooling coil": a kind in words.
const char* captionOf(StepKind kind);

/// A mistake, at its row and box.
struct RowMistake {
  std::optional<std::size_t> line;  ///< from 0; none for what concerns the whole
  std::string parameter;            ///< the word of the parameter; empty for the whole row
  std::string words;
};

struct AirHandlerRow {
  std::size_t line = 0;  ///< in the lines, from 0
  TypedLine typed;
  std::optional<std::size_t> step{};  ///< in the solved system; none for a goal and a line that cannot be read
  StreamReadout leaving{};            ///< all without a value if it has no result
  double total = noValue, sensible = noValue, tons = noValue, water = noValue;
  std::vector<std::string> remarks{};
  std::string mistake{};  ///< empty for none
};

std::vector<AirHandlerRow> airHandlerRows(const std::vector<std::string>& lines, const SolvedAirHandler& solved);

/// All mistakes and failures of a solved air handler, each at its place.
std::vector<RowMistake> mistakesOf(const std::vector<std::string>& lines, const SolvedAirHandler& solved);

/// The boxes of a row's form: all parameters that its kind takes, or of a goal all that can be one.
std::vector<FormField> formOf(const TypedLine& typed, const std::vector<std::string>& lines,
                              const SolvedAirHandler& solved);

/// The streams that a step may still take: those of other steps that nobody takes, and its own sources.
std::vector<std::string> availableStreams(const std::vector<std::string>& lines, std::size_t line);

/// A row with a value typed for a parameter: "?" makes it an unknown, an empty text takes it out. The words of what is
/// wrong with the text are those of the tool.
Result<TypedLine> withValue(TypedLine typed, Parameter parameter, std::string_view text);

/// Lines after an edit. Names stay unique; `line` counts from 0.
std::vector<std::string> withLine(std::vector<std::string> lines, std::size_t line, const TypedLine& typed);
std::vector<std::string> addedStep(std::vector<std::string> lines, std::size_t after, StepKind kind);
std::vector<std::string> addedGoal(std::vector<std::string> lines, const std::string& stream);
std::vector<std::string> copiedLine(std::vector<std::string> lines, std::size_t line);
std::vector<std::string> movedLine(std::vector<std::string> lines, std::size_t line, int by);
std::vector<std::string> deletedLines(std::vector<std::string> lines, std::vector<std::size_t> which);

/// A step under another name, which those that take its streams, its goals and its indirect cooler follow. An error for
/// a name that cannot be one or is taken.
Result<std::vector<std::string>> renamedStep(std::vector<std::string> lines, std::size_t line, const std::string& name);

/// The two streams of a mixing problem and their mixture as an air handler; none for a problem without two states.
std::optional<std::vector<std::string>> airHandlerOf(const MixingLine& mixture);

}  // namespace moistair
