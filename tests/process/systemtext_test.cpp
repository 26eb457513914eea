// Values with units, and systems written back. What cannot be read is recorded in tests/data/processes.
#include "process/systemtext.h"

#include <gtest/gtest.h>

#include "process/units.h"

using namespace moistair;

namespace {

TEST(Units, BringValuesToTheBaseUnit) {
  const struct {
    Quantity quantity;
    const char* text;
    double value, within;
  } rows[] = {
      {Quantity::temperature, "24C", 75.2, 1e-12},
      {Quantity::temperature, "-40\u00b0c", -40, 1e-12},
      {Quantity::temperature, "273.15K", 32, 1e-12},
      {Quantity::temperature, "5e1degF", 50, 0},
      {Quantity::temperatureRise, "5K", 9, 1e-12},
      {Quantity::temperatureRise, "5C", 9, 1e-12},
      {Quantity::percent, "50%", 50, 0},
      {Quantity::fraction, "70%", .7, 1e-15},
      {Quantity::fraction, ".7", .7, 0},
      {Quantity::ratio, "70gr/lb", .01, 1e-15},
      {Quantity::ratio, "10g/kg", .01, 1e-15},
      {Quantity::volume, "1m3/kg", 16.018463, 1e-6},
      {Quantity::airVolume, "1000L/s", 2118.88, .001},
      {Quantity::airVolume, "3600m\u00b3/h", 2118.88, .001},
      {Quantity::airMass, "1kg/s", 7936.641, .001},
      {Quantity::waterMass, "2gpm", 1000, 0},
      {Quantity::waterMass, "60gal/h", 500, 1e-9},
      {Quantity::heat, "15tons", 180000, 0},
      {Quantity::heat, "-120MBH", -120000, 0},
      {Quantity::heat, "12kW", 40945.7, .05},
      {Quantity::fanPressure, "249.08891Pa", 1, 1e-12},
      {Quantity::fanPressure, "3in", 3, 0},
      {Quantity::gaugePressure, "1bar", 14.5038, .0001},
      {Quantity::power, "745.69987W", 1, 1e-8},
  };
  for (const auto& row : rows) {
    const Result<double> value = readValue(row.text, row.quantity);
    ASSERT_TRUE(value) << row.text << ": " << value.error().text();
    EXPECT_NEAR(*value, row.value, row.within) << row.text;
  }
}

constexpr const char* typed =
    "\xEF\xBB\xBF# A loop\r\n"
    "\n"
    "OA: air DB=24C, wb=60 ,acfm=1000   # summer\n"
    "RT:part RM share=?\n"
    "  EC : evaporate  OA eff=70%,indirect=RT.rest,idle=pass\n"
    "MA: mix OA,RT\n"
    "goal: fan MA bhp=1,motor=OUT\n"
    "GOAL RM db=75 rh=50%\n";

TEST(SystemTexts, KeepWhatWasTypedWhereItStillHolds) {
  ReadSystem read = readSystem(typed);
  ASSERT_TRUE(read.errors.empty()) << read.errors.front().text();
  auto& [system, goals, lines] = read.text;
  const std::string asTyped = "# A loop\n" + std::string(typed).substr(13);
  EXPECT_EQ(textOf(read.text), asTyped);
  EXPECT_EQ(lineOf(system.steps[2]), "EC: evaporate OA eff=0.7,indirect=RT.rest,idle=pass");
  EXPECT_EQ(lineOf(system.steps[4]), "goal: fan MA bhp=1,motor=out");

  system.steps[1].given[0] = {.parameter = Parameter::share, .value = 1 / 3.};
  system.steps.erase(system.steps.begin() + 3);
  goals[1].value = 45;
  system.steps.push_back({.name = "RM", .kind = StepKind::room, .sources = {"goal"}, .given = {}});
  EXPECT_EQ(textOf(read.text),
            "# A loop\n\n"
            "OA: air DB=24C, wb=60 ,acfm=1000   # summer\n"
            "RT: part RM share=0.3333333333333333\n"
            "  EC : evaporate  OA eff=70%,indirect=RT.rest,idle=pass\n"
            "goal: fan MA bhp=1,motor=OUT\n"
            "goal RM db=75\ngoal RM rh=45\n"
            "RM: room goal\n");
}

TEST(SystemTexts, KeepLinesThatCannotBeRead) {
  const std::string text = "OA: air db=\nRA: air db=1,w=0\n";
  EXPECT_EQ(textOf(readSystem(text).text), text);
}

}  // namespace
