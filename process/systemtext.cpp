#include "process/systemtext.h"

#include <algorithm>
#include <set>
#include <utility>

#include "process/units.h"
#include "text/numberformat.h"
#include "text/utf8.h"
#include "text/words.h"

namespace moistair {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

Error mistake(std::string words, std::string place = {}) {
  return {ErrorCode::unreadable, std::move(place), std::move(words)};
}

/// Takes the next word off a line: up to a blank or a comma.
std::string_view takeWord(std::string_view& rest) {
  constexpr std::string_view separators = " \t\r,";
  const std::size_t first = std::min(rest.find_first_not_of(separators), rest.size());
  const std::size_t end = std::min(rest.find_first_of(separators, first), rest.size());
  const std::string_view word = rest.substr(first, end - first);
  rest.remove_prefix(end);
  return word;
}

/// What of a line is to be read: without the comment and the blanks around.
std::string_view contentOf(std::string_view line) {
  line = line.substr(0, line.find('#'));
  const std::size_t first = line.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

bool isText(std::string_view line) {
  const auto isControl = [](char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == 127; };
  return std::none_of(line.begin(), line.end(), isControl) && isUtf8(line);
}

/// Why a word cannot name a step; empty if it can. A step's streams may have a word behind a dot.
std::string wrongName(std::string_view name, bool ofStream) {
  if (name.empty()) return "the name is missing, such as OA: air db=95,wb=75";
  if (name.find(byteOrderMark) != std::string_view::npos) return "a name must not contain a byte order mark";
  const std::size_t wrong = name.find_first_of(ofStream ? ",:=?\"" : " \t,:=?.\"");
  if (wrong == std::string_view::npos) return {};
  const std::string character = name[wrong] == ' ' || name[wrong] == '\t' ? "blanks" : inQuotes(name.substr(wrong, 1));
  return inQuotes(name) + " cannot be a name: it must not contain " + character;
}

/// "NAME=VALUE" of a step or a goal.
Result<Assignment> readWord(std::string_view word, ParameterSet among) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) {
    const bool number = word.find_first_not_of("0123456789.") == std::string_view::npos;
    return mistake(number ? inQuotes(word) + " is not NAME=VALUE: a comma separates parameters, so numbers have none"
                          : inQuotes(word) +
                                " is not NAME=VALUE: sources come before the parameters, and a unit "
                                "directly after its number");
  }
  const Result<Parameter> parameter = readParameter(word.substr(0, equals), among);
  if (!parameter) return parameter.error();
  return readAssignment(*parameter, word.substr(equals + 1));
}

Result<StepKind> readKind(std::string_view word) {
  if (const auto kind = stepKindNamed(lowercase(word))) return *kind;
  std::string all;
  ClosestWord closest(word);
  for (const StepKind kind : stepKinds()) {
    all += std::string(all.empty() ? "" : ", ") + nameOf(kind);
    closest.offer(nameOf(kind));
  }
  if (word.empty()) return mistake("the kind is missing; it is one of " + all);
  const std::string help = closest.question();
  return mistake("unknown kind " + inQuotes(word) + (help.empty() ? "; it is one of " + all : help));
}

/// Kind, sources and parameters of a step.
Outcome readStep(std::string_view rest, ProcessStep& step) {
  const Result<StepKind> kind = readKind(takeWord(rest));
  if (!kind) return kind.error();
  step.kind = *kind;
  ParameterSet given = 0;
  for (std::string_view word = takeWord(rest); !word.empty(); word = takeWord(rest)) {
    if (step.given.empty() && word.find('=') == std::string_view::npos) {
      if (std::string wrong = wrongName(word, true); !wrong.empty()) return mistake(std::move(wrong));
      step.sources.emplace_back(word);
      continue;
    }
    Result<Assignment> next = readWord(word, rowOf(*kind).accepted);
    if (!next) return next.error();
    const Parameter parameter = next->parameter;
    if (contains(given, parameter)) {
      return Error{ErrorCode::duplicate, {}, std::string(nameOf(parameter)) + " is given twice"};
    }
    given |= bitOf(parameter);
    step.given.push_back(std::move(*next));
  }
  return {};
}

ParameterSet numbers() {
  static const ParameterSet all = [] {
    ParameterSet set = 0;
    for (std::size_t i = 0; i < parameterCount; ++i) {
      if (isNumber(static_cast<Parameter>(i))) set |= bitOf(static_cast<Parameter>(i));
    }
    return set;
  }();
  return all;
}

