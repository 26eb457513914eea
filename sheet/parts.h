/// \file
/// The parts that a sheet is made of. Each draws what has a fixed place and gives the board the labels that look for
/// one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "sheet/sheetwork.h"

namespace moistair {

void drawgrid(SheetWork& work);      ///< dry bulb and humidity ratio, below saturation
void drawfamilies(SheetWork& work);  ///< relative humidity, wet bulb, specific volume and, if asked for, enthalpy
void drawframe(SheetWork& work);     ///< the saturation curve and the edges of the plot
void drawcontent(SheetWork& work);   ///< what the engineer has put on the chart

/// A reading that is kept on the chart: a cross, and a framed label with the state.
void drawcross(SheetWork& work, const SheetState& state);
void labelpinned(SheetWork& work, const SheetState& state);

void drawbottomscale(SheetWork& work);  ///< dry bulb
void drawrightscales(SheetWork& work);  ///< humidity ratio, grains, vapour pressure and dew point

/// The room that the scales take beside the plot [pixels].
double bottomroom(double em);
double rightroom(const SheetCanvas& canvas, const SheetOptions& options, const ChartLimits& limits);

/// The line of the enthalpy scale: along the left and upper edges of the plot, and at a distance along saturation.
std::vector<SheetPoint> enthalpyrule(const SheetWork& work);
void drawenthalpyscale(SheetWork& work, const std::vector<SheetPoint>& rule);

/// A protractor of sensible heat ratios that fills a width at a place, and the state that they hold for on the chart.
double protractorheight(double width, double em);
void drawprotractor(SheetWork& work, SheetPoint corner, double width);
void drawreference(SheetWork& work);

/// What the chart is, in large letters from a corner downwards.
double headingheight(const SheetWork& work);
double headingwidth(const SheetWork& work);
void drawheading(SheetWork& work, SheetPoint corner);

/// The title block, in a rectangle that ends at the bottom.
double titleblockheight(const SheetOptions& options);
void drawtitleblock(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const Box& area,
                    const std::string& page);

/// Draws so many rows of the table of states from the first, in a rectangle that begins at its top.
using TableDrawer = std::function<void(const Box& area, std::size_t first, std::size_t rows)>;

/// That for a table of some width [pixels], whose columns are measured once for all its pages.
double tableheight(const SheetOptions& options, std::size_t rows);
TableDrawer tabledrawer(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, double width);

}  // namespace moistair
