/// \file
/// A box for a value.
#pragma once

#include <QLineEdit>
#include <QPalette>

namespace moistair {

/// The palette in which the frame of a box stands out. Styles make it darker than the window, so that on a dark window
/// it would not be seen; there it is made from a color nearer to that of the text. A light scheme stays as it is.
QPalette framePalette(QPalette palette);

/// A text box whose frame and placeholder stand out in every color scheme, also in one that comes while the program
/// runs.
class ValueBox final : public QLineEdit {
public:
  explicit ValueBox(QWidget* parent = nullptr);

protected:
  void changeEvent(QEvent* event) override;
  void initStyleOption(QStyleOptionFrame* option) const override;

private:
  void fadePlaceholder();
};

}  // namespace moistair
