#include "cli/csv.h"

#include <algorithm>
#include <utility>

#include "cli/stream.h"

namespace moistair {

bool RecordScanner::advance(char c) {
  switch (place_) {
    case Place::quoted:
      if (c == '"') place_ = Place::quoteinquoted;
      return false;
    case Place::quoteinquoted:
    case Place::fieldstart:
      if (c == '"') {
        place_ = Place::quoted;
        return false;
      }
      break;
    case Place::plain: break;
  }
  place_ = c == delimiter_ || c == '\n' ? Place::fieldstart : Place::plain;
  return c == '\n';
}

std::size_t RecordScanner::lastend(std::string_view text) {
  if (text.empty()) return 0;
  const bool inquotes = place_ == Place::quoted || place_ == Place::quoteinquoted;
  if (!inquotes && text.find('"') == std::string_view::npos) {
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
    ended_ = !input_.read(pending_, readsize);
    const std::size_t end = scanner_.lastend(std::string_view(pending_).substr(known));
    if (end == 0) {
      if (pending_.size() <= longestrecord) continue;
      gaveup_ = ended_ = true;
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
std::size_t fieldend(std::string_view text, std::size_t from, char delimiter, bool& quoteopen) {
  std::size_t at = from;
  if (at < text.size() && text[at] == '"') {
    do {
      at = text.find('"', at + 1);
      if (at == std::string_view::npos) {
        quoteopen = true;
        return text.size();
      }
      ++at;
    } while (at < text.size() && text[at] == '"');
  }
  while (at < text.size() && text[at] != delimiter && text[at] != '\n') ++at;
  return at;
}

}  // namespace

bool takerecord(std::string_view& text, CsvRecord& record, char delimiter, const CsvSelection& selection) {
  if (text.empty()) return false;
  record.fields.clear();
  record.count = 0;
  record.quoteopen = false;
  auto wanted = selection.wanted.begin();
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t columnsend = std::string_view::npos;
  for (;; begin = end + 1) {
    end = fieldend(text, begin, delimiter, record.quoteopen);
    if (wanted != selection.wanted.end() && *wanted == record.count) {
      record.fields.push_back(text.substr(begin, end - begin));
      ++wanted;
    }
    if (++record.count == selection.columns) columnsend = end;
    if (end == text.size() || text[end] == '\n') break;
  }
  const std::size_t next = std::min(end + 1, text.size());
  const bool carriagereturn = end > 0 && text[end - 1] == '\r' && !record.quoteopen;
  if (carriagereturn) {
    --end;
    const bool lastwanted = !record.fields.empty() && selection.wanted[record.fields.size() - 1] + 1 == record.count;
    if (lastwanted) record.fields.back().remove_suffix(1);
  }
  record.raw = text.substr(0, end);
  record.columns = record.raw.substr(0, columnsend);
  record.lineend = text.substr(end, next - end);
  text.remove_prefix(next);
  return true;
}

void eachfield(std::string_view raw, char delimiter, const std::function<void(std::string_view field)>& see) {
  for (std::size_t begin = 0, end = 0; begin <= raw.size(); begin = end + 1) {
    bool ignored = false;
    end = fieldend(raw, begin, delimiter, ignored);
    see(raw.substr(begin, end - begin));
  }
}

std::string_view fieldtext(std::string_view field, std::string& scratch) {
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
