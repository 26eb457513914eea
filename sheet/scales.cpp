// The scales of a sheet along the bottom and on the right.
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "engine/moistair.h"
#include "engine/vaporterms.h"
#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

constexpr double finetick = 0.3;  // em
constexpr double middletick = 0.5;
constexpr double maintick = 0.75;
constexpr double numbergap = 0.25;
constexpr double titlegap = 0.55;
constexpr double titlesize = 0.85;

/// One of the scales on the right: what stands at a humidity ratio.
struct RightScale {
  const char* title;
  const char* shorttitle;
  std::vector<double> fine, main;             ///< values of the ticks and of the numbers
  int decimals;                               ///< of the numbers
  std::function<double(double value)> ratio;  ///< humidity ratio at a value
};

/// Steps by the pixels that a value takes, those between two numbers being five or so.
struct Steps {
  double fine, main;
};

Steps stepsof(std::initializer_list<double> steps, double pervalue, double em, double numbers) {
  return {stepfrom(steps, 0.42 * em / pervalue), stepfrom(steps, numbers * em / pervalue)};
}

/// Dew points lie ever closer in humidity ratio the colder they are: within five or ten degrees all have the step that
/// suits the coldest.
RightScale dewpointscale(const SheetWork& work) {
  RightScale scale{"Dew point, °F", "°F", {}, {}, 0, {}};
  scale.ratio = [atm = work.plot.atm](double dewpoint) { return ratioof(pressureOfDewPoint(dewpoint), atm); };
  const auto suits = [&](double dewpoint, double step, double within, double em) {
    const double coldest = std::floor((dewpoint - 0.5) / within) * within;
    const double pixels = (scale.ratio(coldest + step) - scale.ratio(coldest)) * work.plot.perw();
    return ismultiple(dewpoint, step) && pixels >= em * work.em();
  };
  const auto hasstep = [&](double dewpoint, double em) {
    return suits(dewpoint, 1, 5, em) || suits(dewpoint, 5, 10, em) || suits(dewpoint, 10, 10, 0.65 * em);
  };
  for (double dewpoint = -40; dewpoint <= 200; ++dewpoint) {
    const double w = scale.ratio(dewpoint);
    if (!(w >= work.plot.limits.lowhr && w <= work.boundary.highhr)) continue;
    if (hasstep(dewpoint, 0.42)) scale.fine.push_back(dewpoint);
    if (hasstep(dewpoint, 2)) scale.main.push_back(dewpoint);
  }
  return scale;
}

std::vector<RightScale> rightscales(const SheetWork& work) {
  const double em = work.em();
  const double perw = work.plot.perw();
  const double low = work.plot.limits.lowhr;
  const double high = work.boundary.highhr;
  const double atm = work.plot.atm;
  std::vector<RightScale> scales;
  const auto add = [&](const char* title, const char* shorttitle, const Steps& steps, double from, double to,
                       std::function<double(double)> ratio) {
    scales.push_back({title, shorttitle, multiples(from, to, steps.fine), multiples(from, to, steps.main),
                      decimalsof(steps.main), std::move(ratio)});
  };
  add("Humidity ratio, lb of moisture per lb of dry air", "lb/lb",
      stepsof({0.0001, 0.0002, 0.0005, 0.001, 0.002, 0.005, 0.01}, perw, em, 2.2), low, high,
      [](double w) { return w; });
  add("Grains of moisture per lb of dry air", "gr/lb",
      stepsof({0.5, 1, 2, 5, 10, 20, 50}, perw / grainsPerPound, em, 2), low * grainsPerPound, high * grainsPerPound,
      [](double grains) { return grains / grainsPerPound; });
  const double perpressure = perw * ratioof(pressureofratio(high, atm), atm) / pressureofratio(high, atm);
  add("Vapor pressure, in Hg", "in Hg", stepsof({0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5}, perpressure, em, 2.2),
      pressureofratio(low, atm), pressureofratio(high, atm), [atm](double pv) { return ratioof(pv, atm); });
  scales.push_back(dewpointscale(work));
  return scales;
}

double numberwidth(const SheetCanvas& canvas, const RightScale& scale, double em) {
  double width = 0;
  for (const double value : scale.main) {
    width = std::max(width, canvas.widthof(typeset(value, scale.decimals), {em, false, {}}));
  }
  return width;
}

/// From a scale's rule to the next.
double columnwidth(double numbers, double em) {
  return (maintick + numbergap + titlegap + titlesize + titlegap) * em + numbers;
}

void tick(SheetWork& work, SheetPoint at, SheetPoint outward, double size) {
  const Stroke& stroke = work.theme.scale;
  work.canvas.polyline({at, at + outward * (size * work.em())}, stroke.width, stroke.color);
}

