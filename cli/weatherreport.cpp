#include "cli/weatherreport.h"

#include <algorithm>

#include "cli/check.h"
#include "engine/pressureunits.h"
#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/tablefield.h"

namespace moistair {

namespace {

/// A number right-aligned in so many characters; nothing for no value.
std::string cell(double number, int decimals, std::size_t width) {
  const std::string text = decimals > 0 ? fixedDecimals(number, decimals) : atMostDecimals(number, 0);
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string csvNumber(double number) {
  std::string out;
  appendSevenDecimals(out, number);
  return out;
}

/// Few digits for what is whole: bounds of bins, hours.
std::string plain(double number) { return atMostDecimals(number, 6); }

std::string shiftWords(int shift) {
  const auto two = [](int hour) { return std::string(hour < 10 ? "0" : "") + std::to_string(hour); };
  return two(shift * 8) + "-" + two(shift * 8 + 8);
}

/// A month and a shift that are binned by themselves; 0 and -1 for all.
struct Part {
  int month = 0, shift = -1;
};

std::vector<Part> partsOf(const WeatherReport& report) {
  std::vector<Part> parts;
  for (int month = report.byMonth ? 1 : 0; month <= (report.byMonth ? 12 : 0); ++month) {
    for (int shift = report.byShift ? 0 : -1; shift < (report.byShift ? shiftCount : 0); ++shift) {
      parts.push_back({month, shift});
    }
  }
  return parts;
}

std::vector<Bin> binsOf(const WeatherReport& report, const Part& part) {
  return binsOf(report.hours, report.width, part.month, part.shift);
}

std::string binsCsv(const WeatherReport& report) {
  std::string out = std::string(report.byMonth ? "month," : "") + (report.byShift ? "shift," : "");
  out += "from,to,hours,mcwb\n";
  for (const Part& part : partsOf(report)) {
    for (const Bin& bin : binsOf(report, part)) {
      if (report.byMonth) out += std::to_string(part.month) + ',';
      if (report.byShift) out += shiftWords(part.shift) + ',';
      out += plain(bin.from) + ',' + plain(bin.to) + ',' + plain(bin.hours) + ',' + csvNumber(bin.mcwb) + '\n';
    }
  }
  return out;
}

/// Hours of the three shifts, of all, and the mean wet bulb, the warmest bin first as in tables for print.
void appendBinTable(std::string& out, const WeatherReport& report, int month) {
  out += month > 0 ? std::string(monthNames[month - 1]) + "\n" : "";
  out += "  Dry bulb (deg F)    00-08    08-16    16-24    Hours     MCWB\n";
  std::vector<Bin> all = binsOf(report.hours, report.width, month, -1);
  std::array<std::vector<Bin>, shiftCount> shifts;
  for (int shift = 0; shift < shiftCount; ++shift) {
    shifts[static_cast<std::size_t>(shift)] = binsOf(report.hours, report.width, month, shift);
  }
  for (std::size_t i = all.size(); i-- > 0;) {
    if (month > 0 && all[i].hours == 0) continue;
    std::string range = plain(all[i].from) + " to " + plain(all[i].to);
    out += std::string(range.size() < 18 ? 18 - range.size() : 0, ' ') + range;
    for (const auto& shift : shifts) out += cell(shift[i].hours, 1, 9);
    out += cell(all[i].hours, 1, 9) + cell(all[i].mcwb, 1, 9) + '\n';
  }
}

std::string whereWords(const WeatherReport& report) {
  std::string words;
  for (const Condition& condition : report.where) words += (words.empty() ? "" : ", ") + wordsOf(condition);
  if (report.inZones) words += words.empty() ? "air in the zones" : ", in the zones";
  return words;
}

const char* coincidentName(PropertyKind kind) { return kind == PropertyKind::db ? "MCWB" : "MCDB"; }

void appendSums(std::string& out, const WeatherReport& report) {
  const DegreeHours sums = degreeHours(report.hours, report.base);
  const double hours = totalHours(report.hours);
  out += "Hours" + cell(hours, 1, 12);
  if (!report.where.empty() || report.inZones) {
    out += " with " + whereWords(report) + ", " + fixedDecimals(quotient(100 * hours, report.allHours), 1) + "% of " +
           fixedDecimals(report.allHours, 1);
  }
  const std::string base = plain(report.base);
  out += "\nDegree-hours below " + base + " deg F" + cell(sums.heating, 0, 10) + ", above" + cell(sums.cooling, 0, 10) +
         '\n';
}

void appendPercentiles(std::string& out, const WeatherReport& report) {
  for (const Percentile& found : percentilesOf(report.hours)) {
    std::string name = std::string(propertyOf(found.kind).name) + " " + atMostDecimals(found.percent, 1) + "%";
    name.resize(std::max<std::size_t>(name.size(), 20), ' ');
    out += "  " + name + cell(found.value, 1, 7) + "  " + coincidentName(found.kind) + cell(found.coincident, 1, 7) +
           "  of this file\n";
  }
}

Json binJson(const Bin& bin) {
  return {{"from", jsonNumber(bin.from)},
          {"to", jsonNumber(bin.to)},
          {"hours", jsonNumber(bin.hours)},
          {"mcwb", jsonNumber(bin.mcwb)}};
}

Json percentilesJson(const WeatherReport& report) {
  Json list = Json::array();
  for (const Percentile& found : percentilesOf(report.hours)) {
    const bool dryBulb = found.kind == PropertyKind::db;
    list.push_back({{"property", nameOf(found.kind)},
                    {"percent", found.percent},
                    {"value", jsonNumber(found.value)},
                    {dryBulb ? "mcwb" : "mcdb", jsonNumber(found.coincident)},
                    {"source", "of this file"}});
  }
  return list;
}

Json sumsJson(const WeatherReport& report) {
  const DegreeHours sums = degreeHours(report.hours, report.base);
  Json json{{"hours", jsonNumber(totalHours(report.hours))}, {"allHours", jsonNumber(report.allHours)}};
  json["degreeHours"] = {
      {"base", jsonNumber(sums.base)}, {"heating", jsonNumber(sums.heating)}, {"cooling", jsonNumber(sums.cooling)}};
  json["percentiles"] = percentilesJson(report);
  return json;
}

std::string binsJson(const WeatherReport& report) {
  Json json = sumsJson(report);
  json["bins"] = Json::array();
  for (const Part& part : partsOf(report)) {
    for (const Bin& bin : binsOf(report, part)) {
      Json one = binJson(bin);
      if (report.byMonth) one["month"] = part.month;
      if (report.byShift) one["shift"] = shiftWords(part.shift);
      json["bins"].push_back(one);
    }
  }
  return jsonText(json) + '\n';
}

std::string siteWords(const WeatherFile& file) {
  std::string words = file.site.name.empty() ? "no site is named" : file.site.name;
  if (hasValue(file.site.elevation)) words += ", elevation " + atMostDecimals(file.site.elevation, 0) + " ft";
  const double mean = meanPressure(file);
  if (hasValue(mean)) words += ", mean pressure " + atMostDecimals(mean, 2) + " in Hg";
  return words;
}

/// A line of design conditions: from the header, or of the file's own hours.
struct DesignLine {
  std::string name;
  double percent;
  StatePoint state;  ///< no dry bulb where there is none
  std::string source;
  bool saturated = false;  ///< since the file gives no humidity
};

std::vector<DesignLine> designLines(const WeatherReport& report) {
  std::vector<DesignLine> lines;
  for (const DesignCondition& condition : report.file.design) {
    lines.push_back(
        {nameOf(condition), condition.percent, stateOf(condition, report.atm), condition.source, !condition.second});
  }
  for (const Percentile& found : percentilesOf(report.hours)) {
    const Given value{found.kind, found.value};
    const Given other{found.kind == PropertyKind::db ? PropertyKind::wb : PropertyKind::db, found.coincident};
    const bool dryBulb = found.kind == PropertyKind::db;
    lines.push_back({std::string(nameOf(found.kind)) + " " + atMostDecimals(found.percent, 1) + "%", found.percent,
                     weatherState(dryBulb ? value : other, dryBulb ? other : value, report.atm), "of this file",
                     false});
  }
  return lines;
}

std::string designTable(const WeatherReport& report) {
  std::string out = siteWords(report.file) + "\n";
  out += "                               DB       WB       DP        W        h  Source\n";
  for (const DesignLine& line : designLines(report)) {
    std::string name = line.name;
    name.resize(std::max<std::size_t>(name.size(), 24), ' ');
    const StatePoint& state = line.state;
    const bool found = hasValue(state.db);
    const auto value = [&](double number, int decimals) { return cell(found ? number : noValue, decimals, 9); };
    out += name + value(state.db, 1) + value(state.wb, 1) + value(state.dp, 1) + value(state.w, 5) + value(state.h, 2);
    out += "  " + line.source + (found ? "" : ": no air has these values at the pressure") +
           (line.saturated ? " (taken as saturated)" : "") + '\n';
  }
  return out;
}

std::string designCsv(const WeatherReport& report) {
  std::string out = "name,percent";
  for (const Property& property : heldProperties) out += std::string(",") + property.key;
  out += ",source\n";
  for (const DesignLine& line : designLines(report)) {
    appendField(out, line.name);
    out += ',' + plain(line.percent);
    for (const Property& property : heldProperties) {
      out += ',' + csvNumber(hasValue(line.state.db) ? line.state.*property.value : noValue);
    }
    out += ',';
    appendField(out, line.source + (line.saturated ? " (taken as saturated)" : ""));
    out += '\n';
  }
  return out;
}

std::string designJson(const WeatherReport& report) {
  Json json{{"site", report.file.site.name}, {"elevation", jsonNumber(report.file.site.elevation)}};
  json["conditions"] = Json::array();
  for (const DesignLine& line : designLines(report)) {
    Json one{{"name", line.name}, {"percent", line.percent}, {"source", line.source}};
    one["state"] = hasValue(line.state.db) ? stateJson(line.state, report.atm) : Json(nullptr);
    json["conditions"].push_back(one);
  }
  return jsonText(json) + '\n';
}

std::string timeCell(const LocalTime& time) {
  std::string text = timeWords(time);
  std::replace(text.begin(), text.end(), ' ', 'T');
  return text;
}

/// A row an hour; one that counts for another duration has it in a last column.
std::string hoursCsv(const WeatherReport& report) {
  const bool weighed =
      std::any_of(report.hours.begin(), report.hours.end(), [](const WeatherHour& hour) { return hour.hours != 1; });
  std::string out = "time";
  for (const Property& property : heldProperties) out += std::string(",") + property.key;
  out += weighed ? ",hours\n" : "\n";
  for (const WeatherHour& hour : report.hours) {
    out += timeCell(hour.time);
    for (const Property& property : heldProperties) {
      out += ',';
      appendSevenDecimals(out, hour.state.*property.value);
    }
    if (weighed) {
      out += ',';
      appendSevenDecimals(out, hour.hours);
    }
    out += '\n';
  }
  return out;
}

std::string hoursJson(const WeatherReport& report) {
  Json json = sumsJson(report);
  json["rows"] = Json::array();
  for (const WeatherHour& hour : report.hours) {
    Json one{{"time", timeCell(hour.time)}, {"hours", jsonNumber(hour.hours)}};
    one.update(stateJson(hour.state, hour.atm));
    json["rows"].push_back(one);
  }
  return jsonText(json) + '\n';
}

}  // namespace

std::string binsText(const WeatherReport& report, Format format) {
  if (format == Format::csv) return binsCsv(report);
  if (format == Format::json) return binsJson(report);
  std::string out;
  for (int month = report.byMonth ? 1 : 0; month <= (report.byMonth ? 12 : 0); ++month) {
    appendBinTable(out, report, month);
  }
  appendSums(out, report);
  appendPercentiles(out, report);
  return out;
}

std::string designText(const WeatherReport& report, Format format) {
  if (format == Format::csv) return designCsv(report);
  return format == Format::json ? designJson(report) : designTable(report);
}

std::string hoursText(const WeatherReport& report, Format format) {
  if (format == Format::csv) return hoursCsv(report);
  if (format == Format::json) return hoursJson(report);
  std::string out = siteWords(report.file) + "\n";
  appendSums(out, report);
  appendPercentiles(out, report);
  return out;
}

}  // namespace moistair
