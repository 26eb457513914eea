/// \file
/// The surface that the chart is drawn on.
///
/// `ChartCanvas` is all that the chart does to its surface, whatever that is: the widget of the main window, the
/// recorder of the headless tool, a test. Coordinates and radii are in twips (1/1440 inch, 15 to the pixel), x to the
/// right and y downward from the top left corner, and are rounded to single precision as they are drawn. A step whose
/// coordinates have no value is skipped. Drawing beyond the edges is allowed and does not show.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace moistair {

inline constexpr double twipsPerPixel = 15;

struct Color {
  std::uint8_t red, green, blue;

  bool operator==(const Color&) const = default;
};

/// "#rrggbb"
inline std::string hexOf(const Color& color) {
  constexpr std::string_view hexDigits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {color.red, color.green, color.blue}) {
    text += hexDigits[part >> 4];
    text += hexDigits[part & 15];
  }
  return text;
}

/// No color of its own: axes and all text are in the foreground color of whatever shows them.
inline constexpr std::optional<Color> foreground = std::nullopt;

namespace colors {
inline constexpr Color fineGrid{192, 192, 192};
inline constexpr Color relativeHumidity{0, 128, 0};
inline constexpr Color wetBulb{128, 0, 0};
inline constexpr Color enthalpy{128, 128, 128};
inline constexpr Color specificVolume{255, 0, 255};
inline constexpr Color majorLine{0, 0, 255};
inline constexpr Color pointMark{255, 0, 0};
}  // namespace colors

class ChartCanvas {
public:
  virtual ~ChartCanvas() = default;

  /// A straight line one pixel wide, both ends included. The pen stays at the second end: a Print that follows writes
  /// there, which is how every line of the chart gets its label.
  virtual void line(double x1, double y1, double x2, double y2, std::optional<Color> color = foreground) = 0;
  /// The outline of a circle. The pen stays at its center.
  virtual void circle(double x, double y, double radius, Color color) = 0;
  /// Writes a text [UTF-8] with its top left corner at the pen, and moves the pen to the start of the next line.
  virtual void print(std::string_view text) = 0;
  /// Sets CurrentX and CurrentY without drawing.
  virtual void moveTo(double x, double y) = 0;
  /// Back to the background picture, or to the bare ground if there is none; pen to (0, 0).
  virtual void cls() = 0;
  /// Shows what is drawn so far, during a long drawing.
  virtual void refresh() = 0;
  /// Makes all that is drawn the background picture.
  virtual void keepPicture() = 0;
  /// Removes the background picture.
  virtual void dropPicture() = 0;
};

}  // namespace moistair
