/// \file
/// A label for what a user typed, of any length.
#pragma once

#include <QLabel>

namespace moistair {

/// Shows as much of its text as fits on one line, with an ellipsis for the rest, and never widens its window: an
/// identification may have thousands of characters. `text()` is the whole text, and so is the tool tip of a cut one.
class ElidedLabel final : public QLabel {
public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  /// Where the ellipsis is; at the right by default.
  void setElision(Qt::TextElideMode place);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  Qt::TextElideMode place_ = Qt::ElideRight;
};

}  // namespace moistair
