/// \file
/// Lines and fields of weather files.
///
/// A quoted field may hold the separator but never goes beyond its line: a quote that is left open costs one row and
/// not the rest of the file. The views are into the text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace moistair {

/// Hands out the lines of a text, without their ends.
class LineReader {
public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  bool next(std::string_view& line);
  std::size_t number() const { return number_; }  ///< of the line handed out last, from 1

private:
  std::string_view rest_;
  std::size_t number_ = 0;
};

/// Takes a line apart; each field without blanks and quotes around it. False if a quote was left open.
bool splitFields(std::string_view line, char separator, std::vector<std::string_view>& fields);

/// The number that a field is, also one with a decimal comma where the separator is another character; no value for
/// anything else. Sets `comma` where there was one.
double fieldNumber(std::string_view field, char separator, bool& comma);

/// "line 12"
std::string lineWords(std::size_t line);

/// A field for a message, with at most 40 characters, as UTF-8 whatever its bytes are.
std::string shownField(std::string_view field);

inline double fahrenheit(double celsius) { return celsius * 1.8 + 32; }
inline constexpr double inHgPerPascal = 1 / 3386.389;  ///< conventional, at 32 deg F (NIST SP 811)
inline constexpr double feetPerMeter = 1 / 0.3048;

}  // namespace moistair
