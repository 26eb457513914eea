// EPW: eight header lines that begin with their names, then rows of 35 fields. The header may lack lines or have them
// in another order, and design conditions are found by keyword.
#include <algorithm>

#include "text/numbertext.h"
#include "text/words.h"
#include "weather/fields.h"
#include "weather/readers.h"

namespace moistair {

namespace {

// Places of the fields of a row.
constexpr std::size_t yearField = 0, monthField = 1, dayField = 2, hourField = 3, minuteField = 4, dryBulbField = 6,
                      dewPointField = 7, humidityField = 8, pressureField = 9, fieldsNeeded = 9;

struct EpwReader {
  WeatherFile file;
  int recordsPerHour = 1;
  bool fromZero = false, to24 = false, minuteZero = false;
  std::vector<std::string_view> fields;

  bool readHeader();
  void readRow(std::size_t line);
  bool readTimeOf(LocalTime& time);
  bool readMoisture(std::size_t line, WeatherRow& row);
  void settleHours();
};

int wholeNumber(std::string_view field) {
  const double number = strictNumber(field);
  return hasValue(number) && number >= -9999 && number <= 9999 && number == static_cast<int>(number)
             ? static_cast<int>(number)
             : -1;
}

/// False for a line that is no header line.
bool EpwReader::readHeader() {
  const std::string name = lowercase(fields.front());
  if (name.empty() || hasValue(strictNumber(name))) return false;
  if (name == "location") {
    if (fields.size() > 1) file.site.name = shownField(fields[1]);
    if (fields.size() > 4) file.site.source = shownField(fields[4]);
    const double elevation = fields.size() > 9 ? strictNumber(fields[9]) : noValue;
    file.site.elevation = elevation * feetPerMeter;
    if (!hasValue(elevation)) file.oddities.add(OddityKind::siteWithoutElevation);
  } else if (name == "design conditions") {
    file.design = designOfHeader(fields, file.oddities);
  } else if (name.starts_with("holidays/daylight saving")) {
    if (fields.size() < 2 || fields[1].empty()) file.oddities.add(OddityKind::blankLeapField);
  } else if (name == "data periods" && fields.size() > 2) {
    const int number = wholeNumber(fields[2]);
    if (number > 1 && number <= 60) recordsPerHour = number;
  }
  return true;
}

bool EpwReader::readTimeOf(LocalTime& time) {
  const int year = wholeNumber(fields[yearField]);
  const int month = wholeNumber(fields[monthField]);
  const int day = wholeNumber(fields[dayField]);
  const int hour = wholeNumber(fields[hourField]);
  const int minute = wholeNumber(fields[minuteField]);
  if (year < 0 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 24) return false;
  time.year = static_cast<std::int16_t>(year);
  time.month = static_cast<std::int8_t>(month);
  time.day = static_cast<std::int8_t>(day);
  time.hour = static_cast<std::int8_t>(hour);
  time.minute = static_cast<std::int8_t>(minute >= 0 && minute <= 60 ? minute : 0);
  return isTime(time);
}

bool EpwReader::readMoisture(std::size_t line, WeatherRow& row) {
  const auto place = [&] { return lineWords(line); };
  const double humidity = strictNumber(fields[humidityField]);
  if (keepMoisture(humidity, plausibleHumidity, fields[humidityField], line, file.oddities)) {
    row.kinds[1] = PropertyKind::rh;
    row.values[1] = humidity;
    return true;
  }
  const double dewPoint = strictNumber(fields[dewPointField]);
  if (!plausibleCelsius.has(dewPoint)) {
    file.oddities.add(OddityKind::noMoisture, place);
    return false;
  }
  file.oddities.add(OddityKind::dewPointInstead, place);
  row.kinds[1] = PropertyKind::dp;
  row.values[1] = fahrenheit(dewPoint);
  return true;
}

void EpwReader::readRow(std::size_t line) {
  Oddities& oddities = file.oddities;
  const auto place = [&] { return lineWords(line); };
  if (fields.size() < fieldsNeeded) return oddities.add(OddityKind::shortRow, place);
  WeatherRow row;
  if (!readTimeOf(row.time)) return oddities.add(OddityKind::badTime, place);
  row.kinds[0] = PropertyKind::db;
  const double dryBulb = strictNumber(fields[dryBulbField]);
  if (!keepFirst(dryBulb, plausibleCelsius, fields[dryBulbField], PropertyKind::db, line, oddities)) return;
  row.values[0] = fahrenheit(dryBulb);
  if (!readMoisture(line, row)) return;
  const double pressure = fields.size() > pressureField ? strictNumber(fields[pressureField]) * inHgPerPascal : noValue;
  if (plausiblePressure.has(pressure)) {
    row.atm = pressure;
  } else {
    oddities.add(OddityKind::pressureMissing, place);
  }
  fromZero = fromZero || row.time.hour == 0;
  to24 = to24 || row.time.hour == 24;
  minuteZero = minuteZero || row.time.minute == 0;
  row.hours = 1.0 / recordsPerHour;
  file.rows.push_back(row);
}

/// Hour and minute name the end of a row, 1 to 24 and up to 60; a row begins one interval before. Some files count from
/// 0 to 23 all the same, or the minutes within the hour.
void EpwReader::settleHours() {
  const bool beginning = fromZero && !to24;
  if (fromZero) file.oddities.add(OddityKind::hoursFromZero);
  for (WeatherRow& row : file.rows) {
    const int hour = row.time.hour - (beginning || row.time.hour == 0 ? 0 : 1);
    row.time.hour = static_cast<std::int8_t>(hour);
    const int minute = recordsPerHour == 1 ? 0 : minuteZero ? row.time.minute : row.time.minute - 60 / recordsPerHour;
    row.time.minute = static_cast<std::int8_t>(std::clamp(minute, 0, 59));
  }
}

}  // namespace

Result<WeatherFile> readEpw(std::string_view text) {
  EpwReader reader;
  reader.file.format = WeatherFormat::epw;
  reader.file.rows.reserve(text.size() / 180);
  LineReader lines(text);
  std::string_view line;
  bool inHeader = true;
  while (lines.next(line)) {
    if (trimmed(line).empty()) continue;
    const bool closed = splitFields(line, ',', reader.fields);
    if (!closed) reader.file.oddities.add(OddityKind::openQuote, [&] { return lineWords(lines.number()); });
    if (closed && line.find('"') != std::string_view::npos) reader.file.oddities.add(OddityKind::quotedFields);
    inHeader = inHeader && reader.readHeader();
    if (!inHeader) reader.readRow(lines.number());
  }
  reader.settleHours();
  settleHumidity(reader.file.rows, reader.file.oddities);
  return std::move(reader.file);
}

}  // namespace moistair
