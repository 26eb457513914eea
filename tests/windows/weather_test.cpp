// The layer of weather over the chart, and the dialog that opens a file for it.
#include <QComboBox>
#include <QPlainTextEdit>
#include <utility>

#include "support.h"
#include "windows/weatherview.h"
#include "windows/weatherwindow.h"

namespace moistair::windowtest {
namespace {

/// A log of two days in June, warm and moist by day.
QByteArray someLog() {
  QByteArray text = "Time,Temp (F),RH\n";
  for (int hour = 0; hour < 48; ++hour) {
    text += QStringLiteral("2023-06-%1 %2:00,%3,50\n")
                .arg(1 + hour / 24, 2, 10, QLatin1Char('0'))
                .arg(hour % 24, 2, 10, QLatin1Char('0'))
                .arg(60 + hour % 24)
                .toLatin1();
  }
  return text;
}

TEST(WeatherInTheWindow, IsOpenedShownUndoneAndPaintedAgain) {
  Pointed program;
  const QString path = program.path("log.csv");
  {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(someLog());
  }
  const QImage picture = program.graph.picture();
  std::string found;
  bool opened = false;
  const SaveAnswer open(path);
  const Watch<WeatherWindow> watch([&](WeatherWindow& dialog) {
    if (!std::exchange(opened, true)) {
      EXPECT_FALSE(control<QWidget>(dialog, "show chart").isEnabled());
      return click(dialog, "open");
    }
    control<QComboBox>(dialog, "firstmonth").setCurrentIndex(5);
    found = control<QPlainTextEdit>(dialog, "found").toPlainText().toStdString();
    click(dialog, "show chart");
  });
  action(program.window, "Weat&her").trigger();
  EXPECT_EQ(found.substr(0, 8), "48 hours") << found;
  auto& view = control<WeatherView>(program.window, "weather");
  EXPECT_TRUE(view.isVisible());
  EXPECT_EQ(program.graph.picture(), picture) << "never in the picture";
  const auto colorAt = [&](double db, double w) {
    QImage image(view.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    return image.pixelColor(program.at(db, w));
  };
  EXPECT_GT(colorAt(70.9, 0.0077).alpha(), 0) << "70 deg F and 50 %";
  EXPECT_EQ(colorAt(70.9, 0.0022).alpha(), 0);
  action(program.window, "&Undo").trigger();
  EXPECT_FALSE(view.isVisible());
  action(program.window, "&Redo").trigger();
  EXPECT_TRUE(view.isVisible());
}

TEST(WeatherInTheWindow, MonthsWithAGapAreKept) {
  QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("log.csv")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(someLog());
  file.close();
  WeatherLayer begin;
  begin.file = file.fileName().toStdString();
  begin.filter.months = 0x21;
  WeatherWindow dialog(nullptr, begin, defaultPressure, {});
  click(dialog, "show chart");
  ASSERT_TRUE(dialog.layer());
  EXPECT_EQ(dialog.layer()->filter.months, 0x21);
}

}  // namespace
}  // namespace moistair::windowtest
