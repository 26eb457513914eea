#include "chart/drawchart.h"

#include "chart/propertylines.h"
#include "chart/scales.h"

namespace moistair {

void drawchart(const Chart& chart, ChartType type, std::string_view header) {
  drawgrid(chart);
  if (type == ChartType::standard) {
    drawrhlines(chart);
    drawwblines(chart);
    drawvollines(chart);
  } else {
    drawsatline(chart);
  }
  drawdbscale(chart);
  drawhrscale(chart);
  drawtitles(chart, header);
  drawvaporscale(chart);
}

}  // namespace moistair
