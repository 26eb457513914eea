#include "mixing/mixingblock.h"

#include "support/problems.h"

namespace moistair::test {
namespace {

/// Blanks that bring a value behind its caption to column 57.
std::string valueline(const std::string& caption, const std::string& value) {
  return caption + std::string(56 - caption.size(), ' ') + value;
}

TEST(MixingBlock, ReferenceCaseInEveryUnitOfPressure) {
  const struct {
    PressureEntry entry;
    const char* caption;
  } rows[] = {{{}, "Atmos. pr (in Hg)"},
              {{PressureUnit::psi, "14.696"}, "Atmos. pr (Pounds/sq inch)"},
              {{PressureUnit::elevation, "00.0"}, "Site elevation (ft)"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.caption);
    const MixingProblem problem =
        problemof(drywet("75", "62.5", "1000.0"), drywet("95", "75", " 500acfm"), {29.92126, row.entry});
    const std::vector<std::string> expected = {
        "----------------------------------",
        "Stream 1",
        "Air flow rate (acfm)                                    1000.0",
        valueline(row.caption, row.entry.text),
        "Dry bulb temp (Deg F)                                   75.0000000",
        "Wet bulb temp (Deg F)                                   62.5000000",
        "Relative humidity (%)                                   50.3032182",
        "Specific enthalpy (btu/lb)                              28.1695563",
        "Specific volume (cuf/lb)                                13.6751968",
        "Humidity ratio (lb/lb of air)                           .0092932",
        "Dew point (Deg F)                                       55.2457239",
        "Vapor pressure (In Hg)                                  .4404820",
        "",
        "Steram 2",
        "Air flow rate (acfm)                                     500acfm",
        valueline(row.caption, row.entry.text),
        "Dry bulb temp (Deg F)                                   95.0000000",
        "Wet bulb temp (Deg F)                                   75.0000000",
        "Relative humidity (%)                                   40.3104311",
        "Specific enthalpy (btu/lb)                              38.5146205",
        "Specific volume (cuf/lb)                                14.2978304",
        "Humidity ratio (lb/lb of air)                           .0142448",
        "Dew point (Deg F)                                       67.1005926",
        "Vapor pressure (In Hg)                                  .6699259",
        "",
        "Mixed stream",
        "Air flow rate (acfm)                                    1500",
        valueline(row.caption, row.entry.text),
        "Dry bulb temp (Deg F)                                   81.5312397",
        "Wet bulb temp (Deg F)                                   66.9312397",
        "Relative humidity (%)                                   47.3819943",
        "Specific enthalpy (btu/lb)                              31.5274150",
        "Specific volume (cuf/lb)                                13.8770324",
        "Humidity ratio (lb/lb of air)                           .0109004",
        "Dew point (Deg F)                                       59.5601671",
        "Vapor pressure (In Hg)                                  .5145064",
        "-----------------------------",
    };
    EXPECT_EQ(mixingblock(problem), expected);
  }
  EXPECT_EQ(mixingblock(problemof(driest, driest))[34], valueline("Dew point (Deg F)", "")) << "none: blanks alone";
}

}  // namespace
}  // namespace moistair::test
