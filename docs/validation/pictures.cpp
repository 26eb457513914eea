#include "pictures.h"

#include <cmath>
#include <iterator>

#include "cli/properties.h"
#include "engine/exactsolutions.h"
#include "engine/moistair.h"
#include "engine/vaporterms.h"
#include "svg.h"
#include "text/numbertext.h"

namespace moistair::validation {

namespace {

constexpr const char* ink = "#1b1f24";
constexpr const char* rule = "#c4cad1";
constexpr const char* blue = "#0b57a4";
constexpr const char* orange = "#b35900";
constexpr const char* red = "#c00020";
constexpr const char* band = "#f6dfc4";

/// From a difference in percent to its logarithm, with a straight piece about 0.
double bent(double percent) { return std::copysign(std::log10(1 + std::abs(percent) / 0.01), percent); }

std::string signedText(double number, int decimals) {
  return (number > 0 ? "+" : "") + fixedDecimals(number, decimals);
}

/// A plot's ground: a frame with ticks along both sides.
struct Plot {
  Axis x, y;
  int xDecimals, yDecimals;
  double xStep, yStep;
};

void drawGround(Svg& svg, const Plot& plot, const char* xTitle, const char* yTitle) {
  for (int i = 0; plot.x.low + i * plot.xStep < plot.x.high + plot.xStep / 2; ++i) {
    const double value = plot.x.low + i * plot.xStep;
    svg.line({plot.x.at(value), plot.y.start}, {plot.x.at(value), plot.y.stop}, rule);
    svg.text({plot.x.at(value), plot.y.start + 16}, fixedDecimals(value, plot.xDecimals), "middle", 11);
  }
  for (int i = 0; plot.y.low + i * plot.yStep < plot.y.high + plot.yStep / 2; ++i) {
    const double value = plot.y.low + i * plot.yStep;
    svg.line({plot.x.start, plot.y.at(value)}, {plot.x.stop, plot.y.at(value)}, rule);
    svg.text({plot.x.start - 6, plot.y.at(value) + 4}, fixedDecimals(value, plot.yDecimals), "end", 11);
  }
  svg.text({(plot.x.start + plot.x.stop) / 2, plot.y.start + 36}, xTitle, "middle");
  svg.text({plot.x.start - 34, plot.y.stop - 12}, yTitle);
}

/// f between two x of a plot, as a curve.
template <class F>
void drawCurve(Svg& svg, const Plot& plot, const F& spot, double low, double high, const char* color) {
  constexpr int pieces = 60;
  std::vector<Spot> spots;
  for (int i = 0; i <= pieces; ++i) {
    const Spot value = spot(low + (high - low) * i / pieces);
    spots.push_back({plot.x.at(value.x), plot.y.at(value.y)});
  }
  svg.curve(spots, color);
}

void drawDewPoint(Svg& svg) {
  const Plot plot{{0.176, 0.186, 60, 360}, {31.4, 33, 290, 50}, 3, 1, 0.002, 0.2};
  const double before = std::nextafter(formsMeet, 0);
  const double low = psychro_dp(before);
  const double high = psychro_dp(formsMeet);
  svg.box({plot.x.start, plot.y.at(high)}, 300, plot.y.at(low) - plot.y.at(high), band);
  drawGround(svg, plot, "vapor pressure, in Hg", "dew point, deg F");
  const auto spot = [](double pv) { return Spot{pv, psychro_dp(pv)}; };
  drawCurve(svg, plot, spot, plot.x.low, before, blue);
  drawCurve(svg, plot, spot, formsMeet, plot.x.high, blue);
  svg.text({plot.x.start + 6, plot.y.at((low + high) / 2) + 4}, "no air", "start", 11);
}

void drawWetBulbs(Svg& svg, double atm) {
  constexpr double dryBulb = 40;
  constexpr double ratio = 0.00205;
  const Plot plot{{0.0016, 0.0026, 450, 750}, {31, 33, 290, 50}, 4, 1, 0.0002, 0.2};
  drawGround(svg, plot, "humidity ratio at a dry bulb of 40 deg F", "wet bulb, deg F");
  svg.line({plot.x.at(ratio), plot.y.start}, {plot.x.at(ratio), plot.y.stop}, orange, 1.5);
  const auto spot = [&](double wb) { return Spot{psychro_w(dryBulb, wb, atm), wb}; };
  drawCurve(svg, plot, spot, plot.y.low, iceWetBulb, blue);
  drawCurve(svg, plot, spot, std::nextafter(iceWetBulb, 33), plot.y.high, blue);
  for (const StatePoint& state : exactSolutions({PropertyKind::db, dryBulb}, {PropertyKind::w, ratio}, atm).states) {
    svg.dots({{plot.x.at(state.w), plot.y.at(state.wb)}}, 4.5, orange);
  }
}

struct Mark {
  Outcome outcome;
  const char* words;
};

constexpr Mark marks[] = {
    {Outcome::right, "found"}, {Outcome::visiblyOff, "found, visibly off"}, {Outcome::notFound, "not found"}};

void drawMarks(Svg& svg, const std::vector<Spot>& spots, Outcome outcome) {
  switch (outcome) {
    case Outcome::right: svg.dots(spots, 1.3, blue); break;
    case Outcome::visiblyOff: svg.dots(spots, 2.8, orange); break;
    case Outcome::notFound: svg.crosses(spots, 2.6, red); break;
  }
}

}  // namespace

std::string differencePicture(const std::vector<Comparison>& rows) {
  constexpr double rowHeight = 19;
  constexpr double top = 40;
  const double height = top + rowHeight * static_cast<double>(rows.size()) + 10;
  Svg svg(800, height, "Difference of the model from each published figure in percent");
  const Axis axis{bent(-10), bent(10), 340, 740};
  for (const double percent : {-10.0, -1.0, -0.1, 0.0, 0.1, 1.0, 10.0}) {
    const double x = axis.at(bent(percent));
    svg.line({x, top - 6}, {x, height - 10}, percent == 0 ? ink : rule);
    svg.text({x, top - 12}, (percent > 0 ? "+" : "") + numberText(percent) + " %", "middle", 11);
  }
  double y = top;
  for (const Comparison& row : rows) {
    y += rowHeight;
    if (!row.inPercent) {
      y -= rowHeight;
      continue;
    }
    const double from = axis.at(0);
    const double to = axis.at(bent(row.difference));
    const bool large = std::abs(row.difference) >= 1;
    svg.text({250, y - 5}, row.caption, "end", 11);
    svg.text({258, y - 5}, row.condition, "start", 11);
    svg.box({std::fmin(from, to), y - 15}, std::abs(to - from), 12, large ? orange : blue);
    svg.text({row.difference < 0 ? to - 4 : to + 4, y - 5}, signedText(row.difference, 2),
             row.difference < 0 ? "end" : "start", 10);
  }
  return svg.picture();
}

std::string freezingPicture(double atm) {
  Svg svg(800, 340, "The dew point jumps from 31.996 to 32.214; the same air has two wet bulbs about 32");
  drawDewPoint(svg);
  drawWetBulbs(svg, atm);
  return svg.picture();
}

std::string pairsPicture(const std::vector<PairMeasure>& pairs) {
  constexpr double width = 160;
  constexpr double height = 120;
  constexpr int across = 5;
  const auto down = (static_cast<int>(pairs.size()) + across - 1) / across;
  Svg svg(across * width, 40 + down * height, "What the search of each pair makes of the states of the grid");
  double x = 20;
  for (const Mark& mark : marks) {
    drawMarks(svg, {{x, 18}}, mark.outcome);
    svg.text({x + 10, 22}, mark.words);
    x += 160;
  }
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const double left = width * static_cast<double>(i % across) + 8;
    const double top = 40 + height * static_cast<double>(i / across);
    const Axis dryBulb{0, 120, left, left + width - 16};
    const Axis ratio{0, 0.03, top + height - 10, top + 18};
    svg.text({left, top + 12}, std::string(nameOf(pairs[i].kinds[0])) + ", " + nameOf(pairs[i].kinds[1]));
    svg.line({dryBulb.start, ratio.start}, {dryBulb.stop, ratio.start}, rule);
    svg.line({dryBulb.stop, ratio.start}, {dryBulb.stop, ratio.stop}, rule);
    for (const Mark& mark : marks) {
      std::vector<Spot> spots;
      for (const Trial& trial : pairs[i].trials) {
        if (trial.outcome != mark.outcome) continue;
        spots.push_back({dryBulb.at(trial.state.db), ratio.at(trial.state.w)});
      }
      drawMarks(svg, spots, mark.outcome);
    }
  }
  return svg.picture();
}

}  // namespace moistair::validation
