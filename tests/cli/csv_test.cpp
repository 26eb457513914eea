#include "cli/csv.h"
#include "text/tablefield.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "cli/stream.h"

using namespace moistair;

namespace {

using Texts = std::vector<std::string>;

Texts fieldsOf(const CsvRecord& record) {
  Texts texts;
  std::string scratch;
  eachField(record.raw, ',', [&](std::string_view field) { texts.emplace_back(fieldText(field, scratch)); });
  return texts;
}

/// Ends of all the records in a text but for one that the text breaks off.
std::vector<std::size_t> recordEnds(std::string_view text) {
  std::vector<std::size_t> ends;
  CsvRecord record;
  for (std::string_view rest = text; takeRecord(rest, record);) {
    if (record.lineEnd.ends_with('\n')) ends.push_back(text.size() - rest.size());
  }
  return ends;
}

std::string file(const std::string& content) {
  const std::string path = testing::TempDir() + "csv_test_" + std::to_string(::getpid()) + ".csv";
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

}  // namespace

TEST(Csv, ARecordTakenApart) {
  const struct {
    const char* name;
    std::string text;
    Texts fields;
    std::string raw, rest;
    bool quoteOpen = false;
  } rows[] = {
      {"carriage return", "a,b\r\nc", {"a", "b"}, "a,b", "c"},
      {"no line end", "a,b", {"a", "b"}, "a,b", ""},
      {"blank line", "\r\n1", {""}, "", "1"},
      {"line end in quotes", "\"a\r\nb\",c\r\nd", {"a\r\nb", "c"}, "\"a\r\nb\",c", "d"},
      {"doubled quote", "\"say \"\"no\"\"\",\"\"\"\"\n", {"say \"no\"", "\""}, "\"say \"\"no\"\"\",\"\"\"\"", ""},
      {"quote inside a field", "5\" pipe,b\n", {"5\" pipe", "b"}, "5\" pipe,b", ""},
      {"text behind a closing quote", "\"a\"b\"c\",d\n", {"ab\"c\"", "d"}, "\"a\"b\"c\",d", ""},
      {"quote left open", "a,\"b\nc", {"a", "b\nc"}, "a,\"b\nc", "", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string_view rest = row.text;
    CsvRecord record;
    ASSERT_TRUE(takeRecord(rest, record));
    EXPECT_EQ(fieldsOf(record), row.fields);
    EXPECT_EQ(record.raw, row.raw);
    EXPECT_EQ(rest, row.rest);
    EXPECT_EQ(record.quoteOpen, row.quoteOpen);
  }
}

TEST(Csv, OnlyTheFieldsWantedAreKept) {
  const CsvSelection selection{{1, 3}, 4};
  const struct {
    const char* name;
    std::string text;
    std::vector<std::string_view> fields;
    std::size_t count;
    std::string columns;
  } rows[] = {
      {"as many as columns", "a,b,c,d\r\n", {"b", "d"}, 4, "a,b,c,d"},
      {"too few", "a,b\r\n", {"b"}, 2, "a,b"},
      {"too many", "a,b,c,\"d,\",e\r\n", {"b", "\"d,\""}, 5, "a,b,c,\"d,\""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string_view rest = row.text;
    CsvRecord record;
    ASSERT_TRUE(takeRecord(rest, record, ',', selection));
    EXPECT_EQ(record.fields, row.fields);
    EXPECT_EQ(record.count, row.count);
    EXPECT_EQ(record.columns, row.columns);
  }
}

/// Whatever the pieces in which a table comes in, it is cut only where the parser sees the end of a record: a block cut
/// anywhere else would be taken apart wrongly.
TEST(Csv, BlocksAreCutWhereRecordsEnd) {
  const Texts tables = {
      "a,b\n1,2\n3,4\n",           "a\n\"1\n2\"\n\"3\n\",4\n5",
      "x\n\"a\"\"\n\"\n\"\"\n1\n", "a\"\nb\n\"c\"d\"\n\"\n,\"\n\n\"",
      "\"a\"\n\"b\",\"c\n\"\nd",   "\r\n\"\r\n\"\r\n\"\"\"\r\n",
      ",\"\n\",\"\"\n,\n",
  };
  for (const std::string& table : tables) {
    SCOPED_TRACE(table);
    const auto ends = recordEnds(table);
    for (std::size_t size = 1; size <= table.size(); ++size) {
      RecordScanner scanner;
      for (std::size_t from = 0; from < table.size(); from += size) {
        const std::string_view piece = std::string_view(table).substr(from, size);
        std::size_t last = 0;
        for (const std::size_t end : ends) {
          if (end > from && end <= from + piece.size()) last = end - from;
        }
        EXPECT_EQ(scanner.lastEnd(piece), last) << "piece of " << size << " at " << from;
      }
    }
  }
}

TEST(Csv, AQuoteLeftOpenDoesNotFillTheMemory) {
  Input input(file("a,b\n1,2\n\"" + std::string(BlockReader::longestRecord + 100000, 'x')));
  BlockReader reader(input);
  EXPECT_EQ(reader.next(), "a,b\n1,2\n");
  EXPECT_EQ(reader.next(), std::nullopt);
  EXPECT_TRUE(reader.gaveUp());
}

TEST(Csv, WrittenFieldsReadBack) {
  for (const std::string text : {"", "plain", "a,b", "say \"no\"", "two\nlines", "\r"}) {
    SCOPED_TRACE(text);
    std::string line;
    appendField(line, text);
    line += ",end\n";
    std::string_view rest = line;
    CsvRecord record;
    ASSERT_TRUE(takeRecord(rest, record));
    EXPECT_EQ(fieldsOf(record), (Texts{text, "end"}));
  }
}
