#include "process/readymadelines.h"

#include <bit>

#include "text/numberformat.h"

namespace moistair {

std::string assigned(Parameter parameter, double value) {
  std::string text = std::string(nameOf(parameter)) + "=";
  appendRoundTrip(text, value);
  return text;
}

std::string joined(const std::string& one, const std::string& other) {
  return one.empty() || other.empty() ? one + other : one + "," + other;
}

void LineWriter::step(const std::string& name, const std::string& kindAndSources, const std::string& parameters) {
  lines_ += name + ": " + kindAndSources + (parameters.empty() ? "" : " ") + parameters + "\n";
  air_ = name;
}

void LineWriter::onward(const std::string& name, const char* kind, const std::string& parameters) {
  step(name, std::string(kind) + " " + air_, parameters);
}

void LineWriter::goal(const std::string& stream, const std::string& parameters, const std::string& keys) {
  goalLines_ += "goal " + stream + " " + parameters + "\n";
  goalKeys_.push_back(keys);
}

void LineWriter::goalsOf(const std::string& stream, const std::string& group, ParameterSet of) {
  const std::string typed = request_.keys.typed(group, of);
  if (typed.empty()) return;
  goalLines_ += "goal " + stream + " " + typed + "\n";
  for (ParameterSet rest = request_.keys.given(group, of); rest != 0; rest &= rest - 1) {
    goalKeys_.push_back(group + "." + nameOf(static_cast<Parameter>(std::countr_zero(rest))));
  }
}

std::string LineWriter::open(const std::string& group, Parameter parameter) {
  unknown(group + "." + nameOf(parameter));
  return std::string(nameOf(parameter)) + "=?";
}

std::string LineWriter::coilText(std::vector<Parameter>& open) const {
  const ParameterSet given = request_.keys.given("coil", coilPair);
  switch (std::popcount(given)) {
    case 0: open = {Parameter::db, Parameter::rh}; break;
    case 1:
      // A dry bulb goes with all but itself and the sensible heat, which it fixes.
      open = {given == bitOf(Parameter::db) || given == bitOf(Parameter::sensible) ? Parameter::rh : Parameter::db};
      break;
    default: open.clear();
  }
  return request_.keys.typed("coil", coilPair);
}

void LineWriter::fan(const std::string& name, const char* place) {
  const ReadymadeKeys& keys = request_.keys;
  if (keys.given("fan", fanKeys) == 0) return;
  const std::string where = keys.has("fan.place") ? keys.word("fan.place") : "after";
  if (where == place) onward(name, "fan", keys.typed("fan", fanKeys));
}

Outcome LineWriter::supplyGoals(const std::string& stream, bool cooler) {
  const ReadymadeKeys& keys = request_.keys;
  if (keys.has("supply.dt")) {
    if (keys.has("supply.db")) return Error{ErrorCode::duplicate, "supply", "give db or dt, not both"};
    if (!keys.has("room.db")) return Error{ErrorCode::noResult, "supply.dt", "needs room.db"};
    const double difference = cooler ? -keys.number("supply.dt") : keys.number("supply.dt");
    goal(stream, assigned(Parameter::db, keys.number("room.db") + difference), "supply.dt");
  }
  goalsOf(stream, "supply", stateKeys | flowKeys);
  return {};
}

namespace {

std::string counted(const std::vector<std::string>& keys, const char* noun) {
  std::string list;
  for (const std::string& key : keys) list += (list.empty() ? "" : ", ") + key;
  return std::to_string(keys.size()) + " " + noun + (keys.size() == 1 ? "" : "s") +
         (list.empty() ? "" : " (" + list + ")");
}

}  // namespace

Result<std::string> LineWriter::finish() const {
  if (unknowns_.size() == goalKeys_.size()) return lines_ + goalLines_;
  const bool few = goalKeys_.size() < unknowns_.size();
  const std::size_t difference = few ? unknowns_.size() - goalKeys_.size() : goalKeys_.size() - unknowns_.size();
  const std::string count = counted(unknowns_, "unknown") + " and " + counted(goalKeys_, "goal");
  const std::string more = std::to_string(difference);
  return Error{
      ErrorCode::noResult, "",
      few ? "too little is given: " + count + "; give " + more +
                " more: of the unknowns, or of what the room or the supply air is to have"
          : "too much is given: " + count + "; leave out " + more + " of the goals, or of the equipment's keys"};
}

}  // namespace moistair
