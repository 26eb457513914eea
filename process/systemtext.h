/// \file
/// A system of processes as text: one step a line, as people type it, and back.
///
///     OA: air db=95,wb=75,scfm=2000      name, kind, parameters
///     MA: mix OA RA                      sources between the kind and the parameters
///     goal RM db=75,rh=50                what must come out, for a system with unknowns ("lbh=?")
///
/// Blank lines and what follows a "#" are left out. Kinds and parameters are known in capitals too, names are not.
/// Values are numbers with or without a unit (units.h). The reader knows the words of kinds.h only; what a kind does
/// with them, and which names exist, is checked by `compile` (system.h). The typed lines are kept, so that a system
/// that is written again looks as it was typed wherever it is still the same.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "process/goal.h"
#include "process/system.h"
#include "text/error.h"

namespace moistair {

struct SystemText {
  AirSystem system;
  std::vector<Goal> goals;         ///< in the order of the text, one for each value
  std::vector<std::string> lines;  ///< as typed; steps and goals count them from 1
};

/// The longest text that is read [bytes]; a system has no use for a fraction of it.
inline constexpr std::size_t longestSystemText = 256u << 10;

struct ReadSystem {
  SystemText text;            ///< what could be read
  std::vector<Error> errors;  ///< all mistakes; the place is the line, the name and the parameter
};

/// Reads a whole text. Mistakes within lines only: the system still has to be compiled.
ReadSystem readSystem(std::string_view text);

/// Adds what a single line says, without keeping the line. The error's place is the step's name, if it has one, and the
/// parameter.
/// @param number the line's, 0 for none
Outcome readLine(std::string_view line, int number, SystemText& to);

/// Reads a value of a parameter: a number with or without a unit, a word of the parameter, or the name of a stream;
/// "?" is an unknown. The error's place is the parameter.
Result<Assignment> readAssignment(Parameter parameter, std::string_view text);

/// Whether a parameter is a number, not a word or a stream.
bool isNumber(Parameter parameter);

/// The parameter of a name as typed; an error with the closest of those that `among` holds where there is none.
Result<Parameter> readParameter(std::string_view name, ParameterSet among);

/// Goals whose name no stream has, and values that are a goal twice.
std::vector<Error> checkGoals(const SystemText& text);

/// A step or a goal as a line, numbers in base units and with as many digits as give the same double.
std::string lineOf(const ProcessStep& step);
std::string lineOf(const Goal& goal);

/// The whole text. Lines whose steps and goals are as they were read are written as typed, comments and blank lines
/// too; others again, and those that no line holds at the end. Ends with a line break.
std::string textOf(const SystemText& text);

/// Whether two steps say the same, wherever they were read. (Unknown values have no value, so == does not tell.)
bool sameStep(const ProcessStep& one, const ProcessStep& other);

}  // namespace moistair
