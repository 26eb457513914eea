/// \file
/// How a command of the headless tool ends when it cannot do what it was asked.
///
/// A command throws a `Fault`; `main` prints its text as one line on standard error and ends with its exit code.
/// Nothing below the tool throws.
#pragma once

#include <stdexcept>
#include <string>

namespace moistair {

enum class ExitCode {
  success = 0,
  failure = 1,   ///< no such state, rows that failed, a file that cannot be read or written to its end
  badUsage = 2,  ///< a command line, or a table's header, that makes no sense
};

class Fault : public std::runtime_error {
public:
  Fault(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

  ExitCode code() const { return code_; }

private:
  ExitCode code_;
};

/// One line on standard error, whatever was typed that it repeats.
void say(std::string text);

inline Fault badUsage(const std::string& text) { return {ExitCode::badUsage, text}; }
inline Fault failure(const std::string& text) { return {ExitCode::failure, text}; }

}  // namespace moistair
