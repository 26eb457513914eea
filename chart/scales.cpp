#include "chart/scales.h"

#include <span>

#include "engine/solvers.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Step of the horizontal fine grid. 0.03 - 0.01 falls short of 0.02 by a rounding, so those limits get the wide step.
double ratioGridStep(double hrSpan) {
  if (hrSpan <= 0.01) return 0.01 / 50;
  if (hrSpan >= 0.02 && hrSpan < 0.03) return 0.01 / 20;
  return 0.01 / 10;
}

double dryBulbGridStep(double dbSpan) {
  if (dbSpan > 50) return 1;
  if (dbSpan > 20) return 0.5;
  if (dbSpan > 10) return 0.25;
  return 0.125;
}

/// Step of the major vertical lines and their numbers.
double dryBulbStep(double dbSpan) {
  if (dbSpan > 50) return 10;
  if (dbSpan > 20) return 5;
  return 1;
}

/// Step of the major horizontal lines and their numbers.
double ratioStep(double hrSpan) { return hrSpan > 0.01 ? 0.005 : 0.002; }

void drawBottomAxis(const Chart& chart) {
  const PlotArea& area = chart.area;
  chart.canvas.line(area.left(), area.bottom(), area.right(), area.bottom());
}

/// A line of the horizontal grid runs from the saturation line to the right edge, or over the full width where its
/// ratio lies below saturation across the whole chart.
void drawRatioGridLine(const Chart& chart, double rise) {
  const PlotArea& area = chart.area;
  const ChartLimits& limits = area.limits;
  const double saturated = dbWithRhAndHr(100, rise + limits.lowHr, chart.atmPressure, chart.mode);
  const double y = area.bottom() - quotient(area.window.height * rise, area.frame.hrScale);
  double start = 0;
  if (saturated >= limits.lowDb && saturated <= limits.highDb) assign(start, area.plotX(saturated));
  const auto lineTo = [&](double x) { chart.canvas.line(x, y, area.right(), y, colors::fineGrid); };
  if (start > 0) lineTo(start);
  if (saturated < limits.lowDb || !hasValue(saturated)) lineTo(area.left());
  if (start == 0 && rise < 0.01) lineTo(area.left());
}

void drawRatioGrid(const Chart& chart) {
  const PlotArea& area = chart.area;
  const double step = ratioGridStep(area.frame.hrSpan);
  double left = 0;
  int i = 0;
  do {
    ++i;
    drawRatioGridLine(chart, i * step);
    left = quotient(area.window.height * (area.frame.hrSpan - i * step), area.frame.hrScale);
  } while (left >= area.window.height * 100.0 / 6000);
}

/// A vertical line at a dry bulb, from the bottom axis to the saturation line or to the top of the frame.
void drawDryBulbLine(const Chart& chart, double db, double x, Color color) {
  const PlotArea& area = chart.area;
  const double saturated = psychro_wrh(db, 100, chart.atmPressure);
  if (saturated >= area.limits.lowHr && saturated <= area.limits.highHr) {
    chart.canvas.line(x, area.bottom(), x, area.plotY(saturated), color);
  }
  if (saturated > area.limits.highHr) chart.canvas.line(x, area.bottom(), x, area.top(), color);
}

void drawDryBulbGrid(const Chart& chart) {
  const PlotArea& area = chart.area;
  const double step = dryBulbGridStep(area.frame.dbSpan);
  const double width = area.window.width;
  double c = area.left();
  for (int i = 1; c <= width * 10.9 / 12; ++i) {
    const double x = quotient(width * i * step, area.frame.dbScale) + area.left();
    drawDryBulbLine(chart, i * step + area.limits.lowDb, x, colors::fineGrid);
    c += quotient(width * step, area.frame.dbScale);
  }
}

struct TitleLetter {
  const char* text;
  int height;  ///< above the bottom axis, in six-thousandths of the window
};

void printColumn(const Chart& chart, double x, std::span<const TitleLetter> letters) {
  for (const TitleLetter& letter : letters) {
    chart.canvas.moveTo(x, chart.area.bottom() - letter.height * chart.area.window.height / 6000);
    chart.canvas.print(letter.text);
  }
}

/// A number of the vapor-pressure scale: the ratio that it is for and its height above the bottom axis.
struct ScaleMark {
  double hr;
  int height;
};

struct VaporScale {
  double lowHr, highHr;
  std::array<ScaleMark, 6> marks;  ///< ends at the first mark of ratio 0
};

constexpr std::array<VaporScale, 6> vaporScales = {{
    {0, 0.01, {{{0.002, 950}, {0.004, 1850}, {0.006, 2750}, {0.008, 3650}, {0.01, 4500}}}},
    {0.01, 0.02, {{{0.01, 100}, {0.012, 950}, {0.014, 1850}, {0.016, 2750}, {0.018, 3650}, {0.02, 4500}}}},
    {0.02, 0.03, {{{0.02, 100}, {0.022, 950}, {0.024, 1850}, {0.026, 2750}, {0.028, 3650}, {0.03, 4500}}}},
    {0, 0.02, {{{0.005, 1150}, {0.01, 2300}, {0.015, 3450}, {0.02, 4500}}}},
    {0.01, 0.03, {{{0.01, 100}, {0.015, 1150}, {0.02, 2300}, {0.025, 3450}, {0.03, 4500}}}},
    {0, 0.03, {{{0.005, 800}, {0.01, 1550}, {0.015, 2300}, {0.02, 3050}, {0.025, 3800}, {0.03, 4500}}}},
}};

