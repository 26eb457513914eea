// Tables with a time: TMY3, trend logs, anything with heads.
#include <algorithm>
#include <cmath>

#include "text/numbertext.h"
#include "text/words.h"
#include "weather/columns.h"
#include "weather/fields.h"

namespace moistair {

namespace {

/// Heads come within the first lines.
constexpr std::size_t mostTitleLines = 40;

struct TableReaderState {
  WeatherFile file;
  TableLayout layout;
  std::vector<std::string_view> fields;
  std::vector<std::uint32_t> lines;  ///< of the rows
  std::size_t slashes = 0;           ///< rows whose month and day could be the other way round
  std::string firstSlashes;
  std::size_t commas = 0;

  void readSite(std::string_view titles);
  void readRow(std::size_t line);
  bool readTimeOf(WeatherRow& row);
  bool readMoisture(std::size_t line, WeatherRow& row);
  double value(const ValueColumn& column);
  void settleTimes();
};

/// "724666,"DENVER",CO,-7.0,39.742,-105.179,1829": the first line of a TMY3 file.
void TableReaderState::readSite(std::string_view titles) {
  std::string_view first;
  if (!LineReader(titles).next(first)) return;
  splitFields(first, ',', fields);
  file.site.source = "TMY3";
  if (fields.size() > 1) file.site.name = shownField(fields[1]);
  file.site.elevation = fields.size() > 6 ? strictNumber(fields[6]) * feetPerMeter : noValue;
  if (!hasValue(file.site.elevation)) file.oddities.add(OddityKind::siteWithoutElevation);
}

double TableReaderState::value(const ValueColumn& column) {
  if (column.place >= fields.size()) return noValue;
  bool comma = false;
  const double number = fieldNumber(fields[column.place], layout.separator, comma);
  if (comma) ++commas;
  return number * column.factor + column.summand;
}

bool TableReaderState::readTimeOf(WeatherRow& row) {
  const TimeColumns& columns = layout.time;
  const auto number = [&](const std::optional<std::size_t>& place) {
    const double found = place ? strictNumber(fields[*place]) : 0;
    return found >= 0 && found <= 9999 ? static_cast<int>(found) : -1;
  };
  if (columns.whole || columns.date) {
    const auto written = readTime(fields[columns.whole ? *columns.whole : *columns.date]);
    if (!written || !written->hasDate) return false;
    row.time = written->time;
    if (written->slashes && slashes++ == 0) {
      firstSlashes = shownField(fields[columns.whole ? *columns.whole : *columns.date]);
    }
    if (columns.whole) return true;
    const auto clock = readTime(fields[*columns.clock]);
    if (!clock || !clock->hasTime) return false;
    row.time.hour = clock->time.hour;
    row.time.minute = clock->time.minute;
    row.time.second = clock->time.second;
    return true;
  }
  const int year = number(columns.year), month = number(columns.month), day = number(columns.day);
  const int hour = number(columns.hour), minute = number(columns.minute);
  if (year < 0 || month > 12 || month < 0 || day < 0 || day > 31 || hour < 0 || hour > 24 || minute < 0 ||
      minute > 60) {
    return false;
  }
  row.time = {static_cast<std::int16_t>(year), static_cast<std::int8_t>(month), static_cast<std::int8_t>(day),
              static_cast<std::int8_t>(hour), static_cast<std::int8_t>(minute)};
  return true;
}

bool TableReaderState::readMoisture(std::size_t line, WeatherRow& row) {
  const ValueColumn& column = layout.values[1];
  row.kinds[1] = column.kind;
  row.values[1] = value(column);
  if (keepMoisture(row.values[1], column.range, fields[column.place], line, file.oddities)) return true;
  if (layout.dewPoint) {
    const double dewPoint = value(*layout.dewPoint);
    if (layout.dewPoint->range.has(dewPoint)) {
      file.oddities.add(OddityKind::dewPointInstead, [&] { return lineWords(line); });
      row.kinds[1] = PropertyKind::dp;
      row.values[1] = dewPoint;
      return true;
    }
  }
  file.oddities.add(OddityKind::noMoisture, [&] { return lineWords(line); });
  return false;
}

void TableReaderState::readRow(std::size_t line) {
  Oddities& oddities = file.oddities;
  const auto place = [&] { return lineWords(line); };
  if (fields.size() < layout.fieldsNeeded) return oddities.add(OddityKind::shortRow, place);
  WeatherRow row;
  if (!readTimeOf(row)) return oddities.add(OddityKind::badTime, place);
  const ValueColumn& first = layout.values[0];
  row.kinds[0] = first.kind;
  row.values[0] = value(first);
  if (!keepFirst(row.values[0], first.range, fields[first.place], first.kind, line, oddities)) return;
  if (!readMoisture(line, row)) return;
  if (layout.pressure) {
    const double pressure = value(*layout.pressure);
    if (layout.pressure->range.has(pressure)) {
      row.atm = pressure;
    } else {
      oddities.add(OddityKind::pressureMissing, place);
    }
  }
  file.rows.push_back(row);
  lines.push_back(static_cast<std::uint32_t>(line));
}

/// Decides which of two numbers is the month, leaves out what is no time then, and turns 24:00 into the next day.
void TableReaderState::settleTimes() {
  std::vector<WeatherRow>& rows = file.rows;
  if (slashes > 0) {
    const auto above12 = [&](std::int8_t LocalTime::*part) {
      return std::any_of(rows.begin(), rows.end(), [&](const WeatherRow& row) { return row.time.*part > 12; });
    };
    const bool month = above12(&LocalTime::month), day = above12(&LocalTime::day);
    if (month && !day) {
      for (WeatherRow& row : rows) std::swap(row.time.month, row.time.day);
    } else if (!month && !day) {
      file.oddities.add(OddityKind::assumedMonthFirst, [&] { return firstSlashes; });
    }
  }
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    LocalTime& time = rows[i].time;
    if (!isTime(time)) {
      file.oddities.add(OddityKind::badTime, [&] { return lineWords(lines[i]); });
      continue;
    }
    // What ends an hour in these files begins it here.
    if (layout.isTmy3 && time.hour > 0) --time.hour;
    if (time.hour == 24 || time.minute == 60) time = timeOfSeconds(secondsOf(time));
    rows[kept++] = rows[i];
  }
  rows.resize(kept);
}

/// Reads from the line behind the heads.
WeatherFile rowsOf(TableReaderState& state, LineReader lines) {
  Oddities& oddities = state.file.oddities;
  std::string_view line;
  while (lines.next(line)) {
    if (trimmed(line).empty()) continue;
    if (!splitFields(line, state.layout.separator, state.fields)) {
      oddities.add(OddityKind::openQuote, [&] { return lineWords(lines.number()); });
    } else if (line.find('"') != std::string_view::npos) {
      oddities.add(OddityKind::quotedFields);
    }
    state.readRow(lines.number());
  }
  if (state.layout.separator == ';') oddities.add(OddityKind::semicolons);
  if (state.layout.separator == '\t') oddities.add(OddityKind::tabs);
  if (state.commas > 0) oddities.add(OddityKind::decimalCommas, state.commas);
  state.settleTimes();
  settleHumidity(state.file.rows, oddities);
  if (!state.layout.isTmy3) weighByDuration(state.file.rows, oddities);
  return std::move(state.file);
}

/// Which of two errors of lines tells more: that of the line that looks most like heads.
bool tellsMore(std::string_view line, std::string_view than) {
  const auto separators = [](std::string_view text) {
    return std::count_if(text.begin(), text.end(), [](char c) { return c == ',' || c == ';' || c == '\t'; });
  };
  return separators(line) > separators(than);
}

}  // namespace

