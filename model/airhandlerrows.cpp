#include "model/airhandlerrows.h"

#include <algorithm>
#include <set>
#include <utility>

#include "text/words.h"

namespace moistair {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view point = "point";
constexpr ParameterSet flows = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh);

/// Takes the next word off a text: up to a blank or a comma.
std::string takeWord(std::string_view& rest) {
  constexpr std::string_view separators = " \t,";
  const std::size_t first = std::min(rest.find_first_not_of(separators), rest.size());
  const std::size_t end = std::min(rest.find_first_of(separators, first), rest.size());
  std::string word(rest.substr(first, end - first));
  rest.remove_prefix(end);
  return word;
}

void takeWords(std::string_view rest, TypedLine& typed) {
  for (std::string word = takeWord(rest); !word.empty(); word = takeWord(rest)) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) {
      typed.sources.push_back(std::move(word));
    } else {
      typed.values.emplace_back(lowercase(word.substr(0, equals)), word.substr(equals + 1));
    }
  }
}

/// Cuts a comment off.
std::string_view takeComment(std::string_view line, TypedLine& typed) {
  const std::size_t sign = std::min(line.find('#'), line.size());
  typed.comment = trimmed(line.substr(sign));
  return trimmed(line.substr(0, sign));
}

std::optional<TypedLine> typedGoal(std::string_view line) {
  TypedLine typed{.goal = true};
  std::string_view content = takeComment(line, typed);
  if (lowercase(takeWord(content)) != "goal") return std::nullopt;
  const std::size_t next = content.find_first_not_of(blanks);
  if (next == std::string_view::npos || content[next] == ':') return std::nullopt;
  typed.name = takeWord(content);
  takeWords(content, typed);
  return typed;
}

std::optional<TypedLine> typedPoint(std::string_view line, const PointReference& reference) {
  TypedLine typed{.name = reference.step, .kind = std::string(point), .sources = {reference.point}};
  takeWords(takeComment(line.substr(reference.end), typed), typed);
  return typed;
}

/// The step's name, or that of its second stream without the word behind the dot.
std::string_view stepOf(std::string_view stream) { return stream.substr(0, stream.rfind('.')); }

std::vector<std::optional<TypedLine>> typedLines(const std::vector<std::string>& lines) {
  std::vector<std::optional<TypedLine>> typed;
  for (const std::string& line : lines) typed.push_back(typedLine(line));
  return typed;
}

std::string freeName(const std::vector<std::string>& lines, const std::string& wanted) {
  std::set<std::string> names;
  for (const auto& typed : typedLines(lines)) {
    if (typed && !typed->goal) names.insert(typed->name);
  }
  std::string base = wanted;
  while (base.size() > 1 && base.back() >= '0' && base.back() <= '9') base.pop_back();
  std::string name = wanted;
  for (int number = 2; names.contains(name); ++number) name = base + std::to_string(number);
  return name;
}

/// How a new step of a kind is called.
const char* usualName(StepKind kind) {
  constexpr std::array<const char*, stepKindCount> names = {"OA", "MA", "EX", "HC", "SC", "CC",
                                                            "EV", "ST", "SF", "HR", "DW", "RM"};
  return names[static_cast<std::size_t>(kind)];
}

ParameterSet fieldsOf(const TypedLine& typed) {
  if (typed.kind == point) return flows;
  if (!typed.goal) {
    const auto kind = stepKindNamed(lowercase(typed.kind));
    return kind ? rowOf(*kind).accepted : 0;
  }
  ParameterSet numbers = 0;
  for (std::size_t i = 0; i < parameterCount; ++i) {
    if (isNumber(static_cast<Parameter>(i))) numbers |= bitOf(static_cast<Parameter>(i));
  }
  return numbers;
}

/// A step's or a goal's stream under another name in what refers to it; whether anything did.
bool follow(std::string& stream, const std::string& from, const std::string& to) {
  if (stepOf(stream) != from) return false;
  stream.replace(0, from.size(), to);
  return true;
}

bool follow(TypedLine& typed, const std::string& from, const std::string& to) {
  bool followed = typed.goal && follow(typed.name, from, to);
  if (typed.kind == point) return followed;
  for (std::string& source : typed.sources) followed = follow(source, from, to) || followed;
  for (auto& [parameter, text] : typed.values) {
    if (parameter == nameOf(Parameter::indirect)) followed = follow(text, from, to) || followed;
  }
  return followed;
}

}  // namespace

