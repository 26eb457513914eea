/// \file
/// What lies over what on a sheet that should not, counted on its operations.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "sheet/geometry.h"
#include "sheet/sheetdrawing.h"

namespace moistair::test {

struct ChartPage {
  struct Line {
    SheetPoint from, to;
  };

  ChartPage(const SheetPage& page, Color paper, const ExtentFunction& extent) {
    for (const SheetOperation& operation : page.operations) {
      if (const auto* text = std::get_if<SheetTextOperation>(&operation)) {
        texts.push_back(text);
        boxes.push_back(textBox(*text, extent(text->text, text->style.size, text->style.bold)));
      } else if (const auto* area = std::get_if<AreaOperation>(&operation)) {
        if (area->part == SheetPart::points && !(area->color == paper)) marks.push_back(markOf(*area));
      } else {
        const auto& line = std::get<PolylineOperation>(operation);
        const bool own = line.part == SheetPart::lines || line.part == SheetPart::processes;
        std::vector<Line>* list = line.part == SheetPart::leaders ? &leaders : own ? &entered : nullptr;
        const bool frame = line.part == SheetPart::readouts && line.points.size() == 5;
        if (frame)
          frames.push_back({(line.points[0] + line.points[2]) * 0.5,
                            {1, 0},
                            (line.points[2].x - line.points[0].x) / 2,
                            (line.points[2].y - line.points[0].y) / 2});
        for (std::size_t i = 1; list != nullptr && i < line.points.size(); ++i)
          list->push_back({line.points[i - 1], line.points[i]});
      }
    }
  }

  /// The middle and the radius of a mark, as a box.
  static Box markOf(const AreaOperation& area) {
    SheetPoint low = area.outline.front(), high = low;
    for (const SheetPoint& point : area.outline) {
      low = {std::min(low.x, point.x), std::min(low.y, point.y)};
      high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    return boxOf(low, high);
  }

  std::vector<const SheetTextOperation*> texts;
  std::vector<Box> boxes;  ///< of the texts
  std::vector<Box> marks, frames;
  std::vector<Line> leaders, entered;
};

inline bool meet(const ChartPage::Line& a, const ChartPage::Line& b) {
  const auto side = [](const ChartPage::Line& line, SheetPoint point) {
    return cross(line.to - line.from, point - line.from) > 0;
  };
  return side(a, b.from) != side(a, b.to) && side(b, a.from) != side(b, a.to);
}

inline double distanceTo(const ChartPage::Line& line, SheetPoint place) {
  const SheetPoint way = line.to - line.from;
  const double part = std::clamp(dot(place - line.from, way) / dot(way, way), 0.0, 1.0);
  return distance(place, line.from + way * part);
}

/// Covers, crossings and overlaps of a page in words; nothing for none.
inline std::string coveredOn(const SheetDrawing& sheet, const ExtentFunction& extent) {
  const ChartPage page(sheet.pages.front(), sheet.paper, extent);
  std::string faults;
  const auto add = [&](const std::string& what) { faults += what + "; "; };
  for (std::size_t i = 0; i < page.boxes.size(); ++i) {
    const std::string& text = page.texts[i]->text;
    for (std::size_t j = 0; j < i; ++j) {
      if (overlap(page.boxes[i], page.boxes[j])) add(text + " over " + page.texts[j]->text);
    }
    const auto over = [&](const auto& line) { return crosses(page.boxes[i], line.from, line.to); };
    if (std::any_of(page.entered.begin(), page.entered.end(), over)) add(text + " over a line");
    if (std::any_of(page.leaders.begin(), page.leaders.end(), over)) add(text + " under a leader");
    const auto hides = [&](const Box& mark) { return overlap(page.boxes[i], mark); };
    if (std::any_of(page.marks.begin(), page.marks.end(), hides)) add(text + " over a mark");
  }
  for (const Box& frame : page.frames) {
    for (const auto& line : page.entered) {
      if (crosses(frame, line.from, line.to)) add("a read-out over a line");
    }
    for (const Box& mark : page.marks) {
      if (overlap(frame, mark)) add("a read-out over a mark");
    }
  }
  for (std::size_t i = 0; i < page.leaders.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (meet(page.leaders[i], page.leaders[j])) add("leaders cross");
    }
    for (const Box& mark : page.marks) {
      const double reach = distanceTo(page.leaders[i], mark.center);
      const bool own = std::abs(distance(page.leaders[i].from, mark.center) - mark.halfLength) < 0.01 &&
                       std::abs(reach - mark.halfLength) < 0.01;
      if (!own && reach < mark.halfLength) add("a leader over a mark");
    }
  }
  return faults;
}

}  // namespace moistair::test
