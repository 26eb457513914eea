/// \file
/// The digits that a user reads, row by row: every pair at five pressures, both sides of freezing, saturation, the gap
/// of the dew point, every limit, what is refused and why; the ranges searched, mixtures of two streams, entries of the
/// pressure.
#include <gtest/gtest.h>

#include <clocale>
#include <fstream>
#include <locale>

#include "data/rows.h"

namespace moistair::data {
namespace {

/// The same pair given the other way round.
Fields swapped(Fields row) {
  std::swap(row[2], row[4]);
  std::swap(row[3], row[5]);
  return row;
}

void compare(const Table& table, std::size_t expectedRows) {
  std::ifstream file(std::string(MOISTAIR_DATA) + "/" + table.file);
  std::string line;
  std::getline(file, line);
  EXPECT_EQ(line, table.columns);
  std::size_t rows = 0;
  while (std::getline(file, line)) {
    ++rows;
    const Fields row = fieldsOf(line);
    EXPECT_EQ(completed(table, row), line) << table.file << ", line " << rows + 1;
    if (table.given != states.given) continue;
    EXPECT_EQ(completed(table, swapped(row)), joined(swapped(row))) << "the other way round, line " << rows + 1;
  }
  EXPECT_GE(rows, expectedRows) << "rows of " << table.file << " are gone";
}

TEST(Digits, OfStatesAreThoseRecorded) { compare(states, 1000); }
TEST(Digits, OfSearchedRangesAreThoseRecorded) { compare(ranges, 50); }
TEST(Digits, OfPressuresAreThoseRecorded) {
  compare(pressures, 30);
  // Its digits hang on the last bit of the C library's pow.
  EXPECT_TRUE(pressureFor({PressureUnit::elevation, "38650"}).accepted) << "the highest elevation";
}
TEST(Digits, OfNumbersAreThoseRecorded) { compare(numbers, 70); }
TEST(Digits, OfMixturesAreThoseRecorded) { compare(mixtures, 100); }

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(Digits, AreTheSameInALocaleWithADecimalComma) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // for the C library, where the machine has it
  compare(numbers, 70);
  compare(pressures, 30);
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace moistair::data
