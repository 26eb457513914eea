/// \file
/// The drawing as data.
///
/// Everything that is drawn on the chart is recorded here, operation by operation, in twips. The screen, the bitmap,
/// the vector files, the printer and the tests all replay this one list, so they cannot differ from each other.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "chart/canvas.h"

namespace moistair {

/// The kinds of picture that a drawing can be written to, by the ending of the file's name: vector files first.
inline constexpr std::array<const char*, 4> pictureEndings = {".svg", ".pdf", ".png", ".bmp"};

struct LineOperation {
  float x1, y1, x2, y2;
  std::optional<Color> color;

  bool operator==(const LineOperation&) const = default;
};

struct CircleOperation {
  float x, y, radius;
  Color color;

  bool operator==(const CircleOperation&) const = default;
};

/// A text with its top left corner at (x, y), in the foreground color.
struct TextOperation {
  float x, y;
  std::string text;

  bool operator==(const TextOperation&) const = default;
};

using Operation = std::variant<LineOperation, CircleOperation, TextOperation>;

struct Drawing {
  std::vector<Operation> operations;
  std::size_t background = 0;  ///< so many of them, from the first, are the background picture

  bool operator==(const Drawing&) const = default;
};

/// Height of a printed line [twips]: how far Print moves the pen down. Every label sets the pen again, so nothing on
/// the chart depends on the font's true height.
inline constexpr float lineHeight = 195;

/// A canvas that records. Whoever shows the drawing hears of it through the two functions.
class RecordingCanvas final : public ChartCanvas {
public:
  std::function<void()> changed;    ///< after every operation that changes the drawing
  std::function<void()> refreshed;  ///< at every Refresh

  const Drawing& drawing() const { return drawing_; }

  void line(double x1, double y1, double x2, double y2, std::optional<Color> color = foreground) override;
  void circle(double x, double y, double radius, Color color) override;
  void print(std::string_view text) override;
  void moveTo(double x, double y) override;
  void cls() override;
  void refresh() override;
  void keepPicture() override;
  void dropPicture() override;

  /// Another drawing in place of this one, reported as one change.
  void show(Drawing drawing);

private:
  void notify() const;

  Drawing drawing_;
  float currentX_ = 0;
  float currentY_ = 0;
};

}  // namespace moistair