void printVaporMarks(const Chart& chart, const VaporScale& scale) {
  const PlotArea& area = chart.area;
  for (const ScaleMark& mark : scale.marks) {
    if (mark.hr == 0) return;
    const std::string label = vaporLabel(area.limits.highDb, mark.hr, chart.atmPressure);
    if (label.empty()) continue;
    chart.canvas.moveTo(area.left() - area.window.width * 0.5 / 12,
                        area.bottom() - area.window.height * mark.height / 6000);
    chart.canvas.print(label);
  }
}

}  // namespace

void drawGrid(const Chart& chart) {
  if (chart.area.empty()) return;
  drawBottomAxis(chart);
  drawRatioGrid(chart);
  chart.canvas.line(chart.area.left(), chart.area.bottom(), chart.area.left(), chart.area.top());
  drawDryBulbGrid(chart);
}

void drawDbScale(const Chart& chart) {
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double y = 125.0 * area.window.height / 6000 + area.bottom();
  const double step = dryBulbStep(area.frame.dbSpan);
  const double shift = area.frame.dbSpan > 20 ? 0.5 : 0.1;
  chart.canvas.moveTo(area.left() - width * 0.1 / 12, y);
  chart.canvas.print(printedNumber(area.limits.lowDb));
  double number = area.limits.lowDb + step;
  double c = area.left();
  for (int i = 1; c <= width; ++i) {
    const double x = quotient(width * i * step, area.frame.dbScale) + area.left();
    chart.canvas.moveTo(x - quotient(width * shift, area.frame.dbScale), y);
    if (number <= area.limits.highDb + 0.01) chart.canvas.print(printedNumber(number));
    const double db = i * step + area.limits.lowDb;
    if (db <= area.limits.highDb) drawDryBulbLine(chart, db, x, colors::majorLine);
    c += width * step / 120;
    number += step;
  }
}

void drawHrScale(const Chart& chart) {
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double height = area.window.height;
  chart.canvas.moveTo((area.left() - width * 0.6 / 12) + width * 5350 / 6000, area.bottom() - height * 100 / 6000);
  chart.canvas.print(printedNumber(area.limits.lowHr));
  const double step = ratioStep(area.frame.hrSpan);
  double q = height * 4700 / 6000;
  for (int i = 1; q >= height * 700 / 6000; ++i) {
    const double y = area.bottom() - quotient(height * i * step, area.frame.hrScale);
    chart.canvas.moveTo((area.left() - width * 0.4 / 12) + width * 5200 / 6000,
                        y - quotient(height * 0.0001, area.frame.hrScale));
    chart.canvas.print(printedNumber(area.limits.lowHr + step * i));
    chart.canvas.line(area.left(), y, area.right(), y, colors::majorLine);
    q = height * (4700 - i * step * 50000) / 6000;
  }
}

void drawTitles(const Chart& chart, std::string_view header) {
  constexpr std::array<TitleLetter, 8> humidity = {
      {{"H", 3500}, {"u", 3300}, {"m", 3100}, {"i", 2900}, {"d", 2700}, {"i", 2500}, {"t", 2300}, {"y", 2100}}};
  constexpr std::array<TitleLetter, 1> ratio = {{{"Ratio", 1900}}};
  constexpr std::array<TitleLetter, 1> unit = {{{"(lb/lb of air)", 1800}}};
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double height = area.window.height;
  const auto column = [&](double shift) { return (area.left() - width * shift / 12) + width * 5650 / 6000; };
  drawBottomAxis(chart);
  chart.canvas.moveTo(width * 4.5 / 12 + area.left(), 250 * height / 6000 + area.bottom());
  chart.canvas.print("Dry Bulb temp(Deg F)");
  printColumn(chart, column(0.8), humidity);
  printColumn(chart, column(0.9), ratio);
  printColumn(chart, column(0.95), unit);
  chart.canvas.moveTo(area.left() - width * 0.8 / 12, 300 * height / 6000 + area.bottom());
  chart.canvas.print("Moistair");
  printHeader(chart.canvas, area.window, header);
}

void drawVaporScale(const Chart& chart) {
  constexpr std::array<TitleLetter, 8> vapor = {
      {{"V", 3500}, {"a", 3300}, {"p", 3100}, {"o", 2900}, {"r", 2700}, {"", 2500}, {"p", 2300}, {"r", 2100}}};
  constexpr std::array<TitleLetter, 1> unit = {{{"(In hg)", 1900}}};
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  if (area.limits.lowHr == 0) {
    chart.canvas.moveTo(area.left() - width * 0.2 / 12, area.bottom() - area.window.height * 100.0 / 6000);
    chart.canvas.print("0");
  }
  for (const VaporScale& scale : vaporScales) {
    if (scale.lowHr == area.limits.lowHr && scale.highHr == area.limits.highHr) printVaporMarks(chart, scale);
  }
  printColumn(chart, area.left() - width * 0.8 / 12, vapor);
  printColumn(chart, area.left() - width * 0.9 / 12, unit);
}

void printHeader(ChartCanvas& canvas, WindowSize window, std::string_view header) {
  if (header.empty()) return;
  const PlotArea area{{}, {}, window};
  canvas.moveTo(area.left() - window.width * 0.8 / 12, area.bottom() - 4650.0 * window.height / 6000);
  canvas.print(header);
}

std::string vaporLabel(double db, double hr, double atmPressure) {
  const SearchResult wb = wbWithDbAndW(db, hr, atmPressure);
  if (wb.failed()) return {};
  const double pv = psychro_pv1(db, wb.x, atmPressure);
  return pv >= 0 ? fixedDecimals(pv, 4) : std::string();
}

}  // namespace moistair
