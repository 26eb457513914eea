#include "cli/processhours.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "cli/csv.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "model/jsonnode.h"
#include "text/numberformat.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr double btuPerTon = 12000, btuPerMbh = 1000;

/// Hours for which a load is at least a part of the peak.
double hoursAbove(const std::vector<std::pair<double, double>>& loads, double least) {
  double hours = 0;
  for (const auto& [load, weight] : loads) {
    if (load < least) break;
    hours += weight;
  }
  return hours;
}

constexpr std::array<double, 10> shares = {1, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1};

std::string right(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

double unitOf(bool cooling) { return cooling ? btuPerTon : btuPerMbh; }

}  // namespace

std::string tableOfHours(const HoursOptions& options, double atm) {
  const WeatherFile file = weatherOf(options.file, options.weather);
  if (file.rows.empty()) throw failure(options.file + ": a file of design days has no hours");
  Oddities oddities = file.oddities;
  auto hours = hoursOf(file, {atm, options.ownPressure, filterOf(options.weather)}, oddities);
  const auto conditions = conditionsOf(options.weather);
  const StatePredicate holds = predicateOf(conditions);
  if (!conditions.empty()) std::erase_if(hours, [&](const WeatherHour& hour) { return !holds(hour.state); });
  reportOddities(oddities);
  std::string table = "time,hours," + options.stream + ".db," + options.stream + ".w";
  table += options.ownPressure ? ",inhg\n" : "\n";
  for (const WeatherHour& hour : hours) {
    std::string time = timeWords(hour.time);
    std::replace(time.begin(), time.end(), ' ', 'T');
    table += time;
    for (const double value : {hour.hours, hour.state.db, hour.state.w}) {
      table += ',';
      appendRoundTrip(table, value);
    }
    if (options.ownPressure) {
      table += ',';
      appendRoundTrip(table, hour.atm);
    }
    table += '\n';
  }
  return table;
}

HourLoads::HourLoads(std::string_view header) {
  std::vector<std::string> heads;
  CsvRecord record;
  takeRecord(header, record);
  eachField(record.raw, ',', [&](std::string_view field) { heads.emplace_back(field); });
  const auto placeOf = [&](const std::string& head) {
    return static_cast<std::size_t>(std::find(heads.begin(), heads.end(), head) - heads.begin());
  };
  status_ = placeOf("status");
  for (const std::string& head : heads) {
    const std::string name = head.substr(0, head.rfind('.'));
    if (!head.ends_with(".total") || placeOf(name + ".water") == heads.size()) continue;
    names_.push_back(name);
    columns_.insert(columns_.end(), {placeOf(head), placeOf(name + ".water")});
  }
}

