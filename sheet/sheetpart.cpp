#include "sheet/sheetdrawing.h"

namespace moistair {

const char* nameOf(SheetPart part) {
  switch (part) {
    case SheetPart::grid: return "grid";
    case SheetPart::weather: return "weather";
    case SheetPart::zones: return "zones";
    case SheetPart::relativeHumidity: return "relative-humidity";
    case SheetPart::wetBulb: return "wet-bulb";
    case SheetPart::specificVolume: return "specific-volume";
    case SheetPart::enthalpy: return "enthalpy";
    case SheetPart::frame: return "frame";
    case SheetPart::scales: return "scales";
    case SheetPart::protractor: return "protractor";
    case SheetPart::heading: return "heading";
    case SheetPart::lines: return "lines";
    case SheetPart::processes: return "processes";
    case SheetPart::points: return "points";
    case SheetPart::leaders: return "leaders";
    case SheetPart::readouts: return "read-outs";
    case SheetPart::table: return "table";
    case SheetPart::titleBlock: break;
  }
  return "title-block";
}

}  // namespace moistair