void drawrightscale(SheetWork& work, const RightScale& scale, double x, double numbers) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const double top = plot.at(0, work.boundary.highhr).y;
  const auto yof = [&](double value) { return plot.at(0, scale.ratio(value)).y; };
  const auto within = [&](double y) { return y >= top - 0.01 && y <= plot.bottom + 0.01; };
  if (x > plot.right)
    work.canvas.polyline({{x, plot.bottom}, {x, top}}, work.theme.scale.width, work.theme.scale.color);
  work.board.wall({{x, plot.bottom}, {x, top}});
  for (const double value : scale.fine) {
    if (within(yof(value))) tick(work, {x, yof(value)}, {1, 0}, ismultiple(value, 5) ? middletick : finetick);
  }
  const TextStyle style = work.theme.text(em);
  for (const double value : scale.main) {
    const double y = yof(value);
    if (!within(y)) continue;
    tick(work, {x, y}, {1, 0}, maintick);
    const std::string number = typeset(value, scale.decimals);
    SheetTextOperation text = centred(work.canvas, {0, y}, number, style);
    text.at.x = x + (maintick + numbergap) * em + numbers;
    text.anchor = Anchor::end;
    work.board.add({importance::scale + (ismultiple(value, 10) ? 50 : 0), {{text, 0, {}}}, false});
  }
  Label title{importance::caption, {}, false};
  const SheetPoint middle{x + (maintick + numbergap + titlegap + titlesize / 2) * em + numbers,
                          (top + plot.bottom) / 2};
  const TextStyle small = work.theme.text(titlesize * em);
  double cost = 0;
  for (const char* words : {scale.title, scale.shorttitle}) {
    title.places.push_back({centred(work.canvas, middle, words, small, -90), cost++, {}});
  }
  const SheetPoint below{middle.x - (maintick + numbergap) * em / 2 - numbers / 2, plot.bottom + 1.6 * em};
  title.places.push_back({centred(work.canvas, below, scale.shorttitle, small), cost, {}});
  work.board.add(std::move(title));
}

}  // namespace

double bottomroom(double em) { return (maintick + numbergap + 1 + titlegap + 1 + titlegap) * em; }

/// Before there is a plot the numbers are not known; these are as wide as they get.
double rightroom(const SheetCanvas& canvas, const SheetOptions& options, const ChartLimits&) {
  const double em = options.lettersize;
  double room = 0;
  for (const char* widest : {"0.0200", "200", "0.90", "90"}) {
    room += columnwidth(canvas.widthof(widest, {em, false, {}}), em);
  }
  return room;
}

void drawrightscales(SheetWork& work) {
  double x = work.plot.right;
  for (const RightScale& scale : rightscales(work)) {
    const double numbers = numberwidth(work.canvas, scale, work.em());
    drawrightscale(work, scale, x, numbers);
    x += columnwidth(numbers, work.em());
  }
}

void drawbottomscale(SheetWork& work) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const Steps steps = stepsof({0.1, 0.2, 0.5, 1, 2, 5, 10, 20}, plot.perdb(), em, 3.2);
  const auto& [low, high, lowhr, highhr] = plot.limits;
  const double first = std::max(low, work.boundary.lowdb - 1e-9);
  const double middlestep = stepfrom({0.5, 1, 5, 10, 50}, 2 * steps.fine);
  for (const double db : multiples(first, high, steps.fine)) {
    tick(work, plot.at(db, lowhr), {0, 1}, ismultiple(db, middlestep) ? middletick : finetick);
  }
  for (const double db : multiples(first, high, steps.main)) {
    const SheetPoint at = plot.at(db, lowhr);
    tick(work, at, {0, 1}, maintick);
    const std::string number = typeset(db, decimalsof(steps.main));
    const SheetTextOperation text =
        beside(work.canvas, at, {0, 1}, (maintick + numbergap) * em, number, work.theme.text(em));
    work.board.add({importance::scale + (ismultiple(db, 10) ? 50 : 0), {{text, 0, {}}}, false});
  }
  const SheetPoint middle{(plot.at(first, lowhr).x + plot.right) / 2,
                          plot.bottom + (maintick + numbergap + 1 + titlegap + 0.5) * em};
  Label title{importance::caption + 1, {}, false};
  title.places.push_back({centred(work.canvas, middle, "Dry bulb temperature, °F", work.theme.text(em)), 0, {}});
  title.places.push_back({centred(work.canvas, middle, "°F", work.theme.text(em)), 1, {}});
  work.board.add(std::move(title));
}

}  // namespace moistair
