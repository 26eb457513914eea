#include "weather/columns.h"

#include <algorithm>

#include "text/words.h"
#include "weather/fields.h"

namespace moistair {

namespace {

/// The words of a head in small letters with a blank on either side: "OutdoorTemp_(°F)" is " outdoor temp f ".
std::string wordsIn(std::string_view head) {
  std::string words = " ";
  char before = ' ';
  for (const char c : head) {
    const bool upper = c >= 'A' && c <= 'Z';
    const bool letter = upper || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    const bool humps = upper && before >= 'a' && before <= 'z';
    if ((!letter || humps) && words.back() != ' ') words += ' ';
    if (letter) words += upper ? static_cast<char>(c - 'A' + 'a') : c;
    before = c;
  }
  if (words.back() != ' ') words += ' ';
  return words;
}

bool hasAny(const std::string& words, std::initializer_list<const char*> parts) {
  return std::any_of(parts.begin(), parts.end(),
                     [&](const char* part) { return words.find(part) != std::string::npos; });
}

/// What a head names; the pressure as the vapor pressure's place, which no table gives.
std::optional<PropertyKind> kindOf(const std::string& words) {
  using enum PropertyKind;
  if (hasAny(words,
             {" flag ", " source ", " uncert", " code ", "setpoint", " set point ", " stpt ", " sp ", "quality"}))
    return std::nullopt;
  if (hasAny(words, {"wet bulb", "wetbulb", " wb ", " twb "})) return wb;
  if (hasAny(words, {" dew", " dp ", " tdp ", " tdew"})) return dp;
  if (hasAny(words, {"humidity ratio", "mixing ratio", " w "})) return w;
  if (hasAny(words, {"enthalpy"})) return h;
  if (hasAny(words, {" rh ", " rhum ", " humid", " relhum ", " rel hum "}) && !hasAny(words, {"absolute", "specific"}))
    return rh;
  if (hasAny(words, {"pressure", " baro", " press "}) && !hasAny(words, {"vapor", "static", "duct", " diff"}))
    return pv;
  if (hasAny(words, {"dry bulb", "drybulb", "temp", " db ", " oat ", " tdb ", " ta ", " t ", " oa t "})) return db;
  return std::nullopt;
}

/// Of several columns that could be the same, one of outdoor air is meant.
bool isOutdoor(const std::string& words) {
  return hasAny(words, {"outdoor", "outside", " oa ", " oat ", "ambient", "dry bulb", "drybulb"});
}

enum class Scale { unknown, fahrenheit, celsius };

Scale scaleOf(const std::string& words) {
  if (hasAny(words, {" f ", " degf ", "fahrenheit"})) return Scale::fahrenheit;
  if (hasAny(words, {" c ", " degc ", "celsius", "centigrade"})) return Scale::celsius;
  return Scale::unknown;
}

struct ColumnFinder {
  const std::vector<std::string_view>& heads;
  const TableColumns& columns;
  Oddities& oddities;
  std::string fahrenheitAssumed{};

  /// The place of a column that the user has named; an error if no column has this head.
  Result<std::optional<std::size_t>> placeNamed(std::string_view key) const {
    for (const TableColumns::Named& named : columns.named) {
      if (named.key != key) continue;
      for (std::size_t i = 0; i < heads.size(); ++i) {
        if (lowercase(heads[i]) == lowercase(named.head)) return std::optional(i);
      }
      return Error{ErrorCode::unknownName, {}, "no column is named " + inQuotes(named.head)};
    }
    return std::optional<std::size_t>();
  }

  std::optional<std::size_t> placeOf(PropertyKind kind) const {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < heads.size(); ++i) {
      const std::string words = wordsIn(heads[i]);
      if (kindOf(words) != kind) continue;
      if (isOutdoor(words)) return i;
      if (!found) found = i;
    }
    return found;
  }

  ValueColumn temperature(std::size_t place, PropertyKind kind) {
    const std::string words = wordsIn(heads[place]);
    Scale scale = scaleOf(words);
    if (columns.units != TableUnits::byHeads) {
      scale = columns.units == TableUnits::celsius ? Scale::celsius : Scale::fahrenheit;
    }
    if (scale == Scale::unknown) {
      fahrenheitAssumed += (fahrenheitAssumed.empty() ? "" : ", ") + inQuotes(shownField(heads[place]));
    }
    if (scale != Scale::celsius) return {place, kind, 1, 0, plausibleFahrenheit};
    return {place, kind, 1.8, 32, {fahrenheit(plausibleCelsius.low), fahrenheit(plausibleCelsius.high)}};
  }

  ValueColumn column(std::size_t place, PropertyKind kind) {
    const std::string words = wordsIn(heads[place]);
    const std::string head = lowercase(heads[place]);
    const auto says = [&](const char* unit) { return head.find(unit) != std::string::npos; };
    switch (kind) {
      case PropertyKind::rh: return {place, kind, 1, 0, plausibleHumidity};
      case PropertyKind::w: {
        const double factor = says("gr/") || says("grain")     ? 1 / grainsPerPound
                              : says("g/kg") && !says("kg/kg") ? 1e-3
                                                               : 1;
        return {place, kind, factor, 0, {0, 0.2}};
      }
      case PropertyKind::h:
        if (says("kj")) return {place, kind, 1 / 2.326, dryAirHeat * 32, {-50, 300}};
        return {place, kind, 1, 0, {-50, 300}};
      default: return temperature(place, kind);
    }
  }

