/// \file
/// The digits that a user reads, row by row: every pair at five pressures, both sides of freezing, saturation, the gap
/// of the dew point, every limit, what is refused and why, and mixtures of two streams.
#include <gtest/gtest.h>

#include <fstream>

#include "data/rows.h"

namespace moistair::data {
namespace {

void compare(const Table& table, std::size_t expectedrows) {
  std::ifstream file(std::string(MOISTAIR_DATA) + "/" + table.file);
  std::string line;
  std::getline(file, line);
  EXPECT_EQ(line, table.columns);
  std::size_t rows = 0;
  while (std::getline(file, line)) {
    ++rows;
    EXPECT_EQ(completed(table, fieldsof(line)), line) << table.file << ", line " << rows + 1;
  }
  EXPECT_GE(rows, expectedrows) << "rows of " << table.file << " are gone";
}

TEST(Digits, OfStatesAreThoseRecorded) { compare(states, 800); }
TEST(Digits, OfMixturesAreThoseRecorded) { compare(mixtures, 100); }

}  // namespace
}  // namespace moistair::data
