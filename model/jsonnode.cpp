#include "model/jsonnode.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <span>

#include "text/utf8.h"

namespace moistair {

namespace {

constexpr std::size_t longestReason = 120;

/// A part of the text as a message may repeat it.
std::string repeated(std::string_view name) {
  constexpr std::size_t longest = 40;
  if (name.size() > longest) return "...";
  std::string text(name);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
  return text;
}

/// The place of a byte in a text, as an editor shows it.
std::string placeOfByte(std::string_view text, std::size_t position) {
  const std::string_view before = text.substr(0, position > 0 ? position - 1 : 0);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

/// What the library says, without its own prefix, place, and copy of what was read.
std::string reasonOf(const nlohmann::detail::exception& error) {
  std::string reason = error.what();
  for (const std::string_view before : {"] ", "column "}) {
    if (const std::size_t at = reason.find(before); at != std::string::npos) reason.erase(0, at + before.size());
  }
  // the column's number
  reason.erase(0, std::min(reason.find_first_not_of("0123456789"), reason.size()));
  if (reason.starts_with(": ")) reason.erase(0, 2);
  return reason.substr(0, std::min(reason.find("; last read"), longestReason));
}

/// Looks at all of a text before anything is built of it.
class Checker : public nlohmann::json_sax<Json> {
public:
  explicit Checker(std::string_view text) : text_(text) {}

  bool null() override { return value(); }
  bool boolean(bool) override { return value(); }
  bool number_integer(number_integer_t) override { return value(); }
  bool number_unsigned(number_unsigned_t) override { return value(); }
  bool number_float(number_float_t, const string_t&) override { return value(); }
  bool string(string_t&) override { return value(); }
  bool binary(binary_t&) override { return value(); }
  bool start_object(std::size_t) override {
    ++objects_;
    return open();
  }
  bool end_object() override { return close(); }
  bool start_array(std::size_t) override { return open(); }
  bool end_array() override { return close(); }

  bool key(string_t& name) override {
    Level& level = levels_.back();
    level.name = name;
    if (!level.keys.insert(name).second) throw JsonFault(place(), "duplicate key");
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& error) override {
    throw JsonFault(placeOfByte(text_, position), reasonOf(error));
  }

  /// More than the text takes as values and as a document [bytes].
  std::size_t needed() const {
    constexpr std::size_t ofValue = 200, ofObject = 1500, ofByte = 4;
    return values_ * ofValue + objects_ * ofObject + text_.size() * ofByte;
  }

private:
  struct Level {
    std::set<std::string> keys;
    std::string name;         ///< key of the value that is being read; empty in an array
    std::size_t element = 0;  ///< of an array, counted from 1
  };

  static constexpr std::size_t deepest = 16;

  bool value() {
    ++values_;
    if (!levels_.empty()) ++levels_.back().element;
    return true;
  }

  bool open() {
    value();
    if (levels_.size() == deepest) throw JsonFault(place(), "more levels than a document has");
    levels_.emplace_back();
    return true;
  }

  bool close() {
    levels_.pop_back();
    return true;
  }

  std::string place() const {
    constexpr std::size_t mostShown = 5;  // no document has more, and a message is to be read
    std::string place;
    for (const Level& level : std::span(levels_).first(std::min(mostShown, levels_.size()))) {
      if (!place.empty()) place += ", ";
      place += level.name.empty() ? std::to_string(level.element) : repeated(level.name);
    }
    if (levels_.size() > mostShown) place += ", ...";
    return place;
  }

  std::string_view text_;
  std::vector<Level> levels_;
  std::size_t values_ = 0, objects_ = 0;
};

/// Throws where there is not so much memory. The library's values need some to go, and end the program without it.
void tryMemory(std::size_t bytes) {
  const auto room = std::make_unique_for_overwrite<char[]>(bytes);
  *static_cast<volatile char*>(room.get()) = 0;
}

}  // namespace

Json parsedJson(std::string_view text) {
  // The library takes it for the end of the text.
  if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
    throw JsonFault(placeOfByte(text, nul + 1), "a NUL byte, which no text holds");
  }
  Checker checker(text);
  Json::sax_parse(text, &checker);
  tryMemory(checker.needed());
  return Json::parse(text);
}

void JsonNode::fail(const std::string& reason) const {
  throw JsonFault(place_.empty() ? "the document" : place_, reason);
}

std::string JsonNode::placeOf(std::string_view name) const {
  return (place_.empty() ? "" : place_ + ", ") + repeated(name);
}

JsonNode JsonNode::at(const char* key) const {
  if (const auto node = find(key)) return *node;
  fail(std::string("\"") + key + "\" is missing");
}

std::optional<JsonNode> JsonNode::find(const char* key) const {
  if (!json_.is_object()) fail("must be an object in braces");
  const auto found = json_.find(key);
  if (found == json_.end()) return std::nullopt;
  return JsonNode(*found, placeOf(key));
}

void JsonNode::onlyKeys(const std::vector<const char*>& keys) const {
  for (const Member& member : members()) {
    const auto same = [&](const char* key) { return member.key == key; };
    if (std::none_of(keys.begin(), keys.end(), same)) member.node.fail("this key is not known here");
  }
}

std::vector<JsonNode::Member> JsonNode::members() const {
  if (!json_.is_object()) fail("must be an object in braces");
  std::vector<Member> members;
  for (const auto& [key, value] : json_.items()) members.push_back({key, JsonNode(value, placeOf(key))});
  return members;
}

std::vector<JsonNode> JsonNode::elements(const char* name) const {
  if (!json_.is_array()) fail("must be a list in brackets");
  // A list in a list keeps its number: "cells" becomes "cell 3", and what is in that "cell 3, number 1".
  const std::size_t comma = place_.rfind(", ");
  const std::string around = comma == std::string::npos ? "" : place_.substr(0, comma + 2);
  const std::string place = (isElement_ ? place_ + ", " : around) + name + ' ';
  std::vector<JsonNode> elements;
  elements.reserve(json_.size());
  for (const Json& element : json_) {
    elements.emplace_back(element, place + std::to_string(elements.size() + 1));
    elements.back().isElement_ = true;
  }
  return elements;
}

std::vector<double> JsonNode::numbers(std::initializer_list<const char*> names) const {
  if (!json_.is_array() || json_.size() != names.size())
    fail("must be a list of " + std::to_string(names.size()) + " numbers");
  std::vector<double> numbers;
  for (const char* name : names) numbers.push_back(JsonNode(json_[numbers.size()], placeOf(name)).number());
  return numbers;
}

const std::string& JsonNode::text() const {
  if (!json_.is_string()) fail("must be a text in quotes");
  return json_.get_ref<const std::string&>();
}

bool JsonNode::flag() const {
  if (!json_.is_boolean()) fail("must be true or false");
  return json_.get<bool>();
}

double JsonNode::number() const {
  if (!json_.is_number()) fail("must be a number");
  return json_.get<double>();
}

Json jsonNumber(double number) {
  constexpr double exact = 9007199254740992;  // 2^53: up to here every whole number has its double
  const bool whole = number == std::floor(number) && std::abs(number) < exact && !(number == 0 && std::signbit(number));
  return whole ? Json(static_cast<std::int64_t>(number)) : Json(number);
}

std::string jsonText(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json jsonOfPath(std::string_view path) {
  if (isUtf8(path)) return std::string(path);
  Json bytes = Json::array();
  for (const char c : path) bytes.push_back(static_cast<unsigned char>(c));
  return bytes;
}

std::string pathOf(const JsonNode& node) {
  if (!node.isArray()) return node.text();
  std::string path;
  for (const JsonNode& element : node.elements("byte")) {
    const double byte = element.number();
    if (!(byte >= 0 && byte <= 255)) element.fail("must be from 0 to 255");
    path += static_cast<char>(static_cast<unsigned char>(byte));
  }
  return path;
}

}  // namespace moistair
