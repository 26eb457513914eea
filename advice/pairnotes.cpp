#include "advice/pairnotes.h"

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr const char* wetbulbabove = "wet bulb above dry bulb";

bool isnumber(std::string_view text) { return hasvalue(strictnumber(text)); }

std::string readas(double number) { return "read as " + numbertext(number); }

/// A text that is no number counts as 0, which a dew point may be and nothing else.
void notetexts(PairNotes& notes, const PairInput& input) {
  const std::array<std::optional<PropertyKind>, 2> kinds = {input.kind1, input.kind2};
  const std::array<std::string_view, 2> values = {input.value1, input.value2};
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!kinds[i]) notes.kinds[i] = {nopropertychosen, true};
    if (values[i].empty() || isnumber(values[i])) continue;
    const bool counts = kinds[i] == PropertyKind::dp;
    const std::string name = kinds[i] ? propertyname(*kinds[i]) : "the value";
    notes.values[i] = counts ? BoxNote{readas(0)} : BoxNote{name + isnonumber, true};
    if (notes.remark.words.empty()) notes.remark.words = counts ? name + ": " + readas(0) : notes.values[i].words;
  }
}

bool wetbulbabovedrybulb(const PairInput& input) {
  using enum PropertyKind;
  const double one = strictnumber(input.value1);
  const double two = strictnumber(input.value2);
  return (input.kind1 == db && input.kind2 == wb && two > one) || (input.kind1 == wb && input.kind2 == db && one > two);
}

/// The two kinds do not go together, or neither list has one.
void notekinds(PairNotes& notes, const PairInput& input, Resolution resolution) {
  if (input.kind1) resolution.kind = *input.kind1;
  notes.remark.words = input.kind1 ? whynot(resolution, windowwording) : nopropertychosen;
  notes.kinds.fill({notes.remark.words, true});
}

/// Each box whose value is beyond its limits. One that counts as something else than it looks has been told.
void noteranges(PairNotes& notes, const PairInput& input) {
  const auto faults = rangefaults({*input.kind1, strictnumber(input.value1)},
                                  {*input.kind2, strictnumber(input.value2)}, windowwording);
  for (std::size_t i = 0; i < faults.size(); ++i) {
    if (notes.values[i].empty() && !faults[i].empty()) notes.values[i] = {faults[i], true};
    if (notes.remark.words.empty()) notes.remark.words = faults[i];
  }
}

/// The two values do not go together.
void notepair(PairNotes& notes, const PairInput& input, double atm, const Resolution& resolution, bool chartstands) {
  if (wetbulbabovedrybulb(input)) {
    notes.values[input.kind1 == PropertyKind::wb ? 0 : 1] = {wetbulbabove, true};
    notes.remark.words = wetbulbabove;
    return;
  }
  if (notes.remark.words.empty()) notes.remark = remarkon(input, atm, resolution, chartstands);
  if (notes.remark.words.empty()) notes.remark.words = whynot(resolution, windowwording);
  for (BoxNote& note : notes.values) {
    if (note.empty()) note = {notes.remark.words, true};
  }
}

}  // namespace

BoxNote lenientnote(std::string_view text) {
  return text.empty() || isnumber(text) ? BoxNote{} : BoxNote{readas(lenientnumber(text))};
}

BoxNote zeronote(std::string_view text) { return text.empty() || isnumber(text) ? BoxNote{} : BoxNote{readas(0)}; }

BoxNote pressurenote(const PressureEntry& entry) {
  if (!entry.unit || entry.unit == PressureUnit::standard) return {};
  if (entry.text.empty()) return pressurefor(entry).accepted ? BoxNote{readas(0)} : BoxNote{};
  BoxNote note = lenientnote(entry.text);
  if (pressurefor(entry).accepted) return note;
  if (!note.empty()) note.words += ", ";
  return {note.words + outsiderange(rowof(*entry.unit).rangehint), true};
}

PairNotes pairnotes(const PairInput& input, double atm, const Resolution& resolution, bool chartstands) {
  PairNotes notes;
  notetexts(notes, input);
  notes.refused = !resolution.resolved() && resolution.reason != Unresolved::blankvalue;
  switch (resolution.reason) {
    case Unresolved::none:
      if (notes.remark.words.empty()) notes.remark = remarkon(input, atm, resolution, chartstands);
      break;
    case Unresolved::blankvalue:
      if ((!input.kind1 || !input.kind2) && notes.remark.words.empty()) notes.remark.words = nopropertychosen;
      break;
    case Unresolved::nokind: notes.remark.words = nopropertychosen; break;
    case Unresolved::samekind:
    case Unresolved::humidityratiowithdewpoint: notekinds(notes, input, resolution); break;
    case Unresolved::givenvalue:
      if (notes.remark.words.empty()) notes.remark = remarkon(input, atm, resolution);
      noteranges(notes, input);
      break;
    case Unresolved::search:
    case Unresolved::state: notepair(notes, input, atm, resolution, chartstands); break;
  }
  return notes;
}

Resolution resolveinput(const PairInput& input, double atm, const RangeFinders& finders, SolverFields& fields) {
  Resolution resolution;
  resolution.reason = inputfault(input.kind1, input.kind2, input.value1, input.value2);
  if (!resolution.resolved()) return resolution;
  return resolvepair(input.kind1, input.value1, input.kind2, input.value2, atm, finders, fields);
}

}  // namespace moistair
