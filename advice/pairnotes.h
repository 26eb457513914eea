/// \file
/// The notes next to the boxes into which values are typed.
///
/// The program reads some texts as far as they are numbers and others strictly, and refuses a pair without a word. That
/// stays so; the windows show in addition what they get from here: a note at the box whose text counts as something
/// else than it looks, a fault at the box that makes a pair fail, and one line of words.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "advice/remark.h"
#include "engine/pressureunits.h"

namespace moistair {

/// What is said of one box.
struct BoxNote {
  std::string words;   ///< "read as 12"; empty if there is nothing to say
  bool fault = false;  ///< the value is refused; else it only counts as something else than it looks

  bool empty() const { return words.empty(); }
};

/// Of a box that is read leniently: nothing where all of its text is one number, or where there is no text.
BoxNote lenientNote(std::string_view text);

/// Of a box that is read strictly, and counts as 0 where its text is no number.
BoxNote zeroNote(std::string_view text);

inline constexpr const char* noUnitChosen = "no unit is chosen, no pressure will be set";

/// Of the box of the pressure window. An elevation that is left empty counts as 0.
BoxNote pressureNote(const PressureEntry& entry);

inline constexpr const char* noPropertyChosen = "no property is chosen";

/// What is said of a pair.
struct PairNotes {
  std::array<BoxNote, 2> kinds;   ///< of the two lists
  std::array<BoxNote, 2> values;  ///< of the two boxes
  Remark remark;                  ///< one line about the pair, a fault of a box included
  bool refused = false;           ///< it has no state, for another reason than a box that is still empty
};

/// @param resolution of this input, or the input rule that it breaks. Boxes that are still empty are no fault.
/// @param hasCurrentChart whether there is a chart for a search that keeps to one
PairNotes pairNotes(const PairInput& input, double atm, const Resolution& resolution, bool hasCurrentChart = true);

/// A pair with its resolution, the input rules tested first: what the live rows show.
Resolution resolveInput(const PairInput& input, double atm, const RangeFinders& finders, SolverFields& fields);

}  // namespace moistair
