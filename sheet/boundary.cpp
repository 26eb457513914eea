#include "sheet/boundary.h"

#include <algorithm>

#include "engine/saturation.h"
#include "sheet/curves.h"
#include "sheet/halving.h"

namespace moistair {

double saturationDb(const SheetPlot& plot, double w) {
  const auto below = [&](double db) { return saturationRatio(db, plot.atm) <= w; };
  if (!below(plot.limits.lowDb)) return plot.limits.lowDb;
  if (below(plot.limits.highDb)) return plot.limits.highDb;
  return lastWith(below, plot.limits.lowDb, plot.limits.highDb);
}

double topRatio(const SheetPlot& plot, double db) {
  return std::min(plot.limits.highHr, saturationRatio(db, plot.atm));
}

Boundary boundaryOf(const SheetPlot& plot) {
  const auto& [lowDb, highDb, lowHr, highHr] = plot.limits;
  Boundary boundary;
  boundary.highHr = topRatio(plot, highDb);
  boundary.lowDb = saturationDb(plot, lowHr);
  if (!(boundary.highHr > lowHr)) return boundary;
  boundary.empty = false;
  const double atLeft = topRatio(plot, lowDb);
  if (atLeft > lowHr) boundary.left = {plot.at(lowDb, lowHr), plot.at(lowDb, atLeft)};
  const double endDb = saturationDb(plot, highHr);
  if (endDb > boundary.lowDb) {
    const auto saturation = [&](double db) { return saturationRatio(db, plot.atm); };
    boundary.saturation = traced(plot, saturation, boundary.lowDb, endDb);
  }
  if (endDb < highDb) boundary.top = {plot.at(endDb, highHr), plot.at(highDb, highHr)};
  return boundary;
}

std::vector<SheetPoint> Boundary::outline(const SheetPlot& plot) const {
  std::vector<SheetPoint> points = {plot.at(lowDb, plot.limits.lowHr)};
  for (const auto* part : {&left, &saturation, &top}) points.insert(points.end(), part->begin(), part->end());
  points.push_back(plot.at(plot.limits.highDb, highHr));
  points.push_back(plot.at(plot.limits.highDb, plot.limits.lowHr));
  points.push_back(points.front());
  return points;
}

}  // namespace moistair
