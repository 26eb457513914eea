// Controls by themselves.
#include <QListView>

#include "paint/exports.h"
#include "support.h"
#include "toolkit/elidedlabel.h"
#include "toolkit/savedialog.h"
#include "toolkit/valuebox.h"

namespace moistair::windowtest {
namespace {

TEST(GraphView, ShowsACurveThatCameInPartsAsAnyOtherPictureDoes) {
  GraphView view;
  view.resize(300, 200);
  for (const double x : {150, 1500, 2850}) {
    view.canvas().line(x, x / 2, x + 1350, x / 2 + 675);
    QTest::qWait(20);
    view.canvas().refresh();
  }
  EXPECT_EQ(view.picture(), drawingImage(view.drawing(), view.size()));
}

TEST(Boxes, StandOutFromADarkWindow) {
  ValueBox value;
  ListBox list;
  for (QWidget* box : std::initializer_list<QWidget*>{&value, &list}) {
    box->setPalette(QPalette(QColor(49, 54, 59)));
    const QImage shown = box->grab().toImage();
    int brightest = 0;
    for (int y = 0; y < 4; ++y) brightest = std::max(brightest, shown.pixelColor(40, y).lightness());
    EXPECT_GT(brightest, 54 + 40) << box->metaObject()->className();
  }
}

TEST(ElidedLabel, HasNoBoxForALineBreak) {
  ElidedLabel typed, shown;
  typed.setText(QStringLiteral("a\nb\x01"));
  shown.setText(QStringLiteral("a b "));
  EXPECT_EQ(typed.grab().toImage(), shown.grab().toImage());
}

TEST(SaveDialog, WantsAFolderAndListsAllNamesUnderAllFiles) {
  const QTemporaryDir folder;
  ASSERT_TRUE(QFile(folder.filePath(QStringLiteral("nodot"))).open(QIODevice::WriteOnly));
  const BoxAnswers answers;
  std::vector<int> listed;
  const Watch<QFileDialog> watch([&](QFileDialog& dialog) {
    if (!listed.empty()) return;
    dialog.setDirectory(folder.path());
    const auto& list = control<QListView>(dialog, "listView");
    const auto rows = [&] { return list.model()->rowCount(list.rootIndex()); };
    for (const int kind : {1, 0, 1}) {  // as many files as this filter lists
      Q_EMIT control<QComboBox>(dialog, "fileTypeCombo").activated(kind);
      EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == kind; }));
      listed.push_back(rows());
    }
    for (const char* path : {"gone/c", "c"}) {
      control<QLineEdit>(dialog, "fileNameEdit").setText(folder.filePath(QLatin1String(path)));
      QTest::keyClick(&control<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    }
  });
  SaveDialog dialog;
  EXPECT_EQ(dialog.ask(nullptr, {QString(), {QStringLiteral("B (*.bmp)"), QStringLiteral("AllFiles (*.*)")}}),
            folder.filePath(QStringLiteral("c")));
  EXPECT_EQ(listed, (std::vector{1, 0, 1}));
  EXPECT_EQ(answers.lastText(), "There is no folder " + folder.filePath(QStringLiteral("gone")).toStdString());
}

}  // namespace
}  // namespace moistair::windowtest
