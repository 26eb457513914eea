/// \file
/// The sheets that the tests lay out and the recorder records, and what their texts measure.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "model/desk.h"
#include "sheet/layout.h"

namespace moistair::test {

/// About what a sans serif font measures.
inline TextExtent extentOf(const std::string& text, double size, bool bold) {
  std::size_t letters = 0;
  for (const char c : text) letters += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  return {static_cast<double>(letters) * size * (bold ? 0.66 : 0.6), 0.76 * size, 0.22 * size};
}

struct Sheet {
  const char* name;
  LimitTexts limits;
  PressureEntry pressure;
  PageSize page;
};

inline constexpr PageSize letter{1056, 816};
inline constexpr PageSize upright{816, 1056};
inline constexpr PageSize a3{1587, 1123};
inline constexpr PageSize small{640, 420};
inline constexpr PageSize wide{1366, 560};
inline const PressureEntry sea{PressureUnit::standard, defaultPressureText};
inline const PressureEntry mountain{PressureUnit::elevation, "5000"};
inline const PressureEntry low{PressureUnit::inhg, "20"};
inline const PressureEntry lowest{PressureUnit::inhg, "5.906"};
inline const PressureEntry highest{PressureUnit::inhg, "147.65"};

inline const Sheet sheets[] = {
    {"whole", {"0", "120", "0", "0.030"}, sea, letter},
    {"whole upright", {"0", "120", "0", "0.030"}, sea, upright},
    {"mountain", {"40", "90", "0", "0.030"}, mountain, letter},
    {"thin air", {"40", "90", "0", "0.030"}, low, upright},
    {"thinnest air", {"0", "120", "0", "0.030"}, lowest, a3},
    {"dense air", {"0", "120", "0", "0.010"}, highest, letter},
    {"ten degrees", {"70", "80", "0", "0.030"}, sea, a3},
    {"cold", {"0", "30", "0", "0.010"}, mountain, letter},
    {"cold and high", {"0", "40", "0", "0.030"}, sea, wide},
    {"all below saturation", {"80", "120", "0", "0.010"}, sea, letter},
    {"from 0.010 up", {"0", "120", "0.010", "0.030"}, low, wide},
    {"small", {"0", "120", "0", "0.030"}, mountain, small},
    {"screen", {"0", "120", "0", "0.030"}, sea, wide},
    {"a strip", {"0", "90", "0.020", "0.030"}, lowest, {3000, 300}},
    {"a slip", {"10", "70", "0", "0.030"}, highest, {300, 1000}},
    {"smallest", {"30", "70", "0.020", "0.030"}, mountain, {leastSide, leastSide}},
    {"no air at all", {"0", "20", "0.020", "0.030"}, sea, letter},
};

/// A chart with what its limits let in: a crowd of points about a room, a mixture, two read-outs, a line of each kind.
inline Document documentOf(const Sheet& sheet, int crowd = 6) {
  Desk desk;
  desk.lists = sheet.limits;
  desk.setPressure(sheet.pressure);
  desk.draw(ChartType::standard);
  desk.point("75", "62", "Room");
  desk.point("56", "55", "Supply air behind the coil, as measured");
  desk.point("28", "24", "");
  desk.point("20", "12.3", "Zone");
  desk.point("119.8", "83", "Zone");
  for (int i = 0; i < crowd; ++i) desk.point(std::to_string(76 + i / 3).c_str(), "61.5", "Zone");
  desk.mix("74", "60", "88", "71");
  desk.pin();
  desk.pin({58, 0.006});
  desk.rhLine("55");
  desk.line(LineKind::wetBulb, "63");
  desk.line(LineKind::enthalpy, "27");
  desk.line(LineKind::specificVolume, "13.7");
  Document document = desk.document();
  document.previous.assign(2, LeftOut{document.entries.back(), {}});
  return document;
}

inline SheetOptions looking(const PageSize& page, SheetColors colors = SheetColors::color) {
  SheetOptions options;
  options.page = page;
  options.colors = colors;
  options.title = "Supply air";
  options.project = "Clinic";
  options.drawnBy = "A. Writer";
  options.date = "2020-01-31";
  options.program = "Program";
  return options;
}

struct RecordedSheet {
  const char* name;
  Document document;
  SheetOptions options;
};

/// Paper sizes, altitude, cold, crowded, mixtures, read-outs, the three looks, upright, no parts but the chart.
inline std::vector<RecordedSheet> recordedSheets() {
  const auto sheet = [](const char* name) -> const Sheet& {
    return *std::find_if(std::begin(sheets), std::end(sheets),
                         [&](const Sheet& s) { return s.name == std::string(name); });
  };
  std::vector<RecordedSheet> recorded = {
      {"letter", documentOf(sheet("whole")), looking(letter)},
      {"upright-a4", documentOf(sheet("mountain")), looking({794, 1123})},
      {"a3-ten-degrees", documentOf(sheet("ten degrees")), looking(a3)},
      {"tabloid-dark", documentOf(sheet("thin air")), looking({1632, 1056}, SheetColors::dark)},
      {"cold", documentOf(sheet("cold")), looking(letter)},
      {"crowded", documentOf(sheet("whole"), 40), looking(letter)},
      {"gray", documentOf(sheet("dense air")), looking(letter, SheetColors::gray)},
      {"small", documentOf(sheet("small")), looking(small)},
  };
  recorded[3].options.enthalpyLines = true;
  recorded[7].options.titleBlock = recorded[7].options.table = recorded[7].options.protractor = false;
  recorded[7].options.letterSize = 9;
  Desk mixtures, pinned;
  mixtures.draw(ChartType::blank);
  mixtures.mix();
  mixtures.mix("40", "38", "100", "72");
  pinned.setPressure(mountain);
  pinned.draw();
  pinned.pin();
  pinned.pin({58, 0.006});
  pinned.pin({98, 0.022});
  recorded.push_back({"mixtures-numbered", mixtures.document(), looking(letter)});
  recorded.back().options.labels = PointLabels::numbers;
  recorded.push_back({"pinned", pinned.document(), looking(wide)});
  return recorded;
}

inline std::vector<const SheetTextOperation*> textsOf(const SheetPage& page) {
  std::vector<const SheetTextOperation*> texts;
  for (const SheetOperation& operation : page.operations) {
    if (const auto* text = std::get_if<SheetTextOperation>(&operation)) texts.push_back(text);
  }
  return texts;
}

}  // namespace moistair::test
