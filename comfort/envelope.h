/// \file
/// Envelopes: what the air of a room may be, by the lowest and highest values of any properties.
///
/// All limits of an envelope hold together. At a dry bulb each of them is a limit of the humidity ratio in closed form,
/// so the air of an envelope at a dry bulb is one range of humidity ratios, and its outline is found from these. The
/// envelopes of the trade and those of a user are files of one form (model/envelopefile.h).
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "engine/property.h"
#include "text/error.h"

namespace moistair {

/// Lowest and highest value of a property, both included.
struct PropertyLimits {
  PropertyKind kind = PropertyKind::db;
  double low = -unbounded;
  double high = unbounded;

  bool operator==(const PropertyLimits&) const = default;
};

/// Thin air cools less: above an elevation [ft] the highest dry bulb falls, by so many deg F to 1000 ft.
struct Derating {
  double above = 0;
  double perThousandFeet = 0;

  bool operator==(const Derating&) const = default;
};

struct Envelope {
  std::string name;   ///< short, as a label
  std::string title;  ///< with its source
  std::vector<PropertyLimits> limits;
  std::optional<Derating> derating;

  bool operator==(const Envelope&) const = default;
};

/// What is wrong with an envelope: no limit, a kind twice, low above high, a derating without a highest dry bulb.
Outcome checkEnvelope(const Envelope& envelope);

/// Lowest and highest dry bulb at a pressure [in Hg], derated; infinite where an envelope has no such limit. The low
/// one is above the high one where nothing is left of it.
PropertyLimits dryBulbsOf(const Envelope& envelope, double atm);

/// A range of one coordinate of the chart, and what its ends are due to.
struct LimitedRange {
  double low, high;
  int lowBy, highBy;  ///< equal numbers for the same limit

  bool empty() const { return !(low <= high); }
  void raiseLow(double value, int by);
  void lowerHigh(double value, int by);
};

/// Humidity ratios [lb/lb] at a dry bulb [deg F] from 0 to saturation; those of no limit of the dry bulb itself. `By`
/// is the place of the limit, -1 for dry air and for saturation.
LimitedRange ratiosWithin(const Envelope& envelope, double db, double atm);

}  // namespace moistair
