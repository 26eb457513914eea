/// \file
/// What it costs to judge a pair at a keystroke: `exactSolutions`, and all the words about it, in addition to the
/// search itself.
///
/// For each pair 3000 inputs at three pressures; of every other one the two values are those of a state, of the rest
/// they are anything within their limits, so that most have no state. Processor time of one call, the least of three.
#include <ctime>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "advice/pairnotes.h"
#include "engine/exactsolutions.h"
#include "engine/openfinders.h"

namespace moistair {
namespace {

double microseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

double least(const std::function<void()>& work) {
  double time = 1e9;
  for (int round = 0; round < 3; ++round) {
    const double start = microseconds();
    work();
    time = std::min(time, microseconds() - start);
  }
  return time;
}

struct Times {
  std::vector<double> all;

  double at(double share) {
    const auto place = all.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(all.size() - 1));
    std::nth_element(all.begin(), place, all.end());
    return *place;
  }
};

class Inputs {
public:
  /// A pair of values, of a state or of none.
  std::array<double, 2> next(PropertyKind first, PropertyKind second, double atm, bool state) {
    const double dryBulb = within(1, 120);
    const StatePoint point = stateAt(dryBulb, within(1, dryBulb), atm);
    if (state) return {point.at(first), point.at(second)};
    return {anyValue(first), anyValue(second)};
  }

private:
  double within(double low, double high) { return std::uniform_real_distribution<>(low, high)(random_); }

  double anyValue(PropertyKind kind) {
    constexpr std::array<Range, kindCount> ranges = {
        {{1, 120}, {1, 120}, {0, 100}, {0, 0.03}, {0, 61.9}, {-55, 120}, {11, 20}}};
    const Range& range = ranges[static_cast<std::size_t>(kind)];
    return within(range.above, range.upTo);
  }

  std::mt19937 random_{14};
};

void measure(PropertyKind first, PropertyKind second) {
  constexpr int inputs = 3000;
  constexpr std::array<double, 3> pressures = {29.92126, 24.896, 20.58};
  Inputs random;
  Times judging, words;
  for (int i = 0; i < inputs; ++i) {
    const double atm = pressures[static_cast<std::size_t>(i) % pressures.size()];
    const auto values = random.next(first, second, atm, i % 2 == 0);
    const PairInput input{first, second, numberText(values[0]), numberText(values[1])};
    SolverFields fields;
    const Resolution resolution = resolveInput(input, atm, openRangeFinders(), fields);
    std::size_t kept = 0;  // so that nothing is left out
    judging.all.push_back(least([&] {
      kept += exactSolutions({first, values[0]}, {second, values[1]}, atm).states.size();
    }));
    words.all.push_back(least([&] { kept += pairNotes(input, atm, resolution).remark.words.size(); }));
    if (kept == ~std::size_t{0}) std::puts("");
  }
  const std::string name = std::string(nameOf(first)) + "," + nameOf(second);
  std::printf("%-8s %10.2f %10.2f %10.2f %10.2f %10.2f %10.2f\n", name.c_str(), judging.at(0.5), judging.at(0.99),
              judging.at(1), words.at(0.5), words.at(0.99), words.at(1));
}

}  // namespace
}  // namespace moistair

int main() {
  using namespace moistair;
  std::printf("%-8s %32s %32s\n%-8s %10s %10s %10s %10s %10s %10s\n", "us", "answers", "with all words", "pair",
              "median", "99 %", "worst", "median", "99 %", "worst");
  for (int i = 0; i < kindCount * kindCount; ++i) {
    const PropertyKind first = *kindAt(i / kindCount);
    const PropertyKind second = *kindAt(i % kindCount);
    const bool sameThing = first == PropertyKind::w && second == PropertyKind::dp;
    if (first < second && !sameThing) measure(first, second);
  }
}
