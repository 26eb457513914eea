#include "chart/propertylines.h"
#include "text/value.h"

namespace moistair {

bool drawline(const Chart& chart, LineKind kind, std::string_view value) {
  double number = 0;
  assign(number, strictnumber(value));
  switch (kind) {
    case LineKind::relativehumidity: return drawrhline(chart, number);
    case LineKind::wetbulb: return drawwbline(chart, number);
    case LineKind::enthalpy: return traceenthline(chart, number);
    case LineKind::specificvolume: break;
  }
  return tracevolline(chart, number);
}

}  // namespace moistair
