/// \file
/// The commands of the strip by keys: the menu "Chart", and Return in the boxes.
#pragma once

#include <QMenu>

#include "shell/strip.h"

namespace moistair {

/// Offers every command of the strip that no other menu has. An entry presses the button, and is grayed where that is.
void fillChartMenu(QMenu& menu, const Strip& strip);

/// Return in a line's box draws that line, Return in the box of a value locates the point.
void pressByReturn(const Strip& strip);

}  // namespace moistair
