/// \file
/// Texts side by side in one line, in as much room as there is.
#pragma once

#include <QWidget>
#include <vector>

namespace moistair {

/// One text of a row.
struct RowCell {
  QWidget* widget;  ///< with a property "text"
  int giveWay;      ///< the lowest gives way first, and goes first; 0 for one that does not
};

/// Gives each text the room that it wants and the first one what is left over. Where there is not enough, those that
/// may give way have less, one after the other, and where that does not do they go, one after the other, before the
/// first one is cut. An empty text takes no room. Between two texts there is a rule.
class CellRow final : public QWidget {
public:
  explicit CellRow(const std::vector<RowCell>& cells);

  /// To be called once a text has changed.
  void place();

  QSize sizeHint() const override;

protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  struct Cell : RowCell {
    QString text{};  ///< as last measured
    int wanted = 0;  ///< width of all of it [pixels]
  };

  void measure(Cell& cell) const;

  std::vector<Cell> cells_;
};

/// The widths of texts that want so much and give way in an order, in a room too small or too large for them.
/// @param giveWay as in `RowCell`
/// @param least what one that gives way keeps, if it wants that much, or else nothing
/// @param gap that there is between two, and is gained with each one that goes
std::vector<int> sharedWidths(const std::vector<int>& wanted, const std::vector<int>& giveWay, int least, int gap,
                              int room);

}  // namespace moistair
