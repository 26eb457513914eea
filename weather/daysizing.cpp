// Design days of DDY files: objects "SizingPeriod:DesignDay, name, month, ...;" with a comment behind each field.
#include <algorithm>

#include "text/numbertext.h"
#include "text/words.h"
#include "weather/calendar.h"
#include "weather/designconditions.h"
#include "weather/fields.h"

namespace moistair {

namespace {

struct DayField {
  std::string_view text;
  std::string label;  ///< its comment in small letters, empty without one
};

/// A field's value by what its comment says, or by its place in the layout in use since 2009 where it has none. Older
/// files have another order.
const DayField* fieldOf(const std::vector<DayField>& fields, std::string_view label, std::size_t place) {
  bool labeled = false;
  for (const DayField& field : fields) {
    labeled = labeled || !field.label.empty();
    if (field.label.find(label) != std::string::npos) return &field;
  }
  return !labeled && place < fields.size() ? &fields[place] : nullptr;
}

double numberIn(const std::vector<DayField>& fields, std::string_view label, std::size_t place) {
  const DayField* field = fieldOf(fields, label, place);
  return field == nullptr ? noValue : strictNumber(field->text);
}

/// "... Ann Clg .4% Condns DB=>MWB", "... July 2% Condns DB=>MCWB": false for a day of another kind.
bool readName(std::string_view name, DesignCondition& condition) {
  const std::size_t percent = name.rfind('%');
  if (percent == std::string_view::npos) return false;
  const std::size_t begin = name.rfind(' ', percent) + 1;  // 0 where there is none
  condition.percent = strictNumber(name.substr(begin, percent - begin));
  const std::string after = lowercase(name.substr(percent + 1));
  const std::string before = lowercase(name.substr(0, begin));
  const bool heating = before.find(" htg") != std::string::npos;
  const bool wind = before.find("wind") != std::string::npos || after.find("ws=>") != std::string::npos;
  if (!hasValue(condition.percent) || wind) return false;
  std::string_view month = trimmed(name.substr(0, begin));
  month = month.substr(month.rfind(' ') + 1);
  condition.month = before.find(" ann ") == std::string::npos ? monthNamed(month) : 0;
  if (before.find("hum_n") != std::string::npos) {
    condition.basis = DesignBasis::humidificationDewPoint;
  } else if (heating) {
    condition.basis = DesignBasis::heatingDryBulb;
  } else if (after.find("enth=>") != std::string::npos) {
    condition.basis = DesignBasis::enthalpy;
  } else if (after.find("dp=>") != std::string::npos) {
    condition.basis = DesignBasis::dewPoint;
  } else if (after.find("wb=>") != std::string::npos) {
    condition.basis = DesignBasis::wetBulb;
  } else if (after.find("db=>") != std::string::npos) {
    condition.basis = DesignBasis::coolingDryBulb;
  } else {
    return false;
  }
  return true;
}

/// What a day says of its humidity.
std::optional<Given> humidityOf(const std::vector<DayField>& fields) {
  const DayField* type = fieldOf(fields, "humidity condition type", 8);
  if (type == nullptr) type = fieldOf(fields, "humidity indicating type", 8);
  if (type == nullptr) return std::nullopt;
  const std::string kind = lowercase(type->text);
  double value = numberIn(fields, "wetbulb or dewpoint", 9);
  if (!hasValue(value)) value = numberIn(fields, "humidity indicating conditions", 9);
  if (kind.starts_with("wetbulb") && hasValue(value)) return Given{PropertyKind::wb, fahrenheit(value)};
  if (kind.starts_with("dewpoint") && hasValue(value)) return Given{PropertyKind::dp, fahrenheit(value)};
  const double ratio = numberIn(fields, "humidity ratio", 11);
  if (kind.starts_with("humidityratio") && hasValue(ratio)) return Given{PropertyKind::w, ratio};
  const double joules = numberIn(fields, "enthalpy at", 12);
  constexpr double joulesPerBtu = 2326;  // to the pound
  if (kind.starts_with("enthalpy") && hasValue(joules)) {
    return Given{PropertyKind::h, joules / joulesPerBtu + dryAirHeat * 32};
  }
  return std::nullopt;
}

/// Takes the fields of the next object off the text; false at its end.
bool nextObject(std::string_view& text, std::vector<DayField>& fields) {
  fields.clear();
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(",;!");
    if (end == std::string_view::npos) break;
    std::string_view field = text.substr(0, end);
    while (!field.empty() && (field.front() == '\n' || field.front() == '\r' || field.front() == ' ')) {
      field.remove_prefix(1);
    }
    const char mark = text[end];
    text.remove_prefix(end + 1);
    const std::size_t lineEnd = std::min(text.find('\n'), text.size());
    if (mark == '!') {  // a comment between objects
      text.remove_prefix(lineEnd);
      continue;
    }
    const std::size_t comment = text.substr(0, lineEnd).find('!');
    const std::size_t further = text.substr(0, lineEnd).find_first_of(",;");
    const bool commented = comment != std::string_view::npos && !(further < comment);
    fields.push_back({trimmed(field), commented ? lowercase(text.substr(comment, lineEnd - comment)) : ""});
    if (commented) text.remove_prefix(lineEnd);
    if (mark == ';') return true;
  }
  text = {};
  return false;
}

}  // namespace

std::vector<DesignCondition> designOfDays(std::string_view text, Oddities& oddities) {
  std::vector<DesignCondition> found;
  std::vector<DayField> fields;
  std::string source;
  while (nextObject(text, fields)) {
    const std::string kind = lowercase(fields.front().text);
    if (kind == "site:location" && fields.size() > 1) source = shownField(fields[1].text);
    if (kind != "sizingperiod:designday" || fields.size() < 2) continue;
    fields.erase(fields.begin());
    DesignCondition condition;
    const std::string name = shownField(fields.front().text);
    const bool known = readName(fields.front().text, condition);
    condition.source = source;
    condition.db = fahrenheit(numberIn(fields, "maximum dry", 4));
    condition.second = humidityOf(fields);
    if (known && hasValue(condition.db) && condition.second) {
      found.push_back(std::move(condition));
    } else {
      oddities.add(OddityKind::designDayWithoutState, [&] { return name; });
    }
  }
  if (found.empty() && oddities.count(OddityKind::designDayWithoutState) == 0) {
    oddities.add(OddityKind::noDesignData);
  }
  return found;
}

}  // namespace moistair