  ValueColumn pressure(std::size_t place) const {
    const std::string words = wordsIn(heads[place]);
    double factor = 1;
    if (hasAny(words, {" mbar ", " mb ", " hpa ", " millibar"})) factor = 100 * inHgPerPascal;
    if (hasAny(words, {" kpa "})) factor = 1000 * inHgPerPascal;
    if (hasAny(words, {" pa ", " pascal"})) factor = inHgPerPascal;
    if (hasAny(words, {" psi ", " psia "})) factor = 1 / 0.4911541;
    return {place, PropertyKind::pv, factor, 0, plausiblePressure};
  }
};

void findTime(const std::vector<std::string_view>& heads, TimeColumns& time) {
  const auto take = [](std::optional<std::size_t>& place, std::size_t i) {
    if (!place) place = i;
  };
  for (std::size_t i = 0; i < heads.size(); ++i) {
    const std::string words = wordsIn(heads[i]);
    const bool date = hasAny(words, {" date "});
    const bool clock = hasAny(words, {" time "});
    if (words == " year ") take(time.year, i);
    if (words == " month ") take(time.month, i);
    if (words == " day ") take(time.day, i);
    if (words == " hour ") take(time.hour, i);
    if (words == " minute ") take(time.minute, i);
    if ((date && clock) || hasAny(words, {" datetime", " timestamp ", " time stamp "})) {
      take(time.whole, i);
    } else if (date) {
      take(time.date, i);
    } else if (clock && !hasAny(words, {" zone ", " local "})) {
      take(time.clock, i);
    }
  }
  if (!time.whole && time.clock && !time.date && !(time.month && time.day)) time.whole = time.clock;
  if (!time.whole && time.date && !time.clock && !time.hour) time.whole = time.date;
}

char separatorOf(std::string_view line) {
  const auto count = [&](char c) { return std::count(line.begin(), line.end(), c); };
  if (count(';') > 0 && count(';') >= count(',')) return ';';
  return count('\t') > count(',') ? '\t' : ',';
}

Error noColumns(const std::vector<std::string_view>& heads, const char* what) {
  std::string words = std::string("no column is ") + what + "; the heads are ";
  for (std::size_t i = 0; i < heads.size(); ++i) {
    if (i == 20) return {ErrorCode::unreadable, {}, words + ", ..."};
    words += (i > 0 ? ", " : "") + shownField(heads[i]);
  }
  return {ErrorCode::unreadable, {}, words};
}

/// Columns of the properties, as named or found, the dry bulb first, or else the wet bulb.
Result<std::vector<ValueColumn>> propertyColumns(ColumnFinder& finder) {
  using enum PropertyKind;
  std::vector<ValueColumn> found;
  for (const bool named : {true, false}) {
    for (const PropertyKind kind : {db, rh, dp, wb, w, h}) {
      const auto place = finder.placeNamed(nameOf(kind));
      if (!place) return place.error();
      if (place->has_value() != named) continue;
      const auto at = named ? *place : finder.placeOf(kind);
      const bool clash = std::any_of(found.begin(), found.end(), [&](const ValueColumn& other) {
        return (other.kind == w && kind == dp) || (other.kind == dp && kind == w);
      });
      if (at && found.size() < 2 && !clash) found.push_back(finder.column(*at, kind));
    }
  }
  const auto rank = [](const ValueColumn& column) { return column.kind == db ? 0 : column.kind == wb ? 1 : 2; };
  std::stable_sort(found.begin(), found.end(),
                   [&](const ValueColumn& one, const ValueColumn& other) { return rank(one) < rank(other); });
  return found;
}

}  // namespace

Result<TableLayout> layoutOf(std::string_view line, const TableColumns& columns, Oddities& oddities) {
  TableLayout layout;
  layout.separator = separatorOf(line);
  std::vector<std::string_view> heads;
  splitFields(line, layout.separator, heads);
  ColumnFinder finder{heads, columns, oddities};
  const auto time = finder.placeNamed("time");
  if (!time) return time.error();
  if (*time) {
    layout.time.whole = **time;
  } else {
    findTime(heads, layout.time);
  }
  if (!layout.time.any()) return noColumns(heads, "a time");
  auto values = propertyColumns(finder);
  if (!values) return values.error();
  if (values->size() < 2) return noColumns(heads, values->empty() ? "a dry bulb" : "a humidity or dew point");
  layout.values = std::move(*values);
  const auto dewPoint = finder.placeOf(PropertyKind::dp);
  if (dewPoint && layout.values[1].kind == PropertyKind::rh) {
    layout.dewPoint = finder.column(*dewPoint, PropertyKind::dp);
  }
  if (const auto pressure = finder.placeOf(PropertyKind::pv)) layout.pressure = finder.pressure(*pressure);
  layout.isTmy3 = layout.time.date && layout.time.clock && heads[*layout.time.date] == "Date (MM/DD/YYYY)";
  layout.fieldsNeeded = 1 + std::max(layout.values[0].place, layout.values[1].place);
  for (const auto& place : {layout.time.whole, layout.time.date, layout.time.clock, layout.time.year, layout.time.month,
                            layout.time.day, layout.time.hour, layout.time.minute}) {
    if (place) layout.fieldsNeeded = std::max(layout.fieldsNeeded, *place + 1);
  }
  if (!finder.fahrenheitAssumed.empty()) {
    oddities.add(OddityKind::assumedFahrenheit, [&] { return finder.fahrenheitAssumed; });
  }
  return layout;
}

}  // namespace moistair
