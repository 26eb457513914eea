/// \file
/// Fields of a table as text, separated by commas (RFC 4180) or by another character.
#pragma once

#include <string>
#include <string_view>

namespace moistair {

/// Appends a field, in quotes where it needs them.
void appendField(std::string& out, std::string_view text, char separator = ',');

}  // namespace moistair
