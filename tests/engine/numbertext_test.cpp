#include "engine/numbertext.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "engine/value.h"

using namespace moistair;

namespace {

TEST(NumbersShown, ToTheDigit) {
  const struct {
    const char* name;
    std::string (*show)(double);
    double number;
    const char* text;
  } rows[] = {
      {"whole", showvalue, 75, "75.0000000"},
      {"below 1 has no digit before the point", showvalue, -0.5, "-.5000000"},
      {"too small to show", showvalue, -4e-8, ".0000000"},
      {"negative half goes away from zero", showvalue, -0.00000005, "-.0000001"},
      // As a double this lies below the half; as a decimal text it is one.
      {"half of the text, not of the double", showvalue, 1.00000005, "1.0000001"},
      {"nines carry into the point", showvalue, 0.99999999, "1.0000000"},
      {"a sixteenth digit plays no part", showvalue, 2.5000000499999999, "2.5000001"},
      {"minus one is blank", showvalue, -1, ""},
      {"rounded to minus one is not", showvalue, -1.00000000001, "-1.0000000"},
      {"no value", showvalue, novalue, ""},
      {"fifteen digits, then zeros", showvalue, 1234567890123456789.0, "1234567890123460000.0000000"},
      {"text keeps the leading zero", numbertext, 0.4911541, "0.4911541"},
      {"text of 15 digits", numbertext, 62.19999999999999, "62.2"},
      {"smallest plain text", numbertext, 0.0001, "0.0001"},
      {"small text", numbertext, 0.0000999, "9.99E-05"},
      {"largest plain text", numbertext, 999999999999999, "999999999999999"},
      {"large text", numbertext, 1e15, "1E+15"},
      {"text of negative zero", numbertext, -0.0, "0"},
      {"four decimals", fourdecimals, 0.23856, "0.2386"},
      {"four decimals of zero", fourdecimals, -0.00001, "0.0000"},
      {"printed whole", printednumber, 100, " 100 "},
      {"printed ratio", printednumber, 0.015, " .015 "},
      {"printed zero", printednumber, 0, " 0 "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.show(row.number), row.text);
  }
  EXPECT_EQ(showvalue(1e300).size(), 309u);
}

struct Typed {
  const char* name;
  std::string text;
  double strict;
  double lenient;
};

const Typed typed[] = {
    {"no digit before the point", ".0092932", 0.0092932, 0.0092932},
    {"no digit behind the point", "+5.", 5, 5},
    {"blanks around", " \t-7.25 ", -7.25, -7.25},
    {"exponent", "1.5E-3", 0.0015, 0.0015},
    {"too small", "1e-999", 0, 0},
    {"a pasted cell", "75\r\n", 75, 75},
    {"empty", "", novalue, 0},
    {"minus and point", "-.", novalue, 0},
    {"exponent alone", "e5", novalue, 0},
    {"trailing letters", "12abc", novalue, 12},
    {"exponent without digits", "12e+", novalue, 12},
    {"two numbers", "7 5", novalue, 7},
    {"decimal comma", "7,5", novalue, 7},
    {"hexadecimal", "0x10", novalue, 0},
    {"nan", "nan", novalue, 0},
    {"infinity", "-infinity", novalue, 0},
    {"overflow", "1e999", novalue, 0},
    {"overflow of 400 digits", std::string(400, '9'), novalue, 0},
    {"text with a zero byte", std::string("5\0", 2), novalue, 5},
};

void readall() {
  for (const auto& row : typed) {
    SCOPED_TRACE(row.name);
    const double strict = strictnumber(row.text);
    EXPECT_TRUE(hasvalue(row.strict) ? strict == row.strict : std::isnan(strict)) << strict;
    EXPECT_EQ(lenientnumber(row.text), row.lenient);
  }
}

TEST(NumbersRead, StrictAndLenient) { readall(); }

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(NumbersRead, ALocaleWithADecimalCommaChangesNothing) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // for the C library, where the machine has it
  readall();
  EXPECT_EQ(showvalue(1234.5), "1234.5000000");
  EXPECT_EQ(numbertext(1234.5), "1234.5");
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

TEST(NumberTextStore, RoundsAndKeeps) {
  NumberText store;
  EXPECT_EQ(store.lenient(), 0);
  EXPECT_FALSE(hasvalue(store.strict()));
  store.set(62.19999999999999);
  store.set(novalue);
  EXPECT_EQ(store.strict(), 62.2) << "no value must leave the store as it was";
}

}  // namespace
