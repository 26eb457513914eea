#include "windows/logwindow.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "toolkit/controls.h"

namespace moistair {

namespace {

constexpr Control logBox{"Text1", "", "", {0, 0, 1, 3}, 0};
constexpr Control returnButton{"Command1", "Return to chart", "", {1, 1}, 1};

constexpr int shownLines = 26;    // two point records and the empty line before them
constexpr int shownColumns = 76;  // a value begins in column 57

void setupBox(QPlainTextEdit& box, const QString& text) {
  box.setReadOnly(true);
  box.setUndoRedoEnabled(false);
  box.setTabChangesFocus(true);
  box.setLineWrapMode(QPlainTextEdit::NoWrap);
  box.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  box.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  box.setPlainText(text);
  nameInput(box, QStringLiteral("Saved data"));
}

/// Room for so much of the text, with the frame and the scroll bar.
QSize roomyBoxSize(const QPlainTextEdit& box) {
  const QFontMetrics metrics = box.fontMetrics();
  const int frame = 2 * box.frameWidth();
  const int margin = static_cast<int>(box.document()->documentMargin());
  const int width = metrics.horizontalAdvance(QString(shownColumns, u'0')) + 2 * margin;
  const int height = shownLines * metrics.lineSpacing() + margin;  // no more, or half a line shows
  return {width + box.verticalScrollBar()->sizeHint().width() + frame, height + frame};
}

}  // namespace

LogWindow::LogWindow(QWidget* main, const QString& text)
    : Dialog(main, QStringLiteral("Form4"), QStringLiteral("View saved data")) {
  ControlMaker maker(*this);
  auto* grid = new QGridLayout(this);
  auto* box = maker.add<QPlainTextEdit>(*grid, logBox);
  setupBox(*box, text);
  auto* back = maker.add<QPushButton>(*grid, returnButton);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  maker.setTabOrder();
  resize(roomyBoxSize(*box) + sizeHint() - box->sizeHint());
  connect(back, &QPushButton::clicked, this, &LogWindow::leave);
}

void LogWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
