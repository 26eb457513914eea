/// \file
/// Work on several threads whose results come out in the order in which the work went in.
///
/// One thread reads, some work, one writes; between them are at most a few pieces for each worker, so that memory
/// stays the same however much there is to do. A failure on any side stops all of them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace moistair {

/// Rows with their results, as text to be written.
struct BatchResult {
  std::string text;
  std::size_t rows = 0;
  std::size_t failed = 0;
  std::size_t missed = 0;                ///< rows whose state visibly misses a given value
  std::size_t nearest = 0;               ///< rows with one of several exact states
  std::optional<std::size_t> openQuote;  ///< if the last row has left a quote open: lines behind it that it took in
};

struct BatchSteps {
  std::function<std::optional<std::string>()> read;           ///< the next piece, none at the end
  std::function<BatchResult(const std::string& block)> work;  ///< called from several threads at once
  std::function<void(const BatchResult&)> write;              ///< in the order of reading
};

/// Runs until all is read and written, with so many threads for the work; with one, all happens on the thread of the
/// caller. Throws what a step threw.
void runInOrder(const BatchSteps& steps, unsigned jobs);

}  // namespace moistair
