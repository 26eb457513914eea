/// \file
/// Points, turned boxes and lines on a page, and whether they meet.
#pragma once

#include <array>
#include <cmath>
#include <vector>

#include "sheet/sheetdrawing.h"

namespace moistair {

inline SheetPoint operator+(SheetPoint a, SheetPoint b) { return {a.x + b.x, a.y + b.y}; }
inline SheetPoint operator-(SheetPoint a, SheetPoint b) { return {a.x - b.x, a.y - b.y}; }
inline SheetPoint operator*(SheetPoint a, double factor) { return {a.x * factor, a.y * factor}; }
inline SheetPoint operator/(SheetPoint a, double divisor) { return {a.x / divisor, a.y / divisor}; }
inline double dot(SheetPoint a, SheetPoint b) { return a.x * b.x + a.y * b.y; }
inline double cross(SheetPoint a, SheetPoint b) { return a.x * b.y - a.y * b.x; }
inline double length(SheetPoint a) { return std::sqrt(dot(a, a)); }
inline double distance(SheetPoint a, SheetPoint b) { return length(b - a); }

/// A vector of length 1; that to the right for none.
SheetPoint unit(SheetPoint vector);

/// The direction of a vector as a text's angle [degrees], turned so that the text is not upside down.
double readingAngle(SheetPoint direction);

/// The unit vector of an angle [degrees, clockwise from the right].
SheetPoint direction(double angle);

/// A rectangle that may be turned.
struct Box {
  SheetPoint center;
  SheetPoint along{1, 0};  ///< unit vector of its length
  double halfLength = 0;
  double halfHeight = 0;

  SheetPoint across() const { return {-along.y, along.x}; }
  std::array<SheetPoint, 4> corners() const;
  double radius() const { return std::sqrt(halfLength * halfLength + halfHeight * halfHeight); }

  bool operator==(const Box&) const = default;
};

/// An upright one by two of its corners.
Box boxOf(SheetPoint one, SheetPoint other);

/// Grown by a margin on all sides.
Box grown(Box box, double margin);

/// What a text covers.
Box textBox(const SheetTextOperation& text, const TextExtent& extent);

bool overlap(const Box& a, const Box& b);

/// Whether any part of a line lies within a box.
bool crosses(const Box& box, SheetPoint from, SheetPoint to);

/// A place along a line of many pieces, and the direction there.
struct PointOnLine {
  SheetPoint at;
  SheetPoint along;
};

double lengthOf(const std::vector<SheetPoint>& line);

/// The place at so much of the length of a line; the line has two points at least.
PointOnLine pointOnLine(const std::vector<SheetPoint>& line, double length);

}  // namespace moistair
