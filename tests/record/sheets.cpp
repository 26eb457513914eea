// Sheets as lists of operations:
//
//   page N WIDTH HEIGHT             stroke WIDTH COLOR DASH, of the lines that follow
//   line X1 Y1 X2 Y2                curve LENGTH X1 Y1 XM YM X2 Y2 (begin, middle, end; its points may be others)
//   area X Y WIDTH HEIGHT COLOR     text X Y SIZE ANGLE bold|plain ANCHOR COLOR|TEXT
#include "record/recorder.h"
#include "sheet/cases.h"
#include "sheet/geometry.h"

namespace moistair::record {

namespace {

std::string colorOf(const Color& color) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", color.red, color.green, color.blue);
  return text;
}

std::string at(SheetPoint point) { return " " + decimals(point.x) + " " + decimals(point.y); }

struct Writer {
  std::string text;
  std::string stroke;

  void operator()(const PolylineOperation& line) {
    const char* const dashes[] = {"solid", "dashed", "dotted"};
    const std::string now =
        "stroke " + decimals(line.width) + " " + colorOf(line.color) + " " + dashes[static_cast<int>(line.dash)] + "\n";
    if (now != stroke) text += stroke = now;
    const auto& points = line.points;
    if (points.size() == 2) {
      text += "line" + at(points[0]) + at(points[1]) + "\n";
      return;
    }
    double length = 0, half = 0;
    for (std::size_t i = 1; i < points.size(); ++i) length += distance(points[i - 1], points[i]);
    SheetPoint middle = points.front();
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double piece = distance(points[i - 1], points[i]);
      if (half <= length / 2 && half + piece > length / 2) {
        middle = points[i - 1] + (points[i] - points[i - 1]) * ((length / 2 - half) / piece);
      }
      half += piece;
    }
    text += "curve " + decimals(length) + at(points.front()) + at(middle) + at(points.back()) + "\n";
  }

  void operator()(const AreaOperation& area) {
    SheetPoint low = area.outline.front(), high = low;
    for (const SheetPoint& point : area.outline) {
      low = {std::min(low.x, point.x), std::min(low.y, point.y)};
      high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    text += "area" + at(low) + at(high - low) + " " + colorOf(area.color) + "\n";
  }

  void operator()(const SheetTextOperation& words) {
    const char* const anchors[] = {"start", "middle", "end"};
    text += "text" + at(words.at) + " " + decimals(words.style.size) + " " + decimals(words.angle) +
            (words.style.bold ? " bold " : " plain ") + anchors[static_cast<int>(words.anchor)] + " " +
            colorOf(words.style.color) + "|" + words.text + "\n";
  }
};

}  // namespace

void sheets(const std::filesystem::path& folder) {
  for (const test::RecordedSheet& sheet : test::recordedSheets()) {
    const SheetDrawing drawing = layoutSheet(contentOf(sheet.document), sheet.options, test::extentOf);
    Writer writer;
    int number = 0;
    for (const SheetPage& page : drawing.pages) {
      writer.text += "page " + std::to_string(++number) + " " + decimals(drawing.width) + " " +
                     decimals(drawing.height) + " " + colorOf(drawing.paper) + "\n";
      for (const SheetOperation& operation : page.operations) std::visit(writer, operation);
    }
    write(folder, sheet.name, writer.text);
  }
}

}  // namespace moistair::record
