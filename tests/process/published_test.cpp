#include "support.h"

using namespace moistair;

namespace {

constexpr double sea = 29.921;
constexpr double feet5000 = 24.8959;

/// Worked examples of handbooks and textbooks, and figures that follow from the equations by hand.
TEST(Processes, AgreeWithWorkedExamples) {
  struct Check {
    const char* path;
    double value, tolerance;
  };
  const struct {
    const char* name;
    const char* lines;
    std::vector<Check> checks;
    double atm = sea;
  } rows[] = {
      {"saturated air heated", "OA: air db=35,rh=100,acfm=20000\nHC: heat OA db=100", {{"HC.total", 1507000, 7500}}},
      {"coil to saturation with condensate counted",
       "MA: air db=85,rh=50,acfm=10000\nCC: coil MA db=50,rh=100,condensate=counted",
       {{"CC.total", 50.77 * 12000, 3046}, {"CC.bf", 0, 1e-12}}},
      {"two streams mixed",
       "OA: air db=40,wb=35,acfm=5000\nRA: air db=75,rh=50,acfm=15000\nMA: mix RA OA",
       {{"MA.share", 0.735, 0.0006}, {"MA.db", 65.8, 0.15}, {"MA.wb", 56.5, 0.15}}},
      {"steam humidifier", "RA: air db=70,wb=45,lbh=12000\nHU: steam RA dp=55,degf=230", {{"HU.db", 72.2, 0.1}}},
      {"coil to a state",
       "RA: air db=82.4,wb=69.08,acfm=3178\nCC: coil RA db=54.5,w=0.008336",
       {{"CC.adp", 50.4, 0.2}, {"CC.bf", 0.13, 0.01}, {"CC.total", 151600, 1516}}},
      {"evaporative cooler below sea level pressure",
       "OA: air db=100.4,wb=68,lbh=5952\nEC: evaporate OA db=77",
       {{"EC.eff", 0.72, 0.01}, {"EC.rh", 64, 1}, {"EC.wb", 68, 1e-9}},
       28.05},
      {"evaporation to saturation",
       "OA: air db=88.414014606835636,w=0.012944570575480548,lbh=100\nEC: evaporate OA rh=100",
       {{"EC.eff", 1, 1e-9}, {"EC.rh", 100, 1e-8}}},
      {"fan at sea level",
       "CC: air db=55,rh=92,acfm=10000\nSA: fan CC inwg=3,eff=0.7",
       {{"SA.db", 56.54, 0.02}, {"SA.bhp", 10000 * 3 / 6356.0 / 0.7, 1e-9}}},
      {"fan at 5000 ft", "CC: air db=55,rh=92\nSA: fan CC inwg=3,eff=0.7", {{"SA.db", 56.85, 0.02}}, feet5000},
      {"fan with its motor in the stream",
       "CC: air db=55,rh=92,scfm=1000\nSA: fan CC bhp=2,motoreff=0.8,motor=in",
       {{"SA.total", 2 * 2544.43 / 0.8, 1e-6}, {"SA.bhp", 2, 1e-12}}},
      {"enthalpy wheel",
       "OA: air db=95,wb=78,scfm=1000\nEA: air db=75,wb=63,scfm=1000\nHR: recover OA EA sens=0.75,lat=0.7",
       {{"HR.db", 80, 0.02}, {"HR.w", 0.0118, 0.0001}}},
      {"recovery by the smaller flow",
       "OA: air db=95,w=0.008,scfm=2000\nEA: air db=75,w=0.008,scfm=1000\nHR: recover OA EA sens=0.8",
       {{"HR.db", 87, 1e-9}, {"HR.lbh", 9000, 1e-9}, {"HR.exhaust.db", 91, 1e-9}}},
      {"steam as it comes", "RA: air db=70,w=0.005\nHU: steam RA w=0.01", {{"HU.h", 22.2604 + 0.005 * 1150.5, 1e-4}}},
      {"steam of 15 psig",
       "RA: air db=70,w=0.005\nHU: steam RA w=0.01,psig=15",
       {{"HU.h", 22.2604 + 0.005 * 1164.1, 1e-3}}},
      {"apparatus dew point is the first crossing",
       "RA: air db=80,rh=50\nCC: coil RA db=55,shr=0.7",
       {{"CC.adp", 52.1, 0.05}}},
      {"room by sensible and latent heat",
       "SA: air db=58,rh=80,lbh=10000\nRM: room SA sensible=40000,latent=10000",
       {{"RM.sensible", 40000, 1e-6}, {"RM.latent", 10000, 1e-6}, {"RM.shr", 0.8, 1e-12}}},
      {"desiccant with heat of sorption",
       "OA: air db=80,w=0.012\nDR: dry OA w=0.006,factor=1.1",
       {{"DR.h", 32.358 + 0.1 * 0.006 * 1061, 0.02}}},
      {"water-side flow of a coil",
       "MA: air db=80,rh=50,lbh=10000\nCC: coil MA total=80000,db=58,waterdt=10",
       {{"CC.gpm", 16, 1e-9}, {"CC.total", 80000, 1e-6}}},
      {"parts of a stream without a flow",
       "RA: air db=80,rh=50\nBY: part RA share=0.25\nCC: coil BY.rest adp=50,bf=0.1\nSA: mix CC BY",
       {{"SA.share", 0.75, 1e-12}, {"CC.db", 53, 1e-9}, {"SA.db", 59.75, 0.05}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Solved solved(row.lines, row.atm);
    EXPECT_EQ(solved.errors, "");
    if (!solved.solution.complete) continue;
    for (const Check& check : row.checks)
      EXPECT_NEAR(solved.value(check.path), check.value, check.tolerance) << check.path;
  }
}

TEST(Processes, ClassicFactorsFollowThePressure) {
  const auto check = [](double atm, double sensible, double latent, double total) {
    const ClassicFactors factors = classicFactors({atm});
    EXPECT_NEAR(factors.sensible, sensible, 0.0005);
    EXPECT_NEAR(factors.latent, latent, 0.6);
    EXPECT_NEAR(factors.total, total, 0.0005);
  };
  check(sea, 1.079, 4837, 4.495);
  check(feet5000, 0.898, 4024, 3.740);
}

}  // namespace
