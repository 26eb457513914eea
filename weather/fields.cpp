#include "weather/fields.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "text/numbertext.h"
#include "text/singlebyte.h"
#include "text/utf8.h"
#include "text/value.h"
#include "text/words.h"

namespace moistair {

bool LineReader::next(std::string_view& line) {
  if (rest_.empty()) return false;
  const std::size_t end = std::min(rest_.find('\n'), rest_.size());
  line = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  while (line.ends_with('\r')) line.remove_suffix(1);
  ++number_;
  return true;
}

bool splitFields(std::string_view line, char separator, std::vector<std::string_view>& fields) {
  fields.clear();
  bool closed = true;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t first = std::min(line.find_first_not_of(' ', begin), line.size());
    std::size_t end = begin;
    if (first < line.size() && line[first] == '"') {
      const std::size_t quote = line.find('"', first + 1);
      closed = closed && quote != std::string_view::npos;
      fields.push_back(trimmed(line.substr(first + 1, std::min(quote, line.size()) - first - 1)));
      end = std::min(line.find(separator, std::min(quote, line.size())), line.size());
    } else {
      end = std::min(line.find(separator, begin), line.size());
      fields.push_back(trimmed(line.substr(begin, end - begin)));
    }
    begin = end + 1;
  }
  return closed;
}

double fieldNumber(std::string_view field, char separator, bool& comma) {
  const std::size_t place = separator == ',' ? std::string_view::npos : field.find(',');
  if (place == std::string_view::npos) return strictNumber(field);
  std::array<char, 32> buffer;
  if (field.size() > buffer.size()) return noValue;
  std::memcpy(buffer.data(), field.data(), field.size());
  buffer[place] = '.';
  const double number = strictNumber({buffer.data(), field.size()});
  comma = comma || hasValue(number);
  return number;
}

std::string lineWords(std::size_t line) { return "line " + std::to_string(line); }

std::string shownField(std::string_view field) {
  constexpr std::size_t longest = 40;
  std::string text = isUtf8(field) ? std::string(field) : fromSingleByte(field);
  if (text.size() <= longest) return text;
  std::size_t end = 0;
  for (std::string_view rest = text; end < longest; rest = std::string_view(text).substr(end)) {
    end += firstPiece(rest).length;
  }
  return text.substr(0, end) + "...";
}

}  // namespace moistair
