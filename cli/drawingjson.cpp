#include "cli/drawingjson.h"

#include <string_view>
#include <variant>

#include "model/jsonnode.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

/// Appends an operation member by member; a tree of values to be written later would take longer than the chart.
struct OperationWriter {
  std::string& out;

  void operator()(const LineOperation& line) const {
    out += R"({"op":"line")";
    number("x1", line.x1);
    number("y1", line.y1);
    number("x2", line.x2);
    number("y2", line.y2);
    if (line.color) color(*line.color);
  }

  void operator()(const CircleOperation& circle) const {
    out += R"({"op":"circle")";
    number("x", circle.x);
    number("y", circle.y);
    number("r", circle.radius);
    color(circle.color);
  }

  void operator()(const TextOperation& text) const {
    out += R"({"op":"text")";
    number("x", text.x);
    number("y", text.y);
    out += R"(,"text":)" + jsonText(text.text);
  }

  void number(std::string_view name, float coordinate) const {
    out.append(",\"").append(name).append("\":");
    appendRoundTrip(out, static_cast<double>(coordinate));
  }

  void color(const Color& color) const { out.append(R"(,"color":")").append(hexOf(color)).append("\""); }
};

}  // namespace

std::string drawingJson(const Drawing& drawing, const WindowSize& size) {
  std::string out = R"({"unit":"twip","width":)";
  appendRoundTrip(out, size.width);
  out += R"(,"height":)";
  appendRoundTrip(out, size.height);
  out += R"(,"ops":[)";
  const char* separator = "\n";
  for (const Operation& operation : drawing.operations) {
    out += separator;
    std::visit(OperationWriter{out}, operation);
    out += '}';
    separator = ",\n";
  }
  return out + "\n]}\n";
}

}  // namespace moistair
