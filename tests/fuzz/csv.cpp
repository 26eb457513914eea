// Any bytes as a table: no byte is lost, blocks end where records end, and a field that is written reads the same.
#include "must.h"

#include "cli/csv.h"
#include "text/tablefield.h"

using namespace moistair;
using fuzz::must;

namespace {

void checkfield(std::string_view field) {
  std::string scratch;
  const std::string text(fieldtext(field, scratch));
  std::string line;
  appendfield(line, text);
  line += ",end\n";
  std::string_view rest = line;
  CsvRecord record;
  must(takerecord(rest, record) && record.fields.size() == 2 && rest.empty());
  must(fieldtext(record.fields[0], scratch) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::textof(data, size);
  std::string_view rest = text;
  CsvRecord record;
  std::string all;
  std::size_t lastend = 0;
  while (takerecord(rest, record)) {
    all += record.raw;
    all += record.lineend;
    if (record.lineend.ends_with('\n')) lastend = all.size();
    for (const std::string_view field : record.fields) checkfield(field);
  }
  must(all == text);
  RecordScanner whole;
  must(whole.lastend(text) == lastend);
  RecordScanner parts;
  const std::size_t half = text.size() / 2;
  const std::size_t first = parts.lastend(text.substr(0, half));
  const std::size_t second = parts.lastend(text.substr(half));
  must((second > 0 ? half + second : first) == lastend);
  return 0;
}
