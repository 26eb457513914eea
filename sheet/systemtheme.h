/// \file
/// How the processes of an air handler look, on the sheet and on the layer above the drawing.
///
/// Kinds differ by width and dash as well as by color, so that they can be told apart in gray.
#pragma once

#include "process/systemshapes.h"
#include "sheet/theme.h"

namespace moistair {

/// With a width in pixels on a sheet with letters of 10.
Stroke strokeOf(ShapeLook look, SheetColors colors);

}  // namespace moistair
