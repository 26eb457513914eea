#include "cli/tablerun.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "cli/fault.h"
#include "cli/properties.h"
#include "text/tablefield.h"
#include "text/words.h"

namespace moistair {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// How many rows are done, and the line on the terminal that says so a few times a second.
class Progress {
public:
  explicit Progress(bool visible) : visible_(visible) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void add(const BatchResult& result) {
    counts_.rows += result.rows;
    counts_.failed += result.failed;
    counts_.missed += result.missed;
    counts_.nearest += result.nearest;
    counts_.openQuote = result.openQuote;
    const auto now = Clock::now();
    if (!visible_ || now - shown_ < std::chrono::milliseconds(200)) return;
    shown_ = now;
    const std::chrono::duration<double> taken = now - start_;
    const auto rate = static_cast<long long>(static_cast<double>(counts_.rows) / taken.count());
    say("\r" + std::to_string(counts_.rows) + " rows, " + std::to_string(counts_.failed) + " failed, " +
        std::to_string(counts_.missed) + " missed, " + std::to_string(rate) + " rows/s" + clearRest);
  }

  /// Leaves the terminal's line clear, also for the message of a failure.
  ~Progress() {
    if (visible_) say(std::string("\r") + clearRest);
  }

  const RowCounts& counts() const { return counts_; }

private:
  using Clock = std::chrono::steady_clock;
  static constexpr const char* clearRest = "\x1B[K";

  /// A terminal that is gone is no reason to stop.
  static void say(const std::string& text) {
    [[maybe_unused]] auto ignored = ::write(STDERR_FILENO, text.data(), text.size());
  }

  bool visible_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  RowCounts counts_;
};

/// The record as it was read, brought to the table's number of columns.
void appendRecord(std::string& out, const CsvRecord& record, const TableShape& shape) {
  out += record.columns;
  const std::size_t columns = shape.selection.columns;
  if (record.quoteOpen && record.count <= columns) out += '"';
  if (record.count < columns) out.append(columns - record.count, shape.delimiter);
}

/// Why a record is no row of the table; empty if it is one.
std::string wrongRecord(const CsvRecord& record, const TableShape& shape) {
  if (record.quoteOpen) return "a quote was left open";
  const std::size_t columns = shape.selection.columns;
  if (record.count == columns) return {};
  return std::to_string(record.count) + " fields where there are " + std::to_string(columns) + " columns";
}

}  // namespace

std::string countOf(std::size_t some, std::size_t rows) {
  return std::to_string(some) + " of " + std::to_string(rows) + " rows";
}

void checkRows(const RowCounts& counts, const std::string& ofMissed) {
  if (counts.failed == 0) return;
  std::string text = countOf(counts.failed, counts.rows) + " failed";
  if (!ofMissed.empty() && counts.missed > 0) {
    text += "; " + std::to_string(counts.missed) + " of them because " + ofMissed;
  }
  if (counts.openQuote) {
    text += "; a quote was left open in row " + std::to_string(counts.rows) + ", which has taken in " +
            std::to_string(*counts.openQuote) + (*counts.openQuote == 1 ? " line" : " lines") + " behind it";
  }
  throw failure(text);
}

unsigned jobsOf(const std::string& text) {
  constexpr double most = 256;
  const double jobs = numberOf(text, "jobs");
  if (!(jobs >= 1 && jobs <= most && jobs == std::floor(jobs)))
    throw badUsage("jobs must be a whole number from 1 to 256");
  return static_cast<unsigned>(jobs);
}

namespace {

/// Bad usage for a carriage return outside quotes: a table whose lines end in these alone is one line.
void checkLineEnd(std::string_view field, const std::string& filename) {
  const std::string_view plain = field.starts_with('"') ? field.substr(field.rfind('"')) : field;
  if (plain.find('\r') == std::string_view::npos) return;
  throw badUsage(filename + ": the lines end in carriage returns alone; save the table with line feeds");
}

}  // namespace

std::size_t eachColumn(const CsvRecord& header, const std::string& filename, char delimiter,
                       const std::function<void(const std::string& name, std::size_t place)>& see) {
  if (header.quoteOpen) throw badUsage(filename + ": the first line leaves a quote open");
  if (header.raw.find('\0') != std::string_view::npos) {
    throw badUsage(filename + ": the first line holds zero bytes, so this is no table in UTF-8");
  }
  std::size_t place = 0;
  std::string scratch;
  eachField(header.raw, delimiter, [&](std::string_view field) {
    checkLineEnd(field, filename);
    if (place == 0 && field.starts_with(byteOrderMark)) field.remove_prefix(byteOrderMark.size());
    see(std::string(trimmed(fieldText(field, scratch))), place);
    ++place;
  });
  return place;
}

