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

constexpr double fineTick = 0.3;  // em
constexpr double middleTick = 0.5;
constexpr double mainTick = 0.75;
constexpr double numberGap = 0.25;
constexpr double titleGap = 0.4;   // to the numbers that it belongs to
constexpr double scaleGap = 0.85;  // to the next scale
constexpr double titleSize = 0.85;
constexpr double bottomScale = mainTick + numberGap + 1 + titleGap + 1 + titleGap;
constexpr double secondHalf = mainTick + numberGap + 1 + 0.3;  // of the enthalpy scale, below the dry bulbs

/// One of the scales on the right: the number at a humidity ratio.
struct RightScale {
  const char* title;
  const char* shortTitle;
  std::vector<double> fine, main;             ///< values of the ticks and of the numbers
  int decimals;                               ///< of the numbers
  std::function<double(double value)> ratio;  ///< humidity ratio at a value
};

/// Steps by the pixels that a value takes, those between two numbers being five or so.
struct Steps {
  double fine, main;
};

Steps stepsOf(std::initializer_list<double> steps, double perValue, double em, double numbers) {
  return {stepFrom(steps, 0.42 * em / perValue), stepFrom(steps, numbers * em / perValue)};
}

/// Dew points lie ever closer in humidity ratio the colder they are: within ten degrees all have the step that suits
/// the coldest, so that the numbers thin out from ones to twos, fives and tens.
RightScale dewPointScale(const SheetWork& work) {
  RightScale scale{"Dew point, °F", "°F", {}, {}, 0, {}};
  scale.ratio = [atm = work.plot.atm](double dewPoint) { return ratioOf(pressureOfDewPoint(dewPoint), atm); };
  const auto suits = [&](double step, double dewPoint, double em) {
    const double coldest = std::floor((dewPoint - 0.5) / 10) * 10;
    const double pixels = (scale.ratio(coldest + step) - scale.ratio(coldest)) * work.plot.perW();
    return pixels >= em * work.em();
  };
  const auto hasStep = [&](double dewPoint, double em) {
    for (const double step : {1.0, 2.0, 5.0}) {
      if (suits(step, dewPoint, em)) return isMultiple(dewPoint, step);
    }
    return isMultiple(dewPoint, 10) && suits(10, dewPoint, 0.65 * em);
  };
  for (double dewPoint = -40; dewPoint <= 200; ++dewPoint) {
    const double w = scale.ratio(dewPoint);
    if (!(w >= work.plot.limits.lowHr && w <= work.boundary.highHr)) continue;
    if (hasStep(dewPoint, 0.42)) scale.fine.push_back(dewPoint);
    if (hasStep(dewPoint, 2)) scale.main.push_back(dewPoint);
  }
  return scale;
}

std::vector<RightScale> rightScales(const SheetWork& work) {
  const double em = work.em();
  const double perW = work.plot.perW();
  const double low = work.plot.limits.lowHr;
  const double high = work.boundary.highHr;
  const double atm = work.plot.atm;
  std::vector<RightScale> scales;
  const auto add = [&](const char* title, const char* shortTitle, const Steps& steps, double from, double to,
                       std::function<double(double)> ratio) {
    scales.push_back({title, shortTitle, multiples(from, to, steps.fine), multiples(from, to, steps.main),
                      decimalsOf(steps.main), std::move(ratio)});
  };
  add("Humidity ratio, lb of moisture per lb of dry air", "lb/lb",
      stepsOf({0.0001, 0.0002, 0.0005, 0.001, 0.002, 0.005, 0.01}, perW, em, 2.2), low, high,
      [](double w) { return w; });
  add("Grains of moisture per lb of dry air", "gr/lb",
      stepsOf({0.5, 1, 2, 5, 10, 20, 50}, perW / grainsPerPound, em, 2), low * grainsPerPound, high * grainsPerPound,
      [](double grains) { return grains / grainsPerPound; });
  const double perPressure = perW * ratioOf(pressureOfRatio(high, atm), atm) / pressureOfRatio(high, atm);
  add("Vapor pressure, in Hg", "in Hg", stepsOf({0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5}, perPressure, em, 2.2),
      pressureOfRatio(low, atm), pressureOfRatio(high, atm), [atm](double pv) { return ratioOf(pv, atm); });
  scales.push_back(dewPointScale(work));
  return scales;
}

double numberWidth(const SheetCanvas& canvas, const RightScale& scale, double em) {
  double width = 0;
  for (const double value : scale.main) {
    width = std::max(width, canvas.widthOf(typeset(value, scale.decimals), {em, false, {}}));
  }
  return width;
}

/// From a scale's rule to the next.
double columnWidth(double numbers, double em) {
  return (mainTick + numberGap + titleGap + titleSize + scaleGap) * em + numbers;
}

