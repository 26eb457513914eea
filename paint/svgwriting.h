/// \file
/// The pieces that SVG text is written of.
#pragma once

#include <string>
#include <string_view>

#include "chart/canvas.h"
#include "text/numberformat.h"

namespace moistair {

/// To the thousandth, which nobody sees.
inline void appendnumber(std::string& out, double number) { out += atMostDecimals(number, 3); }

inline void appendattribute(std::string& out, std::string_view name, double value) {
  out.append(" ").append(name).append("=\"");
  appendnumber(out, value);
  out += '"';
}

/// name="#rrggbb"
inline void appendattribute(std::string& out, std::string_view name, const Color& color) {
  constexpr std::string_view hexdigits = "0123456789abcdef";
  out.append(" ").append(name).append("=\"#");
  for (const std::uint8_t part : {color.red, color.green, color.blue}) {
    out += hexdigits[part >> 4];
    out += hexdigits[part & 15];
  }
  out += '"';
}

/// What a file begins with: an area of so many pixels of 1/96 inch.
inline void appendhead(std::string& out, double width, double height) {
  constexpr double millimetres = 25.4 / 96;  // to the pixel
  out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
  appendnumber(out, width * millimetres);
  out += "mm\" height=\"";
  appendnumber(out, height * millimetres);
  out += "mm\" viewBox=\"0 0 ";
  appendnumber(out, width);
  out += ' ';
  appendnumber(out, height);
  out += "\">\n";
}

}  // namespace moistair
