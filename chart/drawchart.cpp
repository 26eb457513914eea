#include "chart/drawchart.h"

#include "chart/propertylines.h"

namespace moistair {

void drawchart(const Chart& chart, ChartType type, const HeaderTexts& header) {
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
