#include "model/table.h"

#include "desk.h"
#include "model/carryover.h"
#include "model/exactentry.h"

using namespace moistair;
using namespace moistair::test;

namespace {

constexpr TableColumn missed{TableColumn::Content::missed};

}  // namespace

TEST(Table, HoldsAllThatStands) {
  Desk desk;
  desk.draw();
  desk.rhLine("40.5");
  desk.point("75", "62.5", "A, \"b\"");
  desk.mix();
  desk.pin();
  const std::vector<TableRow> rows = tableRows(desk.document());
  const std::string expected =
      "Kind,Identification,Atmos. pr (in Hg),Dry bulb temp (Deg F),Wet bulb temp (Deg F),Relative humidity (%),"
      "Specific enthalpy (btu/lb),Specific volume (cuf/lb),Humidity ratio (lb/lb of air),Dew point (Deg F),"
      "Vapor pressure (In Hg),Air flow (acfm),Grains (gr/lb),Missed\n"
      "Blank chart,\"0 to 120, 0 to 0.030\",29.92126,,,,,,,,,,,\n"
      "Relative humidity line,RH 40.5 %,29.92126,,,40.5000000,,,,,,,,\n"
      "Point,\"A, "
      "\"\"b\"\"\",29.92126,75.0000000,62.5000000,50.3032182,28.1695563,13.6751968,0.0092932,55.2457239,0.4404820,,,\n"
      "Mixture,St1,29.92126,75.0000000,62.5000000,50.3032182,28.1695563,13.6751968,0.0092932,55.2457239,0.4404820,1000."
      "0000000,65.0524000,\n"
      "Mixture,Mix,29.92126,81.5312397,66.9312397,47.3819943,31.5274150,13.8770324,0.0109004,59.5601671,0.5145064,1500."
      "0000000,76.3028000,\n"
      "Mixture,St2,29.92126,95.0000000,75.0000000,40.3104311,38.5146205,14.2978304,0.0142448,67.1005926,0.6699259,500."
      "0000000,99.7136000,\n"
      "Read-out,,29.92126,80.0000000,65.3441620,46.2838752,30.2748556,13.8206906,0.0101000,57.5111683,0.4781117,,,\n";
  EXPECT_EQ(tableText(rows, ','), expected);
  EXPECT_EQ(rows.back().entry, 4U);
  EXPECT_TRUE(rows[2].renamable);
  EXPECT_NE(tableText(rows, '\t').find("\t0 to 120, 0 to 0.030\t29.92126\t"), std::string::npos);
  desk.commands.clearChart();
  const std::vector<TableRow> previous = tableRows(desk.document());
  ASSERT_EQ(previous.size(), rows.size() - 1) << "all but the chart";
  EXPECT_EQ(previous[1].entry, 1U);
  EXPECT_FALSE(previous[1].renamable);
  const std::string table = tableText(previous, ',');
  EXPECT_NE(table.find("Air flow (acfm),Grains (gr/lb),Missed,Note\n"), std::string::npos) << table;
  EXPECT_NE(table.find("0.4404820,,,,not on this chart: entry of the previous chart\n"), std::string::npos) << table;
}

TEST(Table, NamesWhatAStateMisses) {
  Desk desk;
  desk.draw();
  ASSERT_TRUE(desk.missing("A"));
  desk.pin();
  std::vector<TableRow> rows = tableRows(desk.document());
  EXPECT_EQ(cellText(rows[1], missed), "dp 28.7211 for 27.65");
  EXPECT_EQ(cellText(rows[2], missed), "");
  const auto exact = exactEntries(desk.document(), {});
  ASSERT_EQ(exact.size(), 1U) << "only what misses something";
  EXPECT_TRUE(exactEntries(desk.document(), {desk.document().entries.size()}).empty()) << "of the previous chart";
  desk.commands.change(exchanging(desk.document(), exact, "Exact"), window);
  rows = tableRows(desk.document());
  EXPECT_EQ(cellText(rows[1], {TableColumn::Content::property}), "43.1289323");
  EXPECT_EQ(cellText(rows[1], missed), "");
  const std::string text = fileText(desk.document());
  const auto read = readDocument(text);
  ASSERT_TRUE(read) << read.error().text();
  EXPECT_EQ(read->document.entries, desk.document().entries) << "it stays exact in a file";
  const CarriedOver again =
      moistair::carryOver({LeftOut{desk.document().entries[1], {}}}, desk.document().entries[0].setting, window);
  ASSERT_EQ(again.entries.size(), 1U);
  EXPECT_EQ(std::get<MarkedPoint>(again.entries[0].content).state.db, 43.1289323) << "and on the next chart";
  desk.commands.undo(window);
  EXPECT_EQ(cellText(tableRows(desk.document())[1], missed), "dp 28.7211 for 27.65");
}

TEST(Table, NamesWhatAMixtureMissesAndTheExactOneDoesNot) {
  Desk desk;
  desk.setPressure({PressureUnit::elevation, "5280"});
  desk.draw();
  MixingProblem problem = mixture("94.5", "60.1", "75", "61", {desk.atm(), desk.document().pressure.entry});
  problem.streams[1].kind2 = PropertyKind::rh;
  problem.streams[1].value2 = "45";
  problem.streams[1].flow = "1000";
  problem.streams[0].flow = "250";
  for (const std::size_t stream : {std::size_t{0}, std::size_t{1}}) resolveStream(problem, stream);
  mixStreams(problem);
  ASSERT_EQ(desk.commands.drawMixture(problem, fullLimits, window), nullptr);
  const std::string words = cellText(tableRows(desk.document())[2], missed);
  EXPECT_TRUE(words.starts_with("wb 59.9")) << words;
  const auto exact = exactEntries(desk.document(), {});
  ASSERT_EQ(exact.size(), 1U);
  desk.commands.change(exchanging(desk.document(), exact, "Exact"), window);
  EXPECT_EQ(cellText(tableRows(desk.document())[2], missed), "");
}
