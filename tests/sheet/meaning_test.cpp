// What the texts of a sheet say is so: each is compared with what the engine has at the place where it is.
#include <cmath>
#include <functional>
#include <map>

#include "chart/reading.h"
#include "engine/moistair.h"
#include "engine/vaporterms.h"
#include "sheet/cases.h"
#include "sheet/geometry.h"

namespace {

using namespace moistair;
using namespace moistair::test;

double numberIn(std::string text) {
  if (text.starts_with("−")) text.replace(0, std::string("−").size(), "-");
  return strictNumber(text);
}

SheetPoint centerOf(const SheetTextOperation& text) {
  return textBox(text, extentOf(text.text, text.style.size, text.style.bold)).center;
}

StatePoint airAt(double db, double w, double atm) {
  return readingAt({-400, 500, -1, 5}, atm, {db, w})
      .state.value_or(StatePoint{noValue, noValue, noValue, noValue, noValue, noValue, noValue, noValue});
}

/// The first page of a sheet as its reader sees it.
struct Page {
  explicit Page(const SheetContent& content, const SheetOptions& options)
      : drawing(layoutSheet(content, options, extentOf)), plot(drawing.plot), texts(textsOf(drawing.pages[0])) {
    for (const SheetOperation& operation : drawing.pages[0].operations) {
      const auto* line = std::get_if<PolylineOperation>(&operation);
      if (line != nullptr && line->points.size() == 2) straight.push_back(line);
    }
    if (const auto* title = find("Dry bulb temperature, °F")) em = title->style.size;
  }

  const SheetTextOperation* find(const std::string& words) const {
    for (const auto* text : texts) {
      if (text->text == words) return text;
    }
    return nullptr;
  }

  /// The places of the numbers that are so large and lie in a rectangle, with what they say.
  std::vector<std::pair<SheetPoint, double>> numbers(double size, SheetPoint low, SheetPoint high) const {
    std::vector<std::pair<SheetPoint, double>> found;
    for (const auto* text : texts) {
      const SheetPoint at = centerOf(*text);
      const double value = numberIn(text->text);
      const bool inside = at.x > low.x && at.y > low.y && at.x < high.x && at.y < high.y;
      if (text->style.bold && size == 1) continue;  // a point's
      if (inside && value == value && std::abs(text->style.size - size * em) < 0.01) found.emplace_back(at, value);
    }
    return found;
  }

  /// Where the tick of a number begins: of the lines of such lengths the one that ends nearest to it.
  SheetPoint tickTo(SheetPoint number, double least, double most = 3) const {
    const PolylineOperation* nearest = nullptr;
    for (const auto* line : straight) {
      const double length = distance(line->points[0], line->points[1]) / em;
      if (length < least - 0.01 || length > most + 0.01) continue;
      if (nearest == nullptr || distance(line->points[1], number) < distance(nearest->points[1], number))
        nearest = line;
    }
    return nearest->points[0];
  }

  /// How many pixels a property that depends on the place is off the value that a text says it has there.
  double off(SheetPoint at, double value, const std::function<double(double db, double w)>& property) const {
    const auto there = [&](double x, double y) { return property(plot.db(at.x + x), plot.w(at.y + y)); };
    const auto slope = [&](double x, double y) {  // on one side there may be no air
      const double one = there(x, y);
      return std::abs((one == one ? one : there(-x, -y)) - there(0, 0));
    };
    return std::abs(there(0, 0) - value) / std::hypot(slope(1, 0), slope(0, 1));
  }

