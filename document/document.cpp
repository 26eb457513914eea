#include "document/document.h"

#include <algorithm>

#include "chart/scales.h"
#include "mixing/mixingline.h"
#include "session/pointmark.h"

namespace moistair {

namespace {

/// Draws what an entry holds with what it was drawn with.
struct EntryDrawer {
  ChartCanvas& canvas;
  WindowSize window;
  const Setting& setting;

  PlotArea area() const { return plotarea(setting.limits, window); }
  Chart chart() const { return {canvas, area(), setting.pressure.atm}; }
  std::string header() const { return headerline(setting.pressure.entry); }

  bool operator()(const HeaderLine&) const {
    printheader(canvas, window, header());
    return true;
  }

  bool operator()(const DrawnChart& drawn) const {
    drawchart(chart(), drawn.type, header());
    return true;
  }

  bool operator()(const PropertyLine& line) const { return drawline(chart(), line.kind, line.value); }

  bool operator()(const MarkedPoint& point) const {
    return markpoint(canvas, point.state, area(), point.identification);
  }

  bool operator()(const MixingLine& line) const {
    if (line.columns.size() != 3) return false;
    MixingProblem problem;
    problem.streams = {line.columns[0], line.columns[1]};
    problem.mixed = line.columns[2];
    return drawmixingline(canvas, problem, area()) == nullptr;
  }
};

struct EntryCaption {
  std::string operator()(const HeaderLine&) const { return "Pressure"; }
  std::string operator()(const DrawnChart& drawn) const {
    return drawn.type == ChartType::standard ? "Standard chart" : "Blank chart";
  }
  std::string operator()(const PropertyLine& line) const {
    return std::string(captionof(line.kind)) + (line.value.empty() ? "" : " ") + line.value;
  }
  std::string operator()(const MarkedPoint& point) const {
    return point.identification.empty() ? "Point" : "Point " + point.identification;
  }
  std::string operator()(const MixingLine&) const { return "Mixture"; }
};

}  // namespace

bool draw(const Entry& entry, ChartCanvas& canvas, WindowSize window) {
  return std::visit(EntryDrawer{canvas, window, entry.setting}, entry.content);
}

void draw(const Document& document, ChartCanvas& canvas, WindowSize window) {
  canvas.DropPicture();
  canvas.Cls();
  for (std::size_t i = 0; i < document.entries.size(); ++i) {
    if (i == document.background && i > 0) canvas.KeepPicture();
    draw(document.entries[i], canvas, window);
  }
  if (document.background == document.entries.size() && document.background > 0) canvas.KeepPicture();
}

Drawing drawingof(const Document& document, WindowSize window) {
  RecordingCanvas canvas;
  draw(document, canvas, window);
  return canvas.drawing();
}

std::optional<ChartLimits> standinglimits(const Document& document) {
  const DrawnLimits& drawn = document.stand.drawn;
  const ChartLimits limits{drawn.lowdb.lenient(), drawn.highdb.lenient(), drawn.lowhr.lenient(),
                           drawn.highhr.lenient()};
  if (!(limits.lowdb < limits.highdb && limits.lowhr < limits.highhr)) return std::nullopt;
  return limits;
}

const Entry* lastchart(const Document& document) {
  const auto ischart = [](const Entry& entry) { return std::holds_alternative<DrawnChart>(entry.content); };
  const auto last = std::find_if(document.entries.rbegin(), document.entries.rend(), ischart);
  return last == document.entries.rend() ? nullptr : &*last;
}

Document newdocument(const Pressure& pressure) {
  Document document;
  document.entries.push_back({{{}, pressure}, HeaderLine{}});
  document.pressure = pressure;
  return document;
}

ChartStand standof(const ChartLimits& limits) {
  ChartStand stand;
  rememberlimits(limits, stand.drawn);
  stand.frame = plotframe(limits);
  return stand;
}

const char* captionof(LineKind kind) {
  switch (kind) {
    case LineKind::relativehumidity: return "Relative humidity line";
    case LineKind::wetbulb: return "Wet bulb line";
    case LineKind::enthalpy: return "Enthalpy line";
    case LineKind::specificvolume: break;
  }
  return "Specific volume line";
}

std::string captionof(const Entry& entry) { return std::visit(EntryCaption{}, entry.content); }

}  // namespace moistair
