#include "cli/drawingjson.h"

#include <array>
#include <variant>

#include "document/jsonnode.h"

namespace moistair {

namespace {

std::string codeof(const Color& color) {
  constexpr const char* hexdigits = "0123456789abcdef";
  std::string code = "#";
  for (const std::uint8_t part : {color.red, color.green, color.blue}) {
    code += hexdigits[part >> 4];
    code += hexdigits[part & 15];
  }
  return code;
}

Json jsonof(float coordinate) { return jsonnumber(static_cast<double>(coordinate)); }

struct OperationWriter {
  Json operator()(const LineOperation& line) const {
    Json json = {{"op", "line"},
                 {"x1", jsonof(line.x1)},
                 {"y1", jsonof(line.y1)},
                 {"x2", jsonof(line.x2)},
                 {"y2", jsonof(line.y2)}};
    if (line.color) json["color"] = codeof(*line.color);
    return json;
  }

  Json operator()(const CircleOperation& circle) const {
    return {{"op", "circle"},
            {"x", jsonof(circle.x)},
            {"y", jsonof(circle.y)},
            {"r", jsonof(circle.radius)},
            {"color", codeof(circle.color)}};
  }

  Json operator()(const TextOperation& text) const {
    return {{"op", "text"}, {"x", jsonof(text.x)}, {"y", jsonof(text.y)}, {"text", text.text}};
  }
};

}  // namespace

std::string drawingjson(const Drawing& drawing, const WindowSize& size) {
  std::string out = "{\"unit\":\"twip\",\"width\":" + jsonnumber(size.width).dump() +
                    ",\"height\":" + jsonnumber(size.height).dump() + ",\"ops\":[";
  const char* separator = "\n";
  for (const Operation& operation : drawing.operations) {
    out += separator + jsontext(std::visit(OperationWriter{}, operation));
    separator = ",\n";
  }
  return out + "\n]}\n";
}

}  // namespace moistair
