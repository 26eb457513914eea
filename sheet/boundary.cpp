#include "sheet/boundary.h"

#include <algorithm>

#include "engine/saturation.h"
#include "sheet/curves.h"
#include "sheet/halving.h"

namespace moistair {

double saturationdb(const SheetPlot& plot, double w) {
  const auto below = [&](double db) { return saturationratio(db, plot.atm) <= w; };
  if (!below(plot.limits.lowdb)) return plot.limits.lowdb;
  if (below(plot.limits.highdb)) return plot.limits.highdb;
  return lastwith(below, plot.limits.lowdb, plot.limits.highdb);
}

double highestratio(const SheetPlot& plot, double db) {
  return std::min(plot.limits.highhr, saturationratio(db, plot.atm));
}

Boundary boundaryof(const SheetPlot& plot) {
  const auto& [lowdb, highdb, lowhr, highhr] = plot.limits;
  Boundary boundary;
  boundary.highhr = highestratio(plot, highdb);
  boundary.lowdb = saturationdb(plot, lowhr);
  if (!(boundary.highhr > lowhr)) return boundary;
  boundary.empty = false;
  const double atleft = highestratio(plot, lowdb);
  if (atleft > lowhr) boundary.left = {plot.at(lowdb, lowhr), plot.at(lowdb, atleft)};
  const double enddb = saturationdb(plot, highhr);
  if (enddb > boundary.lowdb) {
    const auto saturation = [&](double db) { return saturationratio(db, plot.atm); };
    boundary.saturation = traced(plot, saturation, boundary.lowdb, enddb);
  }
  if (enddb < highdb) boundary.top = {plot.at(enddb, highhr), plot.at(highdb, highhr)};
  return boundary;
}

std::vector<SheetPoint> Boundary::outline(const SheetPlot& plot) const {
  std::vector<SheetPoint> points = {plot.at(lowdb, plot.limits.lowhr)};
  for (const auto* part : {&left, &saturation, &top}) points.insert(points.end(), part->begin(), part->end());
  points.push_back(plot.at(plot.limits.highdb, highhr));
  points.push_back(plot.at(plot.limits.highdb, plot.limits.lowhr));
  points.push_back(points.front());
  return points;
}

}  // namespace moistair
