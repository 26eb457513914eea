/// \file
/// How a sheet is to look: its page, its colors, its letters, and the texts of its title block.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "chart/chartframe.h"

namespace moistair {

/// A page's sides [pixels of 1/96 inch].
struct PageSize {
  double width = 0;
  double height = 0;

  bool operator==(const PageSize&) const = default;
};

/// A page by its name, upright [inches].
struct NamedPage {
  const char* name;  ///< as it is typed
  const char* text;  ///< as a list shows it
  double width, height;
};

inline constexpr std::array<NamedPage, 4> namedPages = {{
    {"letter", "Letter", 8.5, 11},
    {"a4", "A4", 210 / 25.4, 297 / 25.4},
    {"tabloid", "Tabloid", 11, 17},
    {"a3", "A3", 297 / 25.4, 420 / 25.4},
}};

inline constexpr double pixelsPerInch = 96;

/// Sides that a page may have [pixels]: none smaller shows a chart, none larger is paper.
inline constexpr double leastSide = 200;
inline constexpr double mostSide = 20000;

PageSize pageOf(const NamedPage& page, bool portrait);

/// "letter", "1200x800" in pixels or "11x8.5in"; a named page is landscape unless it is to be portrait. Nothing for
/// any other text and for sides that are out of range.
std::optional<PageSize> pageNamed(std::string_view text, bool portrait);

/// What a page's size is, for whoever has typed something else: "two sides from 200 to ...".
std::string sizeInWords();

enum class SheetColors { color, gray, dark };
inline constexpr std::array<const char*, 3> colorNames = {"color", "gray", "dark"};

/// The label of a point that has an identification; one without always has its number.
enum class PointLabels { names, numbers };

struct SheetOptions {
  std::optional<ChartLimits> limits{};  ///< in place of the chart's own
  PageSize page{pixelsPerInch * 11, pixelsPerInch * 8.5};
  double margin = 30;  ///< left empty [pixels]
  SheetColors colors = SheetColors::color;
  double letterSize =
      0;  ///< of numbers on scales, all other letters in proportion [pixels]; 0 for one that suits the page
  PointLabels labels = PointLabels::names;
  bool enthalpyLines = false;
  bool protractor = true;
  bool reference = true;  ///< the mark of the state that the protractor holds for
  bool titleBlock = true;
  bool table = true;  ///< of the states on the chart
  bool notes = true;  ///< on the states that have a mark, under the table or in its place
  std::string title, project, drawnBy, date;
  std::string program;  ///< its name and version
};

/// The furthest that limits of one's own may be: whole degrees and thousandths of lb/lb.
inline constexpr ChartLimits widestLimits{-40, 200, 0, 0.1};

/// Whether limits can be those of a sheet: whole degrees and thousandths within the widest, each pair rising.
bool areSheetLimits(const ChartLimits& limits);

/// Letters that can be read and still leave room for a chart [pixels].
inline constexpr double leastLetters = 5;
inline constexpr double mostLetters = 40;

/// The size of letters that suits a page: 7.5 points on a sheet of paper.
double lettersFor(const PageSize& page);

/// The smallest that any text of a sheet is shrunk to: 5.5 points, or in proportion to its letters on a small page.
double smallestFor(double letterSize);

/// The largest letters that leave room for a chart on a page [pixels].
double mostLettersFor(const PageSize& page);

}  // namespace moistair
