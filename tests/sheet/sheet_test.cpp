// Sheets: no text over another or over the frame on any chart and page, curves as exact as promised, all of the
// document on them.
#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <map>

#include "engine/saturation.h"
#include "sheet/boundary.h"
#include "sheet/cases.h"
#include "sheet/curves.h"
#include "sheet/faults.h"
#include "sheet/geometry.h"
#include "sheet/kinds.h"
#include "sheet/layout.h"
#include "sheet/theme.h"
#include "text/value.h"

namespace {

using namespace moistair;
using namespace moistair::test;

SheetDrawing laidOut(const Document& document, const PageSize& page, bool lines = false) {
  SheetOptions options;
  options.page = page;
  options.enthalpyLines = lines;
  options.title = "A title that is longer than any title block has room for, on a page that is not a poster";
  options.project = options.drawnBy = options.title;
  return layoutSheet(contentOf(document), options, extentOf);
}

Box placeOf(const SheetTextOperation& text) {
  return textBox(text, extentOf(text.text, text.style.size, text.style.bold));
}

/// A point's name, which alone is bold on the chart, or a line from a label to what it names, between the scales.
std::string amongScales(const SheetPlot& plot, const SheetPage& page) {
  const auto& ink = themeOf(SheetColors::color).ink;
  const auto beyond = [&](SheetPoint at) {
    return at.x < plot.left || at.x > plot.right || at.y < plot.top || at.y > plot.bottom;
  };
  std::string faults;
  for (const SheetOperation& operation : page.operations) {
    if (const auto* text = std::get_if<SheetTextOperation>(&operation)) {
      const auto corners = placeOf(*text).corners();
      const bool name = text->style.bold && (text->text.starts_with("Zone") || text->text.starts_with("Room"));
      if (name && std::any_of(corners.begin(), corners.end(), beyond)) faults += text->text + " among scales; ";
    } else if (const auto* line = std::get_if<PolylineOperation>(&operation)) {
      const bool leader = line->width == 0.6 && line->points.size() == 2 && line->color == ink;
      if (leader && (beyond(line->points[0]) || beyond(line->points[1]))) faults += "a leader among scales; ";
    }
  }
  return faults;
}

/// Titles and identifications may be cut off where they are too long.
bool isCut(const std::string& text) {
  constexpr std::array mayEnd = {"A ", "Supply", "Zone", "Read-out"};
  const bool may =
      std::any_of(mayEnd.begin(), mayEnd.end(), [&](const char* start) { return text.starts_with(start); });
  return text.ends_with("…") && !may;
}

/// Faults of a page in words: two texts over each other, one over the frame, one beyond the edge, a name off the plot,
/// a text of the program that is cut off.
std::string faultsOf(const SheetDrawing& sheet, const SheetPage& page, const std::vector<SheetPoint>& frame) {
  std::string faults = frame.empty() ? std::string() : amongScales(sheet.plot, page);
  const auto texts = textsOf(page);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const Box box = placeOf(*texts[i]);
    if (isCut(texts[i]->text)) faults += texts[i]->text + " is cut off; ";
    for (const SheetPoint corner : box.corners()) {
      if (corner.x < 0 || corner.y < 0 || corner.x > sheet.width || corner.y > sheet.height) {
        faults += texts[i]->text + " beyond the edge; ";
      }
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (overlap(box, placeOf(*texts[j]))) faults += texts[i]->text + " over " + texts[j]->text + "; ";
    }
    for (std::size_t j = 1; j < frame.size(); ++j) {
      if (crosses(box, frame[j - 1], frame[j])) faults += texts[i]->text + " over the frame; ";
    }
  }
  return faults;
}

TEST(Sheet, NoTextLiesOverAnotherOrOverTheFrame) {
  for (const Sheet& sheet : sheets) {
    for (const bool lines : {false, true}) {
      const SheetDrawing drawing = laidOut(documentOf(sheet), sheet.page, lines);
      const Boundary boundary = boundaryOf(drawing.plot);
      const auto frame = boundary.empty ? std::vector<SheetPoint>() : boundary.outline(drawing.plot);
      for (std::size_t page = 0; page < drawing.pages.size(); ++page) {
        const auto edges = page == 0 ? frame : std::vector<SheetPoint>();
        EXPECT_EQ(faultsOf(drawing, drawing.pages[page], edges), "") << sheet.name << ", page " << page + 1;
      }
    }
  }
}

TEST(Sheet, NothingCoversALineOrAMarkAndNoLeadersCross) {
  for (const Kind& kind : kinds()) {
    const SheetDrawing drawing = layoutSheet(contentOf(kind), optionsOf(kind), extentOf);
    EXPECT_EQ(coveredOn(drawing, extentOf), "") << kind.name;
  }
}

