/// \file
/// Words that people type: blanks around them, capitals, and what a mistyped one most likely means.
#pragma once

#include <string>
#include <string_view>

namespace moistair {

/// The text with its ASCII letters in small: names that the program gives are known in capitals too.
std::string lowercase(std::string_view text);

/// The text without the blanks and tabs around it.
std::string_view trimmed(std::string_view text);

/// A typed word within a message.
std::string inQuotes(std::string_view word);

/// Finds which of some candidates a mistyped word most likely means: the one that takes the fewest letters added, left
/// out, replaced or swapped with their neighbor. Words that have little in common are no candidates. Capitals count as
/// small letters.
class ClosestWord {
public:
  explicit ClosestWord(std::string_view word);

  void offer(std::string_view candidate);

  /// The first of the closest; empty if nothing was close.
  const std::string& found() const { return found_; }
  /// " (did you mean coil?)", to be put behind a message; empty if nothing was close.
  std::string question() const;

private:
  static constexpr std::size_t longest = 40;  ///< [bytes]: what is longer is compared with nothing

  std::string word_;
  std::string found_;
  std::size_t changes_;  ///< the next candidate has to take fewer
};

}  // namespace moistair
