#include "session/numberformat.h"

#include <gtest/gtest.h>

#include "engine/value.h"

using namespace moistair;

TEST(NumberFormat, NumbersForOtherPrograms) {
  const struct {
    const char* name;
    double number;
    const char* sevendecimals;
    const char* roundtrip;
  } rows[] = {
      {"below 1 with a zero before the point", .0092932, "0.0092932", "0.0092932"},
      {"minus 1 is a value here", -1, "-1.0000000", "-1"},
      {"no negative zero", -1e-12, "0.0000000", "-1e-12"},
      {"digits that a sum of binary fractions leaves", .1 + .2, "0.3000000", "0.30000000000000004"},
      {"halves away from zero as shown in the windows", 0.00000005, "0.0000001", "5e-08"},
      {"no value", novalue, "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string text = "=";
    appendsevendecimals(text, row.number);
    EXPECT_EQ(text, std::string("=") + row.sevendecimals);
    text = "=";
    appendroundtrip(text, row.number);
    EXPECT_EQ(text, std::string("=") + row.roundtrip);
  }
}
