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

void RecordingCanvas::line(double x1, double y1, double x2, double y2, std::optional<Color> color) {
  if (!drawable({x1, y1, x2, y2})) return;
  moveTo(x2, y2);
  drawing_.operations.emplace_back(LineOperation{single(x1), single(y1), single(x2), single(y2), color});
  notify();
}

void RecordingCanvas::circle(double x, double y, double radius, Color color) {
  if (!drawable({x, y, radius})) return;
  moveTo(x, y);
  drawing_.operations.emplace_back(CircleOperation{single(x), single(y), single(radius), color});
  notify();
}

void RecordingCanvas::print(std::string_view text) {
  drawing_.operations.emplace_back(TextOperation{currentX_, currentY_, std::string(text)});
  currentX_ = 0;
  currentY_ += lineHeight;
  notify();
}

void RecordingCanvas::moveTo(double x, double y) {
  if (!drawable({x, y})) return;
  currentX_ = single(x);
  currentY_ = single(y);
}

void RecordingCanvas::cls() {
  drawing_.operations.erase(drawing_.operations.begin() + static_cast<std::ptrdiff_t>(drawing_.background),
                            drawing_.operations.end());
  currentX_ = 0;
  currentY_ = 0;
  notify();
}

void RecordingCanvas::refresh() {
  if (refreshed) refreshed();
}

void RecordingCanvas::keepPicture() { drawing_.background = drawing_.operations.size(); }

void RecordingCanvas::dropPicture() {
  const auto first = drawing_.operations.begin();
  drawing_.operations.erase(first, first + static_cast<std::ptrdiff_t>(drawing_.background));
  drawing_.background = 0;
  notify();
}

/// Whoever paints what is new finds first that all is gone, even if the new drawing has as many operations.
void RecordingCanvas::show(Drawing drawing) {
  drawing_ = {};
  notify();
  drawing_ = std::move(drawing);
  notify();
}

void RecordingCanvas::notify() const {
  if (changed) changed();
}

}  // namespace moistair
