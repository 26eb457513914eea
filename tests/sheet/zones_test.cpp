#include "engine/saturation.h"
#include "sheet/cases.h"
#include "sheet/geometry.h"

using namespace moistair;
using namespace moistair::test;

namespace {

Document withZones(const Sheet& sheet) {
  Document document = documentOf(sheet, 1);
  const Envelope cool{"Cool", "Cool store", {{PropertyKind::db, 35, 50}, {PropertyKind::rh, 40, 100}}, {}};
  document.zoneLayer.zones = {ComfortZone{{.clo = 1}}, AdaptiveZone{60}, cool};
  return document;
}

/// Areas that come before any line or text.
std::vector<const AreaOperation*> firstAreas(const SheetPage& page) {
  std::vector<const AreaOperation*> areas;
  for (const SheetOperation& operation : page.operations) {
    if (std::holds_alternative<SheetTextOperation>(operation) && areas.empty()) continue;  // of the heading
    const auto* area = std::get_if<AreaOperation>(&operation);
    if (area == nullptr) break;
    areas.push_back(area);
  }
  return areas;
}

}  // namespace

TEST(SheetZones, LieUnderEverythingElseWithinTheChartAndAreNamed) {
  const struct {
    std::size_t sheet;
    std::size_t pieces;
    std::vector<const char*> labels;
  } rows[] = {{0, 3, {"1 clo, 1.1 met", "Adaptive, 80 %"}}, {2, 3, {"Adaptive, 80 %"}}, {4, 3, {}}, {7, 0, {}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(sheets[row.sheet].name);
    const Document document = withZones(sheets[row.sheet]);
    SheetOptions options;
    options.page = sheets[row.sheet].page;
    options.protractor = false;
    const SheetDrawing sheet = layoutSheet(contentOf(document), options, extentOf);
    const auto areas = firstAreas(sheet.pages.front());
    EXPECT_EQ(areas.size(), row.pieces);
    for (const AreaOperation* area : areas) {
      for (const SheetPoint at : area->outline) {
        const double db = sheet.plot.db(at.x);
        const double w = sheet.plot.w(at.y);
        EXPECT_TRUE(db > sheet.plot.limits.lowDb - 1e-6 && db < sheet.plot.limits.highDb + 1e-6) << db;
        EXPECT_LE(w, saturationRatio(db, sheet.plot.atm) * (1 + 1e-9));
        EXPECT_GE(w, sheet.plot.limits.lowHr - 1e-9);
      }
    }
    std::vector<std::string> said;
    for (const auto* text : textsOf(sheet.pages.front())) said.push_back(text->text);
    for (const char* label : row.labels) EXPECT_EQ(std::count(said.begin(), said.end(), label), 1) << label;
    const auto starts = [](const std::string& text) { return text.starts_with("Adaptive, 80 %: Adaptive comfort"); };
    EXPECT_EQ(std::count_if(said.begin(), said.end(), starts), 1);
  }
}

TEST(SheetZones, AreLeftOutWhileTheyAreSwitchedOff) {
  Document document = withZones(sheets[0]);
  document.zoneLayer.shown = false;
  EXPECT_TRUE(contentOf(document).zones.empty());
}