void HourLoads::add(std::string_view rows) {
  CsvRecord record;
  std::vector<std::string_view> fields;
  std::vector<Row> added;
  std::size_t failed = 0;
  while (takeRecord(rows, record)) {
    fields.clear();
    eachField(record.raw, ',', [&](std::string_view field) { fields.push_back(field); });
    if (fields.size() <= status_ || fields[status_] != "ok") {
      ++failed;
      continue;
    }
    Row row{std::string(fields[0]), strictNumber(fields[1]), {}};
    for (const std::size_t column : columns_) row.values.push_back(strictNumber(fields[column]));
    added.push_back(std::move(row));
  }
  const std::lock_guard lock(mutex_);
  failed_ += failed;
  rows_.insert(rows_.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

void HourLoads::finish() {
  std::sort(rows_.begin(), rows_.end(), [](const Row& one, const Row& other) {
    return std::tie(one.time, one.values) < std::tie(other.time, other.values);
  });
}

std::vector<HourLoads::Duration> HourLoads::durations() const {
  std::vector<Duration> found;
  for (std::size_t process = 0; process < names_.size(); ++process) {
    for (const bool cooling : {true, false}) {
      Duration duration{.name = names_[process], .cooling = cooling, .when = {}, .loads = {}};
      for (const Row& row : rows_) {
        const double load = (cooling ? -1 : 1) * row.values[2 * process];
        if (!(load > 0)) continue;
        duration.loads.emplace_back(load, row.hours);
        duration.sum += load * row.hours;
        duration.water += row.values[2 * process + 1] * row.hours;
        if (!(load > duration.peak)) continue;
        duration.peak = load;
        duration.when = row.time;
      }
      // A load beyond what rounding leaves of a process that does nothing.
      if (!(duration.peak > 0.5)) continue;
      std::stable_sort(duration.loads.begin(), duration.loads.end(),
                       [](const auto& one, const auto& other) { return one.first > other.first; });
      found.push_back(std::move(duration));
    }
  }
  return found;
}

std::string HourLoads::text(Format format) const {
  const auto all = durations();
  double hours = 0;
  for (const Row& row : rows_) hours += row.hours;
  if (format == Format::json) {
    Json json{{"hours", jsonNumber(hours)}, {"failed", failed_}, {"loads", Json::array()}};
    for (const Duration& load : all) {
      Json one{{"process", load.name},          {"kind", load.cooling ? "cooling" : "heating"},
               {"peak", jsonNumber(load.peak)}, {"time", load.when},
               {"btu", jsonNumber(load.sum)},   {"water", jsonNumber(load.water)}};
      if (load.cooling) one["tonHours"] = jsonNumber(load.sum / btuPerTon);
      one["duration"] = Json::array();
      for (const double share : shares) {
        one["duration"].push_back(
            {jsonNumber(share * load.peak), jsonNumber(hoursAbove(load.loads, share * load.peak))});
      }
      json["loads"].push_back(one);
    }
    return jsonText(json) + '\n';
  }
  std::string out = "Hours " + atMostDecimals(hours, 1);
  if (failed_ > 0)
    out += "; not counted: " + std::to_string(failed_) + (failed_ == 1 ? " row" : " rows") + " without a solution";
  out += "\n\n";
  out += "Process           peak                at           sum             hours      water, lb\n";
  for (const Duration& load : all) {
    std::string name = load.name;
    name.resize(std::max<std::size_t>(name.size(), 10), ' ');
    out += name + right(fixedDecimals(load.peak / unitOf(load.cooling), 2), 12) + (load.cooling ? " tons" : " MBH ") +
           right(load.when, 18) + right(fixedDecimals(load.sum / unitOf(load.cooling), 1), 14) +
           (load.cooling ? " ton-h" : " kBtu ") + right(atMostDecimals(hoursAbove(load.loads, 0), 1), 9) +
           right(fixedDecimals(load.water, 1), 15) + '\n';
  }
  out += "\nHours at or above a part of the peak\nProcess         ";
  for (const double share : shares) out += right(atMostDecimals(100 * share, 0) + "%", 6);
  out += '\n';
  for (const Duration& load : all) {
    std::string name = load.name + (load.cooling ? " cooling" : " heating");
    name.resize(std::max<std::size_t>(name.size(), 16), ' ');
    out += name;
    for (const double share : shares) out += right(atMostDecimals(hoursAbove(load.loads, share * load.peak), 0), 6);
    out += '\n';
  }
  return out;
}

namespace {

/// Where the plot of the curves lies on its picture [twips].
struct CurvePlot {
  double hours, peak;
  static constexpr double left = 1200, right = 12300, top = 900, bottom = 7900;

  double x(double at) const { return left + (right - left) * at / hours; }
  double y(double share) const { return bottom - (bottom - top) * share; }
};

constexpr double halfLine = double{lineHeight} / 2;

void drawAxes(RecordingCanvas& canvas, const CurvePlot& plot) {
  constexpr Color faded{198, 204, 212};
  for (int tenth = 0; tenth <= 10; ++tenth) {
    const double y = plot.y(tenth / 10.0), x = plot.left + (plot.right - plot.left) * tenth / 10;
    canvas.line(plot.left, y, plot.right, y, faded);
    canvas.line(x, plot.top, x, plot.bottom, faded);
    canvas.moveTo(plot.left - 700, y - halfLine);
    canvas.print(std::to_string(10 * tenth) + "%");
    canvas.moveTo(x - 150, plot.bottom + 80);
    canvas.print(atMostDecimals(plot.hours * tenth / 10, 0));
  }
  canvas.line(plot.left, plot.top, plot.left, plot.bottom);
  canvas.line(plot.left, plot.bottom, plot.right, plot.bottom);
  canvas.moveTo(plot.left, plot.bottom + 400);
  canvas.print("Hours in which the load is at least a part of its peak");
}

}  // namespace

Drawing HourLoads::plot() const {
  constexpr std::array<Color, 6> colors = {
      {{18, 51, 95}, {200, 16, 46}, {47, 143, 91}, {185, 119, 47}, {164, 85, 154}, {75, 131, 196}}};
  RecordingCanvas canvas;
  const auto all = durations();
  CurvePlot plot{0, 1};
  for (const Duration& load : all) plot.hours = std::max(plot.hours, hoursAbove(load.loads, 0));
  if (!(plot.hours > 0)) plot.hours = 1;
  drawAxes(canvas, plot);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Duration& load = all[i];
    const Color color = colors[i % colors.size()];
    double hours = 0, share = 1;
    for (const auto& [value, weight] : load.loads) {
      const double next = value / load.peak;
      if (next < share) canvas.line(plot.x(hours), plot.y(share), plot.x(hours), plot.y(next), color);
      canvas.line(plot.x(hours), plot.y(next), plot.x(hours + weight), plot.y(next), color);
      hours += weight;
      share = next;
    }
    canvas.line(plot.x(hours), plot.y(share), plot.x(hours), plot.y(0), color);
    const double y = plot.top + 250 * static_cast<double>(i) + 100;
    canvas.line(plot.right - 4200, y + halfLine, plot.right - 3800, y + halfLine, color);
    canvas.moveTo(plot.right - 3700, y);
    canvas.print(load.name + (load.cooling ? " cooling, peak " : " heating, peak ") +
                 fixedDecimals(load.peak / unitOf(load.cooling), 1) + (load.cooling ? " tons" : " MBH"));
  }
  return canvas.drawing();
}

}  // namespace moistair
