#include "sheet/geometry.h"

#include <algorithm>
#include <numbers>

namespace moistair {

SheetPoint unit(SheetPoint vector) {
  const double size = length(vector);
  return size > 0 ? vector * (1 / size) : SheetPoint{1, 0};
}

double readingAngle(SheetPoint direction) {
  if (direction.x < 0 || (direction.x == 0 && direction.y > 0)) direction = direction * -1;
  return std::atan2(direction.y, direction.x) * 180 / std::numbers::pi;
}

SheetPoint direction(double angle) {
  if (angle == 0) return {1, 0};
  const double radians = angle * std::numbers::pi / 180;
  return {std::cos(radians), std::sin(radians)};
}

std::array<SheetPoint, 4> Box::corners() const {
  const SheetPoint l = along * halfLength;
  const SheetPoint h = across() * halfHeight;
  return {center - l - h, center + l - h, center + l + h, center - l + h};
}

Box boxOf(SheetPoint one, SheetPoint other) {
  return {(one + other) * 0.5, {1, 0}, std::abs(one.x - other.x) / 2, std::abs(one.y - other.y) / 2};
}

Box grown(Box box, double margin) {
  box.halfLength += margin;
  box.halfHeight += margin;
  return box;
}

Box textBox(const SheetTextOperation& text, const TextExtent& extent) {
  Box box;
  box.along = direction(text.angle);
  box.halfLength = extent.width / 2;
  box.halfHeight = (extent.ascent + extent.descent) / 2;
  const double ahead = text.anchor == Anchor::start ? 0.5 : text.anchor == Anchor::end ? -0.5 : 0;
  box.center = text.at + box.along * (ahead * extent.width) + box.across() * ((extent.descent - extent.ascent) / 2);
  return box;
}

namespace {

/// How far a box reaches from its center in a direction.
double reach(const Box& box, SheetPoint axis) {
  return box.halfLength * std::abs(dot(box.along, axis)) + box.halfHeight * std::abs(dot(box.across(), axis));
}

}  // namespace

bool overlap(const Box& a, const Box& b) {
  const SheetPoint between = b.center - a.center;
  const double radii = a.radius() + b.radius();
  if (dot(between, between) >= radii * radii) return false;
  for (const SheetPoint axis : {a.along, a.across(), b.along, b.across()}) {
    if (std::abs(dot(between, axis)) >= reach(a, axis) + reach(b, axis)) return false;
  }
  return true;
}

/// Cuts the line by the box's four sides, in coordinates of the box.
bool crosses(const Box& box, SheetPoint from, SheetPoint to) {
  const auto within = [&](SheetPoint place) {
    return SheetPoint{dot(place - box.center, box.along), dot(place - box.center, box.across())};
  };
  const SheetPoint start = within(from);
  const SheetPoint end = within(to);
  const auto aside = [](double one, double other, double half) {
    return (one >= half && other >= half) || (one <= -half && other <= -half);
  };
  if (aside(start.x, end.x, box.halfLength) || aside(start.y, end.y, box.halfHeight)) return false;
  const SheetPoint toward = end - start;
  double enter = 0;
  double leave = 1;
  const auto cut = [&](double place, double step, double half) {
    if (step == 0) return std::abs(place) < half;
    const double one = (-half - place) / step;
    const double other = (half - place) / step;
    enter = std::max(enter, std::min(one, other));
    leave = std::min(leave, std::max(one, other));
    return enter < leave;
  };
  return cut(start.x, toward.x, box.halfLength) && cut(start.y, toward.y, box.halfHeight);
}

double lengthOf(const std::vector<SheetPoint>& line) {
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i) sum += distance(line[i - 1], line[i]);
  return sum;
}

PointOnLine pointOnLine(const std::vector<SheetPoint>& line, double length) {
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double piece = distance(line[i - 1], line[i]);
    if (length <= piece || i + 1 == line.size()) {
      const SheetPoint along = unit(line[i] - line[i - 1]);
      return {line[i - 1] + along * std::min(length, piece), along};
    }
    length -= piece;
  }
  return {line.front(), {1, 0}};
}

}  // namespace moistair
