#include "model/givenvalues.h"

#include "desk.h"
#include "model/table.h"

using namespace moistair;
using namespace moistair::test;

namespace {

struct FullDesk : Desk {
  FullDesk() {
    draw();
    rhLine("40.5");
    point("75", "62.5", "A");
    mix();
    pin();
  }
};

}  // namespace

TEST(GivenValues, AreTypedOverInTheirPlace) {
  struct Case {
    const char* name;
    std::size_t entry;
    GivenValue value;
    const char* missing;  ///< words of the refusal; null where there is none
    std::size_t row;
    TableColumn column;
    const char* text;  ///< that the cell then has
  };
  using Content = TableColumn::Content;
  const auto column = [](PropertyKind kind) { return TableColumn{Content::property, columnOf(kind)}; };
  const Case cases[] = {
      {"line", 1, {0, PropertyKind::rh, "55"}, nullptr, 1, {Content::identification}, "RH 55 %"},
      {"point's first", 2, {0, PropertyKind::db, "80"}, nullptr, 2, column(PropertyKind::wb), "62.5000000"},
      {"point's second", 2, {0, PropertyKind::wb, "60"}, nullptr, 2, column(PropertyKind::db), "75.0000000"},
      {"stream's second", 3, {1, PropertyKind::wb, "70"}, nullptr, 5, column(PropertyKind::wb), "70.0000000"},
      {"stream's flow", 3, {0, std::nullopt, "2000"}, nullptr, 4, {Content::flow}, "2500.0000000"},
      {"read-out", 4, {0, PropertyKind::w, "0.009"}, nullptr, 6, column(PropertyKind::w), "0.0090000"},
      {"no number", 2, {0, PropertyKind::db, "8o"}, "\"8o\" is not a number", 0, {}, ""},
      {"above saturation", 2, {0, PropertyKind::wb, "90"}, "The point as per input", 0, {}, ""},
      {"outside the limits", 4, {0, PropertyKind::db, "130"}, "", 0, {}, ""},
      {"no flow", 3, {0, std::nullopt, "0"}, "", 0, {}, ""},
  };
  for (const Case& at : cases) {
    SCOPED_TRACE(at.name);
    FullDesk desk;
    const auto edited = withGiven(desk.document().entries[at.entry], at.value, window);
    if (at.missing != nullptr) {
      ASSERT_FALSE(edited);
      EXPECT_TRUE(edited.error().words.starts_with(at.missing)) << edited.error().words;
      continue;
    }
    ASSERT_TRUE(edited) << edited.error().text();
    const auto order = givenValues(desk.document().entries[at.entry]);
    desk.commands.change(editing(desk.document(), at.entry, *edited), window);
    EXPECT_EQ(cellText(tableRows(desk.document())[at.row], at.column), at.text);
    const auto now = givenValues(desk.document().entries[at.entry]);
    ASSERT_EQ(now.size(), order.size());
    for (std::size_t i = 0; i < now.size(); ++i) {
      const bool changed = now[i].isOf(at.value.part, at.value.kind);
      EXPECT_EQ(now[i].text, changed ? at.value.text : order[i].text);
    }
    desk.commands.undo(window);
    EXPECT_EQ(givenValues(desk.document().entries[at.entry])[0].text, order[0].text);
  }
}

TEST(GivenValues, StreamsHaveNamesAndBecomePoints) {
  FullDesk desk;
  const std::size_t mixture = 3;
  const std::string before = fileText(desk.document());
  desk.commands.change(renaming(desk.document(), mixture, "Outdoor", 1), window);
  EXPECT_EQ(tableRows(desk.document())[5].identification, "Outdoor");
  const auto read = readDocument(fileText(desk.document()));
  ASSERT_TRUE(read) << read.error().text();
  EXPECT_EQ(read->document.entries, desk.document().entries);
  const auto point = pointOf(desk.document().entries[mixture], 1, window);
  ASSERT_TRUE(point) << point.error().text();
  EXPECT_EQ(captionOf(*point), "Point Outdoor");
  EXPECT_NEAR(std::get<MarkedPoint>(point->content).state.wb, 75, 0.05);
  desk.commands.undo(window);
  EXPECT_EQ(fileText(desk.document()), before) << "a mixture without names is written as before";
}
