#include "chart/scales.h"

#include <span>

#include "engine/solvers.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Step of the horizontal fine grid. 0.03 - 0.01 falls short of 0.02 by a rounding, so those limits get the wide step.
double ratiogridstep(double hrspan) {
  if (hrspan <= 0.01) return 0.01 / 50;
  if (hrspan >= 0.02 && hrspan < 0.03) return 0.01 / 20;
  return 0.01 / 10;
}

double drybulbgridstep(double dbspan) {
  if (dbspan > 50) return 1;
  if (dbspan > 20) return 0.5;
  if (dbspan > 10) return 0.25;
  return 0.125;
}

/// Step of the major vertical lines and their numbers.
double drybulbstep(double dbspan) {
  if (dbspan > 50) return 10;
  if (dbspan > 20) return 5;
  return 1;
}

/// Step of the major horizontal lines and their numbers.
double ratiostep(double hrspan) { return hrspan > 0.01 ? 0.005 : 0.002; }

void drawbottomaxis(const Chart& chart) {
  const PlotArea& area = chart.area;
  chart.canvas.Line(area.left(), area.bottom(), area.right(), area.bottom());
}

/// A line of the horizontal grid runs from the saturation line to the right edge, or over the full width where its
/// ratio lies below saturation across the whole chart.
void drawratiogridline(const Chart& chart, double rise) {
  const PlotArea& area = chart.area;
  const ChartLimits& limits = area.limits;
  const double saturated = dbwithrhandhr(100, rise + limits.lowhr, chart.atmpressure, chart.way);
  const double y = area.bottom() - quotient(area.window.height * rise, area.frame.hrscale);
  double start = 0;
  if (saturated >= limits.lowdb && saturated <= limits.highdb) assign(start, area.plotx(saturated));
  const auto lineto = [&](double x) { chart.canvas.Line(x, y, area.right(), y, colors::finegrid); };
  if (start > 0) lineto(start);
  if (saturated < limits.lowdb || !hasvalue(saturated)) lineto(area.left());
  if (start == 0 && rise < 0.01) lineto(area.left());
}

void drawratiogrid(const Chart& chart) {
  const PlotArea& area = chart.area;
  const double step = ratiogridstep(area.frame.hrspan);
  double left = 0;
  int i = 0;
  do {
    ++i;
    drawratiogridline(chart, i * step);
    left = quotient(area.window.height * (area.frame.hrspan - i * step), area.frame.hrscale);
  } while (left >= area.window.height * 100.0 / 6000);
}

/// A vertical line at a dry bulb, from the bottom axis to the saturation line or to the top of the frame.
void drawdrybulbline(const Chart& chart, double db, double x, Color color) {
  const PlotArea& area = chart.area;
  const double saturated = psychro_wrh(db, 100, chart.atmpressure);
  if (saturated >= area.limits.lowhr && saturated <= area.limits.highhr) {
    chart.canvas.Line(x, area.bottom(), x, area.ploty(saturated), color);
  }
  if (saturated > area.limits.highhr) chart.canvas.Line(x, area.bottom(), x, area.top(), color);
}

void drawdrybulbgrid(const Chart& chart) {
  const PlotArea& area = chart.area;
  const double step = drybulbgridstep(area.frame.dbspan);
  const double width = area.window.width;
  double c = area.left();
  for (int i = 1; c <= width * 10.9 / 12; ++i) {
    const double x = quotient(width * i * step, area.frame.dbscale) + area.left();
    drawdrybulbline(chart, i * step + area.limits.lowdb, x, colors::finegrid);
    c += quotient(width * step, area.frame.dbscale);
  }
}

struct TitleLetter {
  const char* text;
  int height;  ///< above the bottom axis, in six-thousandths of the window
};

void printcolumn(const Chart& chart, double x, std::span<const TitleLetter> letters) {
  for (const TitleLetter& letter : letters) {
    chart.canvas.MoveTo(x, chart.area.bottom() - letter.height * chart.area.window.height / 6000);
    chart.canvas.Print(letter.text);
  }
}

/// A number of the vapour-pressure scale: the ratio that it stands for and its height above the bottom axis.
struct ScaleMark {
  double hr;
  int height;
};

struct VaporScale {
  double lowhr, highhr;
  std::array<ScaleMark, 6> marks;  ///< ends at the first mark of ratio 0
};

constexpr std::array<VaporScale, 6> vaporscales = {{
    {0, 0.01, {{{0.002, 950}, {0.004, 1850}, {0.006, 2750}, {0.008, 3650}, {0.01, 4500}}}},
    {0.01, 0.02, {{{0.01, 100}, {0.012, 950}, {0.014, 1850}, {0.016, 2750}, {0.018, 3650}, {0.02, 4500}}}},
    {0.02, 0.03, {{{0.02, 100}, {0.022, 950}, {0.024, 1850}, {0.026, 2750}, {0.028, 3650}, {0.03, 4500}}}},
    {0, 0.02, {{{0.005, 1150}, {0.01, 2300}, {0.015, 3450}, {0.02, 4500}}}},
    {0.01, 0.03, {{{0.01, 100}, {0.015, 1150}, {0.02, 2300}, {0.025, 3450}, {0.03, 4500}}}},
    {0, 0.03, {{{0.005, 800}, {0.01, 1550}, {0.015, 2300}, {0.02, 3050}, {0.025, 3800}, {0.03, 4500}}}},
}};

