#include "chart/propertylines.h"
#include "text/value.h"

namespace moistair {

bool drawLine(const Chart& chart, LineKind kind, std::string_view value) {
  double number = 0;
  assign(number, strictNumber(value));
  switch (kind) {
    case LineKind::relativeHumidity: return drawRhLine(chart, number);
    case LineKind::wetBulb: return drawWbLine(chart, number);
    case LineKind::enthalpy: return traceEnthLine(chart, number);
    case LineKind::specificVolume: break;
  }
  return traceVolLine(chart, number);
}

}  // namespace moistair
