#include "text/words.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace moistair {

std::string lowercase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return lower;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string inQuotes(std::string_view word) { return "\"" + std::string(word) + "\""; }

namespace {

/// Letters added, left out, replaced or swapped with their neighbor, row by row of the usual table.
template <std::size_t longest>
std::size_t changesBetween(std::string_view one, std::string_view other) {
  std::array<std::array<std::size_t, longest + 1>, 3> rows;
  std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    auto& row = rows[i % 3];
    const auto& above = rows[(i + 2) % 3];
    const auto& twoAbove = rows[(i + 1) % 3];
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t replaced = above[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, above[j] + 1, row[j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
      if (swapped) row[j] = std::min(row[j], twoAbove[j - 2] + 1);
    }
  }
  return rows[one.size() % 3][other.size()];
}

}  // namespace

ClosestWord::ClosestWord(std::string_view word)
    : word_(lowercase(word)), changes_(std::max<std::size_t>(word.size() / 3, 1) + 1) {}

void ClosestWord::offer(std::string_view candidate) {
  if (word_.size() > longest || candidate.size() > longest) return;
  const std::size_t changes = changesBetween<longest>(word_, lowercase(candidate));
  if (changes >= changes_ || changes >= std::max(word_.size(), candidate.size())) return;
  changes_ = changes;
  found_ = candidate;
}

std::string ClosestWord::question() const { return found_.empty() ? "" : " (did you mean " + found_ + "?)"; }

}  // namespace moistair