void printvapormarks(const Chart& chart, const VaporScale& scale) {
  const PlotArea& area = chart.area;
  for (const ScaleMark& mark : scale.marks) {
    if (mark.hr == 0) return;
    const std::string label = vaporlabel(area.limits.highdb, mark.hr, chart.atmpressure);
    if (label.empty()) continue;
    chart.canvas.MoveTo(area.left() - area.window.width * 0.5 / 12,
                        area.bottom() - area.window.height * mark.height / 6000);
    chart.canvas.Print(label);
  }
}

}  // namespace

void drawgrid(const Chart& chart) {
  if (chart.area.empty()) return;
  drawbottomaxis(chart);
  drawratiogrid(chart);
  chart.canvas.Line(chart.area.left(), chart.area.bottom(), chart.area.left(), chart.area.top());
  drawdrybulbgrid(chart);
}

void drawdbscale(const Chart& chart) {
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double y = 125.0 * area.window.height / 6000 + area.bottom();
  const double step = drybulbstep(area.frame.dbspan);
  const double shift = area.frame.dbspan > 20 ? 0.5 : 0.1;
  chart.canvas.MoveTo(area.left() - width * 0.1 / 12, y);
  chart.canvas.Print(printednumber(area.limits.lowdb));
  double number = area.limits.lowdb + step;
  double c = area.left();
  for (int i = 1; c <= width; ++i) {
    const double x = quotient(width * i * step, area.frame.dbscale) + area.left();
    chart.canvas.MoveTo(x - quotient(width * shift, area.frame.dbscale), y);
    if (number <= area.limits.highdb + 0.01) chart.canvas.Print(printednumber(number));
    const double db = i * step + area.limits.lowdb;
    if (db <= area.limits.highdb) drawdrybulbline(chart, db, x, colors::majorline);
    c += width * step / 120;
    number += step;
  }
}

void drawhrscale(const Chart& chart) {
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double height = area.window.height;
  chart.canvas.MoveTo((area.left() - width * 0.6 / 12) + width * 5350 / 6000, area.bottom() - height * 100 / 6000);
  chart.canvas.Print(printednumber(area.limits.lowhr));
  const double step = ratiostep(area.frame.hrspan);
  double q = height * 4700 / 6000;
  for (int i = 1; q >= height * 700 / 6000; ++i) {
    const double y = area.bottom() - quotient(height * i * step, area.frame.hrscale);
    chart.canvas.MoveTo((area.left() - width * 0.4 / 12) + width * 5200 / 6000,
                        y - quotient(height * 0.0001, area.frame.hrscale));
    chart.canvas.Print(printednumber(area.limits.lowhr + step * i));
    chart.canvas.Line(area.left(), y, area.right(), y, colors::majorline);
    q = height * (4700 - i * step * 50000) / 6000;
  }
}

void drawtitles(const Chart& chart, std::string_view header) {
  constexpr std::array<TitleLetter, 8> humidity = {
      {{"H", 3500}, {"u", 3300}, {"m", 3100}, {"i", 2900}, {"d", 2700}, {"i", 2500}, {"t", 2300}, {"y", 2100}}};
  constexpr std::array<TitleLetter, 1> ratio = {{{"Ratio", 1900}}};
  constexpr std::array<TitleLetter, 1> unit = {{{"(lb/lb of air)", 1800}}};
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  const double height = area.window.height;
  const auto column = [&](double shift) { return (area.left() - width * shift / 12) + width * 5650 / 6000; };
  drawbottomaxis(chart);
  chart.canvas.MoveTo(width * 4.5 / 12 + area.left(), 250 * height / 6000 + area.bottom());
  chart.canvas.Print("Dry Bulb temp(Deg F)");
  printcolumn(chart, column(0.8), humidity);
  printcolumn(chart, column(0.9), ratio);
  printcolumn(chart, column(0.95), unit);
  chart.canvas.MoveTo(area.left() - width * 0.8 / 12, 300 * height / 6000 + area.bottom());
  chart.canvas.Print("Moistair");
  printheader(chart.canvas, area.window, header);
}

void drawvaporscale(const Chart& chart) {
  constexpr std::array<TitleLetter, 8> vapor = {
      {{"V", 3500}, {"a", 3300}, {"p", 3100}, {"o", 2900}, {"r", 2700}, {"", 2500}, {"p", 2300}, {"r", 2100}}};
  constexpr std::array<TitleLetter, 1> unit = {{{"(In hg)", 1900}}};
  const PlotArea& area = chart.area;
  if (area.empty()) return;
  const double width = area.window.width;
  if (area.limits.lowhr == 0) {
    chart.canvas.MoveTo(area.left() - width * 0.2 / 12, area.bottom() - area.window.height * 100.0 / 6000);
    chart.canvas.Print("0");
  }
  for (const VaporScale& scale : vaporscales) {
    if (scale.lowhr == area.limits.lowhr && scale.highhr == area.limits.highhr) printvapormarks(chart, scale);
  }
  printcolumn(chart, area.left() - width * 0.8 / 12, vapor);
  printcolumn(chart, area.left() - width * 0.9 / 12, unit);
}

void printheader(ChartCanvas& canvas, WindowSize window, std::string_view header) {
  if (header.empty()) return;
  const PlotArea area{{}, {}, window};
  canvas.MoveTo(area.left() - window.width * 0.8 / 12, area.bottom() - 4650.0 * window.height / 6000);
  canvas.Print(header);
}

std::string vaporlabel(double db, double hr, double atmpressure) {
  const SearchResult wb = wbwithdbandhr(db, hr, atmpressure);
  if (wb.failed()) return {};
  const double pv = psychro_pv1(db, wb.x, atmpressure);
  return pv >= 0 ? fixeddecimals(pv, 4) : std::string();
}

}  // namespace moistair
