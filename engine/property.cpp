#include "engine/property.h"

#include <algorithm>

namespace moistair {

namespace {

constexpr std::span<const Property> kinds = std::span(propertyTable).first(kindCount);

}  // namespace

std::optional<PropertyKind> kindAt(int index) {
  if (index < 0 || index >= kindCount) return std::nullopt;
  return static_cast<PropertyKind>(index);
}

std::optional<PropertyKind> kindNamed(std::string_view key) {
  const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const Property& kind) { return key == kind.key; });
  return found == kinds.end() ? std::nullopt : std::optional(found->kind);
}

std::string keysOfKinds() {
  std::string keys;
  for (const Property& kind : kinds) keys += (keys.empty() ? "" : " ") + std::string(kind.key);
  return keys;
}

}  // namespace moistair
