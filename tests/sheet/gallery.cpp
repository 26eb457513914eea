// Pictures of all kinds of sheet, and all of them small on one: `sheet_gallery FOLDER [NAME ...]`.
#include <QGuiApplication>
#include <QPainter>
#include <cstdio>

#include "paint/sheetpaint.h"
#include "sheet/faults.h"
#include "sheet/kinds.h"

int main(int argc, char** argv) {
  using namespace moistair;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc < 2) return 2;
  const QString folder = QString::fromLocal8Bit(argv[1]);
  const std::vector<test::Kind> kinds = test::kinds();
  constexpr int across = 8, side = 480;
  QImage contact(across * side, static_cast<int>((kinds.size() + across - 1) / across) * side, QImage::Format_RGB32);
  contact.fill(Qt::lightGray);
  QPainter painter(&contact);
  int number = 0;
  bool saved = true;
  for (const test::Kind& kind : kinds) {
    const QRect room(number % across * side, number / across * side, side, side);
    const QString file = QStringLiteral("%1-%2").arg(++number, 2, 10, QLatin1Char('0')).arg(QLatin1String(kind.name));
    bool asked = argc == 2;
    for (int i = 2; i < argc; ++i) asked = asked || file.contains(QLatin1String(argv[i]));
    if (!asked) continue;
    const ExtentFunction extents = sheetExtents();
    const SheetDrawing sheet = layoutSheet(test::contentOf(kind), test::optionsOf(kind), extents);
    std::printf("%s: %zu pages %s\n", kind.name, sheet.pages.size(), test::coveredOn(sheet, extents).c_str());
    const double scale = std::min(2.0, 2200 / sheet.width);
    SheetDrawing first = sheet;
    first.pages.resize(1);
    const QImage image = sheetImage(first, scale);
    saved = image.save(folder + QLatin1Char('/') + QString(file).replace(QLatin1Char(' '), QLatin1Char('-')) +
                       QStringLiteral(".png")) &&
            saved;
    paintFitted(first, 0, painter, room.adjusted(8, 8, -8, -24));
    painter.drawText(room.adjusted(8, 0, -8, -4), Qt::AlignBottom | Qt::AlignHCenter, file);
  }
  painter.end();
  return saved && contact.save(folder + QStringLiteral("/contact.png")) ? 0 : 1;
}
