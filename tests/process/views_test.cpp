// What is drawn and listed of a system: shapes on the chart, tables, the diagram.
#include <algorithm>
#include <set>

#include "process/systemdiagram.h"
#include "process/systemshapes.h"
#include "process/systemtables.h"
#include "support.h"

using namespace moistair;

namespace {

constexpr const char* airHandler =
    "OA: air db=95,wb=75,scfm=2000\nRA: air db=78,rh=50,acfm=8000\nMA: mix OA RA\nCC: coil MA db=55,rh=92,waterdt=10\n"
    "SA: fan CC inwg=3,eff=0.7\nRM: room SA sensible=180000,latent=40000\nEX: part RM share=0.25\n";
constexpr const char* loop =
    "OA: air db=93.2,rh=50,lbh=2063\nRT: part RM lbh=7461\nBY: part RT lbh=?\nMA: mix OA BY.rest\n"
    "CC: coil MA db=42.8,rh=100\nSA: mix CC BY\nRM: room SA sensible=47770,latent=30710\ngoal RM db=78.8\n";
constexpr const char* recovery =
    "OA: air db=10,rh=80,scfm=1000\nEA: air db=72,rh=30,scfm=1000\nHR: recover OA EA sens=0.7,lat=0.6\n";

SolvedSystem solvedOf(const char* lines) { return solvedSystem(readSystem(lines).text, {}); }

/// The looks of a system's lines, a letter each, in their order; small without an arrow.
std::string looksOf(const SystemShapes& shapes) {
  std::string looks;
  for (const SystemLine& line : shapes.lines) looks += "MSCWRZD"[static_cast<std::size_t>(line.look)];
  return looks;
}

std::string namesOf(const SystemShapes& shapes) {
  std::string names;
  for (const SystemDot& dot : shapes.dots) names += dot.name + "|";
  for (const SystemMark& mark : shapes.marks) names += mark.name + "|";
  return names;
}

}  // namespace

TEST(SystemShapes, EveryProcessHasItsLinesAndEveryStateItsDot) {
  const struct {
    const char *lines, *looks, *names;
  } cases[] = {
      {airHandler, "MMCDSZD", "OA|RA|MA|CC|SA|RM|ADP|"},
      {recovery, "RR", "OA|EA|HR|HR.exhaust|"},
      {"A: air db=80,rh=40\nE: evaporate A eff=0.5\nH: heat E dt=0\n", "W", "A|E, H|"},
      {"A: air db=80,rh=40\nC: cool A db=20\nH: heat C dt=5\n", "", "A|"},
  };
  for (const auto& [lines, looks, names] : cases) {
    const SystemShapes shapes = shapesOf(solvedOf(lines));
    EXPECT_EQ(looksOf(shapes), looks) << lines;
    EXPECT_EQ(namesOf(shapes), names) << lines;
  }
}

TEST(SystemShapes, TheConstructionOfACoilEndsAtSaturation) {
  const SolvedSystem solved = solvedOf(airHandler);
  const SystemShapes shapes = shapesOf(solved);
  const SystemLine& construction = shapes.lines.at(3);
  EXPECT_NEAR(construction.to.w, solved.site.saturationRatio(construction.to.db), 1e-12);
  const SystemLine& coil = shapes.lines.at(2);
  const auto slope = [](const SystemLine& line) { return (line.to.w - line.from.w) / (line.to.db - line.from.db); };
  EXPECT_NEAR(slope(construction) / slope(coil), 1, 1e-6);
  EXPECT_NEAR(slope(shapes.lines.at(6)) / slope(shapes.lines.at(5)), 1, 1e-6) << "the room's line goes on";
}

TEST(SystemShapes, AreCutAtTheLimits) {
  const ShapeLimits limits{60, 90, 0, 0.02};
  const SystemLine line{0, ShapeLook::coil, {100, 0.01}, {50, 0.005}, true};
  const auto visible = clipped(line, limits);
  ASSERT_TRUE(visible);
  EXPECT_DOUBLE_EQ(visible->from.db, 90);
  EXPECT_DOUBLE_EQ(visible->to.w, 0.006);
  EXPECT_FALSE(visible->arrow);
  EXPECT_FALSE(clipped({0, ShapeLook::coil, {95, 0.01}, {95, 0.005}, true}, limits));
  EXPECT_TRUE(clipped({0, ShapeLook::coil, {70, 0.01}, {80, 0.01}, true}, limits)->arrow);
}

TEST(SystemTables, HaveARowForEachStreamAndProcess) {
  const SolvedSystem solved = solvedOf(airHandler);
  const SystemTable states = stateTable(solved), equipment = equipmentTable(solved);
  EXPECT_EQ(states.rows.size(), 8U);
  ASSERT_EQ(equipment.rows.size(), 5U);
  for (const auto& row : states.rows) EXPECT_EQ(row.size(), states.columns.size());
  const auto& coil = equipment.rows[1];
  ASSERT_EQ(coil.size(), equipment.columns.size());
  const double expected[] = {81.5,  67.2,  55.0,  53.7, 10144.7, 9745, 408.2,
                             283.4, 34.02, 0.694, 51.7, 0.112,   81.6, -113.8};
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_NEAR(coil[i + 2].value / expected[i], 1, 0.004) << equipment.columns[i + 2].head;
  }
  EXPECT_NEAR(equipment.rows[2].back().value, 6.4787, 1e-3) << "fan power";
  EXPECT_NE(factorNotes({}).back().find("sensible 1.079"), std::string::npos);
  const std::string csv = systemCsv(solved);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 9 + 1 + 6);
}

TEST(SystemDiagram, BlocksAndDuctsKeepApart) {
  for (const char* lines : {airHandler, loop, recovery}) {
    const SolvedSystem solved = solvedOf(lines);
    ASSERT_TRUE(solved.complete()) << lines;
    const SystemDiagram diagram = diagramOf(solved);
    EXPECT_EQ(diagram.blocks.size(), solved.system.steps.size());
    std::set<std::pair<double, double>> places;
    for (const DiagramBlock& block : diagram.blocks) EXPECT_TRUE(places.emplace(block.left, block.top).second);
    for (const DiagramDuct& duct : diagram.ducts) {
      for (std::size_t i = 1; i < duct.points.size(); ++i) {
        const DiagramPoint &one = duct.points[i - 1], &other = duct.points[i];
        EXPECT_TRUE(one.x == other.x || one.y == other.y) << lines;
        for (const DiagramBlock& block : diagram.blocks) {
          const bool apart =
              std::max(one.x, other.x) <= block.left || std::min(one.x, other.x) >= block.left + block.width ||
              std::max(one.y, other.y) <= block.top || std::min(one.y, other.y) >= block.top + block.height;
          EXPECT_TRUE(apart) << solved.system.names[duct.stream] << " passes through " << block.name << " of " << lines;
        }
      }
      EXPECT_LE(duct.points.back().x, diagram.width);
      EXPECT_GE(duct.points.back().x, 0);
    }
  }
}
