/// \file
/// How a sheet is to look: its page, its colours, its letters, and what stands in its title block.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

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
  const char* text;  ///< as it stands in a list
  double width, height;
};

inline constexpr std::array<NamedPage, 4> namedpages = {{
    {"letter", "Letter", 8.5, 11},
    {"a4", "A4", 210 / 25.4, 297 / 25.4},
    {"tabloid", "Tabloid", 11, 17},
    {"a3", "A3", 297 / 25.4, 420 / 25.4},
}};

inline constexpr double pixelsperinch = 96;

/// Sides that a page may have [pixels]: none smaller shows a chart, none larger is paper.
inline constexpr double leastside = 200;
inline constexpr double mostside = 20000;

PageSize pageof(const NamedPage& page, bool portrait);

/// "letter", "1200x800" in pixels or "11x8.5in"; a named page lies on its long side unless it is to stand. Nothing for
/// any other text and for sides that are out of range.
std::optional<PageSize> pagenamed(std::string_view text, bool portrait);

/// What a page's size is, for whoever has typed something else: "two sides from 200 to ...".
std::string sizeinwords();

enum class SheetColors { color, grey, dark };
inline constexpr std::array<const char*, 3> colornames = {"color", "gray", "dark"};

/// What stands beside the mark of a point that has an identification; one without always has its number.
enum class PointLabels { names, numbers };

struct SheetOptions {
  PageSize page{pixelsperinch * 11, pixelsperinch * 8.5};
  double margin = 30;  ///< that nothing stands in [pixels]
  SheetColors colors = SheetColors::color;
  double lettersize =
      0;  ///< of numbers on scales, all other letters in proportion [pixels]; 0 for one that suits the page
  PointLabels labels = PointLabels::names;
  bool enthalpylines = false;
  bool protractor = true;
  bool titleblock = true;
  bool table = true;  ///< of the states that stand on the chart
  bool notes = true;  ///< on the states that have a mark, under the table or in its place
  std::string title, project, drawnby, date;
  std::string program;  ///< its name and version
};

/// Letters that can be read and still leave room for a chart [pixels].
inline constexpr double leastletters = 5;
inline constexpr double mostletters = 40;

/// The size of letters that suits a page: 7.5 points on a sheet of paper.
double lettersfor(const PageSize& page);

/// The largest letters that leave room for a chart on a page [pixels].
double mostlettersfor(const PageSize& page);

}  // namespace moistair
