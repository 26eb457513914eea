/// \file
/// A recorded drawing as data, for other programs to draw or to check.
#pragma once

#include <string>

#include "chart/chartframe.h"
#include "chart/drawing.h"

namespace moistair {

/// {"unit":"twip","width":W,"height":H,"ops":[...]}: every operation in its order, coordinates as round-trip numbers,
/// no "color" for the foreground color. Texts must be UTF-8.
std::string drawingJson(const Drawing& drawing, const WindowSize& size);

}  // namespace moistair
