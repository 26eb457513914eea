#include <algorithm>
#include <random>

#include "process/coilline.h"
#include "support.h"

using namespace moistair;
using enum Parameter;

namespace {

constexpr double pressures[] = {29.92126, 24.896, 28.05, 20.577, 31.5};

class Generator {
public:
  explicit Generator(unsigned seed) : random_(seed) {}
  double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
  bool chance(double share) { return between(0, 1) < share; }

  ProcessStep air(const std::string& name) {
    const double temp = between(-20, 115);
    return {
        name, StepKind::air, {}, {{db, temp}, {rh, chance(0.1) ? 100 : between(5, 100)}, {acfm, between(100, 20000)}}};
  }

  /// A step on streams that nobody takes yet; many are impossible.
  ProcessStep step(const std::string& name, std::vector<std::string>& open) {
    const auto take = [&] {
      const std::size_t at = below(open.size());
      std::string stream = open[at];
      open.erase(open.begin() + static_cast<std::ptrdiff_t>(at));
      return stream;
    };
    ProcessStep made{name, static_cast<StepKind>(1 + below(stepKindCount - 1)), {take()}, {}};
    const auto give = [&](Parameter parameter, double value) { made.given.push_back({parameter, value}); };
    switch (made.kind) {
      case StepKind::mix:
        while (!open.empty() && chance(0.6)) made.sources.push_back(take());
        break;
      case StepKind::part: give(share, between(0, 1)); break;
      case StepKind::heat: give(dt, between(0, 60)); break;
      case StepKind::cool: give(dt, between(0, 40)); break;
      case StepKind::coil:
        give(adp, between(20, 60)), give(bf, between(0, 0.4));
        if (chance(0.3)) give(condensate, 1);
        break;
      case StepKind::evaporate: give(eff, between(0, 1)); break;
      case StepKind::steam: give(rh, between(30, 100)), give(degf, between(200, 350)); break;
      case StepKind::fan: give(inwg, between(0, 10)), give(eff, between(0.3, 0.9)); break;
      case StepKind::recover:
        if (!open.empty()) made.sources.push_back(take());
        give(sens, between(0, 1)), give(lat, between(0, 1));
        break;
      case StepKind::dry: give(w, between(0, 0.01)), give(factor, between(0.9, 1.3)); break;
      default: give(sensible, between(-20000, 90000)), give(water, between(0, 40)), give(hg, between(1000, 1200));
    }
    return made;
  }

private:
  std::mt19937 random_;
};

/// Air streams and steps that have a result.
AirSystem randomSystem(Generator& generator, double atm) {
  AirSystem system;
  std::vector<std::string> open;
  const std::size_t size = 2 + generator.below(19);
  for (int tries = 0; system.steps.size() < size && tries < 200; ++tries) {
    const std::string name = "S" + std::to_string(system.steps.size());
    const std::vector<std::string> before = open;
    const bool begins = open.empty() || generator.chance(0.25);
    system.steps.push_back(begins ? generator.air(name) : generator.step(name, open));
    if (Solved(system, atm).errors.empty()) {
      open.push_back(name);
      if (const char* second = rowOf(system.steps.back().kind).second) open.push_back(name + "." + second);
    } else {
      system.steps.pop_back();
      open = before;
    }
  }
  return system;
}

TEST(RandomSystems, CloseTheirBalances) {
  Generator generator(22);
  std::array<int, stepKindCount> kinds{};
  for (int i = 0; i < 300; ++i) {
    const double atm = pressures[i % 5];
    const Solved solved(randomSystem(generator, atm), atm);
    ASSERT_EQ(solved.errors, "");
    const Balances balances = balancesOf(solved.compilation.system, solved.site, solved.solution);
    EXPECT_LT(balances.air.error(), 1e-12);
    EXPECT_LT(balances.water.error(), 1e-9);
    EXPECT_LT(balances.energy.error(), 1e-9);
    for (std::size_t step = 0; step < solved.system.steps.size(); ++step) {
      ++kinds[static_cast<std::size_t>(solved.system.steps[step].kind)];
      const StepResult& result = solved.solution.results[step];
      EXPECT_EQ(result.sensible + result.latent, result.total);
    }
  }
  for (const StepKind kind : stepKinds()) EXPECT_GT(kinds[static_cast<std::size_t>(kind)], 30) << nameOf(kind);
}

/// How far apart two leaving states of S1 are, as a part of what can be told apart.
double distance(const AirState& one, const AirState& other) {
  return std::max(std::abs(one.db - other.db) / 100, std::abs(one.w - other.w) / 0.01);
}

TEST(RandomCoils, ComeBackThroughAnyPairOfTheirResults) {
  Generator generator(1);
  constexpr std::array all = {adp, bf, db, wb, rh, w, dp, shr, total, sensible};
  int pairs = 0;
  int misses = 0;
  for (int i = 0; i < 600; ++i) {
    const double atm = pressures[i % 5];
    AirSystem system{{generator.air("S0"), {"S1", StepKind::coil, {"S0"}, {}}}};
    ProcessStep& coil = system.steps[1];
    coil.given = {{adp, generator.between(-30, 70)}, {bf, generator.between(0.02, 0.5)}};
    const bool counted = generator.chance(0.3);
    if (counted) coil.given.push_back({condensate, 1});
    const Solved first(system, atm);
    if (!first.errors.empty()) continue;
    const StepResult& wet = first.result("S1");
    if (wet.latent > -1e-3 * std::abs(wet.total)) continue;
    const auto value = [&](Parameter kind) { return outcomeOf(kind, StepKind::coil, wet, first.site); };
    // Near the line that touches saturation a hair of slope moves the apparatus dew point far.
    const AirState entering = first.result("S0").leaving.state;
    if (wet.adp - touchingPoint(entering, first.site).db < 3) continue;
    for (std::size_t a = 0; a < all.size(); ++a) {
      for (std::size_t b = a + 1; b < all.size(); ++b) {
        coil.given = {{all[a], value(all[a])}, {all[b], value(all[b])}};
        if (counted) coil.given.push_back({condensate, 1});
        const ParameterSet refused[] = {setOf(adp, shr), setOf(w, dp), setOf(wb, total), setOf(db, sensible)};
        const ParameterSet pair = setOf(all[a], all[b]);
        const Solved again(system, atm);
        if (std::find(std::begin(refused), std::end(refused), pair) != std::end(refused)) {
          EXPECT_NE(again.errors.find("do not fix a coil"), std::string::npos) << again.errors;
          continue;
        }
        ++pairs;
        if (!again.errors.empty()) {
          ++misses;
          ADD_FAILURE() << namesOf(pair, "and") << " " << again.errors;
          continue;
        }
        double nearest = distance(again.result("S1").leaving.state, wet.leaving.state);
        for (const Note& note : again.result("S1").notes) {
          if (note.code == NoteCode::otherSolution)
            nearest = std::min(nearest, distance({note.first, note.second}, wet.leaving.state));
        }
        EXPECT_LT(nearest, 1e-9) << namesOf(pair, "and") << " adp " << wet.adp << " bf " << wet.bf << " rh "
                                 << first.value("S0.rh");
      }
    }
  }
  EXPECT_GT(pairs, 1800);
}

}  // namespace
