/// \file
/// The parts that a sheet is made of. Each draws what has a fixed place and gives the board the labels that look for
/// one.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "sheet/sheetwork.h"

namespace moistair {

void drawZoneAreas(SheetWork& work);  ///< comfort and envelopes, under everything else
void drawZoneEdges(SheetWork& work);  ///< their edges and labels, over the weather
void drawGrid(SheetWork& work);       ///< dry bulb and humidity ratio, below saturation
void drawFamilies(SheetWork& work);   ///< relative humidity, wet bulb, specific volume and, if asked for, enthalpy
void drawFrame(SheetWork& work);      ///< the saturation curve and the edges of the plot
void drawContent(SheetWork& work);    ///< what the engineer has put on the chart

/// What a label may say, and how little one wants it to.
struct Wording {
  std::string text;
  double cost;
};

/// A label for a round mark, near it or at the end of a line from it.
void labelMark(SheetWork& work, SheetPoint at, double radius, const std::vector<Wording>& wordings, double worth);

/// The processes of an air handler as arrows, its states as dots with their names.
void drawSystem(SheetWork& work, const SolvedSystem& system);

/// A line of constant property, and two streams with their mixture.
void drawLine(SheetWork& work, const SheetLine& line);
void drawMixture(SheetWork& work, const SheetMixture& mixture);

/// Whether a state is called by its name on the chart.
bool isNamed(const SheetWork& work, const SheetState& state);
bool isOnPlot(const SheetWork& work, const SheetState& state);
std::array<const SheetState*, 3> statesOf(const SheetContent& content, const SheetMixture& mixture);

/// A reading that is kept on the chart: a cross, and a framed label with the state.
void drawCross(SheetWork& work, const SheetState& state);
/// @param above whether it may be above saturation, where there is room for few
void labelPinned(SheetWork& work, const SheetState& state, bool above);

void drawBottomScale(SheetWork& work);  ///< dry bulb
/// Humidity ratio, grains, vapor pressure and dew point. Returns the corner beyond these and the bottom scale.
SheetPoint drawRightScales(SheetWork& work);

/// The room that the scales take next to the plot [pixels].
double bottomRoom(double em);
double rightRoom(const SheetCanvas& canvas, const SheetOptions& options, const ChartLimits& limits);

/// The line of the enthalpy scale: along the left and upper edges of the plot, and at a distance along saturation.
std::vector<SheetPoint> enthalpyRule(const SheetWork& work);
void drawEnthalpyScale(SheetWork& work, const std::vector<SheetPoint>& rule);
/// The second half of that scale, below and to the right of all others: a straightedge laid from an enthalpy on one
/// half to the same one on the other runs along the line of that enthalpy.
void drawEnthalpySecondHalf(SheetWork& work, const std::vector<SheetPoint>& rule, SheetPoint corner);
/// Whether all above and left of a place is clear of a line by a gap.
bool isClearOf(const std::vector<SheetPoint>& rule, SheetPoint corner, double gap);

/// A protractor of sensible heat ratios that fills a width at a place, and the state that they hold for on the chart.
double protractorHeight(double width, double em);
void drawProtractor(SheetWork& work, SheetPoint corner, double width);
void drawReference(SheetWork& work);

/// What the chart is, in large letters from a corner downward.
double headingHeight(const SheetWork& work);
double headingWidth(const SheetWork& work);
void drawHeading(SheetWork& work, SheetPoint corner);

/// A line of the heading for each zone: its label and what it is.
std::vector<std::string> zoneLegend(const SheetContent& content);

/// The title block, in a rectangle that ends at the bottom.
double titleBlockHeight(const SheetOptions& options);
void drawTitleBlock(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const Box& area,
                    const std::string& page);

/// Draws so many rows of the table of states from the first, in a rectangle that begins at its top.
using TableDrawer = std::function<void(const Box& area, std::size_t first, std::size_t rows)>;

/// That for a table of some width [pixels], whose columns are measured once for all its pages.
double tableHeight(const SheetOptions& options, std::size_t rows);
TableDrawer tableDrawer(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width);

}  // namespace moistair
