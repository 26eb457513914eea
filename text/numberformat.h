/// \file
/// Numbers written for programs, for tables and for print. No value is an empty text.
///
/// What a read-out of a window shows is in numbertext.h, since a later step reads it back; so are the plain decimals
/// that these are made of.
#pragma once

#include <string>

namespace moistair {

/// For programs: the seven decimals that the windows show, with a zero before the point, since not every reader takes
/// ".5", and with -1, which a window leaves blank.
void appendSevenDecimals(std::string& out, double number);

/// For programs: as few digits as give the same double back.
void appendRoundTrip(std::string& out, double number);

/// For a table to read: as `showValue`, also for a -1.
std::string tableValue(double number);

/// At most so many decimals, without zeros at the end: "29.9213".
std::string atMostDecimals(double number, int decimals);

/// For print: the text of a number with the sign that printers set before what is below zero.
std::string typeset(const std::string& number);

/// For print: so many decimals, and no point where there are none.
std::string typeset(double number, int decimals);

}  // namespace moistair
