#include "weather/condition.h"

#include <algorithm>

#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/words.h"

namespace moistair {

namespace {

Result<Condition> readCondition(std::string_view text) {
  const std::size_t sign = text.find_first_of("<>");
  const Error unreadable{ErrorCode::unreadable, {}, inQuotes(text) + " is not a condition, such as wb<65 or dp>=60"};
  if (sign == std::string_view::npos) return unreadable;
  const std::string key = lowercase(trimmed(text.substr(0, sign)));
  const auto named = [&](const Property& property) { return key == property.key; };
  const auto property = std::find_if(heldProperties.begin(), heldProperties.end(), named);
  if (property == heldProperties.end()) {
    return Error{ErrorCode::unknownName, {}, inQuotes(key) + " is none of " + keysOfKinds() + " pv"};
  }
  Condition condition;
  condition.kind = property->kind;
  condition.below = text[sign] == '<';
  text.remove_prefix(sign + 1);
  condition.orEqual = text.starts_with('=');
  if (condition.orEqual) text.remove_prefix(1);
  condition.value = strictNumber(text);
  return hasValue(condition.value) ? Result(condition) : unreadable;
}

}  // namespace

bool Condition::holds(const StatePoint& state) const {
  const double found = state.at(kind);
  if (orEqual && found == value) return true;
  return below ? found < value : found > value;
}

Result<std::vector<Condition>> readConditions(std::string_view text) {
  std::vector<Condition> conditions;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const auto condition = readCondition(trimmed(text.substr(begin, end - begin)));
    if (!condition) return condition.error();
    conditions.push_back(*condition);
    begin = end + 1;
  }
  return conditions;
}

std::string wordsOf(const Condition& condition) {
  return std::string(nameOf(condition.kind)) + (condition.below ? " <" : " >") + (condition.orEqual ? "= " : " ") +
         atMostDecimals(condition.value, 7);
}

}  // namespace moistair
