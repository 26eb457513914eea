#include "session/locate.h"

#include "chart/chartframe.h"

namespace moistair {

namespace {

LocateFault faultof(InputFault fault) {
  switch (fault) {
    case InputFault::samekind: return LocateFault::samekind;
    case InputFault::humidityratiowithdewpoint: return LocateFault::humidityratiowithdewpoint;
    case InputFault::blankvalue: return LocateFault::blankvalue;
    case InputFault::none: break;
  }
  return LocateFault::none;
}

}  // namespace

Location locatepoint(const PairInput& input, const std::function<bool()>& chartstands, double atm,
                     const RangeFinders& finders, SolverFields& fields) {
  Location location;
  location.fault = faultof(inputfault(input.kind1, input.kind2, input.value1, input.value2));
  if (location.fault != LocateFault::none) return location;
  if (!chartstands()) {
    location.fault = LocateFault::nochart;
    return location;
  }
  const Resolution resolution = resolvepair(input.kind1, input.value1, input.kind2, input.value2, atm, finders, fields);
  location.point = resolution.point;
  if (!resolution.resolved) location.fault = LocateFault::notfound;
  return location;
}

const char* locatemessage(LocateFault fault) {
  switch (fault) {
    case LocateFault::samekind: return "Two parameters must be diffrent";
    case LocateFault::humidityratiowithdewpoint: return "combination of Humidity ration and dew point not feasible";
    case LocateFault::blankvalue: return "None of the two data input boxes can not be blank for locating point";
    case LocateFault::nochart: return drawaxisfirst;
    case LocateFault::notfound:
      return "The point as per input parameters are either out of chart limits or the such point is not feasible";
    case LocateFault::none: break;
  }
  return "";
}

}  // namespace moistair
