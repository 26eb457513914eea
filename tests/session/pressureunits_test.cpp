#include "session/pressureunits.h"

#include <gtest/gtest.h>

using namespace moistair;

namespace {

using enum PressureUnit;
constexpr std::nullopt_t none = std::nullopt;

}  // namespace

TEST(PressureReadouts, FollowTheEntry) {
  const PressureReadouts blank;
  const PressureReadouts before{"1", "2", "3"};
  const struct {
    const char* name;
    std::optional<PressureUnit> unit;
    std::string entry;
    PressureReadouts earlier, expected;
  } rows[] = {
      {"default at opening", standard, "29.92126", blank, {"29.92126", "14.695949526166", ""}},
      {"inches", inhg, "30", before, {"30", "14.734623", "3"}},
      {"inches with a tail", inhg, "30abc", blank, {"30abc", "14.734623", ""}},
      {"inches emptied", inhg, "", before, {"", "0", "3"}},
      {"inches overflowing", inhg, "1e999", blank, {"1e999", "0", ""}},
      {"pounds", psi, "14.7", before, {"29.9295087", "14.7", "3"}},
      {"pounds emptied", psi, "", before, {"", "2", "3"}},
      {"pounds, a sign so far", psi, "-", before, {"", "-", "3"}},
      {"pounds with a tail", psi, "14.7x", before, {"", "14.7x", "3"}},
      {"pounds beyond a double", psi, "1e308", before, {"", "1e308", "3"}},
      {"elevation", elevation, "5000", before, {"24.8961078291965", "12.227825434352", "5000"}},
      {"elevation emptied", elevation, "", before, {"29.92134992", "14.6959936907427", ""}},
      {"above the atmosphere", elevation, "145447", before, {"", "", "145447"}},
      {"no unit", none, "30", before, before},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const PressureReadouts readouts = pressurereadouts({row.unit, row.entry}, row.earlier);
    EXPECT_EQ(readouts.inhg, row.expected.inhg);
    EXPECT_EQ(readouts.psi, row.expected.psi);
    EXPECT_EQ(readouts.feet, row.expected.feet);
  }
}

TEST(PressureFor, StoresTheEntryAndTestsItsRange) {
  const struct {
    const char* name;
    std::optional<PressureUnit> unit;
    std::string entry;
    std::optional<std::string> stored;
    bool accepted;
  } rows[] = {
      {"default", standard, "29.92126", "29.92126", true},
      {"inches, lowest", inhg, "5.906", "5.906", true},
      {"inches, below", inhg, "5.905", "5.905", false},
      {"inches, highest", inhg, "147.65", "147.65", true},
      {"inches, above", inhg, "147.66", "147.66", false},
      {"inches emptied", inhg, "", "", false},
      {"inches with a tail", inhg, "30abc", "30abc", true},
      {"pounds", psi, "14.7", "29.9295087", true},
      {"pounds, lowest", psi, "2.9", "5.9044609", true},
      {"pounds, below", psi, "2.89", "5.88410069", false},
      {"pounds, highest", psi, "72.5", "147.6115225", true},
      {"pounds, above", psi, "72.51", "147.63188271", false},
      {"pounds emptied", psi, "", "0", false},
      {"pounds beyond a double", psi, "1e308", std::nullopt, false},
      {"elevation", elevation, "5000", "24.8961078291965", true},
      {"sea level", elevation, "0", "29.92134992", true},
      {"below sea level", elevation, "-1", "29.9224311861332", false},
      {"highest", elevation, "38650", "5.90091710816262", true},
      {"above the highest", elevation, "38651", "5.90062670413892", false},
      {"elevation emptied", elevation, "", "29.92134992", true},
      {"above the atmosphere", elevation, "145447", std::nullopt, false},
      {"no unit", none, "30", std::nullopt, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const PressureSetting setting = pressurefor({row.unit, row.entry});
    EXPECT_EQ(setting.inhg, row.stored);
    EXPECT_EQ(setting.accepted, row.accepted);
  }
}

TEST(HeaderLine, TellsThePressureAsEntered) {
  const struct {
    const char* name;
    PressureEntry entry;
    const char* line;
  } rows[] = {
      {"typed in Hg", {inhg, "30abc"}, "Atmos. pr=30abc In Hg"},
      {"pounds", {psi, "14.7"}, "Atmos. pr=14.7 Pounds/sq inch"},
      {"elevation", {elevation, ""}, "Site elevation= ft"},
      {"no unit", {none, "5"}, ""},
  };
  for (const auto& row : rows) EXPECT_EQ(headerline(row.entry), row.line) << row.name;
  EXPECT_EQ(startheaderline(29.92126), "Atmos. pr= 29.92126  In Hg");
}
