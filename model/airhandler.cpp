#include "model/airhandler.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "text/numbertext.h"
#include "text/value.h"
#include "text/words.h"

namespace moistair {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view pointKind = "point";

Error mistake(std::string words) { return {ErrorCode::unreadable, {}, std::move(words)}; }

std::size_t afterBlanks(std::string_view line, std::size_t at) {
  return std::min(line.find_first_not_of(blanks, at), line.size());
}

/// Where the kind of a step begins; the end of a line that is no step.
std::size_t kindPlace(std::string_view line) {
  const std::size_t colon = line.substr(0, line.find('#')).find(':');
  return colon == std::string_view::npos ? line.size() : afterBlanks(line, colon + 1);
}

/// Reads an identification in quotes, which begins at `reference.begin`.
Outcome readQuoted(std::string_view line, PointReference& reference) {
  for (std::size_t i = reference.begin + 1; i < line.size(); ++i) {
    if (line[i] != '"') {
      reference.point += line[i];
    } else if (i + 1 < line.size() && line[i + 1] == '"') {
      reference.point += line[i++];
    } else {
      reference.end = i + 1;
      return {};
    }
  }
  return mistake("the name of the point has a quote at its beginning and none at its end");
}

/// Reads an identification without quotes: up to a comma or to a word with "=".
Outcome readBare(std::string_view line, PointReference& reference) {
  std::size_t end = std::min(line.find_first_of(",#", reference.begin), line.size());
  const std::size_t equals = line.find('=', reference.begin);
  if (equals < end) {
    const std::size_t before = line.find_last_of(blanks, equals);
    end = std::max(reference.begin, before == std::string_view::npos ? 0 : before);
  }
  reference.point = trimmed(line.substr(reference.begin, end - reference.begin));
  reference.end = reference.begin + reference.point.size();
  if (reference.point.empty()) {
    return mistake("the name of a point is missing, such as OA: point Outside,scfm=2000");
  }
  return {};
}

using Points = std::vector<std::pair<std::size_t, const MarkedPoint*>>;

Points pointsNamed(const Document& document, const std::string& identification) {
  Points points;
  for (std::size_t i = 0; i < document.entries.size(); ++i) {
    const auto* point = std::get_if<MarkedPoint>(&document.entries[i].content);
    if (point != nullptr && point->identification == identification) points.emplace_back(i, point);
  }
  return points;
}

Error missingPoint(const std::string& identification, const Document& document) {
  const auto isIt = [&](const LeftOut& left) {
    const auto* point = std::get_if<MarkedPoint>(&left.entry.content);
    return point != nullptr && point->identification == identification;
  };
  if (std::any_of(document.previous.begin(), document.previous.end(), isIt)) {
    return {ErrorCode::unknownName, pointKind.data(),
            inQuotes(identification) + " is a point of the previous chart; put it on this one again"};
  }
  ClosestWord closest(identification);
  for (const Entry& entry : document.entries) {
    if (const auto* point = std::get_if<MarkedPoint>(&entry.content)) closest.offer(point->identification);
  }
  return {ErrorCode::unknownName, pointKind.data(),
          "there is no point " + inQuotes(identification) + " on the chart" + closest.question()};
}

Result<std::size_t> pointPlace(const std::string& identification, const Document& document) {
  const Points points = pointsNamed(document, identification);
  if (points.size() == 1) return points.front().first;
  if (points.empty()) return missingPoint(identification, document);
  return Error{ErrorCode::duplicate, pointKind.data(),
               std::to_string(points.size()) + " points are named " + inQuotes(identification) +
                   "; give the one that is meant another name"};
}

/// Reads a line that begins at a point, as a step of kind `air`.
Outcome readPointLine(std::string_view line, const PointReference& reference, int number, const Document& document,
                      DocumentSystem& to) {
  SystemText read;
  const std::string asAir =
      std::string(line.substr(0, kindPlace(line))) + "air" + std::string(line.substr(reference.end));
  if (const Outcome outcome = readLine(asAir, number, read); !outcome) return outcome;
  ProcessStep& step = read.system.steps.front();
  constexpr ParameterSet flows = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh);
  const bool onlyFlows = std::all_of(step.given.begin(), step.given.end(),
                                     [&](const Assignment& given) { return contains(flows, given.parameter); });
  if (!onlyFlows || !step.sources.empty()) {
    return mistake("a point takes one of acfm, scfm or lbh and nothing else").within(step.name);
  }
  const Result<std::size_t> place = pointPlace(reference.point, document);
  if (!place) return place.error().within(step.name);
  const auto& point = std::get<MarkedPoint>(document.entries[*place].content);
  std::vector<Assignment> state;
  for (const TypedProperty& given : point.given) {
    state.push_back({.parameter = static_cast<Parameter>(given.kind), .value = strictNumber(given.value)});
  }
  step.given.insert(step.given.begin(), state.begin(), state.end());
  to.text.system.steps.push_back(std::move(step));
  to.points.resize(to.text.system.steps.size());
  to.points.back() = *place;
  return {};
}

Outcome readOne(std::string_view line, int number, const Document& document, DocumentSystem& to) {
  const auto reference = pointReference(line);
  if (!reference) return reference.error();
  if (!canBeReferred(std::string(line))) return mistake("not a line of UTF-8 text");
  if (*reference) return readPointLine(line, **reference, number, document, to);
  return readLine(line, number, to.text);
}

}  // namespace

std::optional<std::size_t> airHandlerPlace(const Document& document) {
  for (std::size_t i = document.entries.size(); i-- > 0;) {
    if (std::holds_alternative<AirHandler>(document.entries[i].content)) return i;
  }
  return std::nullopt;
}

