#include "model/locate.h"

#include "chart/chartframe.h"

namespace moistair {

namespace {

/// The answer to a pair without a state.
Error errorOf(Unresolved reason) {
  switch (reason) {
    case Unresolved::sameKind: return {ErrorCode::duplicate, {}, "Two parameters must be diffrent"};
    case Unresolved::humidityRatioWithDewPoint:
      return {ErrorCode::unsupported, {}, "combination of Humidity ration and dew point not feasible"};
    case Unresolved::blankValue:
      return {ErrorCode::unreadable, {}, "None of the two data input boxes can not be blank for locating point"};
    default: break;
  }
  return {ErrorCode::noResult,
          {},
          "The point as per input parameters are either out of chart limits or the such point is not feasible"};
}

}  // namespace

Location locatePoint(const PairInput& input, const std::function<bool()>& hasCurrentChart, double atm,
                     const RangeFinders& finders, SolverFields& fields) {
  Location location;
  Resolution& resolution = location.resolution;
  resolution.reason = inputFault(input.kind1, input.kind2, input.value1, input.value2);
  if (resolution.resolved()) {
    if (!hasCurrentChart()) {
      location.outcome = Error{ErrorCode::waiting, {}, drawAxisFirst};
      return location;
    }
    resolution = resolvePair(input.kind1, input.value1, input.kind2, input.value2, atm, finders, fields);
  }
  if (!resolution.resolved()) location.outcome = errorOf(resolution.reason);
  return location;
}

}  // namespace moistair
