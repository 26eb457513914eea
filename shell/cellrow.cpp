#include "shell/cellrow.h"

#include <QEvent>
#include <QPainter>
#include <QVariant>
#include <algorithm>
#include <numeric>

#include "toolkit/tellingline.h"

namespace moistair {

namespace {

constexpr int gap = 11;          // pixels, with a rule in its middle
constexpr int leastletters = 9;  // of a text that gives way

bool empty(const RowCell& cell) { return cell.widget->property("text").toString().isEmpty(); }

int wantedwidth(const RowCell& cell) {
  if (empty(cell)) return 0;
  if (qobject_cast<TellingLine*>(cell.widget) != nullptr) return cell.widget->sizeHint().width();
  return cell.widget->fontMetrics().horizontalAdvance(cell.widget->property("text").toString()) + 2;
}

}  // namespace

std::vector<int> sharedwidths(const std::vector<int>& wanted, const std::vector<int>& giveway, int least, int room) {
  std::vector<int> widths = wanted;
  int over = std::accumulate(wanted.begin(), wanted.end(), -room);
  const int last = giveway.empty() ? 0 : *std::max_element(giveway.begin(), giveway.end());
  for (int turn = 1; turn <= last; ++turn) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (giveway[i] != turn) continue;
      const int given = std::clamp(over, 0, std::max(0, widths[i] - least));
      widths[i] -= given;
      over -= given;
    }
  }
  if (!widths.empty()) widths.front() = std::max(0, widths.front() - over);
  return widths;
}

CellRow::CellRow(std::vector<RowCell> cells) : cells_(std::move(cells)) {
  for (const RowCell& cell : cells_) cell.widget->setParent(this);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize CellRow::sizeHint() const { return {0, fontMetrics().height() + 2}; }

void CellRow::place() {
  std::vector<int> wanted;
  std::vector<int> giveway;
  int rules = -1;
  for (const RowCell& cell : cells_) {
    wanted.push_back(wantedwidth(cell));
    giveway.push_back(cell.giveway);
    rules += empty(cell) ? 0 : 1;
  }
  if (!cells_.empty() && empty(cells_.front())) ++rules;  // the first one stands for the room that is left over
  const auto widths = sharedwidths(wanted, giveway, leastletters * fontMetrics().averageCharWidth(),
                                   width() - gap * std::max(0, rules) - gap / 2);
  int left = 0;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool shown = i == 0 || !empty(cells_[i]);
    cells_[i].widget->setVisible(shown);
    if (!shown) continue;
    cells_[i].widget->setGeometry(left, 0, widths[i], height());
    left += widths[i] + gap;
  }
  update();
}

void CellRow::resizeEvent(QResizeEvent*) { place(); }

void CellRow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) place();
  QWidget::changeEvent(event);
}

void CellRow::paintEvent(QPaintEvent*) {
  constexpr int margin = 3;  // above and below a rule
  QPainter painter(this);
  QColor color = palette().color(QPalette::WindowText);
  color.setAlphaF(0.35F);
  for (std::size_t i = 1; i < cells_.size(); ++i) {
    if (empty(cells_[i])) continue;
    painter.fillRect(QRect(cells_[i].widget->x() - gap / 2 - 1, margin, 1, height() - 2 * margin), color);
  }
}

}  // namespace moistair
