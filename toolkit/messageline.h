/// \file
/// One line of words that can be marked and clicked.
#pragma once

#include <QAbstractButton>

#include "toolkit/mark.h"

namespace moistair {

/// Shows as much of its words as it has room for, with the sign of a mark before them, and is hidden while it has none.
/// Where a click does something the words are underlined. It never takes the focus, so it is no tab stop; assistive
/// technology gets all of the words, as a text, or as a button where a click does something.
class MessageLine final : public QAbstractButton {
  Q_OBJECT

public:
  explicit MessageLine(QWidget* parent = nullptr);

  /// @param tip what else there is to say; the words themselves where there is nothing and they are cut
  void setMessage(const QString& words, BoxMark mark = BoxMark::none, bool clickable = false, const QString& tip = {});

  bool clickable() const { return clickable_; }

  QSize sizeHint() const override;  ///< room for all of the words
  QSize minimumSizeHint() const override;

protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  int textLeft() const;
  void elide(int room);

  BoxMark mark_ = BoxMark::none;
  bool clickable_ = false;
  QString tip_;
  QString shown_;  ///< as much of the words as there is room for
  int room_ = -1;  ///< for which that holds [pixels]
};

}  // namespace moistair
