/// \file
/// A picture as SVG, put together from lines, dots and texts on white.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace moistair::validation {

struct Spot {
  double x, y;
};

class Svg {
public:
  /// @param title what the picture shows, for those who cannot see it
  Svg(double width, double height, std::string_view title);

  void line(Spot from, Spot to, std::string_view color, double width = 1);
  void curve(const std::vector<Spot>& spots, std::string_view color);
  void box(Spot corner, double width, double height, std::string_view color);
  void dots(const std::vector<Spot>& spots, double radius, std::string_view color);
  void crosses(const std::vector<Spot>& spots, double radius, std::string_view color);
  /// @param anchor start, middle or end: which part of the text is at the spot
  void text(Spot at, std::string_view text, std::string_view anchor = "start", double size = 12);

  std::string picture() const { return picture_ + "</svg>\n"; }

private:
  void path(const std::string& moves, double width, std::string_view color);

  std::string picture_;
};

/// One axis or both of a plot: where the values lie on the picture.
struct Axis {
  double low, high;    ///< values
  double start, stop;  ///< places

  double at(double value) const { return start + (value - low) / (high - low) * (stop - start); }
};

}  // namespace moistair::validation
