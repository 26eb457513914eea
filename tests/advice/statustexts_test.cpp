#include "advice/statustexts.h"

#include <gtest/gtest.h>

#include "model/desk.h"

using namespace moistair;
using namespace moistair::test;

namespace {

std::string shown(const Desk& desk) {
  const StatusTexts statusTexts = statusTextsOf(desk.document(), desk.lists);
  std::string lists;
  for (const bool changed : statusTexts.changed) lists += changed ? '*' : '-';
  return statusTexts.pressure + "|" + statusTexts.header + "|" + statusTexts.chart + "|" + statusTexts.changes + "|" +
         lists;
}

void set(Desk& desk, const PressureEntry& entry) {
  desk.commands.setCurrentPressure(*pressureFor(entry).inhg);
  desk.commands.changePressure(entry, window);
}

TEST(StatusTexts, TellsPressuresAndLimitsApart) {
  const auto high = [](Desk& desk) { set(desk, {PressureUnit::elevation, "5000"}); };
  const auto look = [](Desk& desk) { desk.commands.setCurrentPressure(defaultPressureText); };
  const struct {
    const char* name;
    std::function<void(Desk&)> work;
    const char* shown;
  } rows[] = {
      {"the start", [](Desk&) {}, "29.92126 in Hg||No chart||----"},
      {"a chart", [](Desk& d) { d.draw(); },
       "29.92126 in Hg||Blank chart, 29.92126 in Hg, 0 to 120 Deg F, 0 to 0.030||----"},
      {"an elevation", [&](Desk& d) { high(d), d.draw(ChartType::standard); },
       "24.896 in Hg, 5000 ft||Standard chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030||----"},
      {"pounds",
       [](Desk& d) {
         set(d, {PressureUnit::psi, "14.7"});
       },
       "29.930 in Hg, 14.7 psi||No chart||----"},
      {"text behind a pressure",
       [](Desk& d) {
         set(d, {PressureUnit::inhg, "30abc"});
       },
       "30 in Hg||No chart||----"},
      {"the pressure window looked at", [&](Desk& d) { high(d), d.draw(), look(d); },
       "29.92126 in Hg in force|header says 5000 ft|Blank chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030||----"},
      {"put back", [&](Desk& d) { high(d), d.draw(), look(d), d.commands.adoptFilePressure(); },
       "24.896 in Hg, 5000 ft||Blank chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030||----"},
      {"a chart drawn at another pressure than its header says",
       [&](Desk& d) { high(d), look(d), d.draw(), d.commands.adoptFilePressure(); },
       "24.896 in Hg, 5000 ft||Blank chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030|drawn at 29.92126 in Hg|----"},
      {"a refused pressure that stays in force", [](Desk& d) { d.commands.setCurrentPressure("3"); },
       "3 in Hg in force|header says 29.92126 in Hg|No chart||----"},
      {"other limits", [](Desk& d) { d.draw(), d.lists.highDb = "100", d.lists.lowHr = "x"; },
       "29.92126 in Hg||Blank chart, 29.92126 in Hg, 0 to 120 Deg F, 0 to 0.030|limits changed, not drawn|-**-"},
      {"the same limits in other words", [](Desk& d) { d.draw(), d.lists.highDb = "120.0", d.lists.lowHr = ".0"; },
       "29.92126 in Hg||Blank chart, 29.92126 in Hg, 0 to 120 Deg F, 0 to 0.030||----"},
      {"cleared", [](Desk& d) { d.draw(), d.commands.clearChart(), d.lists.highDb = "100"; },
       "29.92126 in Hg||No chart||----"},
      {"cleared for a chart that was then not drawn",
       [](Desk& d) { d.draw(), d.lists.highDb = "100", d.commands.startDraw(d.lists); },
       "29.92126 in Hg||Nothing drawn, 29.92126 in Hg, 0 to 120 Deg F, 0 to 0.030|limits changed, not drawn|-*--"},
  };
  for (const auto& row : rows) {
    Desk desk;
    row.work(desk);
    EXPECT_EQ(shown(desk), row.shown) << row.name;
  }
}

/// What the placeholders promise is what the buttons then draw.
TEST(StatusTexts, KnowsWhichEmptyBoxesDrawALine) {
  const LimitTexts limits[] = {{"0", "120", "0", "0.030"}, {"40", "120", "0.010", "0.030"}};
  for (const LimitTexts& lists : limits) {
    Desk desk;
    desk.lists = lists;
    desk.draw();
    const auto promised = emptyLines(desk.document());
    for (std::size_t kind = 0; kind < promised.size(); ++kind) {
      EXPECT_EQ(desk.line(static_cast<LineKind>(kind), ""), promised[kind]) << lists.lowDb << ", line " << kind;
    }
  }
}

}  // namespace
