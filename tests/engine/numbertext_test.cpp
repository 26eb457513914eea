#include "engine/numbertext.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "engine/value.h"

using namespace moistair;

namespace {

struct Shown {
  const char* name;
  double number;
  const char* text;
};

TEST(ShowValue, SevenDecimals) {
  const Shown rows[] = {
      {"whole", 75, "75.0000000"},
      {"below 1 has no digit before the point", 0.0092932, ".0092932"},
      {"negative below 1", -0.5, "-.5000000"},
      {"zero", 0, ".0000000"},
      {"negative zero", -0.0, ".0000000"},
      {"too small to show", -4e-8, ".0000000"},
      {"rounds up from nothing", 6e-8, ".0000001"},
      {"half goes away from zero", 0.00000005, ".0000001"},
      {"negative half goes away from zero", -0.00000005, "-.0000001"},
      // As a double this lies below the half; as a decimal text it is one.
      {"half of the text, not of the double", 1.00000005, "1.0000001"},
      {"nines carry into the point", 0.99999999, "1.0000000"},
      {"nines carry through the point", 99.99999995, "100.0000000"},
      {"a sixteenth digit plays no part", 2.5000000499999999, "2.5000001"},
      {"minus one is blank", -1, ""},
      {"near minus one is not", -1.0000001, "-1.0000001"},
      {"rounded to minus one is not", -1.00000000001, "-1.0000000"},
      {"no value", novalue, ""},
      {"an infinity", 1 / 0.0, ""},
      {"fifteen digits, then zeros", 1234567890123456789.0, "1234567890123460000.0000000"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(showvalue(row.number), row.text);
  }
}

TEST(ShowValue, HugeNumbersKeepAllTheirPlaces) { EXPECT_EQ(showvalue(1e300).size(), 309u); }

TEST(NumberTextOf, FifteenDigits) {
  const Shown rows[] = {
      {"leading zero", 0.4911541, "0.4911541"},
      {"whole", 1500, "1500"},
      {"third", 1.0 / 3, "0.333333333333333"},
      {"sum that is not 0.3", 0.1 + 0.2, "0.3"},
      {"repeated subtraction", 62.19999999999999, "62.2"},
      {"smallest plain", 0.0001, "0.0001"},
      {"small", 0.0000999, "9.99E-05"},
      {"exponent of two digits", 1e-7, "1E-07"},
      {"largest plain", 999999999999999, "999999999999999"},
      {"large", 1e15, "1E+15"},
      {"huge", -1e300, "-1E+300"},
      {"negative zero", -0.0, "0"},
      {"no value", novalue, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(numbertext(row.number), row.text);
  }
}

TEST(FourDecimals, KeepTheirZero) {
  const Shown rows[] = {
      {"below 1", 0.23856, "0.2386"}, {"half", 0.00005, "0.0001"},   {"negative", -0.5, "-0.5000"},
      {"zero", -0.00001, "0.0000"},   {"whole", 14.6961, "14.6961"}, {"no value", novalue, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(fourdecimals(row.number), row.text);
  }
}

TEST(PrintedNumber, StandsBetweenBlanks) {
  const Shown rows[] = {
      {"whole", 100, " 100 "}, {"ratio", 0.015, " .015 "},    {"negative", -0.5, "-.5 "},
      {"zero", 0, " 0 "},      {"exponent", 1e-7, " 1E-07 "}, {"pressure", 29.92126, " 29.92126 "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(printednumber(row.number), row.text);
  }
}

struct Typed {
  const char* name;
  std::string text;
  double strict;
  double lenient;
};

const Typed typed[] = {
    {"plain", "75", 75, 75},
    {"no digit before the point", ".0092932", 0.0092932, 0.0092932},
    {"no digit behind the point", "5.", 5, 5},
    {"signs", "+.5", 0.5, 0.5},
    {"blanks around", " \t-7.25 ", -7.25, -7.25},
    {"exponent", "1.5E-3", 0.0015, 0.0015},
    {"exponent with plus", "2e+1", 20, 20},
    {"too small", "1e-999", 0, 0},
    {"too small without an exponent", "." + std::string(400, '0') + "1", 0, 0},
    {"zero with a huge exponent", "0e99999999999999999999", 0, 0},
    {"many zeros in front", std::string(400, '0') + "7", 7, 7},
    {"empty", "", novalue, 0},
    {"blank", "   ", novalue, 0},
    {"minus", "-", novalue, 0},
    {"point", ".", novalue, 0},
    {"minus and point", "-.", novalue, 0},
    {"exponent alone", "e5", novalue, 0},
    {"trailing letters", "12abc", novalue, 12},
    {"exponent without digits", "12e", novalue, 12},
    {"exponent with a sign only", "12e+", novalue, 12},
    {"two numbers", "7 5", novalue, 7},
    {"a pasted cell", "75\r\n", 75, 75},
    {"two lines", "7\n5", novalue, 7},
    {"two points", "1.2.3", novalue, 1.2},
    {"two signs", "--5", novalue, 0},
    {"decimal comma", "7,5", novalue, 7},
    {"hexadecimal", "0x10", novalue, 0},
    {"nan", "nan", novalue, 0},
    {"infinity", "inf", novalue, 0},
    {"signed infinity", "-infinity", novalue, 0},
    {"overflow", "1e999", novalue, 0},
    {"overflow of the exponent itself", "1e99999999999999999999", novalue, 0},
    {"overflow of 400 digits", std::string(400, '9'), novalue, 0},
    {"text with a zero byte", std::string("5\0", 2), novalue, 5},
};

void readall() {
  for (const auto& row : typed) {
    SCOPED_TRACE(row.name);
    const double strict = strictnumber(row.text);
    if (hasvalue(row.strict)) {
      EXPECT_EQ(strict, row.strict);
    } else {
      EXPECT_TRUE(std::isnan(strict)) << strict;
    }
    EXPECT_EQ(lenientnumber(row.text), row.lenient);
  }
}

TEST(Reading, StrictAndLenient) { readall(); }

/// A locale with a decimal comma, for iostreams always and for the C library where the machine has one.
class DecimalComma : public ::testing::Test {
protected:
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  void SetUp() override {
    before_ = std::locale::global(std::locale(std::locale::classic(), new Comma));
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  void TearDown() override {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

private:
  std::locale before_;
};

TEST_F(DecimalComma, ChangesNothing) {
  readall();
  EXPECT_EQ(showvalue(1234.5), "1234.5000000");
  EXPECT_EQ(numbertext(1234.5), "1234.5");
  EXPECT_EQ(fourdecimals(0.5), "0.5000");
}

TEST(NumberTextStore, RoundsAndKeeps) {
  NumberText store;
  EXPECT_EQ(store.lenient(), 0);
  EXPECT_FALSE(hasvalue(store.strict()));
  store.set(62.19999999999999);
  EXPECT_EQ(store.strict(), 62.2);
  store.set(novalue);
  EXPECT_EQ(store.text(), "62.2") << "no value must leave the store as it was";
  store.settext("12abc");
  EXPECT_EQ(store.lenient(), 12);
}

}  // namespace
