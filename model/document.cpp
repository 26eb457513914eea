#include "model/document.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "chart/mixingline.h"
#include "chart/pointmark.h"
#include "chart/reading.h"
#include "chart/scales.h"

namespace moistair {

namespace {

/// Draws what an entry holds with the limits and the pressure that it was drawn with.
struct EntryDrawer {
  ChartCanvas& canvas;
  WindowSize window;
  const Setting& setting;

  PlotArea area() const { return plotArea(setting.limits, window); }
  Chart chart() const { return {canvas, area(), setting.pressure.atm}; }
  std::string header() const { return headerLine(setting.pressure.entry); }

  const char* operator()(const HeaderLine&) const {
    printHeader(canvas, window, header());
    return nullptr;
  }

  const char* operator()(const DrawnChart& drawn) const {
    drawChart(chart(), drawn.type, header());
    return nullptr;
  }

  const char* operator()(const PropertyLine& line) const {
    return drawLine(chart(), line.kind, line.value) ? nullptr : lineNotFeasible;
  }

  const char* operator()(const MarkedPoint& point) const {
    return markPoint(canvas, point.state, area(), point.identification) ? nullptr : pointOutOfLimits;
  }

  const char* operator()(const MixingLine& line) const {
    MixingProblem problem;
    problem.streams = {line.columns.at(0), line.columns.at(1)};
    problem.mixed = line.columns.at(2);
    return drawMixingLine(canvas, problem, area());
  }

  const char* operator()(const PinnedReading& pinned) const {
    return pinReading(canvas, pinned.state, pinned.corner, area()) ? nullptr : pointOutOfLimits;
  }

