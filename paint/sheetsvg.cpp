// A sheet as SVG text.
#include <QString>
#include <optional>
#include <string>
#include <variant>

#include "paint/replay.h"
#include "paint/sheetpaint.h"
#include "paint/svgwriting.h"

namespace moistair {

namespace {

std::string escaped(std::string_view text) {
  const auto characters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return printable(characters).toHtmlEscaped().toStdString();
}

void appendpoint(std::string& out, SheetPoint point) {
  appendnumber(out, point.x);
  out += ',';
  appendnumber(out, point.y);
}

void appendpoints(std::string& out, const std::vector<SheetPoint>& points) {
  const char* separator = "M";
  for (const SheetPoint& point : points) {
    out += separator;
    appendpoint(out, point);
    separator = " ";
  }
}

bool samestroke(const PolylineOperation& a, const PolylineOperation& b) {
  return a.width == b.width && a.color == b.color && a.dash == b.dash;
}

/// Writes one operation after the other. A path goes on as long as lines of one stroke come.
class OperationWriter {
public:
  explicit OperationWriter(std::string& out) : out_(out) {}

  void operator()(const PolylineOperation& line) {
    if (last_ == nullptr || !samestroke(*last_, line)) {
      endpath();
      out_ += "<path";
      appendattribute(out_, "stroke", line.color);
      appendattribute(out_, "stroke-width", line.width);
      if (line.dash == Dash::dashed) out_ += " stroke-dasharray=\"7 3.5\" stroke-linecap=\"butt\"";
      if (line.dash == Dash::dotted) out_ += " stroke-dasharray=\"1.6 2\" stroke-linecap=\"butt\"";
      out_ += " d=\"";
    }
    appendpoints(out_, line.points);
    last_ = &line;
  }

  void operator()(const AreaOperation& area) {
    endpath();
    out_ += "<path";
    appendattribute(out_, "fill", area.color);
    out_ += " d=\"";
    appendpoints(out_, area.outline);
    out_ += "z\"/>\n";
  }

  void operator()(const SheetTextOperation& text) {
    endpath();
    out_ += "<text";
    appendattribute(out_, "fill", text.style.color);
    appendattribute(out_, "font-size", text.style.size);
    if (text.style.bold) out_ += " font-weight=\"bold\"";
    if (text.anchor != Anchor::start)
      out_ += text.anchor == Anchor::end ? " text-anchor=\"end\"" : " text-anchor=\"middle\"";
    appendattribute(out_, "x", text.at.x);
    appendattribute(out_, "y", text.at.y);
    if (text.angle != 0) {
      out_ += " transform=\"rotate(";
      appendnumber(out_, text.angle);
      out_ += ' ';
      appendpoint(out_, text.at);
      out_ += ")\"";
    }
    out_ += '>' + escaped(text.text) + "</text>\n";
  }

  void endpath() {
    if (last_ != nullptr) out_ += "\"/>\n";
    last_ = nullptr;
  }

private:
  std::string& out_;
  const PolylineOperation* last_ = nullptr;  ///< of the open path, if one is open
};

}  // namespace

QByteArray sheetsvg(const SheetDrawing& sheet, std::string_view title) {
  std::string out;
  const double height = sheet.height * static_cast<double>(sheet.pages.size());
  appendhead(out, sheet.width, height);
  out += "<title>" + escaped(title) + "</title>\n<rect";
  appendattribute(out, "width", sheet.width);
  appendattribute(out, "height", height);
  appendattribute(out, "fill", sheet.paper);
  out += "/>\n";
  double top = 0;
  for (const SheetPage& page : sheet.pages) {
    out += "<g fill=\"none\" stroke-linecap=\"square\" stroke-linejoin=\"round\" xml:space=\"preserve\" font-family=\"";
    out += canvasfamily;
    out += "\" transform=\"translate(0 ";
    appendnumber(out, top);
    out += ")\">\n";
    OperationWriter writer(out);
    for (const SheetOperation& operation : page.operations) std::visit(writer, operation);
    writer.endpath();
    out += "</g>\n";
    top += sheet.height;
  }
  out += "</svg>\n";
  return QByteArray::fromStdString(out);
}

}  // namespace moistair
