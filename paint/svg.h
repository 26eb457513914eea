/// \file
/// A drawing as SVG text.
///
/// The one file that is not painted: a painter writes every line as an element of its own and takes ten times as long.
/// Lines that follow each other in one color are one path here, and text is text, placed as `replay` places it.
#pragma once

#include <QByteArray>
#include <QSize>

#include "chart/drawing.h"

namespace moistair {

/// The file's content, for an area of so many logical pixels of 1/96 inch.
QByteArray svgContent(const Drawing& drawing, QSize size);

}  // namespace moistair
