/// \file
/// Marks at boxes and lists: something about them is not as it looks.
#pragma once

#include <QColor>
#include <QPainter>
#include <QWidget>

namespace moistair {

/// Distinguished by their outline as well as by their color: a note is dashed, a fault is drawn through.
enum class BoxMark {
  none,
  note,   ///< the text counts as something else
  fault,  ///< it is refused
};

/// A color that can be read on the window of a palette, light or dark.
QColor markColor(BoxMark mark, const QPalette& palette);

/// Marks a control with an outline, a corner and a tint, above it and without moving anything. The words are its tool
/// tip, and its description for assistive technology. `BoxMark::none` takes all of it away.
void setMark(QWidget& control, BoxMark mark, const QString& words = {});

/// The sign of a mark in a square: a triangle with an exclamation mark.
void paintSign(QPainter& painter, const QRectF& square, BoxMark mark, const QPalette& palette);

}  // namespace moistair
