#include "windows/logwindow.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "toolkit/controls.h"

namespace moistair {

namespace {

constexpr Control logbox{"Text1", "", "", {0, 0, 1, 3}, 0};
constexpr Control returnbutton{"Command1", "Return to chart", "", {1, 1}, 1};

constexpr int shownlines = 26;    // two point records and the empty line before them
constexpr int showncolumns = 76;  // a value begins in column 57

void setupbox(QPlainTextEdit& box, const QString& text) {
  box.setReadOnly(true);
  box.setUndoRedoEnabled(false);
  box.setTabChangesFocus(true);
  box.setLineWrapMode(QPlainTextEdit::NoWrap);
  box.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  box.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  box.setPlainText(text);
  nameinput(box, QStringLiteral("Saved data"));
}

/// Room for so much of the text, with the frame and the scroll bar.
QSize roomyboxsize(const QPlainTextEdit& box) {
  const QFontMetrics metrics = box.fontMetrics();
  const int frame = 2 * box.frameWidth();
  const int margin = static_cast<int>(box.document()->documentMargin());
  const int width = metrics.horizontalAdvance(QString(showncolumns, u'0')) + 2 * margin;
  const int height = shownlines * metrics.lineSpacing() + margin;  // no more, or half a line shows
  return {width + box.verticalScrollBar()->sizeHint().width() + frame, height + frame};
}

}  // namespace

LogWindow::LogWindow(QWidget* main, const QString& text)
    : Dialog(main, QStringLiteral("Form4"), QStringLiteral("View saved data")) {
  ControlMaker maker(*this);
  auto* grid = new QGridLayout(this);
  auto* box = maker.add<QPlainTextEdit>(*grid, logbox);
  setupbox(*box, text);
  auto* back = maker.add<QPushButton>(*grid, returnbutton);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  maker.settaborder();
  resize(roomyboxsize(*box) + sizeHint() - box->sizeHint());
  connect(back, &QPushButton::clicked, this, &LogWindow::leave);
}

void LogWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
