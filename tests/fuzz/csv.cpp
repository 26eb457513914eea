// Any bytes as a table: no byte is lost, blocks end where records end, and a field that is written reads the same.
#include "must.h"

#include "cli/csv.h"
#include "text/tablefield.h"

using namespace moistair;
using fuzz::must;

namespace {

void checkField(std::string_view field) {
  std::string scratch;
  const std::string text(fieldText(field, scratch));
  std::string line;
  appendField(line, text);
  line += ",end\n";
  std::string_view rest = line;
  CsvRecord record;
  must(takeRecord(rest, record) && record.fields.size() == 2 && rest.empty());
  must(fieldText(record.fields[0], scratch) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::textOf(data, size);
  std::string_view rest = text;
  CsvRecord record;
  std::string all;
  std::size_t lastEnd = 0;
  while (takeRecord(rest, record)) {
    all += record.raw;
    all += record.lineEnd;
    if (record.lineEnd.ends_with('\n')) lastEnd = all.size();
    for (const std::string_view field : record.fields) checkField(field);
  }
  must(all == text);
  RecordScanner whole;
  must(whole.lastEnd(text) == lastEnd);
  RecordScanner parts;
  const std::size_t half = text.size() / 2;
  const std::size_t first = parts.lastEnd(text.substr(0, half));
  const std::size_t second = parts.lastEnd(text.substr(half));
  must((second > 0 ? half + second : first) == lastEnd);
  return 0;
}
