#include "svg.h"

#include "text/numbertext.h"

namespace moistair::validation {

namespace {

std::string attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string attribute(std::string_view name, double value) { return attribute(name, fixedDecimals(value, 2)); }

}  // namespace

Svg::Svg(double width, double height, std::string_view title)
    : picture_("<svg xmlns=\"http://www.w3.org/2000/svg\"" + attribute("width", width) + attribute("height", height) +
               attribute("viewBox", "0 0 " + fixedDecimals(width, 1) + " " + fixedDecimals(height, 1)) +
               " font-family=\"DejaVu Sans, sans-serif\" role=\"img\">\n<title>" + std::string(title) + "</title>\n") {
  box({0, 0}, width, height, "white");
}

void Svg::line(Spot from, Spot to, std::string_view color, double width) {
  picture_ += "<line" + attribute("x1", from.x) + attribute("y1", from.y) + attribute("x2", to.x) +
              attribute("y2", to.y) + attribute("stroke", color) + attribute("stroke-width", width) + "/>\n";
}

void Svg::curve(const std::vector<Spot>& spots, std::string_view color) {
  std::string points;
  for (const Spot& spot : spots) points += fixedDecimals(spot.x, 2) + "," + fixedDecimals(spot.y, 2) + " ";
  picture_ +=
      "<polyline fill=\"none\" stroke-width=\"2\"" + attribute("stroke", color) + attribute("points", points) + "/>\n";
}

void Svg::box(Spot corner, double width, double height, std::string_view color) {
  picture_ += "<rect" + attribute("x", corner.x) + attribute("y", corner.y) + attribute("width", width) +
              attribute("height", height) + attribute("fill", color) + "/>\n";
}

/// A dot is a line without length and with round ends. Many marks are one path, a tenth of as many elements.
void Svg::dots(const std::vector<Spot>& spots, double radius, std::string_view color) {
  std::string moves;
  for (const Spot& spot : spots) moves += "M" + fixedDecimals(spot.x, 1) + " " + fixedDecimals(spot.y, 1) + "h0";
  path(moves, 2 * radius, color);
}

void Svg::crosses(const std::vector<Spot>& spots, double radius, std::string_view color) {
  const std::string r = fixedDecimals(radius, 1);
  const std::string d = fixedDecimals(2 * radius, 1);
  std::string moves;
  for (const Spot& spot : spots) {
    moves += "M" + fixedDecimals(spot.x, 1) + " " + fixedDecimals(spot.y, 1) + "m-" + r + "-" + r + "l" + d + " " + d +
             "m-" + d + " 0l" + d + "-" + d;
  }
  path(moves, 1.4, color);
}

void Svg::path(const std::string& moves, double width, std::string_view color) {
  if (moves.empty()) return;
  picture_ += "<path fill=\"none\" stroke-linecap=\"round\"" + attribute("stroke", color) +
              attribute("stroke-width", width) + attribute("d", moves) + "/>\n";
}

void Svg::text(Spot at, std::string_view text, std::string_view anchor, double size) {
  picture_ += "<text" + attribute("x", at.x) + attribute("y", at.y) + attribute("text-anchor", anchor) +
              attribute("font-size", size) + ">" + std::string(text) + "</text>\n";
}

}  // namespace moistair::validation