void tick(SheetWork& work, SheetPoint at, SheetPoint outward, double size) {
  const Stroke& stroke = work.theme.scale;
  work.canvas.polyline({at, at + outward * (size * work.em())}, stroke.width, stroke.color);
}

void drawRightScale(SheetWork& work, const RightScale& scale, double x, double numbers) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const double top = plot.at(0, work.boundary.highHr).y;
  const auto yOf = [&](double value) { return plot.at(0, scale.ratio(value)).y; };
  const auto within = [&](double y) { return y >= top - 0.01 && y <= plot.bottom + 0.01; };
  if (x > plot.right)
    work.canvas.polyline({{x, plot.bottom}, {x, top}}, work.theme.scale.width, work.theme.scale.color);
  work.board.wall({{x, plot.bottom}, {x, top}});
  for (const double value : scale.fine) {
    if (within(yOf(value))) tick(work, {x, yOf(value)}, {1, 0}, isMultiple(value, 5) ? middleTick : fineTick);
  }
  const TextStyle style = work.theme.text(em);
  for (const double value : scale.main) {
    const double y = yOf(value);
    if (!within(y)) continue;
    tick(work, {x, y}, {1, 0}, mainTick);
    const std::string number = typeset(value, scale.decimals);
    SheetTextOperation text = centered(work.canvas, {0, y}, number, style);
    text.at.x = x + (mainTick + numberGap) * em + numbers;
    text.anchor = Anchor::end;
    work.board.add({importance::scale + (isMultiple(value, 10) ? 50 : 0), {{text, 0, {}}}, false});
  }
  Label title{importance::caption, {}, false};
  const SheetPoint middle{x + (mainTick + numberGap + titleGap + titleSize / 2) * em + numbers,
                          (top + plot.bottom) / 2};
  const TextStyle small = work.theme.text(titleSize * em);
  double cost = 0;
  for (const char* words : {scale.title, scale.shortTitle}) {
    title.places.push_back({centered(work.canvas, middle, words, small, -90), cost++, {}});
  }
  const SheetPoint below{middle.x - (mainTick + numberGap) * em / 2 - numbers / 2, plot.bottom + 1.6 * em};
  title.places.push_back({centered(work.canvas, below, scale.shortTitle, small), cost, {}});
  work.board.add(std::move(title));
}

}  // namespace

double bottomRoom(double em) { return bottomScale * em + secondHalf * em; }

/// Before there is a plot the numbers are not known; these are as wide as they get.
double rightRoom(const SheetCanvas& canvas, const SheetOptions& options, const ChartLimits&) {
  const double em = options.letterSize;
  double room = 0;
  for (const char* widest : {"0.0200", "200", "0.90", "90", "50"}) {
    room += columnWidth(canvas.widthOf(widest, {em, false, {}}), em);
  }
  return room - scaleGap * em;
}

SheetPoint drawRightScales(SheetWork& work) {
  work.canvas.begin(SheetPart::scales);
  double x = work.plot.right;
  for (const RightScale& scale : rightScales(work)) {
    const double numbers = numberWidth(work.canvas, scale, work.em());
    drawRightScale(work, scale, x, numbers);
    x += columnWidth(numbers, work.em());
  }
  return {x, work.plot.bottom + bottomScale * work.em()};
}

void drawBottomScale(SheetWork& work) {
  work.canvas.begin(SheetPart::scales);
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const Steps steps = stepsOf({0.1, 0.2, 0.5, 1, 2, 5, 10, 20}, plot.perDb(), em, 3.2);
  const auto& [low, high, lowHr, highHr] = plot.limits;
  const double first = std::max(low, work.boundary.lowDb - 1e-9);
  const double middleStep = stepFrom({0.5, 1, 5, 10, 50}, 2 * steps.fine);
  for (const double db : multiples(first, high, steps.fine)) {
    tick(work, plot.at(db, lowHr), {0, 1}, isMultiple(db, middleStep) ? middleTick : fineTick);
  }
  for (const double db : multiples(first, high, steps.main)) {
    const SheetPoint at = plot.at(db, lowHr);
    tick(work, at, {0, 1}, mainTick);
    const std::string number = typeset(db, decimalsOf(steps.main));
    const SheetTextOperation text =
        textNextTo(work.canvas, at, {0, 1}, (mainTick + numberGap) * em, number, work.theme.text(em));
    work.board.add({importance::scale + (isMultiple(db, 10) ? 50 : 0), {{text, 0, {}}}, false});
  }
  const SheetPoint middle{(plot.at(first, lowHr).x + plot.right) / 2,
                          plot.bottom + (mainTick + numberGap + 1 + titleGap + 0.5) * em};
  Label title{importance::caption + 1, {}, false};
  title.places.push_back({centered(work.canvas, middle, "Dry bulb temperature, °F", work.theme.text(em)), 0, {}});
  title.places.push_back({centered(work.canvas, middle, "°F", work.theme.text(em)), 1, {}});
  work.board.add(std::move(title));
}

}  // namespace moistair
