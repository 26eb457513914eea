#include "advice/pairnotes.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/openfinders.h"

using namespace moistair;
using enum PropertyKind;

namespace {

/// "F" before the words of a fault.
std::string shown(const BoxNote& note) { return note.fault ? "F " + note.words : note.words; }

TEST(PairNotes, MarkTheBoxAtFault) {
  constexpr const char* aboveBoth = "F no state found: above saturation";
  const struct {
    const char* name;
    PairInput input;
    const char* boxes[2];
    const char* words;
    const char* kinds = "";
  } rows[] = {
      {"nothing to say", {db, wb, "75", "62.5"}, {"", ""}, ""},
      {"not yet filled", {db, wb, "75", ""}, {"", ""}, ""},
      {"nothing typed", {db, wb, "", ""}, {"", ""}, ""},
      {"outside its range",
       {db, rh, "75", "101"},
       {"", "F relative humidity: above 0 and up to 100"},
       "relative humidity: above 0 and up to 100"},
      {"the range in the other order",
       {rh, db, "101", "75"},
       {"F relative humidity: above 0 and up to 100", ""},
       "relative humidity: above 0 and up to 100"},
      {"wet bulb above dry bulb", {db, wb, "75", "80"}, {"", "F wet bulb above dry bulb"}, "wet bulb above dry bulb"},
      {"the same in the other order",
       {wb, db, "80", "75"},
       {"F wet bulb above dry bulb", ""},
       "wet bulb above dry bulb"},
      {"wet bulb beyond its range rather than above",
       {db, wb, "75", "130"},
       {"", "F wet bulb: above 0 and up to 120"},
       "wet bulb: above 0 and up to 120"},
      {"values that do not go together",
       {db, dp, "50", "60"},
       {aboveBoth, aboveBoth},
       "no state found: above saturation"},
      {"beyond the range, but with an exact answer",
       {db, h, "119.5", "61.99"},
       {"", "F enthalpy: above 0 and up to 61.9"},
       "enthalpy: above 0 and up to 61.9; exact: dry bulb 119.50, wet bulb 94.29"},
      {"both beyond their ranges",
       {rh, db, "101", "130"},
       {"F relative humidity: above 0 and up to 100", "F dry bulb: above 0 and up to 120"},
       "relative humidity: above 0 and up to 100; dry bulb: above 0 and up to 120"},
      {"beyond its range beside no number",
       {db, rh, "x", "101"},
       {"F dry bulb is no number", "F relative humidity: above 0 and up to 100"},
       "dry bulb is no number"},
      {"a comma is no part of a number",
       {db, wb, "1,0", "62.5"},
       {"F dry bulb is no number", ""},
       "dry bulb is no number"},
      {"no number beside an empty box", {db, wb, "x", ""}, {"F dry bulb is no number", ""}, "dry bulb is no number"},
      {"a dew point that is no number counts as 0", {db, dp, "75", "-"}, {"", "read as 0"}, "dew point: read as 0"},
      {"one property twice",
       {wb, wb, "75", "62.5"},
       {"", ""},
       "wet bulb is given twice",
       "F wet bulb is given twice|F wet bulb is given twice"},
      {"two names for one thing",
       {dp, w, "50", ".01"},
       {"", ""},
       "humidity ratio and dew point say the same thing and fix no state",
       "F humidity ratio and dew point say the same thing and fix no state|"
       "F humidity ratio and dew point say the same thing and fix no state"},
      {"no property", {std::nullopt, wb, "75", "62.5"}, {"", ""}, noPropertyChosen, "F no property is chosen|"},
      {"neither property",
       {std::nullopt, std::nullopt, "", ""},
       {"", ""},
       noPropertyChosen,
       "F no property is chosen|F no property is chosen"},
      {"missed, and said",
       {h, dp, "13.68", "27.65"},
       {"", ""},
       "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const Resolution resolution = resolveInput(row.input, defaultPressure, openRangeFinders(), fields);
    const PairNotes notes = pairNotes(row.input, defaultPressure, resolution);
    EXPECT_EQ(shown(notes.values[0]), row.boxes[0]);
    EXPECT_EQ(shown(notes.values[1]), row.boxes[1]);
    EXPECT_EQ(notes.remark.words, row.words);
    const std::string kinds = shown(notes.kinds[0]) + "|" + shown(notes.kinds[1]);
    EXPECT_EQ(kinds == "|" ? "" : kinds, row.kinds);
  }
}

TEST(BoxNotes, SayWhatATextIsReadAs) {
  using enum PressureUnit;
  const struct {
    const char* name;
    BoxNote note;
    const char* shown;
  } rows[] = {
      {"a group separator", lenientNote("12,000"), "read as 12"},
      {"letters behind", lenientNote("30abc"), "read as 30"},
      {"no number", lenientNote("abc"), "read as 0"},
      {"an overflow", lenientNote("1e999"), "read as 0"},
      {"blanks around", lenientNote(" 12 "), ""},
      {"nothing", lenientNote(""), ""},
      {"a line's value is all or nothing", zeroNote("5o"), "read as 0"},
      {"a line's value", zeroNote("5e1"), ""},
      {"elevation with a separator", pressureNote({elevation, "5,000"}), "read as 5"},
      {"elevation left empty", pressureNote({elevation, ""}), "read as 0"},
      {"pressure left empty", pressureNote({psi, ""}), ""},
      {"out of range", pressureNote({elevation, "38651"}), "F outside its range (0 - 38650)"},
      {"read in part and out of range", pressureNote({inhg, "2,9"}), "F read as 2, outside its range (5.906 - 147.65)"},
      {"the default", pressureNote({standard, "29.92126"}), ""},
  };
  for (const auto& row : rows) EXPECT_EQ(shown(row.note), row.shown) << row.name;
}

}  // namespace
