#include "shell/cellrow.h"

#include <QEvent>
#include <QPainter>
#include <QVariant>
#include <algorithm>
#include <numeric>

#include "toolkit/messageline.h"

namespace moistair {

namespace {

constexpr int gap = 11;           // pixels, with a rule in its middle
constexpr int leastLetters = 13;  // of a text that gives way: "no records" is whole or gone

}  // namespace

std::vector<int> sharedWidths(const std::vector<int>& wanted, const std::vector<int>& giveWay, int least, int gap,
                              int room) {
  std::vector<int> widths = wanted;
  int over = std::accumulate(wanted.begin(), wanted.end(), -room);
  const int last = giveWay.empty() ? 0 : *std::max_element(giveWay.begin(), giveWay.end());
  for (int turn = 1; turn <= last; ++turn) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (giveWay[i] != turn) continue;
      const int given = std::clamp(over, 0, std::max(0, widths[i] - least));
      widths[i] -= given;
      over -= given;
    }
  }
  for (int turn = 1; turn <= last; ++turn) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (giveWay[i] != turn || over <= 0 || widths[i] == 0) continue;
      over -= widths[i] + gap;
      widths[i] = 0;
    }
  }
  if (!widths.empty()) widths.front() = std::max(0, widths.front() - over);
  return widths;
}

CellRow::CellRow(const std::vector<RowCell>& cells) {
  for (const RowCell& cell : cells) {
    cells_.push_back({cell});
    cell.widget->setParent(this);
  }
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize CellRow::sizeHint() const { return {0, fontMetrics().height() + 2}; }

/// The text of a cell changes at every key; the others are measured once.
void CellRow::measure(Cell& cell) const {
  const QString text = cell.widget->property("text").toString();
  if (text == cell.text) return;
  cell.text = text;
  const bool isMessageLine = qobject_cast<MessageLine*>(cell.widget) != nullptr;
  cell.wanted = isMessageLine ? cell.widget->sizeHint().width() : fontMetrics().horizontalAdvance(text) + 2;
  if (text.isEmpty()) cell.wanted = 0;
}

void CellRow::place() {
  std::vector<int> wanted;
  std::vector<int> giveWay;
  int rules = -1;
  for (Cell& cell : cells_) {
    measure(cell);
    wanted.push_back(cell.wanted);
    giveWay.push_back(cell.giveWay);
    rules += cell.text.isEmpty() && &cell != &cells_.front() ? 0 : 1;  // the first one has the room left over
  }
  const auto widths = sharedWidths(wanted, giveWay, leastLetters * fontMetrics().averageCharWidth(), gap,
                                   width() - gap * rules - gap / 2);
  int left = 0;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    QWidget& widget = *cells_[i].widget;
    const bool shown = !cells_[i].text.isEmpty() && widths[i] > 0;
    const QRect place(left, 0, widths[i], height());
    if (shown != widget.isVisibleTo(this) || (shown && place != widget.geometry())) update();
    widget.setVisible(shown);
    if (shown) widget.setGeometry(place);
    if (shown || i == 0) left += widths[i] + gap;
  }
}

void CellRow::resizeEvent(QResizeEvent*) { place(); }

void CellRow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    for (Cell& cell : cells_) cell.text.clear();
    place();
  }
  QWidget::changeEvent(event);
}

void CellRow::paintEvent(QPaintEvent*) {
  constexpr int margin = 3;  // above and below a rule
  QPainter painter(this);
  QColor color = palette().color(QPalette::WindowText);
  color.setAlphaF(0.35F);
  for (std::size_t i = 1; i < cells_.size(); ++i) {
    if (!cells_[i].widget->isVisibleTo(this)) continue;
    painter.fillRect(QRect(cells_[i].widget->x() - gap / 2 - 1, margin, 1, height() - 2 * margin), color);
  }
}

}  // namespace moistair
