#include "published.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "cli/csv.h"
#include "engine/moistair.h"
#include "engine/pressureunits.h"
#include "engine/vaporterms.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair::validation {

namespace {

double psiOfInhg(double inhg) { return inhg / inhgOfPsi(1); }

struct Quantity {
  const char* name;
  const char* caption;
  double (*model)(const Conditions&);
};

constexpr Quantity quantities[] = {
    {"saturation_pressure", "Saturation pressure", [](const Conditions& c) { return psiOfInhg(psychro_pvs(c.db)); }},
    {"saturation_humidity_ratio", "Humidity ratio at saturation",
     [](const Conditions& c) { return psychro_w(c.db, c.db, c.inhg); }},
    {"saturation_enthalpy", "Enthalpy at saturation",
     [](const Conditions& c) { return psychro_h(c.db, c.db, c.inhg); }},
    {"dry_air_enthalpy", "Enthalpy of dry air", [](const Conditions& c) { return enthalpyOf(c.db, 0); }},
    {"dry_air_volume", "Volume of dry air",
     [](const Conditions& c) { return volumeOf(volumeFactor(c.db), 0, c.inhg); }},
    {"atmospheric_pressure", "Standard atmosphere",
     [](const Conditions& c) { return psiOfInhg(psychro_atm(c.elevation)); }},
    {"humidity_ratio", "Worked example: humidity ratio",
     [](const Conditions& c) { return psychro_w(c.db, c.wb, c.inhg); }},
    {"enthalpy", "Worked example: enthalpy", [](const Conditions& c) { return psychro_h(c.db, c.wb, c.inhg); }},
    {"dew_point", "Worked example: dew point",
     [](const Conditions& c) { return psychro_dp(psychro_pv1(c.db, c.wb, c.inhg)); }},
    {"relative_humidity", "Worked example: relative humidity",
     [](const Conditions& c) { return psychro_rh(c.db, c.wb, c.inhg); }},
    {"specific_volume", "Worked example: volume", [](const Conditions& c) { return psychro_v(c.db, c.wb, c.inhg); }},
};

std::string conditionText(const std::vector<std::string>& fields) {
  if (!fields[4].empty()) return fields[4] + " ft";
  return fields[1] + (fields[2].empty() ? "" : "/" + fields[2]) + " deg F";
}

Comparison comparisonOf(const std::vector<std::string>& fields) {
  const auto quantity = std::find_if(std::begin(quantities), std::end(quantities),
                                     [&](const Quantity& row) { return row.name == fields[0]; });
  if (quantity == std::end(quantities)) throw std::runtime_error(fields[0] + " is not a quantity of the model");
  const Conditions conditions{strictNumber(fields[1]), strictNumber(fields[2]), inhgOfPsi(strictNumber(fields[3])),
                              strictNumber(fields[4])};
  Comparison row{fields[0], quantity->caption, conditionText(fields), fields[5], fields[6], fields[7]};
  row.model = quantity->model(conditions);
  row.inPercent = row.quantity != "dew_point";
  const double published = strictNumber(row.published);
  row.difference = row.inPercent ? 100 * (row.model - published) / std::abs(published) : row.model - published;
  if (!hasValue(row.difference)) throw std::runtime_error(row.quantity + " at " + row.condition + " has no value");
  return row;
}

}  // namespace

std::vector<Comparison> compare(std::string_view table) {
  std::vector<Comparison> rows;
  CsvRecord record;
  takeRecord(table, record);
  std::string scratch;
  while (takeRecord(table, record)) {
    if (record.blank()) continue;
    std::vector<std::string> fields;
    eachField(record.raw, ',', [&](std::string_view field) { fields.emplace_back(fieldText(field, scratch)); });
    if (fields.size() != 8) throw std::runtime_error("no row of a figure: " + std::string(record.raw));
    rows.push_back(comparisonOf(fields));
  }
  return rows;
}

}  // namespace moistair::validation
