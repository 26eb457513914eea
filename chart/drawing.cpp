#include "chart/drawing.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace moistair {

namespace {

float single(double twips) { return static_cast<float>(twips); }

/// Whether all of them still are numbers once rounded to single precision.
bool drawable(std::initializer_list<double> coordinates) {
  for (const double coordinate : coordinates) {
    if (!std::isfinite(single(coordinate))) return false;
  }
  return true;
}

}  // namespace

void RecordingCanvas::Line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
  if (!drawable({x1, y1, x2, y2})) return;
  MoveTo(x2, y2);
  drawing_.operations.emplace_back(LineOperation{single(x1), single(y1), single(x2), single(y2), color});
  tell();
}

void RecordingCanvas::Circle(double x, double y, double radius, Color color) {
  if (!drawable({x, y, radius})) return;
  MoveTo(x, y);
  drawing_.operations.emplace_back(CircleOperation{single(x), single(y), single(radius), color});
  tell();
}

void RecordingCanvas::Print(std::string_view text) {
  drawing_.operations.emplace_back(TextOperation{currentx_, currenty_, std::string(text)});
  currentx_ = 0;
  currenty_ += lineheight;
  tell();
}

void RecordingCanvas::MoveTo(double x, double y) {
  if (!drawable({x, y})) return;
  currentx_ = single(x);
  currenty_ = single(y);
}

void RecordingCanvas::Cls() {
  drawing_.operations.erase(drawing_.operations.begin() + static_cast<std::ptrdiff_t>(drawing_.background),
                            drawing_.operations.end());
  currentx_ = 0;
  currenty_ = 0;
  tell();
}

void RecordingCanvas::Refresh() {
  if (refreshed) refreshed();
}

void RecordingCanvas::KeepPicture() { drawing_.background = drawing_.operations.size(); }

void RecordingCanvas::DropPicture() {
  const auto first = drawing_.operations.begin();
  drawing_.operations.erase(first, first + static_cast<std::ptrdiff_t>(drawing_.background));
  drawing_.background = 0;
  tell();
}

/// Whoever paints what is new finds first that all is gone, even if the new drawing has as many operations.
void RecordingCanvas::show(Drawing drawing) {
  drawing_ = {};
  tell();
  drawing_ = std::move(drawing);
  tell();
}

void RecordingCanvas::tell() const {
  if (changed) changed();
}

}  // namespace moistair