const std::string* TypedLine::value(std::string_view parameter) const {
  const auto is = [&](const auto& value) { return value.first == parameter; };
  const auto found = std::find_if(values.begin(), values.end(), is);
  return found == values.end() ? nullptr : &found->second;
}

std::optional<TypedLine> typedLine(std::string_view line) {
  const auto reference = pointReference(line);
  if (!reference) return std::nullopt;
  if (*reference) return typedPoint(line, **reference);
  if (auto goal = typedGoal(line)) return goal;
  TypedLine typed;
  std::string_view content = takeComment(line, typed);
  const std::size_t colon = content.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  typed.name = trimmed(content.substr(0, colon));
  content.remove_prefix(colon + 1);
  typed.kind = takeWord(content);
  takeWords(content, typed);
  return typed;
}

std::string lineOf(const TypedLine& typed) {
  std::string line = typed.goal ? "goal " + typed.name : typed.name + ": " + typed.kind;
  for (const std::string& source : typed.sources) line += " " + (typed.kind == point ? pointWord(source) : source);
  char before = typed.kind == point ? ',' : ' ';
  for (const auto& [parameter, text] : typed.values) {
    line += before + parameter + "=" + text;
    before = ',';
  }
  return typed.comment.empty() ? line : line + "  " + typed.comment;
}

const char* captionOf(Parameter parameter) {
  constexpr std::array<const char*, parameterCount> captions = {
      "Dry bulb",
      "Wet bulb",
      "Relative humidity",
      "Humidity ratio",
      "Enthalpy",
      "Dew point",
      "Specific volume",
      "Airflow, actual",
      "Airflow, standard",
      "Flow of dry air",
      "Share of the flow",
      "Temperature change",
      "Heat",
      "Apparatus dew point",
      "Bypass factor",
      "Sensible heat ratio",
      "Total heat",
      "Sensible heat",
      "Latent heat",
      "Enthalpy of the condensate",
      "Temperature rise of the water",
      "Effectiveness or efficiency",
      "Cools the stream",
      "Water",
      "Steam pressure",
      "Steam temperature",
      "Enthalpy of the vapor",
      "Total pressure of the fan",
      "Efficiency of the motor",
      "Motor in the airstream",
      "Power of the fan shaft",
      "Sensible effectiveness",
      "Latent effectiveness",
      "Heat per heat of condensation",
      "If it is not needed",
  };
  return captions[static_cast<std::size_t>(parameter)];
}

const char* captionOf(StepKind kind) {
  constexpr std::array<const char*, stepKindCount> captions = {"Air",           "Mixing",           "Part of a stream",
                                                               "Heating coil",  "Sensible cooling", "Cooling coil",
                                                               "Evaporation",   "Steam or spray",   "Fan",
                                                               "Heat recovery", "Drying",           "Room"};
  return captions[static_cast<std::size_t>(kind)];
}

std::vector<RowMistake> mistakesOf(const std::vector<std::string>& lines, const SolvedAirHandler& solved) {
  std::vector<Error> errors = solved.system.errors;
  for (Error& error : failures(solved.system)) errors.push_back(std::move(error));
  std::vector<RowMistake> mistakes;
  for (const Error& error : errors) {
    RowMistake mistake{std::nullopt, {}, error.words};
    std::string_view place = error.place;
    constexpr std::string_view lineWord = "line ";
    if (place.starts_with(lineWord)) {
      std::size_t number = 0;
      for (place.remove_prefix(lineWord.size()); !place.empty() && place[0] >= '0' && place[0] <= '9';) {
        number = 10 * number + static_cast<std::size_t>(place[0] - '0');
        place.remove_prefix(1);
      }
      if (number >= 1 && number <= lines.size()) mistake.line = number - 1;
    }
    const std::string_view last = trimmed(place.substr(place.rfind(',') + 1));
    if (last == point || parameterNamed(last)) mistake.parameter = last;
    if (!mistake.line && !place.empty()) mistake.words = error.text();
    mistakes.push_back(std::move(mistake));
  }
  return mistakes;
}

