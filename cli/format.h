/// \file
/// The choice between a result to read, as JSON and as CSV.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace moistair {

enum class Format { text, json, csv };

/// Adds --format.
void addFormat(CLI::App& command, Format& format);

/// Appends a text and blanks in front of it, so that its decimal point, or its end if it has none, comes `column`
/// characters behind the start. Too long a text gets one blank.
void appendAligned(std::string& out, const std::string& text, std::size_t column);

/// Appends a text and blanks behind it, up to so many characters.
void appendPadded(std::string& out, const std::string& text, std::size_t width);

/// Where a number's decimal point comes in a column of a table to read.
inline constexpr std::size_t pointColumn = 6;

/// Appends a line of a table to read: its caption and the columns behind it, without blanks at its end.
void appendColumns(std::string& out, const std::string& caption, const std::vector<std::string>& cells);

}  // namespace moistair
