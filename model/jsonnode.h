/// \file
/// JSON, written, and read with checks: a value that knows its place says what is wrong with it in the words of the
/// user.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "text/error.h"

namespace moistair {

using Json = nlohmann::ordered_json;

/// What is wrong with a text, and where. Thrown and caught within this room.
class JsonFault : public std::runtime_error {
public:
  JsonFault(const std::string& place, const std::string& reason)
      : JsonFault(Error{ErrorCode::unreadable, place, reason}) {}
  explicit JsonFault(const Error& error) : std::runtime_error(error.text()), error_(error) {}

  const Error& error() const { return error_; }

private:
  Error error_;
};

/// The whole of a text. A fault, with line and column, for what is no JSON, and for duplicate keys, more levels
/// than any document has and numbers that no double holds.
Json parsedJson(std::string_view text);

/// A value within a text that outlives it.
class JsonNode {
public:
  JsonNode(const Json& json, std::string place) : json_(json), place_(std::move(place)) {}

  [[noreturn]] void fail(const std::string& reason) const;

  /// A member of an object that has to be there.
  JsonNode at(const char* key) const;
  std::optional<JsonNode> find(const char* key) const;
  /// Fails for something that is no object and for a key that is none of these.
  void onlyKeys(const std::vector<const char*>& keys) const;

  struct Member;
  std::vector<Member> members() const;  ///< of an object, in the order of the text
  /// Elements of an array. @param name of one of them, in place of the array's: "entry" gives "entry 1"
  std::vector<JsonNode> elements(const char* name) const;

  /// An array of as many numbers as there are names for them.
  std::vector<double> numbers(std::initializer_list<const char*> names) const;

  const std::string& text() const;
  double number() const;
  bool flag() const;  ///< true or false
  bool isNull() const { return json_.is_null(); }
  bool isArray() const { return json_.is_array(); }

private:
  std::string placeOf(std::string_view name) const;

  const Json& json_;
  std::string place_;
  bool isElement_ = false;  ///< of a list
};

struct JsonNode::Member {
  std::string key;
  JsonNode node;
};

/// A number to be written: without a decimal point if it is whole.
Json jsonNumber(double number);

/// A path as text, or byte for byte where it is none, and back.
Json jsonOfPath(std::string_view path);
std::string pathOf(const JsonNode& node);

/// A value in one line. A byte that is no UTF-8 must not keep a file from being written, and is replaced.
std::string jsonText(const Json& json);

}  // namespace moistair
