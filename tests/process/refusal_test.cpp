#include "support.h"

using namespace moistair;

namespace {

const std::string room = "RA: air db=80,rh=50,lbh=1000\n";
const std::string dry = "RA: air db=80,rh=20,lbh=1000\n";
const std::string winter = "RA: air db=20,rh=80,lbh=1000\n";

TEST(Processes, RefuseWhatCannotBeWithTheReason) {
  const struct {
    const char* name;
    std::string lines;
    const char* words;
  } rows[] = {
      {"two states of one pair", "RA: air wb=62.27,h=28.05\nFA: air wb=72.46638154,h=45.0481157927",
       "db=97.328,w=0.019642 and db=118.38,w=0.014939"},
      {"above saturation", "RA: air db=70,w=0.03", "above saturation"},
      {"wet bulb above dry bulb", "RA: air db=70,wb=71", "above saturation"},
      {"dew point in the gap", "RA: air db=70,dp=32.1", "between 31.996 and 32.214"},
      {"hotter than the range", "RA: air w=0.01,h=120", "db is above 300"},
      {"relative humidity above 100", "RA: air db=70,rh=101", "RA, rh: 101 is not within 0 to 100 percent"},
      {"cooled below the dew point", room + "CA: cool RA db=50", "below its dew point of 59.7"},
      {"cooled into the step at freezing", "RA: air db=40,w=0.0018815\nCA: cool RA rh=50",
       "no dry bulb has this relative humidity"},
      {"heated by a cooler", room + "CA: cool RA db=90", "use heat"},
      {"heater with less heat", room + "HA: heat RA btuh=-5", "use cool"},
      {"coil that never meets saturation", room + "CC: coil RA db=55,shr=0.55", "lowest possible SHR is 0.595"},
      {"apparatus dew point beyond the touching point", room + "CC: coil RA adp=20,bf=0.5",
       "meets saturation at 37.461 already; the coldest one possible is 28.5"},
      {"coil that would add water", dry + "CC: coil RA db=55,rh=92", "a coil adds no water"},
      {"coil colder than its surface", dry + "CC: coil RA adp=50,db=45", "colder than the surface"},
      {"coil without the heat to reach its dry bulb", dry + "CC: coil RA db=55,total=5500,idle=pass",
       "a coil adds no water"},
      {"coil that would heat", room + "CC: coil RA db=85,rh=40", "a coil only cools"},
      {"coil to a fog", room + "CC: coil RA db=50,w=0.009", "above saturation"},
      {"coil with direction only", room + "CC: coil RA adp=50,shr=0.7", "adp and shr do not fix a coil"},
      {"coil with one property twice", room + "CC: coil RA w=0.008,dp=50", "same property"},
      {"coil with wet bulb and heat", room + "CC: coil RA wb=55,total=5000", "almost the same"},
      {"coil with dry bulb and sensible heat", room + "CC: coil RA db=55,sensible=5000", "do not fix a coil"},
      {"heat without a flow", "RA: air db=80,rh=50\nCC: coil RA total=5000,db=60", "CC, total: needs the flow"},
      {"evaporation in frost", winter + "EC: evaporate RA eff=0.8", "no wet bulb above 32"},
      {"evaporation below the wet bulb", dry + "EC: evaporate RA db=50", "the wet bulb is 56.166"},
      {"indirect evaporation below the dew point", room + "DA: air db=80,rh=5\nEC: evaporate RA eff=0.9,indirect=DA",
       "below its dew point"},
      {"too much steam", room + "HU: steam RA water=50", "above saturation"},
      {"drier by steam", room + "HU: steam RA rh=40", "moister than it is to leave"},
      {"steam beyond the table", room + "HU: steam RA rh=60,psig=140", "32 to 350"},
      {"motor without efficiency", room + "SA: fan RA inwg=3,eff=0.7,motor=in", "needs motoreff"},
      {"more than there is", room + "BY: part RA lbh=1001", "takes 1001 lb/h of dry air from 1000"},
      {"mixture without flows", "RA: air db=80,rh=50\nOA: air db=90,rh=50\nMA: mix OA RA",
       "needs the flow of each stream"},
      {"room without water to give", dry + "RM: room RA sensible=0,latent=-9000",
       "more water would leave the air than it holds"},
      {"wait for what has no result", room + "CA: cool RA db=50\nSA: fan CA dt=1", "SA: waits for CA"},
      {"unknown parameter", room + "HA: heat RA db=?", "HA, db: is unknown"},
      {"duplicate name", room + room, "RA: another step has this name"},
      {"unknown name", "SA: fan MA dt=1", "no step is named \"MA\""},
      {"no second stream", room + "SA: fan RA dt=1\nHA: heat SA.rest db=90", "SA (fan) leaves one stream"},
      {"stream taken twice", room + "SA: fan RA dt=1\nHA: heat RA db=90",
       "HA: RA is taken by another step already; divide it with part"},
      {"too few sources", room + "HR: recover RA sens=0.5", "recover takes two streams, not 1"},
      {"foreign parameter", room + "HA: heat RA eff=0.5,db=90",
       "heat does not take eff; it takes db, rh, dt, btuh and idle"},
      {"one parameter of two", room + "CC: coil RA db=55",
       "give two of db, wb, rh, w, dp, adp, bf, shr, total or sensible; given: db"},
      {"no whole alternative", room + "SA: fan RA inwg=3", "give eff with inwg, or bhp, or dt; given: inwg"},
      {"missing parameter", room + "DR: dry RA factor=1", "dry needs w"},
      {"steam enthalpy without water", room + "RM: room RA sensible=5,latent=5,hg=1000",
       "RM, hg: goes with water only"},
      {"circle", "A: fan B dt=1\nB: fan A dt=1", "A: waits for B"},
  };
  for (const auto& row : rows) {
    const Solved solved(row.lines, 20.577 + (row.name != std::string("two states of one pair")) * (29.921 - 20.577));
    EXPECT_NE(solved.errors.find(row.words), std::string::npos) << row.name << ": " << solved.errors;
  }
}

TEST(Processes, CircleIsNamedFromItsFirstStep) {
  const Compilation circle =
      compile(systemOf("F: fan C dt=1\nA: fan B dt=1\nB: mix D C.rest\nC: part A share=0.5\nD: air db=70,rh=50"));
  EXPECT_EQ(circleWords(circle.system), "B takes C, which takes A, which takes B");
}

TEST(Processes, NotesSayWhatIsSpecial) {
  using enum NoteCode;
  const struct {
    const char* name;
    std::string lines;  ///< the last step is the one looked at
    NoteCode code;
    bool off = false;
  } rows[] = {
      {"heater of warm air", room + "X: heat RA db=70,idle=pass", off, true},
      {"cooler of cool air", room + "X: cool RA db=90,idle=pass", off, true},
      {"humidifier of moist air", room + "X: steam RA rh=40,idle=pass", off, true},
      {"coil of cool air", room + "X: coil RA db=85,rh=90,idle=pass", off, true},
      {"coil of dry air", dry + "X: coil RA w=0.008,rh=90,idle=pass", off, true},
      {"drier of dry air", dry + "X: dry RA w=0.008,idle=pass", off, true},
      {"evaporation in frost", winter + "X: evaporate RA eff=0.8,idle=pass", off, true},
      {"coil with nothing to dry", dry + "X: coil RA db=55,rh=92,idle=pass", dryCoil},
      {"coil above the dew point", room + "X: coil RA adp=62,bf=0.1", dryCoil},
      {"frosting coil", room + "X: coil RA adp=30,bf=0.1", frostingCoil},
      {"two solutions", room + "X: coil RA shr=0.62,rh=97", otherSolution},
      {"line through fog", "RA: air db=80,rh=95\nX: coil RA db=55,rh=95", noApparatusDewPoint},
      {"fog", winter + "SA: air db=80,rh=90,lbh=1000\nX: mix SA RA", fog},
      {"frost in a recovery unit",
       "OA: air db=-30,rh=80,lbh=1000\nEA: air db=70,rh=30,lbh=1000\nX: recover OA EA sens=0.9", frost},
      {"condensate in the exhaust",
       "OA: air db=-10,rh=80,lbh=1000\nEA: air db=75,rh=50,lbh=1000\nX: recover OA EA sens=0.8", exhaustCondensate},
      {"evaporation", dry + "X: evaporate RA eff=0.8", wetBulbTerm},
      {"drying", room + "X: dry RA w=0.005", idealized},
      {"motor outside", room + "X: fan RA bhp=1,motoreff=0.9", motorOutside},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Solved solved(row.lines);
    ASSERT_EQ(solved.errors, "");
    const StepResult& result = solved.result("X");
    EXPECT_TRUE(result.notes.has(row.code));
    EXPECT_EQ(result.off, row.off);
    for (const std::string& words : noteWords(result)) EXPECT_EQ(words.find("nan"), std::string::npos) << words;
  }
}

/// A wet bulb near 32 deg F can be two or none; a state beyond the chart is one like any other.
TEST(Processes, ReadOutsOfUnusualAir) {
  const Solved solved(
      "TWO: air db=40,w=0.00205\nNONE: air db=32,w=0.0037745\nHOT: air db=200,w=0.05\nCOLD: air db=-40,rh=50\n"
      "DRY: air rh=0,h=12\nGAS: air db=300,dp=100");
  ASSERT_EQ(solved.errors, "");
  EXPECT_NEAR(solved.value("TWO.wb"), 32.10277, 1e-5);
  EXPECT_NE(wordsOf(readoutOf(solved.result("TWO").leaving, solved.site)).find("31.642 over ice"), std::string::npos);
  EXPECT_FALSE(hasValue(solved.value("NONE.wb")));
  EXPECT_NEAR(psychro_w(200, solved.value("HOT.wb"), defaultPressure), 0.05, 1e-15);
  EXPECT_NEAR(psychro_rh(-40, solved.value("COLD.wb"), defaultPressure), 50, 1e-9);
  EXPECT_NEAR(solved.value("DRY.db"), 50, 1e-12);
  EXPECT_NEAR(solved.value("GAS.dp"), 100, 1e-9);
}

/// What comes out, put back in through other parameters.
TEST(Processes, AgreeThroughOtherParameters) {
  const struct {
    const char* first;
    const char* second;
  } rows[] = {
      {"heat RA dt=20", "heat RA rh=@rh"},
      {"heat RA dt=20", "heat RA btuh=@total"},
      {"heat RA dt=20", "heat RA db=@db"},
      {"cool RA dt=10", "cool RA rh=@rh"},
      {"steam RA water=2", "steam RA rh=@rh"},
      {"steam RA water=2", "steam RA dp=@dp"},
      {"steam RA water=2", "steam RA w=@w"},
      {"evaporate RA eff=0.7", "evaporate RA rh=@rh"},
      {"evaporate RA eff=0.7", "evaporate RA db=@db"},
      {"fan RA inwg=4,eff=0.6", "fan RA bhp=@bhp"},
      {"room RA sensible=9000,latent=3000", "room RA total=@total,shr=@shr"},
      {"room RA sensible=9000,latent=3000", "room RA sensible=@sensible,water=@water"},
      {"part RA share=0.3", "part RA acfm=@acfm"},
  };
  for (const auto& row : rows) {
    for (const double atm : {29.92126, 20.577}) {
      SCOPED_TRACE(row.second);
      const Solved first(room + "X: " + row.first, atm);
      std::string text = row.second;
      for (std::size_t at; (at = text.find('@')) != std::string::npos;) {
        const std::string key = text.substr(at + 1, text.find(',', at) - at - 1);
        std::ostringstream number;
        number.precision(17);
        number << first.value("X." + key);
        text.replace(at, key.size() + 1, number.str());
      }
      const Solved second(room + "X: " + text, atm);
      ASSERT_EQ(first.errors + second.errors, "");
      EXPECT_NEAR(second.value("X.db"), first.value("X.db"), 1e-8);
      EXPECT_NEAR(second.value("X.w"), first.value("X.w"), 1e-12);
      EXPECT_NEAR(second.result("X").leaving.flow, first.result("X").leaving.flow, 1e-7);
    }
  }
}

TEST(Processes, RoomRatiosCountTheOutdoorAirThatReachesTheCoil) {
  const Solved solved(
      "OA: air db=95,wb=75,scfm=2000\nRA: air db=78,rh=50,scfm=8000\nRF: part RA share=0.9\nMA: mix OA RF\n"
      "CC: coil MA adp=50,bf=0.1\nRM: room CC sensible=200000,latent=50000");
  ASSERT_EQ(solved.errors, "");
  const RoomRatios ratios = roomRatiosOf(solved.compilation.system, solved.site, solved.solution).at(0);
  const auto load = [&](const char* stream, double share) {
    return share * solved.value(std::string(stream) + ".lbh") *
           (solved.value(std::string(stream) + ".h") - solved.value("RM.h"));
  };
  EXPECT_NEAR(ratios.roomShr, 0.8, 1e-12);
  EXPECT_NEAR(ratios.grandShr, solved.value("CC.shr"), 0);
  EXPECT_NEAR(ratios.outdoorTotal, load("OA", 1) + load("RA", 0.9), 1e-6);
  EXPECT_NEAR(ratios.effectiveShr, (200000 + 0.1 * ratios.outdoorSensible) / (250000 + 0.1 * ratios.outdoorTotal),
              1e-12);
}

}  // namespace
