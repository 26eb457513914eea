#include "paint/svg.h"

#include <string>

#include "paint/replay.h"
#include "paint/svgwriting.h"

namespace moistair {

namespace {

void appendpixels(std::string& out, float twips) { appendnumber(out, static_cast<double>(twips) / twipsperpixel); }

/// Writes one operation after the other. A path goes on as long as lines of its colour come.
class OperationWriter {
public:
  OperationWriter(std::string& out, QSize ground) : out_(out), ground_(ground) {}

  void operator()(const LineOperation& line) {
    const bool samepath = last_ && last_->color == line.color;
    if (!samepath) {
      endpath();
      out_ += "<path";
      appendattribute(out_, "stroke", line.color.value_or(Color{0, 0, 0}));
      out_ += " d=\"";
    }
    if (samepath && last_->x2 == line.x1 && last_->y2 == line.y1) {
      out_ += ' ';
    } else {
      out_ += 'M';
      appendpoint(line.x1, line.y1);
      out_ += 'L';
    }
    appendpoint(line.x2, line.y2);
    last_ = line;
  }

  void operator()(const CircleOperation& circle) {
    endpath();
    out_ += "<circle";
    appendattribute(out_, "cx", static_cast<double>(circle.x) / twipsperpixel);
    appendattribute(out_, "cy", static_cast<double>(circle.y) / twipsperpixel);
    appendattribute(out_, "r", static_cast<double>(circle.radius) / twipsperpixel);
    appendattribute(out_, "stroke", circle.color);
    out_ += "/>\n";
  }

  void operator()(const TextOperation& operation) {
    endpath();
    const PaintedText text = paintedtext(operation, metrics_, ground_);
    if (text.characters.isEmpty()) return;
    out_ += "<text fill=\"#000000\"";
    appendattribute(out_, "x", text.baseline.x());
    appendattribute(out_, "y", text.baseline.y());
    out_ += '>' + text.characters.toHtmlEscaped().toStdString() + "</text>\n";
  }

  void endpath() {
    if (last_) out_ += "\"/>\n";
    last_.reset();
  }

private:
  void appendpoint(float x, float y) {
    appendpixels(out_, x);
    out_ += ',';
    appendpixels(out_, y);
  }

  std::string& out_;
  QSizeF ground_;
  QFontMetricsF metrics_{canvasfont()};
  std::optional<LineOperation> last_;  ///< of the open path, if one is open
};

}  // namespace

QByteArray svgcontent(const Drawing& drawing, QSize size) {
  const std::string width = std::to_string(size.width());
  const std::string height = std::to_string(size.height());
  std::string out;
  appendhead(out, size.width(), size.height());
  out += "<title>Psychrometric chart</title>\n<rect width=\"" + width + "\" height=\"" + height +
         "\" fill=\"#ffffff\"/>\n";
  const QFont font = canvasfont();
  out += "<g fill=\"none\" stroke-linecap=\"square\" stroke-linejoin=\"bevel\" xml:space=\"preserve\" font-family=\"" +
         font.family().toStdString() + "\" font-size=\"" + std::to_string(font.pixelSize()) + "\">\n";
  OperationWriter writer(out, size);
  for (const Operation& operation : drawing.operations) std::visit(writer, operation);
  writer.endpath();
  out += "</g>\n</svg>\n";
  return QByteArray::fromStdString(out);
}

}  // namespace moistair
