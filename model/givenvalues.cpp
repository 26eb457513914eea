#include "model/givenvalues.h"

#include <utility>

#include "model/carryover.h"
#include "text/numberformat.h"
#include "text/value.h"

namespace moistair {

namespace {

struct Giver {
  std::vector<GivenValue>& values;

  void operator()(const PropertyLine& line) const { values.push_back({0, propertyOf(line.kind), line.value}); }

  void operator()(const MarkedPoint& point) const {
    for (const TypedProperty& given : point.given) values.push_back({0, given.kind, given.value});
  }

  void operator()(const MixingLine& line) const {
    for (std::size_t part = 0; part < 2; ++part) {
      const AirStream& stream = line.columns.at(part);
      if (stream.kind1) values.push_back({part, stream.kind1, stream.value1});
      if (stream.kind2) values.push_back({part, stream.kind2, stream.value2});
      values.push_back({part, std::nullopt, stream.flow});
    }
  }

  void operator()(const PinnedReading& pinned) const {
    for (const PropertyKind kind : {PropertyKind::db, PropertyKind::w}) {
      values.push_back({0, kind, numberText(pinned.state.at(kind))});
    }
  }

  void operator()(const AirHandler&) const {}
  void operator()(const DrawnChart&) const {}
  void operator()(const HeaderLine&) const {}
};

/// Writes a value over the one of its part and kind.
struct Taker {
  const GivenValue& value;

  void operator()(PropertyLine& line) const { line.value = value.text; }

  void operator()(MarkedPoint& point) const {
    for (TypedProperty& given : point.given) {
      if (given.kind == value.kind) given.value = value.text;
    }
  }

  void operator()(MixingLine& line) const {
    AirStream& stream = line.columns.at(value.part);
    if (!value.kind) {
      stream.flow = value.text;
    } else {
      (stream.kind1 == value.kind ? stream.value1 : stream.value2) = value.text;
    }
  }

  void operator()(PinnedReading& pinned) const {
    if (value.kind) assign(pinned.state.at(*value.kind), strictNumber(value.text));
  }

  void operator()(AirHandler&) const {}
  void operator()(DrawnChart&) const {}
  void operator()(HeaderLine&) const {}
};

}  // namespace

std::vector<GivenValue> givenValues(const Entry& entry) {
  std::vector<GivenValue> values;
  std::visit(Giver{values}, entry.content);
  return values;
}

Result<Entry> withGiven(const Entry& entry, const GivenValue& value, WindowSize window) {
  if (!hasValue(strictNumber(value.text))) {
    return Error{ErrorCode::unreadable, {}, '"' + value.text + "\" is not a number"};
  }
  Content content = entry.content;
  std::visit(Taker{value}, content);
  return workedOut(entry.setting, std::move(content), window);
}

Result<Entry> pointOf(const Entry& mixture, std::size_t part, WindowSize window) {
  const auto& line = std::get<MixingLine>(mixture.content);
  const AirStream& column = line.columns.at(part);
  MarkedPoint point;
  point.given = {{{PropertyKind::db, column.db}, {PropertyKind::w, column.w}}};
  point.identification = line.names.at(part).empty() ? columnHeads.at(part) : line.names.at(part);
  return workedOut(mixture.setting, std::move(point), window);
}

std::vector<MarkedPoint> pointsOf(const Document& document) {
  std::vector<MarkedPoint> points;
  for (const Entry& entry : document.entries) {
    if (const auto* point = std::get_if<MarkedPoint>(&entry.content)) points.push_back(*point);
  }
  return points;
}

AirStream streamOf(const MarkedPoint& point) {
  AirStream stream;
  stream.kind1 = point.given[0].kind;
  stream.value1 = point.given[0].value;
  stream.kind2 = point.given[1].kind;
  stream.value2 = point.given[1].value;
  return stream;
}

}  // namespace moistair
