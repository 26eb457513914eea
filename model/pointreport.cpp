#include "model/pointreport.h"

#include "text/printzones.h"

namespace moistair {

namespace {

/// The identification is set off in its zone, as far as the other values are by a third step.
std::string identificationLine(std::string_view identification) {
  const std::string setOff = zoneLine(identificationCaption, 3, std::string(7, ' '));
  return zoneLine(setOff, 1, identification);
}

}  // namespace

PointReport fillReport(const StatePoint& point, std::string_view identification, const PressureEntry& pressure) {
  PointReport report;
  report.identification = identification.empty() ? "Nil" : identification;
  for (const Property& property : heldProperties) report.*property.text = showValue(point.*property.value);
  report.pressureCaption = pressureCaption(pressure);
  report.pressure = pressureShown(pressure);
  return report;
}

StatePoint readReport(const PointReport& report) {
  StatePoint point;
  for (const Property& property : heldProperties) point.*property.value = lenientNumber(report.*property.text);
  return point;
}

std::vector<std::string> pointRecord(const PointReport& report) {
  std::vector<std::string> lines = {std::string(25, '-'), identificationLine(report.identification),
                                    zoneLine(report.pressureCaption, 3, report.pressure)};
  for (const PropertyKind kind : shownOrder) {
    const Property& property = propertyOf(kind);
    lines.push_back(zoneLine(property.caption, property.zoneSteps, report.*property.text));
  }
  lines.emplace_back(28, '-');
  return lines;
}

}  // namespace moistair
