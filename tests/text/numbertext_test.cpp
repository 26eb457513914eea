// What a table of texts cannot hold; the rest of the reading and showing is recorded in numbers.csv.
#include "text/numbertext.h"

#include <gtest/gtest.h>

#include "text/numberformat.h"
#include "text/value.h"

using namespace moistair;

namespace {

TEST(Numbers, WithoutAValueAreShownAsNothing) {
  for (const double number : {noValue, 1 / 0.0}) {
    for (const auto show : {showValue, numberText, tableValue}) EXPECT_EQ(show(number), "");
  }
}

TEST(Numbers, AreReadFromPastedCellsAndNotAcrossLines) {
  EXPECT_EQ(strictNumber("75\r\n"), 75);
  EXPECT_FALSE(hasValue(strictNumber("7\n5")));
  EXPECT_FALSE(hasValue(strictNumber(std::string("5\0", 2))));
  EXPECT_FALSE(hasValue(strictNumber("7,5")));
  EXPECT_EQ(lenientNumber("7,5"), 7);
}

TEST(NumberTextStore, RoundsAndKeeps) {
  NumberText store;
  EXPECT_EQ(store.lenient(), 0);
  EXPECT_FALSE(hasValue(store.strict()));
  store.set(62.19999999999999);
  store.set(noValue);
  EXPECT_EQ(store.strict(), 62.2) << "no value must leave the store as it was";
}

}  // namespace