std::size_t stepCount(const AirHandler& airHandler) {
  const auto isStep = [](const std::string& line) { return kindPlace(line) < line.size(); };
  const auto count = std::count_if(airHandler.lines.begin(), airHandler.lines.end(), isStep);
  return static_cast<std::size_t>(count);
}

std::vector<std::string> airHandlerLines(const Document& document) {
  const auto place = airHandlerPlace(document);
  if (!place) return {};
  return std::get<AirHandler>(document.entries[*place].content).lines;
}

Result<std::optional<PointReference>> pointReference(std::string_view line) {
  const std::size_t kind = kindPlace(line);
  const std::size_t end = std::min(line.find_first_of(" \t,#\"", kind), line.size());
  if (lowercase(line.substr(kind, end - kind)) != pointKind) return std::optional<PointReference>();
  PointReference reference;
  reference.step = trimmed(line.substr(0, line.find(':')));
  reference.begin = afterBlanks(line, end);
  const bool quoted = reference.begin < line.size() && line[reference.begin] == '"';
  const Outcome read = quoted ? readQuoted(line, reference) : readBare(line, reference);
  if (!read) return read.error().within(reference.step);
  return std::optional(std::move(reference));
}

std::string pointWord(const std::string& identification) {
  const bool bare = !identification.empty() && identification.find_first_of(",#\"=") == std::string::npos &&
                    trimmed(identification) == identification;
  if (bare) return identification;
  std::string word = "\"";
  for (const char c : identification) word += c == '"' ? "\"\"" : std::string(1, c);
  return word + '"';
}

bool canBeReferred(const std::string& identification) {
  const auto isControl = [](char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == 127; };
  return std::none_of(identification.begin(), identification.end(), isControl);
}

DocumentSystem readLines(const std::vector<std::string>& lines, const Document& document) {
  DocumentSystem read;
  std::size_t size = 0;
  for (const std::string& line : lines) size += line.size() + 1;
  if (size > longestSystemText) {
    read.errors.push_back({ErrorCode::tooLarge, {}, "more than 256 KB is too long for a list of steps"});
    return read;
  }
  for (int number = 1; const std::string& line : lines) {
    const Outcome outcome = readOne(line, number, document, read);
    if (!outcome) read.errors.push_back(outcome.error().within("line " + std::to_string(number)));
    ++number;
  }
  read.points.resize(read.text.system.steps.size());
  read.text.lines = lines;
  return read;
}

std::optional<SolvedAirHandler> solvedAirHandler(const Document& document, const SolvedAirHandler* near) {
  const auto place = airHandlerPlace(document);
  if (!place) return std::nullopt;
  const Entry& entry = document.entries[*place];
  const Site site{.atm = entry.setting.pressure.atm};
  DocumentSystem read = readLines(std::get<AirHandler>(entry.content).lines, document);
  SolvedAirHandler solved;
  if (read.errors.empty()) {
    solved.system = solvedSystem(read.text, site, near != nullptr ? &near->system.values : nullptr);
  } else {
    solved.system.site = site;
    solved.system.written = std::move(read.text.system);
    solved.system.goals = std::move(read.text.goals);
    solved.system.errors = std::move(read.errors);
  }
  solved.points = std::move(read.points);
  return solved;
}

const SolvedAirHandler* AirHandlerCache::of(const Document& document) {
  const auto place = airHandlerPlace(document);
  if (!place) {
    input_.reset();
    solved_.reset();
    return nullptr;
  }
  const Entry& entry = document.entries[*place];
  Input input{std::get<AirHandler>(entry.content).lines, {}, entry.setting.pressure.atm};
  for (const Entry& other : document.entries) {
    if (const auto* point = std::get_if<MarkedPoint>(&other.content)) input.points.push_back(*point);
  }
  if (input_ == input) return &*solved_;
  const std::optional<SolvedAirHandler> before = std::move(solved_);
  solved_ = solvedAirHandler(document, before ? &*before : nullptr);
  input_ = std::move(input);
  return &*solved_;
}

Change airHandlerChange(const Document& document, std::vector<std::string> lines, std::string name) {
  const auto place = airHandlerPlace(document);
  if (place && lines.empty()) return deletion(document, {*place});
  if (place) {
    Entry entry{document.entries[*place].setting, AirHandler{std::move(lines)}};
    return exchanging(document, {{*place, std::move(entry)}}, std::move(name));
  }
  const Entry* chart = lastChart(document);
  const Setting setting = chart != nullptr ? chart->setting : Setting{{}, document.pressure};
  Change change = addition(document, {setting, AirHandler{std::move(lines)}});
  change.name = std::move(name);
  return change;
}

std::optional<Entry> followedRenaming(const Document& document, std::size_t point, const std::string& identification) {
  const auto place = airHandlerPlace(document);
  const std::string& before = std::get<MarkedPoint>(document.entries[point].content).identification;
  if (!place || !canBeReferred(identification) || pointsNamed(document, before).size() != 1) return std::nullopt;
  Entry entry = document.entries[*place];
  bool followed = false;
  for (std::string& line : std::get<AirHandler>(entry.content).lines) {
    const auto reference = pointReference(line);
    if (!reference || !*reference || (*reference)->point != before) continue;
    line.replace((*reference)->begin, (*reference)->end - (*reference)->begin, pointWord(identification));
    followed = true;
  }
  if (!followed) return std::nullopt;
  return entry;
}

}  // namespace moistair
