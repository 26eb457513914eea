#include "weather/weatherfile.h"

#include <algorithm>

#include "files/inputfile.h"
#include "text/numberformat.h"
#include "text/utf8.h"
#include "text/words.h"
#include "weather/fields.h"
#include "weather/readers.h"

namespace moistair {

namespace {

std::string placeOf(PropertyKind kind, std::size_t line) {
  return std::string("the ") + propertyOf(kind).name + ", the first in " + lineWords(line);
}

void countLatinLines(std::string_view text, Oddities& oddities) {
  if (isUtf8(text)) return;
  LineReader lines(text);
  std::string_view line;
  while (lines.next(line)) {
    if (!isUtf8(line)) oddities.add(OddityKind::latinBytes, [&] { return lineWords(lines.number()); });
  }
}

bool contains(std::string_view text, std::string_view word) {
  const auto same = [](char one, char other) { return one == other || (one | ' ') == (other | ' '); };
  return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

Result<WeatherFile> readByContent(std::string_view text, const TableColumns& columns) {
  std::string_view first;
  LineReader lines(text);
  while (lines.next(first) && trimmed(first).empty()) {
  }
  const std::string start = lowercase(trimmed(first).substr(0, 9));
  if (start == "location," || lowercase(first.substr(0, 17)) == "design conditions") return readEpw(text);
  if (contains(text.substr(0, 65536), "sizingperiod:designday") || contains(text.substr(0, 65536), "site:location")) {
    WeatherFile file{
        .format = WeatherFormat::designDays, .site = {}, .rows = {}, .design = {}, .checksum = {}, .oddities = {}};
    file.design = designOfDays(text, file.oddities);
    if (!file.design.empty()) file.site.name = file.design.front().source;
    return file;
  }
  return readTable(text, columns);
}

}  // namespace

bool keepFirst(double value, const Plausible& range, std::string_view field, PropertyKind kind, std::size_t line,
               Oddities& oddities) {
  if (range.has(value)) return true;
  const OddityKind odd = field.empty()      ? OddityKind::noDryBulb
                         : !hasValue(value) ? OddityKind::dryBulbWord
                                            : OddityKind::dryBulbRange;
  oddities.add(odd,
               [&] { return placeOf(kind, line) + (field.empty() ? "" : " (" + inQuotes(shownField(field)) + ")"); });
  return false;
}

bool keepMoisture(double value, const Plausible& range, std::string_view field, std::size_t line, Oddities& oddities) {
  if (range.has(value)) return true;
  if (field.empty()) return false;
  oddities.add(hasValue(value) ? OddityKind::moistureRange : OddityKind::moistureWord,
               [&] { return inQuotes(shownField(field)) + " in " + lineWords(line); });
  return false;
}

void settleHumidity(std::vector<WeatherRow>& rows, Oddities& oddities) {
  const auto isHumidity = [](const WeatherRow& row) { return row.kinds[1] == PropertyKind::rh; };
  double highest = -1;
  for (const WeatherRow& row : rows) {
    if (isHumidity(row)) highest = std::max(highest, row.values[1]);
  }
  const bool fraction = highest > 0 && highest <= 1.1;
  if (fraction) oddities.add(OddityKind::fractionHumidity);
  for (WeatherRow& row : rows) {
    if (!isHumidity(row)) continue;
    if (fraction) row.values[1] *= 100;
    if (row.values[1] > 100) {
      oddities.add(OddityKind::humidityAbove100,
                   [&] { return atMostDecimals(row.values[1], 2) + " at " + timeWords(row.time); });
    }
  }
}

Result<std::vector<TableColumns::Named>> readColumns(std::string_view list) {
  std::vector<TableColumns::Named> named;
  for (std::size_t begin = 0; begin <= list.size();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    const std::string_view part = list.substr(begin, end - begin);
    begin = end + 1;
    const std::size_t equals = part.find('=');
    if (equals == std::string_view::npos) {
      return Error{ErrorCode::unreadable, {}, inQuotes(part) + " names no column, such as db=OAT"};
    }
    std::string key = lowercase(trimmed(part.substr(0, equals)));
    const auto kind = kindNamed(key);
    if (key != "time" && (!kind || *kind == PropertyKind::v)) {
      return Error{ErrorCode::unknownName, {}, inQuotes(key) + " is none of time db wb rh w h dp"};
    }
    const auto same = [&](const TableColumns::Named& other) { return other.key == key; };
    if (std::any_of(named.begin(), named.end(), same)) return Error{ErrorCode::duplicate, {}, key + " is given twice"};
    named.push_back({std::move(key), std::string(trimmed(part.substr(equals + 1)))});
  }
  return named;
}

std::string checksumOf(std::string_view content) {
  std::uint64_t sum = 0xcbf29ce484222325;
  for (const char c : content) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  std::string text(16, '0');
  for (std::size_t i = text.size(); i-- > 0; sum >>= 4U) text[i] = "0123456789abcdef"[sum & 15U];
  return text;
}

Result<WeatherFile> readWeather(std::string_view text, const TableColumns& columns) {
  const std::string checksum = checksumOf(text);
  const bool mark = text.starts_with("\xEF\xBB\xBF");
  if (mark) text.remove_prefix(3);
  if (text.find('\0') != std::string_view::npos) {
    return Error{ErrorCode::unreadable, {}, "the file is no text: it holds bytes of value 0"};
  }
  auto file = readByContent(text, columns);
  if (!file) return file;
  file->checksum = checksum;
  Oddities& oddities = file->oddities;
  if (mark) oddities.add(OddityKind::byteOrderMark);
  countLatinLines(text, oddities);
  if (file->rows.empty() && file->design.empty()) {
    std::string words = "the file has neither a row nor a design condition that can be used";
    for (const Oddity& oddity : oddities.all()) words += "; " + wordsOf(oddity);
    return Error{ErrorCode::unreadable, {}, words};
  }
  if (file->format != WeatherFormat::designDays) {
    lookAtYears(file->rows, oddities);
    findStuck(file->rows, oddities);
  }
  return file;
}

Error weatherTooLarge() {
  return {ErrorCode::tooLarge, {}, "It is larger than " + sizeWords(largestWeatherFile) + ", the limit."};
}

Result<WeatherFile> loadWeather(const std::filesystem::path& path, const TableColumns& columns) {
  auto text = readFile(path, Links::followed, largestWeatherFile);
  if (!text) return text.error().within(path.string());
  auto file = readWeather(*text, columns);
  return file ? std::move(file) : file.error().within(path.string());
}

}  // namespace moistair
