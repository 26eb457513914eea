/// \file
/// The colors and line widths of a sheet.
#pragma once

#include "chart/propertylines.h"
#include "sheet/options.h"
#include "sheet/sheetdrawing.h"

namespace moistair {

/// How a line is drawn.
struct Stroke {
  double width = 1;  ///< [pixels]
  Color color{};
  Dash dash = Dash::solid;
};

/// What lies behind is quiet, what is read off is dark, and what the engineer has put there is bright.
struct Theme {
  Color paper, ink, faded;          ///< ground, texts and frame, small captions
  Stroke fineGrid, grid;            ///< between the numbers of the scales and at them
  Stroke frame, saturation, scale;  ///< scale: rules and ticks
  Stroke humidity, wetBulb, enthalpy, volume;
  Color weather;        ///< of the cells with most hours
  bool isGray = false;  ///< whether no color tells anything
  Color mark;           ///< points and mixing lines
  Color shade;          ///< heads of tables

  Color humidityText, wetBulbText, enthalpyText, volumeText;  ///< as the lines, but dark enough for letters

  const Stroke& of(LineKind kind) const;
  Color textOf(LineKind kind) const;
  Color lighter(Color color) const;  ///< half way to the ground
  TextStyle text(double size) const { return {size, false, ink}; }
  TextStyle bold(double size) const { return {size, true, ink}; }
  TextStyle small(double size) const { return {size, false, faded}; }
};

const Theme& themeOf(SheetColors colors);

}  // namespace moistair