/// What follows "goal".
Outcome readGoal(std::string_view rest, int number, std::vector<Goal>& goals) {
  const std::string_view name = takeWord(rest);
  if (name.empty() || name.find('=') != std::string_view::npos) {
    return mistake("the name of a stream is missing, such as goal RM db=75");
  }
  if (std::string wrong = wrongName(name, true); !wrong.empty()) return mistake(std::move(wrong));
  const std::string place = "goal " + std::string(name);
  const std::size_t before = goals.size();
  for (std::string_view word = takeWord(rest); !word.empty(); word = takeWord(rest)) {
    const Result<Assignment> next = readWord(word, numbers());
    if (!next) return next.error().within(place);
    const Parameter parameter = next->parameter;
    if (!contains(numbers(), parameter) || next->unknown) {
      return mistake(inQuotes(word) + " cannot be a goal: a goal is a number that must come out", place);
    }
    const auto same = [&](const Goal& other) { return other.parameter == parameter; };
    if (std::any_of(goals.begin() + static_cast<std::ptrdiff_t>(before), goals.end(), same)) {
      return Error{ErrorCode::duplicate, place, std::string(nameOf(parameter)) + " is given twice"};
    }
    if (const Outcome range = checkValue(parameter, next->value); !range) return range.error().within(place);
    goals.push_back({std::string(name), parameter, next->value, number});
  }
  if (goals.size() == before)
    return mistake("a goal needs a value, such as goal " + std::string(name) + " db=75", place);
  return {};
}

/// What follows "goal" if the line begins so; a step may be named goal too.
std::optional<std::string_view> goalOf(std::string_view content) {
  constexpr std::string_view word = "goal";
  if (!lowercase(content.substr(0, word.size())).starts_with(word)) return std::nullopt;
  const std::string_view rest = content.substr(word.size());
  if (!rest.empty() && rest.front() != ' ' && rest.front() != '\t') return std::nullopt;
  const std::size_t next = rest.find_first_not_of(blanks);
  if (next != std::string_view::npos && rest[next] == ':') return std::nullopt;
  return rest;
}

}  // namespace

bool isNumber(Parameter parameter) {
  const Quantity quantity = rowOf(parameter).quantity;
  return quantity != Quantity::word && quantity != Quantity::stream;
}

Result<Parameter> readParameter(std::string_view name, ParameterSet among) {
  if (const auto parameter = parameterNamed(lowercase(name))) return *parameter;
  if (name.empty()) return mistake("the parameter's name is missing before \"=\"");
  ClosestWord closest(name);
  for (std::size_t i = 0; i < parameterCount; ++i) {
    const auto parameter = static_cast<Parameter>(i);
    if (contains(among, parameter)) closest.offer(nameOf(parameter));
  }
  const std::string help = closest.question();
  return mistake("unknown parameter " + inQuotes(name) +
                 (help.empty() ? "; it is one of " + namesOf(among, "or") : help));
}

Result<Assignment> readAssignment(Parameter parameter, std::string_view text) {
  const ParameterRow& row = rowOf(parameter);
  if (text.empty()) return mistake("the value is missing", row.name);
  if (row.quantity == Quantity::stream) {
    if (std::string wrong = wrongName(text, true); !wrong.empty()) return mistake(std::move(wrong), row.name);
    return Assignment{.parameter = parameter, .stream = std::string(text)};
  }
  if (row.quantity == Quantity::word) {
    std::string all;
    for (std::size_t i = 0; i < row.words.size() && row.words[i] != nullptr; ++i) {
      if (lowercase(text) == row.words[i])
        return Assignment{.parameter = parameter, .value = static_cast<double>(i + 1)};
      all += (all.empty() ? "" : " or ") + std::string(row.words[i]);
    }
    return mistake(inQuotes(text) + " must be " + all, row.name);
  }
  if (text == "?") return Assignment{.parameter = parameter, .unknown = true};
  const Result<double> value = readValue(text, row.quantity);
  if (!value) return value.error().within(row.name);
  return Assignment{.parameter = parameter, .value = *value};
}

Outcome readLine(std::string_view line, int number, SystemText& to) {
  const std::string_view content = contentOf(line);
  if (content.empty()) return {};
  if (!isText(content)) return mistake("not a line of UTF-8 text");
  if (const auto goal = goalOf(content)) return readGoal(*goal, number, to.goals);
  const std::size_t colon = content.find(':');
  if (colon == std::string_view::npos) {
    return mistake(inQuotes(content.substr(0, content.find_first_of(" \t"))) +
                   " is not followed by a colon: a step is NAME: kind, such as OA: air db=95,wb=75");
  }
  ProcessStep step;
  step.name = trimmed(content.substr(0, colon));
  step.line = number;
  if (std::string wrong = wrongName(step.name, false); !wrong.empty()) return mistake(std::move(wrong));
  const Outcome read = readStep(content.substr(colon + 1), step);
  if (!read) return read.error().within(step.name);
  to.system.steps.push_back(std::move(step));
  return {};
}

ReadSystem readSystem(std::string_view text) {
  ReadSystem read;
  if (text.size() > longestSystemText) {
    read.errors.push_back({ErrorCode::tooLarge, {}, "more than 256 KB is too long for a list of steps"});
    return read;
  }
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with(byteOrderMark)) line.remove_prefix(byteOrderMark.size());  // files put together have several
    const Outcome outcome = readLine(line, number, read.text);
    if (!outcome) read.errors.push_back(outcome.error().within("line " + std::to_string(number)));
    read.text.lines.emplace_back(line);
  }
  return read;
}

