// Zones of comfort and of equipment over the chart, and the dialog that chooses them.
#include <QComboBox>

#include "support.h"
#include "windows/zonesdialog.h"
#include "windows/zoneview.h"

namespace moistair::windowtest {
namespace {

/// Chooses comfort in winter clothing, after a value out of its range; returns what was said of that.
std::string chooseWinter(Pointed& program) {
  std::string fault;
  const Watch<ZonesDialog> watch([&](ZonesDialog& dialog) {
    type(dialog, "met", "9");
    fault = text(dialog, "fault");
    EXPECT_FALSE(control<QWidget>(dialog, "accept").isEnabled());
    type(dialog, "met", "1.2");
    type(dialog, "clo", "1");
    click(dialog, "accept");
  });
  action(program.window, "C&omfort and envelopes").trigger();
  return fault;
}

TEST(ZonesInTheWindow, LieOverTheDrawingAreReadAndUndone) {
  Pointed program;
  const QImage picture = program.graph.picture();
  EXPECT_EQ(chooseWinter(program), "met: must be from 1 to 4 for ASHRAE 55");
  auto& view = control<ZoneView>(program.window, "zones");
  ASSERT_EQ(view.pieces().size(), 1u);
  EXPECT_EQ(view.pieces().front().label.toStdString(), "1 clo, 1.2 met");
  EXPECT_TRUE(view.pieces().front().outline.containsPoint(program.at(72, 0.006), Qt::OddEvenFill));
  EXPECT_FALSE(view.pieces().front().outline.containsPoint(program.at(80, 0.006), Qt::OddEvenFill));
  EXPECT_EQ(program.graph.picture(), picture) << "never in the picture";
  program.point(72, 0.006);
  EXPECT_EQ(program.told().substr(0, 4), "PMV ") << program.told();
  program.window.resize(1200, 800);
  EXPECT_TRUE(view.pieces().front().outline.containsPoint(program.at(72, 0.006), Qt::OddEvenFill));
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Comfort and envelopes");
  action(program.window, "&Undo").trigger();
  EXPECT_TRUE(view.pieces().empty());
  action(program.window, "&Redo").trigger();
  EXPECT_EQ(view.pieces().size(), 1u);
  click(program.window, "Command12");
  EXPECT_TRUE(view.pieces().empty()) << "there is no chart";
}

TEST(ZonesInTheWindow, DialogGivesBackWhatItWasGivenAndWhatWasChanged) {
  const Envelope store{"Store", "Cool store", {{PropertyKind::db, 35, 50}}, {}};
  const ZoneLayer begin{{ComfortZone{{.radiant = 70}}, AdaptiveZone{65, 90}, store}, false};
  ZonesDialog dialog(nullptr, begin, {});
  static_cast<QWidget&>(dialog).show();
  EXPECT_EQ(dialog.zoneLayer(), begin);
  auto& list = *dialog.findChild<QListWidget*>();
  list.setCurrentRow(1);
  type(dialog, "mean", "70");
  list.setCurrentRow(0);
  type(dialog, "mrt", "");
  list.setCurrentRow(2);
  control<QComboBox>(dialog, "kind").setCurrentIndex(0);
  click(dialog, "shown");
  const ZoneLayer changed{{ComfortZone{}, AdaptiveZone{70, 90}, ComfortZone{}}, true};
  EXPECT_EQ(dialog.zoneLayer(), changed);
  click(dialog, "remove");
  click(dialog, "remove");
  click(dialog, "remove");
  EXPECT_EQ(dialog.zoneLayer().zones.size(), 0u);
}

}  // namespace
}  // namespace moistair::windowtest
