#include "paint/svgwriter.h"

#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr int decimals = 3;

std::string numberOf(double number) { return atMostDecimals(number, decimals); }

void appendPair(std::string& out, double x, double y) {
  out += numberOf(x);
  out += ',';
  out += numberOf(y);
}

std::string attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string attribute(std::string_view name, double value) { return attribute(name, numberOf(value)); }

std::string attribute(std::string_view name, const Color& color) { return attribute(name, hexOf(color)); }

}  // namespace

SvgWriter::SvgWriter(double width, double height, const QString& title, const Color& ground) {
  constexpr double millimeters = 25.4 / 96;  // to the pixel
  out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         attribute("width", numberOf(width * millimeters) + "mm") +
         attribute("height", numberOf(height * millimeters) + "mm") +
         attribute("viewBox", "0 0 " + numberOf(width) + ' ' + numberOf(height)) + ">\n<title>" +
         title.toHtmlEscaped().toStdString() + "</title>\n<rect" + attribute("width", width) +
         attribute("height", height) + attribute("fill", ground) + "/>\n";
}

void SvgWriter::begin(const Group& group) {
  closeGroup();
  out_ += "<g fill=\"none\" stroke-linecap=\"square\"" + attribute("stroke-linejoin", group.lineJoin) +
          " xml:space=\"preserve\"" + attribute("font-family", group.family + ", Verdana, sans-serif");
  if (group.size) out_ += attribute("font-size", *group.size);
  if (group.top) out_ += attribute("transform", "translate(0 " + numberOf(*group.top) + ")");
  out_ += ">\n";
  grouped_ = true;
}

void SvgWriter::line(const SvgStroke& stroke, QPointF from, QPointF to) {
  const bool goesOn = path_ == stroke && end_ && end_->x() == from.x() && end_->y() == from.y();
  openPath(stroke);
  if (goesOn) {
    out_ += ' ';
  } else {
    out_ += 'M';
    appendPair(out_, from.x(), from.y());
    out_ += 'L';
  }
  appendPair(out_, to.x(), to.y());
  end_ = to;
}

void SvgWriter::polyline(const SvgStroke& stroke, const std::vector<SheetPoint>& line) {
  openPath(stroke);
  points(line);
}

void SvgWriter::area(const Color& color, const std::vector<SheetPoint>& outline) {
  closePath();
  out_ += "<path" + attribute("fill", color) + " d=\"";
  points(outline);
  out_ += "z\"/>\n";
}

void SvgWriter::circle(const Color& color, QPointF center, double radius) {
  closePath();
  out_ += "<circle" + attribute("cx", center.x()) + attribute("cy", center.y()) + attribute("r", radius) +
          attribute("stroke", color) + "/>\n";
}

void SvgWriter::text(const SvgText& text) {
  closePath();
  out_ += "<text" + attribute("fill", text.color);
  if (text.size) out_ += attribute("font-size", *text.size);
  if (text.bold) out_ += attribute("font-weight", "bold");
  if (text.anchor != Anchor::start) out_ += attribute("text-anchor", text.anchor == Anchor::end ? "end" : "middle");
  out_ += attribute("x", text.baseline.x()) + attribute("y", text.baseline.y());
  if (text.angle != 0) {
    out_ += " transform=\"rotate(" + numberOf(text.angle) + ' ';
    appendPair(out_, text.baseline.x(), text.baseline.y());
    out_ += ")\"";
  }
  out_ += '>' + text.characters.toHtmlEscaped().toStdString() + "</text>\n";
}

std::string SvgWriter::finished() {
  closeGroup();
  return std::move(out_) + "</svg>\n";
}

void SvgWriter::openPath(const SvgStroke& stroke) {
  if (path_ == stroke) return;
  closePath();
  out_ += "<path" + attribute("stroke", stroke.color);
  if (stroke.width) out_ += attribute("stroke-width", *stroke.width);
  if (stroke.dash != Dash::solid) {
    out_ += attribute("stroke-dasharray", stroke.dash == Dash::dashed ? "7 3.5" : "1.6 2");
    out_ += attribute("stroke-linecap", "butt");
  }
  out_ += " d=\"";
  path_ = stroke;
}

void SvgWriter::closePath() {
  if (path_) out_ += "\"/>\n";
  path_.reset();
  end_.reset();
}

void SvgWriter::part(const std::string& name) {
  if (part_ == name) return;
  closePart();
  const int count = ++counts_[name];
  out_ += "<g" + attribute("id", count == 1 ? name : name + "-" + std::to_string(count)) + ">\n";
  part_ = name;
}

void SvgWriter::closePart() {
  closePath();
  if (!part_.empty()) out_ += "</g>\n";
  part_.clear();
}

void SvgWriter::closeGroup() {
  closePart();
  if (grouped_) out_ += "</g>\n";
  grouped_ = false;
}

void SvgWriter::points(const std::vector<SheetPoint>& points) {
  const char* separator = "M";
  for (const SheetPoint& point : points) {
    out_ += separator;
    appendPair(out_, point.x, point.y);
    separator = " ";
  }
}

}  // namespace moistair
