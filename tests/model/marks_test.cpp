#include "model/marks.h"

#include "desk.h"

using namespace moistair;
using namespace moistair::test;

TEST(Marks, AreReadOnTheChartThatStandsAtItsOwnPressure) {
  Desk desk;
  EXPECT_FALSE(currentChart(desk.document())) << "after the start";
  desk.setPressure({PressureUnit::elevation, "5000"});
  desk.draw();
  desk.lookAtPressure();
  ASSERT_TRUE(currentChart(desk.document()));
  EXPECT_EQ(currentChart(desk.document())->pressure.entry.text, "5000");
  desk.rhLine("40");
  desk.point("75", "62.5", "A");
  desk.mix();
  const std::vector<Mark> marks = marksOf(desk.document());
  ASSERT_EQ(marks.size(), 4U);
  EXPECT_EQ(marks[0].entry, 2U);
  EXPECT_EQ(marks[3].entry, 3U);
  EXPECT_NEAR(marks[2].place.w, 0.0142448, 1e-9);
  desk.lists.highDb = "100";
  ASSERT_TRUE(desk.point("75", "62.5", "by other scales"));
  EXPECT_EQ(marksOf(desk.document()).size(), 4U) << "it does not stand where the axes say";
  EXPECT_TRUE(desk.commands.startDraw(desk.lists)) << "the canvas is cleared for another chart";
  EXPECT_FALSE(currentChart(desk.document()));
}

TEST(Marks, LabelsOfReadingsKeepOffEachOther) {
  Desk desk;
  desk.draw();
  const PlotArea area = plotArea(fullLimits, window);
  std::vector<LabelBox> labels;
  for (const ChartCoordinates& place : {ChartCoordinates{85, 0.011}, ChartCoordinates{86, 0.0112},
                                        ChartCoordinates{84, 0.0108}, ChartCoordinates{85.5, 0.0105}}) {
    auto pinned = *readingToKeep(*currentChart(desk.document()), place);
    pinned.corner = freeCorner(desk.document(), pinned, window);
    const LabelBox label = labelBox(pinned.state, pinned.corner, area);
    for (const LabelBox& other : labels) EXPECT_EQ(label.covered(other), 0) << place.db;
    labels.push_back(label);
    EXPECT_EQ(desk.commands.add({*currentChart(desk.document()), pinned}, window), nullptr);
  }
}

TEST(Marks, AMovedPointStaysWhatItWasGivenBy) {
  using enum PropertyKind;
  const struct {
    const char* name;
    TypedProperty one, two;
    ChartCoordinates to;
    const char *first, *second;  ///< empty where there is no air
  } rows[] = {
      {"dry bulb and wet bulb", {db, "75"}, {wb, "62.5"}, {80, 0.0101}, "80", "65.3"},
      {"humidity ratio, dry bulb", {w, ".009"}, {db, "75"}, {80.5, 0.0101}, "0.0101", "80.5"},
      {"without a temperature", {rh, "50"}, {h, "28"}, {80, 0.0101}, "46.2", "30.2"},
      {"above saturation", {db, "75"}, {wb, "62.5"}, {50, 0.02}, "", ""},
      {"outside", {db, "75"}, {wb, "62.5"}, {121, 0.01}, "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Entry entry;
    entry.setting.limits = fullLimits;
    entry.content = MarkedPoint{{row.one, row.two}, {}, "A"};
    const auto moved = movedTo(entry, row.to, window);
    ASSERT_EQ(moved.has_value(), *row.first != '\0');
    if (!moved) continue;
    const auto& now = std::get<MarkedPoint>(moved->content);
    EXPECT_EQ(now.identification, "A");
    EXPECT_EQ(now.given[0].kind, row.one.kind);
    EXPECT_EQ(now.given[0].value.substr(0, 4), std::string(row.first).substr(0, 4));
    EXPECT_EQ(now.given[1].value.substr(0, 4), std::string(row.second).substr(0, 4));
    EXPECT_NEAR(now.state.db, row.to.db, 0.005);
    EXPECT_NEAR(now.state.w, row.to.w, 5e-6);
    EXPECT_EQ(numberText(now.state.at(row.one.kind)), now.given[0].value);
  }
}

TEST(Marks, AMovedPointKeepsItsPressureAndIsOneStep) {
  Desk desk;
  desk.draw();
  desk.setPressure({PressureUnit::elevation, "5000"});
  desk.draw();
  desk.lookAtPressure();
  desk.point("75", "62.5", "A");
  const Document before = desk.document();
  const auto moved = movedTo(before.entries[1], {80, 0.0101}, window);
  ASSERT_TRUE(moved);
  desk.commands.change(moving(before, 1, *moved), window);
  EXPECT_EQ(desk.document().entries[1].setting, before.entries[1].setting);
  EXPECT_NEAR(std::get<MarkedPoint>(desk.document().entries[1].content).state.rh, 46.284, 0.001)
      << "at its own pressure";
  EXPECT_EQ(desk.commands.history().undoName(), "Move Point A");
  desk.commands.undo(window);
  EXPECT_EQ(desk.document().entries, before.entries);
}
