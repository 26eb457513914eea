/// \file
/// Marks at boxes and lists: something about them is not as it looks.
#pragma once

#include <QColor>
#include <QPainter>
#include <QWidget>

namespace moistair {

/// Told apart by their outline as well as by their colour: a note is dashed, a fault is drawn through.
enum class BoxMark {
  none,
  note,   ///< what stands there counts as something else
  fault,  ///< it is refused
};

/// A colour that can be read on the window of a palette, light or dark.
QColor markcolor(BoxMark mark, const QPalette& palette);

/// Marks a control with an outline, a corner and a tint, above it and without moving anything. The words are its tool
/// tip, and its description for assistive technology. `BoxMark::none` takes all of it away.
void setmark(QWidget& control, BoxMark mark, const QString& words = {});

/// The sign of a mark in a square: a triangle with an exclamation mark.
void paintsign(QPainter& painter, const QRectF& square, BoxMark mark, const QPalette& palette);

}  // namespace moistair
