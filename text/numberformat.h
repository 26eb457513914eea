/// \file
/// Numbers written for other programs to read: by the headless tool, and in tables.
///
/// Seven decimals are those that the windows show, with a zero before the point, since not every reader takes ".5", and
/// with -1, which a window leaves blank. A round-trip number has as few digits as give the same double back. No value
/// is an empty text.
#pragma once

#include <string>

namespace moistair {

void appendsevendecimals(std::string& out, double number);

void appendroundtrip(std::string& out, double number);

}  // namespace moistair