double luminance(const Color& color) {
  const auto linear = [](int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

bool holds(const std::vector<SheetPoint>& outline, SheetPoint at) {
  bool inside = false;
  for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
    const SheetPoint a = outline[i], b = outline[j];
    if ((a.y > at.y) != (b.y > at.y) && at.x < (b.x - a.x) * (at.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

/// The colors by the relative luminance of WCAG 2.1.
TEST(Sheet, EveryTextIsLargeAndDarkEnoughToBeRead) {
  for (const Kind& kind : kinds()) {
    const SheetDrawing drawing = layoutSheet(contentOf(kind), optionsOf(kind), extentOf);
    const bool paper = kind.page.width * kind.page.height >= letter.width * letter.height * 0.99;
    for (const SheetPage& page : drawing.pages) {
      std::vector<const AreaOperation*> areas;
      for (const SheetOperation& operation : page.operations) {
        if (const auto* area = std::get_if<AreaOperation>(&operation)) areas.push_back(area);
        const auto* text = std::get_if<SheetTextOperation>(&operation);
        if (text == nullptr) continue;
        Color ground = drawing.paper;
        for (const AreaOperation* area : areas) {
          if (holds(area->outline, placeOf(*text).center)) ground = area->color;
        }
        const double one = luminance(ground) + 0.05, other = luminance(text->style.color) + 0.05;
        EXPECT_GE(std::max(one, other) / std::min(one, other), 4.5) << kind.name << ": " << text->text;
        EXPECT_GE(text->style.size * 72 / 96, paper ? 5.499 : 0) << kind.name << ": " << text->text;
      }
    }
  }
}

TEST(Sheet, WetBulbsAreNotAmongTheEnthalpies) {
  for (const Kind& kind : kinds()) {
    const SheetDrawing drawing = layoutSheet(contentOf(kind), optionsOf(kind), extentOf);
    for (const auto* text : textsOf(drawing.pages.front())) {
      if (text->part != SheetPart::wetBulb || text->angle != 0) continue;
      EXPECT_GT(placeOf(*text).center.x - placeOf(*text).halfLength, drawing.plot.left) << kind.name << text->text;
    }
  }
}

TEST(Sheet, ItsDensityGrowsWithThePaperAndAColdChartFillsIt) {
  const auto count = [](const SheetDrawing& drawing, SheetPart part, bool upright) {
    std::size_t lines = 0;
    for (const SheetOperation& operation : drawing.pages.front().operations) {
      const auto* line = std::get_if<PolylineOperation>(&operation);
      if (line == nullptr || line->part != part) continue;
      lines += !upright || line->points.front().x == line->points.back().x ? 1U : 0U;
    }
    return lines;
  };
  const SheetDrawing small = laidOut(documentOf(sheets[0], 0), letter), large = laidOut(documentOf(sheets[0], 0), a3);
  EXPECT_GT(count(large, SheetPart::grid, true), 115U) << "every degree";
  EXPECT_GT(count(large, SheetPart::wetBulb, false), 80U) << "every degree";
  EXPECT_LT(count(small, SheetPart::grid, true), 70U);
  SheetOptions options = looking(letter);
  options.limits = ChartLimits{32, 60, 0, 0.028};
  const SheetDrawing cold = layoutSheet(contentOf(documentOf(sheets[0], 0)), options, extentOf);
  EXPECT_EQ(cold.plot.limits, (ChartLimits{32, 60, 0, 0.0115}));
}

TEST(Sheet, LimitsOfItsOwnAreWholeDegreesAndThousandthsThatRise) {
  EXPECT_TRUE(areSheetLimits({32, 120, 0, 0.028}));
  EXPECT_TRUE(areSheetLimits(widestLimits));
  for (const ChartLimits& limits : {ChartLimits{32.5, 120, 0, 0.028},
                                    {32, 120, 0, 0.0285},
                                    {60, 60, 0, 0.01},
                                    {0, 60, 0.02, 0.01},
                                    {-41, 60, 0, 0.01},
                                    {0, 60, 0, 0.101},
                                    {0, noValue, 0, 0.01}}) {
    EXPECT_FALSE(areSheetLimits(limits)) << limitsText(limits);
  }
}

/// How far a place of a line is from the polyline that was traced for it.
double distanceTo(const std::vector<SheetPoint>& line, SheetPoint place) {
  double nearest = 1e9;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const SheetPoint way = line[i] - line[i - 1];
    const double part = std::clamp(dot(place - line[i - 1], way) / dot(way, way), 0.0, 1.0);
    nearest = std::min(nearest, distance(place, line[i - 1] + way * part));
  }
  return nearest;
}

TEST(Sheet, LinesAreTracedToATenthOfAPixelAndEndAtTheFrameOrAtSaturation) {
  const struct {
    const char* name;
    LineKind kind;
    double value, atm;
  } lines[] = {
      {"humidity", LineKind::relativeHumidity, 90, 29.92126}, {"dry", LineKind::relativeHumidity, 10, 20},
      {"wet bulb", LineKind::wetBulb, 65, 29.92126},          {"over ice", LineKind::wetBulb, 20, 24.9},
      {"enthalpy", LineKind::enthalpy, 30, 29.92126},         {"volume", LineKind::specificVolume, 13.5, 29.92126},
  };
  for (const auto& [name, kind, value, atm] : lines) {
    const SheetPlot plot{50, 40, 1850, 1200, fullLimits, atm};
    const LineFunction w = lineFunction(kind, value, atm);
    const auto stretches = visibleLine(plot, kind, value, atm);
    ASSERT_EQ(stretches.size(), 1u) << name;
    const auto& line = stretches.front();
    const double from = plot.db(line.front().x);
    const double to = plot.db(line.back().x);
    double worst = 0;
    for (int i = 0; i <= 2000; ++i) {
      const double db = from + (to - from) * i / 2000;
      worst = std::max(worst, distanceTo(line, plot.at(db, w(db))));
    }
    EXPECT_LE(worst, 0.1) << name;
    for (const SheetPoint end : {line.front(), line.back()}) {
      const double above = plot.at(plot.db(end.x), saturationRatio(plot.db(end.x), atm)).y;
      const double off = std::min({std::abs(end.x - plot.left), std::abs(end.x - plot.right),
                                   std::abs(end.y - plot.top), std::abs(end.y - plot.bottom), std::abs(end.y - above)});
      EXPECT_LE(off, 0.1) << name;
    }
  }
}

TEST(Sheet, NothingOfTheGridIsAboveSaturation) {
  const SheetDrawing sheet = laidOut(documentOf(sheets[0]), letter);
  const auto& plot = sheet.plot;
  int quiet = 0;
  for (const SheetOperation& operation : sheet.pages[0].operations) {
    const auto* line = std::get_if<PolylineOperation>(&operation);
    const bool grid = line != nullptr && line->width < 0.7 && line->points.size() == 2 &&
                      line->points[0].x == line->points[1].x && line->points[0].y == plot.bottom;
    if (!grid) continue;
    ++quiet;
    for (const SheetPoint end : line->points) {
      EXPECT_LE(plot.w(end.y), saturationRatio(plot.db(end.x), plot.atm) + 1e-6) << plot.db(end.x);
    }
  }
  EXPECT_GT(quiet, 10);
}

TEST(Sheet, TheTableGoesOnUntilItHasEveryState) {
  const Document document = documentOf(sheets[0], 100);
  const std::size_t states = contentOf(document).states.size();
  const SheetDrawing sheet = laidOut(document, letter);
  ASSERT_GT(states, 100u);
  ASSERT_GE(sheet.pages.size(), 3u);
  std::vector<int> seen(200);
  for (const SheetPage& page : sheet.pages) {
    for (const auto* text : textsOf(page)) {
      const double number = strictNumber(text->text);
      const bool ofTheTable = text->style.bold && text->anchor == Anchor::end && number >= 1 && number < 200;
      if (ofTheTable) ++seen[static_cast<std::size_t>(number)];
    }
  }
  for (std::size_t number = 1; number <= states; ++number) EXPECT_EQ(seen[number], 1) << number;
}

TEST(Sheet, AStateThatMissesAGivenValueHasAMarkAndANote) {
  Desk desk;
  desk.draw(ChartType::standard);
  desk.point("75", "62.5", "Room");
  ASSERT_TRUE(desk.missing("Supply"));
  const SheetContent content = contentOf(desk.document());
  const std::string note =
      "* 2 Supply: this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56";
  for (const bool table : {true, false}) {
    SheetOptions options;
    options.page = letter;
    options.table = table;
    const SheetDrawing sheet = layoutSheet(content, options, extentOf);
    std::map<std::string, int> seen;
    for (const auto* text : textsOf(sheet.pages[0])) ++seen[text->text];
    EXPECT_EQ(seen["Supply*"], 1) << "on the chart";
    EXPECT_EQ(seen["Room"], table ? 2 : 1) << "no mark";
    EXPECT_EQ(seen["2*"], table ? 1 : 0) << "in the table";
    EXPECT_EQ(seen[note], 1) << "under it";
    EXPECT_EQ(faultsOf(sheet, sheet.pages[0], {}), "");
  }
}

TEST(Sheet, NotesGoOnUntilAllAreThere) {
  Desk desk;
  desk.draw(ChartType::standard);
  for (int i = 0; i < 60; ++i) ASSERT_TRUE(desk.missing(("P" + std::to_string(i)).c_str()));
  const SheetDrawing sheet = laidOut(desk.document(), letter);
  std::size_t notes = 0;
  for (const SheetPage& page : sheet.pages) {
    EXPECT_EQ(faultsOf(sheet, page, {}), "");
    for (const auto* text : textsOf(page)) notes += text->text.starts_with("* ") ? 1U : 0U;
  }
  EXPECT_EQ(notes, 60U);
}

TEST(Sheet, SaysHowManyEntriesOfThePreviousChartAreNotOnIt) {
  Document document = documentOf(sheets[0]);
  const std::size_t lines = contentOf(document).lines.size();
  for (const char* wanted : {"2 entries of the previous chart are not on this one",
                             "1 entry of the previous chart is not on this one", ""}) {
    const SheetDrawing sheet = laidOut(document, letter);
    std::string said;
    for (const auto* text : textsOf(sheet.pages.front())) {
      if (text->text.find("previous chart") != std::string::npos) said = text->text;
    }
    EXPECT_EQ(said, wanted);
    EXPECT_EQ(contentOf(document).lines.size(), lines);
    if (!document.previous.empty()) document.previous.pop_back();
  }
}

TEST(Sheet, AMixtureTellsTheSharesOfItsStreams) {
  Desk desk;
  desk.draw(ChartType::standard);
  desk.mix();
  desk.mix();
  const SheetContent content = contentOf(desk.document());
  ASSERT_EQ(content.states.size(), 6u);
  EXPECT_EQ(content.states[4].name, "Mix (2)");
  ASSERT_EQ(content.mixtures.size(), 2u);
  const auto& [one, mixed, other, share] = content.mixtures[1];
  const auto w = [&](std::size_t state) { return content.states[state].w(); };
  EXPECT_NEAR(share * w(one) + (1 - share) * w(other), w(mixed), 1e-7);
}

TEST(Sheet, PagesByTheirNames) {
  const struct {
    const char* text;
    bool portrait;
    PageSize size;  ///< of no width if there is no such page
  } pages[] = {
      {"letter", false, {1056, 816}},
      {"Letter", true, {816, 1056}},
      {"tabloid", true, {1056, 1632}},
      {"1200x800", true, {1200, 800}},
      {"11x8.5in", false, {1056, 816}},
      {"", false, {}},
      {"x", false, {}},
      {"legal", false, {}},
      {"100x800", false, {}},
      {"1e9x1e9", false, {}},
      {"-500x-500", false, {}},
      {"500xnan", false, {}},
  };
  for (const auto& [text, portrait, size] : pages) {
    EXPECT_EQ(pageNamed(text, portrait).value_or(PageSize()), size) << text;
  }
}

struct Cost {
  double time;             ///< of the processor [s]
  std::size_t operations;  ///< on the chart's page
};

/// What a sheet of so many entries takes.
Cost costOf(const Entry& entry, std::size_t count, double apart) {
  Document document = documentOf(sheets[0], 0);
  for (std::size_t i = 0; i < count; ++i) {
    document.entries.push_back(entry);
    Content& content = document.entries.back().content;
    const double shift = apart * static_cast<double>(i);
    if (auto* point = std::get_if<MarkedPoint>(&content)) point->state.db += shift;
    if (auto* line = std::get_if<PropertyLine>(&content)) line->value = numberText(50 + shift);
  }
  const std::clock_t begin = std::clock();
  const SheetDrawing sheet = layoutSheet(contentOf(document), {}, extentOf);
  return {static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, sheet.pages.front().operations.size()};
}

TEST(Sheet, EqualAndStackedEntriesTakeTimeInProportion) {
  const Document document = documentOf(sheets[0], 0);
  const auto holds = [&](auto content) {
    return *std::find_if(document.entries.begin(), document.entries.end(),
                         [&](const Entry& entry) { return std::holds_alternative<decltype(content)>(entry.content); });
  };
  const struct {
    const char* name;
    Entry entry;
    double apart;  ///< [deg F]
  } rows[] = {{"equal points", holds(MarkedPoint()), 0},      {"stacked points", holds(MarkedPoint()), 1e-5},
              {"crowded points", holds(MarkedPoint()), 1e-3}, {"equal mixtures", holds(MixingLine()), 0},
              {"equal lines", holds(PropertyLine()), 0},      {"stacked lines", holds(PropertyLine()), 1e-6},
              {"equal read-outs", holds(PinnedReading()), 0}, {"equal charts", holds(DrawnChart()), 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Cost few = costOf(row.entry, 500, row.apart);
    const Cost many = costOf(row.entry, 8000, row.apart);
    EXPECT_LT(many.time, 24 * (few.time + 0.01)) << "16 times as many";
    if (row.apart > 0) continue;
    EXPECT_EQ(many.operations, few.operations) << "what is covered is drawn once";
  }
}

}  // namespace
