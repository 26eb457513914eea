#include "advice/comfortwords.h"

#include "text/numbertext.h"

namespace moistair {

std::string comfortText(const ZoneLayer& layer, double db, double w, double atm) {
  if (!layer.shown) return {};
  for (const Zone& zone : layer.zones) {
    const auto* comfort = std::get_if<ComfortZone>(&zone);
    if (comfort == nullptr) continue;
    const Result<Comfort> vote = comfortAt(comfort->occupant, db, w, atm);
    if (!vote) return {};
    return "PMV " + fixedDecimals(vote->pmv, 2) + ", PPD " + fixedDecimals(vote->ppd, 0) + " %";
  }
  return {};
}

}  // namespace moistair