std::vector<AirHandlerRow> airHandlerRows(const std::vector<std::string>& lines, const SolvedAirHandler& solved) {
  const SolvedSystem& system = solved.system;
  const std::vector<RowMistake> mistakes = mistakesOf(lines, solved);
  std::vector<AirHandlerRow> rows;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    auto typed = typedLine(lines[line]);
    const auto isOfLine = [&](const auto& other) { return other.line == line; };
    const auto mistake = std::find_if(mistakes.begin(), mistakes.end(), isOfLine);
    if (!typed && mistake == mistakes.end()) continue;
    AirHandlerRow row{.line = line, .typed = typed ? std::move(*typed) : TypedLine{.name = lines[line]}};
    if (mistake != mistakes.end()) row.mistake = mistake->words;
    row.leaving = readoutOf({}, system.site);
    for (std::size_t step = 0; step < system.written.steps.size(); ++step) {
      if (system.written.steps[step].line == static_cast<int>(line) + 1) row.step = step;
    }
    if (row.step && system.hasResult(*row.step)) {
      const StepResult& result = system.solution.results[*row.step];
      row.leaving = readoutOf(system.solution.streams[mainStream(*row.step)], system.site);
      if (isProcess(system.system.steps[*row.step].kind)) {
        row.total = result.total;
        row.sensible = result.sensible;
        row.tons = result.total / btuhPerTon;
        row.water = result.water;
      }
      row.remarks = remarksOf(system, *row.step);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<FormField> formOf(const TypedLine& typed, const std::vector<std::string>& lines,
                              const SolvedAirHandler& solved) {
  std::vector<FormField> fields;
  const ParameterSet accepted = fieldsOf(typed);
  for (std::size_t i = 0; i < parameterCount; ++i) {
    const auto parameter = static_cast<Parameter>(i);
    if (!contains(accepted, parameter)) continue;
    const ParameterRow& row = rowOf(parameter);
    FormField field{.parameter = parameter, .caption = captionOf(parameter), .unit = unitOf(row.quantity)};
    if (const std::string* text = typed.value(row.name)) field.text = *text;
    for (const char* word : row.words) {
      if (word != nullptr) field.words.emplace_back(word);
    }
    if (row.quantity == Quantity::stream) {
      for (const auto& other : typedLines(lines)) {
        if (other && !other->goal && other->name != typed.name) field.words.push_back(other->name);
      }
    }
    field.canBeUnknown = isNumber(parameter) && !typed.goal;
    for (const UnknownValue& unknown : solved.system.unknowns) {
      if (field.text == "?" && unknown.name == typed.name + "." + row.name) field.solved = unknown.value;
    }
    fields.push_back(std::move(field));
  }
  return fields;
}

std::vector<std::string> availableStreams(const std::vector<std::string>& lines, std::size_t line) {
  std::vector<std::string> streams;
  std::set<std::string> taken;
  const auto all = typedLines(lines);
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!all[i] || all[i]->goal || i == line) continue;
    streams.push_back(all[i]->name);
    const auto kind = stepKindNamed(lowercase(all[i]->kind));
    if (kind && rowOf(*kind).second != nullptr) streams.push_back(all[i]->name + "." + rowOf(*kind).second);
    if (all[i]->kind != point) taken.insert(all[i]->sources.begin(), all[i]->sources.end());
  }
  std::erase_if(streams, [&](const std::string& stream) { return taken.contains(stream); });
  return streams;
}

Result<TypedLine> withValue(TypedLine typed, Parameter parameter, std::string_view text) {
  const std::string name = nameOf(parameter);
  text = trimmed(text);
  const auto is = [&](const auto& value) { return value.first == name; };
  const auto at = std::find_if(typed.values.begin(), typed.values.end(), is);
  if (text.empty()) {
    if (at != typed.values.end()) typed.values.erase(at);
    return typed;
  }
  if (text.find_first_of(" \t,#") != std::string_view::npos) {
    return Error{ErrorCode::unreadable, name, inQuotes(text) + " must not contain blanks, commas or \"#\""};
  }
  const Result<Assignment> read = readAssignment(parameter, text);
  if (!read) return read.error();
  if (isNumber(parameter) && !read->unknown) {
    if (const Outcome range = checkValue(parameter, read->value); !range) return range.error();
  }
  if (typed.goal && read->unknown) {
    return Error{ErrorCode::unreadable, name, "a goal is a number that must come out"};
  }
  if (at != typed.values.end()) {
    at->second = text;
  } else {
    typed.values.emplace_back(name, text);
  }
  return typed;
}

std::vector<std::string> withLine(std::vector<std::string> lines, std::size_t line, const TypedLine& typed) {
  if (line < lines.size()) lines[line] = lineOf(typed);
  return lines;
}