  const char* operator()(const AirHandler&) const { return nullptr; }
};

struct EntryCaption {
  std::string operator()(const HeaderLine&) const { return "Pressure"; }
  std::string operator()(const DrawnChart& drawn) const {
    return drawn.type == ChartType::standard ? "Standard chart" : "Blank chart";
  }
  std::string operator()(const PropertyLine& line) const {
    return std::string(captionOf(line.kind)) + (line.value.empty() ? "" : " ") + line.value;
  }
  std::string operator()(const MarkedPoint& point) const {
    return point.identification.empty() ? "Point" : "Point " + point.identification;
  }
  std::string operator()(const MixingLine&) const { return "Mixture"; }
  std::string operator()(const PinnedReading& pinned) const {
    const ChartCoordinates place{pinned.state.db, pinned.state.w};
    return "Read-out " + dryBulbText(place) + ", " + ratioText(place);
  }
  std::string operator()(const AirHandler&) const { return "Air handler"; }
};

/// Clears the canvas and draws all, the background picture kept as such.
/// @param after called with each entry, and with the message if it has drawn nothing
template <class After>
void drawEntries(const Document& document, ChartCanvas& canvas, WindowSize window, const After& after) {
  canvas.dropPicture();
  canvas.cls();
  const Entry* before = nullptr;
  std::size_t drawn = 0;
  for (const Entry& entry : document.entries) {
    // A chart over the same one shows nothing more, and ten thousand of them would take their time.
    const bool covers = before != nullptr && std::holds_alternative<DrawnChart>(entry.content) && entry == *before;
    after(entry, covers ? nullptr : draw(entry, canvas, window));
    before = &entry;
    if (++drawn == document.background) canvas.keepPicture();
  }
}

/// Takes the entries with a message out of a document.
std::vector<LeftOut> takeout(Document& document, const std::vector<const char*>& messages) {
  std::vector<Entry> kept;
  std::vector<LeftOut> leftOut;
  std::size_t background = 0;
  for (std::size_t i = 0; i < messages.size(); ++i) {
    if (messages[i] != nullptr) {
      leftOut.push_back({std::move(document.entries[i]), messages[i]});
    } else {
      kept.push_back(std::move(document.entries[i]));
      if (i < document.background) ++background;
    }
  }
  document.entries = std::move(kept);
  document.background = background;
  return leftOut;
}

}  // namespace

const char* draw(const Entry& entry, ChartCanvas& canvas, WindowSize window) {
  return std::visit(EntryDrawer{canvas, window, entry.setting}, entry.content);
}

void draw(const Document& document, ChartCanvas& canvas, WindowSize window) {
  drawEntries(document, canvas, window, [](const Entry&, const char*) {});
}

std::vector<LeftOut> drawFitting(Document& document, ChartCanvas& canvas, WindowSize window) {
  std::vector<const char*> messages;
  messages.reserve(document.entries.size());
  drawEntries(document, canvas, window, [&](const Entry&, const char* message) { messages.push_back(message); });
  return takeout(document, messages);
}

std::vector<LeftOut> leaveOut(Document& document, WindowSize window) {
  std::vector<const char*> messages;
  messages.reserve(document.entries.size());
  for (std::size_t i = 0; i < document.entries.size(); ++i) {
    const Entry& entry = document.entries[i];
    RecordingCanvas scratch;
    const bool fits =
        std::holds_alternative<DrawnChart>(entry.content) || std::holds_alternative<HeaderLine>(entry.content);
    const bool again = i > 0 && entry == document.entries[i - 1];
    messages.push_back(fits ? nullptr : again ? messages.back() : draw(entry, scratch, window));
  }
  return takeout(document, messages);
}

Drawing drawingOf(const Document& document, WindowSize window) {
  RecordingCanvas canvas;
  draw(document, canvas, window);
  return canvas.drawing();
}

bool hasCurrentChart(const Document& document) {
  return checkDrawn(document.current.limits, document.chartState.drawn);
}

std::optional<ChartLimits> currentLimits(const Document& document) {
  const DrawnLimits& drawn = document.chartState.drawn;
  const ChartLimits limits{drawn.lowDb.lenient(), drawn.highDb.lenient(), drawn.lowHr.lenient(),
                           drawn.highHr.lenient()};
  if (!(limits.lowDb < limits.highDb && limits.lowHr < limits.highHr)) return std::nullopt;
  return limits;
}

std::size_t untriedCount(const Document& document) {
  if (!currentLimits(document)) return 0;
  const auto untried = [](const LeftOut& left) { return left.reason.empty(); };
  const auto count = std::count_if(document.previous.begin(), document.previous.end(), untried);
  return static_cast<std::size_t>(count);
}

const Entry* lastChart(const Document& document) {
  const auto isChart = [](const Entry& entry) { return std::holds_alternative<DrawnChart>(entry.content); };
  const auto last = std::find_if(document.entries.rbegin(), document.entries.rend(), isChart);
  return last == document.entries.rend() ? nullptr : &*last;
}

void changeLimits(Document& document, const ChartLimits& limits) {
  for (Entry& entry : document.entries) {
    if (!std::holds_alternative<HeaderLine>(entry.content)) entry.setting.limits = limits;
  }
  if (currentLimits(document)) document.chartState = chartStateOf(limits);
}

Document newDocument(const Pressure& pressure) {
  Document document;
  document.entries.push_back({{{}, pressure}, HeaderLine{}});
  document.pressure = pressure;
  return document;
}

ChartState chartStateOf(const ChartLimits& limits) {
  ChartState chartState;
  rememberLimits(limits, chartState.drawn);
  chartState.frame = plotFrame(limits);
  return chartState;
}

const char* captionOf(LineKind kind) {
  switch (kind) {
    case LineKind::relativeHumidity: return "Relative humidity line";
    case LineKind::wetBulb: return "Wet bulb line";
    case LineKind::enthalpy: return "Enthalpy line";
    case LineKind::specificVolume: break;
  }
  return "Specific volume line";
}

std::string captionOf(const Entry& entry) { return std::visit(EntryCaption{}, entry.content); }

}  // namespace moistair
