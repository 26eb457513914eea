#include "chart/drawchart.h"

#include "chart/propertylines.h"
#include "chart/scales.h"

namespace moistair {

void drawChart(const Chart& chart, ChartType type, std::string_view header) {
  drawGrid(chart);
  if (type == ChartType::standard) {
    drawRhLines(chart);
    drawWbLines(chart);
    drawVolLines(chart);
  } else {
    drawSatLine(chart);
  }
  drawDbScale(chart);
  drawHrScale(chart);
  drawTitles(chart, header);
  drawVaporScale(chart);
}

}  // namespace moistair