std::string_view RowCells::at(std::size_t place) { return trimmed(fieldText(record_.fields[place], scratch_)); }

void takeColumn(std::optional<std::size_t>& taken, CsvSelection& selection, const std::string& name,
                std::size_t place) {
  if (taken) throw badUsage("the first line names the column " + name + " twice");
  taken = selection.wanted.size();
  selection.wanted.push_back(place);
}

bool PressureColumns::take(const std::string& name, CsvSelection& selection, std::size_t place) {
  for (std::size_t unit = 0; unit < pressureNames.size(); ++unit) {
    if (lowercase(name) != pressureNames[unit].name) continue;
    takeColumn(cells_[unit], selection, name, place);
    return true;
  }
  return false;
}

bool PressureColumns::any() const {
  return std::any_of(cells_.begin(), cells_.end(), [](const auto& cell) { return cell.has_value(); });
}

PressureOrReason PressureColumns::pressureOf(RowCells& cells, double ofAll) const {
  PressureOrReason pressure = ofAll;
  bool given = false;
  for (std::size_t unit = 0; unit < pressureNames.size(); ++unit) {
    if (!cells_[unit]) continue;
    const std::string_view cell = cells.at(*cells_[unit]);
    if (cell.empty()) continue;
    if (given) return "the pressure is given twice";
    given = true;
    pressure = moistair::pressureOf(pressureNames[unit], cell);
  }
  return pressure;
}

BatchResult fillRows(std::string_view block, const TableShape& shape, const FillRow& fill) {
  BatchResult result;
  CsvRecord record;
  std::string further;
  while (takeRecord(block, record, shape.delimiter, shape.selection)) {
    if (record.blank()) continue;
    ++result.rows;
    if (record.quoteOpen) {
      const std::string_view lines = record.raw.substr(0, record.raw.size() - (record.raw.ends_with('\n') ? 1 : 0));
      result.openQuote = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
    }
    appendRecord(result.text, record, shape);
    const std::size_t begin = result.text.size();
    further.assign(shape.further, shape.delimiter);
    RowOutcome row = failedRow(wrongRecord(record, shape));
    if (row.status.empty()) {
      RowCells cells(record);
      row = fill(cells, result.text, further);
    }
    result.failed += row.failed ? 1 : 0;
    result.missed += row.missed ? 1 : 0;
    result.nearest += row.nearest ? 1 : 0;
    if (row.failed) {
      result.text.resize(begin);
      result.text.append(shape.results, shape.delimiter);
    }
    result.text += shape.delimiter;
    appendField(result.text, row.status, shape.delimiter);
    result.text += further;
    result.text += shape.lineEnd;
  }
  return result;
}

CsvRecord TableReader::header() {
  CsvRecord header;
  while (fetch()) {
    while (takeRecord(rest_, header, delimiter_)) {
      if (!header.blank()) return header;
    }
  }
  throw badUsage(reader_.gaveUp() ? input_.name() + ": the first line is longer than 8 MB; lines must end in line feeds"
                                  : input_.name() + " is empty");
}

RowCounts TableReader::run(std::size_t columns, const std::function<BatchResult(const std::string& block)>& work,
                           Output& output, unsigned jobs) {
  columns_ = columns;
  Progress progress(::isatty(STDERR_FILENO) == 1 && !output.isTerminal());
  runInOrder({.read = [&] { return next(); },
              .work = work,
              .write =
                  [&](const BatchResult& result) {
                    output.write(result.text);
                    progress.add(result);
                  }},
             jobs);
  if (reader_.gaveUp()) {
    throw failure(input_.name() + ", row " + std::to_string(progress.counts().rows + 1) +
                  ": more than 8 MB without the end of the row; a quote may have been left open");
  }
  output.close();
  return progress.counts();
}

std::optional<std::string> TableReader::next() {
  constexpr std::size_t resultSize = 1u << 20;
  if (rest_.empty() && !fetch()) return std::nullopt;
  const std::size_t rows = std::max<std::size_t>(resultSize / columns_, 1);
  std::string_view piece = rest_;
  if (static_cast<std::size_t>(std::count(rest_.begin(), rest_.end(), '\n')) <= rows) {
    rest_ = {};
  } else {
    CsvRecord record;
    for (std::size_t i = 0; i < rows; ++i) takeRecord(rest_, record, delimiter_);
    piece.remove_suffix(rest_.size());
  }
  return std::string(piece);
}

bool TableReader::fetch() {
  auto block = reader_.next();
  if (!block) return false;
  block_ = std::move(*block);
  rest_ = block_;
  return true;
}

}  // namespace moistair
