#include "advice/pairnotes.h"

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr const char* wetBulbAbove = "wet bulb above dry bulb";

bool isNumber(std::string_view text) { return hasValue(strictNumber(text)); }

std::string readAs(double number) { return "read as " + numberText(number); }

/// A text that is no number counts as 0, which a dew point may be and nothing else.
void noteTexts(PairNotes& notes, const PairInput& input) {
  const std::array<std::optional<PropertyKind>, 2> kinds = {input.kind1, input.kind2};
  const std::array<std::string_view, 2> values = {input.value1, input.value2};
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!kinds[i]) notes.kinds[i] = {noPropertyChosen, true};
    if (values[i].empty() || isNumber(values[i])) continue;
    const bool counts = kinds[i] == PropertyKind::dp;
    const std::string name = kinds[i] ? propertyName(*kinds[i]) : "the value";
    notes.values[i] = counts ? BoxNote{readAs(0)} : BoxNote{name + notANumber, true};
    if (notes.remark.words.empty()) notes.remark.words = counts ? name + ": " + readAs(0) : notes.values[i].words;
  }
}

bool wetBulbAboveDryBulb(const PairInput& input) {
  using enum PropertyKind;
  const double one = strictNumber(input.value1);
  const double two = strictNumber(input.value2);
  return (input.kind1 == db && input.kind2 == wb && two > one) || (input.kind1 == wb && input.kind2 == db && one > two);
}

/// The two kinds do not go together, or neither list has one.
void noteKinds(PairNotes& notes, const PairInput& input, Resolution resolution) {
  if (input.kind1) resolution.kind = *input.kind1;
  notes.remark.words = input.kind1 ? whyNot(resolution, windowWording) : noPropertyChosen;
  notes.kinds.fill({notes.remark.words, true});
}

/// Each box whose value is beyond its limits. One that counts as something else than it looks has been reported.
void noteRanges(PairNotes& notes, const PairInput& input) {
  const auto faults = rangeFaults({*input.kind1, strictNumber(input.value1)},
                                  {*input.kind2, strictNumber(input.value2)}, windowWording);
  for (std::size_t i = 0; i < faults.size(); ++i) {
    if (notes.values[i].empty() && !faults[i].empty()) notes.values[i] = {faults[i], true};
    if (notes.remark.words.empty()) notes.remark.words = faults[i];
  }
}

/// The two values do not go together.
void notePair(PairNotes& notes, const PairInput& input, double atm, const Resolution& resolution,
              bool hasCurrentChart) {
  if (wetBulbAboveDryBulb(input)) {
    notes.values[input.kind1 == PropertyKind::wb ? 0 : 1] = {wetBulbAbove, true};
    notes.remark.words = wetBulbAbove;
    return;
  }
  if (notes.remark.words.empty()) notes.remark = remarkOn(input, atm, resolution, hasCurrentChart);
  if (notes.remark.words.empty()) notes.remark.words = whyNot(resolution, windowWording);
  for (BoxNote& note : notes.values) {
    if (note.empty()) note = {notes.remark.words, true};
  }
}

}  // namespace

BoxNote lenientNote(std::string_view text) {
  return text.empty() || isNumber(text) ? BoxNote{} : BoxNote{readAs(lenientNumber(text))};
}

BoxNote zeroNote(std::string_view text) { return text.empty() || isNumber(text) ? BoxNote{} : BoxNote{readAs(0)}; }

BoxNote pressureNote(const PressureEntry& entry) {
  if (!entry.unit || entry.unit == PressureUnit::standard) return {};
  if (entry.text.empty()) return pressureFor(entry).accepted ? BoxNote{readAs(0)} : BoxNote{};
  BoxNote note = lenientNote(entry.text);
  if (pressureFor(entry).accepted) return note;
  if (!note.empty()) note.words += ", ";
  return {note.words + outsideRange(rowOf(*entry.unit).rangeHint), true};
}

PairNotes pairNotes(const PairInput& input, double atm, const Resolution& resolution, bool hasCurrentChart) {
  PairNotes notes;
  noteTexts(notes, input);
  notes.refused = !resolution.resolved() && resolution.reason != Unresolved::blankValue;
  switch (resolution.reason) {
    case Unresolved::none:
      if (notes.remark.words.empty()) notes.remark = remarkOn(input, atm, resolution, hasCurrentChart);
      break;
    case Unresolved::blankValue:
      if ((!input.kind1 || !input.kind2) && notes.remark.words.empty()) notes.remark.words = noPropertyChosen;
      break;
    case Unresolved::noKind: notes.remark.words = noPropertyChosen; break;
    case Unresolved::sameKind:
    case Unresolved::humidityRatioWithDewPoint: noteKinds(notes, input, resolution); break;
    case Unresolved::givenValue:
      if (notes.remark.words.empty()) notes.remark = remarkOn(input, atm, resolution);
      noteRanges(notes, input);
      break;
    case Unresolved::search:
    case Unresolved::state: notePair(notes, input, atm, resolution, hasCurrentChart); break;
  }
  return notes;
}

Resolution resolveInput(const PairInput& input, double atm, const RangeFinders& finders, SolverFields& fields) {
  Resolution resolution;
  resolution.reason = inputFault(input.kind1, input.kind2, input.value1, input.value2);
  if (!resolution.resolved()) return resolution;
  return resolvePair(input.kind1, input.value1, input.kind2, input.value2, atm, finders, fields);
}

}  // namespace moistair
