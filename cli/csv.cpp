#include "cli/csv.h"

#include <algorithm>
#include <utility>

#include "cli/stream.h"

namespace moistair {

bool RecordScanner::advance(char c) {
  switch (state_) {
    case ScanState::quoted:
      if (c == '"') state_ = ScanState::quoteInQuoted;
      return false;
    case ScanState::quoteInQuoted:
    case ScanState::fieldStart:
      if (c == '"') {
        state_ = ScanState::quoted;
        return false;
      }
      break;
    case ScanState::plain: break;
  }
  state_ = c == delimiter_ || c == '\n' ? ScanState::fieldStart : ScanState::plain;
  return c == '\n';
}

std::size_t RecordScanner::lastEnd(std::string_view text) {
  if (text.empty()) return 0;
  const bool inQuotes = state_ == ScanState::quoted || state_ == ScanState::quoteInQuoted;
  if (!inQuotes && text.find('"') == std::string_view::npos) {
    advance(text.back());
    const std::size_t end = text.rfind('\n');
    return end == std::string_view::npos ? 0 : end + 1;
  }
  std::size_t last = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (advance(text[i])) last = i + 1;
  }
  return last;
}

std::optional<std::string> BlockReader::next() {
  while (!ended_) {
    const std::size_t known = pending_.size();
    ended_ = !input_.read(pending_, readSize);
    const std::size_t end = scanner_.lastEnd(std::string_view(pending_).substr(known));
    if (end == 0) {
      if (pending_.size() <= longestRecord) continue;
      gaveUp_ = ended_ = true;
      pending_.clear();
      return std::nullopt;
    }
    std::string block = std::move(pending_);
    pending_ = block.substr(known + end);
    block.resize(known + end);
    return block;
  }
  if (pending_.empty()) return std::nullopt;
  return std::exchange(pending_, {});
}

namespace {

/// Where the field that begins at `from` ends: at a delimiter, at a line end or at the end of the text.
std::size_t fieldEnd(std::string_view text, std::size_t from, char delimiter, bool& quoteOpen) {
  std::size_t at = from;
  if (at < text.size() && text[at] == '"') {
    do {
      at = text.find('"', at + 1);
      if (at == std::string_view::npos) {
        quoteOpen = true;
        return text.size();
      }
      ++at;
    } while (at < text.size() && text[at] == '"');
  }
  while (at < text.size() && text[at] != delimiter && text[at] != '\n') ++at;
  return at;
}

}  // namespace

bool takeRecord(std::string_view& text, CsvRecord& record, char delimiter, const CsvSelection& selection) {
  if (text.empty()) return false;
  record.fields.clear();
  record.count = 0;
  record.quoteOpen = false;
  auto wanted = selection.wanted.begin();
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t columnsEnd = std::string_view::npos;
  for (;; begin = end + 1) {
    end = fieldEnd(text, begin, delimiter, record.quoteOpen);
    if (wanted != selection.wanted.end() && *wanted == record.count) {
      record.fields.push_back(text.substr(begin, end - begin));
      ++wanted;
    }
    if (++record.count == selection.columns) columnsEnd = end;
    if (end == text.size() || text[end] == '\n') break;
  }
  const std::size_t next = std::min(end + 1, text.size());
  const bool carriageReturn = end > 0 && text[end - 1] == '\r' && !record.quoteOpen;
  if (carriageReturn) {
    --end;
    const bool lastWanted = !record.fields.empty() && selection.wanted[record.fields.size() - 1] + 1 == record.count;
    if (lastWanted) record.fields.back().remove_suffix(1);
  }
  record.raw = text.substr(0, end);
  record.columns = record.raw.substr(0, columnsEnd);
  record.lineEnd = text.substr(end, next - end);
  text.remove_prefix(next);
  return true;
}

void eachField(std::string_view raw, char delimiter, const std::function<void(std::string_view field)>& see) {
  for (std::size_t begin = 0, end = 0; begin <= raw.size(); begin = end + 1) {
    bool ignored = false;
    end = fieldEnd(raw, begin, delimiter, ignored);
    see(raw.substr(begin, end - begin));
  }
}

std::string_view fieldText(std::string_view field, std::string& scratch) {
  if (!field.starts_with('"')) return field;
  const std::string_view inside = field.substr(1);
  const std::size_t quote = inside.find('"');
  if (quote == std::string_view::npos || quote + 1 == inside.size()) return inside.substr(0, quote);
  scratch.clear();
  bool quoted = true;
  for (std::size_t i = 0; i < inside.size(); ++i) {
    const bool closing = quoted && inside[i] == '"';
    if (closing && i + 1 < inside.size() && inside[i + 1] == '"') {
      scratch += inside[++i];
    } else if (closing) {
      quoted = false;
    } else {
      scratch += inside[i];
    }
  }
  return scratch;
}

}  // namespace moistair
