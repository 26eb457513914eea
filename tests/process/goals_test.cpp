#include <gtest/gtest.h>

#include <random>

#include "process/goalproblem.h"
#include "process/readout.h"
#include "process/systemtext.h"
#include "text/numberformat.h"

using namespace moistair;

namespace {

struct Case {
  Compilation compilation;
  GoalPreparation preparation;
  GoalAnswer answer;
  Site site;

  explicit Case(const std::string& lines, double atm = defaultPressure) : site{atm} {
    const ReadSystem read = readSystem(lines);
    for (const Error& error : read.errors) ADD_FAILURE() << error.text();
    compilation = compile(read.text.system);
    for (const Error& error : compilation.errors) ADD_FAILURE() << error.text();
    preparation = prepare(compilation.system, read.text.goals);
    if (preparation.errors.empty()) answer = solveGoals(preparation.problem, site);
  }

  std::string firstError() const {
    if (!preparation.errors.empty()) return preparation.errors.front().text();
    return answer.errors.empty() ? "" : answer.errors.front().text();
  }

  /// "RM.wb", "CC.total" as heat removed: of the first solution.
  double value(const std::string& path) const {
    const auto dot = path.rfind('.');
    const auto& names = compilation.system.names;
    const auto found = std::find(names.begin(), names.end(), path.substr(0, dot));
    const auto stream = static_cast<std::size_t>(found - names.begin());
    const Solution& solution = answer.found.at(0).solution;
    const StreamReadout air = readoutOf(solution.streams.at(stream), site);
    const StepResult& step = solution.results.at(stream / 2);
    const std::pair<const char*, double> all[] = {{"db", air.db},  {"wb", air.wb},        {"rh", air.rh},
                                                  {"w", air.w},    {"lbh", air.lbh},      {"adp", step.adp},
                                                  {"bf", step.bf}, {"total", -step.total}};
    for (const auto& [name, number] : all) {
      if (path.substr(dot + 1) == name) return number;
    }
    ADD_FAILURE() << path;
    return noValue;
  }
};

struct Published {
  const char* name;
  const char* lines;
  struct Figure {
    const char* path;
    double value, within;
  };
  std::vector<Figure> figures;
};

// Worked examples of textbooks and courses, as printed.
const Published published[] = {
    {"single zone",
     "OA: air db=95,rh=55,acfm=1000\nRT: part RM lbh=?\nMA: mix OA RT\nCC: coil MA db=58,rh=?\n"
     "RM: room CC total=120000,shr=0.7\ngoal RM db=78,rh=50",
     {{"RM.lbh", 17140, 171}, {"CC.rh", 80, 2}}},
    {"the same with a fan after the coil",
     "OA: air db=95,rh=55,acfm=1000\nRT: part RM lbh=?\nMA: mix OA RT\nCC: coil MA db=?,rh=?\n"
     "SA: fan CC inwg=3,eff=0.7\nRM: room SA total=120000,shr=0.7\ngoal RM db=78,rh=50\ngoal SA db=58",
     {{"CC.db", 56.4, 0.1}, {"CC.total", 186840, 934}}},
    {"reheat",
     "CC: coil RM db=53.6,rh=90\nRH: heat CC db=?\nRM: room RH sensible=37530,latent=34120\ngoal RM db=75.2,wb=64.4",
     {{"RH.db", 62.2, 0.3}, {"RH.wb", 55.6, 0.3}, {"RM.lbh", 11920, 298}, {"CC.total", 96760, 1451}}},
    {"return air only",
     "CC: coil RM db=59,rh=?\nRM: room CC sensible=78480,water=19.05,hg=1098\ngoal RM db=75.2,rh=50",
     {{"CC.rh", 79, 0.5}, {"RM.lbh", 19880, 40}, {"CC.adp", 50.9, 0.2}, {"CC.bf", 0.336, 0.005}}},
    {"bypass",
     "OA: air db=93.2,rh=50,lbh=2063\nRT: part RM lbh=7461\nBY: part RT lbh=?\nMA: mix OA BY.rest\n"
     "CC: coil MA db=42.8,rh=100\nSA: mix CC BY\nRM: room SA sensible=47770,latent=30710\ngoal RM db=78.8",
     {{"BY.lbh", 4079, 41},
      {"CC.lbh", 5445, 54},
      {"RM.wb", 66.2, 0.2},
      {"SA.db", 58.3, 0.2},
      {"SA.rh", 77, 1},
      {"MA.db", 84.2, 0.2},
      {"CC.total", 98930, 495}}},
};

TEST(Goals, ComeOutAsPublished) {
  for (const Published& example : published) {
    const Case solved(example.lines);
    ASSERT_EQ(solved.answer.found.size(), 1u) << example.name << ' ' << solved.firstError();
    for (const auto& [path, value, within] : example.figures) {
      EXPECT_NEAR(solved.value(path), value, within) << example.name << ' ' << path;
    }
  }
}

/// At part load coil and flow stay, and reheat keeps the room's temperature.
TEST(Goals, ReheatAtPartLoadAsPublished) {
  const Case full("CC: air db=56.5,rh=?\nRM: room CC sensible=80000,latent=20000\ngoal RM db=78,rh=50");
  ASSERT_EQ(full.answer.found.size(), 1u) << full.firstError();
  std::string part = "CC: air db=56.5,w=";
  appendRoundTrip(part, full.value("CC.w"));
  part += ",lbh=";
  appendRoundTrip(part, full.value("CC.lbh"));
  const Case reheated(part + "\nRH: heat CC db=?\nRM: room RH sensible=47000,latent=20000\ngoal RM db=78");
  ASSERT_EQ(reheated.answer.found.size(), 1u) << reheated.firstError();
  EXPECT_NEAR(reheated.value("RH.db"), 65.4, 0.2);
}

struct Refused {
  const char* name;
  const char* lines;
  const char* words;  ///< that the first error has
};

const Refused refusals[] = {
    {"too few goals", "OA: air db=95,rh=50,lbh=1000\nCC: coil OA db=?,rh=?\ngoal CC db=55",
     "2 unknowns (CC.db, CC.rh) and 1 goal (CC db); add 1 goal"},
    {"too many goals", "OA: air db=95,rh=50,lbh=1000\nCC: coil OA db=?,rh=90\ngoal CC db=55,total=3tons",
     "1 unknown (CC.db) and 2 goals (CC db, CC total); remove 1 goal"},
    {"a flow that nothing gives", "CC: coil RM db=55,rh=90\nRM: room CC sensible=30000,latent=6000",
     "1 unknown (flow of RM) and 0 goals"},
    {"air comes in and none goes out",
     "OA: air db=95,rh=50,lbh=1000\nMA: mix OA RM\nCC: coil MA db=55,rh=90\nRM: room CC sensible=30000,latent=6000",
     "its flow does not close"},
    {"a goal beyond reach", "OA: air db=95,rh=50,lbh=1000\nCC: coil OA db=?,rh=90\ngoal CC db=120", "instead of 120"},
    {"an unknown that changes nothing",
     "OA: air db=80,rh=50,lbh=1000\nCC: coil OA db=55,rh=90\nRH: heat CC dt=?\ngoal CC w=0.007", "instead of 0.007"},
    {"a name without a stream", "OA: air db=95,rh=50,lbh=1000\ngoal CC db=55", "no stream"},
    {"a result of another kind", "OA: air db=95,rh=50,lbh=1000\nHC: heat OA dt=?\ngoal HC adp=55", "HC has no adp"},
};

TEST(Goals, SayWhyThereIsNoSolution) {
  for (const auto& [name, lines, words] : refusals) {
    const Case solved(lines);
    EXPECT_TRUE(solved.answer.found.empty()) << name;
    EXPECT_NE(solved.firstError().find(words), std::string::npos) << name << ": " << solved.firstError();
  }
}

/// Parameters asked for by what comes of them when they are given.
struct Question {
  std::vector<std::string> unknowns, goals;
};

const Question questions[] = {
    {{"adp", "bf"}, {"RM.db", "RM.rh"}},
    {{"acfm", "dt"}, {"SA.db", "RM.lbh"}},
    {{"share", "adp", "latent"}, {"MA.db", "CC.db", "RM.w"}},
    {{"inwg", "sensible", "bf"}, {"SA.db", "RM.db", "CC.rh"}},
};

TEST(Goals, RecoverWhatWasReplacedByUnknowns) {
  struct Number {
    const char* text;
    double low, high;
  };
  const Number numbers[] = {{"OA: air rh=50,db=", 75, 98},
                            {",acfm=", 800, 3000},
                            {"\nRT: part RM share=", 0.5, 0.9},
                            {"\nMA: mix OA RT\nCC: coil MA adp=", 44, 50},
                            {",bf=", 0.08, 0.25},
                            {"\nRH: heat CC dt=", 1, 8},
                            {"\nSA: fan RH eff=0.7,inwg=", 1, 5},
                            {"\nRM: room SA sensible=", 20000, 60000},
                            {",latent=", 1000, 8000}};
  std::mt19937 random(23);
  int solvable = 0;
  int recovered = 0;
  for (std::size_t i = 0; i < 80; ++i) {
    const Question& question = questions[i % 4];
    std::string forward;
    std::string backward;
    for (const auto& [text, low, high] : numbers) {
      std::string number;
      appendRoundTrip(number, std::uniform_real_distribution(low, high)(random));
      const std::string before = text;
      const bool unknown = std::any_of(question.unknowns.begin(), question.unknowns.end(),
                                       [&](const std::string& name) { return before.ends_with(name + '='); });
      forward += before + number;
      backward += before + (unknown ? "?" : number);
    }
    const double atm = i % 2 == 0 ? defaultPressure : 24.896;
    const Case given(forward, atm);
    if (given.answer.found.empty()) continue;
    for (const std::string& goal : question.goals) {
      backward += "\ngoal " + goal.substr(0, 2) + ' ' + goal.substr(3) + '=';
      appendRoundTrip(backward, given.value(goal));
    }
    ++solvable;
    const Case asked(backward, atm);
    const auto isGiven = [&](const GoalSolution& found) {
      const AirState& room = found.solution.streams[mainStream(given.compilation.system.steps.size() - 1)].state;
      return std::abs(room.db - given.value("RM.db")) < 1e-6 && std::abs(room.w - given.value("RM.w")) < 1e-9 &&
             std::abs(found.solution.results[3].total + given.value("CC.total")) < 1;
    };
    if (std::any_of(asked.answer.found.begin(), asked.answer.found.end(), isGiven)) ++recovered;
  }
  EXPECT_GT(solvable, 50);
  EXPECT_GE(recovered, solvable - solvable / 100) << "of " << solvable;
}

}  // namespace
