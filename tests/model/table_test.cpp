#include "model/table.h"

#include "desk.h"

using namespace moistair;
using namespace moistair::test;

TEST(Table, HoldsAllThatStands) {
  Desk desk;
  desk.draw();
  desk.rhline("40.5");
  desk.point("75", "62.5", "A, \"b\"");
  desk.mix();
  desk.pin();
  const std::vector<TableRow> rows = tablerows(desk.document());
  const std::string expected =
      "Kind,Identification,Atmos. pr (in Hg),Dry bulb temp (Deg F),Wet bulb temp (Deg F),Relative humidity (%),"
      "Specific enthalpy (btu/lb),Specific volume (cuf/lb),Humidity ratio (lb/lb of air),Dew point (Deg F),"
      "Vapor pressure (In Hg)\n"
      "Blank chart,\"0 to 120, 0 to 0.030\",29.92126,,,,,,,,\n"
      "Relative humidity line,,29.92126,,,40.5000000,,,,,\n"
      "Point,\"A, "
      "\"\"b\"\"\",29.92126,75.0000000,62.5000000,50.3032182,28.1695563,13.6751968,0.0092932,55.2457239,0.4404820\n"
      "Mixture,St1,29.92126,75.0000000,62.5000000,50.3032182,28.1695563,13.6751968,0.0092932,55.2457239,0.4404820\n"
      "Mixture,Mix,29.92126,81.5312397,66.9312397,47.3819943,31.5274150,13.8770324,0.0109004,59.5601671,0.5145064\n"
      "Mixture,St2,29.92126,95.0000000,75.0000000,40.3104311,38.5146205,14.2978304,0.0142448,67.1005926,0.6699259\n"
      "Read-out,,29.92126,80.0000000,65.3441620,46.2838752,30.2748556,13.8206906,0.0101000,57.5111683,0.4781117\n";
  EXPECT_EQ(tabletext(rows, ','), expected);
  EXPECT_EQ(rows.back().entry, 4U);
  EXPECT_TRUE(rows[2].renamable);
  EXPECT_NE(tabletext(rows, '\t').find("\t0 to 120, 0 to 0.030\t29.92126\t"), std::string::npos);
  desk.commands.clearchart();
  const std::vector<TableRow> previous = tablerows(desk.document());
  ASSERT_EQ(previous.size(), rows.size() - 1) << "all but the chart";
  EXPECT_EQ(previous[1].entry, 1U);
  EXPECT_FALSE(previous[1].renamable);
  const std::string table = tabletext(previous, ',');
  EXPECT_NE(table.find("Vapor pressure (In Hg),Note\n"), std::string::npos) << table;
  EXPECT_NE(table.find("0.4404820,not on this chart: entry of the previous chart\n"), std::string::npos) << table;
}
