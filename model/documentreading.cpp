// How a document is read, and what is checked on the way.
#include "model/documentfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <utility>

#include "model/documentnames.h"
#include "model/jsonnode.h"
#include "text/value.h"

namespace moistair {

namespace {

template <class Value, std::size_t size>
Value named(const JsonNode& node, const std::array<Name<Value>, size>& names) {
  const std::string& text = node.text();
  const auto same = [&](const Name<Value>& name) { return text == name.name; };
  const auto found = std::find_if(names.begin(), names.end(), same);
  if (found != names.end()) return found->value;
  std::string offered;
  for (const Name<Value>& name : names) offered += std::string(offered.empty() ? "" : ", ") + name.name;
  node.fail("must be one of " + offered);
}

/// A pressure that was set.
Pressure pressureof(const JsonNode& node) {
  node.onlykeys({"unit", "entry", "inhg"});
  Pressure pressure;
  const JsonNode unit = node.at("unit");
  pressure.entry.unit = unit.isnull() ? std::nullopt : std::optional(named(unit, unitnames));
  const JsonNode entry = node.at("entry");
  pressure.entry.text = entry.text();
  pressure.atm = node.at("inhg").number();
  if (!pressurefor(pressure.entry).accepted) {
    entry.fail(std::string("must be within the range of its unit, ") + rowof(*pressure.entry.unit).rangehint);
  }
  return pressure;
}

/// The pressure of the whole. Without a unit, the pressure window keeps what was in force, a refused value included.
Pressure setpressureof(const JsonNode& node) {
  const Pressure pressure = pressureof(node);
  if (!pressure.entry.unit || isofentry(pressure)) return pressure;
  node.at("inhg").fail("must be " + pressurefor(pressure.entry).inhg.value_or("") + ", the pressure of its entry, or " +
                       defaultpressuretext);
}

ChartLimits limitsof(const JsonNode& node) {
  const std::vector<double> numbers =
      node.numbers({"lowest dry bulb", "highest dry bulb", "lowest humidity ratio", "highest humidity ratio"});
  return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void checkdrawable(const JsonNode& node, const ChartLimits& limits) {
  const LimitTexts texts{numbertext(limits.lowdb), numbertext(limits.highdb), numbertext(limits.lowhr),
                         numbertext(limits.highhr)};
  ChartLimits read;
  const bool drawable = validatelimits(texts, read) == nullptr && read == limits;
  if (!drawable) node.fail("limits must be four of those that the lists offer, each pair rising");
}

std::array<TypedProperty, 2> givenof(const JsonNode& node) {
  std::vector<TypedProperty> given;
  for (const JsonNode::Member& member : node.members()) {
    const auto kind = kindnamed(member.key);
    if (!kind) member.node.fail("this key is no property");
    given.push_back({*kind, member.node.text()});
  }
  if (given.size() != 2 ||
      inputfault(given[0].kind, given[1].kind, given[0].value, given[1].value) != Unresolved::none) {
    node.fail("must be two properties that fix a state, with their values");
  }
  return {given[0], given[1]};
}

/// A shown state keeps the bounds of every state; what is too small for seven decimals was shown as 0.
void checkstate(const JsonNode& node, StatePoint point) {
  constexpr double smallest = 5e-08;
  for (int i = 0; i < kindcount; ++i) {
    double& value = point.at(*kindat(i));
    if (value == 0) value = smallest;
  }
  const auto broken = brokenbound(point);
  if (!broken) return;
  const auto& [above, upto] = broken->limits;
  node.at(nameof(broken->kind))
      .fail("must be above " + numbertext(above) + (std::isfinite(upto) ? " and up to " + numbertext(upto) : ""));
}

StatePoint stateof(const JsonNode& node) {
  node.onlykeys({"db", "wb", "rh", "w", "h", "dp", "v", "pv"});
  StatePoint state;
  for (const auto& [value, name] : statenames) state.*value = node.at(name).number();
  checkstate(node, state);
  return state;
}

bool isExact(const JsonNode& node) {
  const auto exact = node.find("exact");
  return exact && exact->flag();
}

MarkedPoint pointof(const JsonNode& node) {
  node.onlykeys({"kind", "id", "given", "state", "exact", "limits", "pressure"});
  MarkedPoint point;
  point.identification = node.at("id").text();
  point.given = givenof(node.at("given"));
  point.state = stateof(node.at("state"));
  point.exact = isExact(node);
  return point;
}

PinnedReading readoutof(const JsonNode& node) {
  node.onlykeys({"kind", "state", "label", "limits", "pressure"});
  return {stateof(node.at("state")), named(node.at("label"), cornernames)};
}

/// The read-outs of a column; each is a number or blank, but for the pressure, which is as entered.
void readcolumn(const JsonNode& node, AirStream& column) {
  for (const JsonNode::Member& member : node.members()) {
    const auto same = [&](const auto& name) { return member.key == name.name; };
    if (std::none_of(columnnames.begin(), columnnames.end(), same)) member.node.fail("this key is not known here");
  }
  for (const auto& [text, name] : columnnames) {
    const JsonNode readout = node.at(name);
    column.*text = readout.text();
    const bool asentered = text == &AirStream::pressure;
    const bool isreadout = asentered || (column.*text).empty() || hasvalue(strictnumber(column.*text));
    if (!isreadout) readout.fail("must be a number in quotes, or blank");
  }
}

AirStream streamof(const JsonNode& node) {
  node.onlykeys({"given", "flow", "shown", "exact"});
  AirStream stream;
  const auto [one, two] = givenof(node.at("given"));
  stream.kind1 = one.kind;
  stream.value1 = one.value;
  stream.kind2 = two.kind;
  stream.value2 = two.value;
  stream.flow = node.at("flow").text();
  const JsonNode shown = node.at("shown");
  readcolumn(shown, stream);
  StatePoint state;
  for (const auto& [value, name] : statenames) state.*value = lenientnumber(shown.at(name).text());
  checkstate(shown, state);
  stream.complete = true;
  stream.exact = isExact(node);
  return stream;
}

MixingLine mixtureof(const JsonNode& node) {
  node.onlykeys({"kind", "streams", "mixed", "limits", "pressure"});
  const JsonNode streams = node.at("streams");
  const std::vector<JsonNode> pair = streams.elements("stream");
  if (pair.size() != 2) streams.fail("must be two streams");
  const JsonNode mixed = node.at("mixed");
  mixed.onlykeys({"flow", "shown", "exact"});
  AirStream mixture;
  mixture.flow = mixed.at("flow").text();
  readcolumn(mixed.at("shown"), mixture);
  mixture.exact = isExact(mixed);
  return {{streamof(pair[0]), streamof(pair[1]), mixture}};
}

Content contentof(const JsonNode& node) {
  const JsonNode kind = node.at("kind");
  const std::string& name = kind.text();
  if (name == "point") return pointof(node);
  if (name == "mixture") return mixtureof(node);
  if (name == "readout") return readoutof(node);
  if (name == "line") {
    node.onlykeys({"kind", "property", "value", "limits", "pressure"});
    return PropertyLine{named(node.at("property"), linenames), node.at("value").text()};
  }
  if (name == "chart") {
    node.onlykeys({"kind", "type", "limits", "pressure"});
    return DrawnChart{named(node.at("type"), typenames)};
  }
  if (name != "header") kind.fail("must be one of header, chart, line, point, mixture, readout");
  node.onlykeys({"kind", "pressure"});
  return HeaderLine{};
}

/// A point, a mixture or a reading is marked only within its limits, and limits of a chart or a line come from the
/// lists.
void checkplace(const JsonNode& node, const Entry& entry) {
  if (std::holds_alternative<HeaderLine>(entry.content)) return;
  if (std::holds_alternative<DrawnChart>(entry.content) || std::holds_alternative<PropertyLine>(entry.content)) {
    return checkdrawable(node, entry.setting.limits);
  }
  RecordingCanvas scratch;
  if (draw(entry, scratch, {1, 1}) != nullptr) node.fail("lies outside its limits");
}

Entry entryof(const JsonNode& node, Setting& before) {
  if (const auto limits = node.find("limits")) before.limits = limitsof(*limits);
  if (const auto pressure = node.find("pressure")) before.pressure = pressureof(*pressure);
  Entry entry{before, contentof(node)};
  if (!haslimits(entry)) entry.setting.limits = {};
  checkplace(node, entry);
  return entry;
}

/// An entry of the previous chart.
LeftOut leftoutof(const JsonNode& node, Setting& before) {
  node.onlykeys({"entry", "reason"});
  const JsonNode entry = node.at("entry");
  LeftOut left{entryof(entry, before), node.at("reason").text()};
  const bool ischart = std::holds_alternative<DrawnChart>(left.entry.content);
  if (ischart || !haslimits(left.entry)) entry.at("kind").fail("must be one of line, point, mixture, readout");
  return left;
}

TitleBlock titleblockof(const JsonNode& node) {
  node.onlykeys({"title", "project", "drawnby"});
  return {node.at("title").text(), node.at("project").text(), node.at("drawnby").text()};
}

std::size_t backgroundof(const JsonNode& node, std::size_t entries) {
  const double number = node.number();
  if (!(number >= 0 && number <= static_cast<double>(entries) && number == std::floor(number))) {
    node.fail("must be a whole number, up to that of the entries");
  }
  return static_cast<std::size_t>(number);
}

std::string pathof(const JsonNode& node) {
  if (!node.isarray()) return node.text();
  std::string path;
  for (const JsonNode& element : node.elements("byte")) {
    const double byte = element.number();
    if (!(byte >= 0 && byte <= 255)) element.fail("must be from 0 to 255");
    path += static_cast<char>(static_cast<unsigned char>(byte));
  }
  return path;
}

void checkformat(const JsonNode& root) {
  const auto format = root.find("format");
  if (!format) root.fail("\"format\" is missing, so this is not a Moistair document");
  const double number = format->number();
  if (number > documentformat) {
    format->fail("the file was written by a later version of the program (format " + numbertext(number) + ")");
  }
  if (number < 1 || number != std::floor(number)) format->fail("must be from 1 to " + std::to_string(documentformat));
}

ReadDocument documentof(const JsonNode& root) {
  checkformat(root);
  root.onlykeys({"format", "file", "pressure", "drawn", "background", "titleblock", "entries", "previous"});
  ReadDocument read;
  Document document;
  document.pressure = setpressureof(root.at("pressure"));
  Setting before{{}, document.pressure};
  for (const JsonNode& node : root.at("entries").elements("entry")) document.entries.push_back(entryof(node, before));
  if (const auto previous = root.find("previous")) {
    before = {{}, document.pressure};
    for (const JsonNode& node : previous->elements("previous entry"))
      document.previous.push_back(leftoutof(node, before));
  }
  if (const auto titleblock = root.find("titleblock")) document.titleblock = titleblockof(*titleblock);
  if (const auto drawn = root.find("drawn")) {
    const ChartLimits limits = limitsof(*drawn);
    checkdrawable(*drawn, limits);
    document.stand = standof(limits);
  }
  if (const auto background = root.find("background")) {
    document.background = backgroundof(*background, document.entries.size());
  }
  if (const auto file = root.find("file")) read.file = pathof(*file);
  read.document = std::move(document);
  return read;
}

}  // namespace

ReadDocument readdocument(std::string_view text) {
  if (text.size() > largestdocument) return {std::nullopt, "", "the document is larger than 64 MB, the limit"};
  try {
    const Json json = parsedjson(text);
    return documentof(JsonNode(json, ""));
  } catch (const std::bad_alloc&) {
    return {std::nullopt, "", "there is not enough memory to read it"};
  } catch (const std::exception& fault) {
    return {std::nullopt, "", fault.what()};
  }
}

}  // namespace moistair