std::string_view headsOf(std::string_view text) {
  LineReader lines(text);
  std::string_view line, likeliest;
  while (lines.number() < mostTitleLines && lines.next(line)) {
    if (tellsMore(line, likeliest)) likeliest = line;
  }
  return likeliest;
}

Result<WeatherFile> readTable(std::string_view text, const TableColumns& columns) {
  LineReader lines(text);
  std::string_view line, likeliest;
  Error error{ErrorCode::unreadable, {}, "the file has no line that names a time and two properties of air"};
  while (lines.number() < mostTitleLines && lines.next(line)) {
    if (trimmed(line).empty()) continue;
    TableReaderState state;
    auto layout = layoutOf(line, columns, state.file.oddities);
    if (!layout) {
      if (tellsMore(line, likeliest)) {
        likeliest = line;
        error = layout.error();
      }
      continue;
    }
    state.layout = std::move(*layout);
    state.file.format = state.layout.isTmy3 ? WeatherFormat::tmy3 : WeatherFormat::table;
    state.file.rows.reserve(text.size() / 40);
    if (state.layout.isTmy3) {
      state.readSite(text.substr(0, static_cast<std::size_t>(line.data() - text.data())));
      state.file.oddities.add(OddityKind::noDesignData);
    }
    return rowsOf(state, lines);
  }
  return error;
}

}  // namespace moistair
