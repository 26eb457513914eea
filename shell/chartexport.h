/// \file
/// The chart in vector files, as a picture and on paper.
#pragma once

#include <QSize>
#include <QWidget>

#include "chart/drawing.h"

namespace moistair {

/// Asks for a path and writes the part of the drawing that the window shows, in the format of the path's ending or,
/// where it has none of these, of the filter chosen, whose ending is then added. Tells the user of a file that could
/// not be written, and why.
/// @param size inner size of the main window [logical pixels]
void exportchart(QWidget* window, const Drawing& drawing, QSize size);

/// The system's print dialog; the chart as large as it fits on the page, landscape.
void printchart(QWidget* window, const Drawing& drawing, QSize size);

}  // namespace moistair
