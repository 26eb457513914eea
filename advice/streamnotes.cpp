#include "advice/streamnotes.h"

namespace moistair {

namespace {

constexpr const char* airflow = "air flow";

/// Read leniently; a mixture takes a flow above 0.
BoxNote flowNote(const std::string& flow) {
  BoxNote note = lenientNote(flow);
  if (flow.empty() || lenientNumber(flow) > 0) return note;
  if (!note.empty()) note.words += ", ";
  return {note.words + "must be above 0", true};
}

}  // namespace

std::string pressureRemark(const MixingPressure& pressure) {
  const auto set = pressureFor(pressure.entry).inhg;
  if (!set || samePressure(lenientNumber(*set), pressure.atm)) return {};
  return "calculated at " + inhgWords(pressure.atm) + ", not at " + entryWords({pressure.entry, lenientNumber(*set)});
}

StreamNotes streamNotes(const MixingProblem& problem, std::size_t number, const Resolution& resolution) {
  const AirStream& stream = problem.streams[number];
  StreamNotes notes{
      pairNotes({stream.kind1, stream.kind2, stream.value1, stream.value2}, problem.pressure.atm, resolution),
      flowNote(stream.flow)};
  std::string& words = notes.pair.remark.words;
  if (!notes.flow.empty()) words = airflow + (": " + notes.flow.words) + (words.empty() ? "" : "; ") + words;
  notes.pair.refused = notes.pair.refused || notes.flow.fault;
  if (!words.empty()) words = "Stream " + std::to_string(number + 1) + ": " + words;
  return notes;
}

}  // namespace moistair
