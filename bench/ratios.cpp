/// \file
/// What the quick way of searching is worth: each work done plainly and quickly by turns in one run, and the ratio.
///
///   bench_ratios [WORD]      only works whose name holds the word
///
/// Processor times, the least of some rounds: a busy machine makes neither way look better than the other.
#include <ctime>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "engine/mixingproblem.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"

namespace moistair {
namespace {

using Work = std::function<void(SearchMode)>;

double microseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

/// Time of one piece of work, from so many at a stretch.
double timeOf(const Work& work, SearchMode mode, int repeats) {
  const double start = microseconds();
  for (int i = 0; i < repeats; ++i) work(mode);
  return (microseconds() - start) / repeats;
}

void compare(const std::string& name, const Work& work) {
  constexpr double stretch = 2000;
  constexpr int rounds = 15;
  const auto repeats = [&](SearchMode mode) {
    return static_cast<int>(
        std::clamp(stretch / timeOf(work, mode, 1 + (mode == SearchMode::accelerated ? 20 : 0)), 1.0, 1e5));
  };
  const int inReferenceMode = repeats(SearchMode::reference);
  const int inAcceleratedMode = repeats(SearchMode::accelerated);
  double reference = 1e9, accelerated = 1e9;
  for (int i = 0; i < rounds; ++i) {
    reference = std::min(reference, timeOf(work, SearchMode::reference, inReferenceMode));
    accelerated = std::min(accelerated, timeOf(work, SearchMode::accelerated, inAcceleratedMode));
  }
  std::printf("%-28s %10.3f %10.3f %7.1f\n", name.c_str(), reference, accelerated, reference / accelerated);
}

void drawStandardChart(SearchMode mode) {
  constexpr ChartLimits limits{0, 120, 0, 0.03};
  RecordingCanvas canvas;
  drawChart({canvas, plotArea(limits, {1366 * 15, 768 * 15}), defaultPressure, mode}, ChartType::standard, "");
}

/// A keystroke in one of two streams of the same pair.
Work keystroke(PropertyKind kind1, const std::string& value1, PropertyKind kind2, const std::string& value2) {
  MixingProblem problem;
  problem.pressure = {defaultPressure, {}};
  for (AirStream& stream : problem.streams) {
    stream.kind1 = kind1;
    stream.value1 = value1;
    stream.kind2 = kind2;
    stream.value2 = value2;
    stream.flow = "1000";
  }
  resolveStream(problem, 1);
  return [=](SearchMode mode) mutable {
    problem.mode = mode;
    resolveStream(problem, 0);
    mixStreams(problem);
  };
}

/// The slowest of so many pairs of random values within their limits, timed again before it counts: what happens to
/// stand in the way of a single one is not its own.
void printsLowest(int count) {
  constexpr std::array<double, kindCount> ends = {120, 120, 100, 0.03, 62, 120, 78};
  std::mt19937_64 random(1);
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const auto given = [&](std::size_t kind) {
    return Given{*kindAt(static_cast<int>(kind)), between(kind == 5 ? -55 : 0, ends[kind])};
  };
  double slowest = 0;
  for (int i = 0; i < count; ++i) {
    const Given first = given(random() % kindCount);
    const Given second = given(random() % kindCount);
    const double atm = i % 2 == 0 ? between(18, 32) : between(4, 150);
    SolverFields fields;
    const Work resolve = [&](SearchMode mode) { resolvePair(first, second, atm, openRangeFinders(mode), fields); };
    double time = timeOf(resolve, SearchMode::accelerated, 1);
    for (int again = 0; again < 5 && time > slowest; ++again)
      time = std::min(time, timeOf(resolve, SearchMode::accelerated, 1));
    slowest = std::max(slowest, time);
  }
  std::printf("slowest of %d random %19.3f\n", count, slowest);
}

}  // namespace
}  // namespace moistair

using namespace moistair;
using enum PropertyKind;

int main(int argc, char** argv) {
  const std::string word = argc > 1 ? argv[1] : "";
  std::printf("%-28s %10s %10s %7s\n", "us", "plain", "now", "ratio");
  const auto row = [&](const std::string& name, const Work& work) {
    if (name.find(word) != std::string::npos) compare(name, work);
  };

  // A state that no search meets by luck at one of its first midpoints.
  const double atm = defaultPressure;
  const Given given[kindCount] = {{db, 77.3}, {wb, 62.4}, {rh, 0}, {w, 0}, {h, 0}, {dp, 0}, {v, 0}};
  const char* names[kindCount] = {"db", "wb", "rh", "w", "h", "dp", "v"};
  SolverFields fields;
  const StatePoint state = resolvePair(given[0], given[1], atm, openRangeFinders(), fields).point;
  const auto resolve = [&](Given first, Given second) {
    return [=, &fields](SearchMode mode) { resolvePair(first, second, atm, openRangeFinders(mode), fields); };
  };
  for (int i = 0; i < kindCount; ++i) {
    for (int j = i + 1; j < kindCount; ++j) {
      const auto one = *kindAt(i), two = *kindAt(j);
      if (one == w && two == dp) continue;
      const std::string pair = std::string(names[i]) + "," + names[j];
      row("state " + pair, resolve({one, state.at(one)}, {two, state.at(two)}));
      row("keystroke " + pair, keystroke(one, numberText(state.at(one)), two, numberText(state.at(two))));
    }
  }
  row("state dp,v that none has", resolve({dp, 50}, {v, 78}));
  row("keystroke rh,v that none has", keystroke(rh, "75", v, "0.001"));
  row("standard chart", drawStandardChart);
  if (word.empty() || word == "slowest") printsLowest(1'000'000);
}
