#include "model/pointreport.h"

#include "text/printzones.h"

namespace moistair {

namespace {

/// The identification is set off in its zone, as far as the other values are by a third step.
std::string identificationline(std::string_view identification) {
  const std::string setoff = zoneline(identificationcaption, 3, std::string(7, ' '));
  return zoneline(setoff, 1, identification);
}

}  // namespace

PointReport fillreport(const StatePoint& point, std::string_view identification, const PressureEntry& pressure) {
  PointReport report;
  report.identification = identification.empty() ? "Nil" : identification;
  for (const Property& property : heldProperties) report.*property.text = showvalue(point.*property.value);
  report.pressurecaption = pressurecaption(pressure);
  report.pressure = pressureshown(pressure);
  return report;
}

StatePoint readreport(const PointReport& report) {
  StatePoint point;
  for (const Property& property : heldProperties) point.*property.value = lenientnumber(report.*property.text);
  return point;
}

std::vector<std::string> pointrecord(const PointReport& report) {
  std::vector<std::string> lines = {std::string(25, '-'), identificationline(report.identification),
                                    zoneline(report.pressurecaption, 3, report.pressure)};
  for (const PropertyKind kind : shownOrder) {
    const Property& property = propertyOf(kind);
    lines.push_back(zoneline(property.caption, property.zoneSteps, report.*property.text));
  }
  lines.emplace_back(28, '-');
  return lines;
}

}  // namespace moistair