std::vector<std::string> addedStep(std::vector<std::string> lines, std::size_t after, StepKind kind) {
  TypedLine typed{.name = freeName(lines, usualName(kind)), .kind = nameOf(kind)};
  const std::size_t at = std::min(after == std::string::npos ? lines.size() : after + 1, lines.size());
  const auto free = availableStreams(lines, lines.size());
  const auto before = at > 0 ? typedLine(lines[at - 1]) : std::nullopt;
  // A mixing box of one stream is possible, and not what anybody adds one for.
  const auto wanted = static_cast<std::size_t>(kind == StepKind::mix ? 2 : rowOf(kind).leastSources);
  const auto isFree = [&](const std::string& stream) {
    return std::find(free.begin(), free.end(), stream) != free.end();
  };
  if (wanted > 0 && before && isFree(before->name)) typed.sources.push_back(before->name);
  for (auto stream = free.rbegin(); stream != free.rend() && typed.sources.size() < wanted; ++stream) {
    if (typed.sources.empty() || *stream != typed.sources.front()) typed.sources.push_back(*stream);
  }
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lineOf(typed));
  return lines;
}

std::vector<std::string> addedGoal(std::vector<std::string> lines, const std::string& stream) {
  lines.push_back("goal " + stream);
  return lines;
}

std::vector<std::string> copiedLine(std::vector<std::string> lines, std::size_t line) {
  if (line >= lines.size()) return lines;
  std::string copy = lines[line];
  if (auto typed = typedLine(copy); typed && !typed->goal) {
    typed->name = freeName(lines, typed->name);
    if (typed->kind != point) typed->sources.clear();  // a stream is taken once
    copy = lineOf(*typed);
  }
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(line) + 1, std::move(copy));
  return lines;
}

std::vector<std::string> movedLine(std::vector<std::string> lines, std::size_t line, int by) {
  const int step = by < 0 ? -1 : 1;
  for (; by != 0; by -= step) {
    const std::size_t next = line + static_cast<std::size_t>(step);  // wraps around below the first
    if (line >= lines.size() || next >= lines.size()) break;
    std::swap(lines[line], lines[next]);
    line = next;
  }
  return lines;
}

std::vector<std::string> deletedLines(std::vector<std::string> lines, std::vector<std::size_t> which) {
  std::sort(which.begin(), which.end(), std::greater<>());
  which.erase(std::unique(which.begin(), which.end()), which.end());
  for (const std::size_t line : which) {
    if (line < lines.size()) lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
  }
  return lines;
}

Result<std::vector<std::string>> renamedStep(std::vector<std::string> lines, std::size_t line,
                                             const std::string& name) {
  auto typed = line < lines.size() ? typedLine(lines[line]) : std::nullopt;
  if (!typed || typed->goal) return Error{ErrorCode::unknownName, {}, "there is no step in this row"};
  if (typed->name == name) return lines;
  if (name.empty()) return Error{ErrorCode::unreadable, {}, "the name is missing"};
  if (name.find_first_of(" \t,:=?.\"#") != std::string::npos || !canBeReferred(name)) {
    return Error{ErrorCode::unreadable, {}, inQuotes(name) + " cannot be a name: no blanks, no , : = ? . \" #"};
  }
  if (freeName(lines, name) != name) return Error{ErrorCode::duplicate, {}, "another step has this name"};
  const std::string before = std::exchange(typed->name, name);
  lines[line] = lineOf(*typed);
  for (std::string& other : lines) {
    auto referring = typedLine(other);
    if (referring && follow(*referring, before, name)) other = lineOf(*referring);
  }
  return lines;
}

std::optional<std::vector<std::string>> airHandlerOf(const MixingLine& mixture) {
  constexpr std::array<const char*, 3> usual = {"St1", "St2", "Mix"};
  std::vector<std::string> lines;
  std::array<std::string, 3> names;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool fits = !mixture.names[i].empty() && canBeReferred(mixture.names[i]) &&
                      mixture.names[i].find_first_of(" \t,:=?.\"#") == std::string::npos;
    names[i] = freeName(lines, fits ? mixture.names[i] : usual[i]);
    TypedLine typed{.name = names[i], .kind = nameOf(i < 2 ? StepKind::air : StepKind::mix)};
    if (i < 2) {
      const AirStream& stream = mixture.columns.at(i);
      if (!stream.kind1 || !stream.kind2) return std::nullopt;
      typed.values = {{nameOf(*stream.kind1), std::string(trimmed(stream.value1))},
                      {nameOf(*stream.kind2), std::string(trimmed(stream.value2))},
                      {nameOf(Parameter::acfm), std::string(trimmed(stream.flow))}};
    } else {
      typed.sources = {names[0], names[1]};
    }
    lines.push_back(lineOf(typed));
  }
  return lines;
}

}  // namespace moistair
