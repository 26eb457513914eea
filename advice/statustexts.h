/// \file
/// What is drawn and which pressure is current, in words for the status line.
///
/// Three pressures can differ: the current one, with which everything is calculated; the one that was set last, which
/// the header of the chart states; and the one at which the chart was drawn. The lists can hold other limits than the
/// chart. None of that changes what a command does; here is where it is said.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "model/document.h"

namespace moistair {

inline constexpr const char* limitsChanged = "limits changed, not drawn";

struct StatusTexts {
  std::string pressure;  ///< current, with its unit as set: "24.896 in Hg, 5000 ft"; "29.92126 in Hg in force"
  std::string header;    ///< "header says 5000 ft", where that is not the current one; empty where it is
  std::string chart;     ///< type, pressure and limits: "Standard chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030"
  std::string changes;   ///< "limits changed, not drawn", "drawn at 29.92126 in Hg": why the chart is not as it looks
  std::array<bool, 4> changed{};  ///< which lists hold another limit than the chart, in the order of `LimitTexts`
};

/// @param atm current pressure [in Hg]
/// @param lists texts of the four lists
StatusTexts statusTextsOf(const Document& document, const LimitTexts& lists);

/// "3 records"
std::string recordsWords(std::size_t records);

/// Whether each kind of line draws something for an empty box on the current chart, in the order of `LineKind`; without
/// a current chart, whether it could.
std::array<bool, 4> emptyLines(const Document& document);

}  // namespace moistair