  SheetDrawing drawing;
  SheetPlot plot;
  std::vector<const SheetTextOperation*> texts;
  std::vector<const PolylineOperation*> straight;
  double em = noValue;
};

/// Every recorded sheet, and those of all limits and pressures.
void onEachPage(const std::function<void(const Page&, const SheetContent&)>& look) {
  std::vector<RecordedSheet> all = recordedSheets();
  for (const Sheet& sheet : sheets) all.push_back({sheet.name, documentOf(sheet), looking(sheet.page)});
  for (const RecordedSheet& sheet : all) {
    SCOPED_TRACE(sheet.name);
    const SheetContent content = contentOf(sheet.document);
    const Page page(content, sheet.options);
    if (page.em == page.em) look(page, content);
  }
}

constexpr double near = 0.25;  // pixels

TEST(SheetNumbers, AreWhereTheEngineHasTheirValues) {
  std::map<std::string, int> seen;
  onEachPage([&](const Page& page, const SheetContent&) {
    const SheetPlot& plot = page.plot;
    const double em = page.em;
    const auto dryBulb = [](double db, double) { return db; };
    for (const auto& [at, value] : page.numbers(1, {0, plot.bottom}, {plot.right + em, plot.bottom + 2.5 * em})) {
      EXPECT_LT(page.off(at, value, dryBulb), near) << "dry bulb " << value;
      EXPECT_LT(page.off(page.tickTo(at, 0.75, 0.75), value, dryBulb), near) << "tick of dry bulb " << value;
      ++seen["dry bulb"];
    }
    const std::map<char, std::function<double(double)>> ratios = {
        {'H', [](double w) { return w; }},
        {'G', [](double w) { return 7000 * w; }},
        {'V', [&](double w) { return pressureOfRatio(w, plot.atm); }},
        {'D', [&](double w) { return psychro_dp(pressureOfRatio(w, plot.atm)); }}};
    double left = plot.right;
    std::vector<const SheetTextOperation*> titles;
    for (const auto* text : page.texts) {
      if (text->angle == -90 && text->at.x > plot.right && text->text[0] != 'E') titles.push_back(text);
    }
    if (titles.size() != 4 || titles[0]->text[0] != 'H') titles.clear();  // too short for their titles
    for (const auto* title : titles) {
      const std::string full = title->text;
      for (const auto& [at, value] : page.numbers(1, {left, plot.top - em}, {title->at.x, plot.bottom + em / 4})) {
        const auto& ratio = ratios.at(full[0]);
        if (full[0] == 'D' && std::abs(value - 32) < 1.5) continue;  // the dew point jumps there
        EXPECT_LT(page.off(at, value, [&](double, double w) { return ratio(w); }), near) << full << " " << value;
        EXPECT_NEAR(page.tickTo(at, 0.75, 0.75).y, at.y, near);
        ++seen[full.substr(0, 3)];
      }
      left = title->at.x;
    }
    for (const auto& [at, value] : page.numbers(1, {0, 0}, {plot.right, plot.bottom})) {
      EXPECT_LT(page.off(page.tickTo(at, 0.75), value, enthalpyOf), near) << "enthalpy " << value;
      ++seen["enthalpy"];
    }
    for (const auto& [at, value] : page.numbers(1, {0, plot.bottom + 4 * em}, {plot.right, plot.bottom + 7 * em})) {
      EXPECT_LT(page.off(page.tickTo(at, 0.75), value, enthalpyOf), near) << "second half of enthalpy " << value;
      ++seen["second half"];
    }
    for (const auto& [at, value] : page.numbers(0.9, {0, 0}, {plot.right, plot.bottom})) {
      EXPECT_LT(page.off(page.tickTo(at, 0.4, 0.4), value, dryBulb), near) << "wet bulb " << value;
      ++seen["wet bulb"];
    }
  });
  for (const char* scale : {"dry bulb", "enthalpy", "wet bulb", "second half", "Hum", "Gra", "Vap", "Dew"}) {
    EXPECT_GT(seen[scale], 60) << "numbers seen on the scale of " << scale;
  }
}

/// A property of the air at a place of the chart, by what a line's label says behind the number.
const std::map<std::string, double StatePoint::*> lineUnits = {{" %", &StatePoint::rh},
                                                               {" % RH", &StatePoint::rh},
                                                               {" % relative humidity", &StatePoint::rh},
                                                               {" °F wet bulb", &StatePoint::wb},
                                                               {" cu ft per lb of dry air", &StatePoint::v},
                                                               {" Btu per lb of dry air", &StatePoint::h}};
const std::map<std::string, double StatePoint::*> lineSymbols = {
    {"WB ", &StatePoint::wb}, {"h ", &StatePoint::h}, {"v ", &StatePoint::v}};

TEST(SheetLabels, AreOnTheLinesThatTheyName) {
  std::map<double StatePoint::*, int> seen;
  int labels = 0;
  onEachPage([&](const Page& page, const SheetContent& content) {
    for (const auto* text : page.texts) {
      const SheetPoint at = centerOf(*text);
      if (!page.plot.holds(at)) continue;
      double StatePoint::*property = nullptr;
      double value = noValue;
      const std::size_t behind = text->text.find_first_not_of("0123456789.");
      const std::string unit = behind == std::string::npos ? "" : text->text.substr(behind);
      if (lineUnits.contains(unit)) property = lineUnits.at(unit), value = numberIn(text->text.substr(0, behind));
      for (const auto& [symbol, named] : lineSymbols) {
        if (text->style.bold && text->text.starts_with(symbol))
          property = named, value = lenientNumber(text->text.substr(symbol.size()));
      }
      if (property == nullptr) continue;
      const auto there = [&](double db, double w) { return airAt(db, w, content.pressure.atm).*property; };
      const double next = text->part == SheetPart::lines ? 1.35 * page.em : 0;  // not on the line but next to it
      EXPECT_LT(page.off(at, value, there), 2.5 + next) << text->text;
      ++labels;
    }
  });
  EXPECT_GT(labels, 150);
}

TEST(SheetTable, HasTheStatesUnderTheirHeads) {
  const std::map<std::string, std::pair<double StatePoint::*, const char*>> heads = {
      {"Dry bulb", {&StatePoint::db, "°F"}},        {"Wet bulb", {&StatePoint::wb, "°F"}},
      {"Rel. hum.", {&StatePoint::rh, "%"}},        {"Enthalpy", {&StatePoint::h, "Btu/lb"}},
      {"Sp. volume", {&StatePoint::v, "cu ft/lb"}}, {"Hum. ratio", {&StatePoint::w, "lb/lb"}},
      {"Dew point", {&StatePoint::dp, "°F"}},       {"Vapor pr.", {&StatePoint::pv, "in Hg"}}};
  int seen = 0;
  onEachPage([&](const Page& page, const SheetContent& content) {
    for (const SheetPage& one : page.drawing.pages) {
      std::map<double, std::string> row;  // texts that end at an x, as they come; heads stay
      std::map<double, const std::pair<double StatePoint::*, const char*>*> columns;
      const SheetState* state = nullptr;
      for (const auto* text : textsOf(one)) {
        if (text->anchor != Anchor::end || text->at.x > page.plot.right + 20 * page.em) continue;
        if (heads.contains(text->text)) columns[text->at.x] = &heads.at(text->text);
        const auto column = columns.find(text->at.x);
        const double number = numberIn(text->text);
        if (column == columns.end()) {
          if (!columns.empty() && text->style.bold && number >= 1)
            state = &content.states.at(static_cast<std::size_t>(number) - 1);
        } else if (!(number == number) && !heads.contains(text->text)) {
          EXPECT_EQ(text->text, column->second->second);
        } else if (state != nullptr && number == number) {
          const double engine = airAt(state->db(), state->w(), state->atm).*column->second->first;
          const std::size_t point = text->text.find('.');
          EXPECT_NEAR(number, engine, 0.7 * std::pow(10, -double(text->text.size() - point - 1)))
              << state->number << column->second->second;
          ++seen;
        }
      }
    }
  });
  EXPECT_GT(seen, 1000);
}

TEST(SheetMixture, SaysHowMuchOfEachStreamIsInIt) {
  int seen = 0;
  onEachPage([&](const Page& page, const SheetContent& content) {
    for (const auto* text : page.texts) {
      double shares[2] = {};
      char names[2][80] = {};
      if (std::sscanf(text->text.c_str(), "%lf %% of %79[^+] + %lf %% of %79[^\n]", &shares[0], names[0], &shares[1],
                      names[1]) != 4)
        continue;
      ++seen;
      double w = 0, h = 0;
      const SheetMixture* mixture = nullptr;
      for (int i = 0; i < 2; ++i) {
        std::string name = names[i];
        while (name.ends_with(' ')) name.pop_back();
        for (const SheetState& state : content.states) {
          if (state.name != name && std::to_string(state.number) != name) continue;
          w += shares[i] / 100 * state.w();
          h += shares[i] / 100 * state.properties[3];
          for (const SheetMixture& one : content.mixtures) {
            if (state.number - 1 == static_cast<int>(one.one)) mixture = &one;
          }
        }
      }
      ASSERT_NE(mixture, nullptr) << text->text;
      const SheetState& mixed = content.states[mixture->mixed];
      EXPECT_NEAR(w, mixed.w(), 5e-5) << text->text;
      EXPECT_NEAR(h, mixed.properties[3], 0.1) << text->text;
    }
  });
  EXPECT_GE(seen, 5);
}

/// Numbers are moved along the rim where they would be too close, so that the ticks are found by their order.
TEST(SheetProtractor, HasTicksAlongTheProcessesOfTheirRatiosAndSlopes) {
  int seen = 0;
  onEachPage([&](const Page& page, const SheetContent&) {
    const auto* caption = page.find("Outside: sensible heat / total heat");
    if (caption == nullptr) return;
    const SheetPoint center = centerOf(*caption) - SheetPoint{0, 1.3 * page.em};
    const auto angle = [&](SheetPoint at) { return std::atan2(center.y - at.y, at.x - center.x); };
    std::map<double, SheetPoint> ticks[2];  // by angle, outside and inside
    std::map<double, std::string> numbers[2];
    double rim = 0;
    for (const auto* line : page.straight) {
      if (line->part != SheetPart::protractor || distance(line->points[0], center) < 1) continue;
      const double length = distance(line->points[0], line->points[1]);
      if (std::abs(length - 0.45 * page.em) > 0.01) continue;
      rim = std::max(rim, distance(line->points[0], center));
    }
    for (const auto* line : page.straight) {
      const double length = distance(line->points[0], line->points[1]);
      if (line->part != SheetPart::protractor || std::abs(length - 0.45 * page.em) > 0.01) continue;
      if (distance(line->points[0], center) > 1.01 * rim) continue;  // the mark of the state
      ticks[distance(line->points[0], center) < 0.9 * rim][angle(line->points[0])] = line->points[0];
    }
    for (const auto* text : page.texts) {
      if (text->part != SheetPart::protractor || std::abs(text->style.size - 0.8 * page.em) > 0.01) continue;
      numbers[distance(centerOf(*text), center) < 0.9 * rim][angle(centerOf(*text))] = text->text;
    }
    const double w = psychro_wrh(78, 50, page.plot.atm);
    const double sensible = enthalpyOf(79, w) - enthalpyOf(78, w);
    const double latent = enthalpyOf(78, 1) - enthalpyOf(78, 0);
    for (const bool inside : {false, true}) {
      ASSERT_EQ(ticks[inside].size(), inside ? 7U : 15U);
      ASSERT_EQ(numbers[inside].size(), ticks[inside].size());
      auto number = numbers[inside].begin();
      for (const auto& [at, tick] : ticks[inside]) {
        const std::string text = (number++)->second;
        const double value = text == "∞" ? 1e6 : numberIn(text);
        const double wanted = inside ? value : latent / (1 - value);  // both as an enthalpy to the lb of water
        const auto toward = [&](double q) {
          return unit({(q - latent) / sensible * page.plot.perDb(), -page.plot.perW()});
        };
        const SheetPoint exact = value == 1 && !inside ? SheetPoint{1, 0} : toward(wanted);
        EXPECT_LT(std::abs(cross(exact, tick - center)), 0.25) << text;
        ++seen;
      }
    }
  });
  EXPECT_GT(seen, 150);
}

TEST(SheetLines, AreWhereTheEngineHasTheirValues) {
  const std::map<SheetPart, std::pair<double StatePoint::*, double>> families = {
      {SheetPart::relativeHumidity, {&StatePoint::rh, 10}},
      {SheetPart::wetBulb, {&StatePoint::wb, 0.5}},
      {SheetPart::specificVolume, {&StatePoint::v, 0.05}}};  // dense air has its lines closer
  std::map<SheetPart, int> seen;
  onEachPage([&](const Page& page, const SheetContent& content) {
    if (page.plot.limits.highDb - page.plot.limits.lowDb < 50) return;  // which has lines between these
    for (const SheetOperation& operation : page.drawing.pages[0].operations) {
      const auto* line = std::get_if<PolylineOperation>(&operation);
      if (line == nullptr || !families.contains(line->part) || lengthOf(line->points) < 3 * page.em) continue;
      const auto& [property, step] = families.at(line->part);
      for (const double part : {0.2, 0.5, 0.9}) {
        const SheetPoint at = pointOnLine(line->points, part * lengthOf(line->points)).at;
        const auto there = [&](double db, double w) { return airAt(db, w, content.pressure.atm).*property; };
        const double value = there(page.plot.db(at.x), page.plot.w(at.y));
        if (!(value == value) || (line->part == SheetPart::wetBulb && std::abs(value - 32) < 1.5)) continue;
        EXPECT_LT(page.off(at, std::round(value / step) * step, there), 0.25) << nameOf(line->part) << " " << value;
        ++seen[line->part];
      }
    }
  });
  for (const auto& [part, family] : families) EXPECT_GT(seen[part], 60) << nameOf(part);
}

}  // namespace