namespace {

/// The names of all streams that the steps leave.
std::vector<std::string> streamNames(const AirSystem& system) {
  std::vector<std::string> names;
  for (const ProcessStep& step : system.steps) {
    names.push_back(step.name);
    if (const char* second = rowOf(step.kind).second) names.push_back(step.name + "." + second);
  }
  return names;
}

Error unknownGoal(const Goal& goal, const std::vector<std::string>& names, bool search) {
  ClosestWord closest(goal.name);
  if (search) std::for_each(names.begin(), names.end(), [&](const std::string& name) { closest.offer(name); });
  return {ErrorCode::unknownName, {}, "no stream is named " + inQuotes(goal.name) + closest.question()};
}

}  // namespace

std::vector<Error> checkGoals(const SystemText& text) {
  constexpr std::size_t mostSearches = 20;  // each looks at all names
  const std::vector<std::string> names = streamNames(text.system);
  const std::set<std::string_view> known(names.begin(), names.end());
  std::set<std::pair<std::string_view, Parameter>> seen;
  std::vector<Error> errors;
  for (const Goal& goal : text.goals) {
    std::string place = "goal " + goal.name;
    if (goal.line > 0) place.insert(0, "line " + std::to_string(goal.line) + ", ");
    if (!known.contains(goal.name))
      errors.push_back(unknownGoal(goal, names, errors.size() < mostSearches));
    else if (!seen.emplace(goal.name, goal.parameter).second)
      errors.push_back({ErrorCode::duplicate, {}, std::string(nameOf(goal.parameter)) + " is a goal twice"});
    else
      continue;
    errors.back().place = place;
  }
  return errors;
}

namespace {

void appendValue(std::string& out, const Assignment& given) {
  const ParameterRow& row = rowOf(given.parameter);
  out += row.name;
  out += '=';
  if (row.quantity == Quantity::stream) {
    out += given.stream;
  } else if (given.unknown) {
    out += '?';
  } else if (row.quantity == Quantity::word) {
    const auto index = static_cast<std::size_t>(given.value);
    out += row.words[index == 2 ? 1 : 0];
  } else {
    appendRoundTrip(out, given.value);
  }
}

bool sameAssignment(const Assignment& one, const Assignment& other) {
  const bool sameValue = one.value == other.value || (!hasValue(one.value) && !hasValue(other.value));
  return sameValue && one.parameter == other.parameter && one.unknown == other.unknown && one.stream == other.stream;
}

/// What was read from a line.
struct LineContent {
  std::vector<const ProcessStep*> steps;
  std::vector<const Goal*> goals;
};

/// Whether a typed line still says what its steps and goals are; one that cannot be read never said anything.
bool stillSays(const std::string& line, const LineContent& content) {
  SystemText again;
  const bool read = static_cast<bool>(readLine(line, 0, again));
  if (!read) again = {};
  const auto sameGoal = [](const Goal& one, const Goal* other) {
    return one.name == other->name && one.parameter == other->parameter && one.value == other->value;
  };
  const auto& [steps, goals] = content;
  return std::equal(again.system.steps.begin(), again.system.steps.end(), steps.begin(), steps.end(),
                    [](const ProcessStep& one, const ProcessStep* other) { return sameStep(one, *other); }) &&
         std::equal(again.goals.begin(), again.goals.end(), goals.begin(), goals.end(), sameGoal);
}

void appendContent(std::string& out, const LineContent& content) {
  for (const ProcessStep* step : content.steps) out += lineOf(*step) + "\n";
  for (const Goal* goal : content.goals) out += lineOf(*goal) + "\n";
}

}  // namespace

bool sameStep(const ProcessStep& one, const ProcessStep& other) {
  return one.name == other.name && one.kind == other.kind && one.sources == other.sources &&
         std::equal(one.given.begin(), one.given.end(), other.given.begin(), other.given.end(), sameAssignment);
}

std::string lineOf(const ProcessStep& step) {
  std::string line = step.name + ": " + nameOf(step.kind);
  for (const std::string& source : step.sources) line += " " + source;
  char before = ' ';
  for (const Assignment& given : step.given) {
    line += before;
    appendValue(line, given);
    before = ',';
  }
  return line;
}

std::string lineOf(const Goal& goal) {
  std::string line = "goal " + goal.name + " ";
  appendValue(line, {.parameter = goal.parameter, .value = goal.value});
  return line;
}

std::string textOf(const SystemText& text) {
  std::vector<LineContent> contents(text.lines.size() + 1);  // the last for what no line holds
  const auto at = [&](int line) -> LineContent& {
    const bool held = line >= 1 && static_cast<std::size_t>(line) <= text.lines.size();
    return held ? contents[static_cast<std::size_t>(line) - 1] : contents.back();
  };
  for (const ProcessStep& step : text.system.steps) at(step.line).steps.push_back(&step);
  for (const Goal& goal : text.goals) at(goal.line).goals.push_back(&goal);
  std::string out;
  for (std::size_t i = 0; i < text.lines.size(); ++i) {
    if (stillSays(text.lines[i], contents[i])) {
      out += text.lines[i] + "\n";
    } else {
      appendContent(out, contents[i]);
    }
  }
  appendContent(out, contents.back());
  return out;
}

}  // namespace moistair
