#include "cli/drawingjson.h"

#include <string_view>
#include <variant>

#include "cli/numberformat.h"

namespace moistair {

namespace {

constexpr std::string_view hexdigits = "0123456789abcdef";

void appendtext(std::string& out, std::string_view text) {
  out += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') out += '\\';
    if (byte < 0x20) {
      out += "\\u00";
      out += hexdigits[byte >> 4];
      out += hexdigits[byte & 15];
    } else {
      out += c;
    }
  }
  out += '"';
}

/// Builds one object, member by member.
class Members {
public:
  Members(std::string& out, std::string_view operation) : out_(out) {
    out_ += "{\"op\":";
    appendtext(out_, operation);
  }

  Members& number(std::string_view name, float value) {
    key(name);
    appendroundtrip(out_, static_cast<double>(value));
    return *this;
  }

  Members& color(const Color& color) {
    key("color");
    out_ += "\"#";
    for (const std::uint8_t part : {color.red, color.green, color.blue}) {
      out_ += hexdigits[part >> 4];
      out_ += hexdigits[part & 15];
    }
    out_ += '"';
    return *this;
  }

  Members& text(std::string_view text) {
    key("text");
    appendtext(out_, text);
    return *this;
  }

private:
  void key(std::string_view name) {
    out_ += ',';
    appendtext(out_, name);
    out_ += ':';
  }

  std::string& out_;
};

struct OperationWriter {
  std::string& out;

  void operator()(const LineOperation& line) const {
    Members members(out, "line");
    members.number("x1", line.x1).number("y1", line.y1).number("x2", line.x2).number("y2", line.y2);
    if (line.color) members.color(*line.color);
  }

  void operator()(const CircleOperation& circle) const {
    Members(out, "circle").number("x", circle.x).number("y", circle.y).number("r", circle.radius).color(circle.color);
  }

  void operator()(const TextOperation& text) const {
    Members(out, "text").number("x", text.x).number("y", text.y).text(text.text);
  }
};

}  // namespace

std::string drawingjson(const Drawing& drawing, const WindowSize& size) {
  std::string out = "{\"unit\":\"twip\",\"width\":";
  appendroundtrip(out, size.width);
  out += ",\"height\":";
  appendroundtrip(out, size.height);
  out += ",\"ops\":[";
  bool first = true;
  for (const Operation& operation : drawing.operations) {
    out += first ? "\n" : ",\n";
    first = false;
    std::visit(OperationWriter{out}, operation);
    out += '}';
  }
  return out + "\n]}\n";
}

}  // namespace moistair
